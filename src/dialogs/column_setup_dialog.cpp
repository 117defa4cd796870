// SPDX-License-Identifier: MIT
#include "dialogs/column_setup_dialog.h"

#include "dialogs/column_rows.h"
#include "dialogs/dialog_place.h"
#include "dialogs/named.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <utility>

namespace tarvelint {

namespace {

constexpr int kGap = 8; ///< pixels between captions and boxes

} // namespace

ColumnSetupDialog::ColumnSetupDialog(ColumnSetup& setup, Entry command, Entry answer, QWidget* parent)
    : ProgramDialog(parent), m_setup(setup), m_command(std::move(command)), m_answer(std::move(answer))
{
    setObjectName(QStringLiteral("labelForm"));
    setWindowTitle(QStringLiteral("Labels"));
    m_rows = new ColumnRows(setup);
    auto* rows = new QHBoxLayout;
    rows->setSpacing(2);
    rows->addWidget(m_rows, 1);
    rows->addWidget(m_rows->bar());
    auto* contents = new QWidget;
    m_across = new QHBoxLayout(contents);
    m_across->setSpacing(16);
    m_across->addLayout(rows, 2);
    m_across->addWidget(buildChoices(), 3);
    setParts(contents, buildButtons());
    m_OKButton->setDefault(true); // once it is in the dialog: before, the first button would be the default
    setTabOrders();
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
    box->setFixedWidth(numberWidth());
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
    QList<QWidget*> chain{m_rows};
    chain << m_rows->tabChain() << m_saveBox << m_turboCheck;
    for (const auto& box : m_parameterBoxes) chain << box.widget;
    chain << m_CancelButton << m_OKButton;
    for (qsizetype i = 1; i < chain.size(); ++i) setTabOrder(chain[i - 1], chain[i]);
}

void ColumnSetupDialog::showFor(bool blocking)
{
    if (isHidden()) m_rows->takeOriginals(); // else the rows hold what the user has made of the labels
    hide();                                  // a window cannot change its modality while it is shown
    setWindowModality(blocking ? Qt::WindowModal : Qt::NonModal);
    showBoxes();
    m_rows->showFromFirst();
    m_across->setDirection(QBoxLayout::LeftToRight);
    if (layout()->contentsMargins().left() * 2 + m_across->totalSizeHint().width() > freeSize().width())
        m_across->setDirection(QBoxLayout::TopToBottom); // so that it scrolls one way only
    standBesideWindow();
    show();
    if (m_setup.rows() > 0) m_rows->goTo(1, false);
}

void ColumnSetupDialog::standBesideWindow()
{
    if (parentWidget() == nullptr) return;
    const QWidget& over = *parentWidget()->window();
    fitToScreen();
    // The dialog's own frame is known only once it is on the screen; window managers give both the same.
    const QSize frame = over.frameGeometry().size() - over.size();
    move(besideWindow(over.screen()->availableGeometry(), over.frameGeometry(), size() + frame));
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

bool ColumnSetupDialog::focusNextPrevChild(bool next)
{
    const QWidget* widget = focusWidget();
    if (m_rows->takeTab(widget, next)) return true;
    // In the chain of widgets the rows in view would follow, wherever the bar stands.
    const bool fromOutside = next ? widget == m_OKButton : widget == m_saveBox;
    if (fromOutside && m_setup.rows() > 0) {
        m_rows->goTo(next ? 1 : m_setup.rows(), !next);
        return true;
    }
    return QDialog::focusNextPrevChild(next);
}

bool ColumnSetupDialog::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress && m_rows->takeRowKey(watched, *static_cast<QKeyEvent*>(event))) return true;
    return ProgramDialog::eventFilter(watched, event);
}

void ColumnSetupDialog::accept()
{
    m_command([this] { m_setup.OKButton_Click(); });
}

void ColumnSetupDialog::reject()
{
    m_answer([this] { m_setup.CancelButton_Click(); });
}

} // namespace tarvelint
