// Other seeds: rolled by a die, kept on a shelf with their small pictures, put into the text by a click.
import type { Result } from 'vorn-wasm';
import type { Editor } from '../editor/editor';
import { thumbnailAddress } from '../picture/thumbnail';
import { drawing, type PanelView } from '../app/panels';
import type { AppState, AppStore, KeptSeed } from '../state/app_state';
import { make, redraw } from '../ui/dom';
import { iconButton, wordButton } from '../ui/icons';
import { notice } from '../ui/notices';

const MOST_SEED = 65535;
const FIRST_SEED = 1; // holds where none is written

export const seedOf = (result: Result | null): number => result?.seed?.value ?? FIRST_SEED;

export function rolledSeed(before: number, random = Math.random): number {
    const seed = Math.floor(random() * (MOST_SEED + 1));
    return seed === before ? (seed + 1) % (MOST_SEED + 1) : seed;
}

// Only while text and result belong together does the engine's place for the seed hold.
function putSeed(store: AppStore, editor: Editor, value: number): void {
    const { result, resultPiece, piece } = store.state;
    if (!result?.seed?.place || resultPiece !== piece) return;
    const { place, before, after } = result.seed;
    const insert = `${before}${value}${after}`;
    editor.apply([{ file: place.file, from: place.from, to: place.to, insert }]);
}

function unlock(store: AppStore, editor: Editor, value: number): void {
    store.act('unlock seed', () => ({ seedIsLocked: false }));
    putSeed(store, editor, value);
}

// A lock holds whatever asks for another seed, and says so.
export function setSeed(store: AppStore, editor: Editor, value: number): void {
    const { seedIsLocked, result } = store.state;
    if (value === seedOf(result)) return;
    if (!seedIsLocked) putSeed(store, editor, value);
    else
        notice(`The seed is locked at ${seedOf(result)}.`, {
            word: `Unlock and use ${value}`,
            act: () => unlock(store, editor, value),
        });
}

export const rollSeed = (store: AppStore, editor: Editor): void =>
    setSeed(store, editor, rolledSeed(seedOf(store.state.result)));

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

const HINT = 'Another seed is another piece by the same rules. Keep the ones you like.';

class SeedsView {
    private readonly value = make('output', { class: 'seed-value', 'aria-label': 'Seed' });
    private readonly locked = make('input', { type: 'checkbox', id: 'seed-lock' });
    private readonly shelf = make('ul', { class: 'shelf', 'aria-label': 'Seeds that were kept' });
    private readonly hint = make('p', { class: 'muted' }, HINT);
    private readonly die: HTMLButtonElement;
    private readonly keep: HTMLButtonElement;

    constructor(
        private readonly store: AppStore,
        private readonly editor: Editor,
        place: HTMLElement,
    ) {
        const outlined = { class: 'word-button outlined' };
        this.die = wordButton('die', 'Roll', () => rollSeed(store, editor), outlined);
        this.keep = wordButton('heart', 'Keep', () => keepSeed(store), outlined);
        const lock = make('label', {}, this.locked, 'Lock');
        this.locked.addEventListener('change', () => this.lock());
        place.append(make('div', { class: 'panel-row' }, this.value, this.die, this.keep, lock));
        place.append(this.shelf, this.hint);
    }

    private lock(): void {
        const { checked } = this.locked;
        this.store.act('lock seed', () => ({ seedIsLocked: checked }));
    }

    draw(): void {
        const { keptSeeds, result, seedIsLocked } = this.store.state;
        this.value.textContent = String(seedOf(result));
        this.locked.checked = seedIsLocked;
        this.die.disabled = seedIsLocked || !result?.seed?.place;
        this.hint.hidden = keptSeeds.length > 0;
        const items = keptSeeds.map((seed) => shelfItem(this.store, this.editor, seed));
        redraw(this.shelf, items, this.keep);
    }
}

export function seedsPanel(store: AppStore, editor: Editor): PanelView {
    return {
        name: 'Seeds',
        show(place) {
            const view = new SeedsView(store, editor, place);
            const slices = [
                (state: AppState) => state.result,
                (state: AppState) => state.keptSeeds,
                (state: AppState) => state.seedIsLocked,
            ];
            return drawing(store, slices, () => view.draw());
        },
    };
}
