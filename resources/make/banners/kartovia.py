# SPDX-License-Identifier: Apache-2.0
"""Kartovia, a travel planner: the straight line between two pins learns to wander."""

import math

from banners.common import brand, swap, tile
from canvas import blob, disc, ease, lerp, overshoot, pill, polygon, polyline, saved, source, span, stroke
from fonts import SPARTAN_BOLD, SPARTAN_HEAVY
from gif import hold, move

NAME = "Kartovia"
STORY = [hold(1.9), move(16, 8), hold(2.8), move(10, 8)]
COLOURS = 96
LOSSY = 20

SEA, LAND, SHORE, CORAL, SAND, INK = "#0b6e72", "#15827f", "#0f7777", "#ff7a59", "#fff1d8", "#083d44"
START, END = (300, 62), (530, 34)


def pin(ctx, x, y, s, colour=CORAL):
    if s <= 0:
        return
    with saved(ctx):
        ctx.translate(x, y)
        ctx.scale(s, s)
        ctx.new_sub_path()
        ctx.arc(0, -19, 10, math.pi * 0.86, math.pi * 2.14)
        ctx.curve_to(7, -9, 2, -5, 0, 0)
        ctx.curve_to(-2, -5, -7, -9, -9.2, -14.8)
        ctx.close_path()
        source(ctx, colour)
        ctx.fill()
        disc(ctx, SAND, 0, -19, 4.2)


def icon(ctx, x, y, size):
    with tile(ctx, x, y, size):
        source(ctx, SAND)
        ctx.paint()
        blob(ctx, [(-10, 60), (30, 50), (60, 74), (110, 62), (110, 120), (-10, 120)])
        source(ctx, "#58c2b4")
        ctx.fill()
        with saved(ctx):
            ctx.translate(50, 84)
            ctx.scale(2.5, 2.5)
            pin(ctx, 0, 0, 1)


def mountain(ctx, x, y, s):
    polygon(ctx, "#4fb3a4", [(x - 2 * s, y), (x + 10 * s, y - 15 * s), (x + 21 * s, y)])
    polygon(ctx, "#8ad8c6", [(x - 17 * s, y), (x - 3 * s, y - 22 * s), (x + 11 * s, y)])
    polygon(ctx, "#ffffff", [(x - 8 * s, y - 14 * s), (x - 3 * s, y - 22 * s), (x + 2 * s, y - 14 * s),
                             (x - 1 * s, y - 11.5 * s), (x - 4 * s, y - 14 * s)])


def boat(ctx, x, y, s):
    polygon(ctx, SAND, [(x, y - 20 * s), (x, y - 5 * s), (x + 11 * s, y - 5 * s)])
    polygon(ctx, CORAL, [(x - 2 * s, y - 16 * s), (x - 2 * s, y - 5 * s), (x - 9 * s, y - 5 * s)])
    polygon(ctx, SAND, [(x + dx * s, y + dy * s) for dx, dy in ((-12, -3), (13, -3), (8, 3), (-7, 3))])


def tent(ctx, x, y, s):
    polygon(ctx, "#ffc857", [(x - 14 * s, y), (x, y - 17 * s), (x + 14 * s, y)])
    polygon(ctx, INK, [(x - 4.5 * s, y), (x, y - 10 * s), (x + 4.5 * s, y)])


def route(wander):
    points = []
    for i in range(181):
        u = i / 180
        x, y = lerp(START[0], END[0], u), lerp(START[1], END[1], u)
        envelope = math.sin(math.pi * u) ** 0.9
        turn = 4 * math.pi * u
        points.append((x - wander * 34 * math.sin(turn) * envelope,
                       y - wander * (22 * math.cos(turn) + 1) * envelope))
    return points


def dashes(ctx, points, colour, width):
    polyline(ctx, points)
    stroke(ctx, colour, width, dash=[0.1, 8])


def terrain(ctx):
    source(ctx, SEA)
    ctx.paint()
    for points in (
        [(-30, 40), (40, 62), (130, 50), (200, 80), (180, 130), (-30, 130)],
        [(330, -20), (560, -30), (590, 10), (520, 24), (440, 12), (380, 26), (330, 8)],
        [(300, 84), (380, 66), (470, 78), (560, 62), (640, 84), (700, 130), (300, 130)],
        [(680, -10), (760, -10), (760, 60), (716, 44)],
    ):
        blob(ctx, points)
        source(ctx, LAND)
        ctx.fill_preserve()
        stroke(ctx, SHORE, 7)
        blob(ctx, points)
        source(ctx, LAND)
        ctx.fill()


def draw(ctx, stage):
    t = stage if stage <= 1 else 1 - span(stage, 1, 1.95)
    terrain(ctx)
    bend = overshoot(span(t, 0.05, 0.7), 1.3) if stage <= 1 else ease(span(t, 0, 0.8))
    marks = [overshoot(span(t, a, a + 0.25)) for a in (0.45, 0.58, 0.7)]
    for picture, (x, y), s in zip((mountain, boat, tent), ((346, 50), (417, 83), (486, 42)), marks):
        if s > 0:
            picture(ctx, x, y, s)
    dashes(ctx, route(bend), SAND, 3.6)
    disc(ctx, SAND, *START, 5.5)
    disc(ctx, INK, *START, 2.4)
    pin(ctx, *END, 1 + 0.12 * math.sin(span(t, 0.75, 1) * math.pi))
    brand(ctx, icon, "Kartovia", 30, 25, 23, SPARTAN_BOLD, 17, SAND)
    if stage <= 1:
        swap(ctx, "Plan less.", "Wander more.", span(stage, 0.2, 0.7), 29, 70, SPARTAN_HEAVY, 35, "#ffffff", rise=7)
    else:
        swap(ctx, "Wander more.", "Plan less.", span(stage, 1.3, 1.9), 29, 70, SPARTAN_HEAVY, 35, "#ffffff", rise=7)
    pill(ctx, "Take me there", 564, 26, 130, 38, CORAL, "#ffffff", SPARTAN_BOLD, 14.5)
