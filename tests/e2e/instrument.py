# SPDX-License-Identifier: MIT
"""A walk around the plots with a year of measured readings: lists, ranges, reference line, wheel, keys, zoom and cues,
each compared with what the file itself says."""

import os
import subprocess
import sys
import unittest
from decimal import ROUND_HALF_UP, Decimal

import session
from desk import keys, wait_for
from pictures import BLACK, BLUE, Picture
from session import DeskTest

FOLDER = os.environ["TARVELINT_RECORDS"]
RECORD = os.path.join(FOLDER, "spruce_15min_2013.csv")
SKIPPED = 77  # what the test's registration takes for "skipped"
SENSOR = "dV_N13"


def four_decimals(value):
    return str(Decimal(repr(value)).quantize(Decimal("0.0001"), ROUND_HALF_UP))


def y_of(value, low, high, height):
    """The bottom of the range lies at 95 % of the height, the range takes the height over 1.1."""
    return 0.95 * height - (value - low) * height / ((high - low) * 1.1)


AWAY, NEAR, LEFT, RIGHT = range(4, 8)  # the buttons that a wheel presses as it is turned


def turn_wheel(plot, direction, held=None):
    """One notch with the pointer over the plot, and a key held meanwhile."""
    left, top, width, height = plot.box
    turn = ["mousemove", str(left + width // 2), str(top + height // 2), "click", str(direction)]
    if held:
        turn = ["keydown", held, *turn, "keyup", held]
    subprocess.run(["xdotool", *turn], check=True)


class Instrument(DeskTest):
    def setUp(self):
        self.record = session.readings(RECORD)
        self.rows = len(self.record["Day"])
        self.program, self.window = self.start_to_window()
        session.resize(self.window, 1000, 760)
        session.open_file(self.program, RECORD)
        session.set_up_columns(self.program, parameters=4)
        self.window.wait_cue("Rows", str(self.rows))
        self.plots = {"main": self.window.find("Main plot"), "companion": self.window.find("Companion plot")}
        self.columns = {}
        self.bar = self.window.find("First row shown", "scroll bar")
        self.zoom = 1

    def close(self):
        keys("ctrl+q")
        self.alert(self.program, "Close window:", "alt+n")  # the marks of the columns
        self.assert_ends_well(self.program)

    # ---- what the file says

    @property
    def screen(self):
        """Rows of one screen; Python rounds halves to even, too."""
        return round(self.plots["main"].box[2] / self.zoom)

    @property
    def last_screen(self):
        return round(self.rows - self.plots["main"].box[2] / self.zoom - 1)

    def extremes(self, plot):
        first = int(self.bar.value)
        seen = self.record[self.columns[plot]][first:first + self.screen + 1]
        return min(seen), max(seen)

    # ---- what the window says

    def ends(self, plot):
        return [self.window.find(f"{end} of the {plot} plot", "text") for end in ("Bottom", "Top")]

    def wait_range(self, plot):
        """The range boxes hold the extremes of the rows in view."""
        boxes = self.ends(plot)

        def fits():
            return [box.text for box in boxes] == [four_decimals(value) for value in self.extremes(plot)]

        try:
            wait_for("the range", fits, limit=10)
        except AssertionError:
            self.fail(f"{plot}: {[box.text for box in boxes]}, in the file {self.extremes(plot)}")

    def wait_first_row(self, row):
        wait_for(f"row {row} at the left edge, not {self.bar.value}", lambda: self.bar.value == row, limit=10)
        for plot in self.columns:
            self.wait_range(plot)

    def show(self, plot, column):
        session.choose_column(self.window, "Main:" if plot == "main" else "Companion:", column)
        self.columns[plot] = column
        self.wait_range(plot)
        wait_for("the keyboard on the plot", lambda: self.plots["main"].focused)

    def wait_top_of_trace(self, plot, low, high):
        """The range is drawn, as the highest reading in view lies where it says."""
        expected = y_of(self.extremes(plot)[1], low, high, self.plots[plot].box[3])

        def drawn():
            trace = Picture(self.plots[plot].box).places(BLACK)
            return abs(min((y for _, y in trace), default=0) - expected) <= 1.5

        wait_for(f"a trace up to {expected:.0f} of the {plot} plot", drawn, limit=10)

    # ---- the walk

    def test_lists_and_reference_line(self):
        for column in ("VPD", SENSOR):
            self.show("main", column)
        for column in (SENSOR, "VPD"):
            self.show("companion", column)
        self.assertEqual(self.window.list_called("Main:").name, SENSOR)  # each list is its own

        low, high = self.extremes("companion")
        value = self.window.find("Reference value", "text")
        self.assertFalse(value.enabled)
        self.window.find("Reference line in the companion plot", "check box").set_checked(True)
        for reference in (0.1, 0.2):
            self.assertTrue(low < reference < high)
            value.fill(str(reference))
            self.wait_line(y_of(reference, low, high, self.plots["companion"].box[3]))
        value.fill(str(high + 1))
        wait_for("no line beside the range", lambda: not self.blue())
        value.fill("0.1")
        wait_for("the line", self.blue)
        self.window.find("Reference line in the companion plot", "check box").set_checked(False)
        wait_for("no line", lambda: not self.blue())
        self.close()

    def blue(self):
        return Picture(self.plots["companion"].box).places(BLUE)

    def wait_line(self, y):
        """A blue line runs from edge to edge at that height; the trace is drawn over it."""
        width = self.plots["companion"].box[2]

        def drawn():
            found = self.blue()
            return {round(at) for _, at in found} <= {int(y) - 1, int(y), int(y) + 1} and len(found) > 0.9 * width

        wait_for(f"a blue line at {y:.1f}", drawn, limit=10)

    def test_typing_a_range_turns_auto_off(self):
        for plot, other in (("main", "companion"), ("companion", "main")):
            with self.subTest(plot):
                self.show(plot, "VPD")
                self.type_range(plot, other)
        self.close()

    def type_range(self, plot, other):
        auto = self.window.find(f"Automatic range of the {plot} plot", "check box")
        self.assertTrue(auto.checked)
        low, high = self.extremes(plot)
        self.wait_top_of_trace(plot, low, high)
        bottom, top = self.ends(plot)
        top.fill("2")
        wait_for("Auto to be off", lambda: not auto.checked)
        self.assertEqual(bottom.text, four_decimals(low))
        self.wait_top_of_trace(plot, float(bottom.text), 2)
        bottom.fill("-1")
        self.wait_top_of_trace(plot, -1, 2)
        next_screen = self.bar.value + self.screen
        keys("Escape", "Page_Down")
        self.wait_bar(next_screen)
        self.assertEqual([bottom.text, top.text], ["-1", "2"])  # the range stays with other rows
        auto.set_checked(True)
        self.wait_range(plot)
        self.assertTrue(self.window.find(f"Automatic range of the {other} plot", "check box").checked)

    def wait_bar(self, row):
        wait_for(f"row {row} at the left edge, not {self.bar.value}", lambda: self.bar.value == row, limit=10)

    def test_wheel_and_keys(self):
        self.show("main", SENSOR)
        self.show("companion", "Time")
        self.assertEqual(self.bar.largest_value, self.last_screen)
        step = round(self.screen / 10)
        row = 0
        for plot, direction, by in (("main", NEAR, step), ("companion", NEAR, step), ("main", AWAY, -step),
                                    ("main", RIGHT, step), ("companion", RIGHT, step), ("companion", LEFT, -step),
                                    ("main", LEFT, -step), ("companion", NEAR, step)):
            row += by
            turn_wheel(self.plots[plot], direction)
            self.wait_first_row(row)
        self.plots["main"].take_focus()
        for key, row in (("Page_Down", row + self.screen), ("End", self.last_screen),
                         ("Page_Up", self.last_screen - self.screen), ("Home", 0), ("Page_Up", 0)):
            keys(key)
            self.wait_first_row(row)
        self.assertEqual(self.window.list_called("Main:").name, SENSOR)
        self.close()

    def test_zoom_by_menu(self):
        self.show("main", SENSOR)
        keys("Page_Down")
        self.wait_first_row(self.screen)
        first = self.screen
        for entry, zooms in (("Zoom In (+)", (2, 4, 8)), ("Zoom Out (-)", (4, 2, 1))):
            for self.zoom in zooms:
                self.entry(entry).trigger()
                self.wait_zoomed(first)
            self.assertFalse(self.entry(entry).enabled)
        self.close()

    def test_zoom_by_wheel(self):
        self.show("main", SENSOR)
        self.show("companion", "Time")
        keys("Page_Down")
        first = self.screen
        self.wait_first_row(first)
        for plot in self.plots.values():
            for direction, zooms in ((AWAY, (2, 4, 8, 8)), (NEAR, (4, 2, 1, 1))):  # the last notch has no effect
                for self.zoom in zooms:
                    turn_wheel(plot, direction, held="ctrl")
                    self.wait_zoomed(first)
        turn_wheel(self.plots["main"], NEAR)  # without Ctrl it scrolls again
        self.wait_first_row(first + round(self.screen / 10))
        self.close()

    def wait_zoomed(self, first):
        """The zoom changes what the bar reaches, and keeps the first row."""
        wait_for("the new range of the bar", lambda: self.bar.largest_value == self.last_screen, limit=10)
        self.wait_first_row(first)

    def entry(self, words):
        """An entry of the View menu by its words; their distance is the menu's."""
        menu = next(child for child in self.window.children if child.role == "menu bar").find("View", "menu item")
        return next(node for node in menu.everything() if " ".join(node.name.split()) == words)

    def test_cues_of_the_whole_record(self):
        self.show("main", SENSOR)
        self.window.menu_entry("Edit", "Select All").trigger()
        for end, row in (("left", 0), ("right", -1)):
            self.window.wait_cue(f"Reading at the {end} end of the selection", four_decimals(self.record[SENSOR][row]))
            for name, column in (("Day", "Day"), ("Time", "Time")):
                self.window.wait_cue(f"{name} at the {end} end of the selection", f"{self.record[column][row]:.0f}")
        self.assertEqual(self.window.cue("Columns"), "5")
        self.close()


if __name__ == "__main__":
    if not os.path.isdir(FOLDER):
        print(f"skipped: there are no measured records in {FOLDER}")
        sys.exit(SKIPPED)
    unittest.main()
