# SPDX-License-Identifier: MIT
"""What the rules make of one probe's readings, told once more for the end-to-end tests and sharing nothing with the program."""

MISSING = 99999.0


def flux(reading, base):
    """Granier's equation on a reading; one above its baseline counts as no flow."""
    return 119 * (base / min(reading, base) - 1) ** 1.23


class Probe:
    """The three layers of a column, and its baseline points."""

    def __init__(self, readings):
        self.readings = list(readings)
        self.base = [MISSING] * len(readings)
        self.flux = [MISSING] * len(readings)
        self.points = set()

    # a baseline laid click by click, with the user's equation

    def convert_stretch(self, first, last):
        step = (self.readings[first] - self.readings[last]) / (last - first)
        base = self.readings[first]
        for row in range(first, last + 1):
            self.base[row] = base
            self.flux[row] = flux(self.readings[row], base)
            base -= step

    # points, with the fixed equation

    def segment(self, left, right):
        if MISSING in (self.readings[left], self.readings[right]):
            return
        slope = (self.readings[right] - self.readings[left]) / (right - left)
        base = self.readings[left]
        for row in range(left, right + 1):
            reading = self.readings[row]
            if reading == MISSING:
                continue
            self.base[row] = base
            self.flux[row] = flux(reading, base) if reading > 0 and base > 0 else MISSING
            base += slope

    def clear(self, rows):
        for row in rows:
            self.base[row] = 0.0
            self.flux[row] = MISSING

    def _beside(self, row):
        return (max((p for p in self.points if p < row), default=None),
                min((p for p in self.points if p > row), default=None))

    def set_point(self, row, taken_from=None):
        self.points.discard(taken_from)
        self.points.add(row)
        left, right = self._beside(row)
        self.segment(left, row) if left is not None else self.clear(range(row))
        self.segment(row, right) if right is not None else self.clear(range(row + 1, len(self.readings)))

    def remove_point(self, row):
        self.points.discard(row)
        left, right = self._beside(row)
        if left is not None and right is not None:
            self.segment(left, right)
        elif left is not None:
            self.clear(range(left + 1, len(self.readings)))
        else:
            self.clear(range(right if right is not None else len(self.readings)))

    def drop_points(self, first, last):
        inside = sorted(p for p in self.points if first <= p <= last)
        for row in inside or [first]:
            self.remove_point(row)

    # tools

    def interpolate(self, first, last):
        step = (self.readings[last] - self.readings[first]) / (last - first)
        value = self.readings[first]
        for row in range(first + 1, last + 1):
            value += step
            self.readings[row] = value
        self.drop_points(first, last)

    def delete(self, first, last):
        for row in range(first, last + 1):
            self.readings[row] = self.base[row] = self.flux[row] = MISSING
        self.drop_points(last, min(2 * last - first, len(self.readings) - 1))

    def edit(self, row, value):
        """Gives the cells of that row as they were."""
        before = self.readings[row], self.base[row], self.flux[row]
        self.readings[row] = value
        self.set_point(row) if row in self.points else self.remove_point(row)
        return before

    def undo(self, row, cells):
        self.readings[row], self.base[row], self.flux[row] = cells
