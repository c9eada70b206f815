# SPDX-License-Identifier: Apache-2.0
"""Renders a film frame by frame and encodes it with its sound."""

import subprocess
import tempfile
import wave
from pathlib import Path

import numpy
from PIL import Image

from canvas import (clamp, disc, ease_in, ease_out, fill_rect, rounded, saved, soft_shadow, star, stroke, surface,
                    text, text_width)

WIDTH, HEIGHT, RATE = 960, 540, 30
SAMPLES = 48000


def grain(strength, width=WIDTH, height=HEIGHT):
    """A still pattern of faint noise that keeps dark gradients from showing bands."""
    noise = numpy.random.default_rng(7).uniform(-strength, strength, (height, width, 1))
    return numpy.repeat(noise, 3, axis=2)


def frame_bytes(picture, noise):
    picture.flush()
    pixels = numpy.frombuffer(picture.get_data(), numpy.uint8).reshape(HEIGHT, WIDTH, 4)
    if noise is None:
        return pixels.tobytes()
    pixels = pixels.copy()
    pixels[..., :3] = numpy.clip(numpy.rint(pixels[..., :3] + noise), 0, 255)
    return pixels.tobytes()


def write_wave(path, sound):
    data = numpy.clip(numpy.rint(sound * 32767), -32768, 32767).astype("<i2")
    with wave.open(str(path), "wb") as out:
        out.setnchannels(2)
        out.setsampwidth(2)
        out.setframerate(SAMPLES)
        out.writeframes(data.tobytes())


def encode(film, path, limit):
    noise = grain(film.GRAIN) if film.GRAIN else None
    with tempfile.TemporaryDirectory() as folder:
        sound = Path(folder) / "sound.wav"
        write_wave(sound, film.sound(film.SECONDS))
        # One encoder thread: the result must not depend on the machine's number of cores.
        encoder = subprocess.Popen(
            ["ffmpeg", "-v", "error", "-y", "-f", "rawvideo", "-pix_fmt", "bgra", "-s", f"{WIDTH}x{HEIGHT}",
             "-r", str(RATE), "-i", "-", "-i", str(sound),
             "-vf", "scale=out_color_matrix=bt709:out_range=tv,format=yuv420p",
             "-c:v", "libx264", "-profile:v", "high", "-preset", "slow", "-crf", str(film.QUALITY), "-threads", "1",
             "-tune", "animation", "-g", "60",
             "-colorspace", "bt709", "-color_primaries", "bt709", "-color_trc", "bt709",
             "-c:a", "aac", "-b:a", "128k", "-ac", "2", "-t", str(film.SECONDS),
             "-map_metadata", "-1", "-fflags", "+bitexact", "-flags:v", "+bitexact", "-flags:a", "+bitexact",
             "-movflags", "+faststart", str(path)],
            stdin=subprocess.PIPE)
        for index in range(round(film.SECONDS * RATE)):
            picture, ctx = surface(WIDTH, HEIGHT)
            film.draw(ctx, index / RATE)
            encoder.stdin.write(frame_bytes(picture, noise))
        encoder.stdin.close()
        if encoder.wait() != 0:
            raise SystemExit(f"{path.name}: the encoder failed")
    size = path.stat().st_size
    print(f"  {path.name}: {film.SECONDS} s, {size / 1000:.0f} kB")
    if size > limit:
        raise SystemExit(f"{path.name} is larger than {limit} bytes")


# --- what the films draw alike ----------------------------------------------

def words(ctx, string, x, y, font, size, colour, t, start, end=None, stagger=0.09, anchor=0.0, tracking=0.0):
    """Words rise one after another out of the line and, at end, leave upwards together."""
    gone = ease_in((t - end) / 0.28, 2) if end is not None else 0
    if t < start or gone >= 1:
        return
    space = text_width(ctx, "a a", font, size) - text_width(ctx, "aa", font, size)
    parts = string.split(" ")
    widths = [text_width(ctx, part, font, size, tracking) for part in parts]
    at = x - anchor * (sum(widths) + space * (len(parts) - 1))
    for index, (part, width) in enumerate(zip(parts, widths)):
        come = ease_out((t - start - index * stagger) / 0.5, 4)
        if come > 0:
            text(ctx, part, at, y + size * 0.42 * (1 - come) - size * 0.3 * gone, font, size, colour,
                 tracking=tracking, alpha=clamp(come * 1.6) * (1 - gone))
        at += width + space


def window(ctx, x, y, w, h, face, bar, dots, shade="#000000", strength=0.4):
    """An application window with its title bar."""
    soft_shadow(ctx, x, y + 12, w, h, 16, 40, shade, strength, 24)
    fill_rect(ctx, face, x, y, w, h, 16)
    with saved(ctx):
        ctx.rectangle(x, y, w, 36)
        ctx.clip()
        fill_rect(ctx, bar, x, y, w, 60, 16)
    for i in range(3):
        disc(ctx, dots, x + 22 + i * 18, y + 18, 5)
    rounded(ctx, x + 0.5, y + 0.5, w - 1, h - 1, 15.5)
    stroke(ctx, "#ffffff", 1, 0.12)


def stars(ctx, x, y, r, gold, rating, votes, font, colour):
    """Five stars, the rating and the number of votes."""
    for i in range(5):
        star(ctx, x + i * r * 2.4, y, r, gold, inner=0.48)
    text(ctx, rating, x + r * 12.2, y + r * 0.75, font, r * 2.1, colour)
    text(ctx, votes, x + r * 12.2 + text_width(ctx, rating + "  ", font, r * 2.1), y + r * 0.75, font, r * 2.1, colour,
         alpha=0.8)


def still(film, path):
    """The film's end picture, a photograph-like file of 1600 x 1000."""
    picture, ctx = surface(1600, 1000)
    film.still(ctx, 1600, 1000)
    picture.flush()
    pixels = numpy.frombuffer(picture.get_data(), numpy.uint8).reshape(1000, 1600, 4)[..., 2::-1].astype(float)
    if film.GRAIN:
        pixels += grain(film.GRAIN, 1600, 1000)
    image = Image.fromarray(numpy.clip(numpy.rint(pixels), 0, 255).astype(numpy.uint8))
    image.save(path, quality=90, subsampling=0, optimize=True)
    print(f"  {path.name}: {path.stat().st_size / 1000:.0f} kB")
