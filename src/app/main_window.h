// SPDX-License-Identifier: MIT
#pragma once

#include "app/application.h"
#include "app/file_commands.h"
#include "app/handler_boundary.h"
#include "app/lifecycle.h"
#include "baseline/baseline_points.h"
#include "baseline/recalculation.h"
#include "baseline/zero_flow.h"
#include "edit/selection.h"
#include "edit/undo.h"
#include "equation/conversion.h"
#include "view/cues.h"
#include "view/plot_rendering.h"
#include "view/scrolling.h"
#include "window/window.h"

namespace tarvelint {

/// A main window without its widgets: one of each subsystem, and `Window`'s procedures forwarded to them. The
/// desktop program shows it, the batch program and the tests use it as it is.
class MainWindow : public Window {
public:
    MainWindow(Ui& toolkit, const Environment& environment, Application& application)
        : Window(toolkit, environment), lifecycle(*this, application, files), m_application(application)
    {
    }

    HandlerBoundary boundary{*this};
    BaselinePoints points{*this};
    ZeroFlow zeroFlow{*this};
    PlotRendering plot{*this};
    Scrolling scrolling{*this};
    Cues cues{*this};
    Undo undo{*this};
    Selection selection{*this};
    Conversion conversion{*this};
    Recalculation recalculation{*this};
    FileCommands files{*this};
    Lifecycle lifecycle;

    void redraw(int index, bool clear) override { plot.redraw(index, clear); }
    void updateCues() override { cues.updateCues(); }
    void updateLabels() override { cues.updateLabels(); }
    void varList_Change(int index) override { cues.varList_Change(index); }
    void scrollset() override { scrolling.fitScrollBar(); }
    void HScroll1_Change() override { scrolling.HScroll1_Change(); }
    void undoSave(std::int32_t column) override { undo.undoSave(column); }
    void forgetUndo() override { undo.forget(); }
    void skip() override { conversion.skip(); }
    void convButton_Click() override { conversion.convButton_Click(); }
    void setPoint(std::int32_t toPoint, std::int32_t fromPoint, bool dlt) override
    {
        points.setPoint(toPoint, fromPoint, dlt);
    }
    void turboCalc(std::int32_t column, std::int32_t lPoint, std::int32_t rPoint) override
    {
        points.turboCalc(column, lPoint, rPoint);
    }
    void preProcess() override { zeroFlow.preProcess(); }
    void getBase() override { zeroFlow.getBase(); }
    void setcaption(std::string& captn) override;

private:
    Application& m_application;
};

} // namespace tarvelint
