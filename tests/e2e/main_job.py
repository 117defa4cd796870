# SPDX-License-Identifier: MIT
"""A working day: open a logger's record, let the baselines be laid, look, save, and open what was saved."""

import unittest

import session
from desk import keys, wait_for
from pictures import BLACK, RED, WHITE, Picture
from session import DeskTest

SENSOR = "S1"
ROWS_PER_DAY = 48


def calm_dark_runs(record):
    """For every row, how many rows up to it are calm and dark without a break."""
    lengths = []
    for vpd, par in zip(record["VPD"], record["PAR"]):
        before = lengths[-1] if lengths else 0
        lengths.append(before + 1 if vpd <= 0.05 and par <= 0.01 else 0)
    return lengths


class MainJob(DeskTest):
    def test_open_look_save_and_open_again(self):
        program = self.start()
        self.check_splash(program)
        keys("Return")
        window = program.window("Tarvelint", "frame")
        self.check_nothing_to_do_yet(window)
        session.resize(window, 1000, 760)

        session.open_file(program, session.SAMPLE)
        self.set_up_by_keyboard(program, window)
        self.check_loaded(window)
        session.choose_column(window, "Main:", SENSOR)
        picture = self.check_main_plot(window)
        session.choose_column(window, "Companion:", "PAR")
        self.check_companion_plot(window, picture)
        self.check_output_view(window)

        saved = self.save_for_the_first_time(program)
        self.check_against_batch(saved)
        self.check_second_window(program, window, saved)
        keys("ctrl+q")
        self.assert_ends_well(program)

    def check_splash(self, program):
        splash = program.window("Tarvelint", "dialog")
        said = splash.labels()
        self.assertIn("Tarvelint", said)
        self.assertIn(f"Version {session.VERSION}", said)
        self.assertIn("Converts Granier sensor readings to sapflow data.", said)
        self.assertTrue(splash.find("OK", "push button").focused)
        self.assertEqual(program.windows("frame"), [])

    def check_nothing_to_do_yet(self, window):
        for entry in ("New", "Open...", "Close", "Exit"):
            self.assertTrue(window.menu_entry("File", entry).enabled, entry)
        unusable = [("File", "Save"), ("File", "Save As..."), ("Edit", "Can't Undo"), ("Edit", "Select All"),
                    ("View", "Refresh"), ("View", "Settings..."), ("Tools", "View Change"), ("Tools", "Convert")]
        for menu, entry in unusable:
            self.assertFalse(window.menu_entry(menu, entry).enabled, entry)
        for button in ("Save", "View", "Convert", "Baseline", "Labels"):
            self.assertFalse(window.find(button, "push button").enabled, button)
        for caption in ("Main:", "Companion:"):
            self.assertFalse(window.list_called(caption).enabled, caption)
        self.assertEqual(window.cue("Rows"), "none")

    def set_up_by_keyboard(self, program, window):
        """Every step with Tab, Space and Enter, as without a mouse."""
        dialog = program.window("Labels", "dialog")
        self.assertFalse(window.active)
        keys("ctrl+s")  # goes to the dialog, which knows no such key, and not to the window it blocks
        for column in range(1, 14):
            label = dialog.find(f"Label of column {column}", "text")
            wait_for(f"the focus in the label of column {column}", lambda label=label: label.focused)
            keys("Tab")
            mark = dialog.find(f"Do not convert column {column}", "check box")
            wait_for(f"the focus in the mark of column {column}", lambda mark=mark: mark.focused)
            if column <= 5:
                keys("space")
                wait_for(f"the mark of column {column}", lambda mark=mark: mark.checked)
            keys("Tab")
        self.assertEqual(dialog.find("Label of column 6", "text").text, SENSOR)
        self.assertFalse(dialog.find("VPD column", "text").enabled)
        keys("Tab", "space")
        wait_for("the pre-process box", lambda: dialog.find("VPD pre-process", "check box").checked)
        keys("Tab")
        vpd = dialog.find("VPD column", "text")
        wait_for("the focus in the VPD column", lambda: vpd.focused)
        self.assertEqual(dialog.find("PAR column", "text").text, "3")
        vpd.fill("4")
        self.assertEqual(program.titles(), [f"Tarvelint: {session.SAMPLE}", "Labels"])
        keys("Return")
        program.wait_gone("Labels")

    def check_loaded(self, window):
        window.wait_cue("Status", "Mode: traditional, edit data")
        self.assertEqual(window.name, f"Tarvelint: {session.SAMPLE}")
        self.assertEqual(window.cue("Display"), "Viewing intput data")
        self.assertEqual(window.cue("Columns"), "13")
        self.assertEqual(window.cue("Rows"), "1440")
        self.assertEqual(window.list_called("Main:").entries()[3:6], ["VPD", "Tair", SENSOR])
        self.assertTrue(window.menu_entry("File", "Save").enabled)

    def check_main_plot(self, window):
        """One pixel is one row here: trace, calm nights and baseline can be looked up in the record."""
        plot = window.find("Main plot")
        _, _, width, height = plot.box
        # The trace is drawn last and runs through every row.
        picture = wait_for("a trace from edge to edge", lambda: self.traced(plot))

        record = session.readings(session.SAMPLE)
        runs = calm_dark_runs(record)[:width]
        bands = picture.columns(WHITE)
        # The first three rows of calm and dark are not believed; the first may be calm or dark alone.
        self.assertLessEqual({x for x, run in enumerate(runs) if run > 3}, bands)
        self.assertLessEqual(bands, {x for x, run in enumerate(runs) if run >= 3})
        self.assertGreater(len(bands), 0)

        nights = {}
        for x in bands:
            nights.setdefault((x + ROWS_PER_DAY // 2) // ROWS_PER_DAY, []).append(x)
        # A night that the edge cuts may have its highest reading out of view.
        whole = [rows for rows in nights.values() if max(rows) < width - ROWS_PER_DAY]
        highest = sorted(max(rows, key=record[SENSOR].__getitem__) for rows in whole)
        red = picture.places(RED)
        for x in highest:
            # The line alone has one pixel a column, seven in all; a dot of radius 3 has 28, and the trace crosses it.
            self.assertGreaterEqual(sum(1 for at, _ in red if abs(at - x) <= 3), 12, f"point in row {x}")
        self.assertIn(min(x for x, _ in red), range(highest[0] - 4, highest[0] + 1))
        # By day the readings fall away from the baseline and leave it to be seen, and the days are long.
        lined = {x for x, _ in red if x > highest[0]}
        self.assertGreater(len(lined), (width - highest[0]) / 2)
        self.assertGreater(height, 200)
        return picture

    @staticmethod
    def traced(plot):
        picture = Picture(plot.box)
        return picture if len(picture.columns(BLACK)) == picture.width else None

    def check_companion_plot(self, window, main_picture):
        plot = window.find("Companion plot")
        picture = wait_for("a trace in the companion plot", lambda: self.traced(plot))
        heights = [y for _, y in picture.places(BLACK)]
        # The lowest value lies 5 % above the bottom, and the range takes 1/1.1 of the height.
        self.assertAlmostEqual(max(heights), 0.95 * picture.height, delta=1.5)
        self.assertAlmostEqual(min(heights), (0.95 - 1 / 1.1) * picture.height, delta=1.5)
        self.assertEqual(picture.places(RED) | picture.places(WHITE), set())
        self.assertEqual(Picture(window.find("Main plot").box), main_picture)

    def check_output_view(self, window):
        plot = window.find("Main plot")
        before = Picture(plot.box)
        window.find("View", "push button").press()
        window.wait_cue("Display", "Display: viewing output data")
        after = wait_for("the output without points", lambda: self.without_red(plot))
        self.assertEqual(after.columns(WHITE), before.columns(WHITE))
        self.assertNotEqual(after.places(BLACK), before.places(BLACK))
        keys("alt+t", "v")
        window.wait_cue("Display", "Display: viewing input data")
        wait_for("the input as it was", lambda: Picture(plot.box) == before)

    def without_red(self, plot):
        picture = self.traced(plot)
        return picture if picture and not picture.places(RED) else None

    def save_for_the_first_time(self, program):
        keys("ctrl+s")
        contents = program.window("Save:")
        boxes = ("unconverted data", "baseline data", "converted data", "Include a header line (recommended)",
                 "Replace missing values with dots")
        for box in boxes:
            self.assertTrue(contents.find(box, "check box").checked, box)
        keys("Return")
        wait_for("the contents dialog to close", lambda: not contents.showing)
        saved = self.in_folder("first.csv")
        session.choose_file(program.window("Save:"), session.SAVE_COMMA, saved)
        program.window(f"Tarvelint: {saved}")
        with open(saved, encoding="utf-8") as file:
            self.assertRegex(file.readline(), "^Tarvelint output: .*,13 columns,1440 rows each,")
        return saved

    def check_against_batch(self, saved):
        unattended = self.in_folder("batch.csv")
        session.batch(session.SAMPLE, unattended, parameters=5, vpd_column=4)
        self.assert_same_record(saved, unattended)

    def check_second_window(self, program, first, saved):
        before = Picture(first.find("Main plot").box)
        keys("ctrl+n")
        second = program.window("Tarvelint", "frame")
        self.assertEqual(second.box[2:], first.box[2:])
        session.open_file(program, saved)
        second.wait_cue("Rows", "1440")
        self.assertEqual(second.cue("Columns"), "13")
        # Two windows never share a caption, and the first one has the file's.
        wait_for("a caption of its own", lambda: second.name == "Tarvelint 1")
        session.choose_column(second, "Main:", "6")
        program.wait_windows(2)  # no column setup for a file that says what it holds
        plot = second.find("Main plot")
        wait_for("the trace that was saved", lambda: Picture(plot.box).places(BLACK) == before.places(BLACK))

        again = self.in_folder("second.csv")
        session.save_file(program, again)
        program.window(f"Tarvelint: {again}")
        self.assert_same_record(again, saved)


if __name__ == "__main__":
    unittest.main()
