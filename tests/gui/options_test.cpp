// SPDX-License-Identifier: MIT
#include "desk.h"

#include "dialogs/options_dialog.h"

#include <QApplication>
#include <QRegularExpression>

namespace tarvelint::test {

namespace {

constexpr const char* kDefault = "119*((B/X)-1)^1.23";

/// The one options dialog, if it is on the screen.
OptionsDialog* openDialog()
{
    for (QWidget* top : QApplication::topLevelWidgets())
        if (auto* dialog = qobject_cast<OptionsDialog*>(top); dialog && dialog->isVisible()) return dialog;
    return nullptr;
}

template <class W = QWidget>
W* in(OptionsDialog* dialog, const char* name)
{
    auto* found = dialog->findChild<W*>(QString::fromLatin1(name));
    if (!found) qFatal("no %s", name);
    return found;
}

void typeInto(OptionsDialog* dialog, const char* box, const char* text)
{
    auto* edit = in<QLineEdit>(dialog, box);
    edit->setFocus();
    edit->selectAll();
    QTest::keyClicks(edit, QString::fromLatin1(text));
}

void press(OptionsDialog* dialog, const char* button)
{
    QTest::mouseClick(in(dialog, button), Qt::LeftButton);
}

} // namespace

class OptionsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

    void theEquationButtonOpensItWithTheWholeEquationSelected()
    {
        Desk desk;
        desk.openSample();
        desk.click("eqButton");
        OptionsDialog* dialog = openDialog();
        QVERIFY(dialog);
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Options"));
        QCOMPARE(dialog->windowModality(), Qt::NonModal);
        QCOMPARE(in<QLineEdit>(dialog, "eqBox")->selectedText(), QString::fromLatin1(kDefault));
        QTRY_COMPARE(dialog->focusWidget(), in(dialog, "eqBox"));
    }

    void captionsAndTipsAreTheGivenOnes()
    {
        Desk desk;
        desk.entry("mnuToolsOptions")->trigger();
        OptionsDialog* dialog = openDialog();
        QCOMPARE(in<QPushButton>(dialog, "cmdApplyCur")->text(), QStringLiteral("Change current"));
        QCOMPARE(in<QPushButton>(dialog, "cmdApplyCur")->toolTip(),
                 QStringLiteral("Changes will affect current window only and won't be saved"));
        QCOMPARE(in<QPushButton>(dialog, "cmdApplyAll")->text(), QStringLiteral("Change &all"));
        QCOMPARE(in<QPushButton>(dialog, "cmdApplyAll")->toolTip(),
                 QStringLiteral("Changes will affect all open windows and will be saved"));
        QCOMPARE(in<QCheckBox>(dialog, "zeroBox")->text(), QStringLiteral("initiallize with zeros"));
        QStringList captions;
        for (const auto* label : dialog->findChildren<QLabel*>()) captions << label->text();
        for (const char* caption : {"Equation", "Date column", "Time column", "PAR column", "VPD column",
                                    "Minimum time intervals", "VPD limit", "PAR limit", "Number for missing values"})
            QVERIFY2(captions.contains(QString::fromLatin1(caption)), caption);
    }

    void anEquationTypedOverReachesOneWindowRepairedAndNotTheStore()
    {
        Desk desk;
        desk.openSample();
        desk.click("eqButton");
        QTest::keyClicks(in(openDialog(), "eqBox"), QStringLiteral("2X + B"));
        press(openDialog(), "cmdApplyCur");
        QVERIFY(!openDialog());
        QCOMPARE(desk.text("FormulaBox"), QStringLiteral("2*X+B"));
        QVERIFY(!desk.settings.values.contains("Equation"));
        desk.click("eqButton"); // what the store holds, not what was just applied
        QCOMPARE(in<QLineEdit>(openDialog(), "eqBox")->text(), QString::fromLatin1(kDefault));
    }

    void changeAllReachesBothWindowsAndTheStore()
    {
        Desk desk;
        desk.openSample();
        FrmMain& other = desk.windows.create();
        other.show();
        desk.click("eqButton");
        QTest::keyClicks(in(openDialog(), "eqBox"), QStringLiteral("X/B"));
        typeInto(openDialog(), "dateBox", "7");
        typeInto(openDialog(), "VPDlBox", "0.25");
        press(openDialog(), "cmdApplyAll");
        QVERIFY(!openDialog());
        QCOMPARE(desk.text("FormulaBox"), QStringLiteral("X/B"));
        QCOMPARE(other.findChild<QLabel*>(QStringLiteral("FormulaBox"))->text(), QStringLiteral("X/B"));
        QCOMPARE(desk.core().data.dateCol, std::int16_t{7});
        QCOMPARE(other.core().data.dateCol, std::int16_t{1});
        QVERIFY(desk.core().data.vpdLimit < 0.2F); // limits go to the store only
        QCOMPARE(desk.settings.values["Equation"], std::string("X/B"));
        QCOMPARE(desk.settings.values["VPDlimit"], std::string("0.25"));
    }

    void aMissingValueThatIsNoNumberIsRefusedAndTheDialogStays()
    {
        Desk desk;
        desk.openSample();
        desk.entry("mnuToolsOptions")->trigger();
        typeInto(openDialog(), "blankBox", "abc");
        typeInto(openDialog(), "eqBox", "X");
        desk.answer(QMessageBox::Ok);
        press(openDialog(), "cmdApplyAll");
        QCOMPARE(desk.said, QStringLiteral("You must use a number for the blank value."));
        QCOMPARE(desk.title, QStringLiteral("Improper setting:"));
        QVERIFY(openDialog());
        QCOMPARE(desk.text("FormulaBox"), QString::fromLatin1(kDefault));
        QVERIFY(!desk.settings.values.contains("Blank"));
    }

    void anEquationTooLongIsRefusedInWordsAndStaysToBeMended()
    {
        Desk desk;
        desk.click("eqButton");
        const QString typed(32768, u'1');
        in<QLineEdit>(openDialog(), "eqBox")->insert(typed);
        desk.answer(QMessageBox::Ok);
        press(openDialog(), "cmdApplyCur");
        QVERIFY2(desk.said.contains(QStringLiteral("32768")), qPrintable(desk.said));
        QVERIFY(openDialog());
        QCOMPARE(in<QLineEdit>(openDialog(), "eqBox")->text(), typed);
        QCOMPARE(desk.text("FormulaBox"), QString::fromLatin1(kDefault));
    }

    void oneDialogServesAllWindowsAndGoesWithTheFirstThatCloses()
    {
        Desk desk;
        desk.entry("mnuToolsOptions")->trigger();
        OptionsDialog* first = openDialog();
        FrmMain& other = desk.windows.create();
        other.show();
        other.findChild<QAction*>(QStringLiteral("mnuToolsOptions"))->trigger();
        QCOMPARE(openDialog(), first);
        typeInto(first, "dateBox", "5");
        press(first, "cmdApplyCur");
        QCOMPARE(other.core().data.dateCol, std::int16_t{5}); // the window that asked last
        QCOMPARE(desk.core().data.dateCol, std::int16_t{1});
        desk.entry("mnuToolsOptions")->trigger();
        QVERIFY(openDialog());
        QVERIFY(other.close());
        QVERIFY(!openDialog());
    }

    void cancelAppliesNothing()
    {
        Desk desk;
        desk.entry("mnuToolsOptions")->trigger();
        typeInto(openDialog(), "eqBox", "X");
        press(openDialog(), "cmdCancel");
        QVERIFY(!openDialog());
        QCOMPARE(desk.text("FormulaBox"), QString::fromLatin1(kDefault));
    }

    void convertingAsksAboutABadEquationAndUndoTakesItBack()
    {
        Desk desk;
        desk.openSample();
        desk.chooseFirstSensor();
        MainWindow& core = desk.core();
        core.selStart = 10;
        core.selEnd = 20;
        const double before = core.data.values(kConverted, 5, 10);
        desk.form->command([&] { core.setText(Control::FormulaBox, "X/(B-B)"); });
        desk.answer(QMessageBox::Cancel);
        desk.click("convButton");
        QCOMPARE(desk.title, QStringLiteral("Tarvelint"));
        QVERIFY2(desk.said.startsWith(QStringLiteral("Division by Zero! ")), qPrintable(desk.said));
        QVERIFY(desk.said.contains(QStringLiteral("This was caused by (B-B)")));
        QVERIFY(desk.said.contains(QStringLiteral("Line is 10")));
        QCOMPARE(core.data.values(kConverted, 5, 10), 0.0);
        QVERIFY(desk.entry("mnuEditUndo")->isEnabled());
        desk.entry("mnuEditUndo")->trigger();
        QCOMPARE(core.data.values(kConverted, 5, 10), before);
        QCOMPARE(core.selStart, 10);
        QVERIFY(!desk.entry("mnuEditUndo")->isEnabled());
    }
};

} // namespace tarvelint::test

QTEST_MAIN(tarvelint::test::OptionsTest)
#include "options_test.moc"
