# SPDX-License-Identifier: MIT
"""The floors' table: for each folder of src/ what it may include. The one place that says so; change it with thought.

A folder may always include itself and the standard library. `outside` names what else it may use; a folder with
nothing there belongs to the core. Folders side by side do not include each other.
"""
from dataclasses import dataclass

QT_CORE = "Qt Core"
QT = "Qt"
POSIX = "POSIX"
CLI = "CLI11"


@dataclass(frozen=True)
class Floor:
    folder: str
    work: str
    may_include: tuple = ()
    outside: tuple = ()


WORK_ON_A_WINDOW = ("edit", "baseline", "equation", "view")
UP_TO_FORMS = ("data", "window", *WORK_ON_A_WINDOW, "forms")

TABLE = (
    Floor("data", "record, settings, numbers as text, file format, reader and writer"),
    Floor("window", "one window without its widgets, and what it may ask of the toolkit and the machine", ("data",)),
    Floor("machine", "clock, files, settings", ("data", "window"), (QT_CORE, POSIX)),
    Floor("edit", "selection, undo", ("data", "window")),
    Floor("baseline", "zero flow, its points", ("data", "window")),
    Floor("equation", "equation, conversion", ("data", "window")),
    Floor("view", "plot, lists, cues", ("data", "window")),
    Floor("forms", "the plain halves of the dialogs", ("data", "window", *WORK_ON_A_WINDOW)),
    Floor("dialogs", "the dialogs' widgets", UP_TO_FORMS, (QT,)),
    # A run without windows has no selection, no undo and no plot.
    Floor("batch", "the program without windows", ("data", "window", "baseline", "equation", "machine"),
          (CLI, POSIX)),
    Floor("app", "commands, files, windows' lives, texts", UP_TO_FORMS),
    Floor("app/qt", "the desktop program: the main window, its wiring, start-up",
          (*UP_TO_FORMS, "machine", "dialogs", "app"), (QT,)),
)


def rows(table):
    """The folders by floor, the ground floor first: each stands above all that it may include."""
    height = {}
    waiting = list(table)
    while waiting:
        standing = [floor for floor in waiting if all(below in height for below in floor.may_include)]
        if not standing:
            raise ValueError("these floors stand on each other: " + ", ".join(floor.folder for floor in waiting))
        for floor in standing:
            height[floor.folder] = 1 + max((height[below] for below in floor.may_include), default=-1)
        waiting = [floor for floor in waiting if floor not in standing]
    return [[floor.folder for floor in table if height[floor.folder] == row] for row in range(max(height.values()) + 1)]
