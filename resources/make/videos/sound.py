# SPDX-License-Identifier: Apache-2.0
"""Small synthesiser: soft music beds of a few seconds, always the same for the same film."""

import numpy

from videos.film import SAMPLES


def silence(seconds):
    return numpy.zeros((round(seconds * SAMPLES), 2))


def pitch(note):
    """Frequency of a MIDI note number."""
    return 440.0 * 2 ** ((note - 69) / 12)


def add(track, voice, at, gain, pan=0.5):
    start = round(at * SAMPLES)
    end = min(len(track), start + len(voice))
    if end > start:
        left, right = numpy.cos(pan * numpy.pi / 2), numpy.sin(pan * numpy.pi / 2)
        track[start:end, 0] += voice[:end - start] * gain * left
        track[start:end, 1] += voice[:end - start] * gain * right


def mallet(note, seconds=1.1):
    """A wooden bar struck softly."""
    t = numpy.arange(round(seconds * SAMPLES)) / SAMPLES
    f = pitch(note)
    tone = (numpy.sin(2 * numpy.pi * f * t) * numpy.exp(-t * 4.5)
            + 0.35 * numpy.sin(2 * numpy.pi * f * 3.93 * t) * numpy.exp(-t * 16)
            + 0.12 * numpy.sin(2 * numpy.pi * f * 9.2 * t) * numpy.exp(-t * 40))
    return tone * numpy.minimum(1, t / 0.003)


def bell(note, seconds=2.6):
    t = numpy.arange(round(seconds * SAMPLES)) / SAMPLES
    f = pitch(note)
    tone = sum(a * numpy.sin(2 * numpy.pi * f * r * t) * numpy.exp(-t * d)
               for r, a, d in ((1, 1, 1.8), (2.0, 0.4, 2.8), (3.01, 0.16, 5), (5.4, 0.05, 9)))
    return tone * numpy.minimum(1, t / 0.006)


def bass(note, seconds):
    t = numpy.arange(round(seconds * SAMPLES)) / SAMPLES
    f = pitch(note)
    tone = numpy.sin(2 * numpy.pi * f * t) + 0.3 * numpy.sin(4 * numpy.pi * f * t) * numpy.exp(-t * 6)
    return tone * numpy.minimum(1, t / 0.01) * numpy.exp(-t * 1.6) * numpy.clip((seconds - t) / 0.05, 0, 1)


def pad(note, seconds, attack=0.9, release=1.2):
    """Several slightly detuned voices with few overtones."""
    t = numpy.arange(round(seconds * SAMPLES)) / SAMPLES
    tone = numpy.zeros_like(t)
    for k, detune in enumerate((-0.06, 0.0, 0.07)):
        f = pitch(note + detune)
        for harmonic, level in ((1, 1.0), (2, 0.32), (3, 0.12), (4, 0.05)):
            tone += level * numpy.sin(2 * numpy.pi * f * harmonic * t + k * 1.3 + harmonic)
    return tone / 4 * numpy.clip(t / attack, 0, 1) ** 1.5 * numpy.clip((seconds - t) / release, 0, 1) ** 1.5


def noise(seconds, low, high, seed):
    """Noise between two frequencies, with gentle slopes."""
    count = round(seconds * SAMPLES)
    spectrum = numpy.fft.rfft(numpy.random.default_rng(seed).standard_normal(count))
    f = numpy.fft.rfftfreq(count, 1 / SAMPLES)
    shape = 1 / (1 + (f / high) ** 4) * (1 - 1 / (1 + (f / low) ** 4))
    result = numpy.fft.irfft(spectrum * shape, count)
    return result / numpy.max(numpy.abs(result))


def shaker(seconds=0.09, seed=3):
    t = numpy.arange(round(seconds * SAMPLES)) / SAMPLES
    return noise(seconds, 5000, 12000, seed) * numpy.exp(-t * 60) * numpy.minimum(1, t / 0.004)


def room(track, seconds, wet, seed=11):
    """A soft reverberation: the track folded with decaying noise, another one for each ear."""
    count = round(seconds * SAMPLES)
    decay = numpy.exp(-numpy.arange(count) / SAMPLES * 5 / seconds)
    size = 1 << (len(track) + count).bit_length()
    result = track.copy()
    for ear in (0, 1):
        tail = noise(seconds, 200, 5000, seed + ear) * decay
        folded = numpy.fft.irfft(numpy.fft.rfft(track[:, ear], size) * numpy.fft.rfft(tail, size), size)[:len(track)]
        result[:, ear] += folded * (wet * numpy.max(numpy.abs(track)) / max(1e-9, numpy.max(numpy.abs(folded))))
    return result


def master(track, peak=0.32, fade_in=0.02, fade_out=0.7):
    t = numpy.arange(len(track)) / SAMPLES
    end = len(track) / SAMPLES
    shape = numpy.clip(t / fade_in, 0, 1) * numpy.clip((end - t) / fade_out, 0, 1)
    track = numpy.tanh(track / numpy.max(numpy.abs(track)) * 1.3) * shape[:, None]
    return track / numpy.max(numpy.abs(track)) * peak
