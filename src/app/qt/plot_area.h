// SPDX-License-Identifier: MIT
#pragma once

#include "app/qt/plot_surface.h"
#include "edit/plot_pointer.h"

#include <QWidget>

#include <optional>

namespace tarvelint {

/// `Picture1(index)`: shows its surface's pixels and says when they have to be drawn again. Draws nothing itself.
class PlotArea : public QWidget {
    Q_OBJECT
public:
    /// @param index  0 main area, 1 companion area
    explicit PlotArea(int index, QWidget* parent = nullptr);

    /// What is drawn on it shows at the next repaint.
    [[nodiscard]] PlotSurface& surface() { return m_surface; }
    /// Gives the surface the area's size, also while the window is hidden; the pixels that still fit stay.
    void fitSurface() { m_surface.resize(size(), devicePixelRatioF()); }

    /// The keyboard's row cursor, drawn over the plot; none while keys do not point at a row.
    void showRowCursor(std::optional<int> x);

Q_SIGNALS:
    // The pointer on the area; `x` in plot units from its left edge.
    void pressed(const PointerPress& press);
    void moved(float x, bool isButtonDown);
    void released(PointerButton button, float x);
    void doubleClicked(const PointerPress& press);
    void left();
    /// The screen's scale changed: nothing of the old pixels is left.
    void scaleChanged();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent*) override { fitSurface(); }
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent*) override { Q_EMIT left(); }

private:
    int m_index;
    PlotSurface m_surface;
    std::optional<int> m_cursor;
};

} // namespace tarvelint
