# SPDX-License-Identifier: MIT
"""Files that cannot be opened: what the toolkit's file dialog refuses, and that a refusal leaves the screen as it was."""

import os
import unittest

import session
from desk import keys
from pictures import Picture
from session import DeskTest


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

    def test_a_file_that_is_no_record(self):
        with open(session.PROGRAM, "rb") as program:
            binary = self.in_folder("binary.csv", program.read(100000))
        self.open_another(binary)
        said = self.alert(self.program, "Tarvelint")
        for words in (binary, "is not a text file"):
            self.assertIn(words, said)
        self.assert_unchanged()
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


if __name__ == "__main__":
    unittest.main()
