// SPDX-License-Identifier: MIT
#include "app/qt/frm_splash.h"

#include "app/splash.h"
#include "data/file_format.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

namespace tarvelint {

namespace {

constexpr int kIconSize = 64;

void enlarge(QLabel& label, double factor)
{
    QFont font = label.font();
    font.setPointSizeF(font.pointSizeF() * factor);
    label.setFont(font);
}

void embolden(QLabel& label)
{
    QFont font = label.font();
    font.setBold(true);
    label.setFont(font);
}

} // namespace

FrmSplash::FrmSplash(const StringTable& table, const QString& version, QWidget* parent) : ProgramDialog(parent)
{
    setObjectName(QStringLiteral("frmSplash"));
    setWindowTitle(QString::fromUtf8(kTitle.data(), static_cast<qsizetype>(kTitle.size())));
    setWindowIcon(programIcon());
    setAttribute(Qt::WA_QuitOnClose, false); // at start-up the data window follows it

    const int margin = fontMetrics().height() * 3 / 2;
    auto* contents = new QWidget;
    auto* down = new QVBoxLayout(contents);
    down->setSpacing(margin * 3 / 4);
    down->addLayout(buildHead());
    down->addWidget(buildMainFrame(), 1);
    QVBoxLayout& parts = setParts(contents, buildFoot());
    parts.setContentsMargins(margin, margin, margin, margin);
    parts.setSpacing(down->spacing());
    m_Command1->setDefault(true);
    Form_Load(table, version);
}

QLabel* FrmSplash::addLabel(QBoxLayout& layout, const char* name, const char* tag)
{
    auto* label = new QLabel;
    label->setObjectName(QString::fromLatin1(name));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse); // addresses get copied
    layout.addWidget(label);
    m_numbered.append({label, {.type = ControlType::label, .tag = tag, .caption = {}, .toolTip = {}, .parts = {}}});
    return label;
}

QBoxLayout* FrmSplash::buildHead()
{
    auto* icon = new QLabel;
    icon->setObjectName(QStringLiteral("imgLogo"));
    icon->setPixmap(programIcon().pixmap(QSize(kIconSize, kIconSize), devicePixelRatioF()));
    icon->setAccessibleName(QStringLiteral("Tarvelint icon"));

    auto* names = new QVBoxLayout;
    names->setSpacing(2);
    m_lblProductName = addLabel(*names, "lblProductName", "");
    enlarge(*m_lblProductName, 2.2);
    embolden(*m_lblProductName);
    m_lblVersion = addLabel(*names, "lblVersion", "");
    static_cast<void>(addLabel(*names, "lblDescription", "1064"));

    auto* head = new QHBoxLayout;
    head->setSpacing(18);
    head->addWidget(icon, 0, Qt::AlignTop);
    head->addLayout(names, 1);
    return head;
}

QFrame* FrmSplash::buildMainFrame()
{
    auto* frame = new QFrame;
    frame->setObjectName(QStringLiteral("fraMainFrame"));
    frame->setAccessibleName(QStringLiteral("Credits, fair use and contacts"));
    frame->setFrameShape(QFrame::StyledPanel);
    frame->setBackgroundRole(QPalette::Base);
    frame->setForegroundRole(QPalette::Text);
    frame->setAutoFillBackground(true);
    frame->setMinimumWidth(64 * fontMetrics().averageCharWidth());

    auto* text = new QVBoxLayout(frame);
    const int margin = fontMetrics().height();
    text->setContentsMargins(margin, margin, margin, margin);
    text->setSpacing(margin / 3);
    embolden(*addLabel(*text, "lblCompanyProduct", "1047"));
    static_cast<void>(addLabel(*text, "lblCredit", "1042"));
    static_cast<void>(addLabel(*text, "lblDevelopers", "1043"));
    text->addSpacing(margin / 2);
    embolden(*addLabel(*text, "lblFairUse", "1044"));
    static_cast<void>(addLabel(*text, "lblWarning", "1049"));
    text->addSpacing(margin / 2);
    embolden(*addLabel(*text, "lblContactsHeading", "10441"));
    static_cast<void>(addLabel(*text, "lblContacts", "1046"));
    text->addStretch();
    return frame;
}

QBoxLayout* FrmSplash::buildFoot()
{
    m_Command1 = new QPushButton;
    m_Command1->setObjectName(QStringLiteral("Command1"));
    m_Command1->setMinimumWidth(16 * fontMetrics().averageCharWidth());
    connect(m_Command1, &QPushButton::clicked, this, &FrmSplash::accept);
    m_numbered.append(
        {m_Command1, {.type = ControlType::other, .tag = "1060", .caption = "OK", .toolTip = {}, .parts = {}}});
    auto* foot = new QHBoxLayout;
    foot->addStretch();
    foot->addWidget(m_Command1);
    return foot;
}

void FrmSplash::Form_Load(const StringTable& table, const QString& version)
{
    ResControl form{.type = ControlType::form,
                    .tag = tagText.toStdString(),
                    .caption = windowTitle().toStdString(),
                    .toolTip = {},
                    .parts = {}};
    std::vector<ResControl> controls;
    for (const auto& numbered : m_numbered) controls.push_back(numbered.control);
    loadResStrings(form, controls, table);

    setWindowTitle(QString::fromStdString(form.caption));
    for (qsizetype i = 0; i < m_numbered.size(); ++i) {
        const QString caption = QString::fromStdString(controls[static_cast<std::size_t>(i)].caption);
        if (auto* label = qobject_cast<QLabel*>(m_numbered[i].widget)) label->setText(caption);
        if (auto* button = qobject_cast<QPushButton*>(m_numbered[i].widget)) button->setText(caption);
    }
    m_Command1->setAccessibleName(m_Command1->text());
    m_lblProductName->setText(QString::fromUtf8(kTitle.data(), static_cast<qsizetype>(kTitle.size())));
    m_lblVersion->setText(QStringLiteral("Version ") + version);
    for (auto* label : findChildren<QLabel*>())
        if (label->text().isEmpty() && label->pixmap().isNull()) label->hide();
    // A heading without its text would promise what is not there.
    for (const auto& [heading, body] :
         {std::pair("lblFairUse", "lblWarning"), std::pair("lblContactsHeading", "lblContacts")})
        if (findChild<QLabel*>(QString::fromLatin1(body))->text().isEmpty())
            findChild<QLabel*>(QString::fromLatin1(heading))->hide();
}

void FrmSplash::done(int result)
{
    const QPointer<FrmSplash> alive(this);
    QDialog::done(result);
    if (alive && showsMainForm(tagText.toStdString())) Q_EMIT mainFormWanted();
    if (alive) Q_EMIT dismissed();
}

} // namespace tarvelint
