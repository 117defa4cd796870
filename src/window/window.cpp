// SPDX-License-Identifier: MIT
#include "window/window.h"

#include <algorithm>
#include <cassert>

namespace tarvelint {

namespace {

constexpr const char* kOneClick = "Mode: one-click baseline";

} // namespace

template <class Self>
auto& Window::textOf(Self& self, Control which)
{
    return which == Control::FormulaBox ? self.conversionSettings.equation : self.state(which).text;
}

template <class Self>
auto& Window::checkOf(Self& self, Control which)
{
    switch (which) {
    case Control::highBox: return self.conversionSettings.baselineIsHigh;
    case Control::scaleBox0: return self.view.automaticRange[0];
    case Control::scaleBox1: return self.view.automaticRange[1];
    case Control::refCheck: return self.view.showsReference;
    case Control::labelBox: return self.view.showsLabels;
    case Control::mnuViewToolbar: return self.view.showsToolBar;
    case Control::mnuViewStatusBar: return self.view.showsStatusBar;
    default: return self.state(which).checked;
    }
}

bool Window::isVisible(Control which) const
{
    switch (which) {
    case Control::tbToolBar: return view.showsToolBar;
    case Control::sbStatusBar: return view.showsStatusBar;
    default: return state(which).visible;
    }
}

ControlState Window::control(Control which) const
{
    return {text(which), isEnabled(which), isChecked(which), isVisible(which)};
}

const std::string& Window::text(Control which) const
{
    return textOf(*this, which);
}

bool Window::isChecked(Control which) const
{
    return checkOf(*this, which);
}

void Window::setText(Control which, const std::string& text)
{
    std::string& present = textOf(*this, which);
    if (present == text) return;
    present = text;
    ui.changed(which);
}

void Window::setEnabled(Control which, bool enabled)
{
    if (state(which).enabled == enabled) return;
    state(which).enabled = enabled;
    ui.changed(which);
}

void Window::setChecked(Control which, bool checked)
{
    bool& present = checkOf(*this, which);
    if (present == checked) return;
    present = checked;
    ui.changed(which);
    if (which == Control::mnuViewToolbar) ui.changed(Control::tbToolBar);
    if (which == Control::mnuViewStatusBar) ui.changed(Control::sbStatusBar);
}

void Window::setVisible(Control which, bool visible)
{
    assert(which != Control::tbToolBar && which != Control::sbStatusBar); // their entries say so
    if (state(which).visible == visible) return;
    state(which).visible = visible;
    ui.changed(which);
}

void Window::setStatus(int panel, const std::string& text)
{
    if (panel == 1) return setText(Control::statusPanel1, text);
    m_panel2 = text;
    showPanel2();
}

void Window::setLongRecord(bool on)
{
    view.longRecord = on;
    showPanel2();
}

void Window::setNoZeroFlow(bool on)
{
    m_noZeroFlow = on;
    showPanel2();
}

void Window::showPanel2()
{
    std::string shown = m_panel2;
    const auto add = [&shown](const char* note) { shown += (shown.empty() ? "" : ", ") + std::string(note); };
    if (view.longRecord) add("long record");
    if (m_noZeroFlow) add("no zero flow found");
    setText(Control::statusPanel2, shown);
}

void Window::showMode(bool withPointer)
{
    if (view.lineMode && view.Sloppy)
        showModeAs("Mode: sloppy one-click", withPointer);
    else
        showModeAs(view.lineMode ? kOneClick : "Mode: traditional, edit data", withPointer);
}

void Window::showModeAfterLoad()
{
    showModeAs(view.lineMode ? kOneClick : "Mode: select data", true);
}

void Window::showModeAs(const char* text, bool withPointer)
{
    setStatus(1, text);
    if (withPointer) setPointer(view.lineMode ? Pointer::northSouth : Pointer::cross);
}

void Window::setPointer(Pointer shape)
{
    if (m_pointer == shape) return;
    m_pointer = shape;
    ui.pointerChanged();
}

void Window::setCaption(const std::string& text)
{
    if (m_caption == text) return;
    m_caption = text;
    ui.captionChanged();
}

std::int32_t Window::scrollClipped(std::int32_t value) const
{
    return std::clamp(value, view.HScroll1.Min, view.HScroll1.Max);
}

bool Window::placeScrollBar(std::int32_t value)
{
    const std::int32_t clipped = scrollClipped(value);
    if (clipped == view.HScroll1.Value) return false;
    view.HScroll1.Value = clipped;
    ui.scrollBarChanged();
    return true;
}

void Window::setScrollValue(std::int32_t value)
{
    if (placeScrollBar(value)) HScroll1_Change();
}

bool Window::moveScrollValue(std::int32_t value)
{
    if (!placeScrollBar(value)) return false;
    if (isEnabled(Control::Picture1_0)) ui.focus(Control::Picture1_0);
    return true;
}

void Window::dragScrollValue(std::int32_t value)
{
    view.HScroll1.Value = scrollClipped(value);
    redrawBoth();
}

void Window::resetScrollBar()
{
    view.HScroll1 = {};
    ui.scrollBarChanged();
}

void Window::setScrollRange(std::int32_t max, std::int32_t smallChange, std::int32_t largeChange)
{
    ScrollBar& bar = view.HScroll1;
    bar.Max = max;
    bar.SmallChange = smallChange;
    bar.LargeChange = largeChange;
    ui.scrollBarChanged();
    moveScrollValue(bar.Value);
}

void Window::HScroll1_Change()
{
    redraw(1, true);
    if (!isEnabled(Control::Picture1_0)) return;
    ui.focus(Control::Picture1_0);
    redraw(0, true);
}

void Window::markChanged()
{
    record.saveCheck = false;
    if (!record.isEmpty()) setEnabled(Control::mnuFileSave, true);
}

void Window::redrawBoth(bool clear)
{
    redraw(0, clear);
    redraw(1, clear);
}

void Window::showAll()
{
    redrawBoth();
    updateCues();
}

} // namespace tarvelint
