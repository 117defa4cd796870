// SPDX-License-Identifier: MIT
#pragma once

#include "window/conversion_settings.h"

#include <optional>
#include <string>
#include <vector>

namespace tarvelint {

class Window;

/// What the column setup decides about a record.
struct ColumnChoices {
    std::vector<std::string> labels;          ///< one per column
    std::vector<bool> parameters;             ///< "Do not convert", by 0-based column
    bool savesLabels = false;                 ///< labels go into saved files
    std::optional<ZeroFlowSettings> zeroFlow; ///< look for zero flow and convert; none: baselines by hand
};

/// Puts the choices to work in their window: labels and marks first, then either the pre-process, which leaves it in
/// `Turbo`, or sloppy one-click mode. The record counts as changed. Ends before the dialog is hidden and the column on
/// view shown once more, which the caller does.
void applyColumnSetup(Window& window, const ColumnChoices& choices);

} // namespace tarvelint
