# SPDX-License-Identifier: MIT
"""What is to be seen on the screen, pixel by pixel."""

import subprocess

BLACK = bytes((0, 0, 0))
WHITE = bytes((255, 255, 255))
RED = bytes((255, 0, 0))
BLUE = bytes((0, 0, 255))


class Picture:
    """A rectangle of the screen as it was when it was taken."""

    def __init__(self, box):
        left, top, self.width, self.height = box
        taken = subprocess.run(
            ["import", "-silent", "-window", "root", "-crop", f"{self.width}x{self.height}+{left}+{top}", "+repage",
             "-depth", "8", "ppm:-"], check=True, stdout=subprocess.PIPE).stdout
        start = len(f"P6\n{self.width} {self.height}\n255\n")
        self.pixels = taken[start:]
        if len(self.pixels) != 3 * self.width * self.height:
            raise AssertionError(f"the rectangle {box} is not wholly on the screen")

    def __eq__(self, other):
        return (self.width, self.height, self.pixels) == (other.width, other.height, other.pixels)

    def places(self, color):
        """Where a colour stands, as (x, y) from the upper left corner."""
        line = 3 * self.width
        found = set()
        at = self.pixels.find(color)
        while at >= 0:
            if at % 3 == 0:
                found.add((at % line // 3, at // line))
            at = self.pixels.find(color, at + 1)
        return found

    def columns(self, color):
        """The columns x in which a colour stands anywhere."""
        return {x for x, _ in self.places(color)}


def keep_screen(path):
    subprocess.run(["import", "-silent", "-window", "root", path], check=True)
