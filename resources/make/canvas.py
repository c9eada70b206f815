# SPDX-License-Identifier: Apache-2.0
"""Drawing helpers on cairo and Pango shared by every picture in this folder."""

import math
from contextlib import contextmanager

import cairo
import gi

gi.require_version("Pango", "1.0")
gi.require_version("PangoCairo", "1.0")
from gi.repository import Pango, PangoCairo  # noqa: E402


# --- colour -----------------------------------------------------------------

def rgb(colour, alpha=1.0):
    """'#rrggbb' or a tuple of three or four numbers, as four numbers."""
    if isinstance(colour, str):
        h = colour.lstrip("#")
        return tuple(int(h[i:i + 2], 16) / 255 for i in (0, 2, 4)) + (alpha,)
    return tuple(colour[:3]) + ((colour[3] if len(colour) > 3 else 1.0) * alpha,)


def mix(a, b, t):
    a, b = rgb(a), rgb(b)
    return tuple(x + (y - x) * t for x, y in zip(a, b))


def source(ctx, colour, alpha=1.0):
    ctx.set_source_rgba(*rgb(colour, alpha))


def linear(x0, y0, x1, y1, *stops):
    gradient = cairo.LinearGradient(x0, y0, x1, y1)
    for offset, colour in stops:
        gradient.add_color_stop_rgba(offset, *rgb(colour))
    return gradient


def radial(x, y, r, *stops):
    gradient = cairo.RadialGradient(x, y, 0, x, y, r)
    for offset, colour in stops:
        gradient.add_color_stop_rgba(offset, *rgb(colour))
    return gradient


# --- time -------------------------------------------------------------------

def clamp(t):
    return 0.0 if t < 0 else 1.0 if t > 1 else t


def span(t, start, end):
    """Where t stands between start and end, 0 to 1."""
    return clamp((t - start) / (end - start))


def lerp(a, b, t):
    return a + (b - a) * t


def ease_out(t, power=3):
    return 1 - (1 - clamp(t)) ** power


def ease_in(t, power=3):
    return clamp(t) ** power


def ease(t):
    t = clamp(t)
    return 4 * t ** 3 if t < 0.5 else 1 - (-2 * t + 2) ** 3 / 2


def overshoot(t, s=1.7):
    t = clamp(t) - 1
    return t * t * ((s + 1) * t + s) + 1


def bounce(t):
    t = clamp(t)
    for limit, shift, floor in ((1, 0, 0), (2, 1.5, .75), (2.5, 2.25, .9375), (2.75, 2.625, .984375)):
        if t < limit / 2.75:
            t -= shift / 2.75
            return 7.5625 * t * t + floor
    return 1.0


# --- surfaces and shapes ----------------------------------------------------

def surface(width, height, scale=1.0):
    """An opaque-capable picture of width x height points and a context in points."""
    picture = cairo.ImageSurface(cairo.FORMAT_ARGB32, round(width * scale), round(height * scale))
    ctx = cairo.Context(picture)
    ctx.scale(scale, scale)
    ctx.set_antialias(cairo.ANTIALIAS_BEST)
    return picture, ctx


@contextmanager
def saved(ctx):
    """Keeps transforms and clips local."""
    ctx.save()
    try:
        yield ctx
    finally:
        ctx.restore()


def rounded(ctx, x, y, w, h, r):
    r = max(0, min(r, w / 2, h / 2))
    ctx.new_sub_path()
    ctx.arc(x + w - r, y + r, r, -math.pi / 2, 0)
    ctx.arc(x + w - r, y + h - r, r, 0, math.pi / 2)
    ctx.arc(x + r, y + h - r, r, math.pi / 2, math.pi)
    ctx.arc(x + r, y + r, r, math.pi, math.pi * 1.5)
    ctx.close_path()


def fill_rect(ctx, colour, x, y, w, h, r=0, alpha=1.0):
    rounded(ctx, x, y, w, h, r)
    source(ctx, colour, alpha)
    ctx.fill()


def disc(ctx, colour, x, y, r, alpha=1.0):
    if r <= 0:
        return
    ctx.new_sub_path()
    ctx.arc(x, y, r, 0, 2 * math.pi)
    source(ctx, colour, alpha)
    ctx.fill()


def polygon(ctx, colour, points, alpha=1.0):
    ctx.new_sub_path()
    for p in points:
        ctx.line_to(*p)
    ctx.close_path()
    source(ctx, colour, alpha)
    ctx.fill()


def polyline(ctx, points):
    ctx.new_sub_path()
    for p in points:
        ctx.line_to(*p)


def stroke(ctx, colour, width, alpha=1.0, dash=None):
    source(ctx, colour, alpha)
    ctx.set_line_width(width)
    ctx.set_line_cap(cairo.LINE_CAP_ROUND)
    ctx.set_line_join(cairo.LINE_JOIN_ROUND)
    ctx.set_dash(dash or [])
    ctx.stroke()
    ctx.set_dash([])


def squircle(ctx, x, y, size):
    """The rounded square of an application icon (a superellipse)."""
    a = size / 2
    ctx.new_sub_path()
    for i in range(120):
        angle = 2 * math.pi * i / 120
        c, s = math.cos(angle), math.sin(angle)
        ctx.line_to(x + a + a * math.copysign(abs(c) ** 0.4, c), y + a + a * math.copysign(abs(s) ** 0.4, s))
    ctx.close_path()


def soft_shadow(ctx, x, y, w, h, r, depth, colour="#000000", strength=0.25, steps=14):
    """A drop shadow of growing rounded rectangles, added up first and painted once to keep its hue."""
    ctx.push_group_with_content(cairo.CONTENT_ALPHA)
    ctx.set_operator(cairo.OPERATOR_ADD)
    for i in range(steps):
        grow = depth * (1 - i / steps) ** 1.5
        fill_rect(ctx, colour, x - grow, y - grow, w + 2 * grow, h + 2 * grow, r + grow, 1 / steps)
    mask = ctx.pop_group()
    source(ctx, colour, strength)
    ctx.mask(mask)


def blob(ctx, points, tension=0.5):
    """A closed smooth curve through the points."""
    n = len(points)
    ctx.new_sub_path()
    ctx.move_to(*points[0])
    for i in range(n):
        p0, p1, p2, p3 = (points[(i + k - 1) % n] for k in range(4))
        k = tension / 3 * 2
        ctx.curve_to(p1[0] + (p2[0] - p0[0]) * k / 2, p1[1] + (p2[1] - p0[1]) * k / 2,
                     p2[0] - (p3[0] - p1[0]) * k / 2, p2[1] - (p3[1] - p1[1]) * k / 2, *p2)
    ctx.close_path()


def bezier(p0, p1, p2, p3, t):
    u = 1 - t
    return tuple(u ** 3 * a + 3 * u * u * t * b + 3 * u * t * t * c + t ** 3 * d
                 for a, b, c, d in zip(p0, p1, p2, p3))


def star(ctx, x, y, r, colour, points=5, inner=0.42, turn=0.0, alpha=1.0):
    polygon(ctx, colour, [
        (x + (r if i % 2 == 0 else r * inner) * math.sin(turn + math.pi * i / points),
         y - (r if i % 2 == 0 else r * inner) * math.cos(turn + math.pi * i / points))
        for i in range(points * 2)], alpha)


# --- text -------------------------------------------------------------------

def _layout(ctx, string, font, size, tracking):
    layout = PangoCairo.create_layout(ctx)
    options = cairo.FontOptions()
    options.set_hint_style(cairo.HINT_STYLE_NONE)
    options.set_hint_metrics(cairo.HINT_METRICS_OFF)
    options.set_antialias(cairo.ANTIALIAS_GRAY)
    PangoCairo.context_set_font_options(layout.get_context(), options)
    PangoCairo.context_set_resolution(layout.get_context(), 72)
    description = Pango.FontDescription(font)
    description.set_absolute_size(size * Pango.SCALE)
    layout.set_font_description(description)
    layout.set_text(string, -1)
    if tracking:
        attributes = Pango.AttrList()
        attributes.insert(Pango.attr_letter_spacing_new(int(tracking * size * Pango.SCALE)))
        layout.set_attributes(attributes)
    return layout


def text_width(ctx, string, font, size, tracking=0.0):
    width = _layout(ctx, string, font, size, tracking).get_extents()[1].width / Pango.SCALE
    return width - tracking * size


def text(ctx, string, x, y, font, size, colour, anchor=0.0, tracking=0.0, alpha=1.0):
    """Draws with the baseline at y; anchor 0, 0.5, 1 is left, centre, right. Returns the width."""
    width = text_width(ctx, string, font, size, tracking)
    if alpha > 0:
        with saved(ctx):
            layout = _layout(ctx, string, font, size, tracking)
            ctx.move_to(x - anchor * width, y - layout.get_baseline() / Pango.SCALE)
            source(ctx, colour, alpha)
            PangoCairo.show_layout(ctx, layout)
    return width


def pill(ctx, label, x, y, w, h, fill, ink, font, size, alpha=1.0, arrow=True):
    """A call-to-action pill with a centred label and a small chevron."""
    fill_rect(ctx, fill, x, y, w, h, h / 2, alpha)
    arrow_width = size * 0.85 if arrow else 0
    width = text_width(ctx, label, font, size)
    left = x + (w - width - arrow_width) / 2
    text(ctx, label, left, y + h / 2 + size * 0.355, font, size, ink, alpha=alpha)
    if arrow:
        ax, ay, r = left + width + size * 0.58, y + h / 2 + size * 0.02, size * 0.24
        polyline(ctx, [(ax - r / 2, ay - r), (ax + r / 2, ay), (ax - r / 2, ay + r)])
        stroke(ctx, ink, size * 0.13, alpha)
