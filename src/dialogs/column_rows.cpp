// SPDX-License-Identifier: MIT
#include "dialogs/column_rows.h"

#include "dialogs/label_text.h"
#include "dialogs/named.h"
#include "forms/column_setup.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <limits>

namespace tarvelint {

namespace {

constexpr int kGap = 8; ///< pixels between the parts of a row

} // namespace

ColumnRows::ColumnRows(ColumnSetup& setup) : m_setup(setup)
{
    named(this, "formPicture", QStringLiteral("Columns"));
    setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    setFocusPolicy(Qt::ClickFocus);
    for (int i = 0; i < ColumnSetup::kVisibleRows; ++i) m_rows.push_back(buildRow());
    fitRows();

    m_VScroll1 = named(new QScrollBar(Qt::Vertical), "VScroll1", QStringLiteral("Page through the columns"));
    m_VScroll1->setPageStep(ColumnSetup::kVisibleRows);
    m_VScroll1->hide();
    connect(m_VScroll1, &QScrollBar::valueChanged, this, &ColumnRows::VScroll1_Change);
}

ColumnRows::Row ColumnRows::buildRow()
{
    Row row{new QLabel(this), new QLineEdit(this), new QCheckBox(this)};
    row.colLabel->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    row.colLabel->resize(fontMetrics().horizontalAdvance(QStringLiteral("32767")), row.colLabel->sizeHint().height());
    row.labelBox->setMaxLength(std::numeric_limits<int>::max());
    row.checkBox->setText(QStringLiteral("Do not convert"));
    const auto place = m_rows.size();
    connect(row.labelBox, &QLineEdit::textChanged, this,
            [this, place](const QString& text) { labelEdited(m_rows[place], text); });
    connect(row.checkBox, &QCheckBox::toggled, this,
            [this, place](bool checked) { m_setup.setCheckBox(m_rows[place].row1, checked); });
    return row;
}

void ColumnRows::fitRows()
{
    const Row& row = m_rows.front();
    const int pitch = std::max(
        {ColumnSetup::kRowPitch, row.labelBox->sizeHint().height() + 4, row.checkBox->sizeHint().height() + 4});
    m_pixelsPerUnit = static_cast<double>(pitch) / ColumnSetup::kRowPitch;
    const int topMargin = ColumnSetup::rowTop(1, 0);
    setMinimumHeight(pixels(ColumnSetup::rowTop(ColumnSetup::kVisibleRows + 1, 0) + topMargin));
    setMinimumWidth(row.colLabel->width() + 24 * fontMetrics().averageCharWidth() + row.checkBox->sizeHint().width() +
                    4 * kGap);
}

QList<QWidget*> ColumnRows::tabChain() const
{
    QList<QWidget*> chain;
    for (const Row& row : m_rows) chain << row.labelBox << row.checkBox;
    return chain;
}

void ColumnRows::takeOriginals()
{
    m_originals.clear();
    for (int i = 1; i <= m_setup.rows(); ++i) m_originals.push_back(m_setup.labelBox(i));
}

void ColumnRows::showFromFirst()
{
    const QSignalBlocker quiet(m_VScroll1); // a new maximum alone would page too
    m_VScroll1->setRange(0, m_setup.scrollBarMax());
    m_VScroll1->setValue(0);
    m_VScroll1->setVisible(m_setup.scrollBarVisible());
    VScroll1_Change(0);
}

void ColumnRows::VScroll1_Change(int value)
{
    for (int i = 0; i < ColumnSetup::kVisibleRows; ++i) bind(m_rows[static_cast<std::size_t>(i)], value + i + 1);
    placeRows();
    setFocus();
}

void ColumnRows::bind(Row& row, int row1)
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

void ColumnRows::placeRows()
{
    const int height = pixels(ColumnSetup::kRowPitch);
    for (const Row& row : m_rows) {
        const int top = pixels(ColumnSetup::rowTop(row.row1, m_VScroll1->value()));
        const int checkWidth = row.checkBox->sizeHint().width();
        const int checkLeft = width() - kGap - checkWidth;
        const int labelLeft = kGap / 2 + row.colLabel->width() + kGap;
        const int labelHeight = row.labelBox->sizeHint().height();
        row.colLabel->setGeometry(kGap / 2, top, row.colLabel->width(), labelHeight);
        row.labelBox->setGeometry(labelLeft, top, checkLeft - kGap - labelLeft, labelHeight);
        row.checkBox->setGeometry(checkLeft, top, checkWidth, std::min(height, labelHeight));
    }
}

int ColumnRows::pixels(int units) const
{
    return static_cast<int>(std::lround(units * m_pixelsPerUnit));
}

const ColumnRows::Row* ColumnRows::rowOf(const QObject* widget) const
{
    const auto found = std::find_if(m_rows.begin(), m_rows.end(), [widget](const Row& row) {
        return row.row1 != 0 && (widget == row.labelBox || widget == row.checkBox);
    });
    return found == m_rows.end() ? nullptr : &*found;
}

bool ColumnRows::isRow(int row1) const
{
    return row1 >= 1 && row1 <= m_setup.rows();
}

void ColumnRows::goTo(int row1, bool toCheckBox)
{
    m_VScroll1->setValue(m_setup.scrollValueShowing(row1, m_VScroll1->value()));
    const Row& row = m_rows[static_cast<std::size_t>(row1 - 1 - m_VScroll1->value())];
    if (toCheckBox) return row.checkBox->setFocus(Qt::TabFocusReason);
    row.labelBox->setFocus(Qt::TabFocusReason);
    row.labelBox->selectAll();
}

bool ColumnRows::takeTab(const QWidget* focused, bool next)
{
    const Row* row = rowOf(focused);
    if (row == nullptr) return false;
    const int neighbour = row->row1 + (next ? 1 : -1);
    const bool leavesRow = (focused == row->checkBox) == next;
    if (!leavesRow || !isRow(neighbour)) return false;
    goTo(neighbour, !next);
    return true;
}

bool ColumnRows::takeRowKey(const QObject* watched, const QKeyEvent& event)
{
    if ((event.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) return false;
    const int step = event.key() == Qt::Key_Up         ? -1
                     : event.key() == Qt::Key_Down     ? 1
                     : event.key() == Qt::Key_PageUp   ? -ColumnSetup::kVisibleRows
                     : event.key() == Qt::Key_PageDown ? ColumnSetup::kVisibleRows
                                                       : 0;
    if (step == 0) return false;
    if (const Row* row = rowOf(watched))
        goTo(std::clamp(row->row1 + step, 1, m_setup.rows()), watched == row->checkBox);
    else
        m_VScroll1->setValue(m_VScroll1->value() + step);
    return true;
}

void ColumnRows::resizeEvent(QResizeEvent* event)
{
    placeRows();
    QFrame::resizeEvent(event);
}

void ColumnRows::wheelEvent(QWheelEvent* event)
{
    if (!m_VScroll1->isVisible()) return QFrame::wheelEvent(event);
    QCoreApplication::sendEvent(m_VScroll1, event);
}

void ColumnRows::labelEdited(const Row& row, const QString& text)
{
    if (const QString shown = blanksForControls(text); shown != text) { // pasted or dropped
        const int cursor = row.labelBox->cursorPosition();
        row.labelBox->setText(shown);
        return row.labelBox->setCursorPosition(cursor);
    }
    m_setup.setLabelBox(row.row1, labelFromScreen(text, m_originals.at(static_cast<std::size_t>(row.row1 - 1))));
}

} // namespace tarvelint
