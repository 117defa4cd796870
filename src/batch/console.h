// SPDX-License-Identifier: MIT
#pragma once

#include "data/progress.h"
#include "window/breather.h"

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>

namespace tarvelint {

/// A text as a terminal may be given it: what would steer the terminal becomes "?".
[[nodiscard]] std::string printable(std::string_view text);

/// The error stream of the batch program: messages, and on a terminal one line of progress that they do not mix with.
class Console : public Progress {
public:
    /// @param err  where messages and progress go; outlives the console, as does the clock
    Console(std::ostream& err, const Clock& clock, bool showsProgress)
        : m_err(err), m_pacer(clock), m_showsProgress(showsProgress)
    {
    }

    /// One line, at the start of a line of the program's own. Control characters are taken out.
    void say(std::string_view message);
    void status(const std::string& text) override;
    void row(std::int32_t row1) override;
    /// Wipes the progress line, so that what follows starts at the left.
    void endProgress();

private:
    void show(const std::string& text);

    std::ostream& m_err;
    Pacer m_pacer;
    bool m_showsProgress;
    bool m_progressShown = false;
    std::string m_status;
};

} // namespace tarvelint
