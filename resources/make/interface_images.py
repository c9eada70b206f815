# SPDX-License-Identifier: Apache-2.0
"""Interface images: the close and sound buttons, 96 pixels wide, and the demo's icon."""

import math

import cairo

from canvas import disc, linear, polyline, radial, saved, source, squircle, stroke, surface

POINTS, SCALE = 32, 3


def button_disc(ctx):
    """A dark translucent disc with a light rim, filling the whole square's inscribed circle."""
    disc(ctx, "#101318", 16, 16, 16, 0.66)
    ctx.arc(16, 16, 15.1, 0, 2 * math.pi)
    stroke(ctx, "#ffffff", 1.1, 0.62)


def close_button(ctx):
    button_disc(ctx)
    for sign in (1, -1):
        polyline(ctx, [(16 - 5.2, 16 - 5.2 * sign), (16 + 5.2, 16 + 5.2 * sign)])
    stroke(ctx, "#ffffff", 2.4)


def loudspeaker(ctx):
    ctx.move_to(8.2, 13.6)
    ctx.line_to(10.7, 13.6)
    ctx.line_to(14.8, 10.1)
    ctx.line_to(14.8, 21.9)
    ctx.line_to(10.7, 18.4)
    ctx.line_to(8.2, 18.4)
    ctx.close_path()
    source(ctx, "#ffffff")
    ctx.set_line_join(cairo.LINE_JOIN_ROUND)
    ctx.set_line_width(1.6)
    ctx.fill_preserve()
    ctx.stroke()


def sound_on(ctx):
    button_disc(ctx)
    loudspeaker(ctx)
    for radius in (4.0, 7.6):
        ctx.new_sub_path()
        ctx.arc(15.9, 16, radius, -0.84, 0.84)
        stroke(ctx, "#ffffff", 1.9)


def sound_off(ctx):
    button_disc(ctx)
    loudspeaker(ctx)
    for sign in (1, -1):
        polyline(ctx, [(18.6, 16 - 2.9 * sign), (24.4, 16 + 2.9 * sign)])
    stroke(ctx, "#ffffff", 1.9)


def velmora_icon(ctx, size):
    """A sail-like V of two folded planes on an indigo dusk."""
    inset = size * 0.045
    with saved(ctx):
        squircle(ctx, inset, inset, size - 2 * inset)
        ctx.clip()
        ctx.set_source(linear(0, 0, 0, size, (0, "#5b3df5"), (0.55, "#3a2bc4"), (1, "#1d1a78")))
        ctx.paint()
        ctx.set_source(radial(size * 0.78, size * 0.14, size * 0.75,
                              (0, (1.0, 0.55, 0.72, 0.75)), (1, (1.0, 0.55, 0.72, 0.0))))
        ctx.paint()
        with saved(ctx):
            ctx.scale(size / 256, size / 256)
            disc(ctx, "#ffd9a0", 178, 78, 21)
            planes = (
                ([(124, 198), (146, 198), (208, 116), (170, 116)], ("#ff9db8", "#ff5f86")),
                ([(54, 70), (98, 70), (146, 198), (120, 198)], ("#ffffff", "#d5ceff")),
            )
            for points, (light, dark) in planes:
                polyline(ctx, points)
                ctx.close_path()
                ctx.set_source(linear(points[0][0], 70, 140, 205, (0, light), (1, dark)))
                ctx.set_line_join(cairo.LINE_JOIN_ROUND)
                ctx.set_line_width(7)
                ctx.fill_preserve()
                ctx.stroke()
    squircle(ctx, inset + 1, inset + 1, size - 2 * inset - 2)
    stroke(ctx, "#ffffff", 1.5, 0.16)


def make(resources):
    folder = resources / "images"
    folder.mkdir(parents=True, exist_ok=True)
    buttons = {"ads_close_button": close_button, "ads_sound_on": sound_on, "ads_sound_off": sound_off}
    for name, draw in buttons.items():
        picture, ctx = surface(POINTS, POINTS, SCALE)
        draw(ctx)
        picture.write_to_png(str(folder / f"{name}.png"))
    picture, ctx = surface(256, 256)
    velmora_icon(ctx, 256)
    picture.write_to_png(str(folder / "velmora-icon.png"))
