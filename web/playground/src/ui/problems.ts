// The list of mistakes below the text: what is wrong, what to write, and a button where the cure is certain.
import type { Diagnostic } from 'vorn-wasm';
import type { Editor } from '../editor/editor';
import { allDiagnostics, cure, severityName } from '../editor/mistakes';
import { LONG_DEADLINE, type Computing } from '../engine/computing';
import type { AppStore } from '../state/app_state';
import { fileOf } from '../state/piece';
import { find, make, prose, redraw } from './dom';
import { speak } from './notices';

const MOST = 100;

function lineText(store: AppStore, { place }: Diagnostic): string {
    if (!place) return '';
    const isElsewhere = place.file !== store.state.activeFile;
    return isElsewhere ? `${place.file} ${place.line}` : `line ${place.line}`;
}

function showProblem(store: AppStore, editor: Editor, diagnostic: Diagnostic): HTMLElement {
    const { place, fix } = diagnostic;
    const reveal = (): void => {
        if (place) editor.reveal(place.file, place.from, place.to);
    };
    const mend = (): void => {
        if (fix) cure(store, editor, fix);
        editor.view.focus();
    };
    const times = diagnostic.repeats > 1 ? ` (${diagnostic.repeats} times)` : '';
    const name = severityName[diagnostic.severity];
    const canBeShown = place !== null && fileOf(store.state.piece, place.file) !== undefined;
    return make(
        'li',
        { class: 'problem' },
        make(
            'span',
            { class: `badge ${diagnostic.severity}` },
            make('span', { class: 'unseen' }, `${name} `),
            diagnostic.code,
        ),
        canBeShown
            ? make(
                  'button',
                  { type: 'button', class: 'problem-text', onclick: reveal },
                  diagnostic.text + times,
              )
            : make('span', {}, diagnostic.text + times),
        make('span', { class: 'problem-line' }, lineText(store, diagnostic)),
        ...[...diagnostic.advice, ...diagnostic.notes.map((note) => note.text)].map((text) =>
            make('p', { class: 'problem-advice' }, ...prose(text)),
        ),
        fix !== null &&
            make(
                'button',
                { type: 'button', class: 'word-button', onclick: mend },
                ...prose(capital(fix.title)),
            ),
    );
}

// What stands in the way of sound and files is told before what does not; each in the order of the text.
export const blockingFirst = (all: readonly Diagnostic[]): Diagnostic[] => [
    ...all.filter(({ severity }) => severity === 'error'),
    ...all.filter(({ severity }) => severity !== 'error'),
];

const capital = (text: string): string => text.charAt(0).toUpperCase() + text.slice(1);

function showTrouble(store: AppStore, computing: Computing): HTMLElement {
    const more = make(
        'button',
        { type: 'button', class: 'word-button', onclick: () => computing.now(LONG_DEADLINE) },
        'Let it compute for half a minute',
    );
    return make(
        'li',
        { class: 'problem' },
        make('span', { class: 'badge error' }, 'stop'),
        make('span', {}, store.state.trouble),
        more,
    );
}

const NOTHING = 'Nothing to mend.';
const PAUSE = 1200; // milliseconds without a change, after which a screen reader is told

function inWords(all: readonly Diagnostic[]): string {
    const [first] = all;
    if (!first) return NOTHING;
    const others = all.length > 1 ? `, and ${all.length - 1} more` : '';
    const line = first.place ? `Line ${first.place.line}: ` : '';
    return `${line}${severityName[first.severity]}, ${first.text}${others}`;
}

// Told when writing pauses, and only what is new.
class Told {
    private last = NOTHING;
    private timer: ReturnType<typeof setTimeout> | undefined;

    tell(words: string): void {
        clearTimeout(this.timer);
        if (words === this.last) return;
        this.timer = setTimeout(() => {
            this.last = words;
            speak(words);
        }, PAUSE);
    }
}

// To the first that can be gone to, or to where the list would be.
export function goToProblems(store: AppStore): void {
    store.act('show mistakes', () => ({ page: 'text' }));
    const place = find('#problems', HTMLElement);
    (place.querySelector('button') ?? place).focus();
}

export function showProblems(store: AppStore, editor: Editor, computing: Computing): void {
    const place = find('#problems', HTMLElement);
    const told = new Told();
    const draw = (): void => {
        const { result, trouble } = store.state;
        const all = blockingFirst(allDiagnostics(store.state));
        told.tell(inWords(all));
        const items = all.slice(0, MOST).map((one) => showProblem(store, editor, one));
        if (trouble !== '') items.unshift(showTrouble(store, computing));
        if (all.length > MOST) items.push(make('li', { class: 'all-well' }, `and ${all.length - MOST} more`));
        const well = result && items.length === 0 && make('p', { class: 'all-well' }, NOTHING);
        const list = well ? [well] : items.length > 0 ? [make('ul', { class: 'list-plain' }, ...items)] : [];
        redraw(place, list, place);
    };
    store.watch((state) => state.result, draw);
    store.watch((state) => state.trouble, draw);
    store.watch((state) => state.soundDiagnostics, draw);
    store.watch((state) => state.activeFile, draw);
}
