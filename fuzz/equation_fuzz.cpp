// SPDX-License-Identifier: MIT
#include "equation/by_the_rules.h"
#include "equation/evaluator.h"
#include "equation/validator.h"
#include "support/test_window.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

using namespace tarvelint;

void require(bool holds)
{
    if (!holds) std::abort();
}

/// A window that answers every message with OK but the one at which its user has had enough.
struct AskedWindow : test::TestWindow {
    std::size_t cancelAt;
    explicit AskedWindow(std::size_t cancel) : cancelAt(cancel)
    {
        fakeUi.answers.assign(cancel, Answer::ok);
        fakeUi.answers.push_back(Answer::cancel);
        // After Cancel only operators that had begun still ask.
        fakeUi.answers.insert(fakeUi.answers.end(), 1000, Answer::ok);
    }
};

void checkValue(const std::string& text, bool high, std::size_t cancelAt)
{
    test::ByTheRules rules;
    rules.baselineIsHigh = high;
    std::vector<std::string> prompts;
    rules.ask = [&](const std::string& prompt) {
        prompts.push_back(prompt);
        return prompts.size() != cancelAt + 1;
    };
    const double expected = rules.convert(text, 8.5, 10.25);

    AskedWindow window(cancelAt);
    window.setChecked(Control::highBox, high);
    std::string_view equation = text;
    const double value = Evaluator(window).convert(equation, 8.5, 10.25);
    require(value == expected || (std::isnan(value) && std::isnan(expected)));
    require(window.stopFlag == rules.stopped);
    require(window.fakeUi.messages.size() == prompts.size());
    for (std::size_t i = 0; i < prompts.size(); ++i) require(window.fakeUi.messages[i].text == prompts[i]);
}

} // namespace

/// The first byte says which side is clipped and when Cancel is chosen, the rest is the equation: as typed, and as
/// repaired.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::size_t kLongest = 500; // the plain rules copy the text at every step
    if (size == 0 || size > kLongest) return 0;
    const std::size_t cancelAt = data[0] / 2;
    const bool high = data[0] % 2 == 0;
    std::string text(data + 1, data + size);
    checkValue(text, high, cancelAt);
    const std::string expected = test::repairedByTheRules(text).value_or(text);
    require(evaluate(text) == expected && text == expected);
    checkValue(text, high, cancelAt);
    return 0;
}
