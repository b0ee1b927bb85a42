// The desk as a whole: how wide the text is, which pane a narrow screen shows, light or dark, the title.
import type { AppStore, Page, Theme } from '../state/app_state';
import { find, make } from '../ui/dom';

const LEAST = 20; // percent
const MOST = 75;
const WIDTH_KEY = 'vorn-playground-width';
const THEME_KEY = 'vorn-playground-theme';

function recall(key: string): string {
    try {
        return localStorage.getItem(key) ?? '';
    } catch {
        return '';
    }
}

function keep(key: string, value: string): void {
    try {
        localStorage.setItem(key, value);
    } catch {
        // Storage is forbidden; it holds for this visit.
    }
}

function splitDesk(): void {
    const desk = find('#desk', HTMLElement);
    const splitter = find('#splitter', HTMLElement);
    let width = 42;
    const set = (percent: number): void => {
        if (!Number.isFinite(percent)) return;
        width = Math.min(MOST, Math.max(LEAST, percent));
        desk.style.setProperty('--text-width', `${width}%`);
        splitter.setAttribute('aria-valuenow', String(Math.round(width)));
    };
    splitter.setAttribute('aria-valuemin', String(LEAST));
    splitter.setAttribute('aria-valuemax', String(MOST));
    splitter.setAttribute('aria-valuenow', String(width));
    splitter.addEventListener('pointerdown', (event) => splitter.setPointerCapture(event.pointerId));
    splitter.addEventListener('pointermove', (event) => {
        if (!splitter.hasPointerCapture(event.pointerId)) return;
        const box = desk.getBoundingClientRect();
        set(((event.clientX - box.left) / box.width) * 100);
    });
    splitter.addEventListener('pointerup', () => keep(WIDTH_KEY, String(width)));
    splitter.addEventListener('keydown', ({ key }) => {
        const step = { ArrowLeft: -2, ArrowRight: 2 }[key];
        if (step === undefined) return;
        set(width + step);
        keep(WIDTH_KEY, String(width));
    });
    const kept = recall(WIDTH_KEY);
    if (kept !== '') set(Number(kept));
}

const PAGES: readonly (readonly [Page, string])[] = [
    ['text', 'Text'],
    ['picture', 'Picture'],
    ['panels', 'Panels'],
];

// On a narrow screen the manual lies over the panes, so it makes way for the one that is asked for.
function showPages(store: AppStore): void {
    const turn = (page: Page) => (): void => store.act('turn page', () => ({ page, isManualOpen: false }));
    const buttons = PAGES.map(([page, name]) =>
        make('button', { type: 'button', onclick: turn(page) }, name),
    );
    find('#pages', HTMLElement).append(...buttons);
    const draw = (): void => {
        document.body.dataset['page'] = store.state.page;
        buttons.forEach((button, index) =>
            button.setAttribute('aria-pressed', String(PAGES[index]?.[0] === store.state.page)),
        );
    };
    store.watch((state) => state.page, draw);
    draw();
}

function showTheme(store: AppStore): void {
    const root = document.documentElement;
    const draw = (): void => {
        const { theme } = store.state;
        if (theme === 'automatic') delete root.dataset['theme'];
        else root.dataset['theme'] = theme;
        keep(THEME_KEY, theme);
    };
    const kept = recall(THEME_KEY);
    if (kept === 'light' || kept === 'dark') store.act('recall theme', () => ({ theme: kept }));
    store.watch((state) => state.theme, draw);
    draw();
}

export const nextTheme = (theme: Theme): Theme =>
    (({ automatic: 'light', light: 'dark', dark: 'automatic' }) as const)[theme];

function showTitle(store: AppStore): void {
    const input = find('#title', HTMLInputElement);
    input.addEventListener('input', () =>
        store.act('rename', ({ piece }) => ({ piece: { ...piece, title: input.value } })),
    );
    const draw = (): void => {
        if (input.value !== store.state.piece.title) input.value = store.state.piece.title;
    };
    store.watch((state) => state.piece.title, draw);
    draw();
}

export function arrangeDesk(store: AppStore): void {
    splitDesk();
    showPages(store);
    showTheme(store);
    showTitle(store);
}
