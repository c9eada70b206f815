# SPDX-License-Identifier: Apache-2.0
"""The sample campaign's films and the still picture shown after each."""

import importlib

from sample_ads import VIDEOS
from videos import film

LIMIT = 1_500_000


def make(media):
    media.mkdir(parents=True, exist_ok=True)
    for name, *_ in VIDEOS:
        module = importlib.import_module(f"videos.{name.lower()}")
        film.still(module, media / f"{name.lower()}-still.jpg")
        film.encode(module, media / f"{name.lower()}-landscape.mp4", LIMIT)
