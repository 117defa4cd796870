// SPDX-License-Identifier: MIT
#include "app/qt/program_icons.h"

#include "app/command_table.h"
#include "desk.h"

#include <QAction>
#include <QPainter>
#include <QRegularExpression>
#include <QToolBar>

#include <algorithm>
#include <vector>

namespace tarvelint::test {

namespace {

/// The buttons of the tool bar without its separators.
std::vector<QAction*> tools(const Desk& desk)
{
    std::vector<QAction*> buttons;
    for (QAction* action : desk.find<QToolBar>("tbToolBar")->actions())
        if (!action->isSeparator()) buttons.push_back(action);
    return buttons;
}

QImage drawing(const QIcon& icon, qreal scale = 1, QIcon::Mode mode = QIcon::Normal)
{
    return icon.pixmap(QSize(16, 16), scale, mode).toImage().convertToFormat(QImage::Format_ARGB32);
}

/// How far the strongest pixel stands out from the window's ground, from 0 to 255.
int contrast(const QIcon& icon, QIcon::Mode mode)
{
    const QColor ground = QApplication::palette().color(QPalette::Window);
    QImage shown(16, 16, QImage::Format_RGB32);
    shown.fill(ground);
    QPainter painter(&shown);
    icon.paint(&painter, shown.rect(), Qt::AlignCenter, mode);
    painter.end();
    int most = 0;
    for (int y = 0; y < 16; ++y)
        for (int x = 0; x < 16; ++x) most = std::max(most, std::abs(qGray(shown.pixel(x, y)) - qGray(ground.rgb())));
    return most;
}

/// Opacities from 0 to 255 along the middle row.
std::vector<int> middleRow(const QImage& image, int from, int to)
{
    std::vector<int> alphas;
    for (int x = from; x <= to; ++x) alphas.push_back(qAlpha(image.pixel(x, image.height() / 2)));
    return alphas;
}

} // namespace

class ProgramIconsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

    void everyToolButtonHasADrawingOfItsOwn()
    {
        const Desk desk(false);
        std::vector<QImage> seen;
        for (const QAction* tool : tools(desk)) {
            const QImage image = drawing(tool->icon());
            QVERIFY2(contrast(tool->icon(), QIcon::Normal) > 150, qPrintable(tool->objectName()));
            QVERIFY2(std::find(seen.begin(), seen.end(), image) == seen.end(), qPrintable(tool->objectName()));
            seen.push_back(image);
        }
        QCOMPARE(seen.size(), std::size_t{13});
    }

    void aChangeOfThemeChangesTheColourOfIconsAlreadyThere()
    {
        const Desk desk;
        const QIcon icon = desk.entry("toolNew")->icon();
        const QColor text = QApplication::palette().color(QPalette::WindowText);
        // The page's left edge is a line of one pixel, the fourth from the left.
        QCOMPARE(drawing(icon).pixelColor(3, 8), text);
        const DarkTheme dark;
        QVERIFY(text != QColor(Qt::white));
        QCOMPARE(drawing(icon).pixelColor(3, 8), QColor(Qt::white));
        const QImage bar = desk.find("tbToolBar")->grab().toImage();
        bool isSeen = false;
        for (int y = 0; y < bar.height(); ++y)
            for (int x = 0; x < bar.width(); ++x) isSeen = isSeen || bar.pixelColor(x, y) == QColor(Qt::white);
        QVERIFY(isSeen);
    }

    void aDisabledIconIsPaleAndStillSeenInEveryTheme()
    {
        const Desk desk(false);
        const auto check = [&] {
            for (const QAction* tool : tools(desk)) {
                const int enabled = contrast(tool->icon(), QIcon::Normal);
                const int disabled = contrast(tool->icon(), QIcon::Disabled);
                QVERIFY2(disabled > 50 && disabled < enabled / 2, qPrintable(tool->objectName()));
            }
        };
        check();
        const DarkTheme dark; // whose disabled text is as bright as the rest
        check();
    }

    void iconsAreDrawnAtTheScaleOfTheScreen()
    {
        const QIcon page = glyphIcon(QStringLiteral(":/icons/new.svg"));
        // Its left edge runs from 3 to 4 sixteenths of the width.
        QCOMPARE(drawing(page).size(), QSize(16, 16));
        QCOMPARE(middleRow(drawing(page), 2, 4), (std::vector<int>{0, 255, 0}));
        QCOMPARE(drawing(page, 2).size(), QSize(32, 32));
        QCOMPARE(middleRow(drawing(page, 2), 5, 8), (std::vector<int>{0, 255, 255, 0}));
        QCOMPARE(drawing(page, 1.5).size(), QSize(24, 24));
        const std::vector<int> edge = middleRow(drawing(page, 1.5), 3, 6); // from 4.5 to 6
        QVERIFY(edge[0] == 0 && edge[1] > 100 && edge[1] < 156 && edge[2] == 255 && edge[3] == 0);
    }

    void theProgramsIconIsReadableInEverySize()
    {
        for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
            const QImage image = programIcon().pixmap(QSize(size, size), 1.0).toImage();
            QCOMPARE(image.size(), QSize(size, size));
            QCOMPARE(image.pixelColor(0, 0).alpha(), 0); // its corners are round
            // The drop, light on a green field, with its dark curve across.
            const QColor drop = image.pixelColor(size / 2, size * 3 / 8);
            const QColor field = image.pixelColor(size / 8, size / 3);
            QVERIFY(drop.red() > 200 && drop.green() > 180);
            QVERIFY(field.green() > field.red() && field.green() > field.blue() && field.lightness() < 128);
            int darkest = 255;
            for (int y = size * 7 / 16; y < size * 3 / 4; ++y)
                darkest = std::min(darkest, image.pixelColor(size / 2, y).lightness());
            QVERIFY2(darkest < 110, qPrintable(QString::number(size)));
        }
    }
};

} // namespace tarvelint::test

QTEST_MAIN(tarvelint::test::ProgramIconsTest)
#include "program_icons_test.moc"
