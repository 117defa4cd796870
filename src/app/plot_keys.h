// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace tarvelint {

class Engine;

/// Keys of the data window, by the platform's virtual-key codes.
enum class KeyCode : std::int16_t {
    escape = 27,
    space = 32,
    left = 37,
    up = 38,
    right = 39,
    down = 40,
    deleteKey = 46,
    c = 67,
    d = 68,
    i = 73,
    m = 77,
    v = 86,
    keypadPlus = 107,
    keypadMinus = 109,
    f2 = 113,
    plus = 187,
    minus = 189
};

/// Single keys in a data window, and the row cursor, by which the keyboard does on the plot what the pointer does.
/// Without a record no key does anything, nor does one whose menu entry is disabled.
class PlotKeys {
public:
    explicit PlotKeys(Engine& engine) : m_engine(engine) {}

    void Form_KeyDown(KeyCode key);

    /// The row cursor moves by rows, or by tenths of a screen, and the view follows it. It begins where the selection
    /// does, if that is in view, else at the first row shown.
    void moveRowCursor(std::int32_t rows);
    void moveRowCursorFar(std::int32_t tenthsOfScreen);
    /// Enter, Shift+Enter: a press there, without and with Shift.
    void pressEnter(bool withShift);
    /// Ctrl+Enter: a double click there.
    void doubleClickHere();
    /// The Menu key: a right press there.
    void editValueHere();
    /// Says where the row cursor stands, and what is read there, in the words of a screen reader.
    void tellRow();
    /// Where the row cursor stands in the main area, in plot units.
    [[nodiscard]] float cursorX() const;

private:
    [[nodiscard]] bool hasRecord() const;
    void placeRowCursor(std::int32_t row);
    void bringIntoView(std::int32_t row);
    [[nodiscard]] std::int32_t startRow() const;

    Engine& m_engine;
};

} // namespace tarvelint
