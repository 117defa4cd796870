#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Draws the house from the includes of src/ into docs/house.svg; with --check it only says, by its exit status,
whether that is what the picture shows already."""
import argparse
import sys
from pathlib import Path

sys.dont_write_bytecode = True

from house import floors, picture  # noqa: E402

ROOT = Path(__file__).resolve().parent.parent
PICTURE = ROOT / "docs" / "house.svg"


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--check", action="store_true", help="write nothing; fail when the picture is out of date")
    arguments = parser.parse_args()
    drawn = picture.draw(ROOT / "src", floors.TABLE).encode("utf-8")
    if not arguments.check:
        PICTURE.write_bytes(drawn)
        return 0
    if PICTURE.exists() and PICTURE.read_bytes() == drawn:
        print("docs/house.svg shows the house as it is")
        return 0
    print("docs/house.svg is out of date. See who includes whom now, then draw it anew: tools/draw_house.py",
          file=sys.stderr)
    return 1


if __name__ == "__main__":
    sys.exit(main())
