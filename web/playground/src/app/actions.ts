// The buttons at the right of the bar, and the keys that do the same.
import type { VornClient } from 'vorn-wasm';
import { cure } from '../editor/mistakes';
import type { Editor } from '../editor/editor';
import { Downloads } from '../files/downloads';
import { chooseFiles } from '../files/open';
import { openGallery } from '../gallery/gallery';
import type { Autosave } from '../keep/autosave';
import { openHistory } from '../keep/history_dialog';
import { openAbout, openKeys } from '../learn/about';
import { rollSeed } from '../seeds/seeds';
import { openShare } from '../share/share_dialog';
import type { Sounding } from '../sound/sounding';
import type { AppStore } from '../state/app_state';
import { find } from '../ui/dom';
import { iconButton, wordButton } from '../ui/icons';
import { attachMenu, type MenuEntry } from '../ui/menu';
import { notice } from '../ui/notices';
import { goToProblems } from '../ui/problems';
import { secondsAtCursor, togglePlaying } from '../ui/transport';
import { nextTheme } from './desk';

export interface Tools {
    readonly store: AppStore;
    readonly editor: Editor;
    readonly sounding: Sounding;
    readonly autosave: Autosave;
    readonly engine: Promise<VornClient>;
}

const THEMES = { automatic: 'as the system', light: 'light', dark: 'dark' } as const;

function moreEntries({ store, autosave }: Tools): MenuEntry[] {
    const { theme, isManualOpen } = store.state;
    const turn = (): void => store.act('turn theme', () => ({ theme: nextTheme(theme) }));
    const manual = (): void => store.act('manual', () => ({ isManualOpen: !isManualOpen }));
    return [
        { name: isManualOpen ? 'Close the manual' : 'Manual', act: manual },
        { name: 'Open files', hint: 'or drop them', act: () => chooseFiles(store, autosave) },
        { name: 'History', act: () => void openHistory(autosave) },
        'line',
        { name: 'Colours', hint: THEMES[theme], act: turn },
        { name: 'Keys', act: openKeys },
        { name: 'About this page', act: () => void openAbout() },
    ];
}

function share({ store, autosave }: Tools): void {
    autosave.remember('when it was shared');
    openShare(store).catch(() => notice('This browser cannot make the address.'));
}

// The certain cure nearest to the cursor.
function mend({ store, editor }: Tools): void {
    const { result, cursor } = store.state;
    const fixes = (result?.diagnostics ?? []).filter(({ fix, place }) => fix && place?.file === cursor.file);
    const distance = (from = 0): number => Math.abs(from - cursor.offset);
    const [nearest] = fixes.sort((a, b) => distance(a.place?.from) - distance(b.place?.from));
    if (nearest?.fix) cure(store, editor, nearest.fix);
    else notice('Nothing here has a certain cure.');
}

function listenToKeys(tools: Tools): void {
    const { store, sounding } = tools;
    const actions: Record<string, () => void> = {
        enter: () => togglePlaying(store, sounding),
        'shift enter': () => void sounding.play(secondsAtCursor(store)),
        s: () => share(tools),
        '.': () => mend(tools),
        'shift m': () => goToProblems(store),
    };
    addEventListener(
        'keydown',
        (event) => {
            if (!(event.ctrlKey || event.metaKey) || event.altKey) return;
            const action = actions[(event.shiftKey ? 'shift ' : '') + event.key.toLowerCase()];
            if (!action) return;
            event.preventDefault();
            event.stopPropagation();
            action();
        },
        { capture: true },
    );
}

function dieButton({ store, editor }: Tools): HTMLButtonElement {
    const button = iconButton('die', 'Roll another seed', () => rollSeed(store, editor));
    store.watch(
        (state) => state.seedIsLocked,
        (isLocked) => (button.disabled = isLocked),
    );
    return button;
}

export function showActions(tools: Tools): void {
    const { store, autosave, engine, sounding } = tools;
    const downloads = new Downloads(store, engine, sounding);
    const download = wordButton('download', 'Download', () => undefined, {
        'aria-label': 'Download',
        title: 'Download',
    });
    const more = iconButton('more', 'More', () => undefined);
    attachMenu(download, 'Download as', () => downloads.entries());
    attachMenu(more, 'More', () => moreEntries(tools));
    const gallery = (): void => void openGallery(autosave, engine);
    const manual = (): void => store.act('manual', ({ isManualOpen }) => ({ isManualOpen: !isManualOpen }));
    find('#actions', HTMLElement).append(
        dieButton(tools),
        wordButton('gallery', 'Examples', gallery, { 'aria-label': 'Examples', title: 'Examples' }),
        wordButton('book', 'Manual', manual, {
            'aria-label': 'Manual',
            title: 'Manual',
            class: 'word-button optional',
        }),
        wordButton('share', 'Share', () => share(tools), { 'aria-label': 'Share', title: 'Share (Ctrl+S)' }),
        download,
        more,
    );
    listenToKeys(tools);
}
