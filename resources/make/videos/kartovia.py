# SPDX-License-Identifier: Apache-2.0
"""Kartovia's film: three days off, no plan, and a line that finds its own way."""

import math

from banners import kartovia as brand
from canvas import (blob, clamp, disc, ease, ease_out, fill_rect, lerp, overshoot, pill, polyline, saved, soft_shadow,
                    source, span, squircle, stroke, text, text_width)
from fonts import INTER, INTER_SEMIBOLD, SPARTAN_BOLD, SPARTAN_HEAVY
from videos import sound as synth
from videos.film import stars, window, words

SECONDS, QUALITY, GRAIN = 7.5, 19, 0

SAND, INK, CORAL, TEAL, LAND, MINT = "#fff1d8", "#083d44", "#ff7a59", "#0b6e72", "#15827f", "#58c2b4"


# --- scene one: the calendar --------------------------------------------------

def calendar(ctx, x, y, t):
    rise = overshoot(span(t, 0.05, 0.55), 1.2)
    with saved(ctx):
        ctx.translate(x, y + 90 * (1 - rise))
        ctx.rotate(lerp(-0.16, -0.07, rise))
        soft_shadow(ctx, -150, -104, 300, 232, 22, 26, INK, 0.22)
        fill_rect(ctx, "#ffffff", -150, -118, 300, 236, 22)
        with saved(ctx):
            ctx.rectangle(-150, -118, 300, 54)
            ctx.clip()
            fill_rect(ctx, CORAL, -150, -118, 300, 90, 22)
        for dx in (-84, 84):
            fill_rect(ctx, INK, dx - 5, -132, 10, 30, 5)
        text(ctx, "OCTOBER", 0, -82, SPARTAN_BOLD, 22, "#ffffff", 0.5, tracking=0.14)
        for row in range(3):
            for column in range(7):
                day = row * 7 + column + 5
                cx, cy = -117 + column * 39, -28 + row * 52
                free = row == 1 and column >= 4
                if free:
                    pop = overshoot(span(t, 0.55 + (column - 4) * 0.16, 0.9 + (column - 4) * 0.16))
                    disc(ctx, MINT, cx, cy, 19 * pop)
                text(ctx, str(day), cx, cy + 6, INTER_SEMIBOLD, 16, INK if free or column < 5 else "#a9b8b6", 0.5)


def scene_calendar(ctx, t):
    source(ctx, SAND)
    ctx.paint()
    disc(ctx, "#ffe6bd", 720, 290, 250)
    words(ctx, "Three days", 92, 262, SPARTAN_HEAVY, 78, INK, t, 0.15)
    words(ctx, "off.", 92, 338, SPARTAN_HEAVY, 78, CORAL, t, 0.5)
    calendar(ctx, 712, 284, t)


# --- scene two: the map -------------------------------------------------------

WAY = ((120, 316), (270, 352), (420, 300), (560, 330), (690, 306), (742, 216), (664, 146), (590, 214), (646, 316),
       (800, 366), (960, 318), (1090, 226), (1230, 262), (1340, 338), (1490, 300))


def smooth_path(points, steps=600):
    """Points at equal distances along a smooth curve through the given ones."""
    dense = []
    for i in range(len(points) - 1):
        p0, p1, p2, p3 = (points[min(max(i + k, 0), len(points) - 1)] for k in (-1, 0, 1, 2))
        for step in range(60):
            u = step / 60
            dense.append(tuple(
                0.5 * (2 * b + (c - a) * u + (2 * a - 5 * b + 4 * c - d) * u * u + (3 * b - a - 3 * c + d) * u ** 3)
                for a, b, c, d in zip(p0, p1, p2, p3)))
    dense.append(points[-1])
    lengths = [0.0]
    for p, q in zip(dense, dense[1:]):
        lengths.append(lengths[-1] + math.dist(p, q))
    even, at = [], 0
    for step in range(steps + 1):
        while at < len(dense) - 2 and lengths[at + 1] < lengths[-1] * step / steps:
            at += 1
        part = (lengths[-1] * step / steps - lengths[at]) / (lengths[at + 1] - lengths[at])
        even.append(tuple(lerp(a, b, part) for a, b in zip(dense[at], dense[at + 1])))
    return even


PATH = smooth_path(WAY)
# how far along the line, name, day, picture, place, size
STOPS = ((0.10, "Lake Orsa", "Day 1", brand.mountain, (318, 226), 4.2),
         (0.60, "Tiled Bay", "Day 2", brand.boat, (866, 236), 3.8),
         (0.82, "Pine camp", "Day 3", brand.tent, (1196, 128), 4.0))


def terrain(ctx):
    source(ctx, TEAL)
    ctx.paint()
    for points in (
        [(-200, 330), (60, 380), (300, 470), (520, 420), (640, 620), (-200, 700)],
        [(150, -120), (520, -90), (700, 40), (560, 150), (330, 90), (190, 60)],
        [(700, 450), (980, 400), (1220, 450), (1400, 390), (1700, 480), (1750, 700), (700, 700)],
        [(980, -100), (1320, -120), (1500, 40), (1330, 130), (1130, 60)],
        [(1560, 100), (1800, 60), (1900, 300), (1700, 330)],
    ):
        for width, colour in ((34, "#0e7375"), (14, "#107a79")):
            blob(ctx, points)
            stroke(ctx, colour, width)
        blob(ctx, points)
        source(ctx, LAND)
        ctx.fill()


def label(ctx, name, day, x, y, s):
    if s <= 0:
        return
    with saved(ctx):
        ctx.translate(x, y)
        ctx.scale(s, s)
        width = max(text_width(ctx, name, SPARTAN_BOLD, 21), 60) + 34
        soft_shadow(ctx, -width / 2, -25, width, 54, 14, 14, "#03272c", 0.3)
        fill_rect(ctx, "#ffffff", -width / 2, -29, width, 56, 14)
        text(ctx, day.upper(), 0, -8, INTER_SEMIBOLD, 12, CORAL, 0.5, tracking=0.1)
        text(ctx, name, 0, 15, SPARTAN_BOLD, 21, INK, 0.5)


def traveller(ctx, amount):
    index = min(len(PATH) - 2, int(amount * 600))
    (x0, y0), (x1, y1) = PATH[max(0, index - 4)], PATH[min(600, index + 4)]
    with saved(ctx):
        ctx.translate(*PATH[index])
        ctx.rotate(math.atan2(y1 - y0, x1 - x0))
        soft_shadow(ctx, -16, -10, 32, 28, 14, 10, "#03272c", 0.3, 8)
        polyline(ctx, [(26, 0), (-20, -18), (-11, 0), (-20, 18)])
        ctx.close_path()
        source(ctx, "#ffffff")
        ctx.fill()
        polyline(ctx, [(26, 0), (-20, 18), (-11, 0)])
        ctx.close_path()
        source(ctx, "#ffd9c9")
        ctx.fill()


def scene_map(ctx, t):
    drawn = 0.25 * span(t, 1.55, 4.3) + 0.75 * ease(span(t, 1.55, 4.3))
    look = clamp(lerp(-0.02, 1.0, drawn))
    with saved(ctx):
        ctx.translate(-lerp(0, 730, ease(look)), 0)
        terrain(ctx)
        count = max(2, int(drawn * 600))
        polyline(ctx, PATH[:count])
        stroke(ctx, SAND, 7, dash=[0.1, 16])
        disc(ctx, SAND, *PATH[0], 12)
        disc(ctx, INK, *PATH[0], 5)
        for at, name, day, picture, (x, y), scale in STOPS:
            s = overshoot((drawn - at) / 0.1) if drawn > at else 0
            if s > 0:
                picture(ctx, x, y, scale * s)
                label(ctx, name, day, x, y + 40, s)
        traveller(ctx, drawn)
    words(ctx, "No plan?", 84, 452, SPARTAN_HEAVY, 60, "#ffffff", t, 1.75, 2.95)
    words(ctx, "Good.", 84, 452, SPARTAN_HEAVY, 60, "#ffffff", t, 3.15, 4.2)


# --- scene three: the application ---------------------------------------------

ROWS = (("Lake Orsa", "Walk the north shore, swim at noon", "#2aa198", brand.mountain),
        ("Tiled Bay", "Ferry at 10:20, lunch on the quay", "#f2a541", brand.boat),
        ("Pine camp", "Fire, stars, nothing else", "#6c8f3c", brand.tent))


def itinerary(ctx, x, y, t, shade="#02181b"):
    window(ctx, x, y, 476, 372, "#fffaf1", "#f3e6cc", "#d9c7a3", shade)
    text(ctx, "Long weekend", x + 238, y + 24, INTER_SEMIBOLD, 13, "#6b6350", 0.5)
    for i, (name, note, colour, picture) in enumerate(ROWS):
        slide = ease_out(span(t, 4.6 + i * 0.16, 5.1 + i * 0.16))
        with saved(ctx):
            ctx.translate(x + 24 + 30 * (1 - slide), y + 58 + i * 100)
            if slide <= 0:
                continue
            fill_rect(ctx, "#ffffff", 0, 0, 428, 86, 14, slide)
            with saved(ctx):
                squircle(ctx, 12, 12, 62)
                ctx.clip()
                source(ctx, colour, slide)
                ctx.paint()
                picture(ctx, 41, 58, 1.55 * slide)
            text(ctx, name, 90, 40, SPARTAN_BOLD, 22, INK, alpha=slide)
            text(ctx, note, 90, 62, INTER, 13.5, "#6d7f7e", alpha=slide)
            tick = span(t, 5.05 + i * 0.17, 5.3 + i * 0.17)
            disc(ctx, "#e8efe9", 396, 43, 14 * slide)
            disc(ctx, CORAL, 396, 43, 14 * overshoot(tick))
            if tick > 0.3:
                polyline(ctx, [(390, 43), (394.5, 47.5), (402.5, 38.5)])
                stroke(ctx, "#ffffff", 2.8)


def scene_application(ctx, t):
    come = ease_out(span(t, 4.25, 4.95), 4)
    if come <= 0:
        return
    source(ctx, "#05383d", 0.68 * come)
    ctx.paint()
    words(ctx, "It draws", 84, 434, SPARTAN_HEAVY, 58, "#ffffff", t, 4.5)
    words(ctx, "the way.", 84, 494, SPARTAN_HEAVY, 58, "#ffffff", t, 4.68)
    itinerary(ctx, 400, lerp(600, 84, come), t)


# --- last scene: the name ------------------------------------------------------

def scene_name(ctx, t):
    source(ctx, CORAL)
    ctx.paint()
    disc(ctx, "#ff8a6b", 480, 230, 330)
    disc(ctx, "#ff9a7d", 480, 230, 210)
    s = overshoot(span(t, 6.0, 6.5))
    if s > 0:
        soft_shadow(ctx, 480 - 55 * s, 126 - 50 * s, 110 * s, 112 * s, 28, 22, "#7a2410", 0.3)
        brand.icon(ctx, 480 - 60 * s, 122 - 60 * s + 8, 120 * s)
    words(ctx, "Kartovia", 480, 284, SPARTAN_HEAVY, 86, "#ffffff", t, 6.12, anchor=0.5)
    words(ctx, "Plan less. Wander more.", 480, 334, SPARTAN_BOLD, 30, "#fff1d8", t, 6.28, stagger=0.06, anchor=0.5)
    show = ease_out(span(t, 6.5, 6.85))
    pill(ctx, "Take me there", 365, 378 + 16 * (1 - show), 230, 62, INK, "#ffffff", SPARTAN_BOLD, 25, show)


def iris(ctx, x, y, amount):
    ctx.new_path()
    ctx.arc(x, y, 1 + 1050 * ease(amount), 0, 2 * math.pi)
    ctx.clip()


def draw(ctx, t):
    if t < 2.0:
        scene_calendar(ctx, t)
    if 1.4 < t < 6.3:
        with saved(ctx):
            if t < 2.0:
                iris(ctx, 752, 308, span(t, 1.4, 2.0))
            scene_map(ctx, t)
            scene_application(ctx, t)
    if t > 5.75:
        with saved(ctx):
            iris(ctx, 480, 270, span(t, 5.75, 6.3))
            scene_name(ctx, t)


def sound(seconds):
    track = synth.silence(seconds)
    beat = seconds / 16
    chords = ((55, 59, 62, 66), (52, 55, 59, 62), (48, 55, 60, 64), (50, 57, 62, 66))
    for bar, chord in enumerate(chords):
        for step in range(8):
            at = (bar * 4 + step * 0.5) * beat
            note = chord[(0, 2, 1, 3, 2, 0, 3, 1)[step]] + 12
            synth.add(track, synth.mallet(note), at, 0.34 if step % 2 == 0 else 0.24, 0.3 + 0.4 * (step % 3) / 2)
            synth.add(track, synth.shaker(seed=20 + step), at, 0.035 if step % 2 else 0.06, 0.62)
        synth.add(track, synth.bass(chord[0] - 12, 1.6 * beat), bar * 4 * beat, 0.34)
        synth.add(track, synth.bass(chord[0] - 12, 1.2 * beat), (bar * 4 + 2.5) * beat, 0.26)
        for note in chord[1:]:
            synth.add(track, synth.pad(note + 12, 4.6 * beat, 0.5, 0.6), bar * 4 * beat, 0.045, 0.35 + 0.1 * (note % 4))
    for at, note in ((2.2, 79), (3.0, 83), (3.75, 86), (6.05, 79), (6.2, 83), (6.35, 91)):
        synth.add(track, synth.bell(note), at, 0.13, 0.55)
    return synth.master(synth.room(track, 1.1, 0.22))


def still(ctx, width, height):
    """The picture after the film: the name on one side, the application on the other."""
    source(ctx, CORAL)
    ctx.paint()
    disc(ctx, "#ff8a6b", 1130, 520, 620)
    disc(ctx, "#ff9a7d", 1130, 520, 430)
    with saved(ctx):
        ctx.translate(796, 182)
        ctx.scale(1.5, 1.5)
        itinerary(ctx, 0, 24, 6, "#8a2c14")
    soft_shadow(ctx, 116, 212, 128, 128, 34, 26, "#7a2410", 0.3)
    brand.icon(ctx, 112, 200, 136)
    text(ctx, "Kartovia", 108, 474, SPARTAN_HEAVY, 136, "#ffffff")
    text(ctx, "Plan less. Wander more.", 112, 546, SPARTAN_BOLD, 50, SAND)
    stars(ctx, 126, 606, 13, "#ffe08a", "4.7", "18,342 ratings", SPARTAN_BOLD, "#ffffff")
    pill(ctx, "Take me there", 112, 664, 370, 100, INK, "#ffffff", SPARTAN_BOLD, 39)
