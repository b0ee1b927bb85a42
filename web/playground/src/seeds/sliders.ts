// Values of the score that a comment asks to be moved by hand:
//
//     #const DENSITY 4 ; 1..20           a slider of whole numbers
//     #define SPREAD #0.5# ; 0..1 .05    a slider in steps of .05
import type { Result } from 'vorn-wasm';
import { drawing, type PanelView } from '../app/panels';
import type { Editor } from '../editor/editor';
import type { Edit } from '../editor/texts';
import type { AppStore } from '../state/app_state';
import { fileOf, type Piece } from '../state/piece';
import { make } from '../ui/dom';

export interface Slider {
    readonly name: string;
    readonly file: string;
    readonly from: number; // the value as it is written: characters [from, to) of the file
    readonly to: number;
    readonly value: number;
    readonly low: number;
    readonly high: number;
    readonly step: number;
}

const NUMBER = String.raw`-?(?:\d+\.?\d*|\.\d+)`;
const RANGE = new RegExp(String.raw`;\s*(${NUMBER})\s*\.\.\s*(${NUMBER})(?:\s+(${NUMBER}))?`);

function readSlider(piece: Piece, name: string, file: string, from: number, to: number): Slider | undefined {
    const text = fileOf(piece, file)?.text ?? '';
    const written = text.slice(from, to).trim();
    if (!new RegExp(`^${NUMBER}$`).test(written)) return undefined;
    const end = text.indexOf('\n', to);
    const found = RANGE.exec(text.slice(to, end < 0 ? undefined : end));
    if (!found) return undefined;
    const [low, high] = [Number(found[1]), Number(found[2])];
    const isWhole = [found[1], found[2], written].every((one) => one !== undefined && !one.includes('.'));
    const step = Number(found[3] ?? (isWhole ? 1 : (high - low) / 200));
    if (!(low < high) || !(step > 0)) return undefined;
    return { name, file, from, to, value: Number(written), low, high, step };
}

export function findSliders(piece: Piece, result: Result): Slider[] {
    const constants = result.constants.map(({ name, place }) =>
        place ? readSlider(piece, name, place.file, place.from, place.to) : undefined,
    );
    const macros = result.macros.map(({ name, place, body, argumentCount }) =>
        place && argumentCount === 0
            ? readSlider(piece, name, place.file, place.from, place.from + body.length)
            : undefined,
    );
    return [...constants, ...macros].filter((slider) => slider !== undefined);
}

export const sliderText = ({ step }: Slider, value: number): string => {
    const digits = Math.min(6, Math.max(0, Math.ceil(-Math.log10(step) - 1e-9)));
    return String(Number(value.toFixed(digits)));
};

export const sliderEdit = (slider: Slider, value: number): Edit => ({
    file: slider.file,
    from: slider.from,
    to: slider.to,
    insert: sliderText(slider, value),
});

const MOST_ROWS = 100; // more are out of reach of a hand, and slow
const HINT = 'Write a range behind a constant, as in “#const DENSITY 4 ; 1..20”, and it can be moved here.';

const wordsBelow = (count: number): string => {
    if (count === 0) return HINT;
    return count > MOST_ROWS ? `These are the first ${MOST_ROWS} of ${count.toLocaleString('en')}.` : '';
};

interface Row {
    readonly box: HTMLElement;
    readonly input: HTMLInputElement;
    readonly output: HTMLOutputElement;
}

function makeRow(slider: Slider): Row {
    const { low, high, step, value, name } = slider;
    const id = `slider-${name}`;
    const input = make('input', { id, type: 'range', min: low, max: high, step, value });
    const output = make('output', { for: id }, sliderText(slider, value));
    const label = make('label', { for: id }, make('code', {}, name));
    return { box: make('div', { class: 'slider' }, label, input, output), input, output };
}

class SlidersView {
    private shown = 'nothing yet';
    private rows = new Map<string, Row>();
    private readonly wanted = new Map<string, number>(); // values that the text does not have yet
    private isHeld = false; // since the last edit, which the next one goes on with

    constructor(
        private readonly store: AppStore,
        private readonly editor: Editor,
        private readonly place: HTMLElement,
    ) {}

    // Only while text and result belong together are there sliders to move.
    private present(): Slider[] | undefined {
        const { piece, result, resultPiece } = this.store.state;
        return result && piece === resultPiece ? findSliders(piece, result) : undefined;
    }

    draw(): void {
        const sliders = this.present();
        if (!sliders) return;
        const kind = JSON.stringify(sliders.map(({ name, low, high, step }) => [name, low, high, step]));
        if (kind === this.shown) this.update(sliders);
        else this.rebuild(sliders);
        this.shown = kind;
        this.put(); // movements that came while the one before was being computed
    }

    private rebuild(sliders: readonly Slider[]): void {
        const shown = sliders.slice(0, MOST_ROWS);
        this.rows = new Map(shown.map((slider) => [slider.name, this.listen(slider, makeRow(slider))]));
        const boxes = [...this.rows.values()].map(({ box }) => box);
        const words = wordsBelow(sliders.length);
        this.place.replaceChildren(...boxes, ...(words ? [make('p', { class: 'muted' }, words)] : []));
    }

    private listen(slider: Slider, row: Row): Row {
        row.input.addEventListener('input', () => {
            const value = Number(row.input.value);
            row.output.textContent = sliderText(slider, value);
            this.wanted.set(slider.name, value);
            this.put();
        });
        for (const touched of ['pointerdown', 'keydown'])
            row.input.addEventListener(touched, () => (this.isHeld = false));
        return row;
    }

    // The same sliders, perhaps moved by typing.
    private update(sliders: readonly Slider[]): void {
        for (const slider of sliders) {
            const row = this.rows.get(slider.name);
            if (!row || row.input === document.activeElement) continue;
            row.input.value = String(slider.value);
            row.output.textContent = sliderText(slider, slider.value);
        }
    }

    // All at once: the first edit would move the places of the others.
    private put(): void {
        const sliders = this.present();
        if (!sliders || this.wanted.size === 0) return;
        const edits = sliders.flatMap((slider) => {
            const value = this.wanted.get(slider.name);
            const isNew =
                value !== undefined && sliderText(slider, value) !== sliderText(slider, slider.value);
            return isNew ? [sliderEdit(slider, value)] : [];
        });
        this.wanted.clear();
        if (edits.length === 0) return;
        this.editor.apply(edits, this.isHeld);
        this.isHeld = true;
    }
}

export function slidersPanel(store: AppStore, editor: Editor): PanelView {
    return {
        name: 'Sliders',
        show(place) {
            const view = new SlidersView(store, editor, place);
            return drawing(store, [(state) => state.resultPiece], () => view.draw());
        },
    };
}
