// What the line at the cursor reads after macros and constants, when that is something else.
import type { VornClient } from 'vorn-wasm';
import type { AppState, AppStore } from '../state/app_state';
import { fileOf, isOrchestra } from '../state/piece';
import { find, make } from './dom';

const MOST_LINES = 12;

// Blanks and comments make no difference to a reader.
const bare = (line: string): string => line.replace(/;.*$/, '').replace(/\s+/g, ' ').trim();

const lineOf = (text: string, line: number): string => text.split('\n', line)[line - 1] ?? '';

// The readings that say something else than the line does; each once.
export const otherReadings = (line: string, readings: readonly string[]): string[] => [
    ...new Set(readings.map((one) => one.trim()).filter((one) => bare(one) !== bare(line) && one !== '')),
];

function show(place: HTMLElement, readings: readonly string[]): void {
    place.hidden = readings.length === 0;
    const title =
        readings.length > 1
            ? 'After macros and constants this line reads, in turn'
            : 'After macros and constants';
    const text = readings.slice(0, MOST_LINES).join('\n');
    place.replaceChildren(make('p', { class: 'expansion-name' }, title), make('pre', {}, text));
}

export function showExpansion(store: AppStore, engine: Promise<VornClient>): void {
    const place = find('#expansion', HTMLElement);
    let asked = 0;
    const readings = async (): Promise<string[]> => {
        const { cursor, result, resultPiece, piece } = store.state;
        if (!result || piece !== resultPiece || isOrchestra(cursor.file)) return [];
        const lines = await (await engine).expandedLines(cursor.file, cursor.line);
        return otherReadings(lineOf(fileOf(piece, cursor.file)?.text ?? '', cursor.line), lines);
    };
    const ask = async (): Promise<void> => {
        const own = ++asked;
        const found = await readings().catch(() => []);
        if (own === asked) show(place, found);
    };
    let timer: ReturnType<typeof setTimeout> | undefined;
    const soon = (): void => {
        clearTimeout(timer);
        timer = setTimeout(() => void ask(), 60);
    };
    const line = ({ cursor }: Readonly<AppState>): string => `${cursor.line} ${cursor.file}`;
    store.watch(line, soon);
    store.watch((state) => state.result, soon);
}
