"""What a sound file holds, in figures: length, peak, level and pitch of its parts.

Channels are added up, so that a place between left and right does not matter."""

import array
import math
import sys
import wave


class Sound:
    def __init__(self, path):
        with wave.open(str(path)) as file:
            self.rate, self.channels = file.getframerate(), file.getnchannels()
            self.frames, self.width = file.getnframes(), file.getsampwidth()
            self._bytes = file.readframes(self.frames)
        self.seconds = self.frames / self.rate

    def _samples(self, first, count):
        """Fractions of full scale, all channels of the frames in turn."""
        step = self.channels * self.width
        part = self._bytes[first * step:(first + count) * step]
        if self.width == 3:  # the lowest byte becomes 0
            part = b"".join(b"\0" + part[at:at + 3] for at in range(0, len(part), 3))
        samples = array.array({2: "h", 3: "i"}[self.width])
        samples.frombytes(part)
        if sys.byteorder == "big":
            samples.byteswap()
        return samples

    def peak(self, start=0.0, seconds=None):
        """The largest sample, 1 for full scale."""
        count = self.frames if seconds is None else int(seconds * self.rate)
        samples = self._samples(int(start * self.rate), count)
        return max(max(samples), -min(samples)) / 2 ** (8 * samples.itemsize - 1) if samples else 0.0

    def strength(self, frequency, start, seconds):
        """The amplitude of one partial in a part of the sound (Goertzel 1958, behind a Hann window)."""
        count = int(seconds * self.rate)
        samples = self._samples(int(start * self.rate), count)
        scale = 2 ** (8 * samples.itemsize - 1)
        turn = 2 * math.pi * frequency / self.rate
        before = last = 0.0
        for at in range(count):
            both = sum(samples[at * self.channels:(at + 1) * self.channels]) / scale
            window = 0.5 - 0.5 * math.cos(2 * math.pi * at / count)
            before, last = last, both * window + 2 * math.cos(turn) * last - before
        power = last * last + before * before - 2 * math.cos(turn) * last * before
        return math.sqrt(max(power, 0.0)) * 4 / count

    def pitch(self, candidates, start, seconds):
        """Of some frequencies the one that is strongest."""
        return max(candidates, key=lambda frequency: self.strength(frequency, start, seconds))
