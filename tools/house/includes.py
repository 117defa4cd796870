# SPDX-License-Identifier: MIT
"""What the source includes, and whether the floors' table allows it. A header compiles from any floor, and the linker
sees nothing of one that has no code of its own: so every include is read."""
import os
import re
from dataclasses import dataclass
from pathlib import PurePosixPath

from .floors import CLI, POSIX, QT, QT_CORE

SUFFIXES = (".cpp", ".h")

STANDARD = frozenset("""
    algorithm any array atomic barrier bit bitset cassert cctype cerrno cfenv cfloat charconv chrono cinttypes climits
    clocale cmath codecvt compare complex concepts condition_variable coroutine csetjmp csignal cstdarg cstddef cstdint
    cstdio cstdlib cstring ctime cuchar cwchar cwctype deque exception execution filesystem format forward_list fstream
    functional future initializer_list iomanip ios iosfwd iostream istream iterator latch limits list locale map memory
    memory_resource mutex new numbers numeric optional ostream queue random ranges ratio regex scoped_allocator
    semaphore set shared_mutex source_location span sstream stack stdexcept stop_token streambuf string string_view
    strstream syncstream system_error thread tuple type_traits typeindex typeinfo unordered_map unordered_set utility
    valarray variant vector version""".split())

# A bare Qt name such as QLocale counts as Qt Core: the compiler finds only those of the Qt libraries that are linked,
# and the links are checked too.
OUTSIDE = (
    (re.compile(r"Q\w+|QtCore/\w+"), (QT_CORE, QT)),
    (re.compile(r"Qt\w+(/\w+)?"), (QT,)),
    (re.compile(r"(dirent|dlfcn|fcntl|poll|pthread|pwd|signal|termios|unistd|sys/\w+)\.h"), (POSIX,)),
    (re.compile(r"CLI/\w+\.hpp"), (CLI,)),
)

INCLUDE = re.compile(r"(?:\s|/\*.*?\*/)*#(?:\s|/\*.*?\*/)*(?:include|include_next|import)\b\s*(.*)")
NAMED = re.compile(r'(?:"([^"]+)"|<([^>]+)>)')


@dataclass(frozen=True)
class Include:
    """One include: of a file of src/ (`target` is its path there) or of something outside (`target` is None)."""
    file: str
    line: int
    name: str
    target: str | None

    def __str__(self):
        return f"src/{self.file}:{self.line}"


def folder_of(path):
    return str(PurePosixPath(path).parent)


def source_files(src):
    """The C++ files under src/, by their path there."""
    return sorted(path.relative_to(src).as_posix() for path in src.rglob("*") if path.suffix in SUFFIXES)


def find(src, file, name, quoted):
    """The file of src/ that an include means, however it is spelled: from its own folder or from src/."""
    for start in ([src / folder_of(file)] if quoted else []) + [src]:
        path = os.path.normpath(start / name)
        if os.path.isfile(path) and os.path.relpath(path, src).split(os.sep)[0] != os.pardir:
            return PurePosixPath(os.path.relpath(path, src)).as_posix()
    return None


def read(src):
    """Every include of every C++ file under src/."""
    found = []
    for file in source_files(src):
        # Only line feeds end lines, as for the compiler.
        for number, line in enumerate((src / file).read_text(encoding="utf-8").split("\n"), 1):
            directive = INCLUDE.match(line)
            if not directive:
                continue
            named = NAMED.match(directive[1])
            name = named[0] if named else directive[1]
            target = find(src, file, named[1] or named[2], named[1] is not None) if named else None
            found.append(Include(file, number, name, target))
    return found


def outside_kinds(include):
    """Which kinds of the table allow something from outside; empty for the standard library, None for the unknown."""
    if not re.fullmatch(r"<[^>]+>", include.name):
        return None
    name = include.name[1:-1]
    if name in STANDARD:
        return ()
    return next((kinds for pattern, kinds in OUTSIDE if pattern.fullmatch(name)), None)


def fault(include, floor):
    """What the table has against an include of a file of `floor`; None when nothing."""
    if include.target is not None:
        folder = folder_of(include.target)
        if folder not in (floor.folder, *floor.may_include):
            return f"{include}: {floor.folder}/ may not include {folder}/ ({include.name})"
        return None
    kinds = outside_kinds(include)
    if kinds is None:
        return f"{include}: {include.name} is no file of src/, and nothing from outside that the table knows"
    if kinds and not set(kinds) & set(floor.outside):
        return f"{include}: {floor.folder}/ may not use {kinds[0]} ({include.name})"
    return None


def faults(src, table):
    """All that the source does against the table, and all that the table does not say."""
    floors = {floor.folder: floor for floor in table}
    folders = {folder_of(file) for file in source_files(src)}
    found = [f"src/{folder}/ has no line in the floors' table" for folder in sorted(folders - floors.keys())]
    found += [f"the floors' table has a line for src/{folder}/, where no C++ file is"
              for folder in sorted(floors.keys() - folders)]
    for include in read(src):
        floor = floors.get(folder_of(include.file))
        said = floor and fault(include, floor)
        if said:
            found.append(said)
    return found
