// SPDX-License-Identifier: MIT
#include "desk.h"

#include <QElapsedTimer>
#include <QRegularExpression>
#include <QScrollBar>
#include <QWheelEvent>

#include <array>

namespace tarvelint::test {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds kPass{50};
constexpr int kStart = 500;

void turnWheelOver(QWidget& under)
{
    const QPointF at = under.rect().center();
    QWheelEvent wheel(at, under.mapToGlobal(at), {}, {0, -120}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&under, &wheel);
}

/// The sample scrolled to row 500, and a user who does not wait until the window is done.
class BusyDesk : public Desk {
public:
    BusyDesk()
    {
        openSample();
        chooseFirstSensor(0);
        chooseFirstSensor(1);
        command([this] { core().setScrollValue(kStart); });
    }
    /// Plays the user in the middle of a command that lets events run, as scrolling at an edge does.
    void whileBusy(const std::function<void()>& play) const
    {
        bool played = false;
        const auto inTheMiddle = [&] {
            if (!core().boundary.isBusy()) qFatal("the window is not busy");
            play();
            played = true;
        };
        QMetaObject::invokeMethod(form, inTheMiddle, Qt::QueuedConnection);
        command([this] { toolkit().letEventsRunFor(kPass); });
        if (!played) qFatal("the user could do nothing");
    }
    [[nodiscard]] QScrollBar& bar() const { return *find<QScrollBar>("HScroll1"); }
    /// The thumb's middle, as long as the bar stands where it stands.
    [[nodiscard]] QPoint thumb() const
    {
        const int way = bar().width() - 2 * bar().height(); // the arrows are as wide as they are high
        const int middle = bar().value() + bar().pageStep() / 2;
        return {bar().height() + way * middle / (bar().maximum() + bar().pageStep()), bar().height() / 2};
    }
    void drag(QPoint from, int by) const
    {
        QTest::mousePress(&bar(), Qt::LeftButton, {}, from);
        QTest::mouseMove(&bar(), from + QPoint(by, 0));
    }
    void letGo(QPoint at) const { QTest::mouseRelease(&bar(), Qt::LeftButton, {}, at); }
    [[nodiscard]] std::array<QImage, 2> plots() const { return {plot(0), plot(1)}; }
    /// Bar, thumb and core agree on the first row.
    [[nodiscard]] bool standsAt(int row) const
    {
        return bar().value() == row && bar().sliderPosition() == row && core().view.HScroll1.Value == row;
    }
};

} // namespace

/// What the user does while a command runs is dropped, and leaves no trace on the controls.
class BusyWindowTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

    void aPassLastsAsLongAsItIsToldAndEventsRunMeanwhile()
    {
        const Desk desk;
        bool sawPosted = false;
        bool sawTimer = false;
        QMetaObject::invokeMethod(
            desk.form, [&] { sawPosted = true; }, Qt::QueuedConnection);
        QTimer::singleShot(kPass / 2, desk.form, [&] { sawTimer = true; });
        QElapsedTimer watch;
        watch.start();
        desk.toolkit().letEventsRunFor(kPass);
        QVERIFY2(watch.nsecsElapsed() >= 50'000'000, qPrintable(QString::number(watch.nsecsElapsed())));
        QVERIFY(sawPosted);
        QVERIFY(sawTimer);
    }

    void aWindowAskedToCloseMeanwhileBreaksTheCommandOffAndCloses()
    {
        const Desk desk;
        bool wasThrown = false;
        bool wentOn = false;
        bool stayed = false;
        QMetaObject::invokeMethod(
            desk.form, [&] { stayed = !desk.form->close(); }, Qt::QueuedConnection);
        desk.command([&] {
            try {
                desk.toolkit().letEventsRunFor(kPass);
                wentOn = true;
            } catch (const WindowClosing&) {
                wasThrown = true;
                throw;
            }
        });
        QVERIFY(stayed); // as long as the command had not ended
        QVERIFY(wasThrown);
        QVERIFY(!wentOn);
        QTRY_VERIFY(!desk.form);
    }

    void aDraggedThumbGoesBack()
    {
        const BusyDesk desk;
        const auto before = desk.plots();
        const QPoint thumb = desk.thumb();
        desk.whileBusy([&] {
            desk.drag(thumb, 80);
            QVERIFY(desk.bar().isSliderDown() && desk.bar().sliderPosition() > kStart);
            QCOMPARE(desk.core().view.HScroll1.Value, kStart);
            desk.letGo(thumb + QPoint(80, 0));
            QVERIFY(desk.standsAt(kStart));
        });
        QVERIFY(desk.standsAt(kStart));
        QVERIFY(desk.plots() == before);
        desk.drag(thumb, 80); // and now it is taken
        desk.letGo(thumb + QPoint(80, 0));
        QVERIFY(desk.core().view.HScroll1.Value > kStart);
        QVERIFY(desk.standsAt(desk.core().view.HScroll1.Value));
    }

    void aThumbHeldOnUntilTheWindowIsDoneGoesBackWhenLetGo()
    {
        const BusyDesk desk;
        const auto before = desk.plots();
        const QPoint thumb = desk.thumb();
        desk.whileBusy([&] { desk.drag(thumb, 80); });
        QCOMPARE(desk.core().view.HScroll1.Value, kStart);
        desk.letGo(thumb + QPoint(80, 0));
        QVERIFY(desk.standsAt(kStart));
        QVERIFY(desk.plots() == before);
    }

    void aTurnedWheelScrollsNothing()
    {
        for (const char* under : {"Picture1_0", "Picture1_1", "HScroll1"}) {
            const BusyDesk desk;
            const auto before = desk.plots();
            desk.whileBusy([&] {
                turnWheelOver(*desk.find(under));
                QVERIFY2(desk.standsAt(kStart), under);
            });
            QVERIFY2(desk.standsAt(kStart), under);
            QVERIFY2(desk.plots() == before, under);
            turnWheelOver(*desk.find(under));
            QVERIFY2(desk.core().view.HScroll1.Value > kStart, under);
        }
    }

    void aTypedRangeIsTheOldOneAgain()
    {
        for (const char* name : {"maxLabel0", "minLabel0", "maxLabel1", "minLabel1"}) {
            const BusyDesk desk;
            const auto before = desk.plots();
            const auto* box = desk.find<QLineEdit>(name);
            const auto* automatic = desk.find<QCheckBox>(name[8] == '0' ? "scaleBox0" : "scaleBox1");
            const QString range = box->text();
            QVERIFY(!range.isEmpty() && range != u"7");
            desk.whileBusy([&] {
                desk.type(name, "7");
                QCOMPARE(box->text(), range);
            });
            QCOMPARE(box->text(), range);
            QVERIFY2(automatic->isChecked(), name);
            QVERIFY2(desk.plots() == before, name);
            desk.type(name, "7");
            QCOMPARE(box->text(), QStringLiteral("7"));
            QVERIFY2(!automatic->isChecked(), name);
        }
    }
};

} // namespace tarvelint::test

QTEST_MAIN(tarvelint::test::BusyWindowTest)
#include "busy_window_test.moc"
