// SPDX-License-Identifier: MIT
#include "batch/batch_run.h"

#include "baseline/zero_flow.h"
#include "baseline/zero_flow_faults.h"
#include "batch/column_choice.h"
#include "batch/console.h"
#include "batch/sensor_report.h"
#include "data/numbers.h"
#include "equation/convert_cell.h"
#include "equation/equation.h"
#include "equation/fault_text.h"
#include "window/command_failure.h"
#include "window/record_files.h"

#include <new>

namespace tarvelint {

namespace {

/// The faults of one sensor's conversion: counted, and passed over as a person would who wants the rest converted.
class FaultCount : public FaultSink {
public:
    std::int32_t row = 0; ///< being converted

    AfterFault onFault(const Fault& fault) override
    {
        if (m_count++ == 0) {
            m_firstRow = row;
            m_firstText = faultHeading(fault) + faultCause(fault);
        }
        return AfterFault::goOn;
    }
    /// In one line; empty when there was none.
    [[nodiscard]] std::string report() const
    {
        if (m_count == 0) return {};
        return "equation errors: " + plainText(m_count) + ", the first in row " +
               plainText(std::int64_t{m_firstRow} + 1) + ": " + m_firstText;
    }

private:
    std::int64_t m_count = 0;
    std::int32_t m_firstRow = 0;
    std::string m_firstText;
};

/// A failure whose text says which file it is about.
class NamedFailure : public CommandFailure {
public:
    using CommandFailure::CommandFailure;
};

/// One file on its way through the program.
class BatchRun {
public:
    BatchRun(const BatchOptions& options, const BatchMachine& machine, Console& console)
        : m_options(options), m_machine(machine), m_console(console)
    {
    }

    void read();
    void layBaselines();
    void convert();
    void write();
    /// Warns about sensors without a baseline. False when no sensor was converted.
    [[nodiscard]] bool warn();
    void summarise(std::ostream& out) const;

private:
    [[nodiscard]] std::vector<bool> parameterColumns() const;
    /// A column counted from 1, counted from 0. @throws CommandFailure when the record does not have it
    [[nodiscard]] std::int16_t existing(std::int16_t column1, const char* what) const;
    void announceEquation();
    void convertSensor(Equation& equation, std::int32_t column, std::int32_t row, FaultCount& faults);
    [[nodiscard]] const std::string& label(std::int32_t sensor) const
    {
        return m_record.labels[static_cast<std::size_t>(m_sensors.column(sensor))];
    }

    const BatchOptions& m_options;
    const BatchMachine& m_machine;
    Console& m_console;
    Record m_record;
    Sensors m_sensors;
    ZeroFlowSettings m_zeroFlow;
};

void BatchRun::read()
{
    const MissingValues missing{m_options.blank, false, [this] { return m_options.blank; }};
    LoadedRecord loaded = readRecord(m_machine.files, m_options.input, m_options.inputType, missing, m_console);
    if (!loaded.layers.unconverted)
        throw NamedFailure("The file " + m_options.input +
                           " holds no unconverted layer, so there is nothing to convert. Save it with the "
                           "unconverted data, or start from the logger's own file.");
    if (!loaded.warning.empty()) m_console.say(loaded.warning);
    static_cast<DataSet&>(m_record) = std::move(loaded.data);
}

std::vector<bool> BatchRun::parameterColumns() const
{
    if (m_options.parameters) return chosenColumns(*m_options.parameters, m_record.labels);
    std::vector<bool> columns(m_record.labels.size(), false);
    for (const int column1 : {1, 2, int{m_options.vpdColumn}, int{m_options.parColumn}})
        if (m_record.hasColumn(column1 - 1)) columns[static_cast<std::size_t>(column1 - 1)] = true;
    return columns;
}

std::int16_t BatchRun::existing(std::int16_t column1, const char* what) const
{
    if (!m_record.hasColumn(column1 - 1)) throw noSuchColumn(what, plainText(column1), m_record);
    return static_cast<std::int16_t>(column1 - 1);
}

void BatchRun::layBaselines()
{
    m_record.parameters = parameterColumns();
    m_zeroFlow = m_options.zeroFlow;
    m_zeroFlow.vpdCol = existing(m_options.vpdColumn, "VPD");
    m_zeroFlow.parCol = existing(m_options.parColumn, "PAR");
    if (m_record.sensorColumns().empty()) throw noSensorColumn();
    static_cast<void>(
        tarvelint::layBaselines(m_record, m_sensors, m_zeroFlow, [this](const char* text) { m_console.status(text); }));
}

/// What the user should know about an equation that is not taken as it was typed, or not as it was meant.
void BatchRun::announceEquation()
{
    const BatchEquation& equation = *m_options.equation;
    if (equation.text().empty())
        m_console.say("the equation is empty, so every converted value is 0");
    else if (!equation.repaired)
        m_console.say("the equation cannot be repaired, because nothing stands before a \")\"; it is taken as typed");
    else if (equation.text() != equation.typed && !m_options.quiet)
        m_console.say("the equation reads " + equation.text());
}

void BatchRun::convert()
{
    if (!m_options.equation) return;
    announceEquation();
    m_console.status("Converting with the equation");
    Equation equation(m_options.equation->text());
    std::vector<FaultCount> faults(static_cast<std::size_t>(m_sensors.count()));
    std::vector<RowSpan> laid;
    laid.reserve(faults.size());
    for (std::int32_t sensor = 0; sensor < m_sensors.count(); ++sensor) laid.push_back(laidRows(m_sensors, sensor));
    // The sensors of a row are neighbours in memory: taken row by row, a record larger than the cache is fetched once.
    for (std::int32_t row = 0; row < m_record.lines; ++row) {
        for (std::size_t i = 0; i < laid.size(); ++i)
            if (row >= laid[i].first && row <= laid[i].last)
                convertSensor(equation, m_sensors.column(static_cast<std::int32_t>(i)), row, faults[i]);
        m_console.row(row + 1);
    }
    for (std::int32_t sensor = 0; sensor < m_sensors.count(); ++sensor) {
        const std::string report = faults[static_cast<std::size_t>(sensor)].report();
        if (!report.empty()) m_console.say(label(sensor) + ": " + report);
    }
}

void BatchRun::convertSensor(Equation& equation, std::int32_t column, std::int32_t row, FaultCount& faults)
{
    if (!hasBaseline(m_record, column, row)) return;
    faults.row = row;
    const ConversionRule rule{m_options.baselineIsHigh, m_record.blank};
    convertCell(m_record, column, row,
                [&](double reading, double baseline) { return equation.evaluate(reading, baseline, rule, faults); });
}

void BatchRun::write()
{
    m_console.status("Status: writing file");
    try {
        writeRecord(m_machine.files, m_options.output, m_options.outputType, m_record, m_options.choices,
                    {m_machine.style.longDate(), m_machine.style.grouping()}, m_console);
    } catch (const FileFailure& failure) {
        throw NamedFailure("The file " + m_options.output + " cannot be written: " + failure.what() +
                           ". What was there before is untouched.");
    }
}

bool BatchRun::warn()
{
    bool anyConverted = false;
    for (std::int32_t sensor = 0; sensor < m_sensors.count(); ++sensor) {
        anyConverted = anyConverted || isConverted(m_record, m_sensors, sensor);
        const std::int64_t points = countPoints(m_sensors, sensor);
        if (points < 2)
            m_console.say(label(sensor) + ": " + plainText(points) +
                          " points are too few for a baseline, so nothing was converted; " +
                          lowestBesideLimits(m_record, m_zeroFlow));
    }
    if (!anyConverted) m_console.say(m_options.input + ": no sensor was converted");
    return anyConverted;
}

void BatchRun::summarise(std::ostream& out) const
{
    const std::vector<SensorCount> counts = countRows(m_record, m_sensors);
    for (std::size_t i = 0; i < counts.size(); ++i)
        out << printable(label(static_cast<std::int32_t>(i))) << ": " << summaryLine(counts[i]) << '\n';
    out.flush();
    if (!out) throw NamedFailure("The summary cannot be written; the file " + m_options.output + " is complete.");
}

} // namespace

int runBatch(const BatchOptions& options, const BatchMachine& machine, std::ostream& out, std::ostream& err,
             bool terminal)
{
    Console console(err, machine.clock, terminal && !options.quiet);
    try {
        BatchRun run(options, machine, console);
        run.read();
        run.layBaselines();
        run.convert();
        run.write();
        const bool anyConverted = run.warn();
        console.endProgress();
        if (!options.quiet) run.summarise(out);
        return anyConverted ? kDone : kDataFault;
    } catch (const std::bad_alloc&) {
        console.say("There is not enough memory for the file " + options.input + ".");
    } catch (const NamedFault& fault) {
        console.say(fault.what());
    } catch (const NamedFailure& failure) {
        console.say(failure.what());
    } catch (const std::exception& failure) {
        // A loop over many files has to tell which one it was.
        console.say(options.input + ": " + failure.what());
    }
    return kDataFault;
}

} // namespace tarvelint
