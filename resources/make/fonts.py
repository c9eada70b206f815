# SPDX-License-Identifier: Apache-2.0
"""The typefaces in use, and a check that none of them is silently replaced."""

import subprocess

INTER = "Inter"
INTER_SEMIBOLD = "Inter Semi-Bold"
DISPLAY_BOLD = "Inter Display Bold"
MANROPE_BOLD = "Manrope Bold"
MANROPE_HEAVY = "Manrope Ultra-Bold"
SORA_SEMIBOLD = "Sora Semi-Bold"
SPARTAN_BOLD = "League Spartan Bold"
SPARTAN_HEAVY = "League Spartan Ultra-Bold"
QUICKSAND = "Quicksand Medium"
QUICKSAND_BOLD = "Quicksand Bold"
LOBSTER_BOLD = "Lobster Two Bold"
GARAMOND = "EB Garamond 12"
GARAMOND_ITALIC = "EB Garamond 12 Italic"

FAMILIES = ("Inter", "Inter Display", "Manrope", "Sora", "League Spartan", "Quicksand", "Lobster Two",
            "EB Garamond 12")


def check():
    known = subprocess.run(["fc-list", ":", "family"], check=True, capture_output=True, text=True).stdout
    names = {name.strip() for line in known.splitlines() for name in line.split(",")}
    missing = [family for family in FAMILIES if family not in names]
    if missing:
        raise SystemExit(f"fonts missing: {', '.join(missing)}; the needed packages are named in make-media")
