# SPDX-License-Identifier: MIT
"""Ways out: what is asked before work is lost, and what the program remembers."""

import unittest

import session
from desk import keys
from session import DeskTest

QUESTION = "Do you want to save the current file?"


class Closing(DeskTest):
    def change(self, program):
        """A column set-up that has been confirmed is a change."""
        session.open_file(program, session.SAMPLE)
        program.window("Labels")
        keys("Return")
        program.wait_gone("Labels")

    def test_cancel_keeps_the_window_and_no_ends_the_program(self):
        program, window = self.start_to_window()
        self.change(program)
        for way_out in (["alt+F4"], ["alt+f", "c"], ["ctrl+w"], ["ctrl+q"]):
            keys(*way_out)
            self.assertIn(QUESTION, self.alert(program, "Close window:", "Escape"))
            self.assertIs(program.window(f"Tarvelint: {session.SAMPLE}", "frame").active, True)
        self.assertEqual(window.cue("Rows"), "1440")
        keys("alt+F4")
        self.alert(program, "Close window:", "alt+n")
        self.assert_ends_well(program)

    def test_yes_saves_first(self):
        program, _ = self.start_to_window()
        self.change(program)
        keys("alt+f", "c")
        self.alert(program, "Close window:", "alt+y")
        contents = program.window("Save:")
        contents.find("File contents", "panel")
        keys("Return")
        saved = self.in_folder("last.csv")
        session.choose_file(program.window("Save As:"), session.SAVE_COMMA, saved)
        self.assert_ends_well(program)
        with open(saved, encoding="utf-8") as file:
            self.assertIn("1440 rows each", file.readline())

    def test_an_unchanged_window_closes_unasked_and_leaves_its_settings(self):
        program, window = self.start_to_window()
        session.resize(window, 820, 600)
        left, top, _, _ = window.box
        keys("alt+F4")
        self.assert_ends_well(program)
        settings = session.settings(program)
        # Twips, 15 to a pixel.
        self.assertEqual((settings["mainwidth"], settings["mainheight"]), (str(820 * 15), str(600 * 15)))
        expected = {"ref": "0", "high": "1", "date": "1", "time": "2", "zoomfactor": "1"}
        self.assertEqual({key: settings[key] for key in expected}, expected)

        again = self.restart(program)
        second = again.window("Tarvelint", "frame")
        self.assertEqual(second.box[2:], (820, 600))
        self.assertEqual(second.box[:2], (left, top))
        keys("ctrl+q")
        self.assert_ends_well(again)

    def restart(self, program):
        """The program once more, with what it wrote down."""
        self.programs.remove(program)
        return self.start_to_window()[0]

    def test_exit_asks_for_each_unsaved_window(self):
        program, _ = self.start_to_window()
        self.change(program)
        keys("ctrl+n")
        program.window("Tarvelint", "frame")
        self.change(program)
        program.wait_windows(2)
        keys("ctrl+q")
        for _ in range(2):
            self.assertIn(QUESTION, self.alert(program, "Close window:", "Escape"))
        program.wait_windows(2)

        keys("ctrl+q")
        self.assertIn(QUESTION, self.alert(program, "Close window:", "alt+n"))
        self.assertIn(QUESTION, self.alert(program, "Close window:", "alt+n"))
        self.assert_ends_well(program)

    def test_the_splash_can_be_closed_by_its_frame(self):
        program = self.start()
        program.window("Tarvelint", "dialog")
        keys("alt+F4")
        program.window("Tarvelint", "frame")
        keys("ctrl+q")
        self.assert_ends_well(program)


if __name__ == "__main__":
    unittest.main()
