// SPDX-License-Identifier: MIT
#include "app/qt/program_style.h"

#include <QApplication>
#include <QDialogButtonBox>

namespace tarvelint {

namespace {

/// Check boxes whose print is smaller than this have a small box too.
constexpr int kSmallPrint = 11;

bool isSmallPrint(const QWidget* widget)
{
    return widget != nullptr && widget->font().pixelSize() > 0 && widget->font().pixelSize() < kSmallPrint;
}

} // namespace

int ProgramStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    constexpr int kSmallBox = 10;
    constexpr int kSmallGap = 2;
    const bool isBox = metric == PM_IndicatorWidth || metric == PM_IndicatorHeight;
    if (isBox && isSmallPrint(widget)) return kSmallBox;
    if (metric == PM_CheckBoxLabelSpacing && isSmallPrint(widget)) return kSmallGap;
    return QProxyStyle::pixelMetric(metric, option, widget);
}

int ProgramStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                            QStyleHintReturn* returned) const
{
    if (hint == SH_DialogButtonLayout) return QDialogButtonBox::GnomeLayout;
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
    return QProxyStyle::styleHint(hint, option, widget, returned);
}

void useProgramStyle()
{
    static const bool isInForce = [] {
        QApplication::setStyle(new ProgramStyle);
        return true;
    }();
    Q_UNUSED(isInForce)
}

} // namespace tarvelint
