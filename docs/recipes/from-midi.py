"""Writes a MIDI file as a score of Vorn: python3 from-midi.py piece.mid > piece.vorn
Each channel of each track becomes a block with an instrument of its own, in beats, with levels from 0 to 1.
MIDI files are read by mido (Debian: python3-mido; elsewhere: pip install mido)."""
import sys

import mido

NAMES = "c cs d ef e f fs g af a bf b".split()


def voices(track, ticks):
    """The notes of each channel as (start, key, length, level), with so many ticks to the beat."""
    now, sounding, found = 0, {}, {}
    for message in track:
        now += message.time
        if message.type not in ("note_on", "note_off"):
            continue
        one = message.channel, message.note
        if one in sounding:  # a new stroke ends the one before on its key
            start, level = sounding.pop(one)
            notes = found.setdefault(message.channel, [])
            notes.append((round(start / ticks, 5), message.note, (now - start) / ticks, level))
        if message.type == "note_on" and message.velocity > 0:
            sounding[one] = now, message.velocity / 127
    return [sorted(found[channel]) for channel in sorted(found)]


def number(value):
    return f"{value:.5f}".rstrip("0").rstrip(".")


def name(key):
    return NAMES[key % 12] + str(key // 12 - 1)


def statement(field, values):
    """Eight values to a line."""
    lines = [" ".join(values[at:at + 8]) for at in range(0, len(values), 8)]
    return field + " " + "\n   ".join(lines)


def block(instrument, notes):
    starts = [note[0] for note in notes]
    gaps = [later - start for start, later in zip(starts, starts[1:])] + [1]
    return "\n".join([f"i{instrument} = 5 {number(starts[0])} -{len(notes)} {{",
                      statement("p2", [number(gap) for gap in gaps]),
                      statement("p3", [number(400 + note[2]) for note in notes]),
                      statement("p4(hz) no", [name(note[1]) for note in notes]),
                      statement("p5", [number(note[3]) for note in notes]), "}\n"])


midi = mido.MidiFile(sys.argv[1])
tempos = [message.tempo for track in midi.tracks for message in track if message.type == "set_tempo"]
print(f"; {sys.argv[1]}\nte({round(mido.tempo2bpm(tempos[0]) if tempos else 120, 3):g})\n")
found = [notes for track in midi.tracks for notes in voices(track, midi.ticks_per_beat)]
for instrument, notes in enumerate(found, 1):
    print(block(instrument, notes))
