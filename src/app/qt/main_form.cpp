// SPDX-License-Identifier: MIT
#include "app/qt/main_form.h"

#include "app/qt/column_list_model.h"
#include "app/qt/form_parts.h"
#include "app/qt/plot_area.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStatusBar>
#include <QToolBar>
#include <QVBoxLayout>

#include <algorithm>

namespace tarvelint {

namespace {

constexpr int kGap = 6;
constexpr int kRowGap = 2;
/// As wide as a reading gets before it is unusual: what boxes and value labels are made for.
constexpr const char* kWidestReading = "-12,345.6789";

QString qt(const char* text)
{
    return QString::fromUtf8(text);
}

QLabel* caption(const char* text, Qt::Alignment alignment = Qt::AlignLeft)
{
    auto* label = new QLabel(qt(text));
    label->setAlignment(alignment | Qt::AlignVCenter);
    return label;
}

QLabel* caption(const char* text, QWidget* buddy)
{
    QLabel* label = caption(text);
    label->setBuddy(buddy);
    return label;
}

} // namespace

MainForm::MainForm(const StringTable& table)
{
    setObjectName(QStringLiteral("frmMain"));
    setContextMenuPolicy(Qt::NoContextMenu); // the bars are the View menu's business
    const MenuActions menus = buildMenus(*this, table);
    m_controls.addEntries(menus.actions);
    m_entryTexts = menus.captions;
    const ToolActions tools = buildToolBar(*this, table);
    m_controls.addTools(tools.actions);
    m_controls.add(Control::tbToolBar, tools.bar);

    auto* cues = new QHBoxLayout;
    cues->setSpacing(4 * kGap);
    cues->addLayout(buildCommandRows(), 1);
    cues->addLayout(buildSelectionCues());
    auto* column = new QVBoxLayout;
    column->setContentsMargins(kGap + 2, kGap, kGap + 2, kRowGap);
    column->setSpacing(kGap - 1);
    column->addLayout(buildColumnRow());
    column->addLayout(cues);
    column->addWidget(buildFrame(), 1);
    column->addLayout(buildCueRows());
    auto* content = new QWidget;
    content->setLayout(column);
    setCentralWidget(content);
    buildStatusBar();
    setTabOrders();
}

void MainForm::showList(int index, const std::vector<std::string>& labels, bool asLabels, int chosen)
{
    const QSignalBlocker silent(&list(index));
    m_listModels.at(static_cast<std::size_t>(index))->show(labels, asLabels);
    list(index).setCurrentIndex(chosen);
}

void MainForm::showScrollBar(const ScrollBar& bar)
{
    QScrollBar& shown = scrollBar();
    if (shown.isSliderDown()) return; // under the user's thumb it stands where that holds it
    const QSignalBlocker silent(&shown);
    shown.setRange(bar.Min, bar.Max);
    shown.setSingleStep(std::max(bar.SmallChange, 1));
    shown.setPageStep(bar.LargeChange);
    shown.setValue(bar.Value);
}

QComboBox& MainForm::list(int index) const
{
    return *m_controls.widget<QComboBox>(element(Control::varList0, index));
}

QScrollBar& MainForm::scrollBar() const
{
    return *m_controls.widget<QScrollBar>(Control::HScroll1);
}

PlotArea& MainForm::plot(int index) const
{
    return *m_controls.widget<PlotArea>(element(Control::Picture1_0, index));
}

QBoxLayout* MainForm::buildColumnRow()
{
    auto* row = new QHBoxLayout;
    row->setSpacing(kGap);
    QComboBox* main = addList(0);
    QComboBox* companion = addList(1);
    row->addWidget(caption("Main:", main));
    row->addWidget(main, 1);
    row->addSpacing(kGap);
    row->addWidget(caption("Companion:", companion));
    row->addWidget(companion, 1);
    row->addSpacing(kGap);
    row->addWidget(addCheck(Control::labelBox));
    row->addWidget(addButton(Control::labelButton));
    return row;
}

QBoxLayout* MainForm::buildCommandRows()
{
    auto* commands = new QHBoxLayout;
    commands->setSpacing(kGap);
    commands->addWidget(addButton(Control::viewButton));
    commands->addWidget(addButton(Control::convButton));
    commands->addWidget(addButton(Control::baseButton));
    commands->addStretch();

    auto* equation = new QHBoxLayout;
    equation->setSpacing(kGap);
    equation->addWidget(addButton(Control::eqButton));
    auto* formula = new ElidedLabel;
    formula->setTextFormat(Qt::PlainText);
    m_controls.add(Control::FormulaBox, formula);
    equation->addWidget(formula, 1);

    auto* rows = new QVBoxLayout;
    rows->setSpacing(kGap);
    rows->addLayout(commands);
    rows->addLayout(equation);
    rows->addStretch();
    return rows;
}

QGridLayout* MainForm::buildSelectionCues()
{
    using enum Control;
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(2 * kGap);
    grid->setVerticalSpacing(kRowGap);
    grid->addWidget(caption("Value", Qt::AlignRight), 0, 1);
    grid->addWidget(caption("Time", Qt::AlignRight), 0, 2, 1, 2);
    grid->addWidget(caption("Left:"), 1, 0);
    grid->addWidget(addValue(slLabel, kWidestReading), 1, 1);
    grid->addWidget(addValue(ldLabel, "366.99"), 1, 2);
    grid->addWidget(addValue(ltLabel, "2359.5"), 1, 3);
    grid->addWidget(caption("Right:"), 2, 0);
    grid->addWidget(addValue(srLabel, kWidestReading), 2, 1);
    grid->addWidget(addValue(rdLabel, "366.99"), 2, 2);
    grid->addWidget(addValue(rtLabel, "2359.5"), 2, 3);
    grid->setRowStretch(3, 1);
    return grid;
}

QWidget* MainForm::buildFrame()
{
    auto* frame = new QFrame;
    frame->setObjectName(QStringLiteral("Frame1"));
    auto* grid = new PlotGrid(frame);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(kGap + 2);
    grid->setVerticalSpacing(kRowGap);
    for (int index = 0; index < 2; ++index) {
        auto* plot = new PlotArea(index);
        grid->addLayout(buildRange(index), index, 0);
        grid->addWidget(new PlotFrame(plot), index, 1);
        grid->setRowStretch(index, 1);
        m_controls.add(element(Control::Picture1_0, index), plot);
    }
    auto* bar = new QScrollBar(Qt::Horizontal);
    QSizePolicy keepsItsPlace = bar->sizePolicy();
    keepsItsPlace.setRetainSizeWhenHidden(true);
    bar->setSizePolicy(keepsItsPlace);
    m_controls.add(Control::HScroll1, bar);
    grid->addWidget(bar, 2, 1);
    grid->setColumnStretch(1, 1);
    return frame;
}

QGridLayout* MainForm::buildRange(int index)
{
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(kGap);
    grid->setVerticalSpacing(0);
    QLineEdit* top = addBox(element(Control::maxLabel0, index));
    QLineEdit* bottom = addBox(element(Control::minLabel0, index));
    grid->addWidget(caption("Top:", top), 0, 0);
    grid->addWidget(top, 0, 1);
    grid->setRowStretch(1, 1);
    grid->addWidget(addCheck(element(Control::scaleBox0, index)), 2, 1);
    if (index == 1) {
        grid->addWidget(addCheck(Control::refCheck), 3, 1);
        grid->addWidget(addBox(Control::refBox), 4, 1);
    }
    grid->setRowStretch(5, 1);
    grid->addWidget(caption("Bottom:", bottom), 6, 0);
    grid->addWidget(bottom, 6, 1);
    return grid;
}

QGridLayout* MainForm::buildCueRows()
{
    using enum Control;
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(kGap);
    grid->setVerticalSpacing(kRowGap);
    grid->addWidget(caption("Columns:"), 0, 0);
    grid->addWidget(addValue(colLabel, "9999999"), 0, 1);
    grid->addWidget(caption("Rows:"), 1, 0);
    grid->addWidget(addValue(rowLabel, "9999999"), 1, 1);
    QCheckBox* high = addCheck(highBox);
    high->setToolTip(QStringLiteral("Check this if the values are lower than the baseline"));
    grid->addWidget(high, 2, 0, 1, 2);
    grid->addWidget(caption("In:"), 0, 3);
    grid->addWidget(addValue(inLabel, kWidestReading), 0, 4);
    grid->addWidget(caption("Base:"), 1, 3);
    grid->addWidget(addValue(baseLabel, kWidestReading), 1, 4);
    grid->addWidget(caption("Out:"), 2, 3);
    grid->addWidget(addValue(outLabel, kWidestReading), 2, 4);
    grid->addWidget(caption("DOY:"), 2, 6);
    grid->addWidget(addValue(dateLabel, "366.99"), 2, 7);
    grid->addWidget(caption("Time:"), 2, 9);
    grid->addWidget(addValue(timeLabel, "2359.5"), 2, 10);
    for (const int gap : {2, 5, 8}) grid->setColumnMinimumWidth(gap, 2 * kGap);
    grid->setColumnStretch(11, 1);
    return grid;
}

void MainForm::buildStatusBar()
{
    auto* bar = statusBar();
    m_controls.add(Control::sbStatusBar, bar);
    auto* first = new ElidedLabel;
    auto* second = new ElidedLabel;
    m_controls.add(Control::statusPanel1, first);
    m_controls.add(Control::statusPanel2, second);
    bar->setContentsMargins(kGap, 0, 0, 0);
    bar->addWidget(first, 1);
    bar->addWidget(second, 1);
}

QPushButton* MainForm::addButton(Control control)
{
    auto* button = new QPushButton;
    m_controls.add(control, button);
    button->setAutoDefault(false);
    return button;
}

QCheckBox* MainForm::addCheck(Control control)
{
    auto* box = new QCheckBox;
    m_controls.add(control, box);
    return box;
}

QLabel* MainForm::addValue(Control control, const char* widest)
{
    auto* label = new QLabel;
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance(qt(widest)));
    m_controls.add(control, label);
    return label;
}

QLineEdit* MainForm::addBox(Control control)
{
    auto* box = new QLineEdit;
    box->setAlignment(Qt::AlignRight);
    box->setFixedWidth(box->fontMetrics().horizontalAdvance(qt(kWidestReading)) + 2 * kGap);
    box->setFixedHeight(box->fontMetrics().height() + kGap); // five rows have to fit beside the smallest plot
    m_controls.add(control, box);
    return box;
}

QComboBox* MainForm::addList(int index)
{
    const auto i = static_cast<std::size_t>(index);
    auto* list = new CalmList;
    m_listModels[i] = new ColumnListModel(list);
    list->setModel(m_listModels[i]);
    list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    list->setMinimumContentsLength(6);
    list->setMaxVisibleItems(24);
    if (auto* view = qobject_cast<QListView*>(list->view())) view->setUniformItemSizes(true);
    m_controls.add(element(Control::varList0, index), list);
    return list;
}

void MainForm::setTabOrders()
{
    using enum Control;
    constexpr std::array kOrder{varList0, varList1,  labelBox,  labelButton, viewButton, convButton, baseButton,
                                eqButton, maxLabel0, scaleBox0, minLabel0,   Picture1_0, maxLabel1,  scaleBox1,
                                refCheck, refBox,    minLabel1, Picture1_1,  highBox};
    for (std::size_t i = 1; i < kOrder.size(); ++i)
        setTabOrder(m_controls.widget(kOrder[i - 1]), m_controls.widget(kOrder[i]));
}

} // namespace tarvelint
