# SPDX-License-Identifier: Apache-2.0
"""String tables: one UTF-16 Localizable.strings per language, from string-tables.json."""

import json
from pathlib import Path

SOURCE = Path(__file__).with_name("string-tables.json")
LONGEST = {
    "ApplicationWillBeLaunchedTextFirst": 34,
    "ApplicationWillBeLaunchedTextSecond": 48,
    "RemoveAdsText": 20,
    "AdMarkText": 10,
    # Read aloud, never shown.
    "PlayAnimationText": 30,
    "StopAnimationText": 30,
    "AdvertisementText": 20,
    "CloseText": 20,
    "MuteText": 20,
    "OpenAdText": 40,
    "CountdownText": 25,
    "CountdownStartedText": 60,
    "CanBeClosedText": 45,
}


def check(language, table):
    """The framework's reader knows no escapes, so such texts are refused here."""
    if set(table) != set(LONGEST):
        raise SystemExit(f"{language}: keys must be {sorted(LONGEST)}")
    for key, value in table.items():
        if any(c in value for c in '"\\\r\n') or not value.strip():
            raise SystemExit(f"{language}: {key} holds a character the reader cannot take")
        if len(value) > LONGEST[key]:
            raise SystemExit(f"{language}: {key} is too long for the start screen")


def make(resources):
    tables = json.loads(SOURCE.read_text(encoding="utf-8"))
    for language, table in tables.items():
        check(language, table)
        text = "".join(f'"{key}" = "{value}";\n' for key, value in table.items())
        folder = resources / f"{language}.lproj"
        folder.mkdir(parents=True, exist_ok=True)
        # A fixed byte order keeps the files the same on every machine.
        (folder / "Localizable.strings").write_bytes(b"\xff\xfe" + text.encode("utf-16-le"))
