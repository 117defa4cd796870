// SPDX-License-Identifier: MIT
#include "machine/settings.h"

#include "machine/nobody.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <fstream>
#include <iostream>
#include <iterator>

namespace tarvelint::test {
namespace {

using testing::HasSubstr;

/// Each test has a settings folder of its own.
class UserSettingsTest : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_folder.isValid());
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_folder.path());
    }
    [[nodiscard]] std::string file() const { return m_folder.path().toStdString() + "/Tarvelint/Tarvelint.ini"; }
    void put(const std::string& text) const
    {
        QDir().mkpath(QFileInfo(QString::fromStdString(file())).path());
        std::ofstream(file(), std::ios::binary) << text;
    }
    [[nodiscard]] std::string stored() const
    {
        std::ifstream stream(file(), std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
    /// The text as another run of the program reads it: from a copy of the file, which no cache knows.
    [[nodiscard]] std::string laterRead(const std::string& key) const
    {
        const QTemporaryDir other;
        QDir().mkpath(other.filePath(QStringLiteral("Tarvelint")));
        QFile::copy(QString::fromStdString(file()), other.filePath(QStringLiteral("Tarvelint/Tarvelint.ini")));
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, other.path());
        std::string text = UserSettings().readSetting(key, "(default)");
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_folder.path());
        return text;
    }
    static void write(const std::string& key, const std::string& text) { UserSettings().writeSetting(key, text); }

    QTemporaryDir m_folder;
};

TEST_F(UserSettingsTest, anAbsentKeyGivesItsDefault)
{
    EXPECT_EQ(laterRead("Equation"), "(default)");
    EXPECT_EQ(UserSettings().trouble(), "");
}

TEST_F(UserSettingsTest, whatIsWrittenIsReadByALaterRunCharacterByCharacter)
{
    for (const std::string text :
         {"119*((B/X)-1)^1.23", "", " 0 ", "a\"b\\c;d=e", "#1", "@x", "%41", "M\xC3\xA4rz", "1\n2", "true"}) {
        write("Equation", text);
        EXPECT_EQ(laterRead("Equation"), text);
    }
}

TEST_F(UserSettingsTest, anEquationWithCommasStaysOneText)
{
    write("Equation", "1,5*B, X");
    EXPECT_EQ(laterRead("Equation"), "1,5*B, X");
}

TEST_F(UserSettingsTest, anUnquotedCommaSomebodyTypedIntoTheFileIsPartOfTheText)
{
    put("[Settings]\nEquation=1,5*B\nRef=7\n");
    EXPECT_EQ(laterRead("Equation"), "1,5*B");
    EXPECT_EQ(laterRead("Ref"), "7");
}

TEST_F(UserSettingsTest, standInOneSectionOfTheApplicationsOwnFile)
{
    write("Blank", "99999");
    EXPECT_THAT(stored(), HasSubstr("[Settings]\nBlank=99999\n"));
}

TEST_F(UserSettingsTest, keysDifferByCase)
{
    write("Time", "2");
    EXPECT_EQ(laterRead("time"), "(default)");
}

TEST_F(UserSettingsTest, aFileThatIsNoSettingsFileIsTroubleThatNamesIt)
{
    put("this is not\na settings file\n");
    UserSettings settings;
    EXPECT_EQ(settings.readSetting("Blank", "99999"), "99999");
    EXPECT_THAT(settings.trouble(), HasSubstr(file()));
    EXPECT_THAT(settings.trouble(), HasSubstr("cannot be read"));
}

TEST_F(UserSettingsTest, aFolderInPlaceOfTheFileIsTroubleToo)
{
    QDir().mkpath(QString::fromStdString(file()));
    UserSettings settings;
    EXPECT_EQ(settings.readSetting("Blank", "99999"), "99999");
    EXPECT_THAT(settings.trouble(), HasSubstr(file()));
}

/// A whole run as somebody without privileges; what troubles it goes to the error stream.
[[noreturn]] void useAsNobody()
{
    becomeNobody();
    {
        UserSettings settings;
        if (settings.readSetting("Blank", "99999") != "99999") ::_exit(2);
        settings.writeSetting("Blank", "7");
        std::cerr << settings.trouble();
    }
    ::_exit(0);
}

TEST_F(UserSettingsTest, aFileThatMayNotBeReadIsTroubleThatNamesItAndStaysUnharmed)
{
    put("[Settings]\nBlank=-1\n");
    const std::string home = m_folder.path().toStdString();
    ASSERT_EQ(::chmod(home.c_str(), 0777), 0);
    ASSERT_EQ(::chmod((home + "/Tarvelint").c_str(), 0777), 0); // the folder would let the file be replaced
    ASSERT_EQ(::chmod(file().c_str(), 0), 0);
    EXPECT_EXIT(useAsNobody(), testing::ExitedWithCode(0), HasSubstr(file() + " cannot be read"));
    struct stat status = {};
    ASSERT_EQ(::stat(file().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0U);
    ASSERT_EQ(::chmod(file().c_str(), 0600), 0);
    EXPECT_EQ(stored(), "[Settings]\nBlank=-1\n");
}

} // namespace
} // namespace tarvelint::test
