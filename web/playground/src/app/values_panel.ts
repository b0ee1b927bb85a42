// The panel of values: a histogram of any field.
import type { Result } from 'vorn-wasm';
import { shortNumber } from '../picture/backdrop';
import { binTotals, fieldNames, makeHistogram, type Histogram } from '../picture/histogram';
import { onThemeChange, tonesNow } from '../picture/theme';
import { colorOf, hex, mixed } from '../picture/tones';
import type { AppStore } from '../state/app_state';
import { make } from '../ui/dom';
import { drawing, type PanelView } from './panels';

const BIN_WIDTH = 14; // pixels

function drawBars(canvas: HTMLCanvasElement, histogram: Histogram, binCount: number): void {
    const scale = Math.min(2, devicePixelRatio || 1);
    const { clientWidth: width, clientHeight: height } = canvas;
    canvas.width = width * scale;
    canvas.height = height * scale;
    const paper = canvas.getContext('2d');
    if (!paper || histogram.total === 0) return;
    paper.scale(scale, scale);
    const tones = tonesNow();
    const totals = binTotals(histogram, binCount);
    const most = Math.max(...totals);
    const step = width / binCount;
    const base = height - 18;
    const heights = new Float64Array(binCount);
    for (const { rank, bins } of histogram.counts) {
        paper.fillStyle = hex(mixed(colorOf(tones, rank), tones.paper, 0.87));
        bins.forEach((count, bin) => {
            if (count === 0) return;
            const tall = (count / most) * (base - 4);
            paper.fillRect(bin * step + 1, base - (heights[bin] ?? 0) - tall, step - 2, tall);
            heights[bin] = (heights[bin] ?? 0) + tall;
        });
    }
    paper.fillStyle = hex(tones.grid);
    paper.fillRect(0, base, width, 1);
    paper.fillStyle = hex(tones.muted);
    paper.font = '11px "IBM Plex Sans", sans-serif';
    paper.fillText(shortNumber(histogram.low), 0, height - 3);
    paper.textAlign = 'right';
    paper.fillText(shortNumber(histogram.high), width, height - 3);
}

export function inWords(field: string, { total, low, high, mean }: Histogram): string {
    if (total === 0) return `${field} has no values.`;
    if (total === 1) return `1 value: ${shortNumber(low)}`;
    const count = `${total.toLocaleString('en')} values`;
    if (low === high) return `${count}, all ${shortNumber(low)}`;
    return `${count}, from ${shortNumber(low)} to ${shortNumber(high)}, on average ${shortNumber(mean)}`;
}

class ValuesView {
    private readonly choice = make('select', { 'aria-label': 'Field' });
    private readonly words = make('span', { class: 'muted' });
    private readonly canvas = make('canvas', { class: 'histogram', role: 'img' });

    constructor(
        private readonly store: AppStore,
        private readonly chosen: { field: string }, // outlasts the view
        place: HTMLElement,
    ) {
        place.append(make('div', { class: 'panel-row' }, this.choice, this.words), this.canvas);
        this.choice.addEventListener('change', () => this.choose());
    }

    observe(): () => void {
        const draw = (): void => this.draw();
        const observer = new ResizeObserver(draw);
        observer.observe(this.canvas);
        const stops = [
            () => observer.disconnect(),
            onThemeChange(draw),
            drawing(this.store, [(state) => state.goodResult], draw),
        ];
        return () => stops.forEach((stop) => stop());
    }

    private choose(): void {
        this.chosen.field = this.choice.value;
        this.draw();
    }

    private draw(): void {
        const { goodResult } = this.store.state;
        this.canvas.hidden = !goodResult;
        this.choice.hidden = !goodResult;
        if (goodResult) this.drawResult(goodResult);
        else this.words.textContent = 'There are no events yet.';
    }

    private drawResult(result: Result): void {
        const { canvas, words } = this;
        const shown = this.offer(fieldNames(result));
        const binCount = Math.max(8, Math.floor((canvas.clientWidth || 400) / BIN_WIDTH));
        const histogram = makeHistogram(result, shown, binCount);
        drawBars(canvas, histogram, binCount);
        words.textContent = inWords(shown, histogram);
        canvas.setAttribute('aria-label', `Histogram of ${shown}: ${words.textContent}`);
    }

    // The field that was chosen, where the piece has it, else the last one.
    private offer(names: readonly string[]): string {
        const { field } = this.chosen;
        const shown = names.includes(field) ? field : (names.at(-1) ?? 'duration');
        const option = (name: string): HTMLOptionElement =>
            make('option', { value: name, selected: name === shown }, name);
        this.choice.replaceChildren(...names.map(option));
        return shown;
    }
}

export function valuesPanel(store: AppStore): PanelView {
    const chosen = { field: 'P5' };
    return { name: 'Values', show: (place) => new ValuesView(store, chosen, place).observe() };
}
