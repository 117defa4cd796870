# SPDX-License-Identifier: MIT
"""Equations of a user's own: a selection converted, an equation that fails, and options for one window or for all."""

import unittest

import session
from desk import keys, type_text, wait_for
from session import DeskTest

SENSOR = "S1"
MISSING = 99999
DEFAULT = "119*((B/X)-1)^1.23"


def layers(path):
    """Readings, baselines and converted values of the sensor in a saved file, row by row."""
    with open(path, encoding="utf-8") as file:
        next(file)  # the header
        rows = [line.rstrip("\r\n").split(",") for line in file if line.strip() and not line.startswith("Day,")]
    column = [MISSING if row[5] == "." else float(row[5]) for row in rows]
    third = len(column) // 3
    return column[:third], column[third:2 * third], column[2 * third:]


def converted_by_hand(readings):
    """A straight baseline from the first reading to the last, summed row by row, and the default equation on it."""
    step = (readings[0] - readings[-1]) / (len(readings) - 1)
    baseline, flux = [], []
    b = readings[0]
    for reading in readings:
        baseline.append(b)
        flux.append(119 * (b / min(reading, b) - 1) ** 1.23)
        b -= step
    return baseline, flux


class Conversion(DeskTest):
    def setUp(self):
        self.program, self.window = self.start_to_window()
        session.open_file(self.program, session.SAMPLE)
        session.set_up_columns(self.program, parameters=5)
        session.choose_column(self.window, "Main:", SENSOR)

    def test_a_whole_record_by_hand_a_failing_equation_cancelled_and_undone(self):
        self.convert_everything()
        first = self.saved("first.csv", shortcut="ctrl+s", title="Save:")
        self.check_by_hand(first)

        self.type_equation("X/(B-B)")
        self.convert_everything()
        said = self.alert(self.program, "Tarvelint", "Escape")
        self.assertIn("Division by Zero!", said)
        for line in ("This was caused by (B-B)", "Line is 0", "OK to continue, Cancel to stop"):
            self.assertIn(line, said.splitlines())
        self.program.wait_windows(1)
        self.check_cancelled_in_row_0(first, self.saved("second.csv"))

        self.assertTrue(self.window.menu_entry("Edit", "Undo").enabled)
        keys("ctrl+z")
        wait_for("nothing to undo", lambda: not self.window.menu_entry("Edit", "Can't Undo").enabled)
        self.assert_same_record(self.saved("third.csv"), first)
        keys("ctrl+q")
        self.assert_ends_well(self.program)

    def convert_everything(self):
        keys("ctrl+a")
        self.window.find("Convert", "push button").press()

    def type_equation(self, equation):
        dialog, box = session.open_options(self.program, self.window)
        self.assertEqual(box.text, DEFAULT)
        type_text(equation)  # all of it is selected
        wait_for(f'"{equation}" in its box', lambda: box.text == equation)
        dialog.find("Change current", "push button").press()
        self.program.wait_gone("Options")
        self.window.wait_cue("Equation", equation)

    def saved(self, name, shortcut="ctrl+shift+s", title="Save As:"):
        path = self.in_folder(name)
        session.save_file(self.program, path, shortcut=shortcut, title=title)
        self.program.window(f"Tarvelint: {path}")
        return path

    def check_by_hand(self, path):
        readings, baseline, flux = layers(path)
        self.assertEqual(readings, session.readings(session.SAMPLE)[SENSOR])
        self.assertEqual(len(readings), 1440)
        self.assertIn(MISSING, readings)  # gaps lie above the baseline and convert like zero flow
        for row, expected in enumerate(zip(*converted_by_hand(readings))):
            self.assertAlmostEqual(baseline[row], expected[0], delta=1e-11, msg=f"baseline in row {row}")
            self.assertAlmostEqual(flux[row], expected[1], delta=1e-9, msg=f"flux in row {row}")

    def check_cancelled_in_row_0(self, before, after):
        """The line was laid in row 0 only, where it began with the same reading before."""
        readings, baseline, flux = layers(before)
        self.assertEqual(layers(after), (readings, baseline, [0.0] + flux[1:]))


class OptionsForAll(DeskTest):
    def test_change_all_reaches_both_windows_and_the_settings(self):
        program, first = self.start_to_window()
        keys("ctrl+n")
        second = program.window("Tarvelint 1", "frame")
        dialog, equation = session.open_options(program, second)
        self.assertEqual(equation.text, DEFAULT)
        type_text("2X + B")
        wait_for("the equation as typed", lambda: equation.text == "2X + B")
        dialog.find("Change all", "push button").press()
        program.wait_gone("Options")
        for window in (first, second):
            window.wait_cue("Equation", "2*X+B")
        wait_for("the equation in the settings", lambda: session.settings(program).get("equation") == "2*X+B")
        stored = session.settings(program)

        self.check_refusal(program, second)
        self.assertEqual(session.settings(program), stored)
        keys("ctrl+q")
        self.assert_ends_well(program)

    def check_refusal(self, program, window):
        dialog, equation = session.open_options(program, window)
        self.assertEqual(equation.text, "2*X+B")  # what is stored
        type_text("X")
        dialog.find("Number for missing values", "text").fill("abc")
        dialog.find("Change current", "push button").press()
        self.assertIn("You must use a number for the blank value.", self.alert(program, "Improper setting:"))
        program.window("Options", "dialog")  # takes the keys again
        self.assertEqual(dialog.find("Number for missing values", "text").text, "abc")
        dialog.find("Cancel", "push button").press()
        program.wait_gone("Options")
        self.assertEqual(window.cue("Equation"), "2*X+B")
        program.window("Tarvelint 1", "frame")


if __name__ == "__main__":
    unittest.main()
