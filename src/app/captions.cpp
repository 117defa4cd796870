// SPDX-License-Identifier: MIT
#include "app/captions.h"

#include "app/application.h"
#include "data/file_format.h"
#include "data/numbers.h"
#include "window/window.h"

#include <algorithm>

namespace tarvelint {

std::string uniqueCaption(std::string candidate, std::span<const std::string> openForms, std::string_view grouping)
{
    std::int32_t k = 0;
    while (std::find(openForms.begin(), openForms.end(), candidate) != openForms.end())
        candidate = std::string(kTitle) + " " + groupedText(++k, grouping);
    return candidate;
}

void setcaption(Window& window, const Application& application, std::string& captn)
{
    captn = uniqueCaption(captn, application.otherCaptions(window), window.env.style.grouping());
    window.setCaption(captn);
}

} // namespace tarvelint
