// <vorn-score>: a score in any page, with its picture and a button that plays it.
//
//     <script type="module" src="vorn-score.js"></script>
//     <vorn-score src="piece.vorn" orchestra="piece.orc" height="320"></vorn-score>
//     <vorn-score>i1 = 4 0 4 { p2 1  p3 1  p4(hz) no c4 e g c5 }</vorn-score>
//
// The engine is part of the script; Csound lies beside it and is loaded by the first click on the button.
import type { Result, Vorn } from 'vorn-wasm';
import { listenToHands } from '../picture/gestures';
import { Picture } from '../picture/picture';
import { countEvents } from '../picture/scene';
import { csoundProgram } from '../sound/csound/loading';
import CsoundWorker from '../sound/csound/worker?worker&inline';
import { Player } from '../sound/player';
import { Renderer, Rendering } from '../sound/rendering';
import { timeText } from '../picture/span';
import { make } from '../ui/dom';
import { icon } from '../ui/icons';
import { loadEngine } from './engine';
import style from './vorn_score.css?inline';

const HEIGHT = 280;
const CSOUND = new URL('csound.wasm.z', import.meta.url).href;

const countAll = ({ blocks }: Result): number => blocks.reduce((sum, block) => sum + countEvents(block), 0);

async function fetched(address: string): Promise<string> {
    const answer = await fetch(address);
    if (!answer.ok) throw new Error(`${address} cannot be read.`);
    return answer.text();
}

class VornScore extends HTMLElement {
    static readonly observedAttributes = ['src', 'orchestra'];
    private readonly root = this.attachShadow({ mode: 'open' });
    private readonly stage = make('div', { class: 'stage', role: 'application', tabindex: 0 });
    private readonly words = make('span', { class: 'words' });
    private readonly button = make('button', { type: 'button' });
    private picture: Picture | undefined;
    private turn = 0; // rises when another score is to be shown
    private result: Result | undefined;
    private rendering: Rendering | undefined;
    private readonly renderer = new Renderer(
        () => new CsoundWorker(),
        () => csoundProgram(CSOUND),
    );
    private readonly player = new Player({
        onEnd: () => this.showSilence(),
        nextRendering: () => this.rendering ?? new Rendering(),
        loops: () => false,
    });

    connectedCallback(): void {
        if (this.picture) return;
        const sheet = make('style');
        sheet.textContent = style;
        this.stage.style.height = `${Number(this.getAttribute('height')) || HEIGHT}px`;
        this.stage.setAttribute('aria-label', `Picture of ${this.name}`);
        this.button.addEventListener('click', () => void this.toggle());
        this.root.append(sheet, this.stage, make('div', { class: 'foot' }, this.button, this.words));
        this.picture = new Picture(this.stage, {
            onChoose: () => undefined,
            onHover: () => undefined,
            onSpan: () => undefined,
            onDrawn: () => undefined,
        });
        listenToHands(this.picture);
        this.showSilence();
        void this.read();
    }

    disconnectedCallback(): void {
        this.silence();
    }

    attributeChangedCallback(): void {
        if (this.picture) void this.read();
    }

    private get name(): string {
        return this.getAttribute('src')?.split('/').at(-1) ?? 'score.vorn';
    }

    private async read(): Promise<void> {
        const turn = ++this.turn;
        this.silence();
        try {
            const source = this.getAttribute('src');
            const text = source ? await fetched(source) : (this.textContent ?? '');
            const engine = await loadEngine();
            if (turn === this.turn) this.show(engine, text);
        } catch (error) {
            if (turn === this.turn) this.refuse(String(error));
        }
    }

    private refuse(trouble: string): void {
        this.words.textContent = trouble;
        this.button.disabled = true;
        this.picture?.show(null);
    }

    private show(engine: Vorn, text: string): void {
        const result = engine.compile({ [this.name]: text }, { outputs: ['score', 'builtIn'] });
        this.result = result;
        this.rendering = undefined;
        const [mistake] = result.diagnostics.filter((one) => one.severity === 'error');
        this.button.disabled = result.status !== 0;
        this.words.textContent = mistake
            ? `Line ${mistake.place?.line ?? '?'}: ${mistake.text}`
            : `${countAll(result)} events, ${timeText(result.seconds)}`;
        this.picture?.show(result);
    }

    private async toggle(): Promise<void> {
        if (this.player.isPlaying) return this.silence();
        const { turn } = this;
        const rendering = this.rendering ?? (await this.render());
        if (turn !== this.turn) return;
        this.rendering = rendering;
        this.player.play(rendering, 0);
        this.button.replaceChildren(icon('stop'), 'Stop');
        requestAnimationFrame(() => this.follow());
        await rendering.whole();
        if (rendering === this.rendering && rendering.refusal !== '')
            this.words.textContent = rendering.refusal;
    }

    private async render(): Promise<Rendering> {
        const { result } = this;
        const own = this.getAttribute('orchestra');
        const orchestra = own ? await fetched(own) : (result?.builtIn?.orchestra ?? '');
        const score = own ? new TextDecoder().decode(result?.score) : (result?.builtIn?.score ?? '');
        return this.renderer.render({ orchestra, score, files: [] });
    }

    private silence(): void {
        this.player.stop();
        this.showSilence();
    }

    private showSilence(): void {
        this.button.replaceChildren(icon('play'), 'Play');
        this.picture?.setPosition(0, false);
    }

    private follow(): void {
        if (!this.player.isPlaying) return;
        this.picture?.setPosition(this.player.position, true);
        requestAnimationFrame(() => this.follow());
    }
}

if (!customElements.get('vorn-score')) customElements.define('vorn-score', VornScore);
