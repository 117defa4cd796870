// SPDX-License-Identifier: MIT
#pragma once

#include "app/application.h"
#include "app/file_commands.h"
#include "app/handler_boundary.h"
#include "app/lifecycle.h"
#include "baseline/baseline_points.h"
#include "baseline/block_maxima.h"
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
    Conversion conversion{*this};
    Recalculation recalculation{*this};
    WindowForms forms{*this};
    FileCommands files;
    Lifecycle lifecycle;

    void redraw(int index, bool clear) override { plot.redraw(index, clear); }
    void updateCues() override { cues.updateCues(); }
    void undoSave(std::int32_t column) override { undo.undoSave(column); }
    void ExtendSelection(float x) override { selection.ExtendSelection(x); }
    bool skip(bool draws) override { return selection.skip(draws); }
};

} // namespace tarvelint
