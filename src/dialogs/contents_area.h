// SPDX-License-Identifier: MIT
#pragma once

#include <QScrollArea>

namespace tarvelint {

/// What a dialog shows above its buttons, in the size it wants. In less room than that it scrolls.
class ContentsArea : public QScrollArea {
public:
    /// Takes `contents`, which has a layout.
    explicit ContentsArea(QWidget* contents);

    /// Asks for no more than `room` from now on.
    void setRoom(QSize room);
    /// Scrolls to a widget of the contents, unless it is larger than what can be seen.
    void bringIntoView(QWidget* widget);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

private:
    [[nodiscard]] QSize withinRoom(QSize wanted) const;

    QSize m_room{QWIDGETSIZE_MAX, QWIDGETSIZE_MAX};
};

} // namespace tarvelint
