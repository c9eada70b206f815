# SPDX-License-Identifier: Apache-2.0
"""The sample campaign the development ad server hands out: its banners and campaign.json."""

import importlib
import json

import gif

LIMIT = 250_000
STORE = "https://apps.velmora-store.example/app/id"

# name, banner_id, store id, priority, what the banner says
BANNERS = (
    ("Kartovia", 4101, "1645302987", 5, "Kartovia – Plan less, wander more"),
    ("Halcorra", 4102, "1652749318", 4, "Halcorra – Sleep comes in waves"),
    ("Saffrello", 4103, "1668015472", 3, "Saffrello – That’s dinner"),
    ("Glaswyn", 4104, "1671936854", 2, "Glaswyn – Grey day? Not anymore"),
)

# name, banner_id, store id, priority, title, votes, rating
VIDEOS = (
    ("Kartovia", 7201, "1645302987", 3, "Kartovia – Trip Planner", 18342, 4.7),
    ("Halcorra", 7202, "1652749318", 2, "Halcorra – Sleep Sounds", 9615, 4.8),
)

# What the store's look-up service calls the applications, by store id.
LOOKUP = {
    "1645302987": "Kartovia - Trip Planner",
    "1652749318": "Halcorra - Sleep Sounds",
    "1668015472": "Saffrello - Recipes",
    "1671936854": "Glaswyn - Weather",
}
UPDATED = "2026-09-14T08:00:00Z"


def banner_ad(name, banner_id, store_id, priority, title):
    return {
        "banner_id": banner_id,
        "name": title,
        "priority": priority,
        "market_url": STORE + store_id,
        "image_728x90": f"/media/{name.lower()}-728x90.gif",
        "updated": UPDATED,
    }


def video_ad(name, banner_id, store_id, priority, title, votes, rating):
    return {
        "banner_id": banner_id,
        "name": f"{name} launch film",
        "VLMAppName": name,
        "title": title,
        "votes": votes,
        "Rating": rating,
        "priority": priority,
        "market_url": STORE + store_id,
        "image": f"/media/{name.lower()}-still.jpg",
        "video_file_landscape": f"/media/{name.lower()}-landscape.mp4",
        "updated": UPDATED,
    }


def make(sample):
    (sample / "media").mkdir(parents=True, exist_ok=True)
    campaign = {
        "standard": [banner_ad(*row) for row in BANNERS],
        "video": [video_ad(*row) for row in VIDEOS],
        "lookup": LOOKUP,
    }
    text = json.dumps(campaign, indent=2, ensure_ascii=False) + "\n"
    (sample / "campaign.json").write_text(text, encoding="utf-8")
    for name, *_ in BANNERS:
        banner = importlib.import_module(f"banners.{name.lower()}")
        gif.encode(banner, sample / "media" / f"{name.lower()}-728x90.gif", LIMIT)
