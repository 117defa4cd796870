// SPDX-License-Identifier: MIT
#include "app/qt/main_form.h"

#include "app/qt/column_list_model.h"
#include "app/qt/form_parts.h"
#include "app/qt/plot_area.h"
#include "view/window_layout.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QListView>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStatusBar>
#include <QToolBar>

#include <algorithm>

namespace tarvelint {

namespace {

/// The form is designed for letters of this size; another scale of the screen enlarges letters and places alike.
constexpr int kLetterPixels = 12;

QString qt(const char* text)
{
    return QString::fromUtf8(text);
}

} // namespace

MainForm::MainForm(const StringTable& table) : m_desk(new QWidget), m_frame(new PlotsFrame(m_desk))
{
    setObjectName(QStringLiteral("frmMain"));
    setContextMenuPolicy(Qt::NoContextMenu); // the bars are the View menu's business
    QFont letters(font());
    letters.setPixelSize(kLetterPixels);
    setFont(letters);
    m_desk->setFont(letters);
    m_frame->setObjectName(QStringLiteral("Frame1"));
    buildBars(table);
    buildColumnRows();
    buildCommandRows();
    buildSelectionCues();
    buildPlots();
    buildCueRows();
    setTabOrders();
    findPlaced();
    m_desk->installEventFilter(this);
    setCentralWidget(m_desk);
}

void MainForm::showList(int index, const std::vector<std::string>& labels, bool asLabels, int chosen)
{
    const QSignalBlocker silent(&list(index));
    m_listModels.at(static_cast<std::size_t>(index))->show(labels, asLabels);
    list(index).setCurrentIndex(chosen);
    list(index).setToolTip(list(index).currentData(Qt::ToolTipRole).toString());
    list(index).setAccessibleDescription(list(index).currentText()); // else readers would be told the tip's markup
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

QStatusBar& MainForm::sbStatusBar() const
{
    return *m_controls.widget<QStatusBar>(Control::sbStatusBar);
}

bool MainForm::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_desk && event->type() == QEvent::Resize) placeWidgets();
    return QMainWindow::eventFilter(watched, event);
}

void MainForm::findPlaced()
{
    for (const PlacedControl& control : placeControls(0, 0)) {
        auto* widget = m_desk->findChild<QWidget*>(QLatin1String(control.name.data(), control.name.size()));
        Q_ASSERT(widget != nullptr && (widget->parentWidget() == m_frame) == control.isInFrame);
        m_placed.push_back(widget);
    }
}

void MainForm::placeWidgets()
{
    const QSize before = plot(0).size();
    const std::vector<PlacedControl> places = placeControls(m_desk->width(), m_desk->height());
    for (std::size_t i = 0; i < places.size(); ++i) {
        const PixelRect& place = places[i].place;
        m_placed[i]->setGeometry(place.left, place.top, place.width, place.height);
        // Of other controls the core says whether they show.
        if (qobject_cast<QLabel*>(m_placed[i]) != nullptr) m_placed[i]->setVisible(places[i].isShown);
    }
    if (plot(0).size() == before) return; // both plots are alike
    for (int index = 0; index < 2; ++index) plot(index).fitSurface();
    Q_EMIT plotsResized();
}

void MainForm::buildBars(const StringTable& table)
{
    const MenuActions menus = buildMenus(*this, table);
    m_controls.addEntries(menus.actions);
    m_entryTexts = menus.captions;
    const ToolActions tools = buildToolBar(*m_desk, table);
    m_controls.addTools(tools.actions);
    m_controls.add(Control::tbToolBar, tools.bar);

    auto* bar = new QStatusBar(m_desk);
    bar->setContentsMargins(6, 0, 0, 0);
    m_controls.add(Control::sbStatusBar, bar);
    for (const Control panel : {Control::statusPanel1, Control::statusPanel2}) {
        auto* text = new ElidedLabel;
        m_controls.add(panel, text);
        bar->addWidget(text, 1);
    }
}

void MainForm::buildColumnRows()
{
    addList(0);
    addTag(*m_desk, "mainTag", "Main:")->setBuddy(&list(0));
    addList(1);
    addTag(*m_desk, "companionTag", "Companion:")->setBuddy(&list(1));
    addCheck(Control::labelBox, *m_desk);
    addButton(Control::labelButton, *m_desk);
}

void MainForm::buildCommandRows()
{
    for (const Control button : {Control::viewButton, Control::convButton, Control::baseButton, Control::eqButton})
        addButton(button, *m_frame);
    auto* formula = new ElidedLabel(m_frame);
    formula->setTextFormat(Qt::PlainText);
    m_controls.add(Control::FormulaBox, formula);
}

void MainForm::buildSelectionCues()
{
    using enum Control;
    addTag(*m_desk, "valueTag", "Value", Qt::AlignRight);
    addTag(*m_desk, "cueTimeTag", "Time", Qt::AlignRight);
    addTag(*m_frame, "leftTag", "Left:");
    addTag(*m_frame, "rightTag", "Right:");
    for (const Control cue : {slLabel, ldLabel, ltLabel, srLabel, rdLabel, rtLabel}) addValue(cue, *m_frame);
}

void MainForm::buildPlots()
{
    for (int index = 0; index < 2; ++index) {
        auto* plot = new PlotArea(index, m_frame);
        m_frame->watch(plot);
        m_controls.add(element(Control::Picture1_0, index), plot);
        buildRange(index);
    }
    auto* bar = new QScrollBar(Qt::Horizontal, m_frame);
    m_frame->takeWheelOf(bar);
    m_controls.add(Control::HScroll1, bar);
    connect(m_frame, &PlotsFrame::wheelTurned, this, &MainForm::wheelTurned);
}

void MainForm::buildRange(int index)
{
    using enum Control;
    for (const Control box : {element(maxLabel0, index), element(minLabel0, index)})
        m_controls.add(box, new RangeBox(m_frame));
    const auto addSmallTag = [&](const char* name, const char* text, Control box) {
        QLabel* tag = addTag(*m_frame, name, text, Qt::AlignRight);
        tag->setFont(smallPrint(tag->font()));
        tag->setBuddy(m_controls.widget(box));
    };
    addSmallTag(index == 0 ? "topTag0" : "topTag1", "Top:", element(maxLabel0, index));
    addSmallTag(index == 0 ? "bottomTag0" : "bottomTag1", "Bottom:", element(minLabel0, index));
    const auto addSmallCheck = [&](Control check) {
        addCheck(check, *m_frame);
        m_controls.widget(check)->setFont(smallPrint(font()));
    };
    addSmallCheck(element(scaleBox0, index));
    if (index == 0) return;
    addSmallCheck(refCheck);
    m_controls.add(refBox, new RangeBox(m_frame));
}

void MainForm::buildCueRows()
{
    using enum Control;
    addTag(*m_desk, "Label3", "Columns:");
    addTag(*m_desk, "Label6", "Rows:");
    addTag(*m_desk, "Label12", "In:");
    addTag(*m_desk, "Label4", "Base:");
    addTag(*m_desk, "Label5", "Out:");
    addTag(*m_desk, "dateTag", "DOY:");
    addTag(*m_desk, "timeTag", "Time:");
    for (const Control cue : {colLabel, rowLabel, inLabel, baseLabel, outLabel, dateLabel, timeLabel})
        addValue(cue, *m_desk);
    addCheck(highBox, *m_desk);
    m_controls.widget(highBox)->setToolTip(QStringLiteral("Check this if the values are lower than the baseline"));
}

QLabel* MainForm::addTag(QWidget& owner, const char* name, const char* text, Qt::Alignment alignment)
{
    auto* tag = new QLabel(qt(text), &owner);
    tag->setObjectName(qt(name));
    tag->setAlignment(alignment | Qt::AlignVCenter);
    return tag;
}

void MainForm::addButton(Control control, QWidget& owner)
{
    auto* button = new QPushButton(&owner);
    m_controls.add(control, button);
    button->setAutoDefault(false);
    button->setFocusPolicy(Qt::TabFocus); // a click leaves the keys with the plot
}

void MainForm::addCheck(Control control, QWidget& owner)
{
    auto* box = new QCheckBox(&owner);
    box->setFocusPolicy(Qt::TabFocus);
    m_controls.add(control, box);
}

void MainForm::addValue(Control control, QWidget& owner)
{
    auto* label = new ElidedLabel(&owner);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_controls.add(control, label);
}

void MainForm::addList(int index)
{
    const auto i = static_cast<std::size_t>(index);
    auto* list = new CalmList(m_desk);
    m_listModels[i] = new ColumnListModel(list);
    list->setModel(m_listModels[i]);
    list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    list->setMinimumContentsLength(6);
    list->setMaxVisibleItems(24);
    if (auto* view = qobject_cast<QListView*>(list->view())) view->setUniformItemSizes(true);
    m_controls.add(element(Control::varList0, index), list);
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
