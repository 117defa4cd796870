// SPDX-License-Identifier: MIT
#include "app/qt/frm_main.h"

#include "app/qt/plot_area.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QStatusBar>
#include <QStyle>
#include <QStyleOption>
#include <QToolBar>
#include <QVBoxLayout>

namespace tarvelint {

namespace {

// 7800 x 6650 twips, rounded up.
constexpr QSize kSmallest(520, 444);
constexpr int kGap = 6;
constexpr int kRowGap = 2;
/// As wide as a reading gets before it is unusual: what boxes and value labels are made for.
constexpr const char* kWidestReading = "-12,345.6789";

QString qt(const char* text)
{
    return QString::fromUtf8(text);
}

/// One line that gives way in a narrow window: its text ends in "..." there, and its tip has it whole.
class ElidedLabel : public QLabel {
public:
    using QLabel::QLabel;
    [[nodiscard]] QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, width());
        style()->drawItemText(&painter, rect(), static_cast<int>(alignment()), palette(), isEnabled(), shown,
                              foregroundRole());
        setToolTip(shown == text() ? QString() : QStringLiteral("<qt>%1</qt>").arg(text().toHtmlEscaped()));
    }
};

/// The two plots and the bar below them. Both plots are equally high: an odd pixel stays free.
class PlotGrid : public QGridLayout {
public:
    using QGridLayout::QGridLayout;
    void setGeometry(const QRect& place) override
    {
        const int below = itemAtPosition(2, 1)->sizeHint().height() + 2 * verticalSpacing();
        QGridLayout::setGeometry(place.adjusted(0, 0, 0, -((place.height() - below) % 2)));
    }
};

/// A thin line around a plot; it takes the highlight colour while keys go to the plot.
class PlotFrame : public QFrame {
public:
    explicit PlotFrame(QWidget* plot)
    {
        setFrameStyle(QFrame::Box | QFrame::Plain);
        auto* inside = new QVBoxLayout(this);
        inside->setContentsMargins(0, 0, 0, 0);
        inside->addWidget(plot);
        plot->installEventFilter(this);
        setLine(false);
    }

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
            setLine(event->type() == QEvent::FocusIn);
        return false;
    }

private:
    void setLine(bool focused) { setForegroundRole(focused ? QPalette::Highlight : QPalette::Mid); }
};

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

void FrmMain::build(const StringTable& table)
{
    setMinimumSize(kSmallest);
    setContextMenuPolicy(Qt::NoContextMenu); // the bars are the View menu's business
    const MenuActions menus = buildMenus(*this, table);
    const ToolActions tools = buildToolBar(*this, table);
    m_actions = menus.actions;
    m_tools = tools.actions;
    m_widgets[static_cast<std::size_t>(Control::tbToolBar)] = tools.bar;
    for (const auto& [control, text] : menus.captions) m_core.setText(control, text);
    for (const auto& [control, action] : m_tools) action->setEnabled(control != Control::count);

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

QBoxLayout* FrmMain::buildColumnRow()
{
    auto* row = new QHBoxLayout;
    row->setSpacing(kGap);
    QComboBox* main = addList(0, "varList0", "Column in the main plot");
    QComboBox* companion = addList(1, "varList1", "Column in the companion plot");
    row->addWidget(caption("Main:", main));
    row->addWidget(main, 1);
    row->addSpacing(kGap);
    row->addWidget(caption("Companion:", companion));
    row->addWidget(companion, 1);
    row->addSpacing(kGap);
    row->addWidget(addCheck(Control::labelBox, "labelBox", "show", "Show labels in the column lists"));
    row->addWidget(addButton(Control::labelButton, "labelButton", "Labels..."));
    return row;
}

QBoxLayout* FrmMain::buildCommandRows()
{
    auto* commands = new QHBoxLayout;
    commands->setSpacing(kGap);
    commands->addWidget(addButton(Control::viewButton, "viewButton", "&View"));
    commands->addWidget(addButton(Control::convButton, "convButton", "&Convert"));
    commands->addWidget(addButton(Control::baseButton, "baseButton", "Baseline"));
    commands->addStretch();

    auto* equation = new QHBoxLayout;
    equation->setSpacing(kGap);
    equation->addWidget(addButton(Control::eqButton, "eqButton", "Equation:"));
    auto* formula = new ElidedLabel;
    formula->setTextFormat(Qt::PlainText);
    add(Control::FormulaBox, formula, "FormulaBox", "Equation");
    equation->addWidget(formula, 1);

    auto* rows = new QVBoxLayout;
    rows->setSpacing(kGap);
    rows->addLayout(commands);
    rows->addLayout(equation);
    rows->addStretch();
    return rows;
}

QGridLayout* FrmMain::buildSelectionCues()
{
    using enum Control;
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(2 * kGap);
    grid->setVerticalSpacing(kRowGap);
    grid->addWidget(caption("Value", Qt::AlignRight), 0, 1);
    grid->addWidget(caption("Time", Qt::AlignRight), 0, 2, 1, 2);
    grid->addWidget(caption("Left:"), 1, 0);
    grid->addWidget(addValue(slLabel, "slLabel", "Reading at the left end of the selection", kWidestReading), 1, 1);
    grid->addWidget(addValue(ldLabel, "ldLabel", "Day at the left end of the selection", "366.99"), 1, 2);
    grid->addWidget(addValue(ltLabel, "ltLabel", "Time at the left end of the selection", "2359.5"), 1, 3);
    grid->addWidget(caption("Right:"), 2, 0);
    grid->addWidget(addValue(srLabel, "srLabel", "Reading at the right end of the selection", kWidestReading), 2, 1);
    grid->addWidget(addValue(rdLabel, "rdLabel", "Day at the right end of the selection", "366.99"), 2, 2);
    grid->addWidget(addValue(rtLabel, "rtLabel", "Time at the right end of the selection", "2359.5"), 2, 3);
    grid->setRowStretch(3, 1);
    return grid;
}

QWidget* FrmMain::buildFrame()
{
    auto* frame = new QFrame;
    frame->setObjectName(QStringLiteral("Frame1"));
    auto* grid = new PlotGrid(frame);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(kGap + 2);
    grid->setVerticalSpacing(kRowGap);
    constexpr std::array kNames{"Picture1_0", "Picture1_1"};
    constexpr std::array kSpoken{"Main plot", "Companion plot"};
    for (int index = 0; index < 2; ++index) {
        const auto i = static_cast<std::size_t>(index);
        m_plots[i] = new PlotArea(index);
        grid->addLayout(buildRange(index), index, 0);
        grid->addWidget(new PlotFrame(m_plots[i]), index, 1);
        grid->setRowStretch(index, 1);
        add(element(Control::Picture1_0, index), m_plots[i], kNames[i], kSpoken[i]);
    }
    m_scrollBar = new QScrollBar(Qt::Horizontal);
    QSizePolicy keepsItsPlace = m_scrollBar->sizePolicy();
    keepsItsPlace.setRetainSizeWhenHidden(true);
    m_scrollBar->setSizePolicy(keepsItsPlace);
    add(Control::HScroll1, m_scrollBar, "HScroll1", "First row shown");
    grid->addWidget(m_scrollBar, 2, 1);
    grid->setColumnStretch(1, 1);
    return frame;
}

QGridLayout* FrmMain::buildRange(int index)
{
    const bool main = index == 0;
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(kGap);
    grid->setVerticalSpacing(0);
    QLineEdit* top = addBox(element(Control::maxLabel0, index), main ? "maxLabel0" : "maxLabel1",
                            main ? "Top of the main plot" : "Top of the companion plot");
    QLineEdit* bottom = addBox(element(Control::minLabel0, index), main ? "minLabel0" : "minLabel1",
                               main ? "Bottom of the main plot" : "Bottom of the companion plot");
    grid->addWidget(caption("Top:", top), 0, 0);
    grid->addWidget(top, 0, 1);
    grid->setRowStretch(1, 1);
    grid->addWidget(addCheck(element(Control::scaleBox0, index), main ? "scaleBox0" : "scaleBox1", "Auto",
                             main ? "Automatic range of the main plot" : "Automatic range of the companion plot"),
                    2, 1);
    if (!main) {
        grid->addWidget(addCheck(Control::refCheck, "refCheck", "Reference", "Reference line in the companion plot"), 3,
                        1);
        grid->addWidget(addBox(Control::refBox, "refBox", "Reference value"), 4, 1);
    }
    grid->setRowStretch(5, 1);
    grid->addWidget(caption("Bottom:", bottom), 6, 0);
    grid->addWidget(bottom, 6, 1);
    return grid;
}

QGridLayout* FrmMain::buildCueRows()
{
    using enum Control;
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(kGap);
    grid->setVerticalSpacing(kRowGap);
    grid->addWidget(caption("Columns:"), 0, 0);
    grid->addWidget(addValue(colLabel, "colLabel", "Columns", "9999999"), 0, 1);
    grid->addWidget(caption("Rows:"), 1, 0);
    grid->addWidget(addValue(rowLabel, "rowLabel", "Rows", "9999999"), 1, 1);
    QWidget* high = addCheck(highBox, "highBox", "Baseline is high", "Baseline is high");
    high->setToolTip(QStringLiteral("Check this if the values are lower than the baseline"));
    grid->addWidget(high, 2, 0, 1, 2);
    grid->addWidget(caption("In:"), 0, 3);
    grid->addWidget(addValue(inLabel, "inLabel", "Reading under the pointer", kWidestReading), 0, 4);
    grid->addWidget(caption("Base:"), 1, 3);
    grid->addWidget(addValue(baseLabel, "baseLabel", "Baseline under the pointer", kWidestReading), 1, 4);
    grid->addWidget(caption("Out:"), 2, 3);
    grid->addWidget(addValue(outLabel, "outLabel", "Converted value under the pointer", kWidestReading), 2, 4);
    grid->addWidget(caption("DOY:"), 2, 6);
    grid->addWidget(addValue(dateLabel, "dateLabel", "Day of year under the pointer", "366.99"), 2, 7);
    grid->addWidget(caption("Time:"), 2, 9);
    grid->addWidget(addValue(timeLabel, "timeLabel", "Time under the pointer", "2359.5"), 2, 10);
    for (const int gap : {2, 5, 8}) grid->setColumnMinimumWidth(gap, 2 * kGap);
    grid->setColumnStretch(11, 1);
    return grid;
}

void FrmMain::buildStatusBar()
{
    auto* bar = statusBar();
    add(Control::sbStatusBar, bar, "sbStatusBar", "Status bar");
    auto* first = new ElidedLabel;
    auto* second = new ElidedLabel;
    add(Control::statusPanel1, first, "statusPanel1", "Status");
    add(Control::statusPanel2, second, "statusPanel2", "Display");
    bar->setContentsMargins(kGap, 0, 0, 0);
    bar->addWidget(first, 1);
    bar->addWidget(second, 1);
}

void FrmMain::add(Control control, QWidget* widget, const char* name, const char* spoken)
{
    m_widgets[static_cast<std::size_t>(control)] = widget;
    m_spoken[control] = qt(spoken);
    widget->setObjectName(qt(name));
    if (!qobject_cast<QLabel*>(widget)) widget->setAccessibleName(qt(spoken));
}

QPushButton* FrmMain::addButton(Control control, const char* name, const char* caption)
{
    auto* button = new QPushButton(qt(caption));
    const QString spoken = qt(caption).remove(u'&').remove(u':').remove(QStringLiteral("..."));
    add(control, button, name, spoken.toUtf8().constData());
    button->setAutoDefault(false);
    return button;
}

QWidget* FrmMain::addCheck(Control control, const char* name, const char* caption, const char* spoken)
{
    auto* box = new QCheckBox(qt(caption));
    add(control, box, name, spoken);
    return box;
}

QLabel* FrmMain::addValue(Control control, const char* name, const char* spoken, const char* widest)
{
    auto* label = new QLabel;
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance(qt(widest)));
    add(control, label, name, spoken);
    return label;
}

QLineEdit* FrmMain::addBox(Control control, const char* name, const char* spoken)
{
    auto* box = new QLineEdit;
    box->setAlignment(Qt::AlignRight);
    box->setFixedWidth(box->fontMetrics().horizontalAdvance(qt(kWidestReading)) + 2 * kGap);
    box->setFixedHeight(box->fontMetrics().height() + kGap); // five rows have to fit beside the smallest plot
    add(control, box, name, spoken);
    return box;
}

QComboBox* FrmMain::addList(int index, const char* name, const char* spoken)
{
    const auto i = static_cast<std::size_t>(index);
    auto* list = new QComboBox;
    m_lists[i] = list;
    m_listModels[i] = new ColumnListModel(m_core.varList[i], list);
    list->setModel(m_listModels[i]);
    list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    list->setMinimumContentsLength(6);
    list->setMaxVisibleItems(24);
    if (auto* view = qobject_cast<QListView*>(list->view())) view->setUniformItemSizes(true);
    add(element(Control::varList0, index), list, name, spoken);
    return list;
}

void FrmMain::setTabOrders()
{
    using enum Control;
    constexpr std::array kOrder{varList0, varList1,  labelBox,  labelButton, viewButton, convButton, baseButton,
                                eqButton, maxLabel0, scaleBox0, minLabel0,   Picture1_0, maxLabel1,  scaleBox1,
                                refCheck, refBox,    minLabel1, Picture1_1,  highBox};
    for (std::size_t i = 1; i < kOrder.size(); ++i)
        setTabOrder(widget<QWidget>(kOrder[i - 1]), widget<QWidget>(kOrder[i]));
}

} // namespace tarvelint
