// SPDX-License-Identifier: MIT
#pragma once

#include "support/test_window.h"
#include "view/column_lists.h"
#include "view/display_controls.h"
#include "view/selection_cues.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

namespace tarvelint::test {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Texts = std::vector<std::string>;

/// A day, a time and two sensor columns of three rows; column lists filled, nothing chosen.
struct Panel : TestWindow {
    ColumnLists lists{*this};
    DisplayControls display{*this};
    SelectionCues cues{*this};

    Panel()
    {
        setReadings({{123, 124, 125}, {0.5, 12.25, 1e15}, {1.5, -0.00004, 1234.5}, {7, 8, 9}});
        record.labels = {"day", "time", "oak", "pine"};
        view.showsLabels = true;
        lists.fill();
        makeSensors({2, 3});
    }
    [[nodiscard]] Texts entries() const
    {
        Texts texts;
        for (std::int32_t c = 0; c < record.columns; ++c)
            texts.push_back(columnEntry(record.labels, view.entriesAreLabels, c));
        return texts;
    }
    using TestWindow::choose;
    void choose(int index, std::int32_t entry) { lists.choose(index, entry); }
    void select(std::int32_t first, std::int32_t last)
    {
        view.selStart = first;
        view.selEnd = last;
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
