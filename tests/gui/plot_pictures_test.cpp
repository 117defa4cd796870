// SPDX-License-Identifier: MIT
//
// Small plots, pixel by pixel: '.' background, '#' black, 'r' red, 'c' cyan, 'y' yellow, 'w' white, 'b' blue. All
// slopes are level, upright or diagonal, so that a rule and a pencil tell which pixels a line covers.
#include "app/qt/plot_surface.h"
#include "support/grid.h"
#include "view/plot_drawing.h"

#include <QTest>

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace tarvelint::test {

namespace {

constexpr double kGap = 99999;
constexpr int kHeight = 20;

/// A reading `pixels` above the bottom of the range. The height of 20 pixels and the range of 0 to 20 make 20 / 22
/// pixels of a data unit, and 0 lies at 0.95 x 20 = 19: so a reading of 1.1 k lies at y = 19 - k.
constexpr double up(int pixels)
{
    return 1.1 * pixels;
}

std::string name(QRgb pixel)
{
    static const std::map<QRgb, char> kNames{
        {PlotSurface::kBackground, '.'}, {qRgb(0, 0, 0), '#'},       {qRgb(255, 0, 0), 'r'}, {qRgb(0, 255, 255), 'c'},
        {qRgb(255, 255, 0), 'y'},        {qRgb(255, 255, 255), 'w'}, {qRgb(0, 0, 255), 'b'}};
    const auto found = kNames.find(pixel);
    return found == kNames.end() ? "?" : std::string(1, found->second);
}

/// Upper lines without a mark are left out of an expected picture.
std::string withUpperLines(const std::vector<std::string>& lowerLines)
{
    std::string all;
    for (std::size_t y = lowerLines.size(); y < kHeight; ++y) all += std::string(lowerLines.front().size(), '.') + "\n";
    for (const auto& line : lowerLines) all += line + "\n";
    return all;
}

/// Readings in both areas at a zoom of 4 and with the pen of 1 of a zoom just loaded.
struct Scene {
    Record record;
    Sensors sensors;
    View view;
    std::optional<double> reference;

    explicit Scene(const std::vector<double>& readings)
    {
        setReadings(record, {readings, readings});
        view.chosenColumn = {0, 1};
        view.zoomFactor = 4;
    }
    void points(const std::vector<std::int32_t>& rows)
    {
        view.Turbo = true;
        view.curSensor = 0;
        sensors.assign({0}, record.lines);
        for (const auto row : rows) sensors.setPoint(0, row, true);
    }
    [[nodiscard]] std::string picture(int width, int index = 0) const
    {
        PlotSurface surface([] {});
        surface.resize({width, kHeight}, 1);
        const PlotFit fit = fitPlot(record, view, {index, static_cast<float>(width), float{kHeight}}, {"0", "20"}, ",");
        drawPlot(fit, {record, sensors, view, reference}, true, surface);
        std::string text;
        for (int y = 0; y < kHeight; ++y) {
            for (int x = 0; x < width; ++x) text += name(surface.pixels().pixel(x, y));
            text += "\n";
        }
        return text;
    }
};

} // namespace

class PlotPicturesTest : public QObject {
    Q_OBJECT

private:
    static void compare(const std::string& drawn, const std::string& expected)
    {
        QVERIFY2(drawn == expected, ("drawn:\n" + drawn + "expected:\n" + expected).c_str());
    }

private Q_SLOTS:
    // Rows lie at x = 0, 2, 4, ... 12. Segments that end at rows 2 to 4 are red, and each covers its start.
    void theSelectionsSegmentsAreRed()
    {
        Scene scene({up(0), up(2), up(4), up(4), up(2), up(0), up(0)});
        scene.view.zoomFactor = 2;
        scene.view.selStart = 1;
        scene.view.selEnd = 4;
        compare(scene.picture(14), withUpperLines({"....rrr.......", //
                                                   "...r...r......", //
                                                   "..r.....#.....", //
                                                   ".#.......#....", //
                                                   "#.........###."}));
    }

    // Rows 0 and 2 are gaps at (0, 0) and (8, 0). Row 4 lies 64000 units up, row 6 as far down: their lines are upright
    // where they leave rows 3 (x = 12) and 5 (x = 20). The line that comes down to row 5 is a hair left of x = 20 until
    // it is there, and pixel 20 begins at 20.
    void gapsLieOnTheTopEdgeAndFarReadingsBeyondIt()
    {
        const Scene scene({kGap, up(15), kGap, up(15), 1e9, up(15), -1e9});
        std::vector<std::string> lines{"#.......#...#......#......", //
                                       ".#.....#.#..#......#......", //
                                       "..#...#...#.#......#......", //
                                       "...#.#.....##......#......", //
                                       "....#.......#.......#....."};
        lines.resize(kHeight, "....................#.....");
        compare(scene.picture(26), withUpperLines(lines));
    }

    // Bands of rows 1, 2 and 5; points at (8, 10) and (24, 10), the second in a highlight of radius 5; a disc of radius
    // 3 covers 3, 5, 7, 7, 7, 5 and 3 pixels. The trace lies over all of them and ends at x = 28.
    void bandsLieUnderTheHighlightThePointsAndTheTrace()
    {
        Scene scene(std::vector<double>(8, up(9)));
        scene.points({2, 6});
        scene.view.markRow = 6;
        for (const std::size_t row : {1, 2, 5}) scene.record.lullFlags[row] = true;
        const std::string bands = "....wwwwwwww........wwww........";
        compare(scene.picture(32), withUpperLines({bands,
                                                   bands,
                                                   bands,
                                                   bands,
                                                   bands,                              //
                                                   "....wwwwwwww........wwyyyyy.....", //
                                                   "....wwwwwwww........wyyyyyyy....", //
                                                   "....wwwrrrww........yyyrrryyy...", //
                                                   "....wwrrrrrw.......yyyrrrrryyy..", //
                                                   "....wrrrrrrr.......yyrrrrrrryy..", //
                                                   "#############################y..", //
                                                   "....wrrrrrrr.......yyrrrrrrryy..", //
                                                   "....wwrrrrrw.......yyyrrrrryyy..", //
                                                   "....wwwrrrww........yyyrrryyy...", //
                                                   "....wwwwwwww........wyyyyyyy....", //
                                                   "....wwwwwwww........wwyyyyy.....", //
                                                   bands,
                                                   bands,
                                                   bands,
                                                   bands}));
    }

    // The view begins at row 2. Row 0's point lies at (-8, 2), row 4's at (8, 18), and the line to row 9's, 6 pixels
    // above the area, ends at row 10's place (32, -6): three points on two diagonals.
    void theLineOfPointsComesFromBesideTheViewAndLeavesIt()
    {
        Scene scene({up(17), up(1), up(1), up(1), up(1), up(1), up(1), up(1), up(1), up(25), up(1), up(1)});
        scene.view.HScroll1.Value = 2;
        scene.points({0, 4, 9});
        compare(scene.picture(16), withUpperLines({"r...............", //
                                                   ".r.............r", //
                                                   "..r...........r.", //
                                                   "...r.........r..", //
                                                   "....r.......r...", //
                                                   ".....r.rrr.r....", //
                                                   "......rrrrr.....", //
                                                   ".....rrrrrrr....", //
                                                   "################", //
                                                   ".....rrrrrrr...."}));
    }

    // 20 - 9 - 20 / 20 = 10, the place of a reading of the same value; across the whole width, under the trace.
    void theReferenceLineCrossesTheCompanionUnderItsTrace()
    {
        Scene scene({up(7), up(9), up(11)});
        scene.view.zoomFactor = 2;
        scene.reference = up(9);
        compare(scene.picture(12, 1), withUpperLines({"....#.......", //
                                                      "...#........", //
                                                      "bb#bbbbbbbbb", //
                                                      ".#..........", //
                                                      "#...........", //
                                                      "............", "............", "............", "............",
                                                      "............", "............", "............"}));
    }

    // Rows at 0, 2, ... 10; segments end at row 1 (black), 2 (red), 3 (under the pointer), 4 (red) and 5 (black).
    void theRowUnderThePointerIsCyan()
    {
        Scene scene(std::vector<double>(6, up(4)));
        scene.view.zoomFactor = 2;
        scene.view.Sloppy = true;
        scene.view.hoverRow = 3;
        scene.view.selStart = 1;
        scene.view.selEnd = 4;
        compare(scene.picture(12), withUpperLines({"##rrccrr###.", //
                                                   "............", "............", "............", "............"}));
    }

    // Lines lie between pixels, at y = 17, and a pen of 3 reaches 1.5 from them: the centres of pixels 16 and 17 are
    // half a pixel away, also past both ends; the centre of pixel 18 is 1.5 away, which just counts, but not past the
    // ends. So the red segment from x = 4 to 8 covers 3 to 8, below that 4 to 7, and the black one after it begins
    // at 7.
    void atAZoomOf4ThePenIsThreePixelsWide()
    {
        Scene scene(std::vector<double>(4, up(2)));
        scene.view.zoomLevel = 2;
        scene.view.selStart = 1;
        scene.view.selEnd = 2;
        compare(scene.picture(20), withUpperLines({"###rrrr######.......", //
                                                   "###rrrr######.......", //
                                                   "####rrrr####........", //
                                                   "...................."}));
    }

    // The point in hand, at (8, 10), hides the mark at row 1.
    void aPointInHandIsASmallYellowDisc()
    {
        Scene scene(std::vector<double>(4, up(9)));
        scene.points({});
        scene.view.markRow = 1;
        scene.view.dragRow = 2;
        compare(scene.picture(16), withUpperLines({".......yyy......", //
                                                   "......yyyyy.....", //
                                                   ".....yyyyyyy....", //
                                                   "#############...", //
                                                   ".....yyyyyyy....", //
                                                   "......yyyyy.....", //
                                                   ".......yyy......", //
                                                   "................", "................", "................",
                                                   "................", "................", "................"}));
    }
};

} // namespace tarvelint::test

QTEST_MAIN(tarvelint::test::PlotPicturesTest)
#include "plot_pictures_test.moc"
