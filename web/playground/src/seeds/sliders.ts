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

// The slider of that name as the text has it now; nothing while text and result differ.
function present(store: AppStore, name: string): Slider | undefined {
    const { result, piece, resultPiece } = store.state;
    return result && piece === resultPiece
        ? findSliders(piece, result).find((one) => one.name === name)
        : undefined;
}

function showSlider(store: AppStore, editor: Editor, slider: Slider): HTMLElement {
    const id = `slider-${slider.name}`;
    const { low, high, step, value, name } = slider;
    const input = make('input', { id, type: 'range', min: low, max: high, step, value });
    const output = make('output', { for: id }, sliderText(slider, value));
    let wanted: number | undefined;
    const put = (): void => {
        const now = present(store, name);
        if (wanted === undefined || !now) return;
        if (sliderText(now, wanted) !== sliderText(now, now.value)) editor.apply([sliderEdit(now, wanted)]);
        wanted = undefined;
    };
    input.addEventListener('input', () => {
        wanted = Number(input.value);
        output.textContent = sliderText(slider, wanted);
        put();
    });
    // A movement that came while the one before was being computed.
    store.watch((state) => state.resultPiece, put);
    return make(
        'div',
        { class: 'slider' },
        make('label', { for: id }, make('code', {}, name)),
        input,
        output,
    );
}

const HINT = 'Write a range behind a constant, as in “#const DENSITY 4 ; 1..20”, and it can be moved here.';

export function slidersPanel(store: AppStore, editor: Editor): PanelView {
    return {
        name: 'Sliders',
        show(place) {
            let shown = 'nothing yet';
            const draw = (): void => {
                const { piece, result, resultPiece } = store.state;
                if (!result || piece !== resultPiece) return;
                const sliders = findSliders(piece, result);
                const kind = JSON.stringify(
                    sliders.map(({ name, low, high, step }) => [name, low, high, step]),
                );
                if (kind === shown) {
                    updateValues(place, sliders);
                    return;
                }
                shown = kind;
                place.replaceChildren(
                    ...(sliders.length > 0
                        ? sliders.map((slider) => showSlider(store, editor, slider))
                        : [make('p', { class: 'muted' }, HINT)]),
                );
            };
            return drawing(store, [(state) => state.resultPiece], draw);
        },
    };
}

// The same sliders, perhaps moved by typing.
function updateValues(place: HTMLElement, sliders: readonly Slider[]): void {
    for (const slider of sliders) {
        const input = place.querySelector<HTMLInputElement>(`#slider-${CSS.escape(slider.name)}`);
        if (!input || input === document.activeElement) continue;
        input.value = String(slider.value);
        const output = input.nextElementSibling;
        if (output) output.textContent = sliderText(slider, slider.value);
    }
}
