// SPDX-License-Identifier: MIT
#include "pointer_fixture.h"

#include <stdexcept>

namespace tarvelint::test {
namespace {

struct Edited : Pointed {
    void type(const std::string& text) { fakeUi.typedValues.emplace_back(text); }
    void cancel() { fakeUi.typedValues.emplace_back(std::nullopt); }
    [[nodiscard]] double value(std::int32_t row, int layer = kUnconverted) const
    {
        return record.values(layer, 2, row);
    }
};

TEST(ValueEdit, offersTheOldValueWithFourDecimals)
{
    Edited window;
    window.reading(33, 1234.5);
    window.cancel();
    window.rightPress(33);
    EXPECT_THAT(window.fakeUi.valuesAsked, ElementsAre("1,234.5000"));
}

TEST(ValueEdit, selectsAndCopiesTheRowAndShowsItBeforeItAsks)
{
    Edited window;
    window.fakeUi.onValueDialog = [&] {
        EXPECT_EQ(window.selected(), Rows(33, 33));
        EXPECT_THAT(window.calls, ElementsAre("undoSave 2", "redraw 0 True", "redraw 1 True", "updateCues"));
    };
    window.cancel();
    window.rightPress(33);
    EXPECT_EQ(window.fakeUi.valuesAsked.size(), 1U);
    EXPECT_EQ(window.selected(), Rows(33, 33)); // Cancel leaves it
}

TEST(ValueEdit, takesTheLeadingNumberOfWhatIsTyped)
{
    for (const auto& [typed, expected] : {std::pair{"12abc", 12.0}, {"abc", 0.0}, {"-3.5", -3.5}, {" 7", 7.0}}) {
        Edited window;
        window.type(typed);
        window.rightPress(33);
        EXPECT_EQ(window.value(33), expected) << typed;
        EXPECT_FALSE(window.record.saveCheck);
    }
}

TEST(ValueEdit, writesTheLayerOnView)
{
    Edited window;
    window.view.curLayer = kConverted;
    window.type("5");
    window.rightPress(33);
    EXPECT_EQ(window.value(33, kConverted), 5);
    EXPECT_EQ(window.value(33), 33);
}

TEST(ValueEdit, untouchedKeepsTheValueToTheLastDigit)
{
    Edited window;
    window.reading(33, 1234.56789);
    window.type("1,234.5679");
    window.rightPress(33);
    EXPECT_EQ(window.value(33), 1234.56789);
    EXPECT_TRUE(window.record.saveCheck);
}

TEST(ValueEdit, afterCancelChangesNothing)
{
    Edited window;
    window.cancel();
    window.rightPress(33);
    EXPECT_EQ(window.value(33), 33);
    EXPECT_TRUE(window.record.saveCheck);
    EXPECT_EQ(window.calls.size(), 4U); // what stood before the dialog
}

TEST(ValueEdit, pastTheLastRowBeepsAndSelectsIt)
{
    Edited window;
    window.rightPress(100);
    EXPECT_EQ(window.fakeUi.beeps, 1);
    EXPECT_THAT(window.fakeUi.valuesAsked, IsEmpty());
    EXPECT_EQ(window.selected(), Rows(99, 99));
    EXPECT_EQ(window.calls.front(), "undoSave 2");
}

TEST(ValueEdit, theCopyForUndoIsTakenWithTheRowPastTheEnd)
{
    struct Undone : Edited {
        Rows atCopy{-1, -1};
        void undoSave(std::int32_t) override { atCopy = selected(); }
    } window;
    window.rightPress(107);
    EXPECT_EQ(window.atCopy, Rows(107, 107)); // no cells
}

TEST(ValueEdit, beforeTheFirstRowTakesThat)
{
    Edited window;
    window.view.HScroll1.Value = 0;
    window.cancel();
    window.pointing.Picture1_MouseDown({PointerButton::right, false, -9});
    EXPECT_EQ(window.selected(), Rows(0, 0));
}

TEST(ValueEdit, whileTheDialogIsOpenBeepsAndRaisesItBeforeAnythingElse)
{
    Edited window;
    window.fakeUi.valueDialogOpen = true;
    window.rightPress(33);
    EXPECT_EQ(window.fakeUi.beeps, 1);
    EXPECT_THAT(window.fakeUi.log, ElementsAre("raise value dialog"));
    EXPECT_THAT(window.calls, IsEmpty());
    EXPECT_EQ(window.selected(), Rows(0, 0));
}

TEST(ValueEdit, setsAPointAgainOrRecomputesItsSegmentUnderTurbo)
{
    Edited window;
    window.turbo({33});
    window.type("5");
    window.rightPress(33);
    EXPECT_EQ(window.calls[4], "setPoint 33 -1 False");
    window.calls.clear();
    window.type("6");
    window.rightPress(40);
    EXPECT_EQ(window.calls[4], "setPoint 40 -1 True");
}

TEST(ValueEdit, leavesPointsAloneInTheConvertedViewAndOnParameters)
{
    Edited converted;
    converted.turbo({33});
    converted.view.curLayer = kConverted;
    converted.type("5");
    converted.rightPress(33);
    EXPECT_THAT(converted.calls, testing::Not(testing::Contains("setPoint 33 -1 False")));
    Edited parameter;
    parameter.turbo({33});
    parameter.view.curSensor = -1;
    parameter.type("5");
    parameter.rightPress(33);
    EXPECT_THAT(parameter.calls, testing::Not(testing::Contains("setPoint 33 -1 True")));
}

TEST(ValueEdit, aNumberTooLargeIsStoredAsMissing)
{
    Edited window;
    window.type("1e999");
    window.rightPress(33);
    EXPECT_EQ(window.value(33), kMissing);
}

TEST(ValueEdit, ofAWindowThatClosesMeanwhileChangesNothing)
{
    Edited window;
    window.fakeUi.onValueDialog = [] { throw std::runtime_error("closing"); };
    EXPECT_THROW(window.rightPress(33), std::runtime_error);
    EXPECT_EQ(window.value(33), 33);
}

} // namespace
} // namespace tarvelint::test
