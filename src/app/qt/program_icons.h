// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QString>

namespace tarvelint {

/// Makes ":/about_texts.txt" and the icons readable. A library's resources are not registered by themselves; call it
/// before the first use. Calling it again does no harm.
void useProgramResources();

/// The program's own icon, in the sizes that desktops ask for.
[[nodiscard]] QIcon programIcon();

/// A one-colour drawing as an icon in the text colour of the palette in force whenever it is painted, and drawn at the
/// size and scale it is shown at. Disabled, it is pale.
/// @param file  an SVG drawing; only where it covers counts, not its colours
[[nodiscard]] QIcon glyphIcon(const QString& file);

} // namespace tarvelint
