// SPDX-License-Identifier: MIT
#include "window/window.h"

#include <algorithm>

namespace tarvelint {

namespace {

constexpr const char* kLongRecordNote = "long record";

} // namespace

void Window::setText(Control which, const std::string& text)
{
    auto& state = m_controls[static_cast<std::size_t>(which)];
    if (state.text == text) return;
    state.text = text;
    ui.changed(which);
}

void Window::setEnabled(Control which, bool enabled)
{
    auto& state = m_controls[static_cast<std::size_t>(which)];
    if (state.enabled == enabled) return;
    state.enabled = enabled;
    ui.changed(which);
}

void Window::setChecked(Control which, bool checked)
{
    auto& state = m_controls[static_cast<std::size_t>(which)];
    if (state.checked == checked) return;
    state.checked = checked;
    ui.changed(which);
}

void Window::setVisible(Control which, bool visible)
{
    auto& state = m_controls[static_cast<std::size_t>(which)];
    if (state.visible == visible) return;
    state.visible = visible;
    ui.changed(which);
}

void Window::setStatus(int panel, const std::string& text)
{
    if (panel == 1) {
        setText(Control::statusPanel1, text);
        return;
    }
    m_panel2 = text;
    if (!longRecord)
        setText(Control::statusPanel2, text);
    else
        setText(Control::statusPanel2, text.empty() ? kLongRecordNote : text + ", " + kLongRecordNote);
}

void Window::setLongRecord(bool on)
{
    longRecord = on;
    setStatus(2, m_panel2);
}

void Window::setPointer(Pointer shape)
{
    if (pointer == shape) return;
    pointer = shape;
    ui.pointerChanged();
}

void Window::setCaption(const std::string& text)
{
    if (caption == text) return;
    caption = text;
    ui.captionChanged();
}

void Window::setScrollValue(std::int32_t value)
{
    const std::int32_t clipped = std::clamp(value, HScroll1.Min, HScroll1.Max);
    if (clipped == HScroll1.Value) return;
    HScroll1.Value = clipped;
    ui.scrollBarChanged();
    HScroll1_Change();
}

void Window::setScrollRange(std::int32_t max, std::int32_t smallChange, std::int32_t largeChange)
{
    HScroll1.Max = max;
    HScroll1.SmallChange = smallChange;
    HScroll1.LargeChange = largeChange;
    ui.scrollBarChanged();
    setScrollValue(HScroll1.Value);
}

void Window::chooseColumn(int index, std::int32_t entry)
{
    varList.at(static_cast<std::size_t>(index)).chosen = entry;
    ui.listChanged(index);
    varList_Change(index);
}

void Window::setListEntries(const std::vector<std::string>& entries)
{
    for (int index = 0; index < 2; ++index) {
        varList[static_cast<std::size_t>(index)] = {entries, -1};
        ui.listChanged(index);
    }
}

void Window::setListTexts(const std::vector<std::string>& texts)
{
    for (int index = 0; index < 2; ++index) {
        auto& entries = varList[static_cast<std::size_t>(index)].entries;
        std::copy_n(texts.begin(), std::min(texts.size(), entries.size()), entries.begin());
        ui.listChanged(index);
    }
}

void Window::markChanged()
{
    data.saveCheck = false;
    if (hasRecord()) setEnabled(Control::mnuFileSave, true);
}

void Window::showMode()
{
    if (!lineMode)
        setStatus(1, "Mode: traditional, edit data");
    else
        setStatus(1, Sloppy ? "Mode: sloppy one-click" : "Mode: one-click baseline");
    setPointer(lineMode ? Pointer::northSouth : Pointer::cross);
}

void Window::fixblanks()
{
    redraw(0, true);
    redraw(1, true);
    updateCues();
}

bool Window::isParameterColumn(std::int32_t column) const
{
    return labelFrm && column >= 0 && column < labelFrm->rows() && labelFrm->isParameter(column + 1);
}

} // namespace tarvelint
