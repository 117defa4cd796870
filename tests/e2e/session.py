# SPDX-License-Identifier: MIT
"""What a user does with Tarvelint, and the frame of every end-to-end test."""

import configparser
import datetime
import os
import shutil
import subprocess
import tempfile
import unittest

from desk import LIMIT, Program, keys, wait_for
from pictures import keep_screen

PROGRAM = os.environ["TARVELINT"]
BATCH = os.environ["TARVELINT_BATCH"]
SAMPLE = os.environ["TARVELINT_SAMPLE"]
VERSION = os.environ["TARVELINT_VERSION"]
EVIDENCE = os.environ["TARVELINT_EVIDENCE"]  # where screenshots of failed tests go

SPACE = "Space Delimited (*.asc)"
TAB = "Tab delimited (*.txt)"
COMMA = "Comma Delimited (*.csv), (*.dat)"
SAVE_COMMA = "_Comma Delimited (*.csv)"


class DeskTest(unittest.TestCase):
    """A test with a folder of its own and programs that end with it; keeps a picture of the desk when it fails."""

    def run(self, result=None):
        self.folder = tempfile.mkdtemp(prefix="tarvelint-")
        self.programs = []
        self.started = datetime.date.today()
        troubles = len(result.failures) + len(result.errors)
        super().run(result)
        if len(result.failures) + len(result.errors) > troubles:
            self._keep_evidence()
        for program in self.programs:
            program.stop()
        shutil.rmtree(self.folder)
        return result

    def _keep_evidence(self):
        os.makedirs(EVIDENCE, exist_ok=True)
        start = os.path.join(EVIDENCE, self.id())
        keep_screen(start + ".png")
        with open(start + ".txt", "w", encoding="utf-8") as tree:
            for program in self.programs:
                tree.write("\n".join(program.root.dump()) + "\n" + program.errors())
        print(f"kept {start}.png and {start}.txt")

    def in_folder(self, name, content=None):
        """A path in the test's folder; with `content`, of a file that holds it."""
        path = os.path.join(self.folder, name)
        if content is not None:
            with open(path, "wb") as file:
                file.write(content if isinstance(content, bytes) else content.encode())
        return path

    def start(self, scale=1):
        program = Program(PROGRAM, self.in_folder(f"home{len(self.programs)}"), scale)
        self.programs.append(program)
        program.bring_forward("Tarvelint")
        return program

    def start_to_window(self, scale=1):
        """Starts the program and sends the splash away. Gives the program and its first data window."""
        program = self.start(scale)
        program.window("Tarvelint", "dialog")
        keys("Return")
        return program, program.window("Tarvelint", "frame")

    def assert_ends_well(self, program):
        """The program has ended by itself, with nothing to complain about."""
        self.assertEqual(program.wait_end(), 0, program.errors())
        self.assertEqual(program.errors(), "")

    def assert_same_record(self, one, other):
        """Two saved files are equal byte for byte; a midnight between the two may change the day in the header."""
        with open(one, "rb") as a, open(other, "rb") as b:
            first, second = a.read(), b.read()
        if datetime.date.today() != self.started:
            first, second = first.partition(b"\n")[2], second.partition(b"\n")[2]
        self.assertGreater(len(first), 0)
        self.assertTrue(first == second, f"{one} ({len(first)} bytes) and {other} ({len(second)} bytes) differ")

    def alert(self, program, title, answer="Return"):
        """Waits for a message box, answers it, and gives what it said. Nothing else may lie in front of it."""
        box = program.window(title, "alert")
        said = box.labels()
        program.wait_windows(1, "alert")
        keys(answer)
        wait_for(f'the message "{title}" to close', lambda: not box.showing)  # the next one may have the same title
        return "\n".join(said)


def choose_file(dialog, kind, path):
    """Picks the file type and types the name, as the file dialog has the keyboard in its name box at first."""
    name = dialog.find("File name:", "text")
    wait_for("the focus in the name box", lambda: name.focused)
    types = dialog.list_of(kind)
    keys("Tab")
    types.choose(kind)
    name.fill(path)
    keys("Return")


def open_file(program, path, kind=COMMA):
    """File > Open by keyboard, up to the moment the file dialog has been answered."""
    keys("ctrl+o")
    choose_file(program.window("Open"), kind, path)


def save_file(program, path, kind=SAVE_COMMA, shortcut="ctrl+s", title="Save:"):
    """File > Save by keyboard with the contents as offered, up to the answer to the file dialog."""
    keys(shortcut)
    contents = program.window("Save:")
    contents.find("File contents", "panel")
    keys("Return")
    wait_for("the contents dialog to close", lambda: not contents.showing)
    dialog = program.window(title)
    choose_file(dialog, kind, path)


def choose_column(window, caption, text):
    """Picks a column in the list "Main:" or "Companion:"."""
    chosen = window.list_called(caption)
    window.find("Show labels in the column lists", "check box").take_focus()
    keys(*["shift+Tab"] * (1 if caption == "Companion:" else 2))
    chosen.choose(text)


def set_up_columns(program, parameters, vpd_column=None):
    """Answers the column setup dialog: parameter columns 1 to `parameters`, with a VPD column the pre-process, OK."""
    dialog = program.window("Labels", "dialog")
    for column in range(1, parameters + 1):
        dialog.find(f"Do not convert column {column}", "check box").set_checked(True)
    if vpd_column is not None:
        dialog.find("VPD pre-process", "check box").set_checked(True)
        dialog.find("VPD column", "text").fill(str(vpd_column))
    keys("Return")
    program.wait_gone("Labels")


def open_options(program, window):
    """The options dialog by the "Equation:" button, and its equation, which has the focus and can be typed over."""
    window.find("Equation", "push button").press()
    dialog = program.window("Options", "dialog")
    equation = dialog.find("Equation", "text")
    wait_for("the focus in the equation", lambda: equation.focused)
    return dialog, equation


def settings(program):
    """What the program has written down by now, by key in small letters."""
    file = configparser.ConfigParser()
    file.read(program.settings_file, encoding="utf-8")
    return dict(file["Settings"]) if file.has_section("Settings") else {}


def resize(window, width, height):
    """Gives the active window a new size, and waits until the window manager has agreed."""
    subprocess.run(["xdotool", "getactivewindow", "windowsize", str(width), str(height)], check=True)
    wait_for(f"a window of {width} x {height}", lambda: window.box[2:] == (width, height))


def batch(source, target, parameters, vpd_column, status=0):
    """The same work without a window; `status` is 1 for a record in which nothing can be converted."""
    done = subprocess.run([BATCH, source, "-o", target, "--quiet", "--vpd-column", str(vpd_column), "--parameters",
                           f"1-{parameters}"], timeout=LIMIT)
    assert done.returncode == status, f"exit status {done.returncode}"


def readings(path):
    """The rows of a comma-delimited record with labels, by label."""
    with open(path, encoding="ascii") as file:
        labels = file.readline().strip().split(",")
        rows = [[float(field) for field in line.strip().split(",")] for line in file]
    return {label: [row[i] for row in rows] for i, label in enumerate(labels)}
