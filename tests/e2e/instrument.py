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


def click_over(plot, button):
    left, top, width, height = plot.box
    place = ["mousemove", str(left + width // 2), str(top + height // 2)]
    subprocess.run(["xdotool", *place, "click", str(button)], check=True)


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

    def top_of_trace(self):
        return min(y for _, y in Picture(self.plots["main"].box).places(BLACK))

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
        self.show("main", "VPD")
        low, high = self.extremes("main")
        height = self.plots["main"].box[3]
        auto = self.window.find("Automatic range of the main plot", "check box")
        self.assertTrue(auto.checked)
        self.assertAlmostEqual(self.top_of_trace(), y_of(high, low, high, height), delta=1.5)
        bottom, top = self.ends("main")
        top.fill("2")
        wait_for("Auto to be off", lambda: not auto.checked)
        self.assertEqual(bottom.text, four_decimals(low))
        shown_low = float(bottom.text)
        expected = y_of(high, shown_low, 2, height)
        wait_for(f"a trace up to {expected:.0f}", lambda: abs(self.top_of_trace() - expected) <= 1.5, limit=10)
        keys("Escape", "Page_Down")
        self.wait_bar(self.screen)
        self.assertEqual(top.text, "2")  # the range stays with other rows
        auto.set_checked(True)
        self.wait_range("main")
        self.assertTrue(self.window.find("Automatic range of the companion plot", "check box").checked)
        self.close()

    def wait_bar(self, row):
        wait_for(f"row {row} at the left edge, not {self.bar.value}", lambda: self.bar.value == row, limit=10)

    def test_wheel_and_keys(self):
        self.show("main", SENSOR)
        self.show("companion", "Time")
        self.assertEqual(self.bar.largest_value, self.last_screen)
        step = round(self.screen / 10)
        row = 0
        for plot, button, by in (("main", 5, step), ("companion", 5, step), ("main", 4, -step), ("companion", 5, step)):
            row += by
            click_over(self.plots[plot], button)
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
                wait_for("the new range of the bar", lambda: self.bar.largest_value == self.last_screen, limit=10)
                self.wait_first_row(first)  # the zoom keeps it
            self.assertFalse(self.entry(entry).enabled)
        self.close()

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
