// SPDX-License-Identifier: MIT
#pragma once

#include <QProxyStyle>

namespace tarvelint {

/// The desktop's style with what the program asks for everywhere: Cancel stands left of OK in every dialog, whatever
/// desktop theme is in force, buttons of boxes bear no icons, and check boxes in small print have small boxes.
class ProgramStyle : public QProxyStyle {
    Q_OBJECT
public:
    using QProxyStyle::QProxyStyle;

    [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    [[nodiscard]] int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                                QStyleHintReturn* returned) const override;
};

/// Gives the application that style, once.
void useProgramStyle();

} // namespace tarvelint
