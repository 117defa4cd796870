// SPDX-License-Identifier: MIT
#pragma once

#include "equation/by_the_rules.h"

#include <cstddef>
#include <string>
#include <vector>

namespace tarvelint::test {

/// Writes down every fault and answers it from a list; what comes after the list is answered with "go on".
class AnsweringSink : public FaultSink {
public:
    std::vector<AfterFault> answers;
    std::vector<KeptFault> faults;

    AfterFault onFault(const Fault& fault) override
    {
        faults.push_back({fault.kind, fault.left, fault.right, std::string(fault.divisor)});
        return faults.size() <= answers.size() ? answers[faults.size() - 1] : AfterFault::goOn;
    }
    [[nodiscard]] bool hasStopped() const
    {
        for (std::size_t i = 0; i < faults.size() && i < answers.size(); ++i)
            if (answers[i] == AfterFault::stop) return true;
        return false;
    }
};

} // namespace tarvelint::test
