// SPDX-License-Identifier: MIT
#pragma once

#include "app/application.h"
#include "app/file_commands.h"
#include "app/handler_boundary.h"
#include "app/lifecycle.h"
#include "app/plot_keys.h"
#include "baseline/baseline_points.h"
#include "baseline/block_maxima.h"
#include "baseline/tools.h"
#include "edit/plot_pointer.h"
#include "edit/selection.h"
#include "edit/undo.h"
#include "equation/conversion.h"
#include "equation/recalculation.h"
#include "forms/window_forms.h"
#include "view/column_lists.h"
#include "view/display_controls.h"
#include "view/plot_redraw.h"
#include "view/scrolling.h"
#include "view/selection_cues.h"
#include "window/window.h"

namespace tarvelint {

/// What drives one main window, without its widgets: one of each subsystem, and the calls between them. The desktop
/// program puts widgets around it, the tests use it as it is.
class Engine : public Window {
public:
    Engine(Ui& toolkit, Dialogs& dialogBoxes, const Environment& environment, Application& application)
        : Window(toolkit, dialogBoxes, environment), files(*this, forms, undo, application),
          lifecycle(*this, application, files, forms)
    {
    }

    HandlerBoundary boundary{*this};
    BaselinePoints points{*this};
    BlockMaxima blockMaxima{*this};
    PlotRedraw plot{*this};
    Scrolling scrolling{*this};
    ColumnLists lists{*this};
    DisplayControls display{*this};
    SelectionCues cues{*this};
    Undo undo{*this};
    Selection selection{*this};
    PlotPointer pointing{*this};
    Tools tools{*this, points};
    Conversion conversion{*this};
    Recalculation recalculation{*this};
    WindowForms forms{*this};
    PlotKeys keys{*this};
    FileCommands files;
    Lifecycle lifecycle;

    void redraw(int index, bool clear) override { plot.redraw(index, clear); }
    void updateCues() override { cues.updateCues(); }
    void undoSave(std::int32_t column) override { undo.undoSave(column); }
    void setPoint(std::int32_t toPoint, std::int32_t fromPoint, bool dlt) override
    {
        points.setPoint(toPoint, fromPoint, dlt);
    }
    void convertSelection(bool draws) override { conversion.convertSelection(draws); }
    void doScroll(float x, bool extend) override { scrolling.doScroll(x, extend); }
    void ExtendSelection(float x) override { selection.ExtendSelection(x); }
    bool skip(bool draws) override { return selection.skip(draws); }
};

} // namespace tarvelint
