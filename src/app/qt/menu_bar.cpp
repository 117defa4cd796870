// SPDX-License-Identifier: MIT
#include "app/qt/menu_bar.h"

#include "app/qt/program_icons.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

#include <vector>

namespace tarvelint {

namespace {

QString qt(const std::string& text)
{
    return QString::fromStdString(text);
}

constexpr int kIconSize = 16;

std::vector<ResControl> menuCaptions(const StringTable& table)
{
    std::vector<ResControl> controls;
    for (const Command& command : commandTable()) controls.push_back({ControlType::menu, {}, command.caption, {}, {}});
    ResControl form;
    loadResStrings(form, controls, table);
    return controls;
}

/// The tool bar's keys with spaces left out: "toolAlignLeft".
QString toolName(const QString& key)
{
    return QStringLiteral("tool") + QString(key).remove(u' ');
}

/// "align-left.svg".
QIcon toolIcon(const QString& key)
{
    return glyphIcon(QStringLiteral(":/icons/%1.svg").arg(key.toLower().replace(u' ', u'-')));
}

} // namespace

MenuActions buildMenus(QMainWindow& window, const StringTable& table)
{
    MenuActions built;
    const std::vector<ResControl> captions = menuCaptions(table);
    QMenu* menu = nullptr;
    for (std::size_t i = 0; i < captions.size(); ++i) {
        const Command& command = commandTable()[i];
        const QString caption = qt(captions[i].caption);
        if (command.kind == Command::Kind::menu) {
            menu = window.menuBar()->addMenu(caption);
            menu->setObjectName(QString::fromLatin1(command.name));
            continue;
        }
        const bool isSeparator = command.kind == Command::Kind::separator;
        QAction* action = isSeparator ? menu->addSeparator() : menu->addAction(caption);
        action->setObjectName(QString::fromLatin1(command.name));
        if (isSeparator) continue;
        action->setShortcut(QKeySequence(QString::fromLatin1(command.shortcut)));
        action->setCheckable(command.checkable);
        built.actions[command.control] = action;
        built.captions[command.control] = captions[i].caption;
    }
    return built;
}

ToolActions buildToolBar(QWidget& owner, const StringTable& table)
{
    ToolActions built{.bar = new QToolBar(qt(controlRow(Control::tbToolBar).spoken), &owner), .actions = {}};
    ResControl bar{ControlType::toolbar, {}, {}, {}, {}};
    for (const ToolButton& tool : toolTable()) bar.parts.push_back({ControlType::other, {}, {}, tool.toolTip, {}});
    ResControl form;
    std::vector<ResControl> controls{bar};
    loadResStrings(form, controls, table);

    built.bar->setContextMenuPolicy(Qt::PreventContextMenu);
    built.bar->setIconSize({kIconSize, kIconSize});
    for (std::size_t i = 0; i < toolTable().size(); ++i) {
        const ToolButton& tool = toolTable()[i];
        const QString key = QString::fromLatin1(tool.key);
        if (tool.beginsGroup) built.bar->addSeparator();
        QAction* action = built.bar->addAction(toolIcon(key), key);
        action->setObjectName(toolName(key));
        action->setToolTip(qt(controls.front().parts[i].toolTip));
        built.actions.emplace(tool.entry.value_or(Control::count), action);
    }
    return built;
}

} // namespace tarvelint
