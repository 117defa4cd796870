// SPDX-License-Identifier: MIT
#include "baseline/zero_flow_faults.h"

#include "data/numbers.h"

namespace tarvelint {

CommandFailure noSuchColumn(const char* what, const std::string& typed, const Record& record)
{
    const std::string columns = plainText(record.columns);
    return CommandFailure(std::string("The ") + what + " column \"" + typed + "\" does not exist: the file has " +
                          columns + (record.columns == 1 ? " column" : " columns") + ". Type a number from 1 to " +
                          columns + ".");
}

CommandFailure noSensorColumn()
{
    return CommandFailure("Every column is marked \"Do not convert\": there is no sensor column to pre-process. "
                          "Clear the mark of at least one sensor column.");
}

} // namespace tarvelint
