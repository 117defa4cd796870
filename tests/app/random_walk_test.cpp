// SPDX-License-Identifier: MIT
#include "baseline/zero_flow.h"
#include "shell_window.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <optional>
#include <random>
#include <sstream>

namespace tarvelint::test {
namespace {

constexpr std::int32_t kRows = 120;
constexpr std::int16_t kColumns = 5;

/// The three layers of a column and the points of its sensor, as they stood at some moment.
struct Snapshot {
    std::int32_t column = -1;
    std::array<std::vector<double>, 3> layers;
    std::vector<bool> points;

    [[nodiscard]] double at(int layer, std::int32_t row) const
    {
        return layers[static_cast<std::size_t>(layer - 1)][static_cast<std::size_t>(row)];
    }
    double& at(int layer, std::int32_t row)
    {
        return layers[static_cast<std::size_t>(layer - 1)][static_cast<std::size_t>(row)];
    }
};

Snapshot taken(const Record& record, const Sensors& sensors, std::int32_t sensor, std::int32_t column)
{
    Snapshot snapshot;
    snapshot.column = column;
    for (int layer = 1; layer <= 3; ++layer)
        for (std::int32_t r = 0; r < record.lines; ++r)
            snapshot.layers[static_cast<std::size_t>(layer - 1)].push_back(record.values(layer, column, r));
    for (std::int32_t r = 0; r < record.lines; ++r) snapshot.points.push_back(sensors.isPoint(sensor, r));
    return snapshot;
}

/// The rules of a point set, moved or removed, told once more on a snapshot.
class PointRules {
public:
    PointRules(Snapshot& column, double blank) : m_column(column), m_blank(blank) {}

    void set(std::int32_t to, std::int32_t from)
    {
        if (from > -1) m_column.points[index(from)] = false;
        m_column.points[index(to)] = true;
        const auto left = before(to);
        const auto right = after(to);
        left ? segment(*left, to) : clear(0, to - 1);
        right ? segment(to, *right) : clear(to + 1, kRows - 1);
    }
    void remove(std::int32_t row)
    {
        m_column.points[index(row)] = false;
        const auto left = before(row);
        const auto right = after(row);
        if (left && right) return segment(*left, *right);
        clear(left ? *left + 1 : 0, left || !right ? kRows - 1 : *right - 1);
    }

private:
    static std::size_t index(std::int32_t row) { return static_cast<std::size_t>(row); }
    [[nodiscard]] std::optional<std::int32_t> before(std::int32_t row) const
    {
        while (--row >= 0)
            if (m_column.points[index(row)]) return row;
        return std::nullopt;
    }
    [[nodiscard]] std::optional<std::int32_t> after(std::int32_t row) const
    {
        while (++row < kRows)
            if (m_column.points[index(row)]) return row;
        return std::nullopt;
    }
    void clear(std::int32_t first, std::int32_t last)
    {
        for (std::int32_t r = first; r <= last; ++r) {
            m_column.at(kBaseline, r) = 0;
            m_column.at(kConverted, r) = m_blank;
        }
    }
    void segment(std::int32_t left, std::int32_t right)
    {
        const double first = m_column.at(kUnconverted, left);
        const double last = m_column.at(kUnconverted, right);
        if (first == m_blank || last == m_blank) return;
        const double slope = (last - first) / double(right - left);
        double b = first;
        for (std::int32_t r = left; r <= right; ++r) {
            const double X = m_column.at(kUnconverted, r);
            if (X == m_blank) continue;
            const double flux = X > 0 && b > 0 ? 119 * std::pow(b / (X > b ? b : X) - 1, 1.23) : m_blank;
            m_column.at(kBaseline, r) = std::isfinite(b) ? b : m_blank;
            m_column.at(kConverted, r) = std::isfinite(flux) ? flux : m_blank;
            b = b + slope;
        }
    }

    Snapshot& m_column;
    double m_blank;
};

/// A window that checks each point it sets against the rules, and keeps what each copy for undo has to bring back.
class Watched : public Engine {
public:
    using Engine::Engine;
    std::optional<Snapshot> copied;
    std::int32_t copiedFrom = 0;
    std::int32_t copiedTo = -1;
    std::string fault;

    void undoSave(std::int32_t column) override
    {
        if (record.hasColumn(column) && view.selEnd >= view.selStart) {
            copied = taken(record, sensors, -1, column);
            copiedFrom = view.selStart;
            copiedTo = view.selEnd;
        }
        Engine::undoSave(column);
    }
    void setPoint(std::int32_t toPoint, std::int32_t fromPoint, bool dlt) override
    {
        Snapshot expected = taken(record, sensors, view.curSensor, view.curCol());
        const bool isPossible = sensors.has(view.curSensor);
        Engine::setPoint(toPoint, fromPoint, dlt);
        if (!isPossible) return;
        PointRules rules(expected, record.blank);
        dlt ? rules.remove(toPoint) : rules.set(toPoint, fromPoint);
        const Snapshot found = taken(record, sensors, view.curSensor, view.curCol());
        if (found.layers != expected.layers || found.points != expected.points)
            fault = "a point set otherwise than the rules say";
    }
};

/// One thing a user does, with two numbers that say where.
struct Step {
    int what;
    int where;
    int how;
};

std::vector<Step> randomSteps(unsigned seed, int count)
{
    std::mt19937 random(seed);
    std::uniform_int_distribution what(0, 31);
    std::uniform_int_distribution where(-20, 70);
    std::uniform_int_distribution how(0, 99);
    std::vector<Step> steps;
    for (int i = 0; i < count; ++i) steps.push_back({what(random), where(random), how(random)});
    return steps;
}

/// Walks over a random record of its own.
class Walk : public Ground {
public:
    explicit Walk(unsigned seed)
    {
        window.lifecycle.Form_Load();
        fakeUi.surfaces[0].width = 40;
        fakeUi.surfaces[1].width = 40;
        std::mt19937 random(seed);
        std::uniform_real_distribution value(-1.0, 12.0);
        std::bernoulli_distribution isGap(0.1);
        std::string text = "Day,Time,S1,S2,S3\n";
        for (int r = 0; r < kRows; ++r) {
            std::ostringstream row;
            row << "180," << r;
            for (int s = 0; s < 3; ++s) row << ',' << (isGap(random) ? 99999.0 : value(random));
            text += row.str() + '\n';
        }
        files.contents["/data/run.csv"] = text;
        fakeUi.openChoices.emplace_back(ChosenFile{"/data/run.csv", FileType::comma});
        window.boundary.command([this] { window.files.mnuFileOpen_Click(); });
        window.record.parameters = {true, true, false, false, false};
        window.lists.choose(0, 2);
        fakeUi.onPendingEvents = [this] { window.view.buttonReleased = true; };
    }

    /// What went wrong with a step; empty when nothing did.
    std::string take(const Step& step)
    {
        for (auto& surface : fakeUi.surfaces) surface.ops.clear();
        fakeUi.changes.clear();
        fakeUi.focused.clear();
        fakeUi.messages.clear();
        fakeUi.answers.assign(500, step.how % 2 == 0 ? Answer::ok : Answer::cancel);
        fakeUi.typedValues.assign(1, step.how < 30 ? std::nullopt : std::optional(std::to_string(step.how - 40)));
        act(step);
        if (!window.fault.empty()) return window.fault;
        for (const Message& message : fakeUi.messages)
            if (message.icon == Icon::critical && message.text.find("ivision") == std::string::npos)
                return message.text;
        return broken();
    }

private:
    FakeApplication application;
    Watched window{fakeUi, fakeUi, Environment{settings, style, files, clock}, application};

    void command(const std::function<void()>& body) { window.boundary.command(body); }
    void gesture(const std::function<void()>& body) { window.boundary.gesture(body); }

    void act(const Step& step)
    {
        const auto x = static_cast<float>(step.where) + 0.5F * static_cast<float>(step.how % 2);
        PlotPointer& pointing = window.pointing;
        switch (step.what) {
        case 0:
        case 1:
        case 2: return gesture([&] { pointing.Picture1_MouseDown({PointerButton::left, step.how % 4 == 0, x}); });
        case 3:
        case 4:
        case 5:
        case 6: return gesture([&] { pointing.Picture1_MouseMove(x); });
        case 7:
        case 8:
        case 9: return gesture([&] { pointing.Picture1_MouseUp(x); });
        case 10: return gesture([&] { pointing.Picture1_DblClick(); });
        case 11: return gesture([&] { pointing.Picture1_MouseDown({PointerButton::right, false, x}); });
        case 12: return window.boundary.record([&] { pointing.endGesture(); });
        case 13: return command([&] { window.keys.moveRowCursor(step.where / 4); });
        case 14: return command([&] { window.keys.pressEnter(step.how % 3 == 0); });
        case 15: return command([&] { window.keys.doubleClickHere(); });
        case 16: return command([&] { window.keys.editValueHere(); });
        case 17: return command([&] { window.tools.mnuToolsDelete_Click(); });
        case 18: return command([&] { window.tools.mnuToolsInterpolate_Click(); });
        case 19: return undo();
        case 20: return command([&] { window.lists.choose(0, step.how % kColumns); });
        case 21: return command([&] { window.scrolling.turnWheel(step.where * 24, step.how % 2 == 0); });
        case 22: return command([&] { window.selection.mnuEditSelectAll_Click(); });
        case 23: return command([&] { window.conversion.mnuToolsConvert_Click(); });
        case 24: return command([&] { window.recalculation.mnuToolsRecalculateSelection_Click(); });
        case 25: return command([&] { window.blockMaxima.baseButton_Click(); });
        case 26: return command([&] { step.how < 50 ? findZeroFlow() : workByHand(); });
        default: return command([&] { window.keys.Form_KeyDown(anyKey(step)); });
        }
    }

    void findZeroFlow()
    {
        for (std::size_t r = 0; r < window.record.lullFlags.size(); ++r) window.record.lullFlags[r] = r % 30 < 6;
        window.view.Turbo = true;
        window.view.lineMode = window.view.Sloppy = false;
        getBase(window.record, window.sensors, [](const char*) {});
        window.lists.varList_Change(0);
    }
    void workByHand()
    {
        window.view.Turbo = false;
        window.view.lineMode = window.view.Sloppy = true;
    }

    static KeyCode anyKey(const Step& step)
    {
        constexpr std::array kKeys{KeyCode::escape, KeyCode::space, KeyCode::left, KeyCode::up,   KeyCode::right,
                                   KeyCode::down,   KeyCode::m,     KeyCode::v,    KeyCode::plus, KeyCode::minus};
        return kKeys[static_cast<std::size_t>(step.how) % kKeys.size()];
    }

    void undo()
    {
        if (!window.isEnabled(Control::mnuEditUndo) || window.view.isHeld) return;
        const Snapshot& copy = *window.copied;
        const Snapshot before = taken(window.record, window.sensors, -1, copy.column);
        command([this] { window.undo.mnuEditUndo_Click(); });
        for (int layer = 1; layer <= 3; ++layer)
            for (std::int32_t r = 0; r < kRows; ++r) {
                const bool wasCopied = r >= window.copiedFrom && r <= window.copiedTo;
                if (window.record.values(layer, copy.column, r) != (wasCopied ? copy : before).at(layer, r))
                    window.fault = "undo left another value in row " + std::to_string(r);
            }
    }

    static bool isRow(std::int32_t row) { return row >= 0 && row < kRows; }

    /// Whatever was done, this holds.
    [[nodiscard]] std::string broken() const
    {
        const View& view = window.view;
        if (window.record.lines != kRows || window.record.columns != kColumns) return "the record has another size";
        if (view.selStart < 0 || view.selStart >= kRows || view.selEnd < -1 || view.selEnd >= kRows)
            return "a selection beside the record";
        if (!isRow(view.lastClick) || !isRow(view.hoverRow)) return "an anchor or hover row beside the record";
        if (view.rowCursor < -1 || view.rowCursor >= kRows) return "a row cursor beside the record";
        if (view.markRow != -1 && !window.sensors.isPoint(view.curSensor, view.markRow))
            return "a mark on a row without a point";
        if (view.grabbedPoint != -1 && !window.sensors.isPoint(view.curSensor, view.grabbedPoint))
            return "a point in hand that is none";
        if (view.HScroll1.Value < view.HScroll1.Min || view.HScroll1.Value > view.HScroll1.Max)
            return "a scroll bar beside its range";
        for (int layer = 1; layer <= 3; ++layer)
            for (std::int32_t r = 0; r < kRows; ++r)
                if (!std::isfinite(window.record.values(layer, view.curCol(), r))) return "a value that is not finite";
        return {};
    }
};

/// What went wrong on the way, and after how many steps.
std::pair<std::string, std::size_t> walked(unsigned seed, const std::vector<Step>& steps)
{
    Walk walk(seed);
    for (std::size_t i = 0; i < steps.size(); ++i)
        if (std::string fault = walk.take(steps[i]); !fault.empty()) return {fault, i + 1};
    return {};
}

/// The failing walk without the steps that it fails without.
std::vector<Step> shortened(unsigned seed, std::vector<Step> steps)
{
    for (std::size_t piece = steps.size() / 2; piece > 0; piece /= 2)
        for (std::size_t at = 0; at + piece <= steps.size();) {
            std::vector<Step> shorter = steps;
            shorter.erase(shorter.begin() + std::ptrdiff_t(at), shorter.begin() + std::ptrdiff_t(at + piece));
            if (walked(seed, shorter).first.empty())
                at += piece;
            else
                steps = std::move(shorter);
        }
    return steps;
}

TEST(RandomWalk, of100000StepsKeepsTheRecordWhole)
{
    const char* given = std::getenv("TARVELINT_RANDOM_SEED");
    const auto first = static_cast<unsigned>(given != nullptr ? std::atoi(given) : 20261122);
    for (unsigned seed = first; seed < first + 200; ++seed) {
        const std::vector<Step> steps = randomSteps(seed, 500);
        const auto [fault, count] = walked(seed, steps);
        if (fault.empty()) continue;
        std::ostringstream way;
        for (const Step& step : shortened(seed, {steps.begin(), steps.begin() + std::ptrdiff_t(count)}))
            way << " {" << step.what << ", " << step.where << ", " << step.how << "}";
        FAIL() << fault << "; seed " << seed << ", steps" << way.str();
    }
}

} // namespace
} // namespace tarvelint::test
