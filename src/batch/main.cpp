// SPDX-License-Identifier: MIT
#include "batch/batch_run.h"
#include "batch/options.h"
#include "machine/clock.h"
#include "machine/files.h"
#include "machine/system_style.h"

#include <iostream>

#include <unistd.h>

int main(int argc, char** argv)
{
    using namespace tarvelint;
    const ParsedCommandLine line = parseCommandLine(argc, argv, std::cout, std::cerr);
    if (!line.options) return line.exitStatus;
    LocaleStyle style;
    DiskFiles files;
    SteadyClock clock;
    return runBatch(*line.options, {files, style, clock}, std::cout, std::cerr, isatty(STDERR_FILENO) == 1);
}
