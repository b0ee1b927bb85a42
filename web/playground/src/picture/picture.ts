// The picture of the score: three canvases over each other, drawn anew only when what they show has changed.
//
//     overlay    moving line, the event under the pointer       every frame while it plays
//     events     bars, as pixels                                when time, size or score change
//     backdrop   axis, blocks, octaves, names of lanes          with the events
import { drawBackdrop } from './backdrop';
import { drawEvents, type Drawing } from './events';
import { eventY, hitTest, neighbour, type Hit } from './hit';
import { layOut, toSeconds, toX, type Layout } from './layout';
import { Raster } from './raster';
import { makeScene, type Scene } from './scene';
import { following, lengthOf, moved, wholeSpan, within, zoomed, type Span } from './span';
import { onThemeChange, tonesOf } from './theme';
import { hex } from './tones';
import type { Result } from 'vorn-wasm';
import { make } from '../ui/dom';

const MOST_SCALE = 2;

interface Layer {
    readonly canvas: HTMLCanvasElement;
    readonly context: CanvasRenderingContext2D;
}

function makeLayer(parent: HTMLElement): Layer {
    const canvas = make('canvas', { 'aria-hidden': true });
    parent.append(canvas);
    const context = canvas.getContext('2d');
    if (!context) throw new Error('This browser cannot draw.');
    return { canvas, context };
}

export interface PictureEvents {
    // An event was chosen by a click or a key.
    onChoose(hit: Hit): void;
    onHover(hit: Hit | undefined, x: number, y: number): void;
    onSpan(span: Span): void;
    onDrawn(): void;
}

export class Picture {
    scene: Scene | undefined;
    span: Span = { from: 0, to: 1 };
    layout: Layout | undefined;
    hover: Hit | undefined;
    private hidden: ReadonlySet<number> = new Set();
    private chosen = -1;
    private position = 0;
    private isPlaying = false;
    private showsAll = true;
    private readonly backdrop: Layer;
    private readonly events: Layer;
    private readonly overlay: Layer;
    private readonly spacer = make('div', { class: 'picture-spacer' });
    private readonly sight = make('div', { class: 'picture-sight' });
    private raster = new Raster(1, 1);
    private width = 0;
    private height = 0;
    private scale = 1;
    private isDue = false;
    private isOverlayDue = false;

    constructor(
        readonly stage: HTMLElement,
        readonly told: PictureEvents,
    ) {
        this.backdrop = makeLayer(this.sight);
        this.events = makeLayer(this.sight);
        this.overlay = makeLayer(this.sight);
        stage.append(this.sight, this.spacer);
        stage.addEventListener('scroll', () => this.redraw(), { passive: true });
        new ResizeObserver(() => this.resize()).observe(stage);
        onThemeChange(() => this.redraw());
        this.resize();
    }

    // Nothing: there is no result yet.
    show(result: Result | null): void {
        this.hover = undefined;
        if (!result) {
            this.clearAll();
            return;
        }
        this.scene = makeScene(result);
        this.span = this.showsAll ? wholeSpan(this.scene.seconds) : within(this.span, this.scene.seconds);
        this.arrange();
    }

    setHidden(hidden: ReadonlySet<number>): void {
        this.hidden = hidden;
        this.arrange();
    }

    // The block at the cursor, by its index in the result; -1: none.
    choose(block: number): void {
        if (block === this.chosen) return;
        this.chosen = block;
        this.redraw();
    }

    setSpan(span: Span): void {
        if (!this.scene) return;
        this.span = within(span, this.scene.seconds);
        this.showsAll = lengthOf(this.span) >= wholeSpan(this.scene.seconds).to * 0.999;
        this.told.onSpan(this.span);
        this.redraw();
    }
    fit(): void {
        this.setSpan(wholeSpan(this.scene?.seconds ?? 1));
    }
    zoom(factor: number, x?: number): void {
        if (!this.layout) return;
        const { gutter, width } = this.layout;
        this.setSpan(zoomed(this.span, factor, toSeconds(this.layout, this.span, x ?? (gutter + width) / 2)));
    }
    // By parts of what is in sight.
    pan(part: number): void {
        this.setSpan(moved(this.span, lengthOf(this.span) * part));
    }

    setPosition(seconds: number, isPlaying: boolean): void {
        this.position = seconds;
        this.isPlaying = isPlaying;
        const next = isPlaying ? following(this.span, seconds) : this.span;
        if (next === this.span) this.redrawOverlay();
        else this.setSpan(next);
    }

    hitAt(x: number, y: number): Hit | undefined {
        const { scene, layout, span, hidden } = this;
        if (!scene || !layout) return undefined;
        return hitTest({ scene, layout, span, hidden }, x, y + this.stage.scrollTop);
    }
    secondsAt(x: number): number {
        return this.layout ? Math.max(0, toSeconds(this.layout, this.span, x)) : 0;
    }
    setHover(hit: Hit | undefined): void {
        if (hit === this.hover) return;
        this.hover = hit;
        this.redrawOverlay();
    }
    // The next event or the one before, brought into sight.
    step(direction: 1 | -1): Hit | undefined {
        const hit = this.scene && neighbour(this.scene, this.hidden, this.hover, direction);
        if (!hit) return undefined;
        const start = hit.of.block.events.start[hit.row] ?? 0;
        this.hover = hit;
        this.setSpan(following(this.span, start));
        return hit;
    }

    redraw(): void {
        if (this.isDue) return;
        this.isDue = true;
        requestAnimationFrame(() => {
            this.isDue = false;
            this.draw();
        });
    }

    // Draws at once; for who measures.
    draw(): void {
        const { scene, layout } = this;
        if (scene && layout) this.drawLayers(scene, layout);
        // A picture that is out of sight has nothing to draw, and that is done.
        this.told.onDrawn();
    }

    private drawLayers(scene: Scene, layout: Layout): void {
        const drawing: Drawing = {
            scene,
            layout,
            span: this.span,
            tones: tonesOf(this.stage),
            hidden: this.hidden,
            scale: this.scale,
            scroll: this.stage.scrollTop,
        };
        this.drawBackdrop(drawing);
        this.raster.clear();
        drawEvents(this.raster, drawing);
        this.raster.put(this.events.context, Math.round(layout.gutter * this.scale), 0);
        this.drawOverlay();
    }

    private redrawOverlay(): void {
        if (this.isOverlayDue || this.isDue) return;
        this.isOverlayDue = true;
        requestAnimationFrame(() => {
            this.isOverlayDue = false;
            this.drawOverlay();
        });
    }

    private resize(): void {
        const { clientWidth, clientHeight } = this.stage;
        if (clientWidth === 0 || clientHeight === 0) return;
        this.width = clientWidth;
        this.height = clientHeight;
        this.scale = Math.min(MOST_SCALE, devicePixelRatio || 1);
        for (const { canvas } of [this.backdrop, this.events, this.overlay]) {
            canvas.width = Math.round(clientWidth * this.scale);
            canvas.height = Math.round(clientHeight * this.scale);
            canvas.style.width = `${clientWidth}px`;
            canvas.style.height = `${clientHeight}px`;
        }
        this.sight.style.height = `${clientHeight}px`;
        this.arrange();
        // What a resized canvas has lost comes back within the same frame.
        this.draw();
    }

    private arrange(): void {
        if (!this.scene || this.width === 0) return;
        this.layout = layOut(this.scene, this.hidden, this.width, this.height);
        this.spacer.style.height = `${Math.max(0, this.layout.height - this.height)}px`;
        const plot = Math.round((this.width - this.layout.gutter) * this.scale);
        const height = Math.round(this.height * this.scale);
        if (this.raster.width !== plot || this.raster.height !== height)
            this.raster = new Raster(plot, height);
        this.redraw();
    }

    private clearAll(): void {
        this.scene = undefined;
        this.layout = undefined;
        this.showsAll = true;
        for (const layer of [this.backdrop, this.events, this.overlay]) this.clear(layer, 0);
    }

    private clear({ canvas, context }: Layer, scroll: number): CanvasRenderingContext2D {
        context.setTransform(1, 0, 0, 1, 0, 0);
        context.clearRect(0, 0, canvas.width, canvas.height);
        context.setTransform(this.scale, 0, 0, this.scale, 0, -scroll * this.scale);
        return context;
    }

    private drawBackdrop(drawing: Drawing): void {
        const paper = this.clear(this.backdrop, drawing.scroll);
        const accent = getComputedStyle(this.stage).caretColor;
        drawBackdrop({ ...drawing, paper, accent, chosen: this.chosen });
    }

    private drawOverlay(): void {
        const { layout, span } = this;
        if (!layout) return;
        const paper = this.clear(this.overlay, this.stage.scrollTop);
        if (this.hover) this.outline(paper, layout, this.hover);
        if (!this.isPlaying && this.position === 0) return;
        const x = toX(layout, span, this.position);
        if (x < layout.gutter - 1 || x > layout.width) return;
        paper.fillStyle = getComputedStyle(this.stage).caretColor;
        paper.globalAlpha = this.isPlaying ? 1 : 0.55;
        paper.fillRect(x - 0.75, layout.axis.top + 4, 1.5, layout.height);
        paper.beginPath();
        paper.arc(x, layout.axis.top + 6, 4, 0, 2 * Math.PI);
        paper.fill();
        paper.globalAlpha = 1;
    }

    private outline(paper: CanvasRenderingContext2D, layout: Layout, { of, row, y }: Hit): void {
        const { start, duration } = of.block.events;
        const left = Math.max(layout.gutter, toX(layout, this.span, start[row] ?? 0));
        const right = toX(layout, this.span, (start[row] ?? 0) + (duration[row] ?? 0));
        const middle = Number.isFinite(y) ? y : eventY(layout, of, row);
        paper.strokeStyle = hex(tonesOf(this.stage).ink);
        paper.lineWidth = 1.5;
        paper.beginPath();
        paper.roundRect(left - 3, middle - 8, Math.max(4, right - left) + 6, 16, 4);
        paper.stroke();
    }
}
