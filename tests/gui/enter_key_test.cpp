// SPDX-License-Identifier: MIT
#include "setup_bench.h"

#include "app/qt/frm_splash.h"
#include "dialogs/options_dialog.h"
#include "dialogs/save_contents_dialog.h"

#include <QSignalSpy>

#include <functional>

namespace tarvelint::test {

namespace {

/// One of each dialog, on the bench of the column setup.
struct Dialogs {
    SetupBench bench{17};
    SaveContents contents;
    OptionsDialog options{bench.settings, [](Window&, const auto&) {}, [] { return std::vector<Window*>(); }};
    SaveContentsDialog save{contents, &bench.parent};
    FrmSplash splash{StringTable{}, QStringLiteral("1.2.3")};

    Dialogs()
    {
        options.setAttribute(Qt::WA_DeleteOnClose, false);
        bench.setup().boxes.turboCheck = true; // so that the parameter boxes take input
    }
    QDialog& show(const QString& which)
    {
        if (which == QStringLiteral("column setup")) bench.dialog->showFor(false);
        if (which == QStringLiteral("options")) options.showFor(bench.window);
        if (which == QStringLiteral("save contents")) save.show();
        if (which == QStringLiteral("splash")) splash.show();
        for (QDialog* dialog : {static_cast<QDialog*>(bench.dialog.get()), static_cast<QDialog*>(&options),
                                static_cast<QDialog*>(&save), static_cast<QDialog*>(&splash)})
            if (dialog->isVisible()) return *dialog;
        qFatal("no dialog");
    }
};

void addDialogs()
{
    QTest::addColumn<QString>("which");
    QTest::addColumn<QString>("button");
    const auto row = [](const char* which, const char* button) {
        QTest::newRow(which) << QString::fromLatin1(which) << QString::fromLatin1(button);
    };
    row("column setup", "OKButton");
    row("options", "cmdApplyCur");
    row("save contents", "OKButton");
    row("splash", "Command1");
}

/// A server without window manager gives the focus to nobody who does not ask.
bool isActive(QDialog& dialog)
{
    dialog.activateWindow();
    return QApplication::activeWindow() == &dialog;
}

QStringList checkedBoxes(const QDialog& dialog)
{
    QStringList names;
    for (const auto* box : dialog.findChildren<QCheckBox*>())
        if (box->isChecked()) names += box->objectName();
    return names;
}

/// What takes the focus besides the buttons.
QWidgetList focusable(const QDialog& dialog)
{
    QWidgetList found;
    for (QWidget* child : dialog.findChildren<QWidget*>())
        if (child->isVisible() && child->isEnabled() && child->focusPolicy() != Qt::NoFocus &&
            qobject_cast<QPushButton*>(child) == nullptr)
            found += child;
    return found;
}

} // namespace

class EnterKeyTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

    void theThemeTheTestWasStartedForIsInForce()
    {
        QCheckBox plain;
        QTest::keyClick(&plain, Qt::Key_Return);
        QCOMPARE(plain.isChecked(), qgetenv("QT_QPA_PLATFORMTHEME") == "gtk3");
    }

    void enterPressesTheDefaultButtonWhereverTheFocusIs_data() { addDialogs(); }
    void enterPressesTheDefaultButtonWhereverTheFocusIs()
    {
        QFETCH(QString, which);
        QFETCH(QString, button);
        Dialogs dialogs;
        const qsizetype count = focusable(dialogs.show(which)).size();
        QVERIFY(count > 0 || which == QStringLiteral("splash"));
        for (qsizetype i = 0; i < count; ++i) {
            for (const auto& [key, modifier] : {std::pair(Qt::Key_Return, Qt::KeyboardModifiers(Qt::NoModifier)),
                                                std::pair(Qt::Key_Enter, Qt::KeyboardModifiers(Qt::KeypadModifier))}) {
                QDialog& dialog = dialogs.show(which);
                const QStringList checked = checkedBoxes(dialog);
                const QSignalSpy pressed(dialog.findChild<QPushButton*>(button), &QPushButton::clicked);
                QWidget* focused = focusable(dialog).at(i);
                focused->setFocus();
                const QByteArray name = focused->objectName().toUtf8();
                QTest::keyClick(focused, key, modifier);
                QVERIFY2(pressed.count() == 1, name.constData());
                QCOMPARE(checkedBoxes(dialog), checked);
                dialogs.bench.setup().Form_Show(); // OK hides it, and the next round opens it again
                dialogs.bench.setup().boxes.turboCheck = true;
            }
        }
    }

    void enterOnTheDefaultButtonPressesItOnce_data() { addDialogs(); }
    void enterOnTheDefaultButtonPressesItOnce()
    {
        QFETCH(QString, which);
        QFETCH(QString, button);
        Dialogs dialogs;
        QDialog& dialog = dialogs.show(which);
        QTRY_VERIFY(isActive(dialog));
        auto* target = dialog.findChild<QPushButton*>(button);
        const QSignalSpy pressed(target, &QPushButton::clicked);
        target->setFocus();
        QTest::keyClick(target, Qt::Key_Return);
        QCOMPARE(pressed.count(), 1);
    }

    void enterOnCancelCancels_data()
    {
        QTest::addColumn<QString>("which");
        QTest::addColumn<QString>("button");
        QTest::addColumn<QString>("standard");
        const auto row = [](const char* which, const char* button, const char* standard) {
            QTest::newRow(which) << QString::fromLatin1(which) << QString::fromLatin1(button)
                                 << QString::fromLatin1(standard);
        };
        row("column setup", "CancelButton", "OKButton");
        row("options", "cmdCancel", "cmdApplyCur");
        row("save contents", "CancelButton", "OKButton");
    }
    void enterOnCancelCancels()
    {
        QFETCH(QString, which);
        QFETCH(QString, button);
        QFETCH(QString, standard);
        Dialogs dialogs;
        QDialog& dialog = dialogs.show(which);
        QTRY_VERIFY(isActive(dialog));
        auto* cancel = dialog.findChild<QPushButton*>(button);
        const QSignalSpy pressed(dialog.findChild<QPushButton*>(standard), &QPushButton::clicked);
        cancel->setFocus();
        QTest::keyClick(cancel, Qt::Key_Return);
        QVERIFY(!dialog.isVisible());
        QCOMPARE(pressed.count(), 0);
    }

    void spaceTogglesACheckBoxAndEnterWithCtrlDoesNothing()
    {
        Dialogs dialogs;
        QDialog& dialog = dialogs.show(QStringLiteral("save contents"));
        QTRY_VERIFY(isActive(dialog));
        auto* box = dialog.findChild<QCheckBox*>(QStringLiteral("inCheck"));
        const bool was = box->isChecked();
        QTest::keyClick(box, Qt::Key_Return, Qt::ControlModifier);
        QVERIFY(dialog.isVisible());
        QCOMPARE(box->isChecked(), was);
        QTest::keyClick(box, Qt::Key_Space);
        QCOMPARE(box->isChecked(), !was);
    }
};

} // namespace tarvelint::test

QTEST_MAIN(tarvelint::test::EnterKeyTest)
#include "enter_key_test.moc"
