// SPDX-License-Identifier: MIT
#pragma once

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

namespace tarvelint {

/// One line that gives way in a narrow place: its text ends in "..." there, and its tip has it whole.
class ElidedLabel : public QLabel {
    Q_OBJECT
public:
    using QLabel::QLabel;
    [[nodiscard]] QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }
    bool event(QEvent* event) override;

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

/// A box for one end of a plot's range, in small print; a number too long for it is told whole by its tip.
class RangeBox : public QLineEdit {
    Q_OBJECT
public:
    explicit RangeBox(QWidget* parent = nullptr);
};

/// `Frame1`: the plots and what belongs to them. A bar beside a plot shows that keys go there.
class PlotsFrame : public QWidget {
    Q_OBJECT
public:
    using QWidget::QWidget;
    /// Shows from now on whether this child has the focus, and takes its wheel, whether it is in use or not.
    void watch(QWidget* plot);
    /// The wheel turns over this child as over a plot.
    void takeWheelOf(QWidget* child) { child->installEventFilter(this); }
    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// The wheel or the touchpad moved over a plot, in use or not, in eighths of a degree, positive away from the hand.
    void wheelTurned(int eighthsOfDegrees, bool withCtrl);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void turn(const QWheelEvent& event);

    QList<QWidget*> m_plots;
};

/// A tip that shows all of a text as it stands, over several lines where it is long: markup in a text is part of it.
[[nodiscard]] QString wholeTextTip(const QString& text);

/// The small print beside the plots.
[[nodiscard]] QFont smallPrint(const QFont& font);

} // namespace tarvelint
