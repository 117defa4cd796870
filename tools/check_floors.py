#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Holds every include of src/, and what its CMake lists make and link, against the floors' table
(tools/house/floors.py). Says each fault on a line of its own; exit status 1 when there is one."""
import sys
from pathlib import Path

sys.dont_write_bytecode = True

from house import floors, includes, libraries  # noqa: E402

SRC = Path(__file__).resolve().parent.parent / "src"


def main():
    read = includes.read(SRC)
    found = includes.faults(SRC, floors.TABLE) + libraries.faults(SRC, floors.TABLE)
    print(*found, sep="\n", end="\n" if found else "")
    print(f"{len(read)} includes of {len(includes.source_files(SRC))} files, {len(found)} faults")
    # Nothing read is nothing checked.
    return 1 if found or not read else 0


if __name__ == "__main__":
    sys.exit(main())
