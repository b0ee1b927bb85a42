"""Which places are tried: the same for the same seed, and hardly others after a small change."""

import hashlib
import os

from mutation.places import find_places

LEFT_OUT = ("driver/main.cpp",)  # the command's own few lines lie outside the library that is exchanged


def sources(folder):
    for path, _, names in sorted(os.walk(folder)):
        for name in sorted(names):
            relative = os.path.relpath(os.path.join(path, name), folder)
            if name.endswith((".h", ".cpp")) and relative not in LEFT_OUT and "third_party" not in relative:
                yield relative


def all_places(folder, start=""):
    for name in sources(folder):
        if name.startswith(start):
            with open(os.path.join(folder, name), encoding="utf-8") as file:
                yield from find_places(name, file.read())


def key(place):
    """What stays the same when lines move."""
    return "\n".join([place.file, place.line, place.old, place.new, str(place.nth)])


def digest(seed, place):
    return hashlib.sha256(f"{seed}\n{key(place)}".encode()).hexdigest()


def one_each(places, seed):
    """One change for each place, all in an order that the seed decides."""
    chosen = {}
    for place in places:
        current = chosen.setdefault((place.file, place.start), place)
        if digest(f"{seed} change", place) < digest(f"{seed} change", current):
            chosen[place.file, place.start] = place
    return sorted(chosen.values(), key=lambda place: digest(seed, place))
