#!/usr/bin/env python3
"""Draws the small pictures of the rules in docs/manual.md: what each distribution, curve, list,
loop, chord and generator makes of a few events. The values are what `vornkit events` tells of
the statement that stands in the picture, type and colours are those of `vornkit picture`.

    rule_pictures.py <vornkit> [--check]        into docs/pictures/, or only says what differs
"""

import html
import json
import pathlib
import re
import subprocess
import sys
from dataclasses import dataclass

PICTURES = pathlib.Path(__file__).resolve().parents[2] / "docs" / "pictures"
WIDTH = 800  # pixels, as of the other pictures in documents
MARGIN = 16
GAP = 24
HEAD = 40  # the statement and what it means, above each plot
BINS = 36
SHARE = .86  # of its duration that a note is drawn for, so that notes on one pitch are told apart
SHARE_BEFORE_VALUE = .7
CODE = 'style="font-family:ui-monospace,Menlo,Consolas,\'DejaVu Sans Mono\',monospace;font-size:12px"'


@dataclass
class Panel:
    statement: str  # shown, and run
    meaning: str
    once: tuple = ()  # values to be told apart by their colour
    settings: str = ""  # stands between the blocks, not shown


@dataclass
class Figure:
    name: str
    description: str
    columns: int
    height: int  # of a plot
    events: int
    draw: str  # one of DRAWINGS
    panels: list


def distribution(letter, meaning):
    return Panel(f"[{letter}0 1]", meaning)


FIGURES = [
    Figure("distributions", "The seven distributions, each as a histogram of 20,000 values", 4, 84, 20000, "histogram", [
        distribution("", "even; f says the same"),
        distribution("l ", "falls from the low end"),
        distribution("h ", "falls from the high end"),
        distribution("t ", "a triangle"),
        distribution("g ", "a bell"),
        distribution("x ", "a sharp peak"),
        distribution("b ", "both ends"),
    ]),
    Figure("curves", "The six curves, each as a movement from 0 to 1 over 25 events", 4, 84, 25, "line", [
        Panel("mo(T 1 0 1)", "straight; f says the same"),
        Panel("mo(T 1 e 0 1)", "x squared"),
        Panel("mo(T 1 l 0 1)", "the root of x"),
        Panel("mo(T 1 s 0 1)", "a quarter of a sine"),
        Panel("mo(T 1 c 0 1)", "2x less that sine"),
        Panel("mo(T 1 v 4 0 1)", "x to the power 4"),
        Panel("mo(T 1 v .2 0 1)", "x to the power .2"),
    ]),
    Figure("lists", "What lists make of 12 events", 2, 56, 12, "notes", [
        Panel("p4 60 62 64 65", "the last value holds"),
        Panel("p4 60/// 62// 65", "slashes: as many times in all as there are"),
        Panel("p4 60 x4 64 x2 65", "x and a number: so many times in all"),
        Panel("p4 60 z 64 z z 65", "z: the value before"),
    ]),
    Figure("loops", "What loops make of 12 events", 2, 56, 12, "notes", [
        Panel("p4 < 60 62 64 >", "in turn until the block is full"),
        Panel("p4 67 69 < 60 62 64 >", "what stands before the loop is heard once", (67, 69)),
        Panel("p4 < 60 62 64 > 67 69", "behind it, too: then the loop goes on", (67, 69)),
        Panel("p4 < 60 62 > 67 < 64 65 >", "two loops are one cycle, what is between them comes once", (67,)),
        Panel("p4 < 60 x3 64// 65 >", "repeats within a loop"),
        Panel("p4 67 < 60 62 64", "without its end: up to the end of the statement", (67,)),
    ]),
    Figure("chords", "What chords make of 4 starts", 2, 64, 4, "notes", [
        Panel("p4 no c4:e:g d4 f4:a b4", "a chord adds events"),
        Panel("p4 no c4 d4:f:a", "held, it is held whole"),
        Panel("p4 no c4:e:g// f4:a//", "repeated, it is repeated whole"),
        Panel("p4 no < c4:e g4 >", "so it is in a loop"),
        Panel("p4 no c4:e:g d4 f4:a b4  p5 1 2 3 4 5 6 7", "each note takes a value of each later p-field"),
        Panel("p4 no c4 e4 g4 b4  p5 1:2", "in P5 it doubles the event, with the same P4"),
    ]),
    Figure("generators", "What the generators make of 32 events", 2, 64, 32, "notes", [
        Panel("p4 ra(T .5 60 .5 [64 72])", "RA: a value, or one from a range, by weight", (60,), "rs(4)\n"),
        Panel("p4 in rw(T 1 [60 72] .3 66)", "RW: a walk, each step from a window around the last", (), "rs(3)\n"),
        Panel("p4 mo(T 1 e 60 72)", "MO: from one value to another along a curve"),
        Panel("p4 mo(T 1 [60 61] [60 72])", "MO with ranges: a mask that opens", (), "rs(2)\n"),
        Panel("p4 se(T 1 * [60 62 64 65 67 69 71 72])", "SE *: none returns before all have been used", (), "rs(3)\n"),
        Panel("p4 se(T 1 x [60 64 67 72])", "SE x: none follows itself", (), "rs(3)\n"),
        Panel("p4 s2(T 1 [60 62 64:67:71])", "S2: chords among the elements", (), "rs(2)\n"),
        Panel("p4 ms(T 1 [60 62] [70 72])", "MS: more and more of the second set", (70, 72), "rs(6)\n"),
    ]),
]


def statement_of(figure, panel):
    if figure.draw == "histogram":
        return f"p4 ra(T 1 {panel.statement})"
    return panel.statement if panel.statement.startswith("p") else "p4 " + panel.statement


def events(vornkit, figure, panel):
    """(start, duration, value of P4, value of P5) of each event."""
    statement = statement_of(figure, panel)
    pfields = 5 if "p5" in statement else 4
    score = f"{panel.settings}i1 = {pfields} 0 -{figure.events} {{\np2 1\np3 1\n{statement}\n}}\n"
    told = subprocess.run([vornkit, "events", "-"], input=score, capture_output=True, text=True, check=True)
    columns = json.loads(told.stdout)["blocks"][0]["events"]
    fifth = columns.get("p5", [None] * len(columns["p4"]))
    return list(zip(columns["start"], columns["duration"], columns["p4"], fifth))


def number(value):
    return f"{value:.1f}".removesuffix(".0")


class Plot:
    """A rectangle in which values are drawn, by their own coordinates from 0 to 1."""

    def __init__(self, left, top, width, height):
        self.left, self.top, self.width, self.height = left, top, width, height

    def x(self, part):
        return number(self.left + part * self.width)

    def y(self, part):
        return number(self.top + (1 - part) * self.height)

    def line(self, low=0.0):
        return f'<path class="grid" d="M{self.x(0)} {self.y(low)}H{self.x(1)}"/>'


def draw_histogram(plot, rows):
    counts = [0] * BINS
    for _, _, value, _ in rows:
        counts[min(BINS - 1, int(value * BINS))] += 1
    highest = max(max(counts), 2 * len(rows) / BINS)  # an even one reaches half the height
    bars = "".join(f"M{plot.x((at + .5) / BINS)} {plot.y(0)}V{plot.y(count / highest)}"
                   for at, count in enumerate(counts) if count)
    width = number(plot.width / BINS - 1)
    return [f'<path class="c0 s4" stroke-width="{width}" d="{bars}"/>', plot.line()]


def draw_line(plot, rows):
    last = len(rows) - 1
    points = [f"{plot.x(at / last)} {plot.y(row[2])}" for at, row in enumerate(rows)]
    dots = "".join(f"M{point}h0" for point in points)
    return [plot.line(), f'<path class="c0 s0" stroke-width="1.5" d="M{"L".join(points)}"/>',
            f'<path class="c0 s4" stroke-width="5" stroke-linecap="round" d="{dots}"/>']


def draw_notes(plot, rows, once):
    low, high = min(row[2] for row in rows), max(row[2] for row in rows)
    length = max(row[0] + row[1] for row in rows)
    part = SHARE if rows[0][3] is None else SHARE_BEFORE_VALUE
    span = max(high - low, 1)

    def height(value):
        return .08 + .84 * (value - low) / span

    def bars(wanted):
        return "".join(f"M{plot.x(start / length)} {plot.y(height(value))}H{plot.x((start + part * duration) / length)}"
                       for start, duration, value, _ in rows if (round(value, 3) in once) == wanted)
    drawn = [plot.line()]
    for color, wanted in (("c0", False), ("c1", True)):
        if bars(wanted):
            drawn.append(f'<path class="{color} s4" stroke-width="6" d="{bars(wanted)}"/>')
    return drawn + fifth_values(plot, rows, length, height)


def fifth_values(plot, rows, length, height):
    """The values of P5 stand behind their notes; of notes on one place, side by side."""
    texts = {}
    for start, duration, value, fifth in rows:
        if fifth is not None:
            texts.setdefault((start + (SHARE_BEFORE_VALUE + .04) * duration, value), []).append(number(fifth))
    return [f'<text class="ink label" x="{plot.x(end / length)}" y="{number(float(plot.y(height(value))) + 4)}">'
            f'{", ".join(values)}</text>' for (end, value), values in texts.items()]


DRAWINGS = {"histogram": lambda plot, rows, panel: draw_histogram(plot, rows),
            "line": lambda plot, rows, panel: draw_line(plot, rows),
            "notes": lambda plot, rows, panel: draw_notes(plot, rows, panel.once)}


def panel_lines(vornkit, figure, panel, left, top, width):
    plot = Plot(left, top + HEAD, width, figure.height)
    return [f'<text class="ink text" {CODE} x="{number(left)}" y="{number(top + 12)}">{html.escape(panel.statement)}</text>',
            f'<text class="muted label" x="{number(left)}" y="{number(top + 28)}">{html.escape(panel.meaning)}</text>',
            *DRAWINGS[figure.draw](plot, events(vornkit, figure, panel), panel)]


def picture(vornkit, figure, style):
    rows = -(-len(figure.panels) // figure.columns)
    step = HEAD + figure.height + GAP
    height = 2 * MARGIN + rows * step - GAP
    width = (WIDTH - 2 * MARGIN - (figure.columns - 1) * GAP) / figure.columns
    lines = [f'<svg xmlns="http://www.w3.org/2000/svg" class="vorn" width="{WIDTH}" height="{height}" '
             f'viewBox="0 0 {WIDTH} {height}" role="img">', f"<title>{html.escape(figure.description)}</title>", style,
             f'<rect class="paper" width="{WIDTH}" height="{height}"/>']
    for at, panel in enumerate(figure.panels):
        row, column = divmod(at, figure.columns)
        lines += panel_lines(vornkit, figure, panel, MARGIN + column * (width + GAP), MARGIN + row * step, width)
    return "\n".join([*lines, "</svg>"]) + "\n"


def house_style(vornkit):
    """The rules of type and colour, as they stand in a picture of any score."""
    score = "i1 = 3 0 1 {\np2 1\np3 1\n}\n"
    drawn = subprocess.run([vornkit, "picture", "-", "-o", "-"], input=score, capture_output=True, text=True, check=True)
    return re.search(r"<style>.*?</style>", drawn.stdout, re.DOTALL)[0]


def main(vornkit, *options):
    style = house_style(vornkit)
    differing = 0
    for figure in FIGURES:
        path, made = PICTURES / f"{figure.name}.svg", picture(vornkit, figure, style)
        if path.exists() and path.read_text() == made:
            continue
        if "--check" in options:
            print(f"docs/pictures/{path.name} is not what its statements yield: run scripts/pictures")
            differing += 1
        else:
            path.write_text(made)
    return 1 if differing else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
