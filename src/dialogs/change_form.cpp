// SPDX-License-Identifier: MIT
#include "dialogs/change_form.h"

#include "dialogs/named.h"

#include <QApplication>
#include <QEventLoop>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QWindow>

namespace tarvelint {

ChangeForm::ChangeForm()
{
    setObjectName(QStringLiteral("changeForm"));
    setWindowTitle(QStringLiteral("Change the value"));
    m_oldValue = new QLabel;
    m_oldValue->setObjectName(QStringLiteral("oldValue"));
    m_newValue = named(new QLineEdit, "newValue", QStringLiteral("New value"));
    auto* to = new QLabel(QStringLiteral("To:"));
    to->setObjectName(QStringLiteral("Label3"));
    to->setBuddy(m_newValue);
    auto* from = new QLabel(QStringLiteral("From:"));
    from->setObjectName(QStringLiteral("Label2"));
    auto* contents = new QWidget;
    auto* grid = new QGridLayout(contents);
    grid->addWidget(from, 0, 0);
    grid->addWidget(m_oldValue, 0, 1);
    grid->addWidget(to, 1, 0);
    grid->addWidget(m_newValue, 1, 1);
    grid->setColumnStretch(1, 1);

    auto* cancel = named(new QPushButton(QStringLiteral("Cancel")), "CancelButton", QStringLiteral("Cancel"));
    auto* ok = named(new QPushButton(QStringLiteral("OK")), "OKButton", QStringLiteral("OK"));
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cancel);
    buttons->addWidget(ok);
    setParts(contents, buttons);
    constexpr int kFrameButtons = 160; // and icon; a caption cut short says nothing
    setMinimumWidth(fontMetrics().horizontalAdvance(windowTitle()) + kFrameButtons);
}

std::optional<std::string> ChangeForm::ask(QWidget& over, const std::string& old)
{
    m_over = &over;
    const QString text = QString::fromStdString(old);
    m_oldValue->setText(text);
    m_oldValue->setAccessibleName(QStringLiteral("Old value: ") + text);
    m_newValue->setText(text);
    winId(); // the window system's side of it is there from here on
    windowHandle()->setTransientParent(over.windowHandle());
    adjustSize();
    const QRect window = over.frameGeometry();
    move(window.center() - QPoint(frameGeometry().width() / 2, frameGeometry().height() / 2));
    QEventLoop loop;
    std::optional<std::string> typed; // taken at once: another window's work may keep this wait from going on
    connect(this, &QDialog::finished, &loop, [&](int result) {
        if (result == Accepted) typed = m_newValue->text().toStdString();
        loop.quit();
    });
    show();
    comeForward();
    m_newValue->setFocus();
    m_newValue->selectAll();
    loop.exec();
    m_over = nullptr;
    return typed;
}

void ChangeForm::comeForward()
{
    // Answered already, it may have to wait for what another window asks.
    QWidget* inFront = isVisible() ? this : QApplication::activeModalWidget();
    if (inFront == nullptr) return;
    inFront->raise();
    inFront->activateWindow();
}

} // namespace tarvelint
