#!/usr/bin/env python3
"""Makes resources/sounds/click.wav, the click that the notch opens with.

Two partials, struck together and dying away within 24 ms: a short, dry tick. Written anew it is
the same to the byte. Usage: tools/make_click.py resources/sounds/click.wav
"""

import math
import struct
import sys
import wave

RATE = 44_100  # samples a second
LENGTH = 0.024  # seconds
ATTACK = 0.0006  # seconds until it is loudest
PARTIALS = ((2_350, 0.62, 0.0042), (5_480, 0.30, 0.0018))  # Hz, amplitude, seconds to 1/e
FADE = 0.004  # seconds at the end, so that it ends in silence


def sample(at):
    tone = sum(
        amplitude * math.exp(-at / decay) * math.sin(2 * math.pi * frequency * at)
        for frequency, amplitude, decay in PARTIALS
    )
    return tone * min(1, at / ATTACK) * min(1, (LENGTH - at) / FADE)


def main(path):
    samples = [round(32_767 * sample(n / RATE)) for n in range(round(RATE * LENGTH))]
    with wave.open(path, "wb") as out:
        out.setnchannels(1)
        out.setsampwidth(2)
        out.setframerate(RATE)
        out.writeframes(struct.pack(f"<{len(samples)}h", *samples))


if __name__ == "__main__":
    main(sys.argv[1])
