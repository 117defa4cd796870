// SPDX-License-Identifier: MIT
#include "app/qt/plot_key_events.h"

#include "app/engine.h"

#include <QKeyEvent>

#include <map>
#include <optional>

namespace tarvelint {

namespace {

using Handler = std::function<void()>;

template <class Value>
std::optional<Value> found(const std::map<int, Value>& keys, int key)
{
    const auto at = keys.find(key);
    return at == keys.end() ? std::nullopt : std::optional(at->second);
}

Handler keyTable(Engine& engine, int key)
{
    using enum KeyCode;
    // "+" and "-" as typed, on any keyboard.
    static const std::map<int, KeyCode> kCodes{{Qt::Key_Escape, escape},
                                               {Qt::Key_Space, space},
                                               {Qt::Key_Left, left},
                                               {Qt::Key_Up, up},
                                               {Qt::Key_Right, right},
                                               {Qt::Key_Down, down},
                                               {Qt::Key_Delete, deleteKey},
                                               {Qt::Key_C, c},
                                               {Qt::Key_D, d},
                                               {Qt::Key_I, i},
                                               {Qt::Key_M, m},
                                               {Qt::Key_V, v},
                                               {Qt::Key_F2, f2},
                                               {Qt::Key_Plus, plus},
                                               {Qt::Key_Equal, plus},
                                               {Qt::Key_Minus, minus},
                                               {Qt::Key_Underscore, minus}};
    const auto code = found(kCodes, key);
    if (!code) return {};
    return [&engine, code = *code] { engine.keys.Form_KeyDown(code); };
}

Handler scrollKey(Engine& engine, int key)
{
    using enum Scrolling::ScrollKey;
    static const std::map<int, Scrolling::ScrollKey> kKeys{
        {Qt::Key_PageUp, pageUp}, {Qt::Key_PageDown, pageDown}, {Qt::Key_Home, home}, {Qt::Key_End, end}};
    const auto which = found(kKeys, key);
    if (!which) return {};
    return [&engine, which = *which] { engine.scrolling.pressScrollKey(which); };
}

Handler rowCursorKey(Engine& engine, const QKeyEvent& key)
{
    const int direction = key.key() == Qt::Key_Left ? -1 : key.key() == Qt::Key_Right ? 1 : 0;
    if (direction == 0) return {};
    if (key.modifiers().testFlag(Qt::ShiftModifier))
        return [&engine, direction] { engine.keys.moveRowCursorFar(direction); };
    return [&engine, direction] { engine.keys.moveRowCursor(direction); };
}

Handler enterKey(Engine& engine, Qt::KeyboardModifiers modifiers)
{
    if (modifiers == Qt::ControlModifier) return [&engine] { engine.keys.doubleClickHere(); };
    if (modifiers != Qt::NoModifier && modifiers != Qt::ShiftModifier) return {};
    return [&engine, withShift = modifiers == Qt::ShiftModifier] { engine.keys.pressEnter(withShift); };
}

} // namespace

std::function<void()> plotKeyHandler(Engine& engine, const QKeyEvent& key, bool isOnPlot)
{
    const Qt::KeyboardModifiers modifiers = key.modifiers() & ~Qt::KeypadModifier;
    if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter)
        return isOnPlot ? enterKey(engine, modifiers) : Handler();
    if (key.key() == Qt::Key_Menu && modifiers == Qt::NoModifier) return [&engine] { engine.keys.editValueHere(); };
    if ((modifiers & ~Qt::ShiftModifier) == Qt::ControlModifier) return rowCursorKey(engine, key);
    if ((modifiers & ~Qt::ShiftModifier) != Qt::NoModifier) return {};
    if (Handler scrolls = scrollKey(engine, key.key()); scrolls && modifiers == Qt::NoModifier) return scrolls;
    return keyTable(engine, key.key());
}

} // namespace tarvelint
