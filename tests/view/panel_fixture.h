// SPDX-License-Identifier: MIT
#pragma once

#include "support/test_window.h"
#include "view/cues.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace tarvelint::test {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Texts = std::vector<std::string>;

/// A day, a time and two sensor columns of three rows; column lists filled, nothing chosen.
struct Panel : TestWindow {
    Cues cues{*this};

    Panel()
    {
        setReadings({{123, 124, 125}, {0.5, 12.25, 1e15}, {1.5, -0.00004, 1234.5}, {7, 8, 9}});
        data.labels = {"day", "time", "oak", "pine"};
        setListEntries(data.labels);
        sensors = 2;
        sensorCols = {3, 4};
    }
    void choose(int index, std::int32_t entry)
    {
        varList[static_cast<std::size_t>(index)].chosen = entry;
        cues.varList_Change(index);
    }
    void select(std::int32_t first, std::int32_t last)
    {
        selStart = first;
        selEnd = last;
    }
    /// The dialog as it stands after an OK with these columns marked "Do not convert" (numbered from 1).
    void setUpColumns(const std::vector<int>& parameters)
    {
        labelFrm = std::make_unique<ColumnSetup>(*this);
        labelFrm->Form_Load();
        for (const int row : parameters) labelFrm->setCheckBox(row, true);
        labelFrm->OKButton_Click();
        calls.clear();
    }
    [[nodiscard]] Texts leftCues() const
    {
        return {text(Control::slLabel), text(Control::ldLabel), text(Control::ltLabel)};
    }
    [[nodiscard]] Texts rightCues() const
    {
        return {text(Control::srLabel), text(Control::rdLabel), text(Control::rtLabel)};
    }
};

} // namespace tarvelint::test
