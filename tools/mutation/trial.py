# SPDX-License-Identifier: MIT
"""The tests of a build, and what they say of a change."""
import json
import os
import re
import time
from dataclasses import dataclass, field
from pathlib import Path

from . import processes
from .scratch import Refusal

TEST_SECONDS = 60
GTEST_FILTER = "--gtest_filter="
KNOWN_PROPERTIES = frozenset(
    """ENVIRONMENT WORKING_DIRECTORY SKIP_RETURN_CODE WILL_FAIL TIMEOUT LABELS COST RESOURCE_LOCK RUN_SERIAL PROCESSORS
    DEF_SOURCE_LINE SKIP_REGULAR_EXPRESSION DISABLED""".split()
)


KINDS = ("seen", "timed out", "survived", "does not build", "is in no program built here")


@dataclass
class Verdict:
    kind: str  # one of KINDS
    where: str = ""
    by_own_floor: bool = False

    @property
    def counts(self):
        return self.kind in ("seen", "timed out", "survived")

    def __str__(self):
        if self.kind == "seen":
            return f"seen by {self.where}"
        if self.kind == "timed out":
            return f"timed out in {self.where} (counts as seen)"
        return self.kind


@dataclass
class Program:
    """One run of tests: a whole gtest executable, or one other entry of ctest."""

    name: str
    command: list
    folder: str
    environment: dict
    is_gtest: bool
    skip_status: int = None
    has_to_fail: bool = False
    seconds: float = field(default=0.0, compare=False)

    @property
    def limit(self):
        """Seconds: far more than the unchanged code needs."""
        return max(min(TEST_SECONDS, 10 + 10 * self.seconds), 3 * self.seconds)

    def run(self, home):
        """"" when the tests pass; else what failed, and whether the time ran out."""
        environment = {**os.environ, "HOME": str(home), "TMPDIR": str(home), **self.environment}
        outcome = processes.run(self.command, self.limit if self.seconds else 10 * TEST_SECONDS, self.folder, environment)
        if outcome.timed_out:
            return self._named(unfinished_test(outcome.output)), True
        if (outcome.status != 0) == self.has_to_fail or outcome.status == self.skip_status:
            return "", False
        failed = failed_tests(outcome.output)
        if failed:
            return self._named(", ".join(failed)), False
        return self._named(unfinished_test(outcome.output)) + f" ({outcome.ending})", False

    def _named(self, test):
        return f"{self.name}: {test}" if test else self.name


def failed_tests(output):
    """The tests that GoogleTest or Qt Test names as failed, each once."""
    named = re.findall(r"^\[  FAILED  \] ([\w/.]+)(?=,| \()|^FAIL!  : ([\w:]+)\(", output, re.MULTILINE)
    return list(dict.fromkeys(gtest or qtest for gtest, qtest in named))


def unfinished_test(output):
    """The test that was begun last, when it has not ended."""
    begun = re.findall(r"^\[ RUN      \] (\S+)", output, re.MULTILINE)
    ended = re.findall(r"^\[ +(?:OK|SKIPPED|FAILED) +\] (\S+) \(", output, re.MULTILINE)
    return begun[-1] if begun and begun[-1] not in ended[-1:] else ""


def programs_of(copy):
    """Every test that runs something built. The walks over the whole desktop (e2e/) are too slow to ask so often."""
    listed = processes.run(["ctest", "--show-only=json-v1"], 600, copy.build_folder)
    try:
        tests = json.loads(listed.output[listed.output.index("{") :])["tests"]
    except ValueError as error:
        raise Refusal("ctest does not list its tests:\n" + listed.output[-2000:]) from error
    programs = {}
    for test in tests:
        if not test["name"].startswith("e2e/") and str(copy.build_folder) in json.dumps(test.get("command", [])):
            program = _program_of(test)
            programs.setdefault(program.name, program)
        elif "command" not in test:
            raise Refusal(f"{test['name']} is no test that can be run")
    return list(programs.values())


def _program_of(test):
    properties = {entry["name"]: entry["value"] for entry in test["properties"]}
    command, name = test["command"], test["name"]
    is_gtest = any(part.startswith(GTEST_FILTER) for part in command)
    if not is_gtest and set(properties) - KNOWN_PROPERTIES:
        raise Refusal(f"{name} has properties that this program does not know: {set(properties) - KNOWN_PROPERTIES}")
    if is_gtest:
        command, name = [command[0], "--gtest_fail_fast", "--gtest_print_time=1", "--gtest_color=no"], Path(command[0]).name
    environment = dict(entry.split("=", 1) for entry in properties.get("ENVIRONMENT", []))
    return Program(
        name, command, properties["WORKING_DIRECTORY"], environment, is_gtest,
        properties.get("SKIP_RETURN_CODE"), bool(properties.get("WILL_FAIL", False)),
    )  # fmt: skip


class Bench:
    """One scratch copy, ready to try changes on."""

    def __init__(self, copy):
        self._copy = copy
        self._programs = []

    def prepare(self, root, paths):
        """Builds and tests the unchanged project; refuses when its tests fail. Returns the number of test programs."""
        self._copy.recover()
        self._copy.update(root, paths)
        self._copy.first_build()
        self._programs = programs_of(self._copy)
        if not any(program.is_gtest for program in self._programs):
            raise Refusal("the project has no tests")
        for program in self._programs:
            started = time.monotonic()
            failed, _ = program.run(self._copy.home)
            if failed:
                raise Refusal(f"the unchanged project fails its tests: {failed}")
            program.seconds = time.monotonic() - started
        self._programs.sort(key=lambda program: program.seconds)
        self._copy.keep()
        return len(self._programs)

    def try_change(self, change):
        """Builds the project with one change and says what its tests see of it."""
        applied = self._copy.apply(change)
        try:
            return self._verdict_on(change)
        finally:
            self._copy.restore(applied)

    def _verdict_on(self, change):
        own = [program for program in self._programs if program.name == floor_of(change.path) + "_tests"]
        others = [program for program in self._programs if program not in own]
        built = False
        for programs, target in ((own, own[0].name if own else ""), (others, "all")):
            if not target:
                continue
            state = self._copy.build(target)
            if state == "failed":
                return Verdict("does not build")
            built = built or state == "built"
            for program in programs if built else []:
                failed, timed_out = program.run(self._copy.home)
                if failed:
                    return Verdict("timed out" if timed_out else "seen", failed, program in own)
        return Verdict("survived" if built else "is in no program built here")


def floor_of(path):
    """The folder under src/ that a file lies in."""
    parts = path.split("/")
    return parts[1] if parts[0] == "src" and len(parts) > 2 else ""
