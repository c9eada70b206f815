# SPDX-License-Identifier: Apache-2.0
"""Saffrello, recipes from what is at home: loose ingredients jump into the pan and become dinner."""

import math

from banners.common import swap, tile
from canvas import (blob, disc, ease, ease_out, fill_rect, lerp, overshoot, pill, polyline, saved, source, span,
                    stroke, text)
from fonts import LOBSTER_BOLD, SPARTAN_BOLD
from gif import hold, move

NAME = "Saffrello"
STORY = [hold(2.0), move(17, 8), hold(2.6), move(9, 8)]
COLOURS = 128
LOSSY = 20

SAFFRON, DEEP, PAN, TOMATO, LEAF = "#ffb930", "#4a1530", "#2e1a26", "#ea3f33", "#2f9e4f"
PX, PY = 106, 51


def tomato(ctx, x, y, s, turn):
    with saved(ctx):
        ctx.translate(x, y)
        ctx.rotate(turn)
        ctx.scale(s, s)
        disc(ctx, "#c92a22", 0, 0, 14)
        disc(ctx, "#ff6a55", 0, 0, 11.6)
        for i in range(3):
            with saved(ctx):
                ctx.rotate(i * 2 * math.pi / 3)
                blob(ctx, [(2, -2), (9, -5), (9.5, 1), (4, 3)])
                source(ctx, "#d93327")
                ctx.fill()
                disc(ctx, "#ffd98a", 6, -1, 1.2)
        disc(ctx, "#ffb0a0", 0, 0, 2)


def leaf(ctx, x, y, s, turn):
    with saved(ctx):
        ctx.translate(x, y)
        ctx.rotate(turn)
        ctx.scale(s, s)
        ctx.move_to(-14, 0)
        ctx.curve_to(-6, -11, 8, -9, 15, 0)
        ctx.curve_to(8, 9, -6, 11, -14, 0)
        source(ctx, LEAF)
        ctx.fill()
        polyline(ctx, [(-12, 0), (11, 0)])
        stroke(ctx, "#8fd694", 1.4)


def mushroom(ctx, x, y, s, turn):
    with saved(ctx):
        ctx.translate(x, y)
        ctx.rotate(turn)
        ctx.scale(s, s)
        fill_rect(ctx, "#f6e7d3", -4, -1, 8, 13, 4)
        ctx.new_sub_path()
        ctx.arc(0, 0, 12, math.pi, 2 * math.pi)
        ctx.curve_to(12, 4, -12, 4, -12, 0)
        source(ctx, "#b9784f")
        ctx.fill()
        disc(ctx, "#d9a37c", -4, -5, 2.4)
        disc(ctx, "#d9a37c", 4, -7, 1.7)


def egg(ctx, x, y, s):
    with saved(ctx):
        ctx.translate(x, y)
        ctx.scale(s, s)
        blob(ctx, [(-20, -3), (-11, -15), (6, -17), (19, -8), (18, 8), (4, 17), (-13, 13)])
        source(ctx, "#fffaf0")
        ctx.fill()
        disc(ctx, "#ff9e1b", 0, -1, 8.5)
        disc(ctx, "#ffd27a", -3, -4, 2.2)


def whole_egg(ctx, x, y, s, turn):
    with saved(ctx):
        ctx.translate(x, y)
        ctx.rotate(turn)
        ctx.scale(s * 0.78, s)
        disc(ctx, "#fff4e2", 0, 0, 13)
        disc(ctx, "#ffffff", -4, -4, 4)


def pan(ctx):
    with saved(ctx):
        ctx.translate(PX, PY)
        ctx.rotate(0.32)
        fill_rect(ctx, PAN, 30, -6, 74, 12, 6)
        fill_rect(ctx, "#7c5a46", 58, -6, 46, 12, 6)
    disc(ctx, PAN, PX, PY, 40)
    disc(ctx, "#473040", PX, PY, 35.5)
    disc(ctx, "#3b2735", PX, PY, 31)


def icon(ctx, x, y, size):
    with tile(ctx, x, y, size):
        source(ctx, TOMATO)
        ctx.paint()
        disc(ctx, "#fffaf0", 50, 52, 33)
        disc(ctx, "#ff9e1b", 50, 52, 16)
        disc(ctx, "#ffd27a", 45, 46, 4.5)


def hop(start, end, t, height):
    return lerp(start[0], end[0], t), lerp(start[1], end[1], t) - height * math.sin(math.pi * t)


def steam(ctx, amount):
    if amount <= 0:
        return
    for i, dx in enumerate((-16, 2, 20)):
        tall = (14, 18, 13)[i] * amount
        polyline(ctx, [(PX + dx + 3.2 * math.sin(k / 4 + i), PY - 27 - k * tall / 20) for k in range(21)])
        stroke(ctx, "#fffaf0", 3)


def draw(ctx, stage):
    t = stage if stage <= 1 else 1 - ease_out(span(stage, 1, 1.9))
    source(ctx, SAFFRON)
    ctx.paint()
    disc(ctx, "#ffc757", PX, PY + 4, 84)
    pan(ctx)
    tosses = [ease(span(t, i * 0.09, i * 0.09 + 0.42)) for i in range(4)]
    ex, ey = hop((22, 28), (PX - 2, PY + 2), tosses[0], 22)
    crack = overshoot(span(t, 0.44, 0.64))
    if t < 0.42:
        whole_egg(ctx, ex, ey, 1, lerp(-0.35, 2.4, tosses[0]))
    else:
        egg(ctx, PX - 4, PY + 3, 0.4 + 0.7 * crack)
    for picture, toss, start, end, height, sizes, turns in (
        (tomato, tosses[1], (196, 22), (PX + 20, PY - 13), 14, (1, 0.78), (0.3, 3)),
        (mushroom, tosses[2], (30, 68), (PX - 22, PY - 14), 44, (1, 0.82), (-0.3, 5.6)),
        (leaf, tosses[3], (64, 12), (PX + 10, PY + 20), 10, (0.9, 0.85), (-0.6, 3.4)),
        (leaf, tosses[3], (208, 46), (PX - 14, PY + 22), 30, (0.7, 0.6), (0.7, -2.6)),
    ):
        picture(ctx, *hop(start, end, toss, height), lerp(*sizes, toss), lerp(*turns, toss))
    steam(ctx, ease_out(span(t, 0.72, 1)))
    text(ctx, "Saffrello", 238, 31, LOBSTER_BOLD, 22, TOMATO)
    lines = ("Five things in the fridge?", "That’s dinner.")
    if stage <= 1:
        swap(ctx, *lines, span(stage, 0.55, 0.95), 238, 67, SPARTAN_BOLD, 28, DEEP)
    else:
        swap(ctx, *lines[::-1], span(stage, 1.15, 1.85), 238, 67, SPARTAN_BOLD, 28, DEEP)
    pill(ctx, "Cook tonight", 566, 26, 126, 38, DEEP, "#ffe9bd", SPARTAN_BOLD, 14.5)
