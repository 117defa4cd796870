# SPDX-License-Identifier: MIT
"""What the CMake lists under src/ make of the source: one folder is one library, and links only what the table allows
its folder to include. Reads the few forms that these lists use, no CMake at large."""
import re
from dataclasses import dataclass, field

from .floors import CLI, QT, QT_CORE
from .includes import SUFFIXES, folder_of, read, source_files

COMMAND = re.compile(r"(\w+)\s*\(([^()]*)\)")
KEYWORDS = frozenset("PUBLIC PRIVATE INTERFACE STATIC SHARED OBJECT SOURCES KNOWS".split())
FLAGS = "tarvelint_options"
OUTSIDE = (
    (re.compile(r"Qt6::Core"), (QT_CORE, QT)),
    (re.compile(r"Qt6::\w+"), (QT,)),
    (re.compile(r"CLI11::CLI11"), (CLI,)),
)


@dataclass
class Target:
    name: str
    is_library: bool
    sources: list = field(default_factory=list)
    links: list = field(default_factory=list)

    def folders(self):
        return sorted({folder_of(source) for source in self.sources})


def commands(text):
    """The commands of a CMake list with their words."""
    without_comments = re.sub(r'("(?:\\.|[^"\\])*")|#[^\n]*', lambda found: found[1] or "", text)
    for command in COMMAND.finditer(without_comments):
        yield command[1].lower(), command[2].split()


def after(keyword, words):
    """The words of one list of a tarvelint_floor call."""
    taken = []
    current = None
    for word in words:
        if word in ("SOURCES", "KNOWS"):
            current = word
        elif current == keyword:
            taken.append(word)
    return taken


def read_list(folder, text, targets):
    """Adds the targets of one CMakeLists.txt, whose folder under src/ is `folder` ("." for src/ itself)."""
    def paths(words):
        return [word if folder == "." else f"{folder}/{word}" for word in words if word.endswith(SUFFIXES)]

    for name, words in commands(text):
        if not words or "${" in words[0]:
            continue
        if name == "tarvelint_floor":
            sources, links = paths(after("SOURCES", words)), after("KNOWS", words)
            targets["tarvelint_" + words[0]] = Target("tarvelint_" + words[0], True, sources, links)
        elif name in ("add_library", "add_executable"):
            targets[words[0]] = Target(words[0], name == "add_library", paths(words[1:]))
        elif name == "target_sources":
            targets[words[0]].sources += paths(words[1:])
        elif name == "target_link_libraries":
            targets[words[0]].links += [word for word in words[1:] if word not in KEYWORDS]


def read_targets(src):
    """The targets of all CMake lists under src/, by name."""
    targets = {}
    for path in sorted(src.rglob("CMakeLists.txt")):
        read_list(path.parent.relative_to(src).as_posix(), path.read_text(encoding="utf-8"), targets)
    return targets


def reached(name, targets):
    """The folders of all that a target links, directly or through others, its own included."""
    seen, waiting = set(), [name]
    while waiting:
        target = waiting.pop()
        if target not in seen and target in targets:
            seen.add(target)
            waiting += targets[target].links
    return {folder for target in seen for folder in targets[target].folders()}


def source_faults(src, targets):
    """Every .cpp is named once, and one folder is one library."""
    named = [source for target in targets.values() for source in target.sources]
    files = source_files(src)
    found = [f"src/{file} is named {named.count(file)} times in the CMake lists, not once"
             for file in files if named.count(file) > 1 or (file.endswith(".cpp") and file not in named)]
    found += [f"the CMake lists name src/{source}, which is not there" for source in sorted(set(named) - set(files))]
    libraries = {}
    for target in targets.values():
        folders = target.folders()
        if len(folders) > 1:
            found.append(f"{target.name} has sources of more than one folder: {', '.join(folders)}")
        if target.is_library:
            for folder in folders:
                libraries.setdefault(folder, []).append(target.name)
    found += [f"src/{folder}/ is cut into {len(names)} libraries: {', '.join(names)}"
              for folder, names in sorted(libraries.items()) if len(names) > 1]
    return found


def link_faults(target, floor, targets):
    """What a target links itself and its folder may not include."""
    for link in target.links:
        if link == FLAGS:
            continue
        if link in targets:
            # A library without sources is another name for what it links.
            folders = set(targets[link].folders()) or reached(link, targets)
            for folder in sorted(folders - {floor.folder, *floor.may_include}):
                yield f"{target.name} links {link}, but {floor.folder}/ may not include {folder}/"
            continue
        kinds = next((kinds for pattern, kinds in OUTSIDE if pattern.fullmatch(link)), ())
        if not set(kinds) & set(floor.outside):
            yield f"{target.name} links {link}, which {floor.folder}/ may not use"


def missing_links(src, targets):
    """Folders that a target's files include without its linking their library."""
    target_of = {source: target for target in targets.values() for source in target.sources}
    library_of = {folder: target for target in targets.values() if target.is_library for folder in target.folders()}
    found = set()
    for include in read(src):
        target = target_of.get(include.file) or library_of.get(folder_of(include.file))
        if target and include.target and folder_of(include.target) not in reached(target.name, targets):
            found.add(f"{target.name} includes {folder_of(include.target)}/ and does not link its library")
    return sorted(found)


def faults(src, table):
    """All that the CMake lists under src/ do against the table."""
    targets = read_targets(src)
    floors = {floor.folder: floor for floor in table}
    found = source_faults(src, targets)
    for target in targets.values():
        for folder in target.folders():
            if folder in floors:
                found += link_faults(target, floors[folder], targets)
    return found + missing_links(src, targets)
