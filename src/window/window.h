// SPDX-License-Identifier: MIT
#pragma once

#include "data/data_set.h"
#include "data/settings_store.h"
#include "window/base_points.h"
#include "window/column_setup.h"
#include "window/controls.h"
#include "window/ports.h"
#include "window/save_contents.h"
#include "window/ui.h"

#include <array>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace tarvelint {

/// A rule broken in the middle of a command that no rule of its own answers: one message box, and the command ends.
class CommandFailure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A drop-down list of columns; an entry's index is the 0-based column, -1 none chosen.
struct ColumnList {
    std::vector<std::string> entries;
    std::int32_t chosen = -1;
};

/// `HScroll1`. Its numbers fit 16 bits except in long-record mode.
struct ScrollBar {
    std::int32_t Min = 0;
    std::int32_t Max = 0;
    std::int32_t Value = 0; ///< first row shown
    std::int32_t SmallChange = 1;
    std::int32_t LargeChange = 1;
};

/// What a window needs from outside; all outlive it.
struct Environment {
    SettingsStore& settings;
    SystemStyle& style;
    Files& files;
    Clock& clock;
};

/// One main window without its widgets: the state its subsystems share, and the procedures through which they call each
/// other. Rows and columns are 0-based unless a name says otherwise.
class Window {
public:
    Window(Ui& toolkit, const Environment& environment) : ui(toolkit), env(environment) {}
    virtual ~Window() = default;
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    Ui& ui;
    Environment env;
    DataSet data;

    // Modes
    bool Turbo = false;    ///< baseline points drive the fixed conversion
    bool lineMode = false; ///< one-click baseline
    bool Sloppy = false;   ///< one-click snaps to the nearby extreme reading

    // Baseline points
    BasePoints basePoints;
    std::vector<std::int32_t> sensorCols; ///< 1-based column of each sensor ordinal
    std::int32_t sensors = 0;

    // Conversion
    std::int32_t conversionRow = 0; ///< row being converted, for the equation's messages
    bool stopFlag = false;          ///< Cancel was chosen in one of them; conversion commands clear it first

    // View
    std::int32_t curCol = -1;
    std::int32_t curSensor = -1; ///< sensor ordinal of `curCol`, or -1
    std::int32_t curLayer = kUnconverted;
    std::int32_t selStart = 0;
    std::int32_t selEnd = 0;
    std::int32_t lastClick = 0; ///< anchor row of the selection
    std::int32_t markRow = -1;
    std::int32_t grabbedPoint = -1;
    std::int32_t dragRow = -1;
    std::int32_t hoverRow = 0;
    bool chainActive = false;
    std::int16_t zoomFactor = 1; ///< plot units per row
    std::int16_t zoomLevel = 0;
    double yScale = 0;       ///< plot units per data unit, as the last redraw of either area left it
    bool longRecord = false; ///< the record is longer than 16-bit scrolling reaches
    ScrollBar HScroll1;
    std::array<ColumnList, 2> varList;
    Pointer pointer = Pointer::standard;

    // Files and dialogs
    LayerSet readLayers;         ///< layers of the record's file
    bool readWithLabels = false; ///< the record came with a labels line
    std::string savePath;        ///< the file last saved, empty until then
    std::string caption;
    std::unique_ptr<ColumnSetup> labelFrm; ///< null until its first showing
    std::unique_ptr<SaveContents> typeFrm;
    [[nodiscard]] bool haveLabelForm() const { return labelFrm != nullptr; }
    [[nodiscard]] bool haveTypeForm() const { return typeFrm != nullptr; }

    // Controls. Setting what is already there tells nobody.
    [[nodiscard]] const ControlState& control(Control which) const
    {
        return m_controls[static_cast<std::size_t>(which)];
    }
    [[nodiscard]] const std::string& text(Control which) const { return control(which).text; }
    [[nodiscard]] bool isEnabled(Control which) const { return control(which).enabled; }
    [[nodiscard]] bool isChecked(Control which) const { return control(which).checked; }
    void setText(Control which, const std::string& text);
    void setEnabled(Control which, bool enabled);
    void setChecked(Control which, bool checked);
    void setVisible(Control which, bool visible);

    /// Panel 1 or 2 of the status bar; panel 2 adds "long record" while that mode is on.
    void setStatus(int panel, const std::string& text);
    void setLongRecord(bool on);
    void setPointer(Pointer shape);
    void setCaption(const std::string& text);

    // What has consequences is a procedure, never a bare field.
    /// Clips to Min..Max and runs `HScroll1_Change` when the value changes.
    void setScrollValue(std::int32_t value);
    /// Sets the range; a value beyond `max` moves to it, as `setScrollValue` does.
    void setScrollRange(std::int32_t max, std::int32_t smallChange, std::int32_t largeChange);
    /// Chooses an entry (-1 for none) and always runs `varList_Change`.
    void chooseColumn(int index, std::int32_t entry);
    /// Replaces the entries of both lists; nothing is chosen afterwards.
    void setListEntries(const std::vector<std::string>& entries);
    /// Changes what the entries read; the choices stay, and nothing is redrawn.
    void setListTexts(const std::vector<std::string>& texts);
    /// Every change of data, labels, marks or points ends here: `saveCheck` False, File > Save enabled.
    void markChanged();

    /// Status text and plot pointer of the editing mode in force.
    void showMode();

    /// Shows new settings (equation, columns of day and time) where they are seen; changes no data.
    void fixblanks();

    // Questions that several subsystems ask.
    [[nodiscard]] bool hasRecord() const { return data.lines > 0 && data.columns > 0; }
    /// "Do not convert" of a 0-based column; False without a column setup dialog.
    [[nodiscard]] bool isParameterColumn(std::int32_t column) const;
    /// 0-based column of a sensor ordinal of a record whose points have been looked for.
    [[nodiscard]] std::int32_t sensorColumn(std::int32_t sensor) const
    {
        return sensorCols[static_cast<std::size_t>(sensor)] - 1;
    }
    /// Labels go into saved files: as the column setup dialog says, else as the file came.
    [[nodiscard]] bool savesLabels() const { return labelFrm ? labelFrm->savesLabels() : readWithLabels; }

    // Procedures through which subsystems call each other.
    // Rows and columns are 0-based; areas are 0 (main) and 1 (companion).
    /// Draws an area over what it shows, or erases it first.
    virtual void redraw(int index, bool clear) = 0;
    /// Shows reading, day and time at both ends of the selection.
    virtual void updateCues() = 0;
    /// Takes the labels typed in the column setup dialog into the record and the column lists.
    virtual void updateLabels() = 0;
    /// The entry chosen in `varList(index)` is to be shown, also when it is the same one again.
    virtual void varList_Change(int index) = 0;
    /// Fits the scroll bar to area, record and zoom; enters or leaves long-record mode.
    virtual void scrollset() = 0;
    /// The scroll bar stands at another first row: both areas show it.
    virtual void HScroll1_Change() = 0;
    /// Keeps a copy of the selected rows of a column, all layers, as what Undo brings back.
    virtual void undoSave(std::int32_t column) = 0;
    /// There is nothing to undo any more: the record is another one.
    virtual void forgetUndo() = 0;
    /// Moves the selection one span to the right.
    virtual void skip() = 0;
    /// Draws the selection's baseline and converts it with the user's equation.
    virtual void convButton_Click() = 0;
    /// Sets a baseline point of the current sensor at row `toPoint`, moved from row `fromPoint` (-1 for a new one), or
    /// deletes the one at `toPoint` with `dlt`; baseline and flux around it follow.
    virtual void setPoint(std::int32_t toPoint, std::int32_t fromPoint, bool dlt) = 0;
    /// Lays the baseline between two rows of a column and converts them to sap flux (Granier 1985).
    virtual void turboCalc(std::int32_t column, std::int32_t lPoint, std::int32_t rPoint) = 0;
    /// Flags the lulls, rows where zero flow can be believed, by the VPD and PAR columns and limits.
    virtual void preProcess() = 0;
    /// Sets the baseline points of all sensors from the lulls and converts what lies between them.
    virtual void getBase() = 0;
    /// Makes the caption unique among all open forms and takes it; `captn` comes back as taken.
    virtual void setcaption(std::string& captn) = 0;

private:
    Controls m_controls;
    std::string m_panel2; ///< without the long-record note
};

} // namespace tarvelint
