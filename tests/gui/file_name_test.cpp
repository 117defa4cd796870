// SPDX-License-Identifier: MIT
#include "dialogs/file_dialogs.h"
#include "gui/desk.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QRegularExpression>

#include <filesystem>
#include <fstream>
#include <set>
#include <string>

namespace tarvelint::test {

namespace {

namespace fs = std::filesystem;

const QChar kReplacement = QChar::ReplacementCharacter;

/// Puts the toolkit's own file dialog back in, and plays the user who types a name once it is on the screen. `start`
/// takes the folder that the dialog came up with.
void typeNameInFileDialog(Desk& desk, const QString& name, QString* start = nullptr)
{
    desk.toolkit().askForFile = askForFile;
    whenShown<QFileDialog>(*desk.form, "fileDialog", [name, start](QFileDialog& dialog) {
        if (start) *start = dialog.directory().absolutePath();
        typeName(dialog, name);
    });
}

void acceptContents(Desk& desk)
{
    QTimer::singleShot(0, desk.form, [&desk] {
        desk.find("FileTypeFrm")->findChild<QPushButton*>(QStringLiteral("OKButton"))->click();
    });
}

std::set<std::string> namesIn(const fs::path& folder)
{
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder)) names.insert(entry.path().filename().native());
    return names;
}

} // namespace

class FileNameTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

    void namesOfAllLanguagesAreCarried()
    {
        for (const char* name : {"flux.csv", "M\xC3\xA4rz.csv", "\xE6\xB8\xAC\xE5\xAE\x9A.csv", "Ma\xCC\x88rz.csv",
                                 "\xF0\x9F\x8C\xB2.csv", " a\tb\n.csv", "?.csv"})
            QVERIFY2(isCarriedUnchanged(QString::fromUtf8(name)), name);
    }

    void bytesThatAreNoTextAreNot()
    {
        for (const char* name : {"M\xE4rz.csv", "\xFF", "folder\xC3/a.csv", "\xED\xA0\x80.csv"})
            QVERIFY(!isCarriedUnchanged(QFile::decodeName(name)));
        QVERIFY(!isCarriedUnchanged(QStringLiteral("a") + QChar(0xD83C) + QStringLiteral(".csv"))); // half a character
        QVERIFY(!isCarriedUnchanged(QStringLiteral("a.csv") + QChar(QChar::Null) + QStringLiteral(".txt")));
    }

    void aRecordWhoseNameCannotBeToldIsNotOpened()
    {
        // On the disk is the name that the toolkit would make of another one.
        const QTemporaryDir folder;
        const QString name = folder.filePath(QStringLiteral("M") + kReplacement + QStringLiteral("rz.csv"));
        std::ofstream(name.toStdString()) << "1 2\n";
        Desk desk;
        typeNameInFileDialog(desk, name);
        desk.answer(QMessageBox::Ok);
        desk.entry("mnuFileOpen")->trigger();
        QCOMPARE(desk.title, QStringLiteral("Tarvelint"));
        QVERIFY2(desk.said.contains(QStringLiteral("not valid UTF-8")), qPrintable(desk.said));
        QVERIFY2(desk.said.contains(name), qPrintable(desk.said));
        QCOMPARE(desk.core().record.lines, 0);
        QVERIFY(desk.form->findChildren<QFileDialog*>().isEmpty()); // it has gone all the same
    }

    void aRecordIsNotSavedUnderAnotherNameThanWasMeant()
    {
        // The name in Latin-1 that the toolkit shows with a replacement character, and would write with one.
        const std::string latin1 = "M\xE4rz.csv";
        const QTemporaryDir folder;
        const fs::path place = folder.path().toStdString();
        std::ofstream(place / latin1) << "meant";
        Desk desk;
        desk.openSample();
        acceptContents(desk);
        typeNameInFileDialog(desk, folder.filePath(QFile::decodeName(latin1.c_str())));
        desk.answer(QMessageBox::Ok);
        desk.entry("mnuFileSave")->trigger();
        const std::set<std::string> names = namesIn(place);
        fs::remove(place / latin1); // the toolkit could not remove it with the folder
        QVERIFY2(desk.said.contains(QStringLiteral("not valid UTF-8")), qPrintable(desk.said));
        QCOMPARE(names, std::set<std::string>{latin1});
        QVERIFY(!desk.core().record.saveCheck);
        QVERIFY(desk.core().file.savePath.empty());
    }

    void aRefusedNameIsNotWhereTheNextDialogStarts()
    {
        const QTemporaryDir folder;
        const QString place = folder.filePath(QStringLiteral("M") + kReplacement + QStringLiteral("rz"));
        QVERIFY(QDir().mkdir(place));
        Desk desk;
        desk.openSample();
        acceptContents(desk);
        typeNameInFileDialog(desk, place + QStringLiteral("/flux.csv"));
        desk.answer(QMessageBox::Ok);
        desk.entry("mnuFileSave")->trigger();
        QVERIFY(QDir(place).isEmpty());

        const QString good = folder.filePath(QStringLiteral("M\u00E4rz.csv"));
        QString start;
        acceptContents(desk);
        typeNameInFileDialog(desk, good, &start);
        desk.entry("mnuFileSave")->trigger();
        QVERIFY(!start.isEmpty() && start != place);
        QVERIFY(desk.core().record.saveCheck);
        QCOMPARE(desk.core().file.savePath, good.toStdString());
        QVERIFY(QFile::exists(good));
    }
};

} // namespace tarvelint::test

QTEST_MAIN(tarvelint::test::FileNameTest)
#include "file_name_test.moc"
