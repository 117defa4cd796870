// SPDX-License-Identifier: MIT
#include "app/qt/message_box.h"
#include "desk.h"
#include "dialogs/file_dialogs.h"
#include "every_dialog.h"

#include <QFile>

#include <algorithm>

namespace tarvelint::test {

namespace {

/// What a box shows of its buttons, from left to right.
QStringList captionsAcross(const QDialog& dialog)
{
    auto buttons = dialog.findChildren<QPushButton*>();
    std::ranges::sort(buttons, {}, [&](QPushButton* button) { return button->mapTo(&dialog, QPoint()).x(); });
    QStringList captions;
    for (const auto* button : buttons)
        if (button->isVisible()) captions += button->text().remove(u'&');
    return captions;
}

int rightEnd(const QDialog& dialog, const char* name)
{
    return dialog.findChild<QWidget*>(QString::fromLatin1(name))->geometry().right();
}

bool standSideBySide(const QDialog& dialog)
{
    const auto buttons = dialog.findChildren<QPushButton*>();
    return !buttons.empty() && std::ranges::all_of(buttons, [&](QPushButton* button) {
        return button->mapTo(&dialog, QPoint()).y() == buttons.front()->mapTo(&dialog, QPoint()).y();
    });
}

bool showsAnIcon(const QDialog& dialog)
{
    const auto buttons = dialog.findChildren<QPushButton*>();
    return std::ranges::any_of(buttons, [](QPushButton* button) { return !button->icon().isNull(); });
}

} // namespace

/// Started under the toolkit's own theme and under one that has other places for buttons, and icons on them.
class DialogButtonsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

    void cancelStandsLeftOfWhatItCancels_data()
    {
        QTest::addColumn<QString>("cancel");
        QTest::newRow("column setup") << QStringLiteral("CancelButton");
        QTest::newRow("options") << QStringLiteral("cmdCancel");
        QTest::newRow("save contents") << QStringLiteral("CancelButton");
    }
    void cancelStandsLeftOfWhatItCancels()
    {
        QFETCH(QString, cancel);
        Dialogs dialogs;
        QDialog& dialog = dialogs.show(QString::fromLatin1(QTest::currentDataTag()));
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        const auto* left = dialog.findChild<QPushButton*>(cancel);
        const auto buttons = dialog.findChildren<QPushButton*>();
        QVERIFY(buttons.size() > 1);
        for (const auto* button : buttons) {
            QCOMPARE(button->y(), left->y());
            QVERIFY(button == left || button->x() > left->x() + left->width());
        }
    }

    void noButtonBearsAnIcon_data() { addDialogs(); }
    void noButtonBearsAnIcon()
    {
        QFETCH(QString, which);
        Dialogs dialogs;
        QVERIFY(!dialogs.show(which).findChildren<QPushButton*>().empty());
        QVERIFY(!showsAnIcon(dialogs.show(which)));
    }

    void aMessageBoxHasWhatLeavesThingsAsTheyAreOnTheLeftAndNoIconsOnItsButtons_data()
    {
        QTest::addColumn<Buttons>("buttons");
        QTest::addColumn<QStringList>("across");
        const auto row = [](const char* name, Buttons buttons, const QStringList& across) {
            QTest::newRow(name) << buttons << across;
        };
        row("OK", Buttons::ok, {QStringLiteral("OK")});
        row("OK, Cancel", Buttons::okCancel, {QStringLiteral("Cancel"), QStringLiteral("OK")});
        row("Yes, No", Buttons::yesNo, {QStringLiteral("No"), QStringLiteral("Yes")});
        row("Yes, No, Cancel", Buttons::yesNoCancel,
            {QStringLiteral("Cancel"), QStringLiteral("No"), QStringLiteral("Yes")});
    }
    void aMessageBoxHasWhatLeavesThingsAsTheyAreOnTheLeftAndNoIconsOnItsButtons()
    {
        QFETCH(Buttons, buttons);
        Desk desk;
        QStringList across;
        QString enter;
        desk.onBox([&](QMessageBox& box) {
            across = captionsAcross(box);
            QVERIFY(standSideBySide(box));
            QVERIFY(!showsAnIcon(box));
            QTRY_COMPARE(box.focusWidget(), static_cast<QWidget*>(box.defaultButton()));
            enter = box.defaultButton()->text().remove(u'&');
            box.reject();
        });
        static_cast<void>(askInBox(*desk.form, {"Convert all sensors?", "Tarvelint", buttons, Icon::warning}));
        QTEST(across, "across");
        QCOMPARE(enter, across.last());
    }

    void aFileDialogHasCancelLeftOfWhatItCancels_data()
    {
        QTest::addColumn<bool>("save");
        QTest::addColumn<QString>("right");
        QTest::newRow("open") << false << QStringLiteral("Open");
        QTest::newRow("save") << true << QStringLiteral("Save");
    }
    void aFileDialogHasCancelLeftOfWhatItCancels()
    {
        QFETCH(bool, save);
        QFETCH(QString, right);
        Desk desk;
        QStringList across;
        whenShown<QFileDialog>(*desk.form, "fileDialog", [&](QFileDialog& dialog) {
            across = captionsAcross(dialog);
            QVERIFY(standSideBySide(dialog));
            QVERIFY(!showsAnIcon(dialog));
            for (const char* above : {"fileNameEdit", "fileTypeCombo"})
                QCOMPARE(rightEnd(dialog, above), rightEnd(dialog, "buttonBox"));
            const auto* caption = dialog.findChild<QLabel*>(QStringLiteral("fileNameLabel"));
            QVERIFY(caption->width() < dialog.width() / 4); // the room is the name's
            dialog.reject();
        });
        const FileDialog question{"File", {{"Comma Delimited (*.csv)", "*.csv"}}, FileType::space};
        QVERIFY(!askForFile(desk.form, question, save));
        QCOMPARE(across, (QStringList{QStringLiteral("Cancel"), right}));
    }

    void theQuestionBeforeAFileIsReplacedHasNoOnTheLeft()
    {
        Desk desk;
        const QString path = desk.folder.filePath(QStringLiteral("data.csv"));
        QVERIFY(QFile(path).open(QIODevice::WriteOnly));
        QStringList across;
        whenShown<QFileDialog>(*desk.form, "fileDialog", [&](QFileDialog& dialog) {
            auto* timer = new QTimer(&dialog);
            connect(timer, &QTimer::timeout, timer, [&across, timer, &dialog] {
                auto* question = dialog.findChild<QMessageBox*>();
                if (question == nullptr || !question->isVisible()) return;
                timer->stop();
                across = captionsAcross(*question);
                question->button(QMessageBox::No)->click();
                QMetaObject::invokeMethod(&dialog, "reject", Qt::QueuedConnection);
            });
            timer->start(5);
            typeName(dialog, path);
        });
        const FileDialog question{"File", {{"Comma Delimited (*.csv)", "*.csv"}}, FileType::space};
        QVERIFY(!askForFile(desk.form, question, true));
        QCOMPARE(across, (QStringList{QStringLiteral("No"), QStringLiteral("Yes")}));
    }
};

} // namespace tarvelint::test

QTEST_MAIN(tarvelint::test::DialogButtonsTest)
#include "dialog_buttons_test.moc"
