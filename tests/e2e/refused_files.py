# SPDX-License-Identifier: MIT
"""Files that cannot be opened: one message says why, and the window keeps what it had."""

import os
import unittest

import session
from desk import keys
from pictures import Picture
from session import DeskTest

HEADER = "Tarvelint output: 21 June 2024,{}\n"
ROWS = "1,0,5,\n1,30,6,\n"

# What is left out of or wrong in a header, and the fixed text the program has for it.
HEADER_FAULTS = [
    ("3 columns,2 rows each,without labels,blank='.'", "no U-B-C info in the header!"),
    ("unconverted,2 rows each,without labels,blank='.'", "No column number in header!"),
    ("unconverted,3 columns,without labels,blank='.'", "No row number in the header!"),
    ("unconverted,3 columns,2 rows each,blank='.'", "No labels info in the header!"),
    ("unconverted,3 columns,2 rows each,without labels", "No blank character info in header!"),
    ("unconverted,3 columns,2 rows each,without labels,blank='.", "Lost that last quote somewhere!"),
]
COUNT_FAULTS = [
    ("unconverted,three columns,2 rows each,without labels,blank='.'", "three"),
    ("unconverted,3 columns,-2 rows each,without labels,blank='.'", "-2"),
    ("unconverted,3 columns,99999999999 rows each,without labels,blank='.'", "99999999999"),
]


class RefusedFiles(DeskTest):
    def setUp(self):
        """A window with the sample, as it stays through every refusal."""
        self.program, self.window = self.start_to_window()
        session.open_file(self.program, session.SAMPLE)
        self.program.window("Labels")
        keys("Return")
        self.program.wait_gone("Labels")
        session.choose_column(self.window, "Main:", "S1")
        self.program.window(f"Tarvelint: {session.SAMPLE}")
        self.picture = Picture(self.window.find("Main plot").box)

    def open_another(self, path):
        """File > Open in a window with unsaved changes asks first."""
        keys("ctrl+o")
        self.assertIn("Do you want to save the current file?", self.alert(self.program, "Open new file:", "alt+n"))
        session.choose_file(self.program.window("Open"), session.COMMA, path)

    def assert_refused(self, path, *words, title="Tarvelint"):
        self.open_another(path)
        said = self.alert(self.program, title)
        for word in words:
            self.assertIn(word, said)
        self.assert_unchanged()

    def assert_unchanged(self):
        """The old record is there, and the window takes commands."""
        self.program.window(f"Tarvelint: {session.SAMPLE}", "frame")
        self.program.wait_windows(1)
        self.assertEqual((self.window.cue("Columns"), self.window.cue("Rows")), ("13", "1440"))
        self.assertEqual(self.window.list_called("Main:").name, "S1")
        self.assertEqual(self.window.cue("Status"), "Mode: sloppy one-click")
        self.assertEqual(Picture(self.window.find("Main plot").box), self.picture)
        self.assertTrue(self.window.find("View", "push button").enabled)

    def close(self):
        keys("ctrl+q")
        self.alert(self.program, "Close window:", "alt+n")
        self.assert_ends_well(self.program)

    def test_files_without_a_record(self):
        corrupt = {"empty.csv": b"", "newlines.csv": b"\r\n\r\n"}
        for name, content in corrupt.items():
            path = self.in_folder(name, content)
            self.assert_refused(path, "This file seems to be corrupt!", title="Error reading file:")
        only_labels = self.in_folder("labels.csv", "Day,Time,S1\n")
        self.assert_refused(only_labels, only_labels, "holds no data")
        with open(session.PROGRAM, "rb") as program:
            binary = self.in_folder("binary.csv", program.read(100000))
        self.assert_refused(binary, binary, "is not a text file")
        self.close()

    def test_names_that_are_no_file(self):
        self.open_another(self.folder)
        dialog = self.program.window("Open", "dialog")
        self.assertTrue(dialog.find(self.folder, "combo box").showing)  # the folder has been entered
        missing = self.in_folder("missing.csv")
        dialog.find("File name:", "text").fill(missing)
        keys("Return")
        self.assertIn(os.path.basename(missing), self.alert(self.program, "Open"))
        self.program.window("Open", "dialog")
        keys("Escape")
        self.program.wait_gone("Open")
        self.assert_unchanged()
        self.close()

    def test_header_faults(self):
        for number, (header, text) in enumerate(HEADER_FAULTS + COUNT_FAULTS):
            self.assert_refused(self.in_folder(f"header{number}.csv", HEADER.format(header) + ROWS), text)
        self.close()

    def test_headers_that_promise_too_much(self):
        header = HEADER.format("unconverted,3 columns,{} rows each,without labels,blank='.'")
        million = self.in_folder("million.csv", header.format(1000000) + ROWS)
        self.assert_refused(million, million, "shorter than its header says", "1000000")

        # A record whose end is lost is still a record.
        cut = self.in_folder("cut.csv", header.format(5) + ROWS)
        self.open_another(cut)
        said = self.alert(self.program, "Tarvelint")
        for word in (cut, "line 3", "5 rows"):
            self.assertIn(word, said)
        self.program.window(f"Tarvelint: {cut}")
        self.assertEqual((self.window.cue("Columns"), self.window.cue("Rows")), ("3", "5"))
        # Opening a file does not count as saving what was there before.
        self.close()


if __name__ == "__main__":
    unittest.main()
