# SPDX-License-Identifier: MIT
"""What the end-to-end tests are written in: waiting, keys, and the accessibility tree of a running program."""

import os
import subprocess
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402  (the version has to be named before the import)

# Long enough for a sanitized program on a loaded machine; a passing test never waits for it.
LIMIT = float(os.environ.get("TARVELINT_E2E_LIMIT", "60"))
STEP = 0.02  # seconds between two looks
# A dialog shown again while the window manager's word of its hiding is still on its way: the toolkit says so and goes on.
OVERTAKEN = "qt.qpa.xcb: internal error:  void QXcbWindow::setNetWmStateOnUnmappedWindow() called on mapped window\n"
LONG = ("menu bar", "split pane", "combo box")  # what is below these is asked for by name only

Atspi.init()
desktop = Atspi.get_desktop(0)
desktop.set_cache_mask(Atspi.Cache.NONE)  # the tests look at the program, not at what was true a moment ago


class Waited(AssertionError):
    """A condition that did not come true in time."""


def wait_for(what, condition, limit=LIMIT):
    """Waits until `condition()` is true and returns what it gave; fails with `what` was waited for."""
    end = time.monotonic() + limit
    while True:
        found = condition()
        if found:
            return found
        if time.monotonic() > end:
            raise Waited(f"waited {limit:.0f} s for {what}")
        time.sleep(STEP)


class Node:
    """One control as a screen reader meets it. Asked for anything, a control that has gone counts as absent."""

    def __init__(self, accessible):
        self.accessible = accessible

    def _ask(self, question, gone):
        try:
            return question(self.accessible)
        except GLib.Error:
            return gone

    @property
    def name(self):
        return self._ask(lambda a: a.get_name(), "") or ""

    @property
    def role(self):
        return self._ask(lambda a: a.get_role_name(), "gone")

    @property
    def text(self):
        """What a text box holds."""
        return self._ask(lambda a: Atspi.Text.get_text(a, 0, Atspi.Text.get_character_count(a)), "")

    @property
    def value(self):
        """Where a scroll bar stands."""
        return self._ask(Atspi.Value.get_current_value, None)

    @property
    def largest_value(self):
        """The last place a scroll bar reaches."""
        return self._ask(Atspi.Value.get_maximum_value, None)

    @property
    def box(self):
        """Place on the screen: left, top, width, height."""
        e = self._ask(lambda a: Atspi.Component.get_extents(a, Atspi.CoordType.SCREEN), None)
        return (e.x, e.y, e.width, e.height) if e else (0, 0, 0, 0)

    def _is(self, state):
        return self._ask(lambda a: a.get_state_set().contains(state), False)

    @property
    def enabled(self):
        return self._is(Atspi.StateType.ENABLED)

    @property
    def showing(self):
        return self._is(Atspi.StateType.SHOWING)

    @property
    def checked(self):
        return self._is(Atspi.StateType.CHECKED)

    @property
    def focused(self):
        return self._is(Atspi.StateType.FOCUSED)

    @property
    def active(self):
        return self._is(Atspi.StateType.ACTIVE)

    @property
    def children(self):
        count = self._ask(lambda a: a.get_child_count(), 0)
        found = [self._ask(lambda a, i=i: a.get_child_at_index(i), None) for i in range(count)]
        return [Node(child) for child in found if child]

    def everything(self):
        """This control and all below it, from the outside in."""
        yield self
        for child in self.children:
            yield from child.everything()

    def look_for(self, name, role=None):
        """The control of that name below this one, or None."""
        return next((n for n in self._boxes() if n.name == name and role in (None, n.role)), None)

    def find(self, name, role=None):
        """The control of that name, waited for."""
        return wait_for(f'{role or "control"} "{name}"', lambda: self.look_for(name, role))

    def menu_entry(self, menu, entry):
        bar = next(child for child in self.children if child.role == "menu bar")
        found = bar.find(menu, "menu item").look_for(entry)
        if not found:
            raise AssertionError(f"the menu {menu} has no entry {entry}")
        return found

    def labels(self):
        return [node.name for node in self._boxes() if node.role == "label"]

    def cue(self, spoken):
        """The value a label tells behind its name: "Rows: 1440" gives "1440"."""
        start = spoken + ": "
        return next((name[len(start):] for name in self.labels() if name.startswith(start)), None)

    def wait_cue(self, spoken, value):
        wait_for(f'"{spoken}: {value}"', lambda: self.cue(spoken) == value)

    def take_focus(self):
        """Moves the keyboard here, as a screen reader does."""
        wait_for(f'"{self.name}" to be usable', lambda: self.enabled and self.showing)
        Atspi.Component.grab_focus(self.accessible)
        wait_for(f'the focus in "{self.name}"', lambda: self.focused)

    def press(self):
        """Space on a button or a check box."""
        self.take_focus()
        keys("space")

    def trigger(self):
        """Runs a menu entry, as a screen reader does."""
        wait_for(f'"{self.name}" to be usable', lambda: self.enabled)
        Atspi.Action.do_action(self.accessible, 0)

    def set_checked(self, checked):
        if self.checked != checked:
            self.press()
        wait_for(f'"{self.name}" to be {"checked" if checked else "clear"}', lambda: self.checked == checked)

    def fill(self, text):
        """Types over what the box holds."""
        self.take_focus()
        keys("ctrl+a")
        type_text(text)
        wait_for(f'"{text}" in "{self.name}"', lambda: self.text == text)

    @property
    def caption(self):
        """The text of the label that stands for this control: a list's own name is what it shows."""
        for relation in self._ask(lambda a: a.get_relation_set(), []):
            if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY:
                return Node(relation.get_target(0)).name
        return ""

    def list_called(self, caption):
        """The list behind the label of that text."""

        def look():
            return next((n for n in self._boxes() if n.role == "combo box" and n.caption == caption), None)

        return wait_for(f'the list "{caption}"', look)

    def list_of(self, entry):
        """The list that offers this entry."""

        def look():
            return next((n for n in self._boxes() if n.role == "combo box" and entry in n.entries()), None)

        return wait_for(f'a list with "{entry}"', look)

    def _boxes(self):
        """All below this one but for menus and file lists, which are long."""
        for child in self.children:
            yield child
            if child.role not in LONG:
                yield from child._boxes()

    def entries(self):
        """The texts of a list, from the top."""
        return [entry.name for inner in self.children for entry in inner.children]

    def choose(self, text):
        """Opens this list, which has the keyboard, and picks an entry with the arrow keys."""
        wait_for(f'the focus in the list that shows "{self.name}"', lambda: self.focused)
        keys("alt+Down", "Home", *["Down"] * self.entries().index(text), "Return")
        wait_for(f'the list to show "{text}"', lambda: self.name == text)

    def dump(self, depth=0):
        """The tree as text, one control a line."""
        states = [word for word in ("enabled", "showing", "checked", "focused", "active") if getattr(self, word)]
        lines = [f'{"  " * depth}{self.role} "{self.name}" {self.box} {" ".join(states)}']
        for child in self.children:
            lines += child.dump(depth + 1)
        return lines


def keys(*names):
    """Presses keys, one after the other, as xdotool names them ("ctrl+o", "Return")."""
    subprocess.run(["xdotool", "key", "--delay", "4", *names], check=True)


def type_text(text):
    subprocess.run(["xdotool", "type", "--delay", "4", "--", text], check=True)


class Program:
    """One started Tarvelint."""

    def __init__(self, path, home, scale=1):
        os.makedirs(home, exist_ok=True)
        self.settings_file = os.path.join(home, "Tarvelint", "Tarvelint.ini")
        self.log = os.path.join(home, "stderr.txt")
        environment = {**os.environ, "XDG_CONFIG_HOME": home, "QT_SCALE_FACTOR": str(scale)}
        with open(self.log, "wb") as log:
            self.process = subprocess.Popen([path], env=environment, stderr=log, cwd=home)
        self.root = wait_for("the program in the accessibility tree", self._in_tree)

    def _in_tree(self):
        if self.process.poll() is not None:
            raise AssertionError(f"the program ended at once with {self.process.returncode}: {self.errors()}")
        for child in Node(desktop).children:
            if child._ask(lambda a: a.get_process_id(), 0) == self.process.pid:
                return child
        return None

    def errors(self):
        """What the program, its toolkit and its sanitizers wrote to standard error, but for that one line."""
        with open(self.log, encoding="utf-8", errors="replace") as log:
            return log.read().replace(OVERTAKEN, "", 1)

    def windows(self, role=None):
        """What stands on the desk now: data windows have the role "frame", all others "dialog" or "alert"."""
        return [w for w in self.root.children if w.showing and role in (None, w.role)]

    def titles(self):
        return [w.name for w in self.windows()]

    def window(self, title, role=None):
        """The window of that title, once it is shown and takes the keys."""

        def active():
            return next((w for w in self.windows(role) if w.name == title and w.active), None)

        try:
            return wait_for(title, active)
        except Waited:
            raise Waited(f'no active window "{title}"; there are {self.titles()}') from None

    def bring_forward(self, title):
        """A click on a window that the window manager has left in the background, as it may do with a new program's."""
        wait_for(f'"{title}" to be shown', lambda: title in self.titles())
        try:
            wait_for(f'"{title}" to take the keys', lambda: any(w.active for w in self.windows()), limit=2)
        except Waited:
            search = ["search", "--onlyvisible", "--pid", str(self.process.pid), "--name", f"^{title}$"]
            subprocess.run(["xdotool", *search, "windowactivate"], check=True)

    def wait_gone(self, title, role=None):
        wait_for(f'"{title}" to close', lambda: all(w.name != title for w in self.windows(role)))

    def wait_windows(self, count, role=None):
        """What has been answered leaves the tree a moment after it has left the screen."""
        try:
            wait_for(f"{count} windows", lambda: len(self.windows(role)) == count)
        except Waited:
            raise Waited(f"not {count} windows but {self.titles()}") from None

    def wait_end(self):
        """The exit status, once the program has ended by itself."""
        try:
            return self.process.wait(LIMIT)
        except subprocess.TimeoutExpired:
            raise Waited(f"the program did not end; its windows are {self.titles()}") from None

    def stop(self):
        if self.process.poll() is None:
            self.process.kill()
        self.process.wait()
