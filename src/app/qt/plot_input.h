// SPDX-License-Identifier: MIT
#pragma once

#include "edit/plot_pointer.h"

#include <QObject>

#include <functional>

class QKeyEvent;

namespace tarvelint {

class Engine;
class FrmMain;
class MainForm;

/// Hands what pointer and keyboard do on the plots of one data window to its core.
class PlotInput : public QObject {
    Q_OBJECT
public:
    /// The window outlives it, and has its widgets already.
    explicit PlotInput(FrmMain& frmMain);

    /// While the plot scrolls by itself, without a button, a key or press ends that and is carried out afterwards.
    /// @return whether that was so
    [[nodiscard]] bool endsScrolling(const std::function<void()>& body);
    /// Draws the row cursor where it is now.
    void showRowCursor();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void takePress(const PointerPress& press);
    void takeMove(float x, bool isButtonDown);
    void takeRelease(PointerButton button, float x);
    [[nodiscard]] bool takeArrow(const QKeyEvent& key);
    [[nodiscard]] bool takePlotKey(const QKeyEvent& key);

    FrmMain& m_frmMain;
    Engine& m_core;
    MainForm& m_form;
};

} // namespace tarvelint
