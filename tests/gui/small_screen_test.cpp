// SPDX-License-Identifier: MIT
#include "every_dialog.h"

#include <QScreen>
#include <QScrollArea>

namespace tarvelint::test {

namespace {

/// It is started on a usual screen and on one of 640 x 360 pixels.
bool screenIsSmall()
{
    return QGuiApplication::primaryScreen()->size().height() < 400;
}

QScrollBar& bar(const QDialog& dialog, Qt::Orientation orientation)
{
    auto* area = dialog.findChild<QScrollArea*>();
    return orientation == Qt::Vertical ? *area->verticalScrollBar() : *area->horizontalScrollBar();
}

bool isWhollySeen(const QWidget& widget)
{
    return widget.visibleRegion() == QRegion(widget.rect());
}

} // namespace

class SmallScreenTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

    void theScreenIsTheOneTheTestWasStartedFor()
    {
        QCOMPARE(screenIsSmall(), qEnvironmentVariableIntValue("QT_SCALE_FACTOR") == 2);
    }

    void everyDialogFitsTheScreenWithItsButtonsInView_data() { addDialogs(); }
    void everyDialogFitsTheScreenWithItsButtonsInView()
    {
        QFETCH(QString, which);
        Dialogs dialogs;
        QDialog& dialog = dialogs.show(which);
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        const QSize free = dialog.screen()->availableSize();
        QVERIFY(dialog.width() < free.width());
        QVERIFY(dialog.height() + 20 < free.height()); // and the window's frame
        const auto buttons = dialog.findChildren<QPushButton*>();
        QVERIFY(!buttons.empty());
        for (const auto* button : buttons) QVERIFY(isWhollySeen(*button));
    }

    void whatHasNoRoomScrollsAndOnAUsualScreenNothingDoes_data()
    {
        QTest::addColumn<bool>("scrolls");
        QTest::newRow("column setup") << true;
        QTest::newRow("options") << true;
        QTest::newRow("save contents") << false;
        QTest::newRow("splash") << true;
    }
    void whatHasNoRoomScrollsAndOnAUsualScreenNothingDoes()
    {
        QFETCH(bool, scrolls);
        Dialogs dialogs;
        QDialog& dialog = dialogs.show(QString::fromLatin1(QTest::currentDataTag()));
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        QCOMPARE(bar(dialog, Qt::Vertical).isVisible(), scrolls && screenIsSmall());
        QVERIFY(!bar(dialog, Qt::Horizontal).isVisible());
    }

    void theFocusScrollsIntoView_data() { addDialogs(); }
    void theFocusScrollsIntoView()
    {
        QFETCH(QString, which);
        Dialogs dialogs;
        QDialog& dialog = dialogs.show(which);
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        QTRY_VERIFY(isActive(dialog));
        for (int i = 0; i < 45; ++i) { // through 17 rows of two, past the buttons, and round
            QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
            QVERIFY2(isWhollySeen(*dialog.focusWidget()), qPrintable(dialog.focusWidget()->objectName()));
        }
    }

    void theChoicesStandBesideTheColumnsWhereThereIsRoomElseBelow()
    {
        Dialogs dialogs;
        QDialog& dialog = dialogs.show(QStringLiteral("column setup"));
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        const auto* rows = dialog.findChild<QWidget*>(QStringLiteral("formPicture"));
        const auto* saveBox = dialog.findChild<QWidget*>(QStringLiteral("saveBox"));
        const bool isBelow =
            saveBox->mapTo(&dialog, QPoint()).y() > rows->mapTo(&dialog, QPoint(0, rows->height())).y();
        QCOMPARE(isBelow, screenIsSmall());
    }

    void pageDownReachesTheEndOfTheSplash()
    {
        Dialogs dialogs;
        QDialog& dialog = dialogs.show(QStringLiteral("splash"));
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        QTRY_VERIFY(isActive(dialog));
        QScrollBar& down = bar(dialog, Qt::Vertical);
        QCOMPARE(down.value(), 0);
        for (int i = 0; i < 9; ++i) QTest::keyClick(dialog.focusWidget(), Qt::Key_PageDown);
        QCOMPARE(down.value(), down.maximum());
        for (int i = 0; i < 9; ++i) QTest::keyClick(dialog.focusWidget(), Qt::Key_PageUp);
        QCOMPARE(down.value(), 0);
    }
};

} // namespace tarvelint::test

QTEST_MAIN(tarvelint::test::SmallScreenTest)
#include "small_screen_test.moc"
