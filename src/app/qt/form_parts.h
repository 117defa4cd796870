// SPDX-License-Identifier: MIT
#pragma once

#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>

namespace tarvelint {

/// One line that gives way in a narrow window: its text ends in "..." there, and its tip has it whole.
class ElidedLabel : public QLabel {
    Q_OBJECT
public:
    using QLabel::QLabel;
    [[nodiscard]] QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// A drop-down list that the wheel does not change while it is closed: it may just lie under the pointer.
class CalmList : public QComboBox {
    Q_OBJECT
public:
    using QComboBox::QComboBox;

protected:
    void wheelEvent(QWheelEvent* event) override;
};

/// The two plots and the bar below them. Both plots are equally high: an odd pixel stays free.
class PlotGrid : public QGridLayout {
    Q_OBJECT
public:
    using QGridLayout::QGridLayout;
    void setGeometry(const QRect& place) override;
};

/// A thin line around a plot; it takes the highlight colour while keys go to the plot.
class PlotFrame : public QFrame {
    Q_OBJECT
public:
    /// @param plot  becomes the frame's child
    explicit PlotFrame(QWidget* plot);
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void setLine(bool focused) { setForegroundRole(focused ? QPalette::Highlight : QPalette::Mid); }
};

} // namespace tarvelint
