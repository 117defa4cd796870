// SPDX-License-Identifier: MIT
#include "batch/options.h"

#include "data/numbers.h"
#include "data/settings_store.h"
#include "equation/equation.h"
#include "equation/validator.h"

#include <CLI/CLI.hpp>

#include <cmath>
#include <map>
#include <string_view>
#include <utility>

namespace tarvelint {

namespace {

std::map<std::string, FileType> delimiterWords()
{
    std::map<std::string, FileType> words;
    for (const FileTypeFacts& facts : kFileTypes) words.emplace(facts.word, facts.type);
    return words;
}

/// The command line as CLI11 fills it, before it becomes options.
struct Raw {
    BatchOptions options;
    std::optional<FileType> inputType;
    std::optional<FileType> outputType;
    std::optional<std::string> equation;
    // Numbers stay texts until numbers.h reads them: CLI11 would take "010" for octal.
    std::string vpdColumn{defaultText(Setting::VPD)};
    std::string parColumn{defaultText(Setting::PAR)};
    std::string blank{defaultText(Setting::Blank)};
    std::string vpdLimit{defaultText(Setting::VPDlimit, DefaultOf::columnSetup)};
    std::string parLimit{defaultText(Setting::PARlimit, DefaultOf::columnSetup)};
    std::string lullTime{defaultText(Setting::lullTime, DefaultOf::columnSetup)};
    std::string layers = "unconverted,baseline,converted";
    bool noHeader = false;
    bool noDots = false;
};

/// Refuses at the command line a number that no file could make right: one that `convert` has no value for.
template <class Convert>
std::string checkNumber(const std::string& text, Convert convert)
{
    if (!isNumeric(text)) return "\"" + text + "\" is not a number";
    return convert(leadingNumber(text)) ? "" : "\"" + text + "\" is too large";
}

std::string checkLimit(const std::string& text)
{
    return checkNumber(text, roundedToFloat32);
}

std::string checkWhole(const std::string& text)
{
    return checkNumber(text, roundedToInt32);
}

std::string checkColumn(const std::string& text)
{
    const double column = isNumeric(text) ? leadingNumber(text) : 0;
    const bool isOne = column >= 1 && column <= 32767 && column == std::floor(column);
    return isOne ? "" : "\"" + text + "\" is not a column number from 1 to 32767";
}

/// Switches the layers that a list such as "unconverted,converted" names, and no other, on; False when a name is
/// unknown or there is none.
bool chooseLayers(const std::string& list, SaveChoices& choices)
{
    choices.unconverted = choices.baseline = choices.converted = false;
    for (const std::string_view name : splitFields(list, ',')) {
        if (name == "unconverted")
            choices.unconverted = true;
        else if (name == "baseline")
            choices.baseline = true;
        else if (name == "converted")
            choices.converted = true;
        else
            return false;
    }
    return choices.unconverted || choices.baseline || choices.converted;
}

std::string checkLayers(const std::string& list)
{
    SaveChoices choices;
    if (chooseLayers(list, choices)) return {};
    return "\"" + list + "\" is not a list of unconverted, baseline and converted";
}

void addFiles(CLI::App& app, Raw& raw)
{
    const auto delimiters = CLI::Transformer(delimiterWords()).description("");
    app.add_option("INPUT", raw.options.input, "Logger record or a file this program wrote")->required();
    app.add_option("-o,--output", raw.options.output, "File to write; replaced only as a whole")->required();
    app.add_option("--input-delimiter", raw.inputType, "space, tab or comma (default: by extension)")
        ->transform(delimiters)
        ->type_name("NAME");
    app.add_option("--output-delimiter", raw.outputType, "space, tab or comma (default: by extension)")
        ->transform(delimiters)
        ->type_name("NAME");
    app.add_option("--blank", raw.blank, "Number that stands for a missing value")
        ->check(CLI::Validator(checkWhole, ""))
        ->type_name("N")
        ->capture_default_str();
}

void addZeroFlow(CLI::App& app, Raw& raw)
{
    auto& options = raw.options;
    const CLI::Validator column(checkColumn, "");
    app.add_option("--vpd-column", raw.vpdColumn, "Column of vapour pressure deficit, from 1")
        ->check(column)
        ->type_name("N")
        ->capture_default_str();
    app.add_option("--par-column", raw.parColumn, "Column of photosynthetically active radiation, from 1")
        ->check(column)
        ->type_name("N")
        ->capture_default_str();
    app.add_option("--vpd-limit", raw.vpdLimit, "A row is calm at or below this")
        ->check(CLI::Validator(checkLimit, ""))
        ->type_name("X")
        ->capture_default_str();
    app.add_option("--par-limit", raw.parLimit, "A row is dark at or below this")
        ->check(CLI::Validator(checkLimit, ""))
        ->type_name("X")
        ->capture_default_str();
    app.add_option("--lull-time", raw.lullTime, "Rows of calm and dark before zero flow is believed")
        ->check(CLI::Validator(checkWhole, ""))
        ->type_name("ROWS")
        ->capture_default_str();
    app.add_option("--parameters", options.parameters,
                   "Columns that are not converted: numbers, ranges and labels, such as 1-4,9,Tair "
                   "(default: 1, 2, VPD and PAR)")
        ->type_name("LIST");
}

void addEquation(CLI::App& app, Raw& raw)
{
    BatchOptions& options = raw.options;
    app.add_option("--equation", raw.equation,
                   "Equation in the reading X and the baseline B (default: the fixed 119*((B/X)-1)^1.23)")
        ->type_name("TEXT");
    // A value behind a flag ("=false") would be taken and have no effect: refused.
    auto* high = app.add_flag_callback(
                        "--baseline-is-high", [&options] { options.baselineIsHigh = true; },
                        "With --equation: a reading above its baseline counts as the baseline (default)")
                     ->disable_flag_override();
    app.add_flag_callback(
           "--no-baseline-is-high", [&options] { options.baselineIsHigh = false; },
           "With --equation: a reading below its baseline counts as the baseline")
        ->disable_flag_override()
        ->excludes(high);
}

void addContents(CLI::App& app, Raw& raw)
{
    app.add_option("--layers", raw.layers, "Layers to write")
        ->check(CLI::Validator(checkLayers, ""))
        ->type_name("LIST")
        ->capture_default_str();
    app.add_flag("--no-header", raw.noHeader, "Leave out the header line");
    app.add_flag("--labels", raw.options.choices.labels, "Write a labels line above each layer");
    app.add_flag("--no-dots", raw.noDots, "Write missing values as their number, not as dots");
    app.add_flag("--quiet", raw.options.quiet, "No progress, no summary and no repaired equation; errors are shown");
}

void takeEquation(Raw& raw)
{
    if (!raw.equation) return;
    raw.options.equation.emplace(*raw.equation);
    if (raw.options.equation->text().size() > kLongestEquation)
        throw CLI::ValidationError("--equation",
                                   "the equation is longer than " + std::to_string(kLongestEquation) + " characters");
}

BatchOptions finished(Raw raw)
{
    BatchOptions options = std::move(raw.options);
    options.vpdColumn = roundToInt16(leadingNumber(raw.vpdColumn));
    options.parColumn = roundToInt16(leadingNumber(raw.parColumn));
    options.zeroFlow.vpdLimit = toFloat32(leadingNumber(raw.vpdLimit));
    options.zeroFlow.parLimit = toFloat32(leadingNumber(raw.parLimit));
    options.zeroFlow.lullTime = roundToInt32(leadingNumber(raw.lullTime));
    options.blank = roundToInt32(leadingNumber(raw.blank));
    options.inputType = raw.inputType.value_or(fileTypeOfExtension(options.input));
    options.outputType = raw.outputType.value_or(fileTypeOfExtension(options.output));
    chooseLayers(raw.layers, options.choices);
    options.choices.header = !raw.noHeader;
    options.choices.dots = !raw.noDots;
    return options;
}

} // namespace

BatchEquation::BatchEquation(std::string text) : typed(std::move(text)), repaired(repairedEquation(typed)) {}

BatchOptions::BatchOptions()
{
    zeroFlow.vpdLimit = defaults::kVpdLimit.as<float>();
    zeroFlow.parLimit = defaults::kParLimitInColumnSetup.as<float>();
    zeroFlow.lullTime = defaults::kLullTimeInColumnSetup.as<std::int32_t>();
}

ParsedCommandLine parseCommandLine(int argc, const char* const* argv, std::ostream& out, std::ostream& err)
{
    Raw raw;
    CLI::App app("Lays zero-flow baselines on thermal-dissipation sap-flow readings and converts them to sap flux.",
                 "tarvelint-batch");
    app.set_version_flag("--version", std::string("tarvelint-batch ") + TARVELINT_VERSION);
    addFiles(app, raw);
    addZeroFlow(app, raw);
    addEquation(app, raw);
    addContents(app, raw);
    try {
        app.parse(argc, argv);
        if (raw.options.input.empty() || raw.options.output.empty())
            throw CLI::ValidationError("INPUT and --output", "a file name must not be empty");
        takeEquation(raw);
    } catch (const CLI::Success& asked) {
        app.exit(asked, out, err);
        return {};
    } catch (const CLI::ParseError& fault) {
        app.exit(fault, out, err);
        return {std::nullopt, kWrongCommandLine};
    }
    return {finished(std::move(raw)), kDone};
}

} // namespace tarvelint
