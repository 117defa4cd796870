# SPDX-License-Identifier: MIT
"""The house as a picture (SVG): a box for each folder, floor upon floor, and who includes whom. It shows nothing that
changes from day to day, so it is out of date only when the house was rebuilt."""
import textwrap
from xml.sax.saxutils import escape

from .floors import rows
from .includes import folder_of, outside_kinds, read

# Where each folder stands on its floor: left and right end, in hundredths of the width. So chosen that every arrow of
# today's house runs straight down through a gap.
PLACES = {
    "app/qt": (0, 100),
    "app": (0, 35), "dialogs": (37.5, 57.5), "batch": (60, 89),
    "forms": (20.5, 79.5),
    "edit": (0, 18), "baseline": (20.5, 38.5), "equation": (41, 59), "view": (61.5, 79.5), "machine": (82, 100),
    "window": (0, 100),
    "data": (0, 100),
}

MARGIN, WIDTH = 40, 960
TOP, GAP = 104, 44
HEAD, LINE, FOOT = 28, 16, 10
LETTER = 6.5  # a wide estimate of one letter's width in the small print
INDENT = 14
ARROW_MARGIN = 14

STYLE = """
  text { font-family: "DejaVu Sans", Verdana, "Segoe UI", Helvetica, sans-serif; fill: #24323b; }
  .paper { fill: #fbfaf6; }
  .title { font-size: 23px; font-weight: bold; }
  .said { font-size: 13px; fill: #55646e; }
  .name { font-size: 16px; font-weight: bold; }
  .work, .also, .uses { font-size: 12px; }
  .also { fill: #55646e; }
  .uses { font-weight: bold; fill: #2f639a; }
  .box { stroke-width: 1.5; }
  .core { fill: #e3f0e1; stroke: #5b8f62; }
  .outer { fill: #e2ecf7; stroke: #5481ad; }
  .arrow { fill: none; stroke: #68767f; stroke-width: 1.8; }
  .head { fill: #68767f; }
  .roof { fill: #f3dfcc; stroke: #b27a4b; stroke-width: 1.5; stroke-linejoin: round; }
  @media (prefers-color-scheme: dark) {
    text { fill: #e4e9ec; }
    .paper { fill: #171c20; }
    .said, .also { fill: #a7b4bc; }
    .core { fill: #203326; stroke: #6ba574; }
    .outer { fill: #1d2d40; stroke: #6b9ccc; }
    .uses { fill: #93c0ee; }
    .arrow { stroke: #95a4ae; }
    .head { fill: #95a4ae; }
    .roof { fill: #3d2c1f; stroke: #c08a5c; }
  }
"""


def known_folders(src):
    """Which other folders each folder's files include, by folder."""
    known = {}
    for include in read(src):
        if include.target is not None:
            known.setdefault(folder_of(include.file), set()).add(folder_of(include.target))
    return {folder: below - {folder} for folder, below in known.items()}


def outside_used(src):
    """What of the outside each folder's files use beside the standard library, by folder."""
    used = {}
    for include in read(src):
        kinds = outside_kinds(include) if include.target is None else None
        if kinds:
            used.setdefault(folder_of(include.file), set()).add(kinds)
    return used


def without_detours(known):
    """The includes that are worth an arrow: those that no other arrows lead to as well."""
    def reaches(start, end):
        waiting, seen = [start], set()
        while waiting:
            folder = waiting.pop()
            if folder == end:
                return True
            if folder not in seen:
                seen.add(folder)
                waiting += known.get(folder, ())
        return False

    return {folder: {below for below in belows
                     if not any(reaches(other, below) for other in belows - {below})}
            for folder, belows in known.items()}


class Drawing:
    def __init__(self, src, table, places):
        self.floors = {floor.folder: floor for floor in table}
        self.places = places
        homeless = sorted(self.floors.keys() ^ places.keys())
        if homeless:
            raise ValueError(f"PLACES in tools/house/picture.py and the floors' table differ in: {', '.join(homeless)}")
        # From the top down, and from left to right.
        self.rows = [sorted(folders, key=places.get) for folders in reversed(rows(table))]
        self.order = [folder for folders in self.rows for folder in folders]
        self.row_of = {folder: row for row, folders in enumerate(self.rows) for folder in folders}
        self.known = known_folders(src)
        self.used = outside_used(src)
        self.arrows = without_detours(self.known)
        self.lines = {folder: self.lines_of(folder) for folder in self.floors}
        self.heights = [HEAD + LINE * max(len(self.lines[folder]) for folder in folders) + FOOT
                        for folders in self.rows]

    def span(self, folder):
        return tuple(MARGIN + WIDTH * end / 100 for end in self.places[folder])

    def top(self, row):
        return TOP + sum(self.heights[:row]) + GAP * row

    def lines_of(self, folder):
        """The small print of a folder: looks and texts."""
        left, right = self.span(folder)
        floor = self.floors[folder]
        known, arrows = self.known.get(folder, set()), self.arrows.get(folder, set())
        used = [name for name in floor.outside if any(name in kinds for kinds in self.used.get(folder, ()))]
        said = [("work", "", [floor.work]), ("also", "also ", [one for one in self.order if one in known - arrows]),
                ("uses", "uses ", used)]
        return [(look, line) for look, start, names in said if names
                for line in textwrap.wrap(start + ", ".join(names), int((right - left - 2 * INDENT) / LETTER))]

    def place_of_arrow(self, above, below):
        """Where an arrow can run straight down between two folders: the middle of the widest gap; None without one."""
        left = max(self.span(above)[0], self.span(below)[0]) + ARROW_MARGIN
        right = min(self.span(above)[1], self.span(below)[1]) - ARROW_MARGIN
        between = sorted(self.span(folder) for folder in self.floors
                         if self.row_of[above] < self.row_of[folder] < self.row_of[below])
        gaps, start = [], left
        for box_left, box_right in between:
            gaps.append((start, min(right, box_left - ARROW_MARGIN / 2)))
            start = max(start, box_right + ARROW_MARGIN / 2)
        gaps.append((start, right))
        start, end = max(gaps, key=lambda gap: gap[1] - gap[0])
        return (start + end) / 2 if end > start else None

    def arrow(self, above, below):
        row = self.row_of[above]
        start, end = self.top(row) + self.heights[row], self.top(self.row_of[below]) - 1
        x = self.place_of_arrow(above, below)
        if x is None:  # No straight way: slanting, behind the boxes.
            from_x, to_x = sum(self.span(above)) / 2, sum(self.span(below)) / 2
        else:
            from_x = to_x = x
        return [f'<path class="arrow" d="M{from_x:.1f} {start}L{to_x:.1f} {end - 8}"/>',
                f'<path class="head" d="M{to_x:.1f} {end}l-5.5 -10h11z"/>']

    def box(self, folder):
        left, right = self.span(folder)
        row = self.row_of[folder]
        top, height = self.top(row), self.heights[row]
        look = "outer" if self.floors[folder].outside else "core"
        x = f"{left + INDENT:.1f}"
        return [f'<rect class="box {look}" x="{left:.1f}" y="{top}" width="{right - left:.1f}" height="{height}" '
                'rx="7"/>',
                f'<text class="name" x="{x}" y="{top + HEAD - 4}">{escape(folder)}/</text>',
                *(f'<text class="{look}" x="{x}" y="{top + HEAD + LINE * number - 1}">{escape(line)}</text>'
                  for number, (look, line) in enumerate(self.lines[folder], 1))]

    def roof(self):
        left, right, middle, top = MARGIN - 18, MARGIN + WIDTH + 18, MARGIN + WIDTH / 2, TOP - 12
        return [f'<path class="roof" d="M{left} {top}L{middle:.0f} 18L{right} {top}Z"/>',
                f'<text class="title" x="{middle:.0f}" y="{top - 18}" text-anchor="middle">'
                'The floors of Tarvelint</text>']

    def legend(self, top):
        return [f'<rect class="box core" x="{MARGIN}" y="{top}" width="16" height="16" rx="3"/>',
                f'<text class="said" x="{MARGIN + 24}" y="{top + 13}">the core: nothing but the C++ standard library'
                '</text>',
                f'<rect class="box outer" x="{MARGIN + 385}" y="{top}" width="16" height="16" rx="3"/>',
                f'<text class="said" x="{MARGIN + 409}" y="{top + 13}">outside the core: uses more</text>',
                f'<text class="said" x="{MARGIN}" y="{top + 38}">An arrow means "includes"; "also" names what a folder '
                'includes besides, where its arrows lead in the end.</text>']

    def svg(self):
        bottom = self.top(len(self.rows)) - GAP
        height, width = bottom + 82, WIDTH + 2 * MARGIN
        drawn = [f'<rect class="paper" width="{width}" height="{height}" rx="10"/>', *self.roof()]
        for above in self.order:
            for below in sorted(self.arrows.get(above, ())):
                drawn += self.arrow(above, below)
        for folder in self.order:
            drawn += self.box(folder)
        drawn += self.legend(bottom + 26)
        said = "; ".join(f"{folder}/ includes {', '.join(sorted(self.known.get(folder, ()))) or 'no other'}"
                         for folder in self.order)
        return "\n".join([
            '<?xml version="1.0" encoding="UTF-8"?>',
            '<!-- SPDX-License-Identifier: MIT -->',
            '<!-- Drawn by tools/draw_house.py from the includes of src/. -->',
            f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" viewBox="0 0 {width} {height}" '
            'role="img" aria-labelledby="title desc">',
            '<title id="title">Which folder of src/ includes which</title>',
            f'<desc id="desc">{escape(said)}.</desc>',
            f"<style>{STYLE}</style>", *drawn, "</svg>", ""])


def draw(src, table, places=None):
    """The picture of the house whose source is under src/, as the text of an SVG file."""
    return Drawing(src, table, places or PLACES).svg()
