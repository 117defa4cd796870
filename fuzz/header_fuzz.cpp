// SPDX-License-Identifier: MIT
#include "data/file_format.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace {

using namespace tarvelint;

void require(bool holds)
{
    if (!holds) std::abort();
}

/// What a header says when it is written anew is what it said before.
void checkRewritten(const FileHeader& header, char delimiter)
{
    const FileContents choices{{.unconverted = header.layers.unconverted,
                                .baseline = header.layers.baseline,
                                .converted = header.layers.converted,
                                .dots = true},
                               header.withLabels};
    const std::string line =
        composeHeader(choices, delimiter, header.columns, header.rows, 99999, "Friday, 20 November 2026", ",");
    require(isHeaderLine(line));
    const FileHeader again = parseHeader(line, delimiter);
    require(again.layers == header.layers && again.columns == header.columns && again.rows == header.rows);
    require(again.withLabels == header.withLabels && again.blankIsDot);
}

void check(std::string_view line, char delimiter)
{
    for (const std::string_view field : splitFields(line, delimiter))
        require(field.find(delimiter) == std::string_view::npos);
    try {
        const FileHeader header = parseHeader(line, delimiter);
        require(header.columns >= 1 && header.rows >= 1);
        require(!layerReads(header.layers, header.rows, header.withLabels).empty());
        checkRewritten(header, delimiter);
    } catch (const FormatFault& fault) {
        require(*fault.what() != '\0');
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string line(data, data + size);
    for (const char delimiter : {' ', '\t', ','}) check(line, delimiter);
    return 0;
}
