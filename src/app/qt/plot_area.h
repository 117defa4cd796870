// SPDX-License-Identifier: MIT
#pragma once

#include "app/qt/plot_surface.h"

#include <QWidget>

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

Q_SIGNALS:
    /// The screen's scale changed: nothing of the old pixels is left.
    void scaleChanged();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent*) override { fitSurface(); }

private:
    int m_index;
    PlotSurface m_surface;
};

} // namespace tarvelint
