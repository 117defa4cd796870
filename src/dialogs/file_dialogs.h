// SPDX-License-Identifier: MIT
#pragma once

#include "window/ui.h"

#include <optional>

class QDialog;
class QWidget;

namespace tarvelint {

/// Asks for a file with the toolkit's own dialog: platforms' dialogs do not all tell which filter was picked, and the
/// type of a file follows from the filter, not from its name. With `save` an existing file is replaced only after a
/// question; otherwise the file must exist. Starts in the folder last used in this run.
/// @return nullopt on Cancel, and when `parent` goes or the application quits meanwhile
[[nodiscard]] std::optional<ChosenFile> askForFile(QWidget* parent, const FileDialog& dialog, bool save);

/// Shows a dialog over its window, which takes no input meanwhile, and returns when it is hidden, the application
/// quits or the dialog is destroyed. False in the last case: nothing of the dialog may be touched then.
[[nodiscard]] bool showUntilHidden(QDialog& dialog);

} // namespace tarvelint
