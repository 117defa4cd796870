// SPDX-License-Identifier: MIT
//
// A year every quarter of an hour in a window of 2560 x 1440: fitting and drawing both plot areas at each zoom, a step
// of scrolling until the widgets show it, and a step of the thumb until the program's own window shows it. Beside it,
// the least that any drawing must do: erase both areas. TARVELINT_RECORD names a record to take instead of the made-up
// one: its first four columns are left out.

#include "app/qt/frm_main.h"
#include "app/qt/plot_area.h"
#include "app/qt/window_list.h"
#include "data/data_file_reader.h"
#include "support/doubles.h"
#include "support/grid.h"
#include "view/plot_fit.h"
#include "view/plot_redraw.h"
#include "window/window.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QScrollBar>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace tarvelint::test {
namespace {

constexpr QSize kPlot(2493, 578);
constexpr std::int32_t kRows = 35040;
constexpr std::int32_t kDay = 96;
constexpr std::int32_t kWeather = 0; // columns of the record drawn
constexpr std::int32_t kSensor = 1;

class Silent : public Progress {
public:
    void status(const std::string&) override {}
    void row(std::int32_t) override {}
};

/// VPD and probe difference over a year of fair days and a noise of a few hundredths, with gaps.
std::vector<std::vector<double>> madeUpYear()
{
    std::mt19937 engine{3};
    std::vector<std::vector<double>> columns(2);
    for (std::int32_t row = 0; row < kRows; ++row) {
        const double light = std::max(0.0, std::sin((row % kDay - 24) * 3.14159265 / 48));
        const double noise = static_cast<double>(engine()) / 4294967296.0;
        columns[kWeather].push_back(2.4 * light + 0.05 * noise);
        columns[kSensor].push_back(row % 4999 == 0 ? 99999 : 9.5 - 1.6 * light + 0.05 * noise);
    }
    return columns;
}

std::vector<std::vector<double>> year()
{
    const char* path = std::getenv("TARVELINT_RECORD");
    if (!path) return madeUpYear();
    std::ifstream file(path, std::ios::binary);
    DataSet data;
    Silent silent;
    DataFileReader(file, path, ',', data, silent, [] { return 99999; }).load();
    std::vector<std::vector<double>> columns;
    for (const std::int32_t column : {3, 4}) columns.push_back(columnOf(data, kUnconverted, column));
    return columns;
}

struct Around {
    MemorySettings settings;
    FixedStyle style;
    MemoryFiles files;
    ManualClock clock;
};

/// Daily points of the sensor, and a lull every night.
void addBaseline(Window& window)
{
    window.view.Turbo = true;
    window.view.curSensor = 0;
    window.sensors.assign({kSensor}, window.record.lines);
    for (std::int32_t row = 0; row < window.record.lines; ++row) {
        if (row % kDay == 20) window.sensors.setPoint(0, row, true);
        window.record.lullFlags[static_cast<std::size_t>(row)] = row % kDay < 22;
    }
}

/// The year on surfaces of its caller: a sensor with daily points and lulls above its VPD, both in automatic range.
struct DrawnYear : FakeUi, Around, Window {
    DrawnYear(Surface& main, Surface& companion)
        : Window(*this, *this, Environment{settings, style, files, clock}), areas{&main, &companion}
    {
        setReadings(record, year());
        view.chosenColumn = {kSensor, kWeather};
        setEnabled(Control::Picture1_0, true);
        setEnabled(Control::Picture1_1, true);
        setChecked(Control::scaleBox0, true);
        setChecked(Control::scaleBox1, true);
        addBaseline(*this);
        setScrollRange(record.lines, 1, 1);
        moveScrollValue(record.lines / 2);
        view.selStart = record.lines / 2 + 40;
        view.selEnd = record.lines / 2 + 90;
    }
    void zoom(std::int64_t factor)
    {
        view.zoomFactor = static_cast<std::int16_t>(factor);
        view.zoomLevel = static_cast<std::int16_t>(std::countr_zero(static_cast<std::uint64_t>(factor)));
    }
    /// Back and forth, a row at a time.
    void step()
    {
        m_forward = !m_forward;
        setScrollValue(view.HScroll1.Value + (m_forward ? 1 : -1));
    }

    Surface& surface(int index) override { return *areas.at(static_cast<std::size_t>(index)); }
    void redraw(int index, bool clear) override { rendering.redraw(index, clear); }
    void updateCues() override {}
    void undoSave(std::int32_t) override {}
    void setPoint(std::int32_t, std::int32_t, bool) override {}
    void convertSelection(bool) override {}
    void doScroll(float, bool) override {}
    void ExtendSelection(float) override {}
    bool skip(bool) override { return false; }

    std::array<Surface*, 2> areas;
    PlotRedraw rendering{*this};

private:
    bool m_forward = false;
};

/// The year as the program saves a record, so that it opens without questions.
std::string savedYear()
{
    const std::vector<std::vector<double>> columns = year();
    const std::size_t rows = columns.front().size();
    std::ostringstream text;
    text << "Tarvelint output: today,unconverted,2 columns," << rows
         << " rows each,with labels,blank='.'\r\nVPD,S1,\r\n";
    for (std::size_t row = 0; row < rows; ++row) {
        for (const auto& column : columns) (column[row] == 99999 ? text << '.' : text << column[row]) << ',';
        text << "\r\n";
    }
    return text.str();
}

/// The program's own window with the year opened in it, and a hand on the thumb of its scroll bar.
class YearWindow : public QObject, Around {
public:
    YearWindow()
    {
        files.contents["year.csv"] = savedYear();
        m_window.toolkit().askForFile = [](QWidget*, const FileDialog&, bool) {
            return ChosenFile{"year.csv", FileType::comma};
        };
        for (const int index : {0, 1}) form().plot(index).installEventFilter(this);
        form().show();
        untilPainted();
        QCoreApplication::processEvents(); // once painted, it comes onto the screen, which may be smaller
        form().resize(2560, 1440);
        m_window.command([this] { core().files.mnuFileOpen_Click(); });
        m_window.command([this] {
            core().lists.choose(0, kSensor);
            core().lists.choose(1, kWeather);
            addBaseline(core());
        });
        form().scrollBar().setSliderDown(true);
        QCoreApplication::processEvents();
    }
    void zoom(std::int64_t factor)
    {
        while (core().view.zoomFactor < factor) m_window.command([this] { core().scrolling.mnuViewZoomIn_Click(); });
        form().scrollBar().setRange(0, core().view.HScroll1.Max); // which is not shown under a hand
        QCoreApplication::processEvents();
    }
    /// Moves the thumb on, at the end back to the beginning; both plots have been painted when it returns.
    void moveThumb()
    {
        constexpr int kRowsOn = 101;
        QScrollBar& bar = form().scrollBar();
        m_paints = {};
        bar.setSliderPosition((bar.sliderPosition() + kRowsOn) % bar.maximum());
        untilPainted();
    }
    /// Three points, one at each end of the record and one in the middle of it and of the view.
    void placePoints()
    {
        m_window.command([this] {
            View& view = core().view;
            const std::int32_t lines = core().record.lines;
            view.Turbo = true;
            view.lineMode = view.Sloppy = false;
            core().sensors.assign({view.curCol()}, lines);
            core().lists.varList_Change(0);
            m_point = lines / 2;
            for (const std::int32_t row : {0, m_point, lines - 1}) core().setPoint(row, -1, false);
            core().setScrollValue(m_point - kPlot.width() / 2);
        });
        QCoreApplication::processEvents();
    }
    /// Takes the point in the middle by the pointer, drags it a little and drops it; returns once that is painted.
    void dropPoint()
    {
        const int from = m_point - core().view.HScroll1.Value;
        const int to = from + (m_dropsLeft ? -4 : 4);
        m_dropsLeft = !m_dropsLeft;
        pointer(QEvent::MouseButtonPress, from, Qt::LeftButton, Qt::LeftButton);
        pointer(QEvent::MouseMove, to, Qt::NoButton, Qt::LeftButton);
        m_paints = {};
        pointer(QEvent::MouseButtonRelease, to, Qt::LeftButton, Qt::NoButton);
        untilPainted();
        m_point += to - from;
    }
    /// The point stands where it was dropped last, and both segments beside it are drawn from there.
    [[nodiscard]] bool holdsThePoint()
    {
        return core().sensors.isPoint(0, m_point) &&
               core().record.values(kBaseline, core().view.curCol(), m_point) ==
                   core().record.values(kUnconverted, core().view.curCol(), m_point);
    }
    /// The record lies in a window of that size, which is too narrow for it, from the row on where the thumb stands.
    [[nodiscard]] bool followsTheThumb()
    {
        return core().record.lines > kPlot.width() && form().plot(0).width() == kPlot.width() &&
               core().view.HScroll1.Value == form().scrollBar().sliderPosition();
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) ++m_paints[watched == &form().plot(0) ? 0 : 1];
        return false;
    }

private:
    void pointer(QEvent::Type type, int x, Qt::MouseButton button, Qt::MouseButtons buttons)
    {
        const QPointF at(x, kPlot.height() / 2.0);
        QMouseEvent event(type, at, form().plot(0).mapToGlobal(at), button, buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(&form().plot(0), &event);
    }
    void untilPainted() const
    {
        while (m_paints[0] == 0 || m_paints[1] == 0) QCoreApplication::processEvents();
    }
    Engine& core() { return m_window.core(); }
    MainForm& form() { return m_window.form(); }

    StringTable m_table;
    WindowList m_windows{Environment{settings, style, files, clock}, m_table};
    FrmMain& m_window = m_windows.create();
    std::array<int, 2> m_paints{};
    std::int32_t m_point = 0;
    bool m_dropsLeft = false;
};

void eraseBoth(benchmark::State& state)
{
    PlotSurface main([] {});
    PlotSurface companion([] {});
    main.resize(kPlot, 1);
    companion.resize(kPlot, 1);
    for (auto _ : state) {
        main.erase();
        companion.erase();
        benchmark::ClobberMemory();
    }
}
BENCHMARK(eraseBoth)->Unit(benchmark::kMillisecond);

void fitBoth(benchmark::State& state)
{
    RecordingSurface nothing;
    DrawnYear window(nothing, nothing);
    window.zoom(state.range(0));
    const PlotPlace place{0, float(kPlot.width()), float(kPlot.height())};
    for (auto _ : state)
        for (const int index : {0, 1})
            benchmark::DoNotOptimize(
                fitPlot(window.record, window.view, {index, place.mainWidth, place.height}, {"0", "1"}, ","));
}
BENCHMARK(fitBoth)->RangeMultiplier(2)->Range(1, 8)->Unit(benchmark::kMillisecond);

void redrawBoth(benchmark::State& state)
{
    PlotSurface main([] {});
    PlotSurface companion([] {});
    main.resize(kPlot, 1);
    companion.resize(kPlot, 1);
    DrawnYear window(main, companion);
    window.zoom(state.range(0));
    for (auto _ : state) {
        window.redrawBoth();
        benchmark::ClobberMemory();
    }
}
BENCHMARK(redrawBoth)->RangeMultiplier(2)->Range(1, 8)->Unit(benchmark::kMillisecond);

/// From the scroll bar's step until both widgets have painted their pixels on the window.
void scrollStepToThePaintedWidgets(benchmark::State& state)
{
    QWidget window;
    PlotArea main(0, &window);
    PlotArea companion(1, &window);
    window.resize(kPlot.width(), 2 * kPlot.height());
    main.setGeometry(QRect({0, 0}, kPlot));
    companion.setGeometry(QRect({0, kPlot.height()}, kPlot));
    window.show();
    QCoreApplication::processEvents();
    DrawnYear shown(main.surface(), companion.surface());
    shown.zoom(state.range(0));
    for (auto _ : state) {
        shown.step();
        main.repaint();
        companion.repaint();
    }
}
BENCHMARK(scrollStepToThePaintedWidgets)->RangeMultiplier(2)->Range(1, 8)->Unit(benchmark::kMillisecond);

/// The time that so large a part of the steps has taken at most.
double quantile(std::vector<double>& times, double part)
{
    const auto at = times.begin() + static_cast<std::ptrdiff_t>(part * static_cast<double>(times.size() - 1));
    std::ranges::nth_element(times, at);
    return *at;
}

/// From a step of the thumb until the program's window has painted both plots.
void thumbStepToThePaintedWindow(benchmark::State& state)
{
    YearWindow window;
    window.zoom(state.range(0));
    std::vector<double> milliseconds;
    for (auto _ : state) {
        QElapsedTimer watch;
        watch.start();
        window.moveThumb();
        milliseconds.push_back(static_cast<double>(watch.nsecsElapsed()) / 1e6);
    }
    if (!window.followsTheThumb()) state.SkipWithError("the window does not follow the thumb");
    state.counters["median_ms"] = quantile(milliseconds, 0.5);
    state.counters["p95_ms"] = quantile(milliseconds, 0.95);
}
BENCHMARK(thumbStepToThePaintedWindow)
    ->RangeMultiplier(2)
    ->Range(1, 8)
    ->Iterations(1000)
    ->Unit(benchmark::kMillisecond);

/// From the release of a dragged point between two segments of half a year each until both plots are painted.
void dropAPointToThePaintedWindow(benchmark::State& state)
{
    YearWindow window;
    window.placePoints();
    std::vector<double> milliseconds;
    for (auto _ : state) {
        QElapsedTimer watch;
        watch.start();
        window.dropPoint();
        milliseconds.push_back(static_cast<double>(watch.nsecsElapsed()) / 1e6);
    }
    if (!window.holdsThePoint()) state.SkipWithError("the point does not stand where it was dropped");
    state.counters["median_ms"] = quantile(milliseconds, 0.5);
    state.counters["p95_ms"] = quantile(milliseconds, 0.95);
}
BENCHMARK(dropAPointToThePaintedWindow)->Iterations(300)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace tarvelint::test

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
