// SPDX-License-Identifier: MIT
#pragma once

#include <istream>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvelint {

/// The program's numbered captions. The about box's own texts (credits, contacts, fair use) come from the
/// deploying organisation and are added at start-up.
class StringTable {
public:
    StringTable();

    /// Adds lines "number=text"; "\n" in a text is a line break, lines that begin with "#" are comments. Lines that are
    /// neither are passed over.
    void addTexts(std::istream& lines);

    /// The text of a number; empty optional when the table has none.
    [[nodiscard]] std::optional<std::string> find(int number) const;

private:
    std::map<int, std::string> m_texts;
};

/// The kinds of control that `loadResStrings` tells apart.
enum class ControlType { form, label, menu, tabStrip, toolbar, listView, other };

/// A control (or the form itself) as `loadResStrings` sees it: numbers stand in place of texts.
struct ResControl {
    ControlType type = ControlType::other;
    std::string tag;
    std::string caption;
    std::string toolTip;
    std::vector<ResControl> parts; ///< buttons of a tool bar, tabs, column headers
};

/// Replaces the numbers by texts, first of the form, then of each control by its type. A number that is missing or not
/// in the table leaves the text as it was designed.
void loadResStrings(ResControl& form, std::vector<ResControl>& controls, const StringTable& table);

} // namespace tarvelint
