// SPDX-License-Identifier: MIT
#include "forms/zero_flow_faults.h"

#include "data/numbers.h"

namespace tarvelint {

std::int16_t columnIndex(const std::string& typed, const char* what, const Record& record)
{
    if (const auto column = roundedToInt16(leadingNumber(typed) - 1); column && record.hasColumn(*column))
        return *column;
    const std::string columns = plainText(record.columns);
    throw CommandFailure(std::string("The ") + what + " column \"" + typed + "\" does not exist: the file has " +
                         columns + (record.columns == 1 ? " column" : " columns") + ". Type a number from 1 to " +
                         columns + ".");
}

CommandFailure noSensorColumn()
{
    return CommandFailure("Every column is marked \"Do not convert\": there is no sensor column to pre-process. "
                          "Clear the mark of at least one sensor column.");
}

} // namespace tarvelint
