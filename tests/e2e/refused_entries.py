# SPDX-License-Identifier: MIT
"""Entries that cannot be used: columns that are not there, and names nothing can be saved under."""

import errno
import locale
import os
import unittest

import session
from desk import keys, wait_for
from session import DeskTest


def system_words(code):
    """What the system calls an error: in English, and in the language of the session."""
    english = os.strerror(code)
    locale.setlocale(locale.LC_MESSAGES, "")
    local = os.strerror(code)
    locale.setlocale(locale.LC_MESSAGES, "C")
    return {english, local}


class RefusedColumns(DeskTest):
    def test_a_column_that_is_not_there_leaves_the_dialog_open(self):
        program, window = self.start_to_window()
        session.open_file(program, session.SAMPLE)
        dialog = program.window("Labels")
        dialog.find("VPD pre-process", "check box").set_checked(True)
        dialog.find("Do not convert column 1", "check box").set_checked(True)
        for name, good in (("VPD", "4"), ("PAR", "3")):
            box = dialog.find(f"{name} column", "text")
            for text in ("99", "0", "-1", "abc", "14"):
                box.fill(text)
                keys("Return")
                said = self.alert(program, "Tarvelint")
                self.assertIn(f'The {name} column "{text}" does not exist: the file has 13 columns.', said)
                program.window("Labels")  # takes the keys again
                self.assertEqual(box.text, text)
                self.assertEqual(window.cue("Status"), "Mode: select data")
            box.fill(good)
        self.assertTrue(dialog.find("Do not convert column 1", "check box").checked)
        keys("Return")
        window.wait_cue("Status", "Mode: traditional, edit data")
        program.wait_gone("Labels")
        keys("ctrl+q")
        self.alert(program, "Close window:", "alt+n")
        self.assert_ends_well(program)


class RefusedNames(DeskTest):
    def setUp(self):
        self.program, self.window = self.start_to_window()
        session.open_file(self.program, session.SAMPLE)
        self.program.window("Labels")
        keys("Return")
        self.program.wait_gone("Labels")

    def assert_cannot_save(self, code):
        said = self.alert(self.program, "Cannot save:")
        self.assertTrue(any(words in said for words in system_words(code)), said)
        self.assert_unsaved()

    def assert_unsaved(self):
        self.program.window(f"Tarvelint: {session.SAMPLE}", "frame")
        self.program.wait_windows(1)

    def save_as(self, path):
        session.save_file(self.program, path, shortcut="ctrl+shift+s", title="Save As:")

    def close(self):
        keys("ctrl+q")
        self.alert(self.program, "Close window:", "alt+n")
        self.assert_ends_well(self.program)

    def test_a_place_that_takes_no_file(self):
        session.save_file(self.program, self.in_folder("gone/record.csv"))
        self.assert_cannot_save(errno.ENOENT)

        # A name can be 255 bytes long; the extension is what makes it too long.
        self.save_as(self.in_folder(255 * "a"))
        self.assert_cannot_save(errno.ENAMETOOLONG)

        # The name typed is free; what becomes of it is that of a folder.
        os.mkdir(self.in_folder("day.csv"))
        self.save_as(self.in_folder("day.dat"))
        self.assertIn(self.in_folder("day.csv") + " already exists", self.alert(self.program, "Save As:", "alt+y"))
        self.assert_cannot_save(errno.EISDIR)
        self.assertEqual(os.listdir(self.in_folder("day.csv")), [])
        self.close()

    def test_a_name_that_becomes_that_of_a_file_is_asked_about(self):
        kept = self.in_folder("kept.csv", "three years of work\n")
        session.save_file(self.program, self.in_folder("kept.dat"))
        question = self.alert(self.program, "Save:", "alt+n")
        self.assertIn(f"{kept} already exists. Do you want to replace it?", question)
        dialog = self.program.window("Save:", "dialog")  # for another name
        dialog.find("File name:", "text")
        keys("Escape")
        self.program.wait_gone("Save:")
        self.assert_unsaved()
        with open(kept, encoding="ascii") as file:
            self.assertEqual(file.read(), "three years of work\n")

        session.save_file(self.program, self.in_folder("kept.dat"))
        self.alert(self.program, "Save:", "alt+y")
        self.program.window(f"Tarvelint: {kept}")
        with open(kept, encoding="utf-8") as file:
            self.assertTrue(file.readline().startswith("Tarvelint output: "))
        wait_for("the file that was not asked for", lambda: not os.path.exists(self.in_folder("kept.dat")))
        keys("ctrl+q")
        self.assert_ends_well(self.program)


if __name__ == "__main__":
    unittest.main()
