// SPDX-License-Identifier: MIT
#pragma once

#include "app/qt/control_widgets.h"
#include "window/view.h"

#include <QMainWindow>

#include <array>
#include <map>
#include <string>
#include <vector>

class QBoxLayout;
class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QScrollBar;

namespace tarvelint {

class ColumnListModel;
class PlotArea;

/// What is seen of `frmMain`: builds the widgets of one data window, gives them places, and shows on them what it is
/// told. Runs nothing by itself. Widgets bear their controls' given names.
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

    /// Entries (labels, or the columns' numbers) and choice (-1 none) of `varList(index)`; the labels outlive the
    /// form's events.
    void showList(int index, const std::vector<std::string>& labels, bool asLabels, int chosen);
    void showScrollBar(const ScrollBar& bar);

private:
    [[nodiscard]] QBoxLayout* buildColumnRow();
    [[nodiscard]] QBoxLayout* buildCommandRows();
    [[nodiscard]] QGridLayout* buildSelectionCues();
    [[nodiscard]] QWidget* buildFrame();
    [[nodiscard]] QGridLayout* buildRange(int index);
    [[nodiscard]] QGridLayout* buildCueRows();
    void buildStatusBar();
    [[nodiscard]] QPushButton* addButton(Control control);
    [[nodiscard]] QCheckBox* addCheck(Control control);
    /// @param widest  a text that fits
    [[nodiscard]] QLabel* addValue(Control control, const char* widest);
    [[nodiscard]] QLineEdit* addBox(Control control);
    [[nodiscard]] QComboBox* addList(int index);
    void setTabOrders();

    ControlWidgets m_controls;
    std::map<Control, std::string> m_entryTexts;
    std::array<ColumnListModel*, 2> m_listModels{};
};

} // namespace tarvelint
