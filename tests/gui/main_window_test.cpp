// SPDX-License-Identifier: MIT
#include "desk.h"

#include <QAbstractItemView>
#include <QMenuBar>
#include <QRegularExpression>
#include <QScrollBar>

#include <array>
#include <cmath>

namespace tarvelint::test {

namespace {

/// Where a reading is drawn in an area of height h, worked out from the range boxes' numbers: `lo` at 95 % of the
/// height, the range over h / 1.1.
double yOf(double value, double lo, double hi, double h)
{
    return 0.95 * h - (value - lo) * h / ((hi - lo) * 1.1);
}

double number(const Desk& desk, const char* box)
{
    return desk.find<QLineEdit>(box)->text().toDouble();
}

bool anywhere(const QImage& image, QColor color)
{
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y) == color) return true;
    return false;
}

constexpr int kS1 = 5; // 0-based column of the first sensor: Day, Time, PAR, VPD and Tair come before it

std::vector<double> baselineOf(const Desk& desk)
{
    std::vector<double> column;
    for (int row = 0; row < desk.core().record.lines; ++row)
        column.push_back(desk.core().record.values(kBaseline, kS1, row));
    return column;
}

} // namespace

class MainWindowTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

    void aNewWindowIsEmpty()
    {
        Desk desk;
        QCOMPARE(desk.form->windowTitle(), QStringLiteral("Tarvelint"));
        for (const char* off :
             {"varList0", "varList1", "viewButton", "baseButton", "labelButton", "maxLabel0", "refBox"})
            QVERIFY2(!desk.find(off)->isEnabled(), off);
        for (const char* off :
             {"mnuFileSave", "mnuFileSaveAs", "mnuEditUndo", "mnuViewRefresh", "mnuToolsView", "toolSave"})
            QVERIFY2(!desk.entry(off)->isEnabled(), off);
        for (const char* on : {"mnuFileNew", "mnuFileOpen", "mnuFileClose", "mnuFileExit", "mnuHelpAbout", "toolOpen"})
            QVERIFY2(desk.entry(on)->isEnabled(), on);
        QVERIFY(!desk.find("HScroll1")->isVisible());
        QCOMPARE(desk.find<QComboBox>("varList0")->currentIndex(), -1);
    }

    void captionsComeFromTheStringTable()
    {
        Desk desk(false);
        QCOMPARE(desk.form->menuBar()->actions().front()->text(), QStringLiteral("&File"));
        QCOMPARE(desk.entry("mnuViewZoomIn")->text(), QStringLiteral("Zoom In    (+)"));
        QCOMPARE(desk.entry("mnuEditUndo")->text(), QStringLiteral("Can't Undo"));
        QCOMPARE(desk.entry("toolAlignLeft")->toolTip(), QStringLiteral("Align Left"));
        QVERIFY(!desk.entry("mnuFileMRU")->isVisible());
    }

    void openingFillsListsCountsAndTitle()
    {
        Desk desk;
        desk.open(TARVELINT_SAMPLE);
        QCOMPARE(desk.find<QComboBox>("varList0")->count(), 13);
        QCOMPARE(desk.find<QComboBox>("varList0")->currentText(), QStringLiteral("Day"));
        QCOMPARE(desk.find<QComboBox>("varList1")->currentIndex(), -1);
        QCOMPARE(desk.text("colLabel"), QStringLiteral("13"));
        QCOMPARE(desk.text("rowLabel"), QStringLiteral("1440")); // thirty days of half hours
        QVERIFY(desk.form->windowTitle().endsWith(QStringLiteral("sapflow_30days.csv")));
        QVERIFY(desk.find("labelForm")->isVisible());
    }

    void commandsThatDoNothingYetStayOffAfterALoad()
    {
        Desk desk;
        desk.openSample();
        for (const char* off : {"mnuFilePrint", "mnuEditPaste", "toolBold", "toolCut"})
            QVERIFY2(!desk.entry(off)->isEnabled(), off);
        QVERIFY(desk.find("viewButton")->isEnabled());
        QVERIFY(desk.entry("toolSave")->isEnabled());
    }

    void thePreProcessLeavesPointsBaselineAndFlux()
    {
        Desk desk;
        desk.openSample();
        const Engine& core = desk.core();
        QVERIFY(core.view.Turbo);
        QCOMPARE(core.sensors.count(), 8);
        int points = 0;
        for (int row = 0; row < core.record.lines; ++row) {
            if (!core.sensors.isPoint(0, row)) continue;
            ++points;
            QCOMPARE(core.record.values(kBaseline, kS1, row), core.record.values(kUnconverted, kS1, row));
            QCOMPARE(core.record.values(kConverted, kS1, row), 0.0); // reading and baseline meet: no flow
        }
        QVERIFY(points > 1);
        QCOMPARE(desk.text("statusPanel1"), QStringLiteral("Mode: traditional, edit data"));
        QVERIFY(!core.record.saveCheck);
    }

    void lullsAreWhiteBandsPointsRedAndTheTraceBlack()
    {
        Desk desk;
        desk.openSample();
        desk.chooseFirstSensor();
        QCOMPARE(desk.core().view.curCol(), kS1);
        const Engine& core = desk.core();
        const QImage plot = desk.plot(0);
        const double height = desk.find("Picture1_0")->height();
        const double lo = number(desk, "minLabel0");
        const double hi = number(desk, "maxLabel0");
        int lulls = 0;
        int points = 0;
        for (int row = 1; row < desk.find("Picture1_0")->width(); ++row) { // one unit to a row, from row 0
            const double reading = core.record.values(kUnconverted, kS1, row);
            const double y = core.record.isBlank(reading) ? 0 : yOf(reading, lo, hi, height); // a gap is at the top
            const bool point = core.sensors.isPoint(0, row);
            QVERIFY2(near(plot, row, y, point ? Qt::red : Qt::black), qPrintable(QString::number(row)));
            lulls += core.record.lullFlags[static_cast<std::size_t>(row)] && at(plot, row, 1) == QColor(Qt::white);
            points += point;
            if (!core.record.lullFlags[static_cast<std::size_t>(row)])
                QVERIFY(at(plot, row, height - 2) != QColor(Qt::white));
        }
        QVERIFY(lulls > 0);
        QVERIFY(points > 0);
    }

    void theCompanionShowsItsColumnAndTheReferenceLine()
    {
        Desk desk;
        desk.openSample();
        QVERIFY(!anywhere(desk.plot(1), Qt::black));
        desk.chooseFirstSensor(1);
        QVERIFY(anywhere(desk.plot(1), Qt::black));
        QVERIFY(!anywhere(desk.plot(1), Qt::blue));
        desk.tick("refCheck");
        desk.type("refBox", "10");
        const double y =
            yOf(10, number(desk, "minLabel1"), number(desk, "maxLabel1"), desk.find("Picture1_1")->height());
        QVERIFY(near(desk.plot(1), 3, y, Qt::blue));
    }

    void aTypedRangeTurnsAutoOffAndTheCursorStays()
    {
        Desk desk;
        desk.openSample();
        desk.chooseFirstSensor();
        const QImage before = desk.plot(0);
        auto* top = desk.find<QLineEdit>("maxLabel0");
        desk.type("maxLabel0", "20");
        QVERIFY(!desk.find<QCheckBox>("scaleBox0")->isChecked());
        QCOMPARE(desk.core().text(Control::maxLabel0), std::string("20"));
        QVERIFY(desk.plot(0) != before);
        top->setCursorPosition(1);
        QTest::keyClick(top, Qt::Key_5);
        QCOMPARE(top->text(), QStringLiteral("250"));
        QCOMPARE(top->cursorPosition(), 2);
        desk.tick("scaleBox0");
        QVERIFY(number(desk, "maxLabel0") < 20);
    }

    void escapeInABoxGivesTheKeysBackToThePlot()
    {
        Desk desk;
        desk.openSample();
        desk.form->activateWindow();
        desk.find("maxLabel0")->setFocus();
        QTest::keyClick(desk.find("maxLabel0"), Qt::Key_Escape);
        QCOMPARE(desk.form->focusWidget(), desk.find("Picture1_0"));
    }

    void theScrollBarMovesBothPlots()
    {
        Desk desk;
        desk.openSample();
        desk.chooseFirstSensor();
        desk.chooseFirstSensor(1);
        auto* bar = desk.find<QScrollBar>("HScroll1");
        QVERIFY(bar->isVisible());
        const QImage main = desk.plot(0);
        const QImage companion = desk.plot(1);
        QTest::mouseClick(bar, Qt::LeftButton, {},
                          {bar->width() * 2 / 3, bar->height() / 2}); // beside the thumb: one page
        QCOMPARE(desk.core().view.HScroll1.Value, desk.core().view.HScroll1.LargeChange);
        QCOMPARE(bar->value(), desk.core().view.HScroll1.Value);
        QVERIFY(desk.plot(0) != main);
        QVERIFY(desk.plot(1) != companion);
        QCOMPARE(desk.form->focusWidget(), desk.find("Picture1_0"));
    }

    void aDraggedThumbScrollsAsItGoes()
    {
        Desk desk;
        desk.openSample();
        auto* bar = desk.find<QScrollBar>("HScroll1");
        const QPoint thumb(bar->height() + 10, bar->height() / 2); // beside the arrow
        QTest::mousePress(bar, Qt::LeftButton, {}, thumb);
        QTest::mouseMove(bar, thumb + QPoint(60, 0));
        const int halfWay = desk.core().view.HScroll1.Value;
        QVERIFY(halfWay > 0);
        QTest::mouseRelease(bar, Qt::LeftButton, {}, thumb + QPoint(60, 0));
        QCOMPARE(desk.core().view.HScroll1.Value, halfWay);
        QCOMPARE(bar->value(), halfWay);
    }

    void aWiderWindowShowsMoreRows()
    {
        Desk desk;
        desk.openSample();
        desk.chooseFirstSensor(1);
        const int before = desk.core().view.HScroll1.Max;
        const int width = desk.find("Picture1_0")->width();
        desk.form->resize(desk.form->width() + 200, desk.form->height());
        QTRY_COMPARE(desk.find("Picture1_0")->width(), width + 200);
        QCOMPARE(desk.core().view.HScroll1.Max, before - 200); // one unit to a row
        QCOMPARE(desk.find<QScrollBar>("HScroll1")->maximum(), before - 200);
        const QImage companion = desk.plot(1).copy(width + 100, 0, 100, desk.find("Picture1_1")->height());
        QVERIFY(anywhere(companion, Qt::black));
    }

    void theWindowHasASmallestSizeAndBothPlotsAreEqual()
    {
        Desk desk;
        desk.form->resize(100, 100);
        QTRY_COMPARE(desk.form->size(), QSize(520, 444));
        for (int more = 0; more < 2; ++more) { // an odd pixel goes to neither
            desk.form->resize(520, 444 + more);
            QTRY_COMPARE(desk.form->height(), 444 + more);
            QTRY_COMPARE(desk.find("Picture1_0")->size(), desk.find("Picture1_1")->size());
        }
        for (const char* name :
             {"maxLabel0", "minLabel0", "maxLabel1", "refBox", "minLabel1", "labelButton", "ltLabel"})
            QVERIFY2(desk.form->rect().contains(
                         QRect(desk.find(name)->mapTo(desk.form.data(), QPoint()), desk.find(name)->size())),
                     name);
    }

    void thePointerOverThePlotTellsTheMode()
    {
        Desk desk;
        const QWidget* plot = desk.find("Picture1_0");
        QCOMPARE(plot->cursor().shape(), Qt::ArrowCursor);
        desk.open(TARVELINT_SAMPLE);
        QCOMPARE(plot->cursor().shape(), Qt::CrossCursor); // select data
        desk.click("OKButton");                            // no pre-process: one-click baseline
        QCOMPARE(plot->cursor().shape(), Qt::SizeVerCursor);
        QCOMPARE(desk.form->cursor().shape(), Qt::ArrowCursor); // only over the plot
        desk.core().setPointer(Pointer::fourWay);
        QCOMPARE(plot->cursor().shape(), Qt::SizeAllCursor);
        desk.core().setPointer(Pointer::hourglass);
        QCOMPARE(plot->cursor().shape(), Qt::WaitCursor);
        QCOMPARE(desk.form->cursor().shape(), Qt::WaitCursor);
    }

    void theWayBackFromMinimisedDrawsBothPlotsAnew()
    {
        Desk desk;
        desk.openSample();
        desk.chooseFirstSensor(0);
        desk.chooseFirstSensor(1);
        const std::array before{desk.plot(0), desk.plot(1)};
        desk.form->setWindowState(Qt::WindowMinimized);
        for (int index = 0; index < 2; ++index) desk.toolkit().surface(index).erase();
        QVERIFY(desk.plot(0) != before[0]);
        desk.form->setWindowState(Qt::WindowNoState);
        QCOMPARE(desk.plot(0), before[0]);
        QCOMPARE(desk.plot(1), before[1]);
    }

    void viewTogglesTheLayer()
    {
        Desk desk;
        desk.openSample();
        desk.chooseFirstSensor();
        const QImage input = desk.plot(0);
        desk.click("viewButton");
        QCOMPARE(desk.text("statusPanel2"), QStringLiteral("Display: viewing output data"));
        QVERIFY(desk.plot(0) != input);
        desk.entry("mnuToolsView")->trigger();
        QCOMPARE(desk.text("statusPanel2"), QStringLiteral("Display: viewing input data"));
        QVERIFY(desk.plot(0) == input);
    }

    void theViewMenuHidesAndShowsTheBars()
    {
        Desk desk;
        for (const auto& [name, bar] :
             {std::pair("mnuViewToolbar", "tbToolBar"), {"mnuViewStatusBar", "sbStatusBar"}}) {
            QVERIFY(desk.entry(name)->isChecked());
            desk.entry(name)->trigger();
            QVERIFY(!desk.entry(name)->isChecked());
            QVERIFY(!desk.find(bar)->isVisible());
            desk.entry(name)->trigger();
            QVERIFY(desk.find(bar)->isVisible());
        }
    }

    void zoomEndsAtEight()
    {
        Desk desk;
        desk.openSample();
        QVERIFY(!desk.entry("mnuViewZoomOut")->isEnabled());
        for (int i = 0; i < 3; ++i) desk.entry("mnuViewZoomIn")->trigger();
        QCOMPARE(int(desk.core().view.zoomFactor), 8);
        QVERIFY(!desk.entry("mnuViewZoomIn")->isEnabled());
        QVERIFY(desk.entry("mnuViewZoomOut")->isEnabled());
    }

    void theBaselineButtonCanBeUndone()
    {
        Desk desk;
        desk.openSample();
        desk.chooseFirstSensor();
        const auto before = baselineOf(desk);
        desk.click("baseButton");
        QVERIFY(baselineOf(desk) != before);
        QCOMPARE(desk.entry("mnuEditUndo")->text(), QStringLiteral("&Undo"));
        desk.entry("mnuEditUndo")->trigger();
        QVERIFY(baselineOf(desk) == before);
        QCOMPARE(desk.entry("mnuEditUndo")->text(), QStringLiteral("Can't Undo"));
    }

    void readersHearAValueWithItsName()
    {
        Desk desk;
        desk.openSample();
        QCOMPARE(desk.find("rowLabel")->accessibleName(), QStringLiteral("Rows: 1440"));
        QVERIFY(desk.find("slLabel")->accessibleName().endsWith(desk.text("slLabel")));
    }

    void theListsShowNumbersWithoutLabels()
    {
        Desk desk;
        desk.openSample();
        desk.tick("labelBox");
        QCOMPARE(desk.find<QComboBox>("varList0")->itemText(12), QStringLiteral("13"));
        desk.tick("labelBox");
        QCOMPARE(desk.find<QComboBox>("varList0")->itemText(12), QStringLiteral("S8"));
    }

    void choosingTheSameColumnAgainDrawsAgain()
    {
        Desk desk;
        desk.openSample();
        desk.chooseFirstSensor();
        const QImage drawn = desk.plot(0);
        desk.toolkit().surface(0).erase();
        QVERIFY(!anywhere(desk.plot(0), Qt::black));
        auto* list = desk.find<QComboBox>("varList0");
        list->showPopup();
        QTest::keyClick(list->view(), Qt::Key_Return);
        QVERIFY(desk.plot(0) == drawn);
    }

    void aFailureIsOneBoxAndTheDialogStays()
    {
        Desk desk;
        desk.open(TARVELINT_SAMPLE);
        desk.tick("turboCheck");
        desk.type("vpdBox", "99");
        desk.answer(QMessageBox::Ok);
        desk.click("OKButton");
        QVERIFY2(desk.said.contains(QStringLiteral("99")), qPrintable(desk.said));
        QVERIFY(desk.find("labelForm")->isVisible());
        QVERIFY(!desk.core().view.Turbo);
    }
};

} // namespace tarvelint::test

QTEST_MAIN(tarvelint::test::MainWindowTest)
#include "main_window_test.moc"
