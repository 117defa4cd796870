// SPDX-License-Identifier: MIT
#include "equation/answering_sink.h"
#include "equation/by_the_rules.h"
#include "equation/equation.h"
#include "equation/validator.h"

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

using namespace tarvelint;

void require(bool holds)
{
    if (!holds) std::abort();
}

bool same(double a, double b)
{
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b) || (std::isnan(a) && std::isnan(b));
}

void checkValue(const std::string& text, bool high, std::size_t stopAt)
{
    test::AnsweringSink sink;
    sink.answers.assign(stopAt, AfterFault::goOn);
    sink.answers.push_back(AfterFault::stop);
    const double value = Equation(text).evaluate(8.5, 10.25, {high, 99999}, sink);

    test::ByTheRules rules;
    rules.baselineIsHigh = high;
    std::size_t faults = 0;
    rules.ask = [&](const test::KeptFault& expected) {
        require(faults < sink.faults.size());
        const test::KeptFault& fault = sink.faults[faults];
        require(fault.kind == expected.kind && fault.divisor == expected.divisor);
        require(same(fault.left, expected.left) && same(fault.right, expected.right));
        return faults++ != stopAt;
    };
    require(same(value, rules.convert(text, 8.5, 10.25)));
    require(faults == sink.faults.size() && sink.hasStopped() == rules.stopped);
}

} // namespace

/// The first byte says which side is clipped and at which fault it ends, the rest is the equation: as typed, and as
/// repaired.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::size_t kLongest = 500; // the plain rules copy the text at every step
    if (size == 0 || size > kLongest) return 0;
    const std::size_t stopAt = data[0] / 2;
    const bool high = data[0] % 2 == 0;
    std::string text(data + 1, data + size);
    checkValue(text, high, stopAt);
    const std::string expected = test::repairedByTheRules(text).value_or(text);
    require(evaluate(text) == expected && text == expected);
    checkValue(text, high, stopAt);
    return 0;
}
