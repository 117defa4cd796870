// SPDX-License-Identifier: MIT
#include "batch/column_choice.h"

#include "data/numbers.h"

#include <algorithm>

namespace tarvelint {

namespace {

bool isWholeNumber(std::string_view text)
{
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

std::string_view trimmed(std::string_view text)
{
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

std::size_t columnNumber(std::string_view text, std::size_t columns)
{
    const double number = leadingNumber(text);
    if (number < 1 || number > static_cast<double>(columns))
        throw ColumnChoiceFault("Column " + std::string(text) + " in --parameters does not exist: the file has " +
                                plainText(static_cast<std::int64_t>(columns)) + " columns.");
    return static_cast<std::size_t>(number);
}

void choose(std::string_view item, std::span<const std::string> labels, std::vector<bool>& chosen)
{
    const auto dash = item.find('-');
    const auto from = trimmed(item.substr(0, dash));
    const auto to = dash == std::string_view::npos ? from : trimmed(item.substr(dash + 1));
    if (isWholeNumber(from) && isWholeNumber(to)) {
        const auto first = columnNumber(from, labels.size());
        const auto last = columnNumber(to, labels.size());
        if (first > last)
            throw ColumnChoiceFault("The range " + std::string(item) + " in --parameters ends before it begins.");
        std::fill(chosen.begin() + static_cast<std::ptrdiff_t>(first - 1),
                  chosen.begin() + static_cast<std::ptrdiff_t>(last), true);
        return;
    }
    const auto label = std::find(labels.begin(), labels.end(), item);
    if (label == labels.end())
        throw ColumnChoiceFault("\"" + std::string(item) +
                                "\" in --parameters is neither a column number nor a label of the file.");
    chosen[static_cast<std::size_t>(label - labels.begin())] = true;
}

} // namespace

std::vector<bool> chosenColumns(std::string_view list, std::span<const std::string> labels)
{
    std::vector<bool> chosen(labels.size(), false);
    for (bool more = true; more;) {
        const auto comma = list.find(',');
        const auto item = trimmed(list.substr(0, comma));
        if (!item.empty()) choose(item, labels, chosen);
        more = comma != std::string_view::npos;
        if (more) list.remove_prefix(comma + 1);
    }
    return chosen;
}

} // namespace tarvelint
