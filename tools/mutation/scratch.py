# SPDX-License-Identifier: MIT
"""Copies of the tracked files to build changes in; the working tree itself is only read."""
import fcntl
import os
import shutil
import subprocess
from pathlib import Path

from . import processes

BUILD_SECONDS = 300
FIRST_BUILD_SECONDS = 3600
MARKER = ".tarvelint-mutate"


class Refusal(Exception):
    """Why nothing can be tried at all."""


def tracked_files(root):
    """The tracked files as they stand in the working tree, by path."""
    listed = subprocess.run(["git", "-C", root, "ls-files", "-z"], check=True, capture_output=True).stdout
    return sorted(path for path in listed.decode().split("\0") if path and os.path.lexists(os.path.join(root, path)))


def claim(folder):
    """Takes a scratch folder for this run alone. What this program did not make it leaves alone.
    Returns the open lock file."""
    folder.mkdir(parents=True, exist_ok=True)
    if any(folder.iterdir()) and not (folder / MARKER).exists():
        raise Refusal(f"{folder} holds other things: name an empty folder, or one that served before")
    lock = open(folder / MARKER, "w")
    try:
        fcntl.flock(lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
    except OSError as error:
        raise Refusal(f"{folder} is in use by another run") from error
    return lock


def same_times(a, b):
    return a.st_mtime_ns == b.st_mtime_ns and a.st_size == b.st_size


def mirror(source, target):
    """Makes `target` like `source`, times included, by copying only what has another time or size."""
    target.mkdir(parents=True, exist_ok=True)
    theirs = {entry.name: entry for entry in os.scandir(target)}
    for entry in os.scandir(source):
        old = theirs.pop(entry.name, None)
        goal = target / entry.name
        if entry.is_dir(follow_symlinks=False):
            mirror(Path(entry.path), goal)
        elif not entry.is_file() and not entry.is_symlink():
            continue  # a socket or a pipe that a test has left
        elif old is None or not same_times(entry.stat(follow_symlinks=False), old.stat(follow_symlinks=False)):
            goal.unlink(missing_ok=True)
            shutil.copy2(entry.path, goal, follow_symlinks=False)
    for entry in theirs.values():
        if entry.is_dir(follow_symlinks=False):
            shutil.rmtree(entry.path)
        else:
            os.unlink(entry.path)


class Copy:
    """One copy of the project with a build of its own, and a second copy of that build to go back to."""

    def __init__(self, folder, with_app, threads):
        self.tree = folder / "tree"
        self.build_folder = folder / "build"
        self.home = folder / "home"
        self._pristine = folder / "pristine"
        self._is_kept = folder / "pristine-is-whole"
        self._with_app = with_app
        self._threads = threads

    def recover(self):
        """Takes back what an earlier run that was interrupted may have left in the build."""
        if self._is_kept.exists():
            mirror(self._pristine, self.build_folder)
        else:
            shutil.rmtree(self.build_folder, ignore_errors=True)

    def update(self, root, paths):
        """Brings the copied files up to date; what has not changed keeps its time, so that its objects stay good."""
        for path in paths:
            source, goal = Path(root, path), self.tree / path
            if not source.is_symlink() and goal.is_file() and goal.read_bytes() == source.read_bytes():
                continue
            goal.parent.mkdir(parents=True, exist_ok=True)
            goal.unlink(missing_ok=True)
            shutil.copy(source, goal, follow_symlinks=False)
        known = set(paths)
        for folder, _, names in os.walk(self.tree):
            for name in names:
                if os.path.relpath(os.path.join(folder, name), self.tree) not in known:
                    os.unlink(os.path.join(folder, name))

    def first_build(self):
        """Configures and builds what is not changed, and keeps it."""
        self.home.mkdir(exist_ok=True)
        options = ["-DCMAKE_BUILD_TYPE=None", "-DCMAKE_CXX_FLAGS=-O0 -g0 -D_GLIBCXX_ASSERTIONS", "-DTARVELINT_TESTS=ON"]
        options.append(f"-DTARVELINT_APP={'ON' if self._with_app else 'OFF'}")
        # Listed when asked, not after each link: a change may hang even there.
        options.append("-DCMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE=PRE_TEST")
        if shutil.which("ccache"):
            options.append("-DCMAKE_CXX_COMPILER_LAUNCHER=ccache")
        configure = ["cmake", "-S", str(self.tree), "-B", str(self.build_folder), "-G", "Ninja", *options]
        for step in (configure, self._ninja("all")):
            outcome = processes.run(step, FIRST_BUILD_SECONDS, self.tree, self._environment())
            if outcome.status != 0:
                raise Refusal("the unchanged project does not build:\n" + outcome.output[-4000:])

    def keep(self):
        """The build as it is now is what `restore` goes back to."""
        self._is_kept.unlink(missing_ok=True)
        mirror(self.build_folder, self._pristine)
        self._is_kept.touch()

    def build(self, target):
        """Builds a target of a changed tree. Returns "built", "nothing to do" or "failed"."""
        outcome = processes.run(self._ninja(target), BUILD_SECONDS, self.tree, {**self._environment(), "CCACHE_DISABLE": "1"})
        if outcome.status != 0 or outcome.timed_out:
            return "failed"
        return "nothing to do" if "ninja: no work to do." in outcome.output else "built"

    def apply(self, change):
        """Writes the change into the copy. Returns what `restore` needs."""
        path = self.tree / change.path
        before, times = path.read_bytes(), path.stat()
        path.write_bytes(change.applied_to(before.decode()).encode())
        return path, before, times

    def restore(self, applied):
        """Takes back a change, and all that was built with it: nothing is compiled twice."""
        path, before, times = applied
        path.write_bytes(before)
        os.utime(path, ns=(times.st_atime_ns, times.st_mtime_ns))
        mirror(self._pristine, self.build_folder)
        shutil.rmtree(self.home, ignore_errors=True)
        self.home.mkdir(exist_ok=True)

    def _ninja(self, target):
        return ["ninja", "-C", str(self.build_folder), "-j", str(self._threads), target]

    def _environment(self):
        return {**os.environ, "CCACHE_BASEDIR": str(self.tree.parent), "CCACHE_NOHASHDIR": "1", "NINJA_STATUS": ""}
