// What an event holds, in words: for the label beside the pointer and for who hears the page.
import type { SceneBlock } from './scene';

const LETTERS = ['c', 'cs', 'd', 'ef', 'e', 'f', 'fs', 'g', 'gs', 'a', 'bf', 'b'];

// "c4", or "c4 + 31 ct" between the keys.
export function keyName(key: number): string {
    const whole = Math.round(key);
    const cents = Math.round((key - whole) * 100);
    const name = (LETTERS[((whole % 12) + 12) % 12] ?? '') + (Math.floor(whole / 12) - 1);
    if (cents === 0) return name;
    return `${name} ${cents > 0 ? '+' : '−'} ${Math.abs(cents)} ct`;
}

export interface Line {
    readonly name: string;
    readonly value: string;
}

const written = (value: number, digits: number): string =>
    Number.isFinite(value) ? String(Number(value.toFixed(digits))) : String(value);

export function eventLines({ block }: SceneBlock, row: number): Line[] {
    const { events } = block;
    const lines = [
        {
            name: 'start',
            value: `${written(events.start[row] ?? 0, 3)} s · beat ${written(events.beat[row] ?? 0, 3)}`,
        },
        { name: 'length', value: `${written(events.duration[row] ?? 0, 3)} s` },
    ];
    events.columns.forEach((values, column) => {
        const pfield = column + 4;
        const isPitch = block.pitch?.pfield === pfield && events.keys.length > 0;
        const key = isPitch ? ` · ${keyName(events.keys[row] ?? 0)}` : '';
        const isLevel = block.level?.pfield === pfield && block.level.unit !== 'decibels';
        const level = isLevel ? ` · ${written(events.levels[row] ?? 0, 1)} dB` : '';
        lines.push({ name: `P${pfield}`, value: written(values[row] ?? 0, 4) + key + level });
    });
    return lines;
}

export const eventTitle = ({ block }: SceneBlock): string =>
    `instrument ${block.instrument}${block.header ? `, block of line ${block.header.line}` : ''}`;

export const spokenEvent = (of: SceneBlock, row: number): string =>
    [eventTitle(of), ...eventLines(of, row).map(({ name, value }) => `${name} ${value}`)].join(', ');
