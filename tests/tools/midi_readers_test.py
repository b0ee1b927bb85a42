#!/usr/bin/env python3
"""Real programs read the MIDI files. midicsv and mido must find in the file of
every MIDI case the events that the case expects, and in the files of random
scores the notes, velocities and ticks that the scores say."""

import os
import pathlib
import random
import shlex
import shutil
import subprocess
import sys
import tempfile

import mido

VORN = os.environ["VORN_PROGRAM"]
SEED = 5
RANDOM_SCORES = 20
TICKS = 480  # a second
SILENT = "MALFORMED"  # such a case is there for bytes that no reader takes


def run_vorn(arguments, folder):
    command = [VORN, *arguments]
    return subprocess.run(command, cwd=folder, stdin=subprocess.DEVNULL, capture_output=True, timeout=60)


# --- one track list each, of (tick, kind, channel, note, velocity) and (tick, "end") ---


def expected_tracks(dump):
    tracks = []
    for line in dump.splitlines():
        words = line.split()
        if words[0] == "MTrk":
            tracks.append([])
        elif line.endswith("end of track"):
            tracks[-1].append((int(words[0]), "end"))
        elif words[0] != "MThd" and words[2] in ("on", "off"):
            tracks[-1].append((int(words[0]), words[2], int(words[4]), int(words[6]), int(words[8])))
    return tracks


def midicsv_tracks(path):
    result = subprocess.run(["midicsv", path], capture_output=True, text=True, check=True, timeout=60)
    if result.stderr:
        raise ValueError(result.stderr)
    kinds = {"Note_on_c": "on", "Note_off_c": "off"}
    tracks = []
    for line in result.stdout.splitlines():
        _, tick, kind, *values = line.split(", ")
        if kind == "Start_track":
            tracks.append([])
        elif kind == "End_track":
            tracks[-1].append((int(tick), "end"))
        elif kind in kinds:
            channel, note, velocity = map(int, values)
            tracks[-1].append((int(tick), kinds[kind], channel + 1, note, velocity))
        elif kind == "Header" and values != ["1", "2", str(TICKS)]:
            raise ValueError(line)
    return tracks


def mido_tracks(path):
    file = mido.MidiFile(path)
    if (file.type, file.ticks_per_beat) != (1, TICKS):
        raise ValueError(f"type {file.type}, {file.ticks_per_beat} ticks")
    tracks = []
    for messages in file.tracks:
        tick = 0
        track = []
        for message in messages:
            tick += message.time
            if message.type == "end_of_track":
                track.append((tick, "end"))
            elif message.type in ("note_on", "note_off"):
                kind = message.type[len("note_"):]
                track.append((tick, kind, message.channel + 1, message.note, message.velocity))
        tracks.append(track)
    return tracks


def problems(name, path, expected):
    found = []
    for reader in (midicsv_tracks, mido_tracks):
        tracks = reader(path)
        if tracks != expected:
            found.append(f"{name}: {reader.__name__} reads\n{first_difference(tracks, expected)}")
    return found


def first_difference(tracks, expected):
    read = [event for track in tracks for event in track]
    wanted = [event for track in expected for event in track]
    place = next((i for i, pair in enumerate(zip(read, wanted)) if pair[0] != pair[1]), min(len(read), len(wanted)))
    return f"  {read[place:place + 3]} instead of {wanted[place:place + 3]} from event {place} on"


# --- the cases ---


def check_case(folder):
    dump = (folder / "expected.midi").read_text()
    if not dump or SILENT in dump:
        return []
    with tempfile.TemporaryDirectory() as work:
        for source in folder.rglob("*"):
            if source.suffix in (".vorn", ".inc"):
                target = pathlib.Path(work, source.relative_to(folder))
                target.parent.mkdir(parents=True, exist_ok=True)
                shutil.copyfile(source, target)
        arguments = shlex.split((folder / "args").read_text())
        run_vorn(arguments, work)
        return problems(folder, pathlib.Path(work, arguments[-1]), expected_tracks(dump))


# --- random literal scores, in times that are whole ticks and exact when read ---


def random_notes(chance):
    start = 0
    notes = []
    for _ in range(chance.randint(1, 400)):
        duration = chance.randint(1, 32) / 8
        notes.append((start, duration, chance.randint(0, 32767), chance.randint(0, 127)))
        start += chance.randint(0, 16) / 8
    return notes


def score_of(notes):
    starts = [note[0] for note in notes] + [notes[-1][0]]
    columns = [
        ("p2 re", [later - start for start, later in zip(starts, starts[1:])]),
        ("p3 re", [1000 + note[1] for note in notes]),
        ("p4 re", [note[2] for note in notes]),
        ("p5 in", [note[3] for note in notes]),
    ]
    lines = [f"i1=5 0 -{len(notes)} {{"]
    for head, values in columns:
        lines.append(head)
        lines += [str(value) for value in values]
    return "\n".join(lines + ["}\n"])


def tracks_of(notes):
    events = []
    for index, (start, duration, amplitude, note) in enumerate(notes):
        velocity = int(amplitude * 127 / 32767)
        events.append((start, 0, index, "on", note, velocity))
        events.append((start + duration, 1, index, "off", note, 64))
    events.sort()
    track = [(int(time * TICKS), kind, 1, note, velocity) for time, _, _, kind, note, velocity in events]
    last_note = notes[events[-1][2]]
    length = last_note[0] + 2 * last_note[1] + 1
    return [[(int(length * TICKS), "end")], [*track, (track[-1][0], "end")]]


def check_random_scores():
    chance = random.Random(SEED)
    found = []
    with tempfile.TemporaryDirectory() as work:
        for number in range(RANDOM_SCORES):
            notes = random_notes(chance)
            pathlib.Path(work, "in.vorn").write_text(score_of(notes))
            run_vorn(["-s", "-m", "in.vorn", "out.mid"], work)
            found += problems(f"score {number} of seed {SEED}", pathlib.Path(work, "out.mid"), tracks_of(notes))
    return found


def main():
    cases = sorted(path.parent for path in pathlib.Path("tests/cases").glob("*/*/expected.midi"))
    wrong = [] if cases else ["no MIDI cases found"]
    for folder in cases:
        wrong += check_case(folder)
    wrong += check_random_scores()
    print("\n".join(wrong) or f"{len(cases)} cases and {RANDOM_SCORES} scores are read as they should be")
    return 1 if wrong else 0


sys.exit(main())
