# SPDX-License-Identifier: MIT
"""The parts of tools/mutate.py: C++ as tokens, the changes, the scratch copies, the trials."""
