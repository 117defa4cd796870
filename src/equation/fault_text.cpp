// SPDX-License-Identifier: MIT
#include "equation/fault_text.h"

#include "data/numbers.h"

namespace tarvelint {

std::string faultHeading(const Fault& fault)
{
    return fault.kind == FaultKind::divisionByZero ? "Division by Zero! " : "Invalid power operation! ";
}

std::string faultCause(const Fault& fault)
{
    if (fault.kind == FaultKind::divisionByZero) return "This was caused by " + std::string(fault.divisor);
    return generalText(fault.left) + "^" + generalText(fault.right);
}

std::string faultPrompt(const Fault& fault, std::int32_t row0)
{
    return faultHeading(fault) + "\r\n" + faultCause(fault) + "\r\nLine is " + plainText(row0) +
           "\r\nOK to continue, Cancel to stop";
}

} // namespace tarvelint
