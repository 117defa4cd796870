# SPDX-License-Identifier: MIT
"""The house: which folder of src/ may know which, what the source does about it, and its picture."""
