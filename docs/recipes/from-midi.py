"""Writes a MIDI file as a score of Vorn: python3 from-midi.py piece.mid > piece.vorn
Each channel of each track becomes a block with an instrument of its own, in beats, with levels from 0 to 1.
MIDI files are read by mido (Debian: python3-mido; elsewhere: pip install mido)."""
import sys

import mido

NAMES = "c cs d ef e f fs g af a bf b".split()
LOWEST_NAME = 12  # c0
LONGEST = 599  # beats, behind 400 in p3


def voices(track, ticks):
    """The notes of each channel as (start, key, length, level), with so many ticks to the beat."""
    now, sounding, found = 0, {}, {}

    def end(channel, key):
        start, level = sounding.pop((channel, key))
        found.setdefault(channel, []).append((round(start / ticks, 5), key, (now - start) / ticks, level))

    for message in track:
        now += message.time
        if message.type not in ("note_on", "note_off"):
            continue
        one = message.channel, message.note
        if one in sounding:  # a new stroke ends the one before on its key
            end(*one)
        if message.type == "note_on" and message.velocity > 0:
            sounding[one] = now, message.velocity / 127
    for one in list(sounding):  # what nothing ends sounds as long as its track
        end(*one)
    return [sorted(found[channel]) for channel in sorted(found)]


def number(value):
    return f"{value:.5f}".rstrip("0").rstrip(".")


def name(key):
    return NAMES[key % 12] + str(key // 12 - 1)


def statement(field, values):
    """Eight values to a line."""
    lines = [" ".join(values[at:at + 8]) for at in range(0, len(values), 8)]
    return field + " " + "\n   ".join(lines)


def duration(beats, tempo):
    """In p3: 400 and beats, or 1000 and seconds where these are too many."""
    return number(400 + beats if beats <= LONGEST else 1000 + beats * 60 / tempo)


def pitches(keys):
    """The statement of p4: names, or frequencies where a key is too low for a name."""
    if min(keys) >= LOWEST_NAME:
        return statement("p4(hz) no", [name(key) for key in keys])
    return statement("p4", [number(440 * 2 ** ((key - 69) / 12)) for key in keys])


def block(instrument, notes, tempo):
    starts = [note[0] for note in notes]
    gaps = [later - start for start, later in zip(starts, starts[1:])] + [1]
    return "\n".join([f"i{instrument} = 5 {number(starts[0])} -{len(notes)} {{",
                      statement("p2", [number(gap) for gap in gaps]),
                      statement("p3", [duration(note[2], tempo) for note in notes]),
                      pitches([note[1] for note in notes]),
                      statement("p5", [number(note[3]) for note in notes]), "}\n"])


def read(file):
    try:
        return mido.MidiFile(file)
    except OSError as error:
        sys.exit(f"from-midi.py: cannot read {file}: {error.strerror or 'it is no MIDI file'}")
    except (EOFError, ValueError, LookupError):
        sys.exit(f"from-midi.py: {file} is no whole MIDI file")


def main(arguments):
    if len(arguments) != 1:
        sys.exit("python3 from-midi.py piece.mid > piece.vorn")
    midi = read(arguments[0])
    tempos = [message.tempo for track in midi.tracks for message in track if message.type == "set_tempo"]
    tempo = round(mido.tempo2bpm(tempos[0]), 3) if tempos else 120
    print(f"; {arguments[0]}\nte({tempo:g})\n")
    found = [notes for track in midi.tracks for notes in voices(track, midi.ticks_per_beat)]
    for instrument, notes in enumerate(found, 1):
        print(block(instrument, notes, tempo))


main(sys.argv[1:])
