// SPDX-License-Identifier: MIT
#include "desk.h"

#include <QTimer>

namespace tarvelint::test {

namespace {

/// Counts the timers that fire anywhere in the program while it is there.
class FiredTimers : public QObject {
public:
    FiredTimers() { qApp->installEventFilter(this); }

    int count = 0;
    QString last; ///< class of the object that the last one belonged to

protected:
    bool eventFilter(QObject* object, QEvent* event) override
    {
        if (event->type() == QEvent::Timer) {
            ++count;
            last = QString::fromLatin1(object->metaObject()->className());
        }
        return false;
    }
};

/// Lets what the last command started come to its end.
void settle()
{
    QTest::qWait(500);
}

} // namespace

/// Nothing happens by itself, so here the test is the waiting. The cursor of a text box in focus may blink.
class IdleTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aTimerWouldBeSeen()
    {
        const FiredTimers fired;
        QTimer timer;
        timer.start(10);
        QTRY_VERIFY(fired.count > 0);
    }

    /// One window as a record leaves it, one that was scrolled, zoomed and clicked into; one wait for both.
    void noTimerFiresWhileRecordsAreShown()
    {
        Desk untouched;
        untouched.openSample();
        untouched.find("Picture1_0")->setFocus();
        Desk used;
        used.openSample();
        used.command([&] { used.core().setScrollValue(100); });
        used.entry("mnuViewZoomIn")->trigger();
        QTest::mouseClick(used.find("Picture1_0"), Qt::LeftButton, {}, {50, 50});
        settle();
        const FiredTimers fired;
        QTest::qWait(10000);
        QVERIFY2(fired.count == 0, qPrintable(fired.last));
    }
};

} // namespace tarvelint::test

QTEST_MAIN(tarvelint::test::IdleTest)
#include "idle_test.moc"
