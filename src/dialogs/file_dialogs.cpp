// SPDX-License-Identifier: MIT
#include "dialogs/file_dialogs.h"

#include "window/command_failure.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QEvent>
#include <QEventLoop>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QLineEdit>
#include <QPointer>

#include <algorithm>
#include <memory>

namespace tarvelint {

namespace {

/// Ends an event loop when the widget it watches is hidden by the program; minimising its window does not count.
class HideWatch : public QObject {
public:
    explicit HideWatch(QEventLoop& loop) : m_loop(loop) {}

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Hide && !event->spontaneous()) m_loop.quit();
        return QObject::eventFilter(watched, event);
    }

private:
    QEventLoop& m_loop;
};

QStringList nameFilters(const FileDialog& dialog)
{
    // The toolkit takes the last bracket for patterns and shows what stands before it.
    QStringList filters;
    for (const auto& filter : dialog.filters)
        filters += QString::fromStdString(filter.text + " (" + filter.patterns + ")");
    return filters;
}

QString& lastFolder()
{
    static QString folder;
    return folder;
}

/// Lets what stands in column 1 of a grid end at the grid's edge.
void stretchAcross(QGridLayout& grid, QWidget* widget)
{
    int line = 0, column = 0, lines = 0, columns = 0;
    grid.getItemPosition(grid.indexOf(widget), &line, &column, &lines, &columns);
    if (column == 1) grid.addWidget(widget, line, column, lines, grid.columnCount() - column);
}

/// The toolkit stacks this dialog's buttons beside the name; they belong side by side at the bottom, as everywhere
/// else.
void layButtonsAcross(QFileDialog& box)
{
    auto* buttons = box.findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"));
    auto* grid = qobject_cast<QGridLayout*>(box.layout());
    if (buttons == nullptr || grid == nullptr) return;
    stretchAcross(*grid, box.findChild<QLineEdit*>(QStringLiteral("fileNameEdit")));
    stretchAcross(*grid, box.findChild<QComboBox*>(QStringLiteral("fileTypeCombo")));
    grid->setColumnStretch(1, 1);
    buttons->setOrientation(Qt::Horizontal);
    grid->addWidget(buttons, grid->rowCount(), 0, 1, grid->columnCount());
}

void setUp(QFileDialog& box, const FileDialog& dialog, bool save)
{
    box.setObjectName(QStringLiteral("fileDialog"));
    box.setAccessibleName(QString::fromStdString(dialog.title));
    box.setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::HideNameFilterDetails);
    layButtonsAcross(box);
    box.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    box.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    box.setDirectory(QDir(lastFolder()).exists() && !lastFolder().isEmpty() ? lastFolder() : QDir::currentPath());
    const QStringList filters = nameFilters(dialog);
    box.setNameFilters(filters);
    box.selectNameFilter(filters.value(static_cast<int>(dialog.selected) - 1));
}

/// The toolkit names the picked filter with or without its patterns, depending on what it shows.
FileType pickedType(const QFileDialog& box, const FileDialog& dialog)
{
    const QString picked = box.selectedNameFilter();
    const auto found = std::find_if(dialog.filters.begin(), dialog.filters.end(), [&picked](const auto& filter) {
        return picked.startsWith(QString::fromStdString(filter.text));
    });
    if (found == dialog.filters.end()) return dialog.selected;
    return static_cast<FileType>(found - dialog.filters.begin() + 1);
}

void refuseUnlessCarriedUnchanged(const QString& name)
{
    if (isCarriedUnchanged(name)) return;
    throw CommandFailure("The name \"" + name.toStdString() +
                         "\" holds characters that are not valid UTF-8, so it cannot be told which file it means. "
                         "Choose another name, or rename the file or its folder first. Nothing was read or written.");
}

} // namespace

bool isCarriedUnchanged(const QString& name)
{
    return !name.contains(QChar::ReplacementCharacter) && !name.contains(QChar::Null) &&
           QFile::decodeName(QFile::encodeName(name)) == name;
}

bool showUntilHidden(QDialog& dialog)
{
    const QPointer<QDialog> alive(&dialog);
    QEventLoop loop;
    HideWatch watch(loop);
    dialog.installEventFilter(&watch);
    QObject::connect(&dialog, &QObject::destroyed, &loop, &QEventLoop::quit);
    dialog.setWindowModality(Qt::WindowModal);
    dialog.setAttribute(Qt::WA_Moved, false); // placed over its window anew at each showing
    dialog.show();
    loop.exec();
    if (alive) alive->hide();
    return alive != nullptr;
}

std::optional<ChosenFile> askForFile(QWidget* parent, const FileDialog& dialog, bool save)
{
    const QPointer<QFileDialog> box(new QFileDialog(parent, QString::fromStdString(dialog.title)));
    setUp(*box, dialog, save);
    if (!showUntilHidden(*box)) return std::nullopt;

    const std::unique_ptr<QFileDialog> end(box);
    const QStringList files = box->selectedFiles();
    if (box->result() != QDialog::Accepted || files.isEmpty()) return std::nullopt;
    refuseUnlessCarriedUnchanged(files.first());
    lastFolder() = QFileInfo(files.first()).absolutePath();
    return ChosenFile{files.first().toStdString(), pickedType(*box, dialog)};
}

} // namespace tarvelint
