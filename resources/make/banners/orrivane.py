# SPDX-License-Identifier: Apache-2.0
"""Orrivane, a weather forecast: a rain front crosses the banner and takes the words along."""

import math

from banners.common import brand, tile
from canvas import disc, ease, fill_rect, pill, polyline, saved, source, stroke, text
from fonts import MANROPE_BOLD, MANROPE_HEAVY
from gif import HEIGHT, WIDTH, hold, move

NAME = "Orrivane"
STORY = [hold(2.2), move(10, 11), hold(2.34), move(10, 11)]
COLOURS = 23

SKY, SKY_LIGHT, SUN, NAVY = "#bfe6ff", "#d9f1ff", "#ffbe2e", "#123a63"
STORM, STORM_LIGHT, CLOUD, RAIN = "#29487c", "#34558d", "#e4edf8", "#8ec5ff"


def cloud(ctx, x, y, s, colour):
    for dx, dy, r in ((-20, 4, 13), (-4, -6, 18), (16, 0, 14)):
        disc(ctx, colour, x + dx * s, y + dy * s, r * s)
    fill_rect(ctx, colour, x - 33 * s, y + 1 * s, 63 * s, 16 * s, 8 * s)


def sun(ctx, x, y, r):
    for i in range(12):
        angle = math.pi * i / 6 + 0.13
        polyline(ctx, [(x + math.cos(angle) * r * 1.3, y + math.sin(angle) * r * 1.3),
                       (x + math.cos(angle) * r * 1.58, y + math.sin(angle) * r * 1.58)])
        stroke(ctx, SUN, r * 0.16)
    disc(ctx, SUN, x, y, r)


def icon(ctx, x, y, size):
    with tile(ctx, x, y, size):
        source(ctx, "#2f7fe0")
        ctx.paint()
        disc(ctx, SUN, 62, 40, 22)
        cloud(ctx, 48, 62, 0.95, "#ffffff")


def hours(ctx, ink, faint, wet):
    for i, (hour, degrees) in enumerate(((13, 24), (14, 24), (15, 23), (16, 19), (17, 16))):
        x = 402 + i * 33
        text(ctx, str(hour), x, 25, MANROPE_BOLD, 10, faint, 0.5)
        if i < 3:
            disc(ctx, SUN, x, 43, 7)
        else:
            cloud(ctx, x, 41, 0.33, CLOUD if wet else "#7f9dc0")
            for dx in (-5, 1, 7):
                polyline(ctx, [(x + dx, 49.5), (x + dx - 1.6, 53)])
                stroke(ctx, RAIN if wet else "#3d8be0", 1.5)
        text(ctx, f"{degrees}°", x + 1.5, 72, MANROPE_BOLD, 12, ink, 0.5)


def sunny(ctx):
    source(ctx, SKY)
    ctx.paint()
    disc(ctx, SKY_LIGHT, 66, 46, 74)
    sun(ctx, 66, 46, 23)
    cloud(ctx, 330, 96, 1.1, SKY_LIGHT)
    brand(ctx, icon, "Orrivane", 142, 25, 20, MANROPE_HEAVY, 13.5, NAVY)
    text(ctx, "Sun until four.", 141, 68, MANROPE_HEAVY, 28.5, NAVY)
    hours(ctx, NAVY, "#4f7ba5", False)
    pill(ctx, "Check my sky", 564, 26, 128, 38, NAVY, "#ffffff", MANROPE_BOLD, 13)


def rainy(ctx):
    source(ctx, STORM)
    ctx.paint()
    for i in range(34):
        x, y = (i * 137) % 760, (i * 53) % 110 - 10
        polyline(ctx, [(x, y), (x - 5, y + 11)])
        stroke(ctx, STORM_LIGHT, 1.8)
    cloud(ctx, 68, 38, 1.15, CLOUD)
    for i, dx in enumerate((-26, -12, 2, 16, 28)):
        top = 66 + (i % 2) * 4
        polyline(ctx, [(68 + dx, top), (68 + dx - 4, top + 9)])
        stroke(ctx, RAIN, 3)
    brand(ctx, icon, "Orrivane", 142, 25, 20, MANROPE_HEAVY, 13.5, "#ffffff")
    text(ctx, "Then, umbrellas.", 141, 68, MANROPE_HEAVY, 28.5, "#ffffff")
    hours(ctx, "#ffffff", "#a9c3e8", True)
    pill(ctx, "Check my sky", 564, 26, 128, 38, SUN, NAVY, MANROPE_BOLD, 13)


def behind_front(ctx, edge):
    """The part of the banner the front has passed: a slanted edge billowing with cloud."""
    ctx.new_path()
    ctx.move_to(-300, -10)
    ctx.line_to(edge + 26, -10)
    ctx.line_to(edge - 26, HEIGHT + 10)
    ctx.line_to(-300, HEIGHT + 10)
    ctx.close_path()
    for i, r in enumerate((22, 28, 20, 26)):
        ctx.new_sub_path()
        ctx.arc(edge + 18 - i * 14, 4 + i * 28, r, 0, 2 * math.pi)
    ctx.clip()


def draw(ctx, stage):
    before, after = (sunny, rainy) if stage <= 1 else (rainy, sunny)
    t = stage if stage <= 1 else stage - 1
    before(ctx)
    if t > 0:
        edge = -50 + (WIDTH + 100) * (0.55 * t + 0.45 * ease(t))
        with saved(ctx):
            behind_front(ctx, edge + 9)
            source(ctx, "#ffffff")
            ctx.paint()
        with saved(ctx):
            behind_front(ctx, edge)
            after(ctx)
