# SPDX-License-Identifier: Apache-2.0
"""Pebblotto, a puzzle with pebbles that have faces: one more falls, three of a kind burst."""

import math

from banners.common import brand, tile, wipe
from canvas import (blob, bounce, disc, ease, ease_out, fill_rect, lerp, overshoot, pill, saved, source, span, star,
                    stroke)
from fonts import QUICKSAND_BOLD
from gif import hold, move

NAME = "Pebblotto"
STORY = [hold(1.8), move(12, 11), hold(2.35), move(6, 11)]
COLOURS = 31

PLUM, PLUM_LIGHT, GOLD, WHITE = "#4a1a86", "#5b2a9c", "#ffd23f", "#ffffff"
CORAL, TEAL, PINK = ("#ff6a5e", "#c9423c"), ("#2ed3c6", "#159a94"), ("#ff8ad0", "#d1559f")
GROUND = 62
SLOTS = [36, 80, 124, 168, 212]


def pebble(ctx, x, y, colours, s=1.0, squash=0.0, mood="calm", seed=0):
    light, dark = colours
    with saved(ctx):
        ctx.translate(x, y + 18)
        ctx.scale(s * (1 + squash), s * (1 - squash))
        ctx.translate(0, -18)
        shape = [(20 * (1 + 0.05 * math.sin(3 * k + seed)) * math.cos(k * math.pi / 4),
                  18 * (1 + 0.05 * math.cos(2 * k + seed)) * math.sin(k * math.pi / 4)) for k in range(8)]
        blob(ctx, shape)
        source(ctx, dark)
        ctx.fill()
        with saved(ctx):
            blob(ctx, shape)
            ctx.clip()
            ctx.translate(-1, -4)
            blob(ctx, shape)
            source(ctx, light)
            ctx.fill()
        with saved(ctx):
            ctx.translate(-8, -11)
            ctx.rotate(-0.5)
            ctx.scale(1, 0.55)
            disc(ctx, WHITE, 0, 0, 4.5, 0.75)
        for side in (-1, 1):
            if mood == "happy":
                ctx.new_sub_path()
                ctx.arc(side * 6.5, -1, 2.8, math.pi, 2 * math.pi)
                stroke(ctx, "#2b0f4d", 2)
            else:
                disc(ctx, "#2b0f4d", side * 6.5, -2 - (2 if mood == "look" else 0), 2.6)
        ctx.new_sub_path()
        if mood == "look":
            ctx.arc(0, 6, 2.6, 0, 2 * math.pi)
        else:
            ctx.arc(0, 3 if mood == "calm" else 2, 3.4 if mood == "calm" else 5, 0.25, math.pi - 0.25)
        stroke(ctx, "#2b0f4d", 1.9)


def icon(ctx, x, y, size):
    with tile(ctx, x, y, size):
        source(ctx, GOLD)
        ctx.paint()
        with saved(ctx):
            ctx.translate(50, 54)
            ctx.scale(1.95, 1.95)
            pebble(ctx, 0, 0, CORAL, mood="happy")


def burst(ctx, t):
    if not 0 < t < 1:
        return
    reach = ease_out(t)
    for i in range(12):
        angle = math.pi * i / 6 + 0.2
        r = 14 + 44 * reach
        colour = (GOLD, CORAL[0], WHITE)[i % 3]
        x, y = 124 + math.cos(angle) * r * 1.25, 54 + math.sin(angle) * r * 0.75
        if i % 2:
            disc(ctx, colour, x, y, 4.5 * (1 - t))
        else:
            star(ctx, x, y, 7.5 * (1 - t), colour, turn=t * 2)


def board(ctx, stage):
    t = span(stage, 0, 1)
    fall, join, win = bounce(span(t, 0, 0.42)), ease(span(t, 0.5, 0.66)), overshoot(span(t, 0.66, 0.92))
    back = span(stage, 1, 2)
    fill_rect(ctx, "#3a1270", -20, GROUND + 16, 290, 40, 14)
    nudge = max(0, math.sin(span(t, 0.13, 0.3) * math.pi)) * 3
    mood = "happy" if t > 0.66 and back < 0.5 else ("look" if t < 0.1 or back > 0.5 else "calm")
    pebble(ctx, SLOTS[0], GROUND, TEAL, mood=mood, seed=1)
    pebble(ctx, SLOTS[4], GROUND, PINK, mood=mood, seed=4)
    if t < 0.66:
        for index, seed in ((1, 2), (3, 5)):
            pebble(ctx, lerp(SLOTS[index], SLOTS[2], join), GROUND - nudge, CORAL, 1 - 0.1 * join,
                   mood=mood, seed=seed)
        hit = max(0, math.sin(span(t, 0.14, 0.26) * math.pi)) * 0.16
        pebble(ctx, SLOTS[2], lerp(17, GROUND, fall), CORAL, squash=hit, mood="happy" if t < 0.4 else "calm", seed=3)
    else:
        shrink = 1 - ease(span(back, 0, 0.45))
        s = win * shrink
        if s > 0.1:
            star(ctx, 124, 48, 36 * s, "#6a35b4", points=10, inner=0.72)
            star(ctx, 124, 49, 33 * s, "#e0a300", inner=0.56)
            star(ctx, 124, 46.5, 32 * s, GOLD, inner=0.56)
            if s > 0.6:
                for side in (-1, 1):
                    ctx.new_sub_path()
                    ctx.arc(124 + side * 6, 47, 2.7, math.pi, 2 * math.pi)
                    stroke(ctx, "#6b4300", 2)
                ctx.new_sub_path()
                ctx.arc(124, 51, 4.6, 0.2, math.pi - 0.2)
                stroke(ctx, "#6b4300", 2)
        grow = overshoot(span(back, 0.4, 1)) if back > 0.4 else 0
        if grow > 0:
            for index, seed in ((1, 2), (3, 5)):
                pebble(ctx, SLOTS[index], GROUND, CORAL, grow, mood="look", seed=seed)
            pebble(ctx, SLOTS[2], lerp(-30, 17, ease_out(span(back, 0.4, 1))), CORAL, mood="happy", seed=3)
    burst(ctx, span(t, 0.62, 1.0))


def draw(ctx, stage):
    source(ctx, PLUM)
    ctx.paint()
    for x, y, r in ((640, 110, 90),):
        disc(ctx, PLUM_LIGHT, x, y, r)
    board(ctx, stage)
    brand(ctx, icon, "Pebblotto", 272, 25, 22, QUICKSAND_BOLD, 17, GOLD)
    lines = ("Just one more pebble.", "Okay. One more.")
    if stage <= 1:
        wipe(ctx, *lines, span(stage, 0.6, 0.96), 272, 67, QUICKSAND_BOLD, 27, WHITE)
    else:
        wipe(ctx, *lines[::-1], span(stage, 1.2, 1.9), 272, 67, QUICKSAND_BOLD, 27, WHITE)
    pill(ctx, "Play", 594, 25, 98, 40, GOLD, "#3a1270", QUICKSAND_BOLD, 16)
