// SPDX-License-Identifier: MIT
#include "view/window_layout.h"

#include <algorithm>
#include <cmath>

namespace tarvelint {

namespace {

constexpr double kPixel = kTwipsPerPixel;

/// A place in twips.
struct Place {
    double left;
    double top;
    double width;
    double height;
    [[nodiscard]] double bottom() const { return top + height; }
};

/// As designed, in whole pixels.
constexpr Place designed(double left, double top, double width, double height)
{
    return {left * kPixel, top * kPixel, width * kPixel, height * kPixel};
}

/// To nearest, halves to even.
int pixels(double twips)
{
    return static_cast<int>(std::nearbyint(twips / kPixel));
}

double wholePixels(double twips)
{
    return std::max(0, pixels(twips)) * kPixel;
}

// The bars have fixed heights, so that hiding one moves nothing.
constexpr double kToolBarHeight = 31 * kPixel;
constexpr double kStatusBarHeight = 23 * kPixel;

constexpr double kFrameLeft = 50;
constexpr double kFrameTop = 100 * kPixel;
constexpr double kPlotLeft = 60 * kPixel; // in the frame
constexpr double kPlotTop = 60 * kPixel;
constexpr double kScrollBarHeight = 16 * kPixel;

// Beside the least plot of 80 pixels three boxes and two check boxes have to find room.
constexpr double kRangeWidth = 57 * kPixel;
constexpr double kCheckWidth = 58 * kPixel; // "Reference" needs all that the mark beside the plot leaves
constexpr double kBoxHeight = 15 * kPixel;  // one more, and two would overlap under a menu bar of 23 pixels
constexpr double kCheckHeight = 14 * kPixel;
constexpr double kTagHeight = 11 * kPixel;
constexpr double kRangeStep = 220; // from check box to check box

constexpr double kCueStep = 280; // from one row of cues to the next
constexpr double kCueHeight = 17 * kPixel;

class Layout {
public:
    Layout(int width, int height) : m_width(width * kPixel), m_height(height * kPixel) {}

    std::vector<PlacedControl> placed()
    {
        placeBars();
        placeColumnRows();
        placeFrame();
        placeCommandRows();
        placePlots();
        placeRanges();
        placeCueRows();
        return std::move(m_placed);
    }

private:
    void add(std::string_view name, const Place& place, bool isInFrame, bool isShown = true)
    {
        const PixelRect rect{pixels(place.left), pixels(place.top), std::max(0, pixels(place.width)),
                             std::max(0, pixels(place.height))};
        m_placed.push_back({name, rect, isInFrame, isShown});
    }
    void inWindow(std::string_view name, const Place& place) { add(name, place, false); }
    void inFrame(std::string_view name, const Place& place, bool isShown = true) { add(name, place, true, isShown); }

    void placeBars()
    {
        inWindow("tbToolBar", {0, 0, m_width, kToolBarHeight});
        inWindow("sbStatusBar", {0, m_height - kStatusBarHeight, m_width, kStatusBarHeight});
    }

    void placeColumnRows()
    {
        inWindow("mainTag", designed(8, 40, 74, 22));
        inWindow("varList0", designed(84, 40, 168, 22));
        inWindow("labelBox", designed(264, 40, 62, 22));
        inWindow("labelButton", designed(330, 40, 84, 22));
        inWindow("companionTag", designed(8, 68, 74, 22));
        inWindow("varList1", designed(84, 68, 168, 22));
        inWindow("valueTag", designed(304, 84, 84, 15));
        inWindow("cueTimeTag", designed(392, 84, 114, 15));
    }

    void placeFrame()
    {
        m_frame = {kFrameLeft, kFrameTop, m_width - 100, m_height - 2800};
        inWindow("Frame1", m_frame);
    }

    void placeCommandRows()
    {
        inFrame("viewButton", designed(5, 0, 76, 24));
        inFrame("convButton", designed(88, 0, 76, 24));
        inFrame("baseButton", designed(171, 0, 78, 24));
        inFrame("eqButton", designed(5, 31, 76, 24));
        inFrame("FormulaBox", designed(88, 31, 415, 24));
        inFrame("leftTag", designed(261, 0, 38, 15));
        inFrame("slLabel", designed(301, 0, 84, 15));
        inFrame("ldLabel", designed(389, 0, 52, 15));
        inFrame("ltLabel", designed(445, 0, 58, 15));
        inFrame("rightTag", designed(261, 15, 38, 15));
        inFrame("srLabel", designed(301, 15, 84, 15));
        inFrame("rdLabel", designed(389, 15, 52, 15));
        inFrame("rtLabel", designed(445, 15, 58, 15));
    }

    void placePlots()
    {
        const double width = wholePixels(m_width - 1000);
        const double height = wholePixels((m_height - 3940) / 2 - 10);
        m_main = {kPlotLeft, kPlotTop, width, height};
        m_companion = {kPlotLeft, m_main.bottom(), width, height};
        inFrame("Picture1_0", m_main);
        inFrame("Picture1_1", m_companion);
        inFrame("HScroll1", {kPlotLeft, m_companion.bottom(), width, kScrollBarHeight});
    }

    void placeRanges()
    {
        const double top0 = m_main.top; // where `maxLabel0` was designed
        const double top1 = m_companion.top;
        const double bottom0 = m_main.bottom() - kBoxHeight;
        const double bottom1 = bottom0 + (top1 - top0);
        const double scale0 = m_main.top + (m_main.height - kCheckHeight) / 2;
        const double reference = scale0 + (top1 - top0);
        inFrame("maxLabel0", box(top0));
        inFrame("scaleBox0", check(scale0));
        inFrame("minLabel0", box(bottom0));
        inFrame("maxLabel1", box(top1));
        inFrame("scaleBox1", check(reference - kRangeStep));
        inFrame("refCheck", check(reference));
        inFrame("refBox", box(reference + kRangeStep));
        inFrame("minLabel1", box(bottom1));
        // Both captions stand on the inner side of their box: above the companion's upper box there is no room.
        placeTags("topTag0", "bottomTag0", top0, bottom0, scale0, scale0 + kCheckHeight);
        placeTags("topTag1", "bottomTag1", top1, bottom1, reference - kRangeStep, reference + kRangeStep + kBoxHeight);
    }

    /// Captions below the upper box and above the lower one, where what stands between leaves them room.
    void placeTags(std::string_view topName, std::string_view bottomName, double upperBox, double lowerBox,
                   double betweenTop, double betweenBottom)
    {
        const Place upper = tag(upperBox + kBoxHeight);
        const Place lower = tag(lowerBox - kTagHeight);
        const bool isRoom = upper.bottom() <= betweenTop && lower.top >= betweenBottom;
        inFrame(topName, upper, isRoom);
        inFrame(bottomName, lower, isRoom);
    }

    static Place box(double top) { return {0, top, kRangeWidth, kBoxHeight}; }
    static Place check(double top) { return {0, top, kCheckWidth, kCheckHeight}; }
    static Place tag(double top) { return {0, top, kRangeWidth, kTagHeight}; }

    void placeCueRows()
    {
        const double first = m_frame.bottom() + 50;
        const double second = first + kCueStep;
        const double third = second + kCueStep;
        cue("Label3", 8, first, 60);
        cue("colLabel", 70, first, 66);
        cue("Label12", 152, first, 38);
        cue("inLabel", 192, first, 84);
        cue("Label6", 8, second, 60);
        cue("rowLabel", 70, second, 66);
        cue("Label4", 152, second, 38);
        cue("baseLabel", 192, second, 84);
        cue("highBox", 8, third, 132);
        cue("Label5", 152, third, 38);
        cue("outLabel", 192, third, 84);
        cue("dateTag", 296, third, 34);
        cue("dateLabel", 332, third, 52);
        cue("timeTag", 396, third, 38);
        cue("timeLabel", 436, third, 58);
    }

    void cue(std::string_view name, double leftPixels, double top, double widthPixels)
    {
        inWindow(name, {leftPixels * kPixel, top, widthPixels * kPixel, kCueHeight});
    }

    double m_width;
    double m_height;
    Place m_frame{};
    Place m_main{};
    Place m_companion{};
    std::vector<PlacedControl> m_placed;
};

} // namespace

std::vector<PlacedControl> placeControls(int width, int height)
{
    return Layout(width, height).placed();
}

} // namespace tarvelint
