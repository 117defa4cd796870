// SPDX-License-Identifier: MIT
#include "dialogs/column_setup_dialog.h"

#include "dialogs/label_text.h"
#include "dialogs/named.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <limits>

namespace tarvelint {

namespace {

constexpr int kGap = 8; ///< pixels between the parts of a row

} // namespace

ColumnSetupDialog::ColumnSetupDialog(ColumnSetup& setup, Command command, QWidget* parent)
    : ProgramDialog(parent), m_setup(setup), m_command(std::move(command))
{
    setObjectName(QStringLiteral("labelForm"));
    setWindowTitle(QStringLiteral("Labels"));
    buildRows();

    auto* rows = new QHBoxLayout;
    rows->setSpacing(2);
    rows->addWidget(m_formPicture, 1);
    rows->addWidget(m_VScroll1);
    auto* contents = new QWidget;
    m_across = new QHBoxLayout(contents);
    m_across->setSpacing(16);
    m_across->addLayout(rows, 2);
    m_across->addWidget(buildChoices(), 3);
    setParts(contents, buildButtons());
    m_OKButton->setDefault(true); // once it is in the dialog: before, the first button would be the default
    setTabOrders();
}

void ColumnSetupDialog::buildRows()
{
    auto* frame = new QFrame;
    frame->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    frame->setFocusPolicy(Qt::ClickFocus);
    frame->installEventFilter(this);
    m_formPicture = named(frame, "formPicture", QStringLiteral("Columns"));
    for (int i = 0; i < ColumnSetup::kVisibleRows; ++i) m_rows.push_back(buildRow());

    const Row& row = m_rows.front();
    const int pitch = std::max(
        {ColumnSetup::kRowPitch, row.labelBox->sizeHint().height() + 4, row.checkBox->sizeHint().height() + 4});
    m_pixelsPerUnit = static_cast<double>(pitch) / ColumnSetup::kRowPitch;
    const int topMargin = ColumnSetup::rowTop(1, 0);
    frame->setMinimumHeight(pixels(ColumnSetup::rowTop(ColumnSetup::kVisibleRows + 1, 0) + topMargin));
    frame->setMinimumWidth(row.colLabel->width() + 24 * fontMetrics().averageCharWidth() +
                           row.checkBox->sizeHint().width() + 4 * kGap);

    m_VScroll1 = named(new QScrollBar(Qt::Vertical), "VScroll1", QStringLiteral("Page through the columns"));
    m_VScroll1->setPageStep(ColumnSetup::kVisibleRows);
    m_VScroll1->hide();
    connect(m_VScroll1, &QScrollBar::valueChanged, this, &ColumnSetupDialog::VScroll1_Change);
}

ColumnSetupDialog::Row ColumnSetupDialog::buildRow()
{
    Row row{new QLabel(m_formPicture), new QLineEdit(m_formPicture), new QCheckBox(m_formPicture)};
    row.colLabel->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    row.colLabel->resize(fontMetrics().horizontalAdvance(QStringLiteral("32767")), row.colLabel->sizeHint().height());
    row.labelBox->setMaxLength(std::numeric_limits<int>::max());
    row.checkBox->setText(QStringLiteral("Do not convert"));
    row.labelBox->installEventFilter(this);
    row.checkBox->installEventFilter(this);
    const auto place = m_rows.size();
    connect(row.labelBox, &QLineEdit::textChanged, this,
            [this, place](const QString& text) { labelEdited(m_rows[place], text); });
    connect(row.checkBox, &QCheckBox::toggled, this,
            [this, place](bool checked) { m_setup.setCheckBox(m_rows[place].row1, checked); });
    return row;
}

QWidget* ColumnSetupDialog::buildChoices()
{
    auto* choices = new QWidget;
    auto* tip = new QLabel(QString::fromStdString(ColumnSetup::tipLabel()));
    tip->setObjectName(QStringLiteral("tipLabel"));
    tip->setTextFormat(Qt::PlainText);
    tip->setWordWrap(true);
    tip->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    const int width = 72 * fontMetrics().averageCharWidth();
    tip->setMinimumSize(width, tip->heightForWidth(width)); // whole on the smallest screen too

    m_saveBox = new QCheckBox(QStringLiteral("Save labels in output file"));
    named(m_saveBox, "saveBox", m_saveBox->text());
    connect(m_saveBox, &QCheckBox::toggled, this, [this](bool checked) { m_setup.boxes.saveBox = checked; });
    m_turboCheck = new QCheckBox(QStringLiteral("VPD pre-process"));
    named(m_turboCheck, "turboCheck", m_turboCheck->text());
    m_paramFrame = buildParamFrame();
    connect(m_turboCheck, &QCheckBox::toggled, this, [this](bool checked) {
        m_setup.boxes.turboCheck = checked;
        m_paramFrame->setEnabled(m_setup.paramFrameOn());
    });

    auto* down = new QVBoxLayout(choices);
    down->setContentsMargins({});
    down->addWidget(tip, 1);
    down->addSpacing(6);
    down->addWidget(m_saveBox);
    down->addWidget(m_turboCheck);
    down->addWidget(m_paramFrame);
    return choices;
}

QGroupBox* ColumnSetupDialog::buildParamFrame()
{
    auto* frame = named(new QGroupBox, "paramFrame", QStringLiteral("VPD pre-process parameters"));
    auto* grid = new QGridLayout(frame);
    grid->setHorizontalSpacing(kGap);
    grid->setColumnMinimumWidth(2, kGap);
    grid->setColumnStretch(5, 1);
    using Boxes = ColumnSetup::Boxes;
    addParameterBox(*frame, "vpdBox", "VPD column", &Boxes::vpdBox, 0, 0);
    addParameterBox(*frame, "parBox", "PAR column", &Boxes::parBox, 0, 3);
    addParameterBox(*frame, "VPDlBox", "VPD limit", &Boxes::VPDlBox, 1, 0);
    addParameterBox(*frame, "PARlBox", "PAR limit", &Boxes::PARlBox, 1, 3);
    addParameterBox(*frame, "timeBox", "Minimum time intervals", &Boxes::timeBox, 2, 0);
    frame->setEnabled(false);
    return frame;
}

void ColumnSetupDialog::addParameterBox(QGroupBox& frame, const char* name, const char* caption,
                                        std::string ColumnSetup::Boxes::*value, int line, int column)
{
    auto* text = new QLabel(QString::fromLatin1(caption));
    auto* box = named(new QLineEdit, name, text->text());
    box->setFixedWidth(12 * fontMetrics().averageCharWidth());
    text->setBuddy(box);
    auto* grid = static_cast<QGridLayout*>(frame.layout());
    grid->addWidget(text, line, column);
    grid->addWidget(box, line, column + 1);
    m_parameterBoxes.push_back({box, value});
    connect(box, &QLineEdit::textChanged, this,
            [this, value](const QString& typed) { m_setup.boxes.*value = typed.toStdString(); });
}

QBoxLayout* ColumnSetupDialog::buildButtons()
{
    auto* cancel = named(new QPushButton(QStringLiteral("Cancel")), "CancelButton", QStringLiteral("Cancel"));
    auto* ok = named(new QPushButton(QStringLiteral("OK")), "OKButton", QStringLiteral("OK"));
    connect(ok, &QPushButton::clicked, this, &ColumnSetupDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &ColumnSetupDialog::reject);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cancel);
    buttons->addWidget(ok);
    m_CancelButton = cancel;
    m_OKButton = ok;
    return buttons;
}

void ColumnSetupDialog::setTabOrders()
{
    QList<QWidget*> chain{m_formPicture};
    for (const Row& row : m_rows) chain << row.labelBox << row.checkBox;
    chain << m_saveBox << m_turboCheck;
    for (const auto& box : m_parameterBoxes) chain << box.widget;
    chain << m_CancelButton << m_OKButton;
    for (qsizetype i = 1; i < chain.size(); ++i) setTabOrder(chain[i - 1], chain[i]);
}

void ColumnSetupDialog::showFor(bool blocking)
{
    if (isHidden()) { // else the rows hold what the user has made of the labels
        m_originals.clear();
        for (int i = 1; i <= m_setup.rows(); ++i) m_originals.push_back(m_setup.labelBox(i));
    }
    hide(); // a window cannot change its modality while it is shown
    setWindowModality(blocking ? Qt::WindowModal : Qt::NonModal);
    showBoxes();
    setScrollBar();
    m_across->setDirection(QBoxLayout::LeftToRight);
    if (layout()->contentsMargins().left() * 2 + m_across->totalSizeHint().width() > freeSize().width())
        m_across->setDirection(QBoxLayout::TopToBottom); // so that it scrolls one way only
    setAttribute(Qt::WA_Moved, false);                   // placed over its window anew at each showing
    show();
    if (m_setup.rows() > 0) goTo(1, false);
}

void ColumnSetupDialog::showBoxes()
{
    const QSignalBlocker saveQuiet(m_saveBox);
    const QSignalBlocker turboQuiet(m_turboCheck);
    m_saveBox->setChecked(m_setup.boxes.saveBox);
    m_turboCheck->setChecked(m_setup.boxes.turboCheck);
    m_paramFrame->setEnabled(m_setup.paramFrameOn());
    for (const auto& box : m_parameterBoxes) {
        const QSignalBlocker quiet(box.widget);
        box.widget->setText(QString::fromStdString(m_setup.boxes.*box.value));
    }
}

void ColumnSetupDialog::setScrollBar()
{
    const QSignalBlocker quiet(m_VScroll1); // a new maximum alone would page too
    m_VScroll1->setRange(0, m_setup.scrollBarMax());
    m_VScroll1->setValue(0);
    m_VScroll1->setVisible(m_setup.scrollBarVisible());
    VScroll1_Change(0);
}

void ColumnSetupDialog::VScroll1_Change(int value)
{
    for (int i = 0; i < ColumnSetup::kVisibleRows; ++i) bind(m_rows[static_cast<std::size_t>(i)], value + i + 1);
    placeRows();
    m_formPicture->setFocus();
}

void ColumnSetupDialog::bind(Row& row, int row1)
{
    row.row1 = isRow(row1) ? row1 : 0;
    for (QWidget* widget : {static_cast<QWidget*>(row.colLabel), static_cast<QWidget*>(row.labelBox),
                            static_cast<QWidget*>(row.checkBox)}) {
        widget->setVisible(row.row1 != 0);
        widget->setObjectName(QString());
    }
    if (row.row1 == 0) return;

    const QString number = QString::number(row1);
    const QSignalBlocker labelQuiet(row.labelBox);
    const QSignalBlocker checkQuiet(row.checkBox);
    row.colLabel->setText(number);
    row.labelBox->setText(labelForScreen(m_setup.labelBox(row1)));
    row.labelBox->setCursorPosition(0);
    row.checkBox->setChecked(m_setup.checkBox(row1));
    row.colLabel->setObjectName(QStringLiteral("colLabel") + number);
    row.labelBox->setObjectName(QStringLiteral("labelBox") + number);
    row.checkBox->setObjectName(QStringLiteral("checkBox") + number);
    row.colLabel->setAccessibleName(QStringLiteral("Column ") + number);
    row.labelBox->setAccessibleName(QStringLiteral("Label of column ") + number);
    row.checkBox->setAccessibleName(QStringLiteral("Do not convert column ") + number);
}

void ColumnSetupDialog::placeRows()
{
    const int height = pixels(ColumnSetup::kRowPitch);
    for (const Row& row : m_rows) {
        const int top = pixels(ColumnSetup::rowTop(row.row1, m_VScroll1->value()));
        const int checkWidth = row.checkBox->sizeHint().width();
        const int checkLeft = m_formPicture->width() - kGap - checkWidth;
        const int labelLeft = kGap / 2 + row.colLabel->width() + kGap;
        const int labelHeight = row.labelBox->sizeHint().height();
        row.colLabel->setGeometry(kGap / 2, top, row.colLabel->width(), labelHeight);
        row.labelBox->setGeometry(labelLeft, top, checkLeft - kGap - labelLeft, labelHeight);
        row.checkBox->setGeometry(checkLeft, top, checkWidth, std::min(height, labelHeight));
    }
}

int ColumnSetupDialog::pixels(int units) const
{
    return static_cast<int>(std::lround(units * m_pixelsPerUnit));
}

const ColumnSetupDialog::Row* ColumnSetupDialog::rowOf(const QObject* widget) const
{
    const auto found = std::find_if(m_rows.begin(), m_rows.end(), [widget](const Row& row) {
        return row.row1 != 0 && (widget == row.labelBox || widget == row.checkBox);
    });
    return found == m_rows.end() ? nullptr : &*found;
}

void ColumnSetupDialog::goTo(int row1, bool toCheckBox)
{
    m_VScroll1->setValue(m_setup.scrollValueShowing(row1, m_VScroll1->value()));
    const Row& row = m_rows[static_cast<std::size_t>(row1 - 1 - m_VScroll1->value())];
    if (toCheckBox) return row.checkBox->setFocus(Qt::TabFocusReason);
    row.labelBox->setFocus(Qt::TabFocusReason);
    row.labelBox->selectAll();
}

bool ColumnSetupDialog::focusNextPrevChild(bool next)
{
    // Rows out of view have no widgets to tab to: they page into view one by one.
    const QWidget* widget = focusWidget();
    if (const Row* row = rowOf(widget)) {
        const int neighbour = row->row1 + (next ? 1 : -1);
        const bool leavesRow = (widget == row->checkBox) == next;
        if (leavesRow && isRow(neighbour)) {
            goTo(neighbour, !next);
            return true;
        }
    }
    // In the chain of widgets the rows in view would follow, wherever the bar stands.
    const bool fromOutside = next ? widget == m_OKButton : widget == m_saveBox;
    if (fromOutside && m_setup.rows() > 0) {
        goTo(next ? 1 : m_setup.rows(), !next);
        return true;
    }
    return QDialog::focusNextPrevChild(next);
}

bool ColumnSetupDialog::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_formPicture && event->type() == QEvent::Resize) placeRows();
    if (watched == m_formPicture && event->type() == QEvent::Wheel && m_VScroll1->isVisible())
        return QCoreApplication::sendEvent(m_VScroll1, event);
    if (event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        const auto modifiers = key->modifiers() & ~Qt::KeypadModifier;
        if (modifiers == Qt::NoModifier && takeRowKey(watched, key->key())) return true;
    }
    return ProgramDialog::eventFilter(watched, event);
}

bool ColumnSetupDialog::takeRowKey(const QObject* watched, int key)
{
    const int step = key == Qt::Key_Up         ? -1
                     : key == Qt::Key_Down     ? 1
                     : key == Qt::Key_PageUp   ? -ColumnSetup::kVisibleRows
                     : key == Qt::Key_PageDown ? ColumnSetup::kVisibleRows
                                               : 0;
    if (step == 0) return false;
    if (const Row* row = rowOf(watched))
        goTo(std::clamp(row->row1 + step, 1, m_setup.rows()), watched == row->checkBox);
    else
        m_VScroll1->setValue(m_VScroll1->value() + step);
    return true;
}

void ColumnSetupDialog::labelEdited(const Row& row, const QString& text)
{
    if (const QString shown = blanksForControls(text); shown != text) { // pasted or dropped
        const int cursor = row.labelBox->cursorPosition();
        row.labelBox->setText(shown);
        return row.labelBox->setCursorPosition(cursor);
    }
    m_setup.setLabelBox(row.row1, labelFromScreen(text, m_originals.at(static_cast<std::size_t>(row.row1 - 1))));
}

void ColumnSetupDialog::accept()
{
    m_command([this] { m_setup.OKButton_Click(); });
}

void ColumnSetupDialog::reject()
{
    m_setup.CancelButton_Click();
}

} // namespace tarvelint
