// SPDX-License-Identifier: MIT
#pragma once

#include "app/qt/control_widgets.h"
#include "window/view.h"

#include <QMainWindow>

#include <array>
#include <map>
#include <string>
#include <vector>

class QComboBox;
class QLabel;
class QScrollBar;
class QStatusBar;

namespace tarvelint {

class ColumnListModel;
class PlotArea;
class PlotsFrame;

/// What is seen of `frmMain`: builds the widgets of one data window, puts them where `placeControls` says, and shows on
/// them what it is told. Runs nothing by itself. Widgets bear their controls' given names.
class MainForm : public QMainWindow {
    Q_OBJECT
public:
    explicit MainForm(const StringTable& table);

    [[nodiscard]] ControlWidgets& controls() { return m_controls; }
    /// Captions of the menu entries, as the string table gives them.
    [[nodiscard]] const std::map<Control, std::string>& entryTexts() const { return m_entryTexts; }
    [[nodiscard]] QComboBox& list(int index) const;
    [[nodiscard]] QScrollBar& scrollBar() const;
    [[nodiscard]] PlotArea& plot(int index) const;
    [[nodiscard]] QStatusBar& sbStatusBar() const;

    /// Entries (labels, or the columns' numbers) and choice (-1 none) of `varList(index)`; the labels outlive the
    /// form's events.
    void showList(int index, const std::vector<std::string>& labels, bool asLabels, int chosen);
    void showScrollBar(const ScrollBar& bar);

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// Both plots have another size; their surfaces have it already, with the pixels that still fit.
    void plotsResized();
    /// See `PlotsFrame`.
    void wheelTurned(int eighthsOfDegrees, bool withCtrl);

private:
    void buildBars(const StringTable& table);
    void buildColumnRows();
    void buildCommandRows();
    void buildPlots();
    void buildRange(int index);
    void buildSelectionCues();
    void buildCueRows();
    QLabel* addTag(QWidget& owner, const char* name, const char* text, Qt::Alignment alignment = Qt::AlignLeft);
    void addButton(Control control, QWidget& owner);
    void addCheck(Control control, QWidget& owner);
    void addValue(Control control, QWidget& owner);
    void addList(int index);
    void setTabOrders();
    void findPlaced();
    void placeWidgets();

    ControlWidgets m_controls;
    std::map<Control, std::string> m_entryTexts;
    std::array<ColumnListModel*, 2> m_listModels{};
    QWidget* m_desk = nullptr;      ///< the area below the menu bar
    PlotsFrame* m_frame = nullptr;  ///< `Frame1`
    std::vector<QWidget*> m_placed; ///< in the order of `placeControls`
};

} // namespace tarvelint
