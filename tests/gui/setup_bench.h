// SPDX-License-Identifier: MIT
#pragma once

#include "app/shell_window.h"
#include "dialogs/column_setup_dialog.h"

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTest>

#include <memory>

namespace tarvelint::test {

/// Hides the dialog as its window does.
class HidingUi : public FakeUi {
public:
    QWidget* dialog = nullptr;
    void hideColumnSetup() override
    {
        FakeUi::hideColumnSetup();
        if (dialog != nullptr) dialog->hide();
    }
};

inline QString named(const char* name, int index1)
{
    return QString::fromLatin1(name) + QString::number(index1);
}

/// A window with a record of so many columns, labelled "a1", "a2" ..., and its column setup dialog.
struct SetupBench {
    explicit SetupBench(int columns)
    {
        window.record.allocate(static_cast<std::int16_t>(columns), 1);
        window.record.labels.clear();
        for (int i = 1; i <= columns; ++i) window.record.labels.push_back("a" + std::to_string(i));
        window.forms.labelFrm = std::make_unique<ColumnSetup>(window);
        window.forms.labelFrm->Form_Load();
        parent.resize(600, 400);
        parent.show();
        dialog = std::make_unique<ColumnSetupDialog>(
            *window.forms.labelFrm, [this](const auto& work) { ++commands, work(); },
            [this](const auto& work) { ++answers, work(); }, &parent);
        ui.dialog = dialog.get();
    }
    /// A server without window manager gives the focus to nobody who does not ask.
    bool takesFocus()
    {
        dialog->activateWindow();
        return QApplication::activeWindow() == dialog.get();
    }
    void show(bool blocking = false)
    {
        dialog->showFor(blocking);
        QTRY_VERIFY(takesFocus());
    }
    template <class Widget>
    Widget* child(const QString& name)
    {
        return dialog->findChild<Widget*>(name);
    }
    QLineEdit* labelBox(int row1) { return child<QLineEdit>(named("labelBox", row1)); }
    QCheckBox* checkBox(int row1) { return child<QCheckBox>(named("checkBox", row1)); }
    QCheckBox* saveBox() { return child<QCheckBox>(QStringLiteral("saveBox")); }
    QScrollBar* bar() { return child<QScrollBar>(QStringLiteral("VScroll1")); }
    void press(const QString& button) { QTest::mouseClick(child<QPushButton>(button), Qt::LeftButton); }
    int visibleRows()
    {
        int count = 0;
        for (const auto* box : dialog->findChildren<QCheckBox*>(QRegularExpression(QStringLiteral("^checkBox\\d+$"))))
            count += box->isVisible() ? 1 : 0;
        return count;
    }
    ColumnSetup& setup() { return *window.forms.labelFrm; }

    MemorySettings settings;
    FixedStyle style;
    MemoryFiles files;
    ManualClock clock;
    HidingUi ui;
    FakeApplication application;
    Engine window{ui, ui, Environment{settings, style, files, clock}, application};
    QWidget parent;
    std::unique_ptr<ColumnSetupDialog> dialog;
    int commands = 0;
    int answers = 0;
};

} // namespace tarvelint::test
