// SPDX-License-Identifier: MIT
#include "window/record_files.h"

#include "data/data_file_reader.h"
#include "data/line_reader.h"
#include "data/numbers.h"

#include <algorithm>

namespace tarvelint {

namespace {

/// The first row below the labels, if any, as `type` reads the file; nothing for a file with a header or one line.
std::optional<std::string> firstRow(std::istream& stream, const std::string& path, FileType type)
{
    LineReader lines(stream, path);
    const std::string first(lines.next().value_or(std::string_view{}));
    const auto second = lines.next();
    if (isHeaderLine(first) || !second) return std::nullopt;
    const auto fields = splitFields(first, delimiterOf(type));
    const bool isRow = std::all_of(fields.begin(), fields.end(), isNumeric);
    return isRow ? first : std::string(*second);
}

} // namespace

LoadedRecord readRecord(Files& files, const std::string& path, FileType type, const MissingValues& missing,
                        Progress& progress)
{
    std::unique_ptr<std::istream> stream;
    try {
        stream = files.openForReading(path);
    } catch (const FileFailure& failure) {
        throw NamedFault("The file " + path + " cannot be opened: " + failure.what() +
                             ". Check its name and permissions, or choose another file.",
                         "Error reading file:");
    }
    LoadedRecord loaded;
    loaded.data.blank = missing.blank;
    loaded.data.zeroOut = missing.zeroOut;
    DataFileReader reader(*stream, path, delimiterOf(type), loaded.data, progress, missing.settingBlank);
    reader.load();
    loaded.hadHeader = reader.hadHeader();
    loaded.hadLabelsLine = reader.hadLabelsLine();
    loaded.layers = reader.layers();
    loaded.warning = reader.warning();
    return loaded;
}

void writeRecord(Files& files, const std::string& path, FileType type, const DataSet& data, const FileContents& choices,
                 const HeaderStyle& style, Progress& progress)
{
    const auto file = files.createSafely(path);
    writeDataFile(data, choices, delimiterOf(type), style, *file, progress);
    file->commit();
}

std::optional<TypeGuess> likelierType(Files& files, const std::string& path, FileType chosen)
{
    try {
        const auto stream = files.openForReading(path);
        const auto row = firstRow(*stream, path, chosen);
        if (!row || splitFields(*row, delimiterOf(chosen)).size() != 1) return std::nullopt;
        TypeGuess best{chosen, 1};
        for (const FileTypeFacts& facts : kFileTypes) {
            const std::size_t fields = splitFields(*row, facts.delimiter).size();
            if (fields > best.fields) best = {facts.type, fields};
        }
        return best.type == chosen ? std::nullopt : std::optional(best);
    } catch (const FileFailure&) {
        return std::nullopt; // opening it will say so
    } catch (const FormatFault&) {
        return std::nullopt;
    }
}

} // namespace tarvelint
