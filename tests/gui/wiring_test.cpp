// SPDX-License-Identifier: MIT
#include "app/command_table.h"
#include "desk.h"

#include <QAction>
#include <QDialog>
#include <QRegularExpression>
#include <QWheelEvent>

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <tuple>

namespace tarvelint::test {

namespace {

constexpr std::int32_t kS1 = 5; // 0-based columns: Day, Time, PAR, VPD and Tair come before the sensors
constexpr std::int32_t kS2 = 6;

/// The sample with its first sensor in both areas.
class SensorDesk : public Desk {
public:
    SensorDesk()
    {
        openSample();
        chooseFirstSensor(0);
        chooseFirstSensor(1);
    }

    [[nodiscard]] double value(int layer, std::int32_t column, std::int32_t row) const
    {
        return core().record.values(layer, column, row);
    }
    /// A row with a baseline: somewhere between the first point and the last.
    [[nodiscard]] std::int32_t convertedRow(std::int32_t column) const
    {
        for (std::int32_t row = 500; row < core().record.lines; ++row)
            if (!core().record.isBlank(value(kBaseline, column, row))) return row;
        qFatal("no baseline");
        return -1;
    }
    /// Puts a number into the converted layer that no conversion gives.
    void spoil(std::int32_t column) const { core().record.values(kConverted, column, convertedRow(column)) = kSpoilt; }
    [[nodiscard]] bool isSpoilt(std::int32_t column) const
    {
        return value(kConverted, column, convertedRow(column)) == kSpoilt;
    }

private:
    static constexpr double kSpoilt = -7;
};

/// Presses OK in the save-contents dialog as soon as it is there.
void confirmContents(Desk& desk)
{
    QTimer::singleShot(0, desk.form, [&desk] { click(*desk.find("FileTypeFrm"), "OKButton"); });
}

/// Names of the menu entries that can be chosen, in the order of the menus.
QStringList entriesThatAreOn(const Desk& desk)
{
    QStringList names;
    for (const Command& command : commandTable())
        if (command.kind == Command::Kind::entry && desk.entry(command.name)->isEnabled())
            names.append(QString::fromLatin1(command.name));
    return names;
}

QStringList controlsThatAreOff(const Desk& desk)
{
    QStringList names;
    for (const ControlRow& row : controlTable())
        if (!desk.find(row.name)->isEnabled()) names.append(QString::fromLatin1(row.name));
    return names;
}

/// One notch of the wheel, 120 away from the hand.
void turnWheel(QWidget& under, int angle)
{
    const QPointF at = under.rect().center();
    QWheelEvent wheel(at, under.mapToGlobal(at), {}, {0, angle}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                      false);
    QCoreApplication::sendEvent(&under, &wheel);
}

Control controlCalled(std::string_view name)
{
    return std::ranges::find(controlTable(), name, &ControlRow::name)->control;
}

QStringList words(const char* text)
{
    return QString::fromLatin1(text).split(u' ', Qt::SkipEmptyParts);
}

} // namespace

class WiringTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

    void aLoadEnablesTheEntriesThatDoSomething()
    {
        Desk desk;
        QCOMPARE(entriesThatAreOn(desk), words("mnuFileNew mnuFileOpen mnuFileClose mnuFileExit mnuViewToolbar "
                                               "mnuViewStatusBar mnuToolsOptions mnuHelpAbout"));
        desk.openSample();
        QCOMPARE(entriesThatAreOn(desk),
                 words("mnuFileNew mnuFileOpen mnuFileClose mnuFileSave mnuFileSaveAs mnuFileExit mnuEditClear "
                       "mnuEditSelectAll "
                       "mnuViewToolbar mnuViewStatusBar mnuViewRefresh mnuViewLabels mnuViewZoomIn mnuToolsView "
                       "mnuToolsConvert mnuToolsDelete mnuToolsBreak mnuToolsInterpolate mnuToolsRecalculateSelection "
                       "mnuToolsRecalculate mnuToolsRecalculateAll mnuToolsOptions mnuHelpAbout"));
    }

    void aLoadEnablesAllOtherControlsButTwo()
    {
        Desk desk;
        QCOMPARE(controlsThatAreOff(desk),
                 words("Picture1_0 Picture1_1 HScroll1 varList0 varList1 scaleBox0 scaleBox1 maxLabel0 maxLabel1 "
                       "minLabel0 minLabel1 refCheck refBox highBox labelBox labelButton viewButton convButton "
                       "baseButton"));
        desk.openSample();
        desk.chooseFirstSensor();
        QCOMPARE(controlsThatAreOff(desk), words("Picture1_1 refBox"));
        desk.chooseFirstSensor(1);
        desk.tick("refCheck");
        QCOMPARE(controlsThatAreOff(desk), QStringList());
    }

    void everyControlIsCalledAsItsRowSays()
    {
        Desk desk;
        for (const ControlRow& row : controlTable())
            QVERIFY2(desk.find(row.name)->accessibleName().startsWith(QString::fromLatin1(row.spoken)), row.name);
    }

    void theToolBarsButtonsDoWhatTheirEntriesDo()
    {
        SensorDesk desk;
        QStringList asked;
        desk.toolkit().askForFile = [&](QWidget*, const FileDialog& dialog, bool save) -> std::optional<ChosenFile> {
            asked.append(QString::fromStdString(dialog.title) + (save ? QStringLiteral(" save") : QString()));
            return {};
        };
        confirmContents(desk);
        desk.entry("toolSave")->trigger();
        confirmContents(desk);
        desk.entry("mnuFileSaveAs")->trigger();
        desk.core().record.saveCheck = true; // nothing to ask about
        desk.entry("toolOpen")->trigger();
        QCOMPARE(asked,
                 (QStringList{QStringLiteral("Save: save"), QStringLiteral("Save As: save"), QStringLiteral("Open")}));
        desk.entry("toolNew")->trigger();
        QCOMPARE(desk.windows.mainWindows().size(), std::size_t{2});
    }

    void refreshDrawsBothPlots()
    {
        SensorDesk desk;
        const QImage main = desk.plot(0);
        const QImage companion = desk.plot(1);
        for (const int index : {0, 1}) desk.toolkit().surface(index).erase();
        QVERIFY(desk.plot(0) != main);
        desk.entry("mnuViewRefresh")->trigger();
        QCOMPARE(desk.plot(0), main);
        QCOMPARE(desk.plot(1), companion);
    }

    void labelsOpensTheColumnSetup()
    {
        SensorDesk desk;
        auto* dialog = desk.find<QDialog>("labelForm");
        QVERIFY(!dialog->isVisible());
        desk.entry("mnuViewLabels")->trigger();
        QVERIFY(dialog->isVisible());
        dialog->reject();
        desk.click("labelButton");
        QVERIFY(dialog->isVisible());
    }

    void theColumnSetupsCancelIsTakenWhileACommandRuns()
    {
        SensorDesk desk;
        auto* dialog = desk.find<QDialog>("labelForm");
        desk.entry("mnuViewLabels")->trigger();
        desk.command([&] { click(*dialog, "CancelButton"); });
        QVERIFY(!dialog->isVisible());
    }

    void zoomOutUndoesZoomIn()
    {
        SensorDesk desk;
        const QImage plain = desk.plot(0);
        desk.entry("mnuViewZoomIn")->trigger();
        QCOMPARE(int(desk.core().view.zoomFactor), 2);
        desk.entry("mnuViewZoomOut")->trigger();
        QCOMPARE(int(desk.core().view.zoomFactor), 1);
        QCOMPARE(desk.plot(0), plain);
    }

    void selectAllSelectsEveryRow()
    {
        SensorDesk desk;
        desk.entry("mnuEditSelectAll")->trigger();
        QCOMPARE(desk.core().view.selStart, 0);
        QCOMPARE(desk.core().view.selEnd, 1439);
    }

    void convertAndRecalculateSelectionLayTheSelectionsBaseline()
    {
        for (const char* entry : {"mnuToolsConvert", "mnuToolsRecalculateSelection"}) {
            SensorDesk desk;
            desk.core().view.selStart = 600;
            desk.core().view.selEnd = 610;
            QVERIFY2(desk.value(kBaseline, kS1, 600) != desk.value(kUnconverted, kS1, 600), entry);
            desk.entry(entry)->trigger();
            for (const std::int32_t end : {600, 610}) // the baseline runs from reading to reading
                QVERIFY2(std::abs(desk.value(kBaseline, kS1, end) - desk.value(kUnconverted, kS1, end)) < 1e-9, entry);
        }
    }

    void convertLeavesAParameterColumnAndRecalculateSelectionDoesNot()
    {
        for (const bool converts : {false, true}) {
            SensorDesk desk;
            desk.command([&] { desk.core().lists.choose(0, 2); }); // PAR
            desk.core().view.selStart = 600;
            desk.core().view.selEnd = 610;
            desk.entry(converts ? "mnuToolsRecalculateSelection" : "mnuToolsConvert")->trigger();
            QCOMPARE(!desk.core().record.isBlank(desk.value(kBaseline, 2, 600)), converts);
        }
    }

    void recalculateCurrentConvertsItsColumnAndRecalculateAllEveryOne()
    {
        SensorDesk desk;
        desk.spoil(kS1);
        desk.spoil(kS2);
        desk.entry("mnuToolsRecalculate")->trigger();
        QVERIFY(!desk.isSpoilt(kS1));
        QVERIFY(desk.isSpoilt(kS2));
        desk.spoil(kS1);
        desk.entry("mnuToolsRecalculateAll")->trigger();
        QVERIFY(!desk.isSpoilt(kS1));
        QVERIFY(!desk.isSpoilt(kS2));
    }

    void eachRangeBoxTurnsItsOwnAutoOffAndDrawsItsOwnPlot()
    {
        for (const auto& [box, index, text] : {std::tuple("maxLabel0", 0, "30"),
                                               {"minLabel0", 0, "-30"},
                                               {"maxLabel1", 1, "30"},
                                               {"minLabel1", 1, "-30"}}) {
            SensorDesk desk;
            const int other = 1 - index;
            const std::array before{desk.plot(0), desk.plot(1)};
            desk.type(box, text);
            QVERIFY2(!desk.find<QCheckBox>(index == 0 ? "scaleBox0" : "scaleBox1")->isChecked(), box);
            QVERIFY2(desk.find<QCheckBox>(index == 0 ? "scaleBox1" : "scaleBox0")->isChecked(), box);
            QVERIFY2(desk.plot(index) != before[std::size_t(index)], box);
            QVERIFY2(desk.plot(other) == before[std::size_t(other)], box);
        }
    }

    void keysThatChangeNoTextLeaveAutoOn()
    {
        SensorDesk desk;
        for (const char* name : {"maxLabel0", "minLabel0", "maxLabel1", "minLabel1"}) {
            auto* box = desk.find<QLineEdit>(name);
            for (const auto key : {Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Left, Qt::Key_Right, Qt::Key_Home, Qt::Key_End,
                                   Qt::Key_Up, Qt::Key_Down, Qt::Key_Escape, Qt::Key_Shift})
                QTest::keyClick(box, key);
            for (const auto key : {Qt::Key_A, Qt::Key_C}) QTest::keyClick(box, key, Qt::ControlModifier);
            QTest::keyClick(box, Qt::Key_Left, Qt::ShiftModifier);
            for (const char* both : {"scaleBox0", "scaleBox1"}) QVERIFY2(desk.find<QCheckBox>(both)->isChecked(), name);
        }
    }

    void enterAndDeletingTurnAutoOffAlsoInAnEmptyBox()
    {
        for (const auto& [name, automatic] : {std::pair("maxLabel0", "scaleBox0"),
                                              {"minLabel0", "scaleBox0"},
                                              {"maxLabel1", "scaleBox1"},
                                              {"minLabel1", "scaleBox1"}})
            for (const auto key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Backspace, Qt::Key_Delete}) {
                SensorDesk desk;
                auto* box = desk.find<QLineEdit>(name);
                desk.command([&, control = controlCalled(name)] { desk.core().setText(control, {}); });
                QVERIFY(desk.find<QCheckBox>(automatic)->isChecked());
                QTest::keyClick(box, key);
                QVERIFY2(!desk.find<QCheckBox>(automatic)->isChecked(), name);
            }
    }

    void cutAndPasteTurnAutoOff()
    {
        SensorDesk desk;
        auto* box = desk.find<QLineEdit>("maxLabel1");
        box->selectAll();
        QTest::keyClick(box, Qt::Key_C, Qt::ControlModifier);
        QVERIFY(desk.find<QCheckBox>("scaleBox1")->isChecked());
        QTest::keyClick(box, Qt::Key_V, Qt::ControlModifier); // the same text over itself
        QVERIFY(!desk.find<QCheckBox>("scaleBox1")->isChecked());
        desk.tick("scaleBox1");
        box->selectAll();
        QTest::keyClick(box, Qt::Key_X, Qt::ControlModifier);
        QVERIFY(box->text().isEmpty());
        QVERIFY(!desk.find<QCheckBox>("scaleBox1")->isChecked());
    }

    void autoOfTheCompanionGivesItsRangeBack()
    {
        SensorDesk desk;
        const QImage fitted = desk.plot(1);
        const QString top = desk.find<QLineEdit>("maxLabel1")->text();
        desk.type("maxLabel1", "30");
        QVERIFY(desk.plot(1) != fitted);
        desk.tick("scaleBox1");
        QCOMPARE(desk.find<QLineEdit>("maxLabel1")->text(), top);
        QCOMPARE(desk.plot(1), fitted);
        desk.tick("scaleBox1");
        QVERIFY(!desk.core().isChecked(Control::scaleBox1));
    }

    void theWheelOverAClosedColumnListChangesNothing()
    {
        for (const char* name : {"varList0", "varList1"}) {
            SensorDesk desk;
            auto* list = desk.find<QComboBox>(name);
            for (const int away : {120, -120, -120}) {
                turnWheel(*list, away);
                QCOMPARE(list->currentIndex(), int(kS1));
            }
        }
    }

    void theSideOfTheBaselineIsKeptAtClosing()
    {
        SensorDesk desk;
        QVERIFY(desk.find<QCheckBox>("highBox")->isChecked());
        desk.tick("highBox");
        desk.core().record.saveCheck = true; // nothing to ask about
        QVERIFY(desk.form->close());
        QCOMPARE(desk.settings.values["High"], std::string("0"));
    }
};

} // namespace tarvelint::test

QTEST_MAIN(tarvelint::test::WiringTest)
#include "wiring_test.moc"
