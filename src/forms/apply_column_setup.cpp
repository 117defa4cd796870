// SPDX-License-Identifier: MIT
#include "forms/apply_column_setup.h"

#include "baseline/zero_flow.h"
#include "view/column_lists.h"
#include "window/window.h"

namespace tarvelint {

namespace {

void applyPreProcess(Window& window, const ZeroFlowSettings& zeroFlow)
{
    View& view = window.view;
    view.Turbo = true;
    view.lineMode = view.Sloppy = view.chainActive = false;
    window.setPointer(Pointer::hourglass);
    window.setEnabled(Control::mnuToolsMode, false);
    window.conversionSettings.zeroFlow = zeroFlow;
    const std::int32_t placed = layBaselines(window.record, window.sensors, zeroFlow, [&window](const char* text) {
        window.setStatus(1, text);
        window.ui.paintStatus();
    });
    window.setNoZeroFlow(placed == 0);
}

void applyManual(Window& window)
{
    View& view = window.view;
    view.Turbo = view.chainActive = false;
    view.lineMode = view.Sloppy = true;
    window.setEnabled(Control::mnuToolsMode, true);
}

} // namespace

void applyColumnSetup(Window& window, const ColumnChoices& choices)
{
    ColumnLists lists(window);
    lists.updateLabels(choices.labels);
    window.record.parameters = choices.parameters;
    window.record.savesLabels = choices.savesLabels;
    window.markChanged();
    lists.varList_Change(0);
    if (choices.zeroFlow)
        applyPreProcess(window, *choices.zeroFlow);
    else
        applyManual(window);
}

} // namespace tarvelint
