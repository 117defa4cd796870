// SPDX-License-Identifier: MIT
#pragma once

/// Texts of menu entries that change while the program runs; the string table has them from here.
namespace tarvelint::entry_texts {

inline constexpr const char* kUndo = "&Undo";
inline constexpr const char* kCannotUndo = "Can't Undo";

} // namespace tarvelint::entry_texts
