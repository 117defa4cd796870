// SPDX-License-Identifier: MIT
#include "app/qt/plot_surface.h"

#include <QTest>

namespace tarvelint::test {

namespace {

const QColor kGround = QColor(PlotSurface::kBackground);

} // namespace

class PlotSurfaceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void farLinesAreClippedAndNotLost()
    {
        PlotSurface surface([] {});
        surface.resize({100, 100}, 1);
        surface.line(50, 64000, 50, -64000, colors::kBlack);
        QCOMPARE(surface.pixels().pixelColor(50, 0), QColor(Qt::black));
        QCOMPARE(surface.pixels().pixelColor(50, 99), QColor(Qt::black));
    }

    void aSegmentKeepsItsSlopeWhenClipped()
    {
        QPointF from(-100, -100);
        QPointF to(300, 300);
        QVERIFY(clipSegment(from, to, {100, 50}, 2));
        QCOMPARE(from, QPointF(-2, -2));
        QCOMPARE(to, QPointF(52, 52)); // the lower edge comes before the right one
        QPointF left(-10, 0);
        QPointF alsoLeft(-5, 50);
        QVERIFY(!clipSegment(left, alsoLeft, {100, 50}, 2));
    }

    void pixelsStayWhenTheAreaGrows()
    {
        PlotSurface surface([] {});
        surface.resize({50, 50}, 1);
        surface.filledBox(0, 0, 10, 10, colors::kWhite);
        surface.resize({80, 80}, 1);
        QCOMPARE(surface.pixels().pixelColor(5, 5), QColor(Qt::white));
        QCOMPARE(surface.pixels().pixelColor(70, 70), kGround);
    }

    void onAFineScreenAUnitIsTwoPixels()
    {
        PlotSurface surface([] {});
        surface.resize({50, 50}, 2);
        surface.filledBox(10, 10, 11, 11, colors::kBlue);
        QCOMPARE(surface.scaleWidth(), 50.0F);
        QCOMPARE(surface.pixels().pixelColor(21, 21), QColor(Qt::blue));
        QCOMPARE(surface.pixels().pixelColor(22, 22), kGround);
    }

    void aPenOfFourDrawsALineFourPixelsWide()
    {
        PlotSurface surface([] {});
        surface.resize({60, 60}, 1);
        surface.setPenWidth(4);
        surface.line(5, 30, 55, 30, colors::kBlack);
        surface.line(30, 5, 30, 20, colors::kBlack);
        int high = 0;
        int wide = 0;
        for (int i = 0; i < 60; ++i) {
            high += surface.pixels().pixelColor(45, i) == QColor(Qt::black);
            wide += surface.pixels().pixelColor(i, 12) == QColor(Qt::black);
        }
        QCOMPARE(high, 4);
        QCOMPARE(wide, 4);
    }

    void nothingIsSmoothed()
    {
        PlotSurface surface([] {});
        surface.resize({60, 60}, 1);
        surface.line(0, 0, 59, 23, colors::kBlack);
        surface.circle(30, 40, 5, colors::kRed, colors::kYellow);
        for (int y = 0; y < 60; ++y)
            for (int x = 0; x < 60; ++x) {
                const QColor pixel = surface.pixels().pixelColor(x, y);
                QVERIFY(pixel == kGround || pixel == QColor(Qt::black) || pixel == QColor(Qt::red) ||
                        pixel == QColor(Qt::yellow));
            }
        QCOMPARE(surface.pixels().pixelColor(30, 40), QColor(Qt::yellow));
    }
};

} // namespace tarvelint::test

QTEST_MAIN(tarvelint::test::PlotSurfaceTest)
#include "plot_surface_test.moc"
