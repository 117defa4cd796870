// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace tarvelint {

/// The splash's tag while it is the about box; at start-up it is empty.
inline constexpr std::string_view kAboutTag = "1";

/// Whether leaving the splash brings the first data window. The about box only closes.
[[nodiscard]] constexpr bool showsMainForm(std::string_view splashTag)
{
    return splashTag.empty();
}

} // namespace tarvelint
