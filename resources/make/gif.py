# SPDX-License-Identifier: Apache-2.0
"""Animated GIF banners: a story told in holds and short bursts of motion.

A banner module has STORY, a list of beats, and draw(ctx, stage). Stage 0 is the first message,
stage 1 the second and so on; a value between two whole numbers is the motion from one to the next.
The last stage comes back to the first, so the loop has no seam.
"""

import subprocess
import tempfile
from pathlib import Path

from canvas import surface

WIDTH, HEIGHT, SCALE = 728, 90, 2


def hold(seconds):
    return ("hold", round(seconds * 100))


def move(frames, hundredths=8):
    return ("move", frames, hundredths)


def frames_of(story):
    """(stage, delay in hundredths) for every frame; a move's last frame is the hold that follows."""
    frames, stage = [], 0
    for beat in story:
        if beat[0] == "hold":
            frames.append((stage, beat[1]))
        else:
            frames += [(stage + i / beat[1], beat[2]) for i in range(1, beat[1])]
            stage += 1
    return frames


def render(banner, stage, scale=SCALE):
    picture, ctx = surface(WIDTH, HEIGHT, scale)
    banner.draw(ctx, stage)
    picture.flush()
    return picture


def encode(banner, path, limit):
    frames = frames_of(banner.STORY)
    if not 12 <= len(frames) <= 40:
        raise SystemExit(f"{path.name}: {len(frames)} frames")
    pixels = b"".join(bytes(render(banner, stage).get_data()) for stage, _ in frames)
    colours = getattr(banner, "COLOURS", 128)
    dither = getattr(banner, "DITHER", "none")
    with tempfile.TemporaryDirectory() as folder:
        raw = Path(folder) / "raw.gif"
        subprocess.run(
            ["ffmpeg", "-v", "error", "-y", "-f", "rawvideo", "-pix_fmt", "bgra",
             "-s", f"{WIDTH * SCALE}x{HEIGHT * SCALE}", "-r", "10", "-i", "-",
             "-filter_complex", f"format=rgb24,split[a][b];[a]palettegen=max_colors={colours}:"
             f"reserve_transparent=0:stats_mode=full[p];[b][p]paletteuse=dither={dither}",
             "-gifflags", "-offsetting-transdiff", "-threads", "1", str(raw)],
            input=pixels, check=True)
        command = ["gifsicle", "--no-warnings", "--unoptimize", "--loopcount=forever",
                   "-O3", f"--lossy={getattr(banner, 'LOSSY', 0)}", "--no-comments", str(raw)]
        for index, (_, delay) in enumerate(frames):
            command += [f"-d{delay}", f"#{index}"]
        subprocess.run(command + ["-o", str(path)], check=True)
    size = path.stat().st_size
    seconds = sum(delay for _, delay in frames) / 100
    print(f"  {path.name}: {banner.NAME}, {len(frames)} frames, {seconds:.1f} s, {size / 1000:.0f} kB")
    if size > limit:
        raise SystemExit(f"{path.name} is larger than {limit} bytes")
