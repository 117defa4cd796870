# SPDX-License-Identifier: MIT
"""Measured records beside the checkout: opened, set up and saved as a user would, and by tarvelint-batch."""

import os
import subprocess
import sys
import unittest

import session
from desk import keys, wait_for
from pictures import BLACK, Picture
from session import DeskTest

FOLDER = os.environ["TARVELINT_RECORDS"]
SKIPPED = 77  # what the test's registration takes for "skipped"


class MeasuredRecords(DeskTest):
    def work_through(self, name, rows, status=0):
        """Open, pre-process, save; the saved file is the one that comes of the same choices without a window."""
        source = os.path.join(FOLDER, name)
        program, window = self.start_to_window()
        session.open_file(program, source)
        session.set_up_columns(program, parameters=4, vpd_column=4)
        window.wait_cue("Status", "Mode: traditional, edit data")
        self.assertEqual((window.cue("Columns"), window.cue("Rows")), ("5", str(rows)))

        saved = self.in_folder("saved.csv")
        session.save_file(program, saved)
        program.window(f"Tarvelint: {saved}")
        unattended = self.in_folder("batch.csv")
        session.batch(source, unattended, parameters=4, vpd_column=4, status=status)
        self.assert_same_record(saved, unattended)
        return program, window

    def close(self, program):
        keys("ctrl+q")
        self.assert_ends_well(program)

    def test_a_year_scrolls_to_its_last_row(self):
        program, window = self.work_through("spruce_15min_2013.csv", 35039)
        self.assertEqual(window.cue("Display"), "Viewing intput data, long record")
        plot = window.find("Main plot")
        bar = window.find("First row shown", "scroll bar")
        self.assertEqual(bar.largest_value, 35039 - plot.box[2] - 1)
        session.choose_column(window, "Main:", "dV_N13")
        session.choose_column(window, "Companion:", "Day")
        self.assertEqual(window.find("Bottom of the companion plot", "text").text, "1.0000")
        top = window.find("Top of the companion plot", "text")
        self.drag_to_the_end(bar)
        wait_for("the last day of the year", lambda: top.text == "365.0000")
        self.assertEqual(bar.value, bar.largest_value)
        wait_for("a trace from edge to edge", lambda: len(Picture(plot.box).columns(BLACK)) == plot.box[2])
        self.close(program)

    @staticmethod
    def drag_to_the_end(bar):
        left, top, width, height = bar.box
        middle = str(top + height // 2)
        # The thumb begins behind the arrow, which is about as wide as the bar is high.
        mouse = ["mousemove", str(left + height + 4), middle, "mousedown", "1"]
        mouse += ["mousemove", str(left + width // 2), middle, "mousemove", str(left + width + 40), middle]
        subprocess.run(["xdotool", *mouse, "mouseup", "1"], check=True)

    def test_a_summer_with_a_gap(self):
        program, window = self.work_through("spruce_15min_2012.csv", 23494)
        self.assertEqual(window.cue("Display"), "Viewing intput data")
        self.close(program)

    def test_a_record_without_weather(self):
        program, window = self.work_through("hourly_2014_no_weather.csv", 901, status=1)
        self.assertEqual(window.cue("Display"), "Viewing intput data, no zero flow found")
        self.close(program)


if __name__ == "__main__":
    if not os.path.isdir(FOLDER):
        print(f"skipped: there are no measured records in {FOLDER}")
        sys.exit(SKIPPED)
    unittest.main()
