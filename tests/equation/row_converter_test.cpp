// SPDX-License-Identifier: MIT
#include "equation/row_converter.h"

#include "support/allocations.h"
#include "support/test_window.h"

#include <gtest/gtest.h>

#include <numeric>

namespace tarvelint::test {
namespace {

/// A column of the readings 1, 2, 3, ... on a baseline of 10, "Baseline is high".
class Rows : public TestWindow {
public:
    explicit Rows(const std::string& equation, std::int32_t count = 4)
    {
        std::vector<double> readings(static_cast<std::size_t>(count));
        std::iota(readings.begin(), readings.end(), 1);
        setReadings({readings});
        for (std::int32_t row = 0; row < count; ++row) record.values(kBaseline, 0, row) = 10;
        setChecked(Control::highBox, true);
        setText(Control::FormulaBox, equation);
    }
    [[nodiscard]] double at(std::int32_t row) const { return record.values(kConverted, 0, row); }
};

TEST(RowConverter, countsTheRecordAsChangedFromItsFirstRowOn)
{
    Rows rows("X");
    RowConverter converter(rows);
    EXPECT_TRUE(rows.record.saveCheck) << "a command may come to no row";
    EXPECT_TRUE(converter.convertRow(0, 1));
    EXPECT_FALSE(rows.record.saveCheck);
}

TEST(RowConverter, writesTheValueOfItsRow)
{
    Rows rows("X+B");
    RowConverter converter(rows);
    EXPECT_TRUE(converter.convertRow(0, 2));
    EXPECT_EQ(rows.at(2), 13);
}

TEST(RowConverter, takesTheEquationTheMissingNumberAndTheSideAnewForEveryRow)
{
    Rows rows("X+B");
    RowConverter converter(rows);
    EXPECT_TRUE(converter.convertRow(0, 0));
    rows.setText(Control::FormulaBox, "X-B");
    EXPECT_TRUE(converter.convertRow(0, 1));
    rows.setChecked(Control::highBox, false);
    EXPECT_TRUE(converter.convertRow(0, 2));
    rows.setChecked(Control::highBox, true);
    rows.record.blank = 4;
    EXPECT_TRUE(converter.convertRow(0, 3));
    EXPECT_EQ(rows.column(kConverted, 0), (std::vector<double>{11, -8, 0, 4}));
}

TEST(RowConverter, anEmptyEquationIsZero)
{
    Rows rows("");
    RowConverter converter(rows);
    EXPECT_TRUE(converter.convertRow(0, 0));
    EXPECT_EQ(rows.at(0), 0);
}

TEST(RowConverter, readsOneTextOnceHoweverManyRowsThereAre)
{
    Rows rows("119*((B/X)-1)^1.23", 1000);
    RowConverter converter(rows);
    EXPECT_TRUE(converter.convertRow(0, 0));
    const std::size_t before = allocationsSoFar();
    for (std::int32_t row = 1; row < 1000; ++row) static_cast<void>(converter.convertRow(0, row));
    EXPECT_EQ(allocationsSoFar(), before);
    EXPECT_GT(rows.at(1), 0);
}

TEST(RowConverter, asksWhetherToGoOnAfterAFault)
{
    Rows rows("7+X/(B-B)");
    RowConverter converter(rows);
    rows.fakeUi.answers = {Answer::ok};
    EXPECT_TRUE(converter.convertRow(0, 3));
    EXPECT_EQ(rows.at(3), 7);
    ASSERT_EQ(rows.fakeUi.messages.size(), 1U);
    EXPECT_EQ(rows.fakeUi.messages[0].text,
              "Division by Zero! \r\nThis was caused by (B-B)\r\nLine is 3\r\nOK to continue, Cancel to stop");
    EXPECT_EQ(rows.fakeUi.messages[0].title, "Tarvelint");
    EXPECT_EQ(rows.fakeUi.messages[0].buttons, Buttons::okCancel);
    EXPECT_EQ(rows.fakeUi.messages[0].icon, Icon::none);
}

TEST(RowConverter, namesBothOperandsOfAPowerThatFails)
{
    Rows rows("(0-X)^0.5");
    RowConverter converter(rows);
    rows.fakeUi.answers = {Answer::ok};
    EXPECT_TRUE(converter.convertRow(0, 1));
    EXPECT_EQ(rows.fakeUi.messages.at(0).text,
              "Invalid power operation! \r\n-2^0.5\r\nLine is 1\r\nOK to continue, Cancel to stop");
}

TEST(RowConverter, afterCancelTheRowIsStoredAndTheLoopEnds)
{
    Rows rows("4+1/0");
    RowConverter converter(rows);
    rows.fakeUi.answers = {Answer::cancel};
    EXPECT_FALSE(converter.convertRow(0, 0));
    EXPECT_EQ(rows.at(0), 4);
}

TEST(RowConverter, anOkInTheSameRowDoesNotTakeACancelBack)
{
    Rows rows("(1/0)/5"); // the 5 is not evaluated any more, and the division by it asks as well
    RowConverter converter(rows);
    rows.fakeUi.answers = {Answer::cancel, Answer::ok};
    EXPECT_FALSE(converter.convertRow(0, 0));
    EXPECT_EQ(rows.fakeUi.messages.size(), 2U);
}

TEST(RowConverter, afterCancelEveryValueIsZeroAndNothingIsAsked)
{
    Rows rows("X");
    RowConverter converter(rows);
    rows.fakeUi.answers = {Answer::cancel};
    EXPECT_EQ(converter.convert("1/0", 2, 3), 0);
    EXPECT_EQ(converter.convert("X", 2, 3), 0);
    EXPECT_EQ(converter.convert("1/0", 2, 3), 0);
    EXPECT_EQ(converter.convert("X", 99999, 99999), 0) << "the stop flag comes before the missing reading";
    EXPECT_EQ(rows.fakeUi.messages.size(), 1U);
    EXPECT_EQ(RowConverter(rows).convert("X", 2, 3), 2) << "the next command begins anew";
}

TEST(RowConverter, anEquationThatChangesWhileAQuestionIsShownCountsFromTheNextRow)
{
    Rows rows("(X/(B-B))+5");
    rows.fakeUi.onMessage = [&] { rows.setText(Control::FormulaBox, "X+100"); };
    rows.fakeUi.answers = {Answer::ok};
    RowConverter converter(rows);
    EXPECT_TRUE(converter.convertRow(0, 0));
    EXPECT_TRUE(converter.convertRow(0, 1));
    EXPECT_EQ(rows.at(0), 5);
    EXPECT_EQ(rows.at(1), 102);
}

} // namespace
} // namespace tarvelint::test
