# SPDX-License-Identifier: MIT
"""The house: which folder of src/ may know which, and what the source does about it."""
