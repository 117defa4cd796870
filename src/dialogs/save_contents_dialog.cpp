// SPDX-License-Identifier: MIT
#include "dialogs/save_contents_dialog.h"

#include "dialogs/file_dialogs.h"
#include "dialogs/named.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace tarvelint {

namespace {

QPushButton* addButton(QBoxLayout& row, const char* name, const char* caption)
{
    auto* button = new QPushButton(QString::fromLatin1(caption));
    row.addWidget(named(button, name, button->text()));
    return button;
}

} // namespace

SaveContentsDialog::SaveContentsDialog(SaveContents& contents, Entry answer, QWidget* parent)
    : ProgramDialog(parent), m_contents(contents), m_answer(std::move(answer))
{
    setObjectName(QStringLiteral("FileTypeFrm"));
    setWindowTitle(QStringLiteral("Save:"));

    auto* frame = new QGroupBox(QStringLiteral("File contents"));
    named(frame, "contentsFrame", frame->title());
    auto* layers = new QVBoxLayout(frame);
    layers->addWidget(addBox("inCheck", "unconverted data", &SaveChoices::unconverted));
    layers->addWidget(addBox("baseCheck", "baseline data", &SaveChoices::baseline));
    layers->addWidget(addBox("outCheck", "converted data", &SaveChoices::converted));

    auto* header = addBox("headerCheck", "Include a header line (recommended)", &SaveChoices::header);
    header->setToolTip(QStringLiteral("The first line will describe the contents of the file and enable Tarvelint to "
                                      "open the file correctly next time"));
    auto* blank = addBox("blankCheck", "Replace missing values with dots", &SaveChoices::dots);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    auto* cancel = addButton(*buttons, "CancelButton", "Cancel");
    auto* ok = addButton(*buttons, "OKButton", "OK");
    connect(ok, &QPushButton::clicked, this, &SaveContentsDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &SaveContentsDialog::reject);

    auto* boxes = new QWidget;
    auto* column = new QVBoxLayout(boxes);
    column->setSpacing(column->spacing() + 4);
    column->addWidget(frame);
    column->addWidget(header);
    column->addWidget(blank);
    column->addSpacing(8);
    QVBoxLayout& parts = setParts(boxes, buttons);
    parts.setSpacing(column->spacing());
    parts.setSizeConstraint(QLayout::SetFixedSize);
    ok->setDefault(true); // once it is in the dialog: before, the first button would be the default
    showContents();
}

QCheckBox* SaveContentsDialog::addBox(const char* name, const char* caption, bool SaveChoices::*value)
{
    auto* box = new QCheckBox(QString::fromLatin1(caption));
    named(box, name, box->text());
    connect(box, &QCheckBox::toggled, this, [this, value](bool checked) { m_contents.choices.*value = checked; });
    m_boxes.append({box, value});
    return box;
}

void SaveContentsDialog::showContents()
{
    for (const Box& box : m_boxes) box.widget->setChecked(m_contents.choices.*box.value);
}

void SaveContentsDialog::ask()
{
    if (isVisible()) return activateWindow();
    m_contents.open();
    showContents();
    m_boxes.first().widget->setFocus();
    static_cast<void>(showUntilHidden(*this));
}

void SaveContentsDialog::accept()
{
    m_answer([this] { m_contents.OKButton_Click(); });
    QDialog::accept();
}

void SaveContentsDialog::reject()
{
    m_answer([this] { m_contents.CancelButton_Click(); });
    QDialog::reject();
}

} // namespace tarvelint
