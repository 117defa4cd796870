// SPDX-License-Identifier: MIT
#pragma once

#include "window/dialogs.h"

#include <optional>

class QDialog;
class QString;
class QWidget;

namespace tarvelint {

/// Asks for a file with the toolkit's own dialog: platforms' dialogs do not all tell which filter was picked, and the
/// type of a file follows from the filter, not from its name. With `save` an existing file is replaced only after a
/// question; otherwise the file must exist. Starts in the folder last used in this run.
/// @return nullopt on Cancel, and when `parent` goes or the application quits meanwhile
/// @throws CommandFailure for a name that the toolkit does not carry unchanged
[[nodiscard]] std::optional<ChosenFile> askForFile(QWidget* parent, const FileDialog& dialog, bool save);

/// Whether a name from the toolkit is the system's own, byte for byte. Bytes that are not UTF-8 reach it as replacement
/// characters, and what it makes of half a character or of an embedded zero would be another file's name.
[[nodiscard]] bool isCarriedUnchanged(const QString& name);

/// Shows a dialog over its window, which takes no input meanwhile, and returns when it is hidden, the application
/// quits or the dialog is destroyed. False in the last case: nothing of the dialog may be touched then.
[[nodiscard]] bool showUntilHidden(QDialog& dialog);

} // namespace tarvelint
