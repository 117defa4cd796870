// SPDX-License-Identifier: MIT
#include "desk.h"

#include "dialogs/change_form.h"

#include <QCursor>
#include <QLineEdit>

namespace tarvelint::test {

namespace {

constexpr std::int32_t kS1 = 5; // 0-based column of the first sensor

/// The sample at zoom 1 from row 0 on, its first sensor in the main plot: row r lies at x = r.
class PlotDesk : public Desk {
public:
    explicit PlotDesk(bool preProcessed = false)
    {
        if (preProcessed) {
            openSample();
        } else {
            open(TARVELINT_SAMPLE);
            click("OKButton");
        }
        chooseFirstSensor();
        plot = find("Picture1_0");
    }
    void traditional() const
    {
        command([this] { core().pointing.mnuToolsMode_Click(); }); // from sloppy
    }
    [[nodiscard]] QPoint at(int row) const { return {row, plot->height() / 2}; }
    void press(int row, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::mousePress(plot, Qt::LeftButton, modifiers, at(row));
    }
    void move(int row) const { QTest::mouseMove(plot, at(row)); }
    void release(int row) const { QTest::mouseRelease(plot, Qt::LeftButton, {}, at(row)); }
    [[nodiscard]] std::pair<int, int> selected() const { return {core().view.selStart, core().view.selEnd}; }
    [[nodiscard]] double reading(int row) const { return core().record.values(kUnconverted, kS1, row); }
    /// The first point at or after a row of the first sensor.
    [[nodiscard]] int pointFrom(int row) const { return core().sensors.pointFrom(0, row).value(); }

    QWidget* plot = nullptr;
};

ChangeForm* valueDialog()
{
    const auto widgets = QApplication::topLevelWidgets();
    for (QWidget* widget : widgets)
        if (auto* dialog = qobject_cast<ChangeForm*>(widget); dialog != nullptr && dialog->isVisible()) return dialog;
    return nullptr;
}

/// Plays the user in the value dialog once it is there; `play` runs while the window waits.
void inValueDialog(QObject& context, const std::function<void(ChangeForm&)>& play)
{
    auto* timer = new QTimer(&context);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, play] {
        ChangeForm* dialog = valueDialog();
        if (dialog == nullptr) return;
        timer->stop();
        play(*dialog);
    });
    timer->start(5);
}

} // namespace

class PointerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aDragSelectsFromItsPressToItsRelease();
    void aClickWithShiftExtendsTheSelection();
    void cuesFollowThePointer();
    void aReleaseOutsideEndsTheDrag();
    void aPointIsPickedMovedAndDropped();
    void aWindowThatLosesTheFocusPutsThePointBack();
    void escapeWhileHeldPutsThePointBack();
    void aDoubleClickAddsAPoint();
    void aMissingReadingUnderADropBeepsAndKeepsThePoint();
    void commandsAreDroppedWhileTheButtonIsHeld();
    void oneClickAfterAnotherLaysABaseline();
    void aRightPressEditsTheValue();
    void aSecondRightPressRaisesTheDialogThatWaits();
    void closingTheWindowWhileTheDialogWaitsIsSafe();
    void theCompanionTakesNoPresses();
    void keysReachThePlotAndTextBoxesKeepTheirs();
    void theRowCursorIsShownOverThePlot();
};

void PointerTest::aDragSelectsFromItsPressToItsRelease()
{
    const PlotDesk desk;
    desk.traditional();
    desk.press(60);
    desk.move(90);
    QTRY_COMPARE(desk.selected(), std::pair(60, 90));
    desk.release(90);
    desk.move(120);
    QTest::qWait(0);
    QCOMPARE(desk.selected(), std::pair(60, 90));
}

void PointerTest::aClickWithShiftExtendsTheSelection()
{
    const PlotDesk desk;
    desk.traditional();
    QTest::mouseClick(desk.plot, Qt::LeftButton, {}, desk.at(60));
    QTest::mouseClick(desk.plot, Qt::LeftButton, Qt::ShiftModifier, desk.at(100));
    QCOMPARE(desk.selected(), std::pair(60, 100));
    QTest::mouseClick(desk.plot, Qt::LeftButton, Qt::ShiftModifier, desk.at(20));
    QCOMPARE(desk.selected(), std::pair(20, 100));
}

void PointerTest::cuesFollowThePointer()
{
    const PlotDesk desk;
    desk.move(60);
    const QString expected = QString::number(desk.reading(60), 'f', 4);
    QTRY_COMPARE(desk.text("inLabel"), expected);
}

void PointerTest::aReleaseOutsideEndsTheDrag()
{
    const PlotDesk desk;
    desk.traditional();
    desk.press(60);
    QTest::mouseRelease(desk.plot, Qt::LeftButton, {}, QPoint(90, -200));
    QVERIFY(!desk.core().view.isHeld);
}

void PointerTest::aPointIsPickedMovedAndDropped()
{
    const PlotDesk desk(true);
    const int point = desk.pointFrom(20);
    int target = point + 10;
    while (desk.core().record.isBlank(desk.reading(target))) ++target;
    desk.press(point);
    desk.move(target);
    QTRY_COMPARE(desk.core().view.dragRow, target);
    desk.release(target);
    QVERIFY(desk.core().sensors.isPoint(0, target));
    QVERIFY(!desk.core().sensors.isPoint(0, point));
    QCOMPARE(desk.core().record.values(kBaseline, kS1, target), desk.reading(target));
}

void PointerTest::aWindowThatLosesTheFocusPutsThePointBack()
{
    const PlotDesk desk(true);
    const int point = desk.pointFrom(20);
    desk.press(point);
    desk.move(point + 10);
    QEvent deactivated(QEvent::WindowDeactivate);
    QApplication::sendEvent(desk.form, &deactivated);
    QVERIFY(!desk.core().view.isHeld);
    QCOMPARE(desk.core().view.grabbedPoint, -1);
    desk.release(point + 10);
    QVERIFY(desk.core().sensors.isPoint(0, point));
}

void PointerTest::escapeWhileHeldPutsThePointBack()
{
    const PlotDesk desk(true);
    const int point = desk.pointFrom(20);
    desk.press(point);
    desk.move(point + 10);
    QTest::keyClick(desk.plot, Qt::Key_Escape);
    desk.release(point + 10);
    QVERIFY(desk.core().sensors.isPoint(0, point));
    QVERIFY(!desk.core().sensors.isPoint(0, point + 10));
}

void PointerTest::aDoubleClickAddsAPoint()
{
    const PlotDesk desk(true);
    const int before = desk.pointFrom(20);
    int row = before + 12;
    while (desk.core().record.isBlank(desk.reading(row))) ++row;
    desk.move(row);
    QTest::mouseClick(desk.plot, Qt::LeftButton, {}, desk.at(row));
    QTest::mouseDClick(desk.plot, Qt::LeftButton, {}, desk.at(row));
    QVERIFY(desk.core().sensors.isPoint(0, row));
    QVERIFY(desk.core().sensors.isPoint(0, before));
}

void PointerTest::aMissingReadingUnderADropBeepsAndKeepsThePoint()
{
    const PlotDesk desk(true);
    const int point = desk.pointFrom(20);
    desk.core().record.values(kUnconverted, kS1, point + 10) = 99999;
    desk.press(point);
    desk.move(point + 10);
    desk.release(point + 10);
    QVERIFY(desk.core().sensors.isPoint(0, point));
}

void PointerTest::commandsAreDroppedWhileTheButtonIsHeld()
{
    const PlotDesk desk;
    desk.traditional();
    desk.press(60);
    desk.entry("mnuViewZoomIn")->trigger();
    QTest::keyClick(desk.plot, Qt::Key_Space);
    QCOMPARE(int(desk.core().view.zoomFactor), 1);
    QCOMPARE(desk.selected(), std::pair(60, 60));
    desk.release(60);
    desk.entry("mnuViewZoomIn")->trigger();
    QCOMPARE(int(desk.core().view.zoomFactor), 2);
}

void PointerTest::oneClickAfterAnotherLaysABaseline()
{
    const PlotDesk desk;
    desk.traditional();
    desk.command([&] { desk.core().pointing.mnuToolsMode_Click(); });
    QTest::mouseClick(desk.plot, Qt::LeftButton, {}, desk.at(60));
    QCOMPARE(desk.plot->cursor().shape(), Qt::SizeAllCursor);
    QTest::mouseClick(desk.plot, Qt::LeftButton, {}, desk.at(100));
    QCOMPARE(desk.core().record.values(kBaseline, kS1, 60), desk.reading(60));
    QVERIFY(!desk.core().record.isBlank(desk.core().record.values(kConverted, kS1, 80)));
    QTest::keyClick(desk.plot, Qt::Key_Escape);
    QCOMPARE(desk.plot->cursor().shape(), Qt::SizeVerCursor);
}

void PointerTest::aRightPressEditsTheValue()
{
    PlotDesk desk;
    const QString old = QString::number(desk.reading(60), 'f', 4);
    QString offered;
    QString title;
    inValueDialog(desk, [&](ChangeForm& dialog) {
        auto* box = dialog.findChild<QLineEdit*>(QStringLiteral("newValue"));
        offered = box->selectedText();
        title = dialog.windowTitle();
        QTest::keyClicks(box, QStringLiteral("12abc"));
        QTest::keyClick(box, Qt::Key_Return);
    });
    QTest::mousePress(desk.plot, Qt::RightButton, {}, desk.at(60));
    QCOMPARE(title, QStringLiteral("Change the value"));
    QCOMPARE(offered, old);
    QCOMPARE(desk.reading(60), 12.0);
}

void PointerTest::aSecondRightPressRaisesTheDialogThatWaits()
{
    PlotDesk desk;
    int commands = 0;
    inValueDialog(desk, [&](ChangeForm& dialog) {
        QTest::mousePress(desk.plot, Qt::RightButton, {}, desk.at(90));
        desk.command([&] { ++commands; });
        dialog.reject();
    });
    QTest::mousePress(desk.plot, Qt::RightButton, {}, desk.at(60));
    QCOMPARE(commands, 0);
    QCOMPARE(desk.selected(), std::pair(60, 60));
}

void PointerTest::closingTheWindowWhileTheDialogWaitsIsSafe()
{
    PlotDesk desk;
    desk.core().record.saveCheck = true;
    const QPointer<FrmMain> window = desk.window;
    inValueDialog(desk, [&](ChangeForm&) { desk.form->close(); });
    QTest::mousePress(desk.plot, Qt::RightButton, {}, desk.at(60));
    QTRY_VERIFY(!window);
    QVERIFY(valueDialog() == nullptr);
}

void PointerTest::theCompanionTakesNoPresses()
{
    PlotDesk desk;
    desk.traditional();
    desk.chooseFirstSensor(1);
    QTest::mouseClick(desk.find("Picture1_1"), Qt::LeftButton, {}, QPoint(60, 10));
    QCOMPARE(desk.selected(), std::pair(0, 0));
}

void PointerTest::keysReachThePlotAndTextBoxesKeepTheirs()
{
    const PlotDesk desk;
    const int before = desk.core().view.zoomFactor;
    desk.type("maxLabel0", "5+");
    QCOMPARE(int(desk.core().view.zoomFactor), before);
    desk.plot->setFocus();
    QTest::keyClick(desk.plot, Qt::Key_Plus, Qt::ShiftModifier);
    QCOMPARE(int(desk.core().view.zoomFactor), 2 * before);
    QTest::keyClick(desk.plot, Qt::Key_Minus, Qt::KeypadModifier);
    QCOMPARE(int(desk.core().view.zoomFactor), before);
    QTest::keyClick(desk.plot, Qt::Key_V, Qt::AltModifier | Qt::ControlModifier);
    QCOMPARE(desk.core().view.curLayer, int(kUnconverted));
}

void PointerTest::theRowCursorIsShownOverThePlot()
{
    const PlotDesk desk;
    desk.plot->setFocus();
    const QColor mark = desk.plot->palette().color(QPalette::Highlight);
    const auto isMarked = [&](int x) {
        const QImage picture = desk.Desk::plot(0);
        for (int y = 0; y < desk.plot->height(); ++y)
            if (test::at(picture, x, y) == mark) return true;
        return false;
    };
    QVERIFY(!isMarked(2));
    QTest::keyClick(desk.plot, Qt::Key_Right, Qt::ControlModifier); // comes to row 0
    QTest::keyClick(desk.plot, Qt::Key_Right, Qt::ControlModifier);
    QTest::keyClick(desk.plot, Qt::Key_Right, Qt::ControlModifier);
    QVERIFY(isMarked(2));
    QVERIFY(desk.plot->accessibleName().contains(QStringLiteral("row 3")));
}

} // namespace tarvelint::test

QTEST_MAIN(tarvelint::test::PointerTest)
#include "pointer_test.moc"
