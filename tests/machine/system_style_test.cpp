// SPDX-License-Identifier: MIT
#include "machine/clock.h"
#include "machine/system_style.h"

#include <QDate>
#include <QLocale>

#include <gtest/gtest.h>

namespace tarvelint::test {
namespace {

TEST(LocaleStyle, theDateIsTodaysInTheSystemsLongForm)
{
    const LocaleStyle style;
    const QDate before = QDate::currentDate();
    const std::string date = style.longDate();
    const QDate after = QDate::currentDate(); // another day when midnight has just passed
    const auto longForm = [](const QDate& day) {
        return QLocale::system().toString(day, QLocale::LongFormat).toStdString();
    };
    EXPECT_TRUE(date == longForm(before) || date == longForm(after)) << date;
    EXPECT_FALSE(date.empty());
}

TEST(LocaleStyle, groupsAsTheSystemDoesAndNotAtAllInTheCLocale)
{
    const QLocale system = QLocale::system();
    const bool groups = system.language() != QLocale::C && !(system.numberOptions() & QLocale::OmitGroupSeparator);
    EXPECT_EQ(LocaleStyle().grouping(), groups ? system.groupSeparator().toStdString() : "");
}

TEST(SteadyClock, neverGoesBack)
{
    const SteadyClock clock;
    const auto first = clock.now();
    EXPECT_GE(clock.now(), first);
}

TEST(SteadyClock, goesOnByItself)
{
    const SteadyClock clock;
    const auto first = clock.now();
    auto next = first;
    while (next == first) next = clock.now(); // a clock that stands still never gets past this
    EXPECT_GT(next, first);
}

} // namespace
} // namespace tarvelint::test
