// SPDX-License-Identifier: MIT
#include "app/captions.h"

#include "data/file_format.h"
#include "data/numbers.h"

#include <algorithm>

namespace tarvelint {

std::string uniqueCaption(std::string candidate, std::span<const std::string> openForms, std::string_view grouping)
{
    std::int32_t k = 0;
    while (std::find(openForms.begin(), openForms.end(), candidate) != openForms.end())
        candidate = std::string(kTitle) + " " + groupedText(++k, grouping);
    return candidate;
}

} // namespace tarvelint
