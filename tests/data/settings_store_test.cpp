// SPDX-License-Identifier: MIT
#include "data/settings_store.h"

#include "data/numbers.h"
#include "data/setting_defaults.h"
#include "support/doubles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvelint::test {
namespace {

using testing::ElementsAre;

constexpr Geometry kFirstPlace{1000, 1000, 6500, 6500};

MemorySettings storeWith(const std::string& key, const std::string& text)
{
    MemorySettings store;
    store.values[key] = text;
    return store;
}

WindowSettings windowSettingsWith(const std::string& key, const std::string& text)
{
    MemorySettings store = storeWith(key, text);
    return readWindowSettings(store);
}

std::string stored(const MemorySettings& store, const std::string& key)
{
    const auto found = store.values.find(key);
    return found == store.values.end() ? "(absent)" : found->second;
}

/// Answers every question with nothing but the default it was asked with, and keeps those defaults.
class AskedDefaults : public SettingsStore {
public:
    std::vector<std::string> asked;
    std::string readSetting(std::string_view key, std::string_view defaultText) override
    {
        asked.push_back(std::string(key) + "=" + std::string(defaultText));
        return std::string(defaultText);
    }
    void writeSetting(std::string_view, std::string_view) override {}
};

TEST(SettingsStore, aFirstRunGivesTheDefaults)
{
    MemorySettings empty;
    const WindowSettings settings = readWindowSettings(empty);
    EXPECT_EQ(settings.zoomFactor, 1);
    EXPECT_EQ(settings.geometry, kFirstPlace);
    EXPECT_EQ(settings.date, 1);
    EXPECT_EQ(settings.time, 2);
    EXPECT_EQ(settings.equation, "119*((B/X)-1)^1.23");
    EXPECT_EQ(settings.blank, 99999);
    EXPECT_EQ(settings.ref, "0");
    EXPECT_TRUE(settings.high);
    EXPECT_FALSE(settings.zero);
}

TEST(SettingsStore, aNewWindowReadsItsKeysInOrderWithTheirDefaults)
{
    AskedDefaults store;
    static_cast<void>(readWindowSettings(store));
    EXPECT_THAT(store.asked, ElementsAre("ZoomFactor=1", "MainLeft=1000", "MainTop=1000", "MainWidth=6500",
                                         "MainHeight=6500", "Date=1", "Time=2", "Equation=119*((B/X)-1)^1.23",
                                         "Blank=99999", "Ref=0", "High=1", "Zero=0"));
}

TEST(SettingsStore, aNewWindowTakesWhatIsStored)
{
    MemorySettings store;
    store.values = {{"ZoomFactor", "4"},    {"MainLeft", "15"},    {"MainTop", "30.5"}, {"MainWidth", "9000"},
                    {"MainHeight", "7800"}, {"Date", "3"},         {"Time", "4"},       {"Equation", "max(B,X)*2"},
                    {"Blank", "-9999"},     {"Ref", "0.85 volts"}, {"High", "0"},       {"Zero", "1"}};
    const WindowSettings settings = readWindowSettings(store);
    EXPECT_EQ(settings.zoomFactor, 4);
    EXPECT_EQ(settings.geometry, (Geometry{15, 30.5F, 9000, 7800}));
    EXPECT_EQ(settings.date, 3);
    EXPECT_EQ(settings.time, 4);
    EXPECT_EQ(settings.equation, "max(B,X)*2");
    EXPECT_EQ(settings.blank, -9999);
    EXPECT_EQ(settings.ref, "0.85 volts");
    EXPECT_FALSE(settings.high);
    EXPECT_TRUE(settings.zero);
}

TEST(SettingsStore, anEmptyEquationOrReferenceIsKeptAsStored)
{
    EXPECT_EQ(windowSettingsWith("Equation", "").equation, "");
    EXPECT_EQ(windowSettingsWith("Ref", "").ref, "");
}

TEST(SettingsStore, theKeysAreCaseSensitive)
{
    EXPECT_EQ(windowSettingsWith("zoomfactor", "8").zoomFactor, 1);
    MemorySettings store = storeWith("LullTime", "8");
    EXPECT_EQ(readPreProcessSettings(store).lullTime, "3");
}

TEST(SettingsStore, aBlankThatIsNoNumberOrDoesNotFitBecomes99999)
{
    for (const char* text : {"abc", "", ".", "12abc", "1,000", "0x10", "2147483648", "-2147483649", "1E400", "nan"}) {
        MemorySettings store = storeWith("Blank", text);
        EXPECT_EQ(readBlankSetting(store), 99999) << text;
        EXPECT_EQ(readWindowSettings(store).blank, 99999) << text;
    }
}

TEST(SettingsStore, aBlankIsRoundedToTheNearestIntegerHalvesToEven)
{
    const std::vector<std::pair<const char*, std::int32_t>> cases = {{"2147483647", 2147483647},
                                                                     {"-2147483648", -2147483648},
                                                                     {" -1 ", -1},
                                                                     {"1.5E3", 1500},
                                                                     {"2.5", 2},
                                                                     {"3.5", 4},
                                                                     {"-2.5", -2},
                                                                     {"99998.51", 99999}};
    for (const auto& [text, blank] : cases) {
        MemorySettings store = storeWith("Blank", text);
        EXPECT_EQ(readBlankSetting(store), blank) << text;
    }
}

TEST(SettingsStore, theBlankSettingIsAskedForAloneWithItsDefault)
{
    AskedDefaults store;
    static_cast<void>(readBlankSetting(store));
    EXPECT_THAT(store.asked, ElementsAre("Blank=99999"));
}

TEST(SettingsStore, aColumnNumberThatDoesNotConvertOrOverflows16BitsTakesItsDefault)
{
    for (const char* text : {"day", "", "32768", "-32769", "1E9"}) {
        EXPECT_EQ(windowSettingsWith("Date", text).date, 1) << text;
        EXPECT_EQ(windowSettingsWith("Time", text).time, 2) << text;
    }
    EXPECT_EQ(windowSettingsWith("Date", "32767").date, 32767);
    EXPECT_EQ(windowSettingsWith("Time", "-32768").time, -32768);
}

TEST(SettingsStore, aGeometryThatDoesNotConvertOrOverflowsAFloatTakesItsDefault)
{
    for (const char* text : {"wide", "", "3.5E38", "-3.5E38"}) {
        EXPECT_EQ(windowSettingsWith("MainLeft", text).geometry, kFirstPlace) << text;
        EXPECT_EQ(windowSettingsWith("MainTop", text).geometry, kFirstPlace) << text;
        EXPECT_EQ(windowSettingsWith("MainWidth", text).geometry, kFirstPlace) << text;
        EXPECT_EQ(windowSettingsWith("MainHeight", text).geometry, kFirstPlace) << text;
    }
    EXPECT_EQ(windowSettingsWith("MainLeft", "-1234.5").geometry.left, -1234.5F);
}

TEST(SettingsStore, anUnknownZoomBecomesTheNextSmallerOneAtLeast1)
{
    const std::vector<std::pair<const char*, int>> cases = {
        {"-32768", 1}, {"-5", 1},  {"0", 1}, {"1", 1}, {"2", 2},  {"3", 2},     {"4", 4},     {"5", 4},
        {"7", 4},      {"7.5", 8}, {"8", 8}, {"9", 8}, {"16", 8}, {"32767", 8}, {"32768", 1}, {"big", 1}};
    for (const auto& [text, zoom] : cases) EXPECT_EQ(windowSettingsWith("ZoomFactor", text).zoomFactor, zoom) << text;
}

TEST(SettingsStore, highIsCheckedForEveryIntegerButZero)
{
    const std::vector<std::pair<const char*, bool>> cases = {
        {"0", false}, {"1", true},  {"-1", true},   {"2", true}, {"0.5", false}, // 0.5 rounds to the even 0
        {"", true},   {"no", true}, {"40000", true}};                            // no 16-bit integer: the default
    for (const auto& [text, high] : cases) EXPECT_EQ(windowSettingsWith("High", text).high, high) << text;
}

TEST(SettingsStore, zeroTakesTheWordsAndDigitsOfABooleanAndNothingElse)
{
    for (const char* text : {"1", "-1", "True", "true", "TRUE", "tRuE"})
        EXPECT_TRUE(windowSettingsWith("Zero", text).zero) << text;
    for (const char* text : {"0", "False", "false", "FALSE", "", "yes", "2", "truely", "99999999999"})
        EXPECT_FALSE(windowSettingsWith("Zero", text).zero) << text;
}

TEST(SettingsStore, theColumnSetUpHasItsOwnDefaults)
{
    AskedDefaults store;
    const PreProcessSettings settings = readPreProcessSettings(store);
    EXPECT_THAT(store.asked, ElementsAre("PAR=3", "VPD=11", "PARlimit=0.01", "VPDlimit=0.05", "lullTime=3"));
    EXPECT_EQ(settings.par, "3");
    EXPECT_EQ(settings.vpd, "11");
    EXPECT_EQ(settings.parLimit, "0.01");
    EXPECT_EQ(settings.vpdLimit, "0.05");
    EXPECT_EQ(settings.lullTime, "3");
}

TEST(SettingsStore, theOptionsDialogHasOtherDefaultsForTwoOfThem)
{
    AskedDefaults store;
    for (const Setting setting : {Setting::PAR, Setting::VPD, Setting::PARlimit, Setting::VPDlimit, Setting::lullTime})
        static_cast<void>(readSetting(store, setting));
    EXPECT_THAT(store.asked, ElementsAre("PAR=3", "VPD=11", "PARlimit=0.05", "VPDlimit=0.05", "lullTime=4"));
}

TEST(SettingsStore, aDefaultIsTheNumberThatItsTextSays)
{
    for (const DefaultNumber& number :
         {defaults::kDate, defaults::kTime, defaults::kBlank, defaults::kVpdColumn, defaults::kParColumn,
          defaults::kVpdLimit, defaults::kParLimit, defaults::kParLimitInColumnSetup, defaults::kLullTime,
          defaults::kLullTimeInColumnSetup, DefaultNumber("120.5"), DefaultNumber(".25")}) {
        EXPECT_EQ(number.value, leadingNumber(number.text)) << number.text;
        EXPECT_EQ(number.as<float>(), toFloat32(leadingNumber(number.text))) << number.text;
    }
    EXPECT_EQ(defaults::kParLimitInColumnSetup.as<float>(), 0.01F);
}

TEST(SettingsStore, aStoredTextGoesBeforeEitherDefault)
{
    MemorySettings store;
    writeSetting(store, Setting::lullTime, "12");
    EXPECT_THAT(store.log, ElementsAre("write lullTime=12"));
    EXPECT_EQ(readSetting(store, Setting::lullTime), "12");
    EXPECT_EQ(readPreProcessSettings(store).lullTime, "12");
}

TEST(SettingsStore, theColumnSetUpShowsStoredTextsUntouched)
{
    MemorySettings store;
    store.values = {{"PAR", "5"}, {"VPD", "six"}, {"PARlimit", ".02"}, {"VPDlimit", " 0.10"}, {"lullTime", ""}};
    const PreProcessSettings settings = readPreProcessSettings(store);
    EXPECT_EQ(settings.par, "5");
    EXPECT_EQ(settings.vpd, "six");
    EXPECT_EQ(settings.parLimit, ".02");
    EXPECT_EQ(settings.vpdLimit, " 0.10");
    EXPECT_EQ(settings.lullTime, "");
}

TEST(SettingsStore, aClosingWindowWritesInOrder)
{
    MemorySettings store;
    const Geometry geometry{15, -30.5F, 9000.1F, 7800};
    writeClosingSettings(store, {"12.5 x", false, 7, 8, 4}, &geometry);
    EXPECT_THAT(store.log, ElementsAre("write Ref=12.5 x", "write High=0", "write Date=7", "write Time=8",
                                       "write ZoomFactor=4", "write MainLeft=15", "write MainTop=-30.5",
                                       "write MainWidth=9000.1", "write MainHeight=7800"));
}

TEST(SettingsStore, aClosingMinimisedWindowLeavesTheStoredGeometry)
{
    MemorySettings store = storeWith("MainLeft", "77");
    writeClosingSettings(store, {"0", true, 1, 2, 1}, nullptr);
    EXPECT_THAT(store.log,
                ElementsAre("write Ref=0", "write High=1", "write Date=1", "write Time=2", "write ZoomFactor=1"));
    EXPECT_EQ(stored(store, "MainLeft"), "77");
}

TEST(SettingsStore, whatAClosingWindowWroteTheNextOneReads)
{
    MemorySettings store;
    const Geometry geometry{0.1F, 16777216, 1234.5678F, 32000};
    writeClosingSettings(store, {"0.9", false, -3, 32767, 8}, &geometry);
    const WindowSettings settings = readWindowSettings(store);
    EXPECT_EQ(settings.geometry, geometry);
    EXPECT_EQ(settings.ref, "0.9");
    EXPECT_FALSE(settings.high);
    EXPECT_EQ(settings.date, -3);
    EXPECT_EQ(settings.time, 32767);
    EXPECT_EQ(settings.zoomFactor, 8);
}

TEST(SettingsStore, theNewWindowCommandWritesAWindowThatFitsAsItIs)
{
    MemorySettings store;
    writeNewWindowGeometry(store, {1000, 2000, 6500, 7000}, 20000, 15000);
    EXPECT_THAT(store.log, ElementsAre("write MainLeft=1000", "write MainTop=2000", "write MainHeight=7000",
                                       "write MainWidth=6500"));
}

TEST(SettingsStore, theNewWindowCommandCutsASizeThatReachesTheScreensEdge)
{
    MemorySettings store;
    // Height: 2000 + 7000 + 300 = 9300 reaches 9300, so 9300 - 2000 - 300 = 7000 stays; width: 1000 + 6500 + 300
    // = 7800 passes 7700, so 7700 - 1000 - 300 = 6400.
    writeNewWindowGeometry(store, {1000, 2000, 6500, 7000}, 7700, 9300);
    EXPECT_EQ(stored(store, "MainHeight"), "7000");
    EXPECT_EQ(stored(store, "MainWidth"), "6400");
}

TEST(SettingsStore, theNewWindowCommandCutsTheHeightButNotAWidthThatFits)
{
    MemorySettings store;
    writeNewWindowGeometry(store, {1000, 2000, 6500, 7000}, 7801, 9000);
    EXPECT_EQ(stored(store, "MainHeight"), "6700"); // 9000 - 2000 - 300
    EXPECT_EQ(stored(store, "MainWidth"), "6500");
}

TEST(SettingsStore, theNewWindowCommandNeverWritesANegativeSize)
{
    MemorySettings store;
    writeNewWindowGeometry(store, {25000, 16000, 6500, 7000}, 20000, 15000);
    EXPECT_EQ(stored(store, "MainHeight"), "0");
    EXPECT_EQ(stored(store, "MainWidth"), "0");
    EXPECT_EQ(stored(store, "MainLeft"), "25000");
}

} // namespace
} // namespace tarvelint::test
