# SPDX-License-Identifier: MIT
"""Hands on the plot: a baseline laid click by click, by the mouse and by keys alone; points moved, stretches deleted and
filled, a value edited and taken back."""

import subprocess
import unittest

import session
from by_hand import MISSING, Probe
from desk import Waited, keys, type_text, wait_for
from session import DeskTest

SENSOR = "S1"
COLUMN = 5  # of the sensor, from 0
NIGHTS = range(4, 7 * 48, 48)  # a week of half hours; about two in the morning


def saved_layers(path):
    with open(path, encoding="utf-8") as file:
        next(file)  # the header
        rows = [line.rstrip("\r\n").split(",") for line in file if line.strip() and not line.startswith("Day,")]
    column = [MISSING if row[COLUMN] == "." else float(row[COLUMN]) for row in rows]
    third = len(column) // 3
    return column[:third], column[third:2 * third], column[2 * third:]


class Plot:
    """The main plot at zoom 1 and at the record's beginning, as a hand finds it."""

    def __init__(self, window):
        node = next(n for n in window._boxes() if n.name.startswith("Main plot"))
        self.left, self.top, self.width, self.height = node.box

    def to(self, row):
        place = str(self.left + row), str(self.top + self.height // 2)
        subprocess.run(["xdotool", "mousemove", "--sync", *place], check=True)

    def click(self, row, button=1):
        self.to(row)
        subprocess.run(["xdotool", "click", str(button)], check=True)

    def drag(self, first, last):
        self.to(first)
        subprocess.run(["xdotool", "mousedown", "1"], check=True)
        for row in (first + 1, (first + last) // 2, last):
            self.to(row)
        subprocess.run(["xdotool", "mouseup", "1"], check=True)


class Hands(DeskTest):
    def setUp(self):
        self.program, self.window = self.start_to_window()
        self.readings = session.readings(session.SAMPLE)[SENSOR]

    def open(self, vpd_column=None):
        session.open_file(self.program, session.SAMPLE)
        session.set_up_columns(self.program, parameters=5, vpd_column=vpd_column)
        session.choose_column(self.window, "Main:", SENSOR)
        wait_for("the first column's reading", lambda: self.cue("left") == self.shown(0))

    def cue(self, end):
        return self.window.cue(f"Reading at the {end} end of the selection")

    def shown(self, row):
        return f"{self.readings[row]:,.4f}"

    def wait_status(self, text):
        wait_for(f'"{text}"', lambda: self.window.cue("Status") == text)

    def one_click_mode(self):
        self.wait_status("Mode: sloppy one-click")
        keys("m")
        self.wait_status("Mode: traditional, edit data")
        keys("m")
        self.wait_status("Mode: one-click baseline")

    def saved(self, name):
        path = self.in_folder(name)
        session.save_file(self.program, path, shortcut="ctrl+shift+s", title="Save As:")
        self.program.window(f"Tarvelint: {path}")
        return path

    def check(self, path, probe):
        for name, found, expected in zip(("reading", "baseline", "flux"), saved_layers(path),
                                         (probe.readings, probe.base, probe.flux)):
            self.assertEqual(len(found), len(expected))
            for row, (a, b) in enumerate(zip(found, expected)):
                self.assertAlmostEqual(a, b, delta=1e-9, msg=f"{name} in row {row}")

    def test_a_week_by_mouse_and_the_same_by_keys_alone(self):
        clicks = [row for row in NIGHTS if self.readings[row] != MISSING]
        self.assertGreater(len(clicks), 4)
        self.open()
        self.one_click_mode()
        plot = Plot(self.window)
        for row in clicks:
            plot.click(row)
            wait_for(f"the click in row {row}", lambda: self.cue("right") == self.shown(row))
        keys("Escape")
        by_mouse = self.saved("mouse.csv")
        probe = Probe(self.readings)
        for first, last in zip(clicks, clicks[1:]):
            probe.convert_stretch(first, last)
        self.check(by_mouse, probe)

        subprocess.run(["xdotool", "mousemove", "1500", "1100"], check=True)  # the hand leaves
        self.open()
        self.one_click_mode()
        keys("ctrl+Right")  # the row cursor comes to row 0
        at = 0
        for row in clicks:
            keys(*["ctrl+Right"] * (row - at))
            at = row
            keys("Return")
            wait_for(f"Enter in row {row}", lambda: self.cue("right") == self.shown(row))
        keys("Escape")
        self.assert_same_record(self.saved("keys.csv"), by_mouse)
        keys("ctrl+q")
        self.assert_ends_well(self.program)

    def test_points_and_tools_give_what_the_rules_give(self):
        self.open(vpd_column=4)
        self.wait_status("Mode: traditional, edit data")
        first = self.saved("first.csv")
        probe = Probe(self.readings)
        _, probe.base, probe.flux = saved_layers(first)
        probe.points = self.points_in(probe)
        plot = Plot(self.window)
        self.move_a_point(plot, probe)
        self.fill_a_stretch(plot, probe)
        self.delete_a_stretch(plot, probe)
        self.edit_and_undo(plot, probe)
        self.check(self.saved("last.csv"), probe)
        keys("ctrl+q")
        self.assert_ends_well(self.program)

    def points_in(self, probe):
        """Where the baseline of a whole run of segments meets the reading from below or above and turns: its points."""
        laid = [row for row, base in enumerate(probe.base) if base not in (MISSING, 0.0)]
        points = {laid[0], laid[-1]}
        for row in laid[1:-1]:
            if probe.base[row] != probe.readings[row] or MISSING in probe.readings[row - 1:row + 2]:
                continue
            before = probe.base[row] - probe.base[row - 1]
            after = probe.base[row + 1] - probe.base[row]
            if abs(before - after) > 1e-9:
                points.add(row)
        return points

    def move_a_point(self, plot, probe):
        point = sorted(p for p in probe.points if 20 < p < 400)[1]
        target = next(row for row in range(point + 9, point + 20) if self.readings[row] != MISSING)
        self.wait_ready(plot, probe, target + 12)
        plot.drag(point, target)
        plot.to(target + 1)
        plot.to(target)
        wait_for("the baseline at the point", lambda: self.window.cue("Baseline under the pointer") == self.shown(target))
        probe.set_point(target, taken_from=point)

    def wait_ready(self, plot, probe, start):
        """The window drops presses while it still finishes a command: waits until a click beside all points counts."""
        row = next(r for r in range(start, 440)
                   if self.readings[r] != MISSING and all(abs(p - r) > 3 for p in probe.points))
        for _ in range(10):
            plot.click(row)
            try:
                return wait_for("a click to count", lambda: self.cue("right") == self.shown(row), limit=3)
            except Waited:
                pass  # later than any double click
        raise Waited("no click counted")

    def stretch(self, probe, start, length):
        """The first stretch from a row on with readings at both ends and no point within reach of them."""
        for first in range(start, 400):
            last = first + length
            if MISSING in (probe.readings[first], probe.readings[last]):
                continue
            if all(abs(p - end) > 3 for p in probe.points for end in (first, last)):
                return first, last
        raise AssertionError("no such stretch in the sample")

    def select(self, plot, probe, first, last):
        plot.click(first)
        wait_for("the selection's start", lambda: self.cue("right") == f"{probe.readings[first]:,.4f}")
        subprocess.run(["xdotool", "keydown", "shift"], check=True)
        plot.click(last)
        subprocess.run(["xdotool", "keyup", "shift"], check=True)
        wait_for("the selection's end", lambda: self.cue("right") == f"{probe.readings[last]:,.4f}")

    def fill_a_stretch(self, plot, probe):
        first, last = self.stretch(probe, 150, 30)
        self.select(plot, probe, first, last)
        keys("i")
        wait_for("Undo", lambda: self.window.menu_entry("Edit", "Undo").enabled)
        probe.interpolate(first, last)

    def delete_a_stretch(self, plot, probe):
        first, last = self.stretch(probe, 220, 6)
        self.select(plot, probe, first, last)
        keys("Delete")
        wait_for("the next stretch", lambda: (self.cue("left") or "").replace(",", "") == f"{MISSING:.4f}")
        probe.delete(first, last)

    def edit_and_undo(self, plot, probe):
        row = next(r for r in range(280, 400) if probe.readings[r] != MISSING and r not in probe.points)
        for value, undone in ((5.5, True), (6.25, False)):
            plot.click(row, button=3)
            dialog = self.program.window("Change the value", "dialog")
            box = dialog.find("New value", "text")
            wait_for("the old value", lambda: box.text == f"{probe.readings[row]:,.4f}")
            type_text(str(value))  # all of it is selected
            keys("Return")
            self.program.wait_gone("Change the value")
            wait_for("the new value", lambda: self.cue("left") == f"{value:.4f}")
            before = probe.edit(row, value)
            if undone:
                keys("ctrl+z")
                probe.undo(row, before)
                wait_for("the value again", lambda: self.cue("left") == f"{before[0]:,.4f}")


if __name__ == "__main__":
    unittest.main()
