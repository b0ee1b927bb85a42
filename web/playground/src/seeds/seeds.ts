// Other seeds: rolled by a die, kept on a shelf with their small pictures, put into the text by a click.
import type { Result } from 'vorn-wasm';
import type { Editor } from '../editor/editor';
import { thumbnailAddress } from '../picture/thumbnail';
import { drawing, type PanelView } from '../app/panels';
import type { AppStore, KeptSeed } from '../state/app_state';
import { make } from '../ui/dom';
import { iconButton, wordButton } from '../ui/icons';

const MOST_SEED = 65535;
const FIRST_SEED = 1; // holds where none is written

export const seedOf = (result: Result | null): number => result?.seed?.value ?? FIRST_SEED;

export function rolledSeed(before: number, random = Math.random): number {
    const seed = Math.floor(random() * (MOST_SEED + 1));
    return seed === before ? (seed + 1) % (MOST_SEED + 1) : seed;
}

// Only while text and result belong together does the engine's place for the seed hold.
export function setSeed(store: AppStore, editor: Editor, value: number): void {
    const { result, resultPiece, piece } = store.state;
    if (!result?.seed?.place || resultPiece !== piece) return;
    const { place, before, after } = result.seed;
    const insert = `${before}${value}${after}`;
    editor.apply([{ file: place.file, from: place.from, to: place.to, insert }]);
}

export function rollSeed(store: AppStore, editor: Editor): void {
    if (!store.state.seedIsLocked) setSeed(store, editor, rolledSeed(seedOf(store.state.result)));
}

function keepSeed(store: AppStore): void {
    const { result } = store.state;
    if (!result || result.eventCount === 0) return;
    const kept: KeptSeed = { value: seedOf(result), picture: thumbnailAddress(result, 300, 120) };
    store.act('keep seed', ({ keptSeeds }) => ({
        keptSeeds: [kept, ...keptSeeds.filter((seed) => seed.value !== kept.value)],
    }));
}

function dropSeed(store: AppStore, value: number): void {
    store.act('drop seed', ({ keptSeeds }) => ({
        keptSeeds: keptSeeds.filter((seed) => seed.value !== value),
    }));
}

function shelfItem(store: AppStore, editor: Editor, { value, picture }: KeptSeed): HTMLElement {
    const isNow = seedOf(store.state.result) === value;
    const image = make('img', { src: picture, alt: '', width: 150, height: 60 });
    const choose = make(
        'button',
        {
            type: 'button',
            class: 'kept-seed',
            'aria-pressed': String(isNow),
            onclick: () => setSeed(store, editor, value),
        },
        image,
        make('span', {}, `seed ${value}`),
    );
    return make(
        'li',
        {},
        choose,
        iconButton('close', `Take seed ${value} off the shelf`, () => dropSeed(store, value)),
    );
}

export function seedsPanel(store: AppStore, editor: Editor): PanelView {
    const roll = (): void => rollSeed(store, editor);
    const lock = (): void => store.act('lock seed', ({ seedIsLocked }) => ({ seedIsLocked: !seedIsLocked }));
    return {
        name: 'Seeds',
        show(place) {
            const value = make('output', { class: 'seed-value', 'aria-label': 'Seed' });
            const die = wordButton('die', 'Roll', roll, { class: 'word-button outlined' });
            const locked = make('input', { type: 'checkbox', id: 'seed-lock' });
            locked.addEventListener('change', lock);
            const keep = wordButton('heart', 'Keep', () => keepSeed(store), {
                class: 'word-button outlined',
            });
            const shelf = make('ul', { class: 'shelf', 'aria-label': 'Seeds that were kept' });
            const hint = make(
                'p',
                { class: 'muted' },
                'Another seed is another piece by the same rules. Keep the ones you like.',
            );
            place.append(
                make('div', { class: 'panel-row' }, value, die, keep, make('label', {}, locked, 'Lock')),
                shelf,
                hint,
            );
            const draw = (): void => {
                const { keptSeeds, result, seedIsLocked } = store.state;
                value.textContent = String(seedOf(result));
                locked.checked = seedIsLocked;
                die.disabled = seedIsLocked || !result?.seed?.place;
                hint.hidden = keptSeeds.length > 0;
                shelf.replaceChildren(...keptSeeds.map((seed) => shelfItem(store, editor, seed)));
            };
            return drawing(store, [(s) => s.result, (s) => s.keptSeeds, (s) => s.seedIsLocked], draw);
        },
    };
}
