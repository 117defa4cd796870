// SPDX-License-Identifier: MIT
#pragma once

#include "desk.h"

#include "dialogs/change_form.h"

#include <functional>
#include <utility>

namespace tarvelint::test {

inline constexpr std::int32_t kS1 = 5; // 0-based column of the first sensor

/// The sample at zoom 1 from row 0 on, its first sensor in the main plot: row r lies at x = r.
class PlotDesk : public Desk {
public:
    explicit PlotDesk(bool preProcessed = false)
    {
        if (preProcessed) {
            openSample();
        } else {
            open(TARVELINT_SAMPLE);
            click("OKButton");
        }
        chooseFirstSensor();
        plot = find("Picture1_0");
    }
    void traditional() const
    {
        command([this] { core().pointing.mnuToolsMode_Click(); }); // from sloppy
    }
    [[nodiscard]] QPoint at(int row) const { return {row, plot->height() / 2}; }
    void press(int row, Qt::KeyboardModifiers modifiers = {})
    {
        isDown = true;
        QTest::mousePress(plot, Qt::LeftButton, modifiers, at(row));
    }
    /// Handed over directly: a pointer of the screen's that lies there already would not move.
    void move(int row) const { moveTo(at(row), isDown ? Qt::LeftButton : Qt::NoButton); }
    void moveTo(QPointF place, Qt::MouseButtons buttons) const
    {
        QMouseEvent event(QEvent::MouseMove, place, plot->mapToGlobal(place), Qt::NoButton, buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(plot, &event);
    }
    void release(int row)
    {
        isDown = false;
        QTest::mouseRelease(plot, Qt::LeftButton, {}, at(row));
    }
    [[nodiscard]] std::pair<int, int> selected() const { return {core().view.selStart, core().view.selEnd}; }
    [[nodiscard]] double reading(int row) const { return core().record.values(kUnconverted, kS1, row); }
    /// The first point at or after a row of the first sensor.
    [[nodiscard]] int pointFrom(int row) const { return core().sensors.pointFrom(0, row).value(); }

    QWidget* plot = nullptr;
    bool isDown = false;
};

inline ChangeForm* valueDialog()
{
    const auto widgets = QApplication::topLevelWidgets();
    for (QWidget* widget : widgets)
        if (auto* dialog = qobject_cast<ChangeForm*>(widget); dialog != nullptr && dialog->isVisible()) return dialog;
    return nullptr;
}

/// Plays the user in the value dialog once it is there; `play` runs while the window waits.
inline void inValueDialog(QObject& context, const std::function<void(ChangeForm&)>& play)
{
    auto* timer = new QTimer(&context);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, play] {
        ChangeForm* dialog = valueDialog();
        if (dialog == nullptr) return;
        timer->stop();
        play(*dialog);
    });
    timer->start(5);
}

} // namespace tarvelint::test
