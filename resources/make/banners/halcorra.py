# SPDX-License-Identifier: Apache-2.0
"""Halcorra, sounds for sleeping: the sea and a halo round the moon breathe in and out."""

import math

from banners.common import brand, swap, tile
from canvas import disc, ease, lerp, linear, pill, source, span, star
from fonts import QUICKSAND, QUICKSAND_BOLD
from gif import HEIGHT, WIDTH, hold, move

NAME = "Halcorra"
STORY = [hold(1.6), move(13, 10), hold(1.6), move(13, 10), hold(2.6), move(8, 9)]
COLOURS = 96
LOSSY = 20

NIGHT, MOON, LAVENDER = "#0d1535", "#fdf0cf", "#cdc8ff"
SEA = ("#18285c", "#1f3778", "#2a4a99")
LINES = ("Breathe in.", "And slowly out.", "Sleep comes in waves.")


def moon(ctx, x, y, r):
    disc(ctx, MOON, x, y, r)
    for dx, dy, s in ((-0.35, -0.2, 0.2), (0.25, 0.35, 0.26), (0.3, -0.45, 0.13), (-0.2, 0.5, 0.12)):
        disc(ctx, "#f0deb0", x + dx * r, y + dy * r, s * r)


def icon(ctx, x, y, size):
    with tile(ctx, x, y, size):
        ctx.set_source(linear(0, 0, 0, 100, (0, "#38489c"), (1, "#1a2560")))
        ctx.paint()
        disc(ctx, MOON, 50, 42, 22)
        for i, colour in enumerate(("#5d78d8", "#8fa6f5")):
            ctx.new_sub_path()
            for x in range(-2, 103, 3):
                ctx.line_to(x, 60 + i * 17 + 6 * math.sin(x / 100 * 2 * math.pi * 1.3 + i * 2.4))
            ctx.line_to(102, 102)
            ctx.line_to(-2, 102)
            ctx.close_path()
            source(ctx, colour)
            ctx.fill()


def wave(ctx, colour, level, height, length, phase, width=WIDTH, bottom=HEIGHT):
    ctx.new_sub_path()
    for x in range(-8, width + 12, 6):
        ctx.line_to(x, level + height * math.sin(x / length * 2 * math.pi + phase)
                    + height * 0.4 * math.sin(x / length * 4.6 * math.pi + phase * 1.7))
    ctx.line_to(width + 10, bottom + 5)
    ctx.line_to(-10, bottom + 5)
    ctx.close_path()
    source(ctx, colour)
    ctx.fill()


def breath(stage):
    """0 breathed out, 1 breathed in."""
    return ease(span(stage, 0, 1)) if stage < 1 else 1 - ease(span(stage, 1, 2))


def draw(ctx, stage):
    air = breath(stage)
    source(ctx, NIGHT)
    ctx.paint()
    for i in range(26):
        x, y = (i * 197 + 40) % 728, (i * 61) % 50 + 6
        if not 180 < x < 545 and not 548 < x < 712:
            disc(ctx, "#8f9bd6", x, y, 0.7 + (i % 3) * 0.3)
    star(ctx, 150, 18, 4, MOON, points=4, inner=0.3)
    for r, shade in ((lerp(31, 48, air), "#141f49"), (lerp(28, 37, air), "#1c2a5e")):
        disc(ctx, shade, 88, 40, r)
    moon(ctx, 88, 40, 23)
    drift = stage / 2 * 2 * math.pi
    swell = -9 * air
    if stage > 2:
        drift = 2 * math.pi
    wave(ctx, SEA[0], 76 + swell, 3.2, 210, drift)
    wave(ctx, SEA[1], 82 + swell * 0.7, 2.8, 160, -drift + 1)
    wave(ctx, SEA[2], 88 + swell * 0.45, 2.4, 240, drift + 2.4)
    brand(ctx, icon, "halcorra", 190, 20, 18, QUICKSAND_BOLD, 14, LAVENDER, tracking=0.05)
    k = min(int(stage), 2)
    t = span(stage - k, 0.0 if k else 0.15, 0.7 if k else 0.8)
    swap(ctx, LINES[k], LINES[(k + 1) % 3], t, 189, 59, QUICKSAND, 27.5, "#ffffff")
    pill(ctx, "Sleep tonight", 558, 24, 134, 38, LAVENDER, "#161d4d", QUICKSAND_BOLD, 14.5)
