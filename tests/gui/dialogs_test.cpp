// SPDX-License-Identifier: MIT
#include "dialogs/file_dialogs.h"
#include "dialogs/save_contents_dialog.h"
#include "when_shown.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QFileDialog>
#include <QGroupBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <functional>
#include <memory>

namespace tarvelint::test {

namespace {

FileDialog openDialog(FileType selected = FileType::space, const char* title = "Open")
{
    return {title,
            {{"Space Delimited (*.asc)", "*.asc"},
             {"Tab delimited (*.txt)", "*.txt"},
             {"Comma Delimited (*.csv), (*.dat)", "*.csv *.dat"}},
            selected};
}

void writeFile(const QString& path)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("1,2\n");
}

QCheckBox& box(QWidget& dialog, const char* name)
{
    return *dialog.findChild<QCheckBox*>(QString::fromLatin1(name));
}

/// The way into a window that is not there.
const Entry atOnce = [](const std::function<void()>& work) { work(); };

constexpr const char* kSaveBoxes[] = {"inCheck", "baseCheck", "outCheck", "headerCheck", "blankCheck"};

} // namespace

class DialogsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

    // Save contents

    void theSaveDialogReadsAsGiven()
    {
        SaveChoices choices;
        SaveContents contents{choices};
        SaveContentsDialog dialog(contents, atOnce);
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Save:"));
        QCOMPARE(dialog.findChild<QGroupBox*>()->title(), QStringLiteral("File contents"));
        QCOMPARE(box(dialog, "inCheck").text(), QStringLiteral("unconverted data"));
        QCOMPARE(box(dialog, "baseCheck").text(), QStringLiteral("baseline data"));
        QCOMPARE(box(dialog, "outCheck").text(), QStringLiteral("converted data"));
        QCOMPARE(box(dialog, "headerCheck").text(), QStringLiteral("Include a header line (recommended)"));
        QCOMPARE(
            box(dialog, "headerCheck").toolTip(),
            QStringLiteral("The first line will describe the contents of the file and enable Tarvelint to open the "
                           "file correctly next time"));
        QCOMPARE(box(dialog, "blankCheck").text(), QStringLiteral("Replace missing values with dots"));
        for (const char* name : kSaveBoxes) QVERIFY(box(dialog, name).isChecked());
    }

    void theResultIsHowTheSaveDialogWasLeft_data()
    {
        QTest::addColumn<QString>("way");
        QTest::addColumn<bool>("confirmed");
        const auto row = [](const char* way, bool confirmed) {
            QTest::newRow(way) << QString::fromLatin1(way) << confirmed;
        };
        row("OKButton", true);
        row("CancelButton", false);
        row("Esc", false);
        row("frame", false);
        row("hidden by its window", false);
    }
    void theResultIsHowTheSaveDialogWasLeft()
    {
        QFETCH(const QString, way);
        QWidget parent;
        parent.show();
        SaveChoices choices;
        SaveContents contents{choices};
        contents.confirmed = true; // of an earlier save
        int answers = 0;
        SaveContentsDialog dialog(
            contents, [&](const auto& work) { ++answers, work(); }, &parent);
        whenShown<QDialog>(parent, "FileTypeFrm", [&](QDialog& shownDialog) {
            QVERIFY(!contents.confirmed);
            QCOMPARE(shownDialog.windowModality(), Qt::WindowModal);
            if (way.endsWith(QStringLiteral("Button"))) click(shownDialog, way.toLatin1().constData());
            if (way == QStringLiteral("Esc")) QTest::keyClick(&shownDialog, Qt::Key_Escape);
            if (way == QStringLiteral("frame")) shownDialog.close();
            if (way.startsWith(QStringLiteral("hidden"))) shownDialog.hide();
        });
        dialog.ask();
        QVERIFY(!dialog.isVisible());
        QTEST(contents.confirmed, "confirmed");
        QCOMPARE(answers, way.startsWith(QStringLiteral("hidden")) ? 0 : 1);
    }

    void eachSaveBoxKeepsItsStateBetweenSaves_data()
    {
        QTest::addColumn<QString>("name");
        for (const char* name : kSaveBoxes) QTest::newRow(name) << QString::fromLatin1(name);
    }
    void eachSaveBoxKeepsItsStateBetweenSaves()
    {
        QFETCH(const QString, name);
        const QByteArray cleared = name.toLatin1();
        QWidget parent;
        SaveChoices choices;
        SaveContents contents{choices};
        SaveContentsDialog dialog(contents, atOnce, &parent);
        whenShown<QDialog>(parent, "FileTypeFrm", [&](QDialog& shownDialog) {
            QTest::keyClick(&box(shownDialog, cleared), Qt::Key_Space);
            click(shownDialog, "OKButton");
        });
        dialog.ask();
        whenShown<QDialog>(parent, "FileTypeFrm", [&](QDialog& shownDialog) {
            for (const char* other : kSaveBoxes) QCOMPARE(box(shownDialog, other).isChecked(), cleared != other);
            click(shownDialog, "CancelButton");
        });
        dialog.ask();
        const bool values[] = {choices.unconverted, choices.baseline, choices.converted, choices.header, choices.dots};
        for (std::size_t i = 0; i < 5; ++i) QCOMPARE(values[i], cleared != kSaveBoxes[i]);
    }

    void theSaveQuestionEndsWithItsWindow()
    {
        auto parent = std::make_unique<QWidget>();
        SaveChoices choices;
        SaveContents contents{choices};
        auto* dialog = new SaveContentsDialog(contents, atOnce, parent.get());
        QTimer::singleShot(20, this, [&] { parent.reset(); });
        dialog->ask();
        QVERIFY(parent == nullptr);
        QVERIFY(!contents.confirmed);
    }

    // File dialogs

    void theFilterTextsAreShownAsGiven()
    {
        QWidget parent;
        QStringList texts;
        whenShown<QFileDialog>(parent, "fileDialog", [&](QFileDialog& dialog) {
            const auto* combo = dialog.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
            for (int i = 0; i < combo->count(); ++i) texts += combo->itemText(i).trimmed();
            QCOMPARE(combo->currentIndex(), 1);
            QCOMPARE(dialog.windowTitle(), QStringLiteral("Open"));
            dialog.reject();
        });
        QVERIFY(!askForFile(&parent, openDialog(FileType::tab), false));
        const QStringList given{QStringLiteral("Space Delimited (*.asc)"), QStringLiteral("Tab delimited (*.txt)"),
                                QStringLiteral("Comma Delimited (*.csv), (*.dat)")};
        QCOMPARE(texts, given);
    }

    void theTypeFollowsThePickedFilterNotTheName()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("data.csv"));
        writeFile(path);
        QWidget parent;
        whenShown<QFileDialog>(parent, "fileDialog", [&](QFileDialog& dialog) { typeName(dialog, path); });
        const auto chosen = askForFile(&parent, openDialog(FileType::tab), false);
        QVERIFY(chosen);
        QCOMPARE(chosen->path, path.toStdString());
        QCOMPARE(chosen->type, FileType::tab);
    }

    void pickingAnotherFilterChangesTheType()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("data.csv"));
        writeFile(path);
        QWidget parent;
        whenShown<QFileDialog>(parent, "fileDialog", [&](QFileDialog& dialog) {
            dialog.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"))->setCurrentIndex(2);
            typeName(dialog, path);
        });
        const auto chosen = askForFile(&parent, openDialog(), false);
        QVERIFY(chosen);
        QCOMPARE(chosen->type, FileType::comma);
    }

    void theNextDialogStartsInTheFolderLastUsed()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("data.asc"));
        writeFile(path);
        QWidget parent;
        whenShown<QFileDialog>(parent, "fileDialog", [&](QFileDialog& dialog) { typeName(dialog, path); });
        QVERIFY(askForFile(&parent, openDialog(), false));
        QString start;
        whenShown<QFileDialog>(parent, "fileDialog", [&](QFileDialog& dialog) {
            start = dialog.directory().absolutePath();
            QCOMPARE(dialog.windowTitle(), QStringLiteral("Save As:"));
            dialog.reject();
        });
        QVERIFY(!askForFile(&parent, openDialog(FileType::space, "Save As:"), true));
        QCOMPARE(start, folder.path());
    }

    void openingRefusesAFileThatDoesNotExist()
    {
        const QTemporaryDir folder;
        QWidget parent;
        bool refused = false;
        whenShown<QFileDialog>(parent, "fileDialog", [&](QFileDialog& dialog) {
            QTimer::singleShot(50, &dialog, [&] {
                auto* message = dialog.findChild<QMessageBox*>();
                refused = message != nullptr && dialog.isVisible();
                if (message != nullptr) message->accept();
                QTimer::singleShot(0, &dialog, &QDialog::reject);
            });
            typeName(dialog, folder.filePath(QStringLiteral("none.asc")));
        });
        QVERIFY(!askForFile(&parent, openDialog(), false));
        QVERIFY(refused);
    }

    void savingAsksBeforeAnExistingFileIsReplaced()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("data.asc"));
        writeFile(path);
        QWidget parent;
        bool asked = false;
        whenShown<QFileDialog>(parent, "fileDialog", [&](QFileDialog& dialog) {
            QTimer::singleShot(50, &dialog, [&] {
                auto* question = dialog.findChild<QMessageBox*>();
                asked = question != nullptr;
                if (asked) question->button(QMessageBox::Yes)->click();
            });
            typeName(dialog, path);
        });
        const auto chosen = askForFile(&parent, openDialog(), true);
        QVERIFY(asked && chosen);
        QCOMPARE(chosen->path, path.toStdString());
    }

    void theFileDialogEndsWithItsWindow()
    {
        auto parent = std::make_unique<QWidget>();
        QTimer::singleShot(50, this, [&] { parent.reset(); });
        QVERIFY(!askForFile(parent.get(), openDialog(), false));
        QVERIFY(parent == nullptr);
    }
};

} // namespace tarvelint::test

int main(int argc, char** argv)
{
    // The toolkit's file dialog remembers its history; that of the person who runs the tests stays as it is.
    const QTemporaryDir home;
    qputenv("XDG_CONFIG_HOME", home.path().toLocal8Bit());
    const QApplication application(argc, argv);
    tarvelint::test::DialogsTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "dialogs_test.moc"
