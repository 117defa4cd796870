// SPDX-License-Identifier: MIT
#include "dialogs/options_dialog.h"

#include "dialogs/named.h"

#include <QApplication>
#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

#include <limits>
#include <utility>

namespace tarvelint {

OptionsDialog::OptionsDialog(SettingsStore& store, Command command, std::function<std::vector<Window*>()> windows)
    : m_options(store), m_command(std::move(command)), m_windows(std::move(windows))
{
    setObjectName(QStringLiteral("frmOptions"));
    setWindowTitle(QStringLiteral("Options"));
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_QuitOnClose, false);
    constexpr int kSpacing = 12;
    auto* contents = new QWidget;
    auto* column = new QVBoxLayout(contents);
    column->setSpacing(kSpacing);
    column->addLayout(buildBoxes());
    auto* zero = new QCheckBox(QStringLiteral("initiallize with zeros")); // spelled so on purpose: users search for it
    named(zero, "zeroBox", zero->text());
    zero->setChecked(m_options.zeroBox);
    connect(zero, &QCheckBox::toggled, this, [this](bool checked) { m_options.zeroBox = checked; });
    column->addWidget(zero);
    column->addStretch();
    setParts(contents, buildButtons()).setSpacing(kSpacing);
    m_cmdApplyCur->setDefault(true); // once it is in the dialog: before, the first button would be the default
}

QGridLayout* OptionsDialog::buildBoxes()
{
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(10);
    m_eqBox = addBox(*grid, 0, "eqBox", "Equation", &Options::eqBox);
    m_eqBox->setMaxLength(std::numeric_limits<int>::max()); // too long is refused in words, not cut off in silence
    m_eqBox->setMinimumWidth(34 * fontMetrics().averageCharWidth());
    addBox(*grid, 1, "dateBox", "Date column", &Options::dateBox);
    addBox(*grid, 2, "timeBox", "Time column", &Options::timeBox);
    addBox(*grid, 3, "parBox", "PAR column", &Options::parBox);
    addBox(*grid, 4, "vpdBox", "VPD column", &Options::vpdBox);
    addBox(*grid, 5, "timiBox", "Minimum time intervals", &Options::timiBox);
    addBox(*grid, 6, "VPDlBox", "VPD limit", &Options::VPDlBox);
    addBox(*grid, 7, "PARlBox", "PAR limit", &Options::PARlBox);
    addBox(*grid, 8, "blankBox", "Number for missing values", &Options::blankBox);
    grid->setColumnStretch(1, 1);
    return grid;
}

QLineEdit* OptionsDialog::addBox(QGridLayout& grid, int line, const char* name, const char* caption,
                                 std::string Options::*text)
{
    auto* label = new QLabel(QString::fromLatin1(caption));
    auto* box = named(new QLineEdit(QString::fromStdString(m_options.*text)), name, label->text());
    box->setCursorPosition(0);
    label->setBuddy(box);
    grid.addWidget(label, line, 0);
    if (text == &Options::eqBox) {
        grid.addWidget(box, line, 1);
    } else {
        box->setFixedWidth(numberWidth());
        grid.addWidget(box, line, 1, Qt::AlignLeft);
    }
    connect(box, &QLineEdit::textChanged, this,
            [this, text](const QString& typed) { m_options.*text = typed.toStdString(); });
    return box;
}

QBoxLayout* OptionsDialog::buildButtons()
{
    auto* row = new QHBoxLayout;
    row->addStretch();
    auto* cancel = named(new QPushButton(QStringLiteral("Cancel")), "cmdCancel", QStringLiteral("Cancel"));
    connect(cancel, &QPushButton::clicked, this, &QDialog::close);
    row->addWidget(cancel);
    m_cmdApplyCur =
        addButton(*row, "cmdApplyCur", "Change current", "Changes will affect current window only and won't be saved",
                  [this] { return m_options.cmdApplyCur_Click(); });
    addButton(*row, "cmdApplyAll", "Change &all", "Changes will affect all open windows and will be saved",
              [this] { return m_options.cmdApplyAll_Click(m_windows()); });
    return row;
}

QPushButton* OptionsDialog::addButton(QBoxLayout& row, const char* name, const char* caption, const char* tip,
                                      const std::function<bool()>& work)
{
    auto* button = new QPushButton(QString::fromLatin1(caption));
    named(button, name, button->text().remove(u'&'));
    button->setToolTip(QString::fromUtf8(tip));
    connect(button, &QPushButton::clicked, this, [this, work] { apply(work); });
    row.addWidget(button);
    return button;
}

void OptionsDialog::apply(const std::function<bool()>& work)
{
    bool ran = false;
    bool applied = false;
    const QPointer<OptionsDialog> dialog(this); // goes with any window that closes meanwhile
    const QPointer<QWidget> focused(focusWidget());
    setEnabled(false); // a message about it belongs to the window, and blocks only that
    m_command(*m_options.parentForm, [&] {
        ran = true;
        applied = work();
    });
    if (!dialog) return;
    setEnabled(true);
    if (focused) focused->setFocus();
    m_eqBox->setText(QString::fromStdString(m_options.eqBox)); // as repaired
    if (!ran) QApplication::beep();                            // its window is at work
    if (applied)
        close();
    else
        comeForward(); // the message was its window's
}

void OptionsDialog::showFor(Window& parent)
{
    m_options.parentForm = &parent;
    show();
    comeForward();
}

void OptionsDialog::comeForward()
{
    raise();
    activateWindow();
}

void OptionsDialog::selectEquation()
{
    m_eqBox->setFocus();
    m_eqBox->selectAll();
}

} // namespace tarvelint
