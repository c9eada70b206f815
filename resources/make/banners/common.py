# SPDX-License-Identifier: Apache-2.0
"""What several banners share."""

from contextlib import contextmanager

from canvas import ease_in, ease_out, rounded, saved, span, squircle, text, text_width


def swap(ctx, old, new, t, x, y, font, size, colour, new_colour=None, rise=None, anchor=0.0):
    """One line of text leaves upwards while the next arrives from below."""
    rise = rise or size * 0.4
    leave, arrive = ease_in(span(t, 0, 0.45), 2), ease_out(span(t, 0.45, 1), 2)
    if leave < 1:
        text(ctx, old, x, y - rise * leave, font, size, colour, anchor, alpha=1 - leave)
    if arrive > 0:
        text(ctx, new, x, y + rise * (1 - arrive), font, size, new_colour or colour, anchor, alpha=arrive)


def brand(ctx, draw_icon, name, x, y, icon, font, size, colour, tracking=0.0):
    """A small icon and the product's name beside it, centred on y."""
    draw_icon(ctx, x, y - icon / 2, icon)
    text(ctx, name, x + icon + size * 0.55, y + size * 0.35, font, size, colour, tracking=tracking)
    return x + icon + size * 0.55 + text_width(ctx, name, font, size, tracking)


def wipe(ctx, old, new, t, x, y, font, size, colour, new_font=None, new_size=None):
    """An edge runs along a line of text and leaves the next line behind it: each pixel changes twice at most."""
    new_font, new_size = new_font or font, new_size or size
    gap, pad = size * 0.5, size * 0.2
    width = max(text_width(ctx, old, font, size), text_width(ctx, new, new_font, new_size))
    edge = x - pad - gap + (width + 2 * pad + gap) * t
    for string, face, points, left, right in ((new, new_font, new_size, x - size, edge),
                                              (old, font, size, edge + gap, x + width + size)):
        with saved(ctx):
            ctx.rectangle(left, y - 2 * size, max(0, right - left), 3 * size)
            ctx.clip()
            text(ctx, string, x, y, face, points, colour)


@contextmanager
def tile(ctx, x, y, size):
    """Clips to an icon's shape and scales its contents to a 100-unit square."""
    with saved(ctx):
        squircle(ctx, x, y, size)
        ctx.clip()
        ctx.translate(x, y)
        ctx.scale(size / 100, size / 100)
        yield ctx


@contextmanager
def clipped(ctx, x, y, w, h, r=0):
    """Drawing stays inside a rounded rectangle."""
    with saved(ctx):
        rounded(ctx, x, y, w, h, r)
        ctx.clip()
        yield ctx
