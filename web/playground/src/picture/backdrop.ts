// What stands behind the events: axis, tempo, the blocks as brackets, octaves and the names of lanes.
import type { Drawing } from './events';
import { keyY, laneY, toX, type Band, type Layout, type PlacedBracket } from './layout';
import type { Range } from './scene';
import { lengthOf, marksBetween, timeStep, timeText } from './span';
import { colorOf, hex, mixed } from './tones';

export const FONT = '"IBM Plex Sans", "Helvetica Neue", Helvetica, Arial, sans-serif';
const LEAST_TICK = 70; // pixels between two marks of the axis
const LEAST_OCTAVE = 14;
const LEAST_ROW = 3; // that the eye tells apart
const BLACK_KEYS = [1, 3, 6, 8, 10];

export type Paper = CanvasRenderingContext2D;

interface Sheet extends Drawing {
    readonly paper: Paper;
    readonly accent: string;
    readonly chosen: number; // index of the block at the cursor, or -1
}

function write(sheet: Sheet, text: string, x: number, y: number, color: number, weight = 400): void {
    sheet.paper.font = `${weight} 11px ${FONT}`;
    sheet.paper.fillStyle = hex(color);
    sheet.paper.fillText(text, x, y);
}

function rule(sheet: Sheet, x0: number, y0: number, x1: number, y1: number, color = sheet.tones.grid): void {
    const { paper } = sheet;
    paper.strokeStyle = hex(color);
    paper.lineWidth = 1;
    paper.beginPath();
    paper.moveTo(Math.round(x0) + 0.5, Math.round(y0) + 0.5);
    paper.lineTo(Math.round(x1) + 0.5, Math.round(y1) + 0.5);
    paper.stroke();
}

function drawAxis(sheet: Sheet, bottom: number): void {
    const { layout, span, tones } = sheet;
    const perPixel = lengthOf(span) / (layout.width - layout.gutter);
    const step = timeStep(perPixel * LEAST_TICK);
    sheet.paper.textAlign = 'center';
    for (const time of marksBetween(span.from, span.to, step)) {
        const x = toX(layout, span, time);
        rule(sheet, x, layout.axis.top + layout.axis.height - 5, x, bottom);
        if (x < layout.width - 16) write(sheet, timeText(time, step), x, layout.axis.top + 16, tones.muted);
    }
}

function drawTempo(sheet: Sheet, band: Band): void {
    const { layout, span, tones, paper } = sheet;
    const { seconds, tempos } = sheet.scene.tempo;
    const low = tempos.reduce((least, tempo) => Math.min(least, tempo), Infinity);
    const high = tempos.reduce((most, tempo) => Math.max(most, tempo), -Infinity);
    const toY = (tempo: number): number =>
        band.top + band.height - 4 - ((tempo - low) / (high - low || 1)) * (band.height - 8);
    paper.strokeStyle = hex(tones.muted);
    paper.lineWidth = 1.5;
    paper.beginPath();
    seconds.forEach((time, index) => {
        const x = toX(layout, span, time);
        const y = toY(tempos[index] ?? low);
        if (index === 0) paper.moveTo(x, y);
        else paper.lineTo(x, y);
    });
    paper.stroke();
}

function drawBracket(sheet: Sheet, { of, top, height }: PlacedBracket): void {
    const { layout, span, tones, paper } = sheet;
    const left = Math.max(layout.gutter, toX(layout, span, of.begin));
    const right = Math.min(layout.width, toX(layout, span, of.end)) - 1;
    if (right <= layout.gutter || left >= layout.width) return;
    const color = colorOf(tones, of.rank);
    const isChosen = of.index === sheet.chosen;
    paper.fillStyle = hex(mixed(color, tones.paper, isChosen ? 0.38 : 0.16));
    paper.beginPath();
    paper.roundRect(left, top, Math.max(2, right - left), height, 3);
    paper.fill();
    if (right - left < 34) return;
    const line = of.block.header ? ` · line ${of.block.header.line}` : '';
    const label = right - left > 90 ? `i${of.block.instrument}${line}` : `i${of.block.instrument}`;
    paper.textAlign = 'left';
    write(sheet, label, left + 6, top + height - 3, tones.ink, isChosen ? 600 : 400);
}

const rowHeight = ({ keys }: Layout, roll: Band): number => roll.height / (keys.high - keys.low);

// As on a keyboard, "cs", "ef", "fs", "af" and "bf" are darker, so that each row is known by its neighbours.
function drawKeyboard(sheet: Sheet, roll: Band): void {
    const { layout, paper, tones } = sheet;
    const high = rowHeight(layout, roll);
    if (high < LEAST_ROW) return;
    paper.fillStyle = hex(tones.band);
    for (const key of marksBetween(layout.keys.low, layout.keys.high, 1)) {
        if (!BLACK_KEYS.includes(((key % 12) + 12) % 12)) continue;
        const top = Math.max(roll.top, keyY(layout, roll, key) - high / 2);
        const bottom = Math.min(roll.top + roll.height, keyY(layout, roll, key) + high / 2);
        paper.fillRect(layout.gutter, top, layout.width - layout.gutter, bottom - top);
    }
}

// From one marked c to the next: as many octaves as leave room for the names.
const octaveStep = (perKey: number): number =>
    12 * 2 ** Math.max(0, Math.ceil(Math.log2(LEAST_OCTAVE / (12 * perKey))));

// A line below each c, or through it where rows are too narrow.
function drawOctaves(sheet: Sheet, roll: Band): void {
    const { layout, tones } = sheet;
    const perKey = rowHeight(layout, roll);
    const below = perKey < LEAST_ROW ? 0 : perKey / 2;
    sheet.paper.textAlign = 'right';
    for (const key of marksBetween(layout.keys.low, layout.keys.high, octaveStep(perKey))) {
        const y = keyY(layout, roll, key);
        rule(sheet, layout.gutter, y + below, layout.width, y + below);
        if (y > roll.top + 6) write(sheet, `c${key / 12 - 1}`, layout.gutter - 8, y + 4, tones.muted);
    }
}

// As few digits as tell the two ends of a range apart.
export function shortNumber(value: number): string {
    if (Number.isInteger(value)) return String(value);
    return String(Number(value.toPrecision(Math.abs(value) >= 1000 ? 5 : 3)));
}

// The ends of a range in no more digits than its extent wants: next to 1 a millionth is 0.
export function rangeNumbers({ low, high }: Range): [string, string] {
    const digits = Math.min(12, Math.max(0, Math.ceil(-Math.log10((high - low) / 100))));
    const text = (value: number): string => String(Number(value.toFixed(digits)));
    return [text(low), text(high)];
}

function drawLaneNames(sheet: Sheet): void {
    const { layout, tones } = sheet;
    sheet.paper.textAlign = 'right';
    for (const lane of layout.lanes) {
        const { pfield, range } = lane.field;
        const x = layout.gutter - 8;
        rule(sheet, layout.gutter, lane.top + lane.height, layout.width, lane.top + lane.height);
        write(sheet, `P${pfield}`, x, lane.top + lane.height / 2 + 4, tones.ink, 600);
        if (range.high > range.low) {
            const [low, high] = rangeNumbers(range);
            write(sheet, high, x, laneY(lane, range.high) + 3, tones.muted);
            write(sheet, low, x, laneY(lane, range.low) + 4, tones.muted);
        }
    }
    for (const [instrument, band] of layout.strokes) {
        write(sheet, `i${instrument}`, layout.gutter - 8, band.top + band.height / 2 + 4, tones.muted);
    }
}

// The block at the cursor, from top to bottom.
function drawChosen(sheet: Sheet): void {
    const { layout, span, paper, scene } = sheet;
    const chosen = scene.blocks.find(({ index }) => index === sheet.chosen);
    if (!chosen) return;
    const left = Math.max(layout.gutter, toX(layout, span, chosen.begin));
    const right = Math.min(layout.width, toX(layout, span, chosen.end));
    if (right <= left) return;
    const top = layout.bracketBand.top - 3;
    paper.globalAlpha = 0.08;
    paper.fillStyle = sheet.accent;
    paper.fillRect(left, top, right - left, layout.height - top);
    paper.globalAlpha = 1;
}

export function drawBackdrop(sheet: Sheet): void {
    const { layout, paper, tones } = sheet;
    if (layout.roll) drawKeyboard(sheet, layout.roll);
    drawAxis(sheet, layout.height);
    drawChosen(sheet);
    paper.textAlign = 'right';
    if (layout.tempo) {
        drawTempo(sheet, layout.tempo);
        paper.fillStyle = hex(tones.paper);
        paper.fillRect(0, layout.tempo.top - 4, layout.gutter, layout.tempo.height + 8);
        paper.textAlign = 'right';
        write(sheet, 'tempo', layout.gutter - 8, layout.tempo.top + layout.tempo.height / 2 + 4, tones.muted);
    }
    for (const bracket of layout.brackets) drawBracket(sheet, bracket);
    if (layout.roll) drawOctaves(sheet, layout.roll);
    drawLaneNames(sheet);
}
