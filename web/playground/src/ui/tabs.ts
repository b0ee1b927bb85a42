// The files of the piece as tabs. The score is first and stays; others may be added and taken out.
import { playWith, type AppStore } from '../state/app_state';
import { missingPartsOf, orchestraOf, orchestrasOf } from '../state/orchestras';
import {
    fileOf,
    mainFile,
    ORCHESTRA_SUFFIX,
    withFile,
    withFileOf,
    withoutFile,
    withoutSuffix,
    type Piece,
} from '../state/piece';
import { find, make } from './dom';
import { iconButton } from './icons';
import { attachMenu, type MenuEntry } from './menu';
import { notice } from './notices';

const FIRST_ORCHESTRA = `sr = 44100
ksmps = 32
nchnls = 2
0dbfs = 1

instr 1                             ; p4 frequency in hertz, p5 amplitude from 0 to 1
    kenv   linsegr 0, .01, 1, p3, .4, .08, 0
    asound poscil  p5 * kenv, p4
           outs    asound, asound
endin
`;

function addFile(store: AppStore, name: string, text: string): void {
    store.act('add file', ({ piece }) => ({ piece: withFile(piece, { name, text }), activeFile: name }));
}

function freeName(store: AppStore, stem: string, suffix: string): string {
    for (let count = 1; ; count++) {
        const name = (count === 1 ? stem : `${stem}${count}`) + suffix;
        if (!fileOf(store.state.piece, name)) return name;
    }
}

// What plays in its place, when it is an orchestra that played.
function successor(before: Piece, after: Piece): string {
    const now = orchestraOf(after)?.name;
    return now === undefined || now === orchestraOf(before)?.name ? '' : ` ${now} plays from now on.`;
}

export function removeFile(store: AppStore, name: string): void {
    const { piece: before, pieceNumber } = store.state;
    store.act('remove file', ({ piece, activeFile }) => ({
        piece: withoutFile(piece, name),
        activeFile: activeFile === name ? mainFile(piece).name : activeFile,
    }));
    const undo = (): void => {
        if (store.state.pieceNumber !== pieceNumber) return;
        store.act('bring back', ({ piece }) => ({ piece: withFileOf(before, piece, name) }));
    };
    const words = `${name} has been taken out.${successor(before, store.state.piece)}`;
    notice(words, { word: 'Bring back', act: undo });
}

// The orchestra that is shown, where another one plays.
function playing(store: AppStore): MenuEntry[] {
    const { piece, activeFile } = store.state;
    const isOther = orchestrasOf(piece).some(({ name }) => name === activeFile);
    if (!isOther || orchestraOf(piece)?.name === activeFile) return [];
    return [{ name: `Play with ${activeFile}`, act: () => playWith(store, activeFile) }];
}

function additions(store: AppStore): MenuEntry[] {
    const { piece, activeFile, result } = store.state;
    const stem = withoutSuffix(mainFile(piece).name);
    const missing = (result?.missing ?? []).filter((name) => !fileOf(piece, name));
    const asked = new Set([...missing, ...missingPartsOf(piece)]);
    const entries: MenuEntry[] = [...asked].map((name) => ({
        name,
        hint: 'asked for',
        act: () => addFile(store, name, ''),
    }));
    if (!orchestraOf(piece)) {
        const name = freeName(store, stem, ORCHESTRA_SUFFIX);
        entries.push({
            name: 'An orchestra',
            hint: ORCHESTRA_SUFFIX,
            act: () => addFile(store, name, FIRST_ORCHESTRA),
        });
    }
    const include = freeName(store, 'part', '.inc');
    entries.push({ name: 'An include', hint: '.inc', act: () => addFile(store, include, `; ${include}\n`) });
    if (activeFile !== mainFile(piece).name) {
        entries.push('line', ...playing(store), {
            name: `Take out ${activeFile}`,
            act: () => removeFile(store, activeFile),
        });
    }
    return entries;
}

function makeTab(store: AppStore, name: string): HTMLElement {
    const isActive = name === store.state.activeFile;
    return make(
        'button',
        {
            type: 'button',
            role: 'tab',
            class: 'tab',
            id: `tab-${name}`,
            'aria-selected': isActive ? 'true' : 'false',
            'aria-controls': 'editor',
            tabindex: isActive ? 0 : -1,
            onclick: () => store.act('choose file', () => ({ activeFile: name })),
        },
        name,
    );
}

function walk(list: HTMLElement, event: KeyboardEvent): void {
    const step = { ArrowRight: 1, ArrowLeft: -1 }[event.key];
    if (step === undefined) return;
    const tabs = [...list.querySelectorAll('button')];
    const at = tabs.findIndex((tab) => tab === document.activeElement);
    const next = tabs.at((at + step + tabs.length) % tabs.length);
    next?.click();
    document.getElementById(next?.id ?? '')?.focus();
    event.preventDefault();
}

export function showTabs(store: AppStore): void {
    const list = make('div', { class: 'tab-list', role: 'tablist', 'aria-label': 'Files' });
    const add = iconButton('plus', 'Add a file or take one out', () => undefined);
    attachMenu(add, 'Files', () => additions(store));
    find('#tabs', HTMLElement).append(list, add);
    list.addEventListener('keydown', (event) => walk(list, event));

    const names = (): string[] => store.state.piece.files.map((file) => file.name);
    const draw = (): void => {
        const place = list.scrollLeft;
        list.replaceChildren(...names().map((name) => makeTab(store, name)));
        list.scrollLeft = place;
        list.querySelector('[aria-selected=true]')?.scrollIntoView({ block: 'nearest', inline: 'nearest' });
    };
    store.watch(() => names().join('\n'), draw);
    store.watch((state) => state.activeFile, draw);
    draw();
}
