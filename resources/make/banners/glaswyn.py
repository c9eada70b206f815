# SPDX-License-Identifier: Apache-2.0
"""Glaswyn, a photo editor: a handle draws the colour back into a grey afternoon."""


from banners.common import brand, clipped, swap, tile
from canvas import disc, ease, fill_rect, lerp, mix, pill, polygon, polyline, rgb, saved, source, span, stroke
from fonts import INTER_SEMIBOLD, DISPLAY_BOLD
from gif import hold, move

NAME = "Glaswyn"
STORY = [hold(2.0), move(16, 8), hold(2.6), move(12, 8)]
COLOURS = 144
LOSSY = 20

CHARCOAL, WHITE, PINK = "#15161b", "#ffffff", "#ff5d8f"
PHOTO = (14, 9, 284, 72, 9)


def faded(colour):
    """The flat, milky look of a bad photograph."""
    r, g, b, _ = rgb(colour)
    grey = 0.3 * r + 0.55 * g + 0.15 * b
    return mix((grey, grey, grey * 1.02), "#a3a8ad", 0.42)


def landscape(ctx, x, y, w, h, tone):
    """A lake at sunset in units of 284 x 72, coloured through tone()."""
    with saved(ctx):
        ctx.translate(x, y)
        ctx.scale(w / 284, h / 72)
        bands = ("#3b3f9e", "#6a4bb5", "#a956b8", "#e0659c", "#ff8a73", "#ffb35c")
        for i, colour in enumerate(bands):
            source(ctx, tone(colour))
            ctx.rectangle(-2, i * 8 - 1, 290, 50)
            ctx.fill()
        disc(ctx, tone("#ffd98a"), 196, 40, 15)
        disc(ctx, tone("#fff1c4"), 196, 40, 11)
        polygon(ctx, tone("#5a3f94"), [(-4, 50), (30, 22), (52, 36), (86, 12), (128, 42), (150, 34), (176, 50)])
        polygon(ctx, tone("#8459b0"), [(86, 12), (104, 25), (92, 30), (98, 40), (80, 30), (84, 24), (72, 21)])
        polygon(ctx, tone("#432f7d"), [(150, 50), (214, 30), (236, 40), (262, 20), (290, 36), (290, 50)])
        source(ctx, tone("#2a3f8f"))
        ctx.rectangle(-2, 49, 290, 30)
        ctx.fill()
        for i, (cx, width) in enumerate(((196, 34), (198, 24), (194, 40), (196, 18))):
            fill_rect(ctx, tone("#ffb35c"), cx - width / 2, 52 + i * 5, width, 2, 1)
        for i, (cx, width) in enumerate(((60, 50), (112, 30), (222, 26))):
            fill_rect(ctx, tone("#4a63b8"), cx - width / 2, 55 + (i * 7) % 15, width, 1.6, 0.8)
        for cx, base, s in ((10, 76, 1.25), (27, 77, 0.95), (246, 77, 1.0), (264, 78, 1.5), (281, 77, 1.1)):
            fill_rect(ctx, tone("#12315a"), cx - 9 * s, base - 2, 18 * s, 10)
            for k in range(3):
                top = base - (34 - k * 9) * s
                polygon(ctx, tone("#12315a"), [(cx - (6 + k * 2.6) * s, top + 16 * s), (cx, top),
                                               (cx + (6 + k * 2.6) * s, top + 16 * s)])


def icon(ctx, x, y, size):
    with tile(ctx, x, y, size):
        for i, colour in enumerate(("#ffb35c", "#ff5d8f", "#7a5cff")):
            polygon(ctx, colour, [(i * 34 - 2, -2), (i * 34 + 60, -2), (i * 34 + 40, 102), (i * 34 - 22, 102)])
        disc(ctx, WHITE, 50, 50, 24)
        disc(ctx, CHARCOAL, 50, 50, 13)
        disc(ctx, WHITE, 56, 44, 4.5)


def handle(ctx, x):
    px, py, w, h, r = PHOTO
    source(ctx, WHITE)
    ctx.rectangle(x - 1.1, py, 2.2, h)
    ctx.fill()
    disc(ctx, WHITE, x, py + h / 2, 10.5)
    for sign in (-1, 1):
        middle = py + h / 2
        polyline(ctx, [(x + sign * 3, middle - 3.4), (x + sign * 6, middle), (x + sign * 3, middle + 3.4)])
        stroke(ctx, CHARCOAL, 1.8)


def draw(ctx, stage):
    t = ease(span(stage, 0, 1)) if stage <= 1 else 1 - ease(span(stage, 1, 2))
    source(ctx, CHARCOAL)
    ctx.paint()
    px, py, w, h, r = PHOTO
    edge = lerp(px + 38, px + w - 34, t)
    with clipped(ctx, px, py, w, h, r):
        landscape(ctx, px, py, w, h, faded)
        with saved(ctx):
            ctx.rectangle(px, py, edge - px, h)
            ctx.clip()
            landscape(ctx, px, py, w, h, lambda colour: colour)
        handle(ctx, edge)
    brand(ctx, icon, "Glaswyn", 324, 26, 20, INTER_SEMIBOLD, 13.5, "#d5d7de")
    if stage <= 1:
        swap(ctx, "Grey day?", "Not anymore.", span(stage, 0.4, 0.85), 323, 67, DISPLAY_BOLD, 30, WHITE)
    else:
        swap(ctx, "Not anymore.", "Grey day?", span(stage, 1.3, 1.8), 323, 67, DISPLAY_BOLD, 30, WHITE)
    pill(ctx, "Try Glaswyn", 562, 26, 130, 38, PINK, WHITE, INTER_SEMIBOLD, 13.5)
