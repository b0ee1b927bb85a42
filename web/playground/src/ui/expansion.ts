// What the line at the cursor reads after macros and constants, when that is something else.
import type { ExpandedLine, VornClient } from 'vorn-wasm';
import type { AppState, AppStore } from '../state/app_state';
import { isOrchestra } from '../state/piece';
import { find, make } from './dom';

const MOST_LINES = 12;

function show(place: HTMLElement, lines: readonly ExpandedLine[]): void {
    const names = [...new Set(lines.flatMap((line) => line.calls.map((call) => call.name)))].filter(Boolean);
    const text = lines
        .slice(0, MOST_LINES)
        .map((line) => line.text.trimEnd())
        .join('\n');
    place.hidden = names.length === 0 && !lines.some((line) => line.calls.length > 0);
    if (place.hidden) return;
    const title =
        names.length > 0 ? `After ${names.slice(0, 5).join(', ')} this line reads` : 'This line reads';
    place.replaceChildren(make('p', { class: 'expansion-name' }, title), make('pre', {}, text));
}

export function showExpansion(store: AppStore, engine: Promise<VornClient>): void {
    const place = find('#expansion', HTMLElement);
    let asked = 0;
    const ask = async (): Promise<void> => {
        const own = ++asked;
        const { cursor, result, trouble } = store.state;
        if (!result || trouble !== '' || isOrchestra(cursor.file)) {
            place.hidden = true;
            return;
        }
        try {
            const lines = await (await engine).expandedLines(cursor.file, cursor.line);
            if (own === asked) show(place, lines);
        } catch {
            place.hidden = true;
        }
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
