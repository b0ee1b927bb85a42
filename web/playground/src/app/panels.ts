// The panels below the picture: one is shown at a time, and drawn only then.
import type { AppStore, Panel } from '../state/app_state';
import { find, make } from '../ui/dom';

export interface PanelView {
    readonly name: string;
    // Fills the panel and keeps it up to date until the returned function is called.
    show(place: HTMLElement): () => void;
}

function walk(tabs: HTMLElement, { key }: KeyboardEvent): void {
    const step = { ArrowRight: 1, ArrowLeft: -1 }[key];
    if (step === undefined) return;
    const all = [...tabs.querySelectorAll('button')];
    const next = all.at((all.findIndex((one) => one === document.activeElement) + step) % all.length);
    next?.focus();
    next?.click();
}

export function showPanels(store: AppStore, views: Record<Panel, PanelView>): void {
    const tabs = find('#panel-tabs', HTMLElement);
    const place = find('#panel', HTMLElement);
    const buttons = Object.entries(views).map(([id, { name }]) =>
        make(
            'button',
            {
                type: 'button',
                role: 'tab',
                class: 'tab',
                id: `panel-${id}`,
                'aria-controls': 'panel',
                onclick: () => store.act('choose panel', () => ({ panel: id as Panel })),
            },
            name,
        ),
    );
    tabs.append(...buttons);
    tabs.addEventListener('keydown', (event) => walk(tabs, event));
    let leave = (): void => undefined;
    const draw = (): void => {
        const { panel } = store.state;
        for (const button of buttons) {
            const isChosen = button.id === `panel-${panel}`;
            button.setAttribute('aria-selected', String(isChosen));
            button.tabIndex = isChosen ? 0 : -1;
        }
        place.setAttribute('aria-labelledby', `panel-${panel}`);
        leave();
        place.replaceChildren();
        leave = views[panel].show(place);
    };
    store.watch((state) => state.panel, draw);
    draw();
}

// Draws at once and whenever one of the slices changes.
export function drawing(
    store: AppStore,
    slices: ((state: AppStore['state']) => unknown)[],
    draw: () => void,
): () => void {
    const stops = slices.map((slice) => store.watch(slice, draw));
    draw();
    return () => stops.forEach((stop) => stop());
}
