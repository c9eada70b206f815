# SPDX-License-Identifier: Apache-2.0
"""Tallowick, a household budget: a muddle of bars sorts itself and one of them owns up."""

from banners.common import brand, tile, wipe
from canvas import (disc, ease, fill_rect, lerp, overshoot, pill, polygon, source, span, text)
from fonts import SORA_SEMIBOLD
from gif import hold, move

NAME = "Tallowick"
STORY = [hold(2.0), move(11, 10), hold(2.87), move(6, 12)]
COLOURS = 23

NIGHT, DIM, MINT, CORAL, WHITE = "#17143f", "#3c3880", "#49e0b0", "#ff6b6b", "#ffffff"
HEIGHTS = [30, 14, 44, 22, 62, 18, 36, 10, 50, 27]
ORDER = sorted(range(len(HEIGHTS)), key=lambda i: HEIGHTS[i])
COLOURED = ["#49e0b0", "#49e0b0", "#5ad6c8", "#62c6dd", "#6db3ee", "#7f9df5", "#9a8af7", "#b77ff2", "#ffc857"]


def icon(ctx, x, y, size):
    with tile(ctx, x, y, size):
        source(ctx, MINT)
        ctx.paint()
        for i, (height, colour) in enumerate(((26, NIGHT), (42, NIGHT), (60, CORAL))):
            fill_rect(ctx, colour, 22 + i * 20, 80 - height, 15, height, 5)


def bars(ctx, amount):
    for i, height in enumerate(HEIGHTS):
        rank = ORDER.index(i)
        delay = rank * 0.045
        t = ease(span(amount, delay, delay + 0.3))
        x = lerp(26 + i * 16.5, 26 + rank * 16.5, t)
        top = rank == len(HEIGHTS) - 1
        colour = DIM if t < 0.5 else CORAL if top else COLOURED[rank]
        fill_rect(ctx, colour, x, 78 - height, 11, height, 4)
    fill_rect(ctx, DIM, 20, 80.5, 177, 1.5)


def price_tag(ctx, amount):
    s = overshoot(span(amount, 0.72, 1.0)) if amount > 0.72 else 0
    if s < 0.2:
        return
    ctx.save()
    ctx.translate(171, 18)
    ctx.scale(s, s)
    fill_rect(ctx, WHITE, -83, -10, 78, 20, 7)
    polygon(ctx, WHITE, [(-6, -4), (1, 0), (-6, 4)])
    disc(ctx, CORAL, -73.5, 0, 3.6)
    text(ctx, "Takeaways", -66, 3.2, SORA_SEMIBOLD, 9, NIGHT)
    ctx.restore()


def draw(ctx, stage):
    amount = span(stage, 0, 1) if stage <= 1 else 1 - span(stage, 1, 2)
    source(ctx, NIGHT)
    ctx.paint()
    disc(ctx, "#1e1a50", 700, 120, 130)
    bars(ctx, amount)
    price_tag(ctx, amount)
    brand(ctx, icon, "Tallowick", 226, 24, 20, SORA_SEMIBOLD, 13, "#c9c5ff")
    first, second = ("Where did payday go?", "Ah. Takeaways.")
    if stage <= 1:
        wipe(ctx, first, second, span(stage, 0.42, 0.86), 225, 67, SORA_SEMIBOLD, 27, WHITE)
    else:
        wipe(ctx, second, first, span(stage, 1.2, 1.9), 225, 67, SORA_SEMIBOLD, 27, WHITE)
    pill(ctx, "See yours", 574, 26, 118, 38, MINT, NIGHT, SORA_SEMIBOLD, 13)
