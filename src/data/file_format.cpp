// SPDX-License-Identifier: MIT
#include "data/file_format.h"

#include "data/numbers.h"

#include <algorithm>

namespace tarvelint {

namespace {

constexpr std::size_t kNotFound = std::string_view::npos;
constexpr std::string_view kBlankStart = "blank='";

/// A piece of a file as a message may show it: short, and without control characters.
std::string quoted(std::string_view text)
{
    constexpr std::size_t kMost = 40;
    std::string shown(text.substr(0, kMost));
    std::replace_if(
        shown.begin(), shown.end(), [](char c) { return c >= 0 && c < ' '; }, '?');
    return '"' + shown + (text.size() > kMost ? "...\"" : "\"");
}

/// Takes the layer words in their order, each searched behind the one before, so the "converted" inside
/// "unconverted" never counts.
class LayerWords {
public:
    explicit LayerWords(std::string_view line) : m_line(line)
    {
        m_layers.unconverted = take("unconverted");
        m_layers.baseline = take("baseline");
        m_layers.converted = take("converted");
    }
    [[nodiscard]] const LayerSet& layers() const { return m_layers; }
    [[nodiscard]] std::size_t end() const { return m_end; }

private:
    bool take(std::string_view word)
    {
        const std::size_t at = m_line.find(word, m_end);
        if (at == kNotFound) return false;
        m_end = at + word.size();
        return true;
    }

    std::string_view m_line;
    LayerSet m_layers;
    std::size_t m_end = 0;
};

/// The text of a count: all between two words, without delimiters, blanks and grouping commas.
std::string countText(std::string_view line, std::size_t from, std::size_t to, char delimiter)
{
    std::string text(from < to ? line.substr(from, to - from) : std::string_view{});
    std::erase_if(text, [=](char c) { return c == delimiter || c == ' ' || c == '\t' || c == ','; });
    return text;
}

template <class Integer>
Integer parseCount(const std::string& text, std::optional<Integer> (*round)(double), const std::string& what,
                   const char* range)
{
    const auto value = numericValue(text);
    const auto count = value ? round(*value) : std::nullopt;
    if (count && *count >= 1) return *count;
    throw HeaderValueFault("The " + what + " in the header, " + quoted(text) + ", is not a whole number from 1 to " +
                           range +
                           ". Correct the first line of the file in a text editor, or delete it to read the file "
                           "as a plain table.");
}

std::int32_t parseBlank(std::string_view text)
{
    const auto value = numericValue(text);
    if (const auto blank = value ? roundedToInt32(*value) : std::nullopt) return *blank;
    throw HeaderValueFault("The missing value in the header, " + quoted(text) +
                           ", is neither a dot nor a whole number of at most 32 bits. Correct it at the end of the "
                           "file's first line in a text editor.");
}

} // namespace

FileType fileTypeOfExtension(std::string_view path)
{
    const std::size_t dot = path.rfind('.');
    const std::size_t slash = path.rfind('/');
    if (dot == kNotFound || (slash != kNotFound && dot < slash)) return FileType::comma;
    std::string extension(path.substr(dot));
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    for (const FileTypeFacts& facts : kFileTypes)
        if (extension == facts.extension) return facts.type;
    return FileType::comma;
}

std::optional<std::string_view> takeField(std::string_view& rest, char delimiter)
{
    if (delimiter != ',') rest.remove_prefix(std::min(rest.find_first_not_of(delimiter), rest.size()));
    if (rest.empty()) return std::nullopt;
    const std::string_view field = rest.substr(0, rest.find(delimiter));
    rest.remove_prefix(std::min(field.size() + 1, rest.size()));
    return field;
}

std::vector<std::string_view> splitFields(std::string_view line, char delimiter)
{
    std::vector<std::string_view> fields;
    while (const auto field = takeField(line, delimiter)) fields.push_back(*field);
    return fields;
}

bool isHeaderLine(std::string_view line)
{
    return line.starts_with(kTitle);
}

FileHeader parseHeader(std::string_view line, char delimiter)
{
    FileHeader header;
    const LayerWords words(line);
    header.layers = words.layers();
    if (header.layers == LayerSet{}) throw FormatFault("no U-B-C info in the header!");

    constexpr std::string_view kColumns = "columns";
    const std::size_t columnsAt = line.find(kColumns);
    if (columnsAt == kNotFound) throw FormatFault("No column number in header!");
    header.columns =
        parseCount(countText(line, words.end(), columnsAt, delimiter), &roundedToInt16, "number of columns", "32,767");

    const std::size_t rowsAt = line.find("rows");
    if (rowsAt == kNotFound) throw FormatFault("No row number in the header!");
    header.rows = parseCount(countText(line, columnsAt + kColumns.size(), rowsAt, delimiter), &roundedToInt32,
                             "number of rows", "2,147,483,647");

    // "without" holds "with", so it is looked for first.
    if (line.find("without") == kNotFound) {
        if (line.find("with") == kNotFound) throw FormatFault("No labels info in the header!");
        header.withLabels = true;
    }

    std::size_t blankAt = line.find(kBlankStart);
    if (blankAt == kNotFound) throw FormatFault("No blank character info in header!");
    blankAt += kBlankStart.size();
    if (line.back() != '\'') throw FormatFault("Lost that last quote somewhere!");
    header.blankIsDot = blankAt < line.size() && line[blankAt] == '.';
    if (!header.blankIsDot)
        header.blank = parseBlank(line.substr(blankAt, blankAt < line.size() ? line.size() - 1 - blankAt : 0));
    return header;
}

std::string composeHeader(const FileContents& choices, char delimiter, std::int16_t columns, std::int32_t lines,
                          std::int32_t blank, std::string_view longDate, std::string_view grouping)
{
    std::string layers;
    if (choices.unconverted) {
        layers = "unconverted";
        if (choices.baseline) layers += "-baseline";
        if (choices.converted) layers += "-converted";
    } else if (choices.baseline) {
        layers = choices.converted ? "baseline-converted" : "baseline";
    } else {
        layers = "converted"; // also when no layer is chosen: the reader wants at least one word
    }
    std::string header = std::string(kTitle) + " output: ";
    header.append(longDate) += delimiter;
    header += layers + delimiter;
    header += plainText(columns) + " columns" + delimiter;
    header += plainText(lines) + " rows each" + delimiter;
    header += choices.labels ? "with labels" : "without labels";
    header += delimiter;
    // Without dots the number goes out unquoted and in the system's grouping, for people and other programs.
    // parseHeader refuses that form: grouped by a sign nobody knows, it could be read back wrong.
    header += choices.dots ? "blank='.'" : "blank=" + groupedText(blank, grouping);
    return header;
}

std::vector<LayerRead> layerReads(const LayerSet& layers, std::int32_t lines, bool withLabels)
{
    const std::int64_t labels = withLabels ? 1 : 0;
    std::vector<LayerRead> reads;
    const auto add = [&](bool held, Layer layer) {
        if (!held) return;
        // Every block but the first follows a separating line; each has its own labels line.
        const auto before = static_cast<std::int64_t>(reads.size());
        reads.push_back({layer, before * lines + (before + 1) * (labels + 1), false, false});
    };
    add(layers.unconverted, kUnconverted);
    add(layers.baseline, kBaseline);
    add(layers.converted, kConverted);
    if (reads.empty()) throw FormatFault("Wow, where did that i go?!?");
    // A file that begins with the baseline has its converted layer filled before its own block, if there is one, is
    // read into it. One of unconverted and baseline leaves the converted layer at zero.
    reads.front().fillOut = layers.unconverted ? reads.size() == 1 : layers.baseline;
    reads.back().fillBase = !layers.baseline;
    return reads;
}

} // namespace tarvelint
