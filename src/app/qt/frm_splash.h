// SPDX-License-Identifier: MIT
#pragma once

#include "app/qt/program_icons.h"
#include "app/string_table.h"
#include "dialogs/program_dialog.h"

#include <QList>
#include <QString>

class QBoxLayout;
class QFrame;
class QLabel;
class QPushButton;

namespace tarvelint {

/// The window shown at start-up until its button is pressed, and again as the about box. Texts that the
/// organisation left out take no room.
class FrmSplash : public ProgramDialog {
    Q_OBJECT

public:
    /// @param version  "major.minor.revision" of the build
    FrmSplash(const StringTable& table, const QString& version, QWidget* parent = nullptr);

    /// How it was opened: empty at start-up, `kAboutTag` while it is the about box. It decides what leaving does.
    QString tagText;

    /// Any way of leaving: the button, Esc, or the frame's close button. Once hidden it emits `mainFormWanted` at
    /// start-up, and then `dismissed`.
    void done(int result) override;

Q_SIGNALS:
    void mainFormWanted();
    void dismissed();

private:
    /// A control with the number of its text, as `loadResStrings` wants it.
    struct Numbered {
        QWidget* widget;
        ResControl control;
    };

    [[nodiscard]] QLabel* addLabel(QBoxLayout& layout, const char* name, const char* tag);
    [[nodiscard]] QBoxLayout* buildHead();
    [[nodiscard]] QFrame* buildMainFrame();
    [[nodiscard]] QBoxLayout* buildFoot();
    void Form_Load(const StringTable& table, const QString& version);

    QList<Numbered> m_numbered;
    QLabel* m_lblProductName = nullptr;
    QLabel* m_lblVersion = nullptr;
    QPushButton* m_Command1 = nullptr;
};

} // namespace tarvelint
