// SPDX-License-Identifier: MIT
#pragma once

#include "data/settings_store.h"
#include "window/controls.h"
#include "window/conversion_settings.h"
#include "window/dialogs.h"
#include "window/file_state.h"
#include "window/ports.h"
#include "window/record.h"
#include "window/sensors.h"
#include "window/ui.h"
#include "window/view.h"

#include <cstdint>
#include <string>

namespace tarvelint {

/// What a window needs from outside; all outlive it.
struct Environment {
    SettingsStore& settings;
    SystemStyle& style;
    Files& files;
    Clock& clock;
};

/// One main window without its widgets: its state in parts, what its controls show, and the procedures through which
/// its subsystems call each other. A subsystem that needs one part takes that part. Rows and columns are 0-based unless
/// a name says otherwise.
class Window {
public:
    Window(Ui& toolkit, Dialogs& dialogBoxes, const Environment& environment)
        : ui(toolkit), dialogs(dialogBoxes), env(environment)
    {
    }
    virtual ~Window() = default;
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    Ui& ui;
    Dialogs& dialogs;
    Environment env;

    // The parts
    Record record;
    Sensors sensors;
    ConversionSettings conversionSettings;
    View view;
    FileState file;

    // Controls. A control that shows a fact of a part (`FormulaBox`, `highBox`, the "Auto" boxes, `refCheck`,
    // `labelBox`, both bars and their entries) holds no copy of it. Setting what is already there tells nobody.
    [[nodiscard]] ControlState control(Control which) const;
    [[nodiscard]] const std::string& text(Control which) const;
    [[nodiscard]] bool isEnabled(Control which) const { return state(which).enabled; }
    [[nodiscard]] bool isChecked(Control which) const;
    void setText(Control which, const std::string& text);
    void setEnabled(Control which, bool enabled);
    void setChecked(Control which, bool checked);
    void setVisible(Control which, bool visible);

    /// Panel 1 or 2 of the status bar; panel 2 adds the notes below while they hold.
    void setStatus(int panel, const std::string& text);
    /// ", long record": the record is longer than 16-bit scrolling reaches.
    void setLongRecord(bool on);
    /// ", no zero flow found": the last pre-process of this record placed no point.
    void setNoZeroFlow(bool on);
    /// Status text and plot pointer of the editing mode in force.
    /// @param withPointer  False where a chain may go on, whose pointer stays
    void showMode(bool withPointer = true);
    /// The same in the words for a record just loaded.
    void showModeAfterLoad();
    [[nodiscard]] Pointer pointer() const { return m_pointer; }
    void setPointer(Pointer shape);
    [[nodiscard]] const std::string& caption() const { return m_caption; }
    void setCaption(const std::string& text);

    // What has consequences is a procedure, never a bare field.
    /// Clips to Min..Max and runs `HScroll1_Change` when the value changes.
    void setScrollValue(std::int32_t value);
    /// The same without a redraw, for a command that draws both areas afterwards; gives the plot the focus.
    /// @return whether the value changed
    bool moveScrollValue(std::int32_t value);
    /// The thumb is held at `value`, clipped to Min..Max: draws both areas, whether or not it is another. The toolkit,
    /// whose thumb it is, is not told, and `HScroll1_Change` is left to its release.
    void dragScrollValue(std::int32_t value);
    /// An empty range, as before any record. Draws nothing.
    void resetScrollBar();
    /// Sets range and steps; a value beyond `max` moves to it. Draws nothing.
    void setScrollRange(std::int32_t max, std::int32_t smallChange, std::int32_t largeChange);
    /// The scroll bar stands at another first row: both areas are drawn anew, the main one last and with the focus.
    void HScroll1_Change();
    /// Every change of data, labels, marks or points ends here: `saveCheck` False, File > Save enabled.
    void markChanged();
    /// Draws both areas, afresh unless `clear` is False.
    void redrawBoth(bool clear = true);
    /// Draws both areas afresh and refreshes the cues: what most commands end with.
    void showAll();
    /// Shows new settings (equation, columns of day and time) where they are seen; changes no data.
    void fixblanks() { showAll(); }

    // Procedures through which subsystems call each other.
    /// Draws area 0 (main) or 1 (companion) over what it shows, or erases it first.
    virtual void redraw(int index, bool clear) = 0;
    /// Shows reading, day and time at both ends of the selection.
    virtual void updateCues() = 0;
    /// Keeps a copy of the selected rows of a column, all layers, as what Undo brings back.
    virtual void undoSave(std::int32_t column) = 0;
    /// Marks or unmarks a row of the sensor column on view as a baseline point, see `BaselinePoints::setPoint`.
    virtual void setPoint(std::int32_t toPoint, std::int32_t fromPoint, bool dlt) = 0;
    /// The work of "&Convert"; with `draws` False what it changed is left for the caller to show.
    virtual void convertSelection(bool draws) = 0;
    /// Scrolls while the pointer stays at an edge of the main area, see `Scrolling::doScroll`.
    virtual void doScroll(float x, bool extend) = 0;
    /// Draws the selection's end on the pointer's side to `x` (plot units of the main area) and refreshes the cues.
    virtual void ExtendSelection(float x) = 0;
    /// Moves the selection one span to the right and, with `draws`, shows that.
    /// @return False at the record's end, where it stays and nothing is drawn
    virtual bool skip(bool draws) = 0;

private:
    [[nodiscard]] const ControlState& state(Control which) const { return m_controls[static_cast<std::size_t>(which)]; }
    [[nodiscard]] ControlState& state(Control which) { return m_controls[static_cast<std::size_t>(which)]; }
    /// Where the text or check mark of a control is kept.
    template <class Self>
    static auto& textOf(Self& self, Control which);
    template <class Self>
    static auto& checkOf(Self& self, Control which);
    [[nodiscard]] bool isVisible(Control which) const;
    void showModeAs(const char* text, bool withPointer);
    void showPanel2();
    [[nodiscard]] std::int32_t scrollClipped(std::int32_t value) const;
    bool placeScrollBar(std::int32_t value);

    Controls m_controls;
    Pointer m_pointer = Pointer::standard;
    std::string m_caption;
    std::string m_panel2; ///< without its notes
    bool m_noZeroFlow = false;
};

} // namespace tarvelint
