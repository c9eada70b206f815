# SPDX-License-Identifier: Apache-2.0
"""Halcorra's film: the messages of the day sink into a night sea that breathes."""

import math
import random

import numpy

from banners import halcorra as brand
from canvas import (disc, ease, ease_in, ease_out, fill_rect, lerp, linear, overshoot, pill, radial, rounded, saved,
                    soft_shadow, source, span, stroke, text, text_width)
from fonts import QUICKSAND, QUICKSAND_BOLD
from videos import sound as synth
from videos.film import HEIGHT, WIDTH, stars, window, words

SECONDS, QUALITY, GRAIN = 8.0, 20, 1.2

MOON, LAVENDER, INK = "#fdf0cf", "#cdc8ff", "#161d4d"
HORIZON = 372
SCATTER = random.Random(5)
STARS = [(SCATTER.uniform(0, WIDTH), SCATTER.uniform(4, HORIZON - 20), SCATTER.uniform(0.6, 1.7)) for _ in range(110)]
MESSAGES = (("Re: Re: Re: numbers", "#5e6cc4", 128, 150, -0.05, 0.10), ("23:48", "#8a6fd0", 470, 96, 0.04, 0.28),
            ("One more thing…", "#4f86c9", 600, 204, 0.05, 0.46), ("Are you up?", "#b06fb5", 236, 258, 0.03, 0.64),
            ("Tomorrow, 07:30", "#5e6cc4", 560, 312, -0.04, 0.82))


def breath(t):
    """The sea's level: in from 2.6, out from 4.1 seconds."""
    return ease(span(t, 2.5, 4.0)) * (1 - 0.85 * ease(span(t, 4.1, 5.7)))


def sky(ctx, t):
    ctx.set_source(linear(0, 0, 0, HORIZON + 60, (0, "#080d26"), (0.55, "#141c4c"), (1, "#2d3477")))
    ctx.paint()
    for i, (x, y, r) in enumerate(STARS):
        shine = 0.35 + 0.3 * math.sin(t * (1.1 + i % 5 * 0.25) + i * 1.7)
        disc(ctx, "#cfd6ff", x, y, r, shine * (1 - 0.5 * y / HORIZON))


def moon(ctx, t):
    rise = ease_out(span(t, 1.5, 3.6))
    x, y = 480, lerp(HORIZON + 90, 176, rise) - 300 * ease_in(span(t, 5.9, 6.8), 2)
    air = breath(t)
    for reach, alpha in ((lerp(150, 300, air), 0.30), (lerp(110, 190, air), 0.25)):
        ctx.set_source(radial(x, y, reach, (0, (0.72, 0.74, 1.0, alpha)), (1, (0.72, 0.74, 1.0, 0))))
        ctx.paint()
    ctx.arc(x, y, lerp(84, 132, air), 0, 2 * math.pi)
    stroke(ctx, LAVENDER, 2, 0.55 * span(t, 2.3, 2.8) * (1 - span(t, 5.4, 5.8)))
    brand.moon(ctx, x, y, 66)
    return x, y


def sea(ctx, t, moon_x):
    air = breath(t)
    layers = ((HORIZON, 5, 420, 0.55, "#4a58b4", "#26327c"), (HORIZON + 34, 9, 520, -0.7, "#3c4fae", "#1e2c74"),
              (HORIZON + 78, 12, 640, 0.8, "#2e43a0", "#18245f"), (HORIZON + 122, 14, 760, -0.9, "#22358a", "#0e1640"))
    for index, (level, height, length, speed, light, dark) in enumerate(layers):
        top = level - air * (22 + index * 13)
        phase = speed * t * 1.4 + index * 1.9
        ctx.new_sub_path()
        for x in range(-12, WIDTH + 24, 8):
            ctx.line_to(x, top + height * math.sin(x / length * 2 * math.pi + phase)
                        + height * 0.35 * math.sin(x / length * 5.2 * math.pi - phase * 1.3))
        ctx.line_to(WIDTH + 20, HEIGHT + 5)
        ctx.line_to(-20, HEIGHT + 5)
        ctx.close_path()
        ctx.set_source(linear(0, top - 14, 0, top + 84, (0, light), (1, dark)))
        ctx.fill_preserve()
        with saved(ctx):
            ctx.clip()
            glint = ease(span(t, 2.2, 3.4))
            for k in range(4):
                wide = (150 - index * 16) * (0.5 + 0.5 * math.sin(k * 2.1 + t * 1.6 + index))
                fill_rect(ctx, MOON, moon_x - wide / 2 + 14 * math.sin(k * 3 + t + index), top + 14 + k * 11 + height,
                          wide, 2.6, 1.3, 0.20 * glint)


def message(ctx, label, colour, x, y, turn, start, index, t):
    come, sink = overshoot(span(t, start, start + 0.4)), ease_in(span(t, 1.55 + index * 0.08, 2.35 + index * 0.08), 2)
    if come <= 0 or sink >= 1:
        return
    width = text_width(ctx, label, QUICKSAND_BOLD, 23) + 76
    with saved(ctx):
        ctx.translate(x + width / 2, lerp(y, HORIZON + 130, sink) + 5 * math.sin(t * 3 + index * 1.4))
        ctx.rotate(turn * (1 + 4 * sink))
        ctx.scale(come, come)
        soft_shadow(ctx, -width / 2, -20, width, 52, 26, 18, "#04071a", 0.4)
        fill_rect(ctx, colour, -width / 2, -26, width, 52, 26)
        disc(ctx, "#ffffff", -width / 2 + 27, 0, 10, 0.92)
        text(ctx, label, -width / 2 + 48, 8, QUICKSAND_BOLD, 23, "#ffffff")


def player(ctx, x, y, t):
    w = 380
    window(ctx, x, y, w, 372, "#1e2763", "#28327a", "#4b569f", "#03051a", 0.55)
    text(ctx, "Tide at Midnight", x + w / 2, y + 24, QUICKSAND_BOLD, 14, "#b9c0f2", 0.5)
    with saved(ctx):
        rounded(ctx, x + 26, y + 58, w - 52, 122, 16)
        ctx.clip()
        ctx.set_source(linear(0, y + 58, 0, y + 180, (0, "#3a3f9c"), (1, "#8a76cf")))
        ctx.paint()
        disc(ctx, MOON, x + w / 2, y + 110, 27)
        ctx.translate(x + 26, y + 58)
        brand.wave(ctx, "#5b66c8", 84, 6, 170, t * 2, 328, 122)
        brand.wave(ctx, "#3b479f", 100, 6, 140, -t * 2.4, 328, 122)
    levels = (("Waves", 0.82, "#8fb4ff"), ("Rain", 0.36, "#a7a3ff"), ("Far bells", 0.58, "#f3c9ff"))
    for i, (name, level, colour) in enumerate(levels):
        row = y + 218 + i * 40
        amount = level * ease(span(t, 5.05 + i * 0.14, 5.75 + i * 0.14))
        text(ctx, name, x + 30, row + 6, QUICKSAND_BOLD, 17, "#dfe3ff")
        fill_rect(ctx, "#313b80", x + 132, row - 3, 216, 6, 3)
        fill_rect(ctx, colour, x + 132, row - 3, max(6, 216 * amount), 6, 3)
        disc(ctx, "#ffffff", x + 132 + 216 * amount, row, 9)
    text(ctx, "Fades out in 40 min", x + w / 2, y + 346, QUICKSAND_BOLD, 14.5, "#98a1e0", 0.5)


def name(ctx, t):
    come = ease(span(t, 6.35, 6.85))
    if come <= 0:
        return
    source(ctx, "#0a1033", 0.62 * come)
    ctx.paint()
    s = ease_out(span(t, 6.45, 7.0))
    if s > 0:
        with saved(ctx):
            size = 104 * (0.8 + 0.2 * s)
            ctx.push_group()
            soft_shadow(ctx, 480 - size / 2 + 4, 142 - size / 2, size - 8, size, 26, 22, "#04071a", 0.4)
            brand.icon(ctx, 480 - size / 2, 136 - size / 2, size)
            ctx.pop_group_to_source()
            ctx.paint_with_alpha(s)
    words(ctx, "halcorra", 480, 276, QUICKSAND_BOLD, 76, "#ffffff", t, 6.5, anchor=0.5, tracking=0.03)
    words(ctx, "Sleep comes in waves.", 480, 326, QUICKSAND, 31, LAVENDER, t, 6.68, stagger=0.07, anchor=0.5)
    show = ease_out(span(t, 6.95, 7.35))
    pill(ctx, "Sleep tonight", 365, 372 + 14 * (1 - show), 230, 60, LAVENDER, INK, QUICKSAND_BOLD, 24, show)


def draw(ctx, t):
    sky(ctx, t)
    x, _ = moon(ctx, t)
    for index, row in enumerate(MESSAGES):
        message(ctx, *row, index, t)
    sea(ctx, t, x)
    words(ctx, "Day not done with you?", 480, 470, QUICKSAND, 46, "#ffffff", t, 0.3, 1.75, anchor=0.5)
    words(ctx, "Breathe in", 480, 464, QUICKSAND, 54, "#ffffff", t, 2.75, 3.95, anchor=0.5)
    words(ctx, "and slowly out", 480, 464, QUICKSAND, 54, "#ffffff", t, 4.15, 5.0, anchor=0.5)
    come = ease_out(span(t, 4.75, 5.45), 4) * (1 - ease_in(span(t, 6.3, 6.65), 2))
    if come > 0:
        player(ctx, 290, lerp(HEIGHT + 40, 92, come), t)
    name(ctx, t)


def sound(seconds):
    track = synth.silence(seconds)
    for start, length, chord in ((0.0, 3.2, (45, 57, 64, 67, 71)), (2.3, 3.3, (41, 57, 60, 64, 72)),
                                 (4.3, 3.9, (36, 55, 60, 64, 71))):
        for index, note in enumerate(chord):
            voice = synth.pad(note if index else note + 12, length)
            synth.add(track, voice, start, 0.16 if index else 0.24, 0.25 + 0.12 * index)
    count = len(track)
    for seed, swell, pan in ((5, (1.9, 3.1), 0.35), (6, (2.6, 4.4), 0.65), (8, (4.6, 5.9), 0.5)):
        shape = numpy.zeros(count)
        time = numpy.arange(count) / synth.SAMPLES
        shape += 0.25 + numpy.exp(-((time - swell[0]) / 0.9) ** 2) + 0.8 * numpy.exp(-((time - swell[1]) / 1.1) ** 2)
        synth.add(track, synth.noise(seconds, 180, 1400, seed) * shape, 0, 0.13, pan)
    for index in range(len(MESSAGES)):
        synth.add(track, synth.mallet(76 + (0, 3, 5, 2, 7)[index], 0.5), MESSAGES[index][5], 0.09, 0.3 + index * 0.1)
    for at, note, pan in ((2.6, 76, 0.4), (3.3, 79, 0.6), (4.15, 83, 0.5), (5.0, 76, 0.35), (5.6, 72, 0.6),
                          (6.5, 79, 0.5), (6.75, 84, 0.45), (7.0, 88, 0.55)):
        synth.add(track, synth.bell(note), at, 0.14, pan)
    return synth.master(synth.room(track, 2.4, 0.35), fade_in=0.15, fade_out=0.9)


def still(ctx, width, height):
    """The picture after the film: the name over the sea, the player beside it."""
    with saved(ctx):
        ctx.scale(width / WIDTH, height / HEIGHT * 1.0001)
        sky(ctx, 2.0)
    ctx.set_source(radial(1150, 430, 620, (0, (0.72, 0.74, 1.0, 0.28)), (1, (0.72, 0.74, 1.0, 0))))
    ctx.paint()
    with saved(ctx):
        ctx.translate(0, height - HEIGHT * width / WIDTH)
        ctx.scale(width / WIDTH, width / WIDTH)
        sea(ctx, 2.1, 690)
    with saved(ctx):
        ctx.translate(878, 176)
        ctx.scale(1.62, 1.62)
        player(ctx, 0, 10, 6.2)
    soft_shadow(ctx, 116, 212, 128, 128, 34, 26, "#04071a", 0.4)
    brand.icon(ctx, 112, 200, 136)
    text(ctx, "halcorra", 104, 470, QUICKSAND_BOLD, 130, "#ffffff", tracking=0.02)
    text(ctx, "Sleep comes in waves.", 112, 544, QUICKSAND, 52, LAVENDER)
    stars(ctx, 126, 606, 13, "#ffe3a3", "4.8", "9,615 ratings", QUICKSAND_BOLD, "#ffffff")
    pill(ctx, "Sleep tonight", 112, 664, 370, 100, LAVENDER, INK, QUICKSAND_BOLD, 38)
