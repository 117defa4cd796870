// SPDX-License-Identifier: MIT
#include "app/qt/menu_bar.h"

#include <QAction>
#include <QIcon>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QPixmap>
#include <QToolBar>

#include <algorithm>
#include <vector>

namespace tarvelint {

namespace {

QString qt(const std::string& text)
{
    return QString::fromStdString(text);
}

constexpr int kIconSize = 16;

// The glyphs are drawn and not loaded, so that a machine without an icon theme shows the same bar. They live in a
// square of 16 units and are outlined in the text colour of the palette.

void drawPage(QPainter& p)
{
    p.drawPolyline(QPolygonF(
        {{9.5, 1.5}, {3.5, 1.5}, {3.5, 14.5}, {12.5, 14.5}, {12.5, 4.5}, {9.5, 1.5}, {9.5, 4.5}, {12.5, 4.5}}));
}

void drawFolder(QPainter& p)
{
    p.drawPolyline(QPolygonF({{13.5, 6}, {13.5, 4.5}, {7, 4.5}, {5.5, 2.5}, {1.5, 2.5}, {1.5, 13.5}}));
    p.drawPolygon(QPolygonF({{1.5, 13.5}, {4, 6.5}, {15, 6.5}, {12.8, 13.5}}));
}

void drawDisk(QPainter& p)
{
    p.drawPolygon(QPolygonF({{2.5, 2.5}, {11.5, 2.5}, {13.5, 4.5}, {13.5, 13.5}, {2.5, 13.5}}));
    p.drawRect(QRectF(5.5, 2.5, 5, 3.5));
    p.drawRect(QRectF(4.5, 8.5, 7, 5));
}

void drawPrinter(QPainter& p)
{
    p.drawRect(QRectF(4.5, 1.5, 7, 4));
    p.drawPolyline(QPolygonF({{4.5, 11.5}, {1.5, 11.5}, {1.5, 5.5}, {14.5, 5.5}, {14.5, 11.5}, {11.5, 11.5}}));
    p.drawRect(QRectF(4.5, 9.5, 7, 5));
}

void drawScissors(QPainter& p)
{
    p.drawLine(QPointF(4, 1.5), QPointF(10, 10.5));
    p.drawLine(QPointF(12, 1.5), QPointF(6, 10.5));
    p.drawEllipse(QPointF(4.5, 12.2), 2.1, 2.1);
    p.drawEllipse(QPointF(11.5, 12.2), 2.1, 2.1);
}

void drawSheets(QPainter& p)
{
    p.drawPolyline(QPolygonF({{5, 11.5}, {2.5, 11.5}, {2.5, 1.5}, {10.5, 1.5}, {10.5, 4}}));
    p.drawRect(QRectF(5.5, 4.5, 8, 10));
}

void drawClipboard(QPainter& p)
{
    p.drawRect(QRectF(2.5, 3.5, 11, 11));
    p.drawRect(QRectF(5.5, 1.5, 5, 4));
    for (const double y : {8.5, 11.5}) p.drawLine(QPointF(5, y), QPointF(11, y));
}

void drawLetter(QPainter& p, const QString& key)
{
    QFont font = p.font();
    font.setPixelSize(13);
    font.setBold(key == QLatin1String("Bold"));
    font.setItalic(key == QLatin1String("Italic"));
    font.setUnderline(key == QLatin1String("Underline"));
    p.setFont(font);
    p.drawText(QRectF(0, 0, kIconSize, kIconSize), Qt::AlignCenter, key.left(1));
}

void drawLines(QPainter& p, const QString& key)
{
    const double share = key == QLatin1String("Align Left") ? 0 : key == QLatin1String("Center") ? 0.5 : 1;
    for (int i = 0; i < 4; ++i) {
        const double missing = i % 2 == 0 ? 0 : 5;
        const double y = 3.5 + 3 * i;
        p.drawLine(QPointF(2 + missing * share, y), QPointF(14 - missing * (1 - share), y));
    }
}

void drawGlyph(QPainter& p, const QString& key)
{
    static const std::map<QString, void (*)(QPainter&)> shapes{
        {QStringLiteral("New"), drawPage},       {QStringLiteral("Open"), drawFolder},
        {QStringLiteral("Save"), drawDisk},      {QStringLiteral("Print"), drawPrinter},
        {QStringLiteral("Cut"), drawScissors},   {QStringLiteral("Copy"), drawSheets},
        {QStringLiteral("Paste"), drawClipboard}};
    if (const auto shape = shapes.find(key); shape != shapes.end()) return shape->second(p);
    if (key == QLatin1String("Bold") || key == QLatin1String("Italic") || key == QLatin1String("Underline"))
        drawLetter(p, key);
    else
        drawLines(p, key);
}

QIcon glyphIcon(const QString& key, const QPalette& palette)
{
    QIcon icon;
    for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Disabled})
        for (const int scale : {1, 2, 3}) {
            QPixmap pixels(kIconSize * scale, kIconSize * scale);
            pixels.setDevicePixelRatio(scale);
            pixels.fill(Qt::transparent);
            QPainter painter(&pixels);
            painter.setRenderHint(QPainter::Antialiasing);
            const auto group = mode == QIcon::Normal ? QPalette::Active : QPalette::Disabled;
            painter.setPen(
                QPen(palette.color(group, QPalette::ButtonText), 1.1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
            drawGlyph(painter, key);
            painter.end();
            icon.addPixmap(pixels, mode);
        }
    return icon;
}

std::vector<ResControl> menuCaptions(const StringTable& table)
{
    std::vector<ResControl> controls;
    for (const Command& command : commandTable()) controls.push_back({"Menu", {}, command.caption, {}, {}});
    ResControl form;
    loadResStrings(form, controls, table);
    return controls;
}

/// The tool bar's keys with spaces left out: "toolAlignLeft".
QString toolName(const char* key)
{
    return QStringLiteral("tool") + QString::fromLatin1(key).remove(u' ');
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

ToolActions buildToolBar(QMainWindow& window, const StringTable& table)
{
    ToolActions built{.bar = window.addToolBar(qt(controlRow(Control::tbToolBar).spoken)), .actions = {}};
    ResControl bar{"Toolbar", {}, {}, {}, {}};
    for (const ToolButton& tool : toolTable()) bar.parts.push_back({{}, {}, {}, tool.toolTip, {}});
    ResControl form;
    std::vector<ResControl> controls{bar};
    loadResStrings(form, controls, table);

    built.bar->setMovable(false);
    built.bar->setFloatable(false);
    built.bar->setContextMenuPolicy(Qt::PreventContextMenu);
    built.bar->setIconSize({kIconSize, kIconSize});
    for (std::size_t i = 0; i < toolTable().size(); ++i) {
        const ToolButton& tool = toolTable()[i];
        const QString key = QString::fromLatin1(tool.key);
        if (tool.beginsGroup) built.bar->addSeparator();
        QAction* action = built.bar->addAction(glyphIcon(key, window.palette()), key);
        action->setObjectName(toolName(tool.key));
        action->setToolTip(qt(controls.front().parts[i].toolTip));
        built.actions.emplace(tool.entry.value_or(Control::count), action);
    }
    return built;
}

} // namespace tarvelint
