// SPDX-License-Identifier: MIT
#pragma once

#include "window/ports.h"

namespace tarvelint {

/// Date and number style of the user's locale.
class LocaleStyle : public SystemStyle {
public:
    [[nodiscard]] std::string longDate() const override;
    [[nodiscard]] std::string grouping() const override;
};

} // namespace tarvelint
