// SPDX-License-Identifier: MIT
#pragma once

#include "window/window.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tarvelint {

/// What an entry of the column lists reads: the column's label, byte by byte, or its number from 1.
[[nodiscard]] std::string columnEntry(const std::vector<std::string>& labels, bool asLabels, std::int32_t column0);

/// The column lists of both areas (`varList`): what their entries read, and which column each area shows. An entry's
/// index is the 0-based column.
class ColumnLists {
public:
    explicit ColumnLists(Window& window)
        : m_window(window), m_view(window.view), m_record(window.record), m_sensors(window.sensors), m_ui(window.ui)
    {
    }

    /// The entries of a new record; nothing is chosen afterwards.
    void fill();
    /// Chooses an entry (-1 for none) and always runs `varList_Change`.
    void choose(int index, std::int32_t entry);
    /// Shows the chosen column; in the main area it becomes the column being worked on.
    void varList_Change(int index);
    /// The user chose an entry, perhaps the same one again.
    void varList_Click(int index) { varList_Change(index); }

    /// Takes labels, one per column, into the record and the lists; the choices stay, and nothing is redrawn.
    void updateLabels(const std::vector<std::string>& labels);
    /// The lists show labels or, with the box clear, column numbers from 1.
    void labelBox_Click(bool checked);

private:
    void showEntries(bool asLabels);

    Window& m_window;
    View& m_view;
    Record& m_record;
    const Sensors& m_sensors;
    Ui& m_ui;
};

} // namespace tarvelint
