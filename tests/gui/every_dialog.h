// SPDX-License-Identifier: MIT
#pragma once

#include "setup_bench.h"

#include "app/qt/frm_splash.h"
#include "dialogs/options_dialog.h"
#include "dialogs/save_contents_dialog.h"

#include <sstream>
#include <vector>

namespace tarvelint::test {

/// More than a small screen shows.
inline StringTable aboutTexts()
{
    std::istringstream lines(
        "1049=1\\n2\\n3\\n4\\n5\\n6\\n7\\n8\\n9\\n10\\n11\\n12\\n13\\n14\\n15\\n16\\n17\\n18\\n19\\n20\n");
    StringTable table;
    table.addTexts(lines);
    return table;
}

/// One of each dialog, on the bench of the column setup.
struct Dialogs {
    SetupBench bench{17};
    SaveChoices choices;
    SaveContents contents{choices};
    OptionsDialog options{bench.settings, [](Window&, const auto&) {}, [] { return std::vector<Window*>(); }};
    SaveContentsDialog save{contents, [](const auto& work) { work(); }, &bench.parent};
    FrmSplash splash{aboutTexts(), QStringLiteral("1.2.3")};

    Dialogs()
    {
        options.setAttribute(Qt::WA_DeleteOnClose, false);
        bench.setup().boxes.turboCheck = true; // so that the parameter boxes take input
    }
    QDialog& show(const QString& which)
    {
        if (which == QStringLiteral("column setup")) bench.dialog->showFor(false);
        if (which == QStringLiteral("options")) options.showFor(bench.window);
        if (which == QStringLiteral("save contents")) save.show();
        if (which == QStringLiteral("splash")) splash.show();
        for (QDialog* dialog : {static_cast<QDialog*>(bench.dialog.get()), static_cast<QDialog*>(&options),
                                static_cast<QDialog*>(&save), static_cast<QDialog*>(&splash)})
            if (dialog->isVisible()) return *dialog;
        qFatal("no dialog");
    }
};

inline void addDialogs()
{
    QTest::addColumn<QString>("which");
    QTest::addColumn<QString>("button");
    const auto row = [](const char* which, const char* button) {
        QTest::newRow(which) << QString::fromLatin1(which) << QString::fromLatin1(button);
    };
    row("column setup", "OKButton");
    row("options", "cmdApplyCur");
    row("save contents", "OKButton");
    row("splash", "Command1");
}

/// A server without window manager gives the focus to nobody who does not ask.
inline bool isActive(QDialog& dialog)
{
    dialog.activateWindow();
    return QApplication::activeWindow() == &dialog;
}

/// What takes the focus besides the buttons.
inline QWidgetList focusable(const QDialog& dialog)
{
    QWidgetList found;
    for (QWidget* child : dialog.findChildren<QWidget*>())
        if (child->isVisible() && child->isEnabled() && child->focusPolicy() != Qt::NoFocus &&
            qobject_cast<QPushButton*>(child) == nullptr)
            found += child;
    return found;
}

} // namespace tarvelint::test
