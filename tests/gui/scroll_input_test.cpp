// SPDX-License-Identifier: MIT
#include "desk.h"

#include <QAbstractItemView>
#include <QRegularExpression>
#include <QScrollBar>
#include <QWheelEvent>

#include <array>

namespace tarvelint::test {

namespace {

constexpr int kNotch = 120; // eighths of a degree
constexpr std::array kPlots{"Picture1_0", "Picture1_1"};
constexpr std::array kKeys{Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End};

void turn(QWidget& under, QPoint angle, Qt::KeyboardModifiers modifiers = {})
{
    const QPointF at = under.rect().center();
    QWheelEvent wheel(at, under.mapToGlobal(at), {}, angle, Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&under, &wheel);
}

/// The sample's first sensor in both plots, its scroll bar some way from both ends.
class ScrolledDesk : public Desk {
public:
    ScrolledDesk()
    {
        openSample();
        chooseFirstSensor(0);
        chooseFirstSensor(1);
        command([this] { core().setScrollValue(kStart); });
        form->activateWindow();
    }
    void turnOver(const char* name, int angle, Qt::KeyboardModifiers modifiers = {}) const
    {
        turn(*find(name), {0, angle}, modifiers);
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::keyClick(find("Picture1_0"), key, modifiers);
    }
    [[nodiscard]] const ScrollBar& bar() const { return core().view.HScroll1; }
    [[nodiscard]] int value() const
    {
        if (find<QScrollBar>("HScroll1")->value() != bar().Value) qFatal("the bar does not show the first row");
        return bar().Value;
    }
    [[nodiscard]] int zoom() const { return core().view.zoomFactor; }
    [[nodiscard]] int largeChange() const { return bar().LargeChange; }
    [[nodiscard]] int step() const { return bar().SmallChange; }

    static constexpr int kStart = 500;
};

/// How thick the companion's trace is where it runs level, near the left edge.
int penWidth(const Desk& desk)
{
    const QImage plot = desk.plot(1);
    int black = 0;
    for (int y = 0; y < plot.height(); ++y) black += plot.pixelColor(6, y) == QColor(Qt::black);
    return black;
}

} // namespace

class ScrollInputTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

    void aNotchOverEitherPlotIsOneStepAwayTowardsEarlierRows()
    {
        for (const char* plot : kPlots) {
            const ScrolledDesk desk;
            QVERIFY(desk.step() > 1);
            const QImage before = desk.plot(1);
            desk.turnOver(plot, kNotch);
            QCOMPARE(desk.value(), ScrolledDesk::kStart - desk.step());
            QVERIFY(desk.plot(1) != before);
            desk.turnOver(plot, -2 * kNotch);
            QCOMPARE(desk.value(), ScrolledDesk::kStart + desk.step());
        }
    }

    void sidewaysMovementScrollsToo()
    {
        for (const char* plot : kPlots) {
            const ScrolledDesk desk;
            turn(*desk.find(plot), {-kNotch, 0});
            QCOMPARE(desk.value(), ScrolledDesk::kStart + desk.step());
            turn(*desk.find(plot), {kNotch, 30}); // of both ways the larger one counts
            QCOMPARE(desk.value(), ScrolledDesk::kStart);
        }
    }

    void smallMovementsAddUpToAStep()
    {
        const ScrolledDesk desk;
        for (int i = 0; i < 14; ++i) desk.turnOver("Picture1_0", -8); // 15 of them are a notch
        QCOMPARE(desk.value(), ScrolledDesk::kStart);
        desk.turnOver("Picture1_0", -8);
        QCOMPARE(desk.value(), ScrolledDesk::kStart + desk.step());
    }

    void withCtrlTheWheelZoomsWhileTheEntryIsOn()
    {
        for (const char* plot : kPlots) {
            const ScrolledDesk desk;
            desk.turnOver(plot, kNotch, Qt::ControlModifier);
            QCOMPARE(desk.zoom(), 2);
            QCOMPARE(desk.value(), ScrolledDesk::kStart);
            desk.turnOver(plot, -kNotch, Qt::ControlModifier);
            QCOMPARE(desk.zoom(), 1);
            desk.turnOver(plot, -kNotch, Qt::ControlModifier);
            QCOMPARE(desk.zoom(), 1);
            desk.turnOver(plot, 9 * kNotch, Qt::ControlModifier);
            QCOMPARE(desk.zoom(), 8);
        }
    }

    void aSavedZoomIsDrawnInThinLinesUntilTheFirstZoomCommand()
    {
        Desk desk(false);
        desk.settings.values["ZoomFactor"] = "4";
        desk.window = &desk.windows.create();
        desk.form = &desk.window->form();
        desk.form->show();
        QVERIFY(QTest::qWaitForWindowExposed(desk.form));
        desk.openSample();
        desk.command([&] { desk.core().lists.choose(1, 2); }); // PAR: level, as the record begins at midnight
        QCOMPARE(int(desk.core().view.zoomFactor), 4);
        QCOMPARE(penWidth(desk), 1);
        desk.entry("mnuViewZoomIn")->trigger();
        QCOMPARE(penWidth(desk), 4);
        desk.entry("mnuViewZoomOut")->trigger();
        QCOMPARE(penWidth(desk), 3);
    }

    void overListsAndBoxesTheWheelChangesNothing()
    {
        const ScrolledDesk desk;
        for (const char* name : {"varList0", "varList1", "maxLabel0", "minLabel1", "labelBox", "Frame1"})
            for (const int angle : {kNotch, -kNotch, -kNotch})
                for (const Qt::KeyboardModifier with : {Qt::NoModifier, Qt::ControlModifier}) {
                    desk.turnOver(name, angle, with);
                    QVERIFY2(desk.value() == ScrolledDesk::kStart && desk.zoom() == 1, name);
                    QVERIFY2(desk.find<QComboBox>("varList0")->currentText() == u"S1", name);
                    QVERIFY2(desk.find<QComboBox>("varList1")->currentText() == u"S1", name);
                }
    }

    void withoutARecordTheWheelDoesNothing()
    {
        const Desk desk;
        for (const char* plot : kPlots)
            for (const Qt::KeyboardModifier with : {Qt::NoModifier, Qt::ControlModifier}) {
                turn(*desk.find(plot), {0, -kNotch}, with);
                QCOMPARE(desk.core().view.HScroll1.Value, 0);
                QCOMPARE(int(desk.core().view.zoomFactor), 1);
            }
    }

    void pageKeysMoveByAScreenHomeAndEndToTheEnds()
    {
        const ScrolledDesk desk;
        desk.command([&] { desk.core().setScrollValue(0); });
        desk.press(Qt::Key_PageDown);
        QCOMPARE(desk.value(), desk.largeChange());
        desk.press(Qt::Key_PageUp);
        QCOMPARE(desk.value(), 0);
        desk.press(Qt::Key_End);
        QCOMPARE(desk.value(), desk.bar().Max);
        desk.press(Qt::Key_PageDown);
        QCOMPARE(desk.value(), desk.bar().Max);
        desk.press(Qt::Key_Home);
        QCOMPARE(desk.value(), 0);
    }

    void theKeypadsKeysDoTheSame()
    {
        const ScrolledDesk desk;
        desk.press(Qt::Key_End, Qt::KeypadModifier);
        QCOMPARE(desk.value(), desk.bar().Max);
        desk.press(Qt::Key_Home, Qt::KeypadModifier);
        QCOMPARE(desk.value(), 0);
    }

    void aKeyDrawsBothPlotsFromTheNewRow()
    {
        const ScrolledDesk desk;
        const std::array before{desk.plot(0), desk.plot(1)};
        desk.press(Qt::Key_Home);
        QVERIFY(desk.plot(0) != before[0]);
        QVERIFY(desk.plot(1) != before[1]);
        desk.command([&] { desk.core().setScrollValue(ScrolledDesk::kStart); });
        QCOMPARE(desk.plot(0), before[0]);
        QCOMPARE(desk.plot(1), before[1]);
    }

    void withCtrlOrAltAKeyIsNotForThePlot()
    {
        const ScrolledDesk desk;
        for (const Qt::Key key : kKeys)
            for (const Qt::KeyboardModifier with : {Qt::ControlModifier, Qt::AltModifier}) {
                desk.press(key, with);
                QCOMPARE(desk.value(), ScrolledDesk::kStart);
            }
    }

    void aTextBoxKeepsItsOwnKeys()
    {
        const ScrolledDesk desk;
        auto* box = desk.find<QLineEdit>("maxLabel0");
        box->setFocus();
        box->setCursorPosition(1);
        QTest::keyClick(box, Qt::Key_Home);
        QCOMPARE(box->cursorPosition(), 0);
        QTest::keyClick(box, Qt::Key_End);
        QCOMPARE(box->cursorPosition(), int(box->text().size()));
        QCOMPARE(desk.value(), ScrolledDesk::kStart);
        QVERIFY(desk.find<QCheckBox>("scaleBox0")->isChecked()); // nor is it typing
    }

    void aListKeepsItsOwnKeys()
    {
        for (const char* name : {"varList0", "varList1"}) {
            const ScrolledDesk desk;
            auto* list = desk.find<QComboBox>(name);
            list->setFocus();
            QTest::keyClick(list, Qt::Key_Home);
            QCOMPARE(list->currentIndex(), 0);
            list->setFocus(); // a column picked hands it to the plot
            QTest::keyClick(list, Qt::Key_End);
            QCOMPARE(list->currentIndex(), list->count() - 1);
            QCOMPARE(desk.value(), ScrolledDesk::kStart);
            list->setFocus();
            QTest::keyClick(list, Qt::Key_PageUp);
            QVERIFY(list->currentIndex() < list->count() - 1);
            QCOMPARE(desk.value(), ScrolledDesk::kStart);
        }
    }

    void withoutARecordAKeyDoesNothing()
    {
        const Desk desk;
        for (const Qt::Key key : kKeys) {
            QTest::keyClick(desk.form, key);
            QCOMPARE(desk.core().view.HScroll1.Value, 0);
        }
        QVERIFY(!desk.find("HScroll1")->isVisible());
    }
};

} // namespace tarvelint::test

QTEST_MAIN(tarvelint::test::ScrollInputTest)
#include "scroll_input_test.moc"
