# SPDX-License-Identifier: Apache-2.0
"""Quillmoor, a journal: a pen writes the second line of the thought."""

import math

from banners.common import brand, tile, wipe
from canvas import (bezier, ease, ease_out, fill_rect, lerp, pill, polygon, polyline, saved, source, span, stroke,
                    text, text_width)
from fonts import GARAMOND, GARAMOND_ITALIC, INTER_SEMIBOLD
from gif import HEIGHT, WIDTH, hold, move

NAME = "Quillmoor"
STORY = [hold(2.2), move(12, 11), hold(2.85), move(6, 8)]
COLOURS = 23

PAPER, GREEN, DEEP, RED, LINE = "#f7f0e1", "#1f4a3d", "#16352c", "#d8553a", "#e2d7bf"
FIRST, SECOND = "Some days deserve a page.", "This one, for instance."
X, BASE, SIZE = 178, 62, 34


def nib(ctx, x, y, scale=1.0, turn=0.55):
    with saved(ctx):
        ctx.translate(x, y)
        ctx.rotate(turn)
        ctx.scale(scale, scale)
        polygon(ctx, RED, [(-4.6, -20), (4.6, -20), (5.6, -54), (-5.6, -54)])
        polygon(ctx, DEEP, [(-4.6, -20), (4.6, -20), (4.2, -24), (-4.2, -24)])
        ctx.move_to(0, 0)
        ctx.curve_to(1.5, -7, 5, -11, 4.4, -20)
        ctx.line_to(-4.4, -20)
        ctx.curve_to(-5, -11, -1.5, -7, 0, 0)
        source(ctx, "#c9a45c")
        ctx.fill()
        polyline(ctx, [(0, -1), (0, -12)])
        stroke(ctx, DEEP, 0.9)


def icon(ctx, x, y, size):
    with tile(ctx, x, y, size):
        source(ctx, GREEN)
        ctx.paint()
        ctx.move_to(26, 80)
        ctx.curve_to(28, 50, 46, 24, 76, 18)
        ctx.curve_to(76, 48, 58, 68, 36, 70)
        ctx.close_path()
        source(ctx, PAPER)
        ctx.fill()
        polyline(ctx, [(24, 84), (60, 36)])
        stroke(ctx, RED, 6)


def notebook(ctx, written):
    with saved(ctx):
        ctx.translate(84, 58)
        ctx.rotate(-0.13)
        fill_rect(ctx, DEEP, -62, -40, 124, 100, 6)
        fill_rect(ctx, "#e9dfc8", -56, -36, 54, 94, 2)
        fill_rect(ctx, "#fffaf0", -2, -36, 58, 94, 2)
        for i in range(4):
            y = -20 + i * 14
            polyline(ctx, [(-48, y), (-10, y)])
            stroke(ctx, "#8fa89c", 1.8)
            polyline(ctx, [(6, y), (48, y)])
            stroke(ctx, LINE, 1.2)
            part = span(written, i / 4, (i + 1) / 4)
            if part > 0:
                end = lerp(6, (46, 48, 42, 30)[i], part)
                polyline(ctx, [(6 + k, y - 2 + 1.6 * math.sin(k * 0.9 + i)) for k in range(int(end - 6) + 1)])
                stroke(ctx, GREEN, 1.8)
        polygon(ctx, RED, [(-6, -40), (2, -40), (2, 30), (-2, 25), (-6, 30)])


def flourish(ctx, amount, x0, x1):
    points = [bezier((x0, 73), (x0 + 60, 68), (x1 - 50, 79), (x1, 70), i / 40) for i in range(int(40 * amount) + 1)]
    if len(points) > 1:
        polyline(ctx, points)
        stroke(ctx, RED, 2.6)
    return points[-1]


def draw(ctx, stage):
    writing, back = span(stage, 0, 1), span(stage, 1, 2)
    source(ctx, PAPER)
    ctx.paint()
    for y in (20, 42, 64, 86):
        polyline(ctx, [(0, y), (WIDTH, y)])
        stroke(ctx, "#efe6d2", 1)
    notebook(ctx, ease(writing) * (1 - ease_out(back)))
    brand(ctx, icon, "QUILLMOOR", X, 21, 16, INTER_SEMIBOLD, 10.5, GREEN, tracking=0.16)

    wide = text_width(ctx, SECOND, GARAMOND_ITALIC, SIZE + 3)
    start = X + text_width(ctx, "This one, for ", GARAMOND_ITALIC, SIZE + 3)
    if stage < 1:
        wipe(ctx, FIRST, "", span(writing, 0, 0.2), X - 1, BASE, GARAMOND, SIZE, DEEP)
    elif back > 0:
        with saved(ctx):
            ctx.rectangle(lerp(start, X + wide, span(back, 0.4, 1)), 0, WIDTH, HEIGHT)
            ctx.clip()
            flourish(ctx, 1, start, X + wide)
        wipe(ctx, SECOND, FIRST, back, X - 1, BASE, GARAMOND_ITALIC, SIZE + 3, DEEP, GARAMOND, SIZE)
    pen = span(writing, 0.12, 0.8)
    if pen > 0 and back == 0:
        with saved(ctx):
            ctx.rectangle(0, 0, X + wide * pen + (8 if pen >= 1 else 0), HEIGHT)
            ctx.clip()
            text(ctx, SECOND, X - 1, BASE, GARAMOND_ITALIC, SIZE + 3, DEEP)
        swash = ease(span(writing, 0.8, 1.0))
        tip = flourish(ctx, swash, start, X + wide) if swash > 0 else None
        if stage < 1:
            nib(ctx, *(tip or (X + wide * pen, BASE - 4 + 5 * math.sin(pen * 34))))
    pill(ctx, "Start writing", 558, 26, 134, 38, GREEN, PAPER, INTER_SEMIBOLD, 13.5)
