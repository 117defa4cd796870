// SPDX-License-Identifier: MIT
#include "desk.h"
#include "window/breather.h"

#include "dialogs/options_dialog.h"

#include <QApplication>
#include <QRegularExpression>

#include <algorithm>

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

/// Rows 10 to 20 of the first sensor, and an equation that fails in each.
void selectBadEquation(Desk& desk)
{
    desk.openSample();
    desk.chooseFirstSensor();
    Engine& core = desk.core();
    core.view.selStart = 10;
    core.view.selEnd = 20;
    desk.command([&] { core.setText(Control::FormulaBox, "X/(B-B)"); });
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
    }

    void aBoxHasItsCaptionItsDefaultAndItsPlaceInTheStore_data()
    {
        QTest::addColumn<QString>("caption");
        QTest::addColumn<QString>("start");
        QTest::addColumn<std::string>("key");
        const auto box = [](const char* name, const char* caption, const char* start, const char* key) {
            QTest::newRow(name) << QString::fromLatin1(caption) << QString::fromLatin1(start) << std::string(key);
        };
        box("eqBox", "Equation", kDefault, "Equation");
        box("dateBox", "Date column", "1", "Date");
        box("timeBox", "Time column", "2", "Time");
        box("parBox", "PAR column", "3", "PAR");
        box("vpdBox", "VPD column", "11", "VPD");
        box("timiBox", "Minimum time intervals", "4", "lullTime");
        box("VPDlBox", "VPD limit", "0.05", "VPDlimit");
        box("PARlBox", "PAR limit", "0.05", "PARlimit");
        box("blankBox", "Number for missing values", "99999", "Blank");
    }
    void aBoxHasItsCaptionItsDefaultAndItsPlaceInTheStore()
    {
        QFETCH(std::string, key);
        Desk desk;
        desk.entry("mnuToolsOptions")->trigger();
        const char* const name = QTest::currentDataTag();
        auto* box = in<QLineEdit>(openDialog(), name);
        QTEST(box->text(), "start");
        QTEST(box->accessibleName(), "caption");
        const auto labels = openDialog()->findChildren<QLabel*>();
        const auto beside = std::find_if(labels.begin(), labels.end(), [&](QLabel* l) { return l->buddy() == box; });
        QVERIFY(beside != labels.end());
        QTEST((*beside)->text(), "caption");
        QCOMPARE((*beside)->geometry().center().y(), box->geometry().center().y());
        typeInto(openDialog(), name, "8");
        press(openDialog(), "cmdApplyAll");
        QCOMPARE(desk.settings.values[key], std::string("8"));
    }

    void theBoxForZerosReachesTheStore()
    {
        Desk desk;
        desk.entry("mnuToolsOptions")->trigger();
        QTest::keyClick(in<QCheckBox>(openDialog(), "zeroBox"), Qt::Key_Space);
        press(openDialog(), "cmdApplyAll");
        QCOMPARE(desk.settings.values["Zero"], std::string("1"));
        desk.entry("mnuToolsOptions")->trigger();
        QVERIFY(in<QCheckBox>(openDialog(), "zeroBox")->isChecked());
    }

    void returnChangesTheCurrentWindow()
    {
        Desk desk;
        desk.click("eqButton");
        QTest::keyClicks(in(openDialog(), "eqBox"), QStringLiteral("X/B"));
        QTest::keyClick(in(openDialog(), "eqBox"), Qt::Key_Return);
        QVERIFY(!openDialog());
        QCOMPARE(desk.text("FormulaBox"), QStringLiteral("X/B"));
        QVERIFY(!desk.settings.values.contains("Equation"));
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
        other.form().show();
        desk.click("eqButton");
        QTest::keyClicks(in(openDialog(), "eqBox"), QStringLiteral("X/B"));
        typeInto(openDialog(), "dateBox", "7");
        typeInto(openDialog(), "VPDlBox", "0.25");
        press(openDialog(), "cmdApplyAll");
        QVERIFY(!openDialog());
        QCOMPARE(desk.text("FormulaBox"), QStringLiteral("X/B"));
        QCOMPARE(other.form().findChild<QLabel*>(QStringLiteral("FormulaBox"))->text(), QStringLiteral("X/B"));
        QCOMPARE(desk.core().view.dateCol, std::int16_t{7});
        QCOMPARE(other.core().view.dateCol, std::int16_t{1});
        QVERIFY(desk.core().conversionSettings.zeroFlow.vpdLimit < 0.2F); // limits go to the store only
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
        other.form().show();
        other.form().findChild<QAction*>(QStringLiteral("mnuToolsOptions"))->trigger();
        QCOMPARE(openDialog(), first);
        typeInto(first, "dateBox", "5");
        press(first, "cmdApplyCur");
        QCOMPARE(other.core().view.dateCol, std::int16_t{5}); // the window that asked last
        QCOMPARE(desk.core().view.dateCol, std::int16_t{1});
        desk.entry("mnuToolsOptions")->trigger();
        QVERIFY(openDialog());
        QVERIFY(other.form().close());
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

    void theDialogIsOffUnderItsOwnRefusalAndTakesTheKeysAfterIt()
    {
        Desk desk;
        desk.entry("mnuToolsOptions")->trigger();
        typeInto(openDialog(), "blankBox", "abc");
        bool wasOff = false;
        desk.onBox([&](QMessageBox& box) {
            wasOff = !openDialog()->isEnabled();
            QTest::mouseClick(box.button(QMessageBox::Ok), Qt::LeftButton);
        });
        press(openDialog(), "cmdApplyCur");
        QVERIFY(wasOff);
        QVERIFY(openDialog()->isEnabled());
    }

    void anotherWindowMayCloseUnderTheRefusal()
    {
        Desk desk;
        FrmMain& other = desk.windows.create();
        other.form().show();
        desk.entry("mnuToolsOptions")->trigger();
        typeInto(openDialog(), "blankBox", "abc");
        desk.onBox([&](QMessageBox& box) {
            QVERIFY(other.form().close());
            QTest::mouseClick(box.button(QMessageBox::Ok), Qt::LeftButton);
        });
        press(openDialog(), "cmdApplyCur");
        QCOMPARE(desk.title, QStringLiteral("Improper setting:"));
        QVERIFY(!openDialog());
        QVERIFY(desk.form->isVisible());
    }

    void convertingAsksAboutABadEquationAndUndoTakesItBack()
    {
        Desk desk;
        selectBadEquation(desk);
        Engine& core = desk.core();
        const double before = core.record.values(kConverted, 5, 10);
        desk.answer(QMessageBox::Cancel);
        desk.click("convButton");
        QCOMPARE(desk.title, QStringLiteral("Tarvelint"));
        QVERIFY2(desk.said.startsWith(QStringLiteral("Division by Zero! ")), qPrintable(desk.said));
        QVERIFY(desk.said.contains(QStringLiteral("This was caused by (B-B)")));
        QVERIFY(desk.said.contains(QStringLiteral("Line is 10")));
        QCOMPARE(core.record.values(kConverted, 5, 10), 0.0);
        QVERIFY(desk.entry("mnuEditUndo")->isEnabled());
        desk.entry("mnuEditUndo")->trigger();
        QCOMPARE(core.record.values(kConverted, 5, 10), before);
        QCOMPARE(core.view.selStart, 10);
        QVERIFY(!desk.entry("mnuEditUndo")->isEnabled());
    }

    void aWindowAtWorkTakesNoOptions()
    {
        Desk desk;
        selectBadEquation(desk);
        desk.entry("mnuToolsOptions")->trigger();
        typeInto(openDialog(), "eqBox", "X");
        desk.onBox([&](QMessageBox& box) {
            press(openDialog(), "cmdApplyCur");
            QTest::mouseClick(box.button(QMessageBox::Cancel), Qt::LeftButton);
        });
        desk.click("convButton");
        QVERIFY(openDialog());
        QCOMPARE(desk.text("FormulaBox"), QStringLiteral("X/(B-B)"));
        press(openDialog(), "cmdApplyCur");
        QCOMPARE(desk.text("FormulaBox"), QStringLiteral("X"));
    }

    void aWindowClosedUnderTheEquationsMessageAsksOnceAndGoes()
    {
        Desk desk;
        selectBadEquation(desk);
        desk.onBox([&](QMessageBox&) {
            desk.answer(QMessageBox::No);
            desk.form->close();
        });
        desk.click("convButton");
        QTRY_VERIFY(!desk.form);
        QCOMPARE(desk.title, QStringLiteral("Close window:"));
    }

    void aConversionBrokenOffIsShownWhenItsWindowStays()
    {
        Desk desk;
        desk.openSample();
        desk.chooseFirstSensor();
        desk.click("viewButton");
        Engine& core = desk.core();
        desk.command([&] {
            core.selection.mnuEditSelectAll_Click();
            core.setText(Control::FormulaBox, "X");
        });
        desk.clock.step = Pacer::kPause / 10; // events run after every tenth row
        QTimer::singleShot(0, desk.form, [&] { desk.form->close(); });
        desk.answer(QMessageBox::Cancel);
        desk.click("convButton");
        QTRY_COMPARE(desk.title, QStringLiteral("Close window:"));
        QTRY_VERIFY(!desk.form->findChild<QMessageBox*>());
        QCOMPARE(core.record.values(kConverted, 5, 0), core.record.values(kUnconverted, 5, 0)); // it had begun
        QVERIFY(core.record.isBlank(core.record.values(kConverted, 5, 1439)) ||
                core.record.values(kConverted, 5, 1439) !=
                    core.record.values(kUnconverted, 5, 1439)); // and did not end
        const QImage shown = desk.plot(0);
        desk.command([&] { core.redraw(0, true); });
        QCOMPARE(shown, desk.plot(0));
    }

    void aMessageAboutAVeryLongDivisorStaysOnTheScreen()
    {
        Desk desk;
        selectBadEquation(desk);
        std::string divisor = "(B-B";
        for (int i = 0; i < 8000; ++i) divisor += "+0";
        desk.command([&] { desk.core().setText(Control::FormulaBox, "X/" + divisor + ")"); });
        QString whole;
        int height = 0;
        desk.onBox([&](QMessageBox& box) {
            whole = box.detailedText();
            height = box.height();
            QTest::mouseClick(box.button(QMessageBox::Cancel), Qt::LeftButton);
        });
        desk.click("convButton");
        QVERIFY(height > 0 && height < 600);
        QVERIFY(whole.contains(QString::fromStdString(divisor)));
        QVERIFY2(desk.said.endsWith(QStringLiteral("Line is 10\r\nOK to continue, Cancel to stop")),
                 qPrintable(desk.said));
    }
};

} // namespace tarvelint::test

QTEST_MAIN(tarvelint::test::OptionsTest)
#include "options_test.moc"
