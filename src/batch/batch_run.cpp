// SPDX-License-Identifier: MIT
#include "batch/batch_run.h"

#include "app/main_window.h"
#include "batch/batch_ui.h"
#include "batch/column_choice.h"
#include "data/numbers.h"
#include "equation/row_converter.h"
#include "equation/validator.h"

#include <new>

namespace tarvelint {

namespace {

std::vector<bool> parameterColumns(const BatchOptions& options, const DataSet& data)
{
    if (options.parameters) return chosenColumns(*options.parameters, data.labels);
    std::vector<bool> columns(data.labels.size(), false);
    for (const int column1 : {1, 2, int{options.vpdColumn}, int{options.parColumn}})
        if (data.hasColumn(column1 - 1)) columns[static_cast<std::size_t>(column1 - 1)] = true;
    return columns;
}

void open(MainWindow& window, const BatchOptions& options)
{
    window.files.openFile({options.input, options.inputType});
    if (!window.readLayers.unconverted)
        throw CommandFailure("The file " + options.input +
                             " holds no unconverted layer, so there is nothing to convert. Save it with the "
                             "unconverted data, or start from the logger's own file.");
    if (!window.haveLabelForm()) window.cues.labelButton_Click();
}

void layBaselines(MainWindow& window, const BatchOptions& options)
{
    ColumnSetup& setup = *window.labelFrm;
    setup.boxes.checkBox = parameterColumns(options, window.data);
    setup.boxes.saveBox = options.choices.labels;
    setup.boxes.turboCheck = true;
    setup.boxes.vpdBox = plainText(options.vpdColumn);
    setup.boxes.parBox = plainText(options.parColumn);
    setup.boxes.VPDlBox = options.vpdLimit;
    setup.boxes.PARlBox = options.parLimit;
    setup.boxes.timeBox = options.lullTime;
    setup.OKButton_Click();
}

/// Words of a message box as one line.
std::string onOneLine(std::string text)
{
    for (auto at = text.find("\r\n"); at != std::string::npos; at = text.find("\r\n")) text.replace(at, 2, "");
    return text;
}

/// What the user should know about an equation that is not taken as it was typed, or not as it was meant.
void announceEquation(const BatchOptions& options, BatchUi& ui)
{
    if (options.equation->empty())
        ui.message() << "the equation is empty, so every converted value is 0\n";
    else if (!repairedEquation(options.typedEquation))
        ui.message()
            << "the equation cannot be repaired, because nothing stands before a \")\"; it is taken as typed\n";
    else if (*options.equation != options.typedEquation && !options.quiet)
        ui.message() << "the equation reads " << *options.equation << '\n';
}

void reportErrors(const BatchUi::EquationErrors& errors, const std::string& label, BatchUi& ui)
{
    if (errors.count == 0) return;
    ui.message() << label << ": equation errors: " << plainText(errors.count) << ", the first in row "
                 << plainText(std::int64_t{errors.firstRow} + 1) << ": " << onOneLine(errors.firstText) << '\n';
}

const std::string& sensorLabel(const MainWindow& window, std::int32_t sensor)
{
    return window.data.labels[static_cast<std::size_t>(window.sensorColumn(sensor))];
}

/// Both ends belong to it; empty when `last` is below `first`.
struct RowSpan {
    std::int32_t first = 0;
    std::int32_t last = -1;
};

/// From a sensor's first point to its last: where the zero-flow detection has laid a baseline, which takes two points.
/// Elsewhere a file that was converted before may hold another one.
RowSpan laidRows(const MainWindow& window, std::int32_t sensor)
{
    RowSpan laid{window.data.lines, -1};
    for (std::int32_t row = 0; row < window.data.lines; ++row) {
        if (!window.basePoints(sensor, row)) continue;
        if (laid.first > row)
            laid.first = row;
        else
            laid.last = row;
    }
    return laid;
}

void convertWithEquation(MainWindow& window, const BatchOptions& options, BatchUi& ui)
{
    if (!options.equation) return;
    announceEquation(options, ui);
    window.setText(Control::FormulaBox, *options.equation);
    window.setChecked(Control::highBox, options.baselineIsHigh);
    window.setText(Control::rowLabel, "");
    for (std::int32_t sensor = 0; sensor < window.sensors; ++sensor) {
        const std::string& label = sensorLabel(window, sensor);
        const RowSpan laid = laidRows(window, sensor);
        window.setStatus(1, "Converting " + label);
        RowConverter converter(window);
        window.recalculation.convertRows(converter, window.sensorColumn(sensor), laid.first, laid.last);
        reportErrors(ui.takeEquationErrors(), label, ui);
    }
}

void save(MainWindow& window, const BatchOptions& options)
{
    const SaveChoices& choices = options.choices;
    window.typeFrm = std::make_unique<SaveContents>(SaveContents{.inCheck = choices.unconverted,
                                                                 .baseCheck = choices.baseline,
                                                                 .outCheck = choices.converted,
                                                                 .headerCheck = choices.header,
                                                                 .blankCheck = choices.dots});
    window.savePath = options.output;
    window.data.fileDelimiter = delimiterOf(options.outputType);
    try {
        window.files.writeFile();
    } catch (const FileFailure& failure) {
        throw CommandFailure("The file " + options.output + " cannot be written: " + failure.what() +
                             ". What was there before is untouched.");
    }
}

/// What was done to one sensor.
struct SensorCount {
    std::int64_t points = 0;
    std::int64_t converted = 0;
    std::int64_t missing = 0;
};

SensorCount countRows(const MainWindow& window, std::int32_t sensor)
{
    const std::int32_t column = window.sensorColumn(sensor);
    const DataSet& data = window.data;
    const RowSpan laid = laidRows(window, sensor);
    SensorCount count;
    for (std::int32_t row = 0; row < data.lines; ++row) {
        const bool isMissing = data.isBlank(data.values(kUnconverted, column, row));
        if (isMissing) ++count.missing;
        if (window.basePoints(sensor, row)) ++count.points;
        const bool isLaid = row >= laid.first && row <= laid.last;
        if (isLaid && !isMissing && !data.isBlank(data.values(kConverted, column, row))) ++count.converted;
    }
    return count;
}

void summarise(const MainWindow& window, std::ostream& out)
{
    for (std::int32_t sensor = 0; sensor < window.sensors; ++sensor) {
        const SensorCount count = countRows(window, sensor);
        out << sensorLabel(window, sensor) << ": " << plainText(count.points) << " points, "
            << plainText(count.converted) << " rows converted, " << plainText(count.missing) << " rows missing\n";
    }
}

} // namespace

int runBatch(const BatchOptions& options, const Environment& environment, std::ostream& out, std::ostream& err,
             bool terminal)
{
    BatchUi ui(err, terminal && !options.quiet);
    BatchApplication application;
    writeSetting(environment.settings, Setting::Blank, plainText(options.blank));
    std::string reason;
    try {
        MainWindow window(ui, environment, application);
        ui.watch(window);
        window.lifecycle.Form_Load();
        open(window, options);
        layBaselines(window, options);
        convertWithEquation(window, options, ui);
        save(window, options);
        ui.endProgress();
        if (!options.quiet) summarise(window, out);
        return kDone;
    } catch (const std::bad_alloc&) {
        reason = "There is not enough memory for " + options.input + ".";
    } catch (const std::exception& failure) {
        reason = failure.what();
    }
    // Some reasons are fixed texts that name no file; a loop over many files has to tell which one it was.
    const bool namesFile =
        reason.find(options.input) != std::string::npos || reason.find(options.output) != std::string::npos;
    ui.message() << (namesFile ? "" : options.input + ": ") << reason << '\n';
    return kDataFault;
}

} // namespace tarvelint
