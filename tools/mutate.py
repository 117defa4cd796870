#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Mutation testing: changes the source of some folders, one small change at a time, and says which test sees each.

A seed decides which changes are drawn: the same seed draws the same from the same files. Each change is built in a
scratch copy of the tracked files (as they stand, not as committed), first with the tests of its own floor, then with
all; the working tree is only read. A change that does not build is drawn again and not counted. Exit status 0 when
every change was seen, 1 when one survived, 2 when nothing could be tried.
"""
import argparse
import random
import shutil
import signal
import sys
import tempfile
import threading
import time
from concurrent.futures import ThreadPoolExecutor
from os import cpu_count
from pathlib import Path

sys.dont_write_bytecode = True

from mutation import changes, processes, scratch, trial  # noqa: E402

SUFFIXES = (".cpp", ".h")
ROOT = Path(__file__).resolve().parent.parent


def read_arguments():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("folders", nargs="+", type=Path, help="folders or files whose source is changed, as src/edit")
    parser.add_argument("--count", type=int, default=20, help="how many changes that build (default: 20)")
    parser.add_argument("--seed", type=int, help="which changes are drawn (default: a new seed, printed)")
    parser.add_argument("--only", type=int, metavar="N", help="only change number N of the seed")
    parser.add_argument("--list", action="store_true", help="only show what is drawn; nothing is built")
    parser.add_argument("--jobs", type=int, default=1, help="scratch copies to work in side by side (default: 1)")
    parser.add_argument("--app", action="store_true", help="build the desktop program and run its window tests too")
    parser.add_argument("--scratch", type=Path, help="folder to build in, kept for the next run (default: a temporary one)")
    parser.add_argument("--report", type=Path, metavar="FILE", help="write the results as a Markdown list too")
    arguments = parser.parse_args()
    if arguments.only is not None and arguments.seed is None:
        parser.error("--only needs the --seed that drew the change")
    if min(arguments.count, arguments.jobs, arguments.only or 1) < 1:
        parser.error("--count, --jobs and --only start at 1")
    if arguments.seed is None:
        arguments.seed = random.SystemRandom().randrange(1_000_000)
    return arguments


def source_texts(folders, paths):
    """What stands in the tracked C++ files of some folders, by path."""
    wanted = []
    for folder in folders:
        absolute = folder.resolve()
        if not absolute.exists() or not absolute.is_relative_to(ROOT):
            raise scratch.Refusal(f"{folder} is no folder of this project")
        wanted.append(absolute)
    texts = {}
    for path in paths:
        file = ROOT / path
        if path.endswith(SUFFIXES) and any(file.is_relative_to(folder) for folder in wanted):
            texts[path] = file.read_bytes().decode()
    return texts


def described(change, text):
    before, after = change.lines_in(text)
    return f"{change.number}. {change.path}:{change.line_in(text)} ({change.kind})\n   - {before}\n   + {after}"


class Trials:
    """Hands the changes out, in their order, until enough have counted; and keeps what came of them."""

    def __init__(self, drawn, texts, count):
        self._waiting = iter(drawn)
        self._texts = texts
        self._count = count
        self._under_way = 0
        self._state = threading.Condition()
        self.results = []

    @property
    def counted(self):
        return [(change, verdict) for change, verdict in self.results if verdict.counts]

    def work(self, bench):
        """Tries changes until there are enough. Never more are under way than are still wanted, so that the number
        of jobs does not decide which changes count."""
        while (change := self._next()) is not None:
            started = time.monotonic()
            verdict = None
            try:
                verdict = bench.try_change(change)
            finally:
                self._done(change, verdict, time.monotonic() - started)

    def _next(self):
        with self._state:
            while self._under_way and len(self.counted) + self._under_way >= self._count:
                self._state.wait()
            change = next(self._waiting, None) if len(self.counted) < self._count else None
            self._under_way += change is not None
            return change

    def _done(self, change, verdict, seconds):
        with self._state:
            self._under_way -= 1
            if verdict is not None:
                self.results.append((change, verdict))
                text = self._texts[change.path]
                if verdict.counts:
                    print(f"{described(change, text)}\n   {verdict}, {seconds:.1f} s", flush=True)
                else:
                    print(f"{change.number}. {change.path}:{change.line_in(text)} {verdict}: drawn again", flush=True)
            self._state.notify_all()


def try_all(arguments, drawn, texts, paths, folder):
    copies = [
        scratch.Copy(folder / f"copy{number}", arguments.app, max(1, (cpu_count() or 1) // arguments.jobs))
        for number in range(1, arguments.jobs + 1)
    ]
    benches = [trial.Bench(copy) for copy in copies]
    trials = Trials(drawn, texts, 1 if arguments.only else arguments.count)
    with ThreadPoolExecutor(arguments.jobs) as pool:
        try:
            print(f"building and testing the unchanged project in {folder} ...", flush=True)
            started = time.monotonic()
            programs = list(pool.map(lambda bench: bench.prepare(ROOT, paths), benches))
            print(f"{programs[0]} test programs pass, {time.monotonic() - started:.0f} s", flush=True)
            started = time.monotonic()
            list(pool.map(trials.work, benches))
        except BaseException:
            processes.stop()
            raise
    return trials, time.monotonic() - started


def summary(results, seconds):
    counted = [verdict for _, verdict in results if verdict.counts]
    number = {kind: sum(verdict.kind == kind for _, verdict in results) for kind in trial.KINDS}
    own = sum(verdict.by_own_floor for verdict in counted)
    return (
        f"{len(counted)} {'change' if len(counted) == 1 else 'changes'}: {number['seen']} seen, {number['timed out']} timed out"
        f" ({own} of these by the tests of their own floor), {number['survived']} survived. Drawn again:"
        f" {number['does not build']} did not build, {number['is in no program built here']} in no program built here."
        f" {seconds / max(1, len(counted)):.1f} s per change that counts."
    )


def write_report(arguments, trials, texts, conclusion):
    folders = " ".join(str(folder) for folder in arguments.folders)
    app = " --app" if arguments.app else ""
    lines = ["# Mutation testing", "", f"`tools/mutate.py --seed {arguments.seed}{app} {folders}`", "", conclusion, ""]
    for change, verdict in sorted(trials.counted, key=lambda result: result[0].number):
        text = texts[change.path]
        before, after = change.lines_in(text)
        lines += [f"- {change.number}: {change.path}:{change.line_in(text)} ({change.kind}): **{verdict}**", ""]
        lines += [f"      - {before}", f"      + {after}", ""]
    arguments.report.write_text("\n".join(lines), encoding="utf-8")


def mutate(arguments):
    paths = scratch.tracked_files(ROOT)
    texts = source_texts(arguments.folders, paths)
    drawn = changes.draw(texts, arguments.seed)
    print(f"seed {arguments.seed}: {len(drawn)} places to change in {len(texts)} files", flush=True)
    if arguments.only:
        drawn = drawn[arguments.only - 1 : arguments.only]
    if not drawn:
        raise scratch.Refusal("there is nothing to change")
    if arguments.list:
        for change in drawn[: arguments.count]:
            print(described(change, texts[change.path]))
        return 0
    folder = arguments.scratch or Path(tempfile.mkdtemp(prefix="tarvelint-mutate-"))
    try:
        with scratch.claim(folder.resolve()):
            trials, seconds = try_all(arguments, drawn, texts, paths, folder.resolve())
    finally:
        if not arguments.scratch:
            shutil.rmtree(folder, ignore_errors=True)
    conclusion = summary(trials.results, seconds)
    print(conclusion)
    if arguments.report:
        write_report(arguments, trials, texts, conclusion)
    if not trials.counted:
        return 2
    return 1 if any(verdict.kind == "survived" for _, verdict in trials.counted) else 0


def main():
    signal.signal(signal.SIGTERM, signal.default_int_handler)
    try:
        return mutate(read_arguments())
    except scratch.Refusal as refusal:
        print(f"mutate: {refusal}", file=sys.stderr)
        return 2
    except KeyboardInterrupt:
        print("mutate: interrupted", file=sys.stderr)
        return 130


if __name__ == "__main__":
    sys.exit(main())
