// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace tarvelint {

class Application;
class Window;

/// The caption a form takes: `candidate` when no open form bears it, else "Tarvelint 1", "Tarvelint 2" ... (the
/// number grouped with `grouping`), the first that is free.
[[nodiscard]] std::string uniqueCaption(std::string candidate, std::span<const std::string> openForms,
                                        std::string_view grouping);

/// Makes the caption unique among all open forms and gives it to its window; `captn` comes back as taken.
void setcaption(Window& window, const Application& application, std::string& captn);

} // namespace tarvelint
