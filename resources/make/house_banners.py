# SPDX-License-Identifier: Apache-2.0
"""The four banners built into the framework, one GIF per row of house-banners.json."""

import importlib
import json
import re
from pathlib import Path

import gif

TABLE = Path(__file__).with_name("house-banners.json")
LIMIT = 55_000


def make(resources):
    for row in json.loads(TABLE.read_text(encoding="utf-8")):
        named = re.fullmatch(r"mac\.\d{6}\.mac-store", row["identifier"])
        if not named or not re.fullmatch(r"\d{10}", row["store_id"]):
            raise SystemExit(f"house-banners.json: {row}")
        banner = importlib.import_module(f"banners.{row['name'].lower()}")
        gif.encode(banner, resources / f"{row['identifier']}.gif", LIMIT)
