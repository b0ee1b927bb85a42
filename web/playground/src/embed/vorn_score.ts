// <vorn-score>: a score in any page, with its picture and a button that plays it.
//
//     <script type="module" src="vorn-score.js"></script>
//     <vorn-score src="piece.vorn" orchestra="piece.orc" height="320"></vorn-score>
//     <vorn-score>i1 = 4 0 4 { p2 1  p3 1  p4(hz) no c4 e g c5 }</vorn-score>
//
// What the score includes is fetched from beside it, or stands in the element as a text with a name. Light and
// dark are those of the place where it stands, or what the attribute `theme` says.
//
// The engine is part of the script; Csound lies beside it and is loaded by the first click on the button.
import type { Diagnostic, Result, Vorn } from 'vorn-wasm';
import { listenToHands } from '../picture/gestures';
import { Picture } from '../picture/picture';
import { countEvents } from '../picture/scene';
import { csoundProgram } from '../sound/csound/loading';
import CsoundWorker from '../sound/csound/worker?worker&inline';
import { Player } from '../sound/player';
import { Renderer, Rendering } from '../sound/rendering';
import { timeText } from '../picture/span';
import { ORCHESTRA_REFUSED } from '../sound/csound/protocol';
import { orchestraMistakes } from '../sound/orchestra_mistakes';
import { orchestraOf, partsOf } from '../state/orchestras';
import { hasSuffix, isOrchestra, MAIN_SUFFIX, type Piece, type TextFile } from '../state/piece';
import { counted, make, prose } from '../ui/dom';
import { icon } from '../ui/icons';
import { loadEngine } from './engine';
import { compiledWithIncludes, fetchedText, namedTexts, ownText, type Texts } from './score_files';
import style from './vorn_score.css?inline';

const HEIGHT = 280;
const CSOUND = new URL('csound.wasm.z', import.meta.url).href;

const countAll = ({ blocks }: Result): number => blocks.reduce((sum, block) => sum + countEvents(block), 0);

function mistakeWords({ text, place, advice }: Diagnostic, main: string): (string | Node)[] {
    const line = place && place.file !== main ? `${place.file}, line` : 'Line';
    const words = place ? `${line} ${place.line}: ${text}` : text;
    return [words, ...advice.map((one) => make('span', { class: 'advice' }, ...prose(one)))];
}

const nameIn = (address: string): string => address.split(/[?#]/)[0]?.split('/').at(-1) ?? '';

const wordsOf = (error: unknown): string => (error instanceof Error ? error.message : String(error));

class VornScore extends HTMLElement {
    static readonly observedAttributes = ['src', 'orchestra'];
    private readonly root = this.attachShadow({ mode: 'open' });
    private readonly stage = make('div', { class: 'stage', role: 'application', tabindex: 0 });
    private readonly words = make('span', { class: 'words', 'aria-live': 'polite' });
    private readonly button = make('button', { type: 'button' });
    private picture: Picture | undefined;
    private turn = 0; // rises when another score is to be shown
    private result: Result | undefined;
    private texts: Texts = {};
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
        // Its colour changes with light and dark, whatever decides on them (vorn_score.css).
        this.stage.addEventListener('transitionend', () => this.picture?.redraw());
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
        return nameIn(this.getAttribute('src') ?? '') || 'score.vorn';
    }

    private get piece(): Piece {
        const files = Object.entries(this.texts).map(([name, text]) => ({ name, text }));
        return { title: '', files };
    }

    // The score first, whatever its name is.
    private async given(): Promise<Texts> {
        const source = this.getAttribute('src');
        const named = namedTexts(this);
        if (source !== null) return { [this.name]: await fetchedText(source), ...named };
        const own = ownText(this);
        const [first] = Object.keys(named).filter((name) => hasSuffix(name, MAIN_SUFFIX));
        if (own.trim() !== '' || first === undefined) return { [this.name]: own, ...named };
        return { [first]: named[first] ?? '', ...named };
    }

    private async read(): Promise<void> {
        const turn = ++this.turn;
        this.silence();
        try {
            const given = await this.given();
            const engine = await loadEngine();
            if (turn !== this.turn) return;
            const base = new URL(this.getAttribute('src') ?? '', document.baseURI).href;
            const compile = (texts: Texts): Result => this.compiled(engine, texts);
            const { result, texts } = await compiledWithIncludes(compile, given, base);
            if (turn === this.turn) this.show(result, texts);
        } catch (error) {
            if (turn === this.turn) this.refuse(wordsOf(error));
        }
    }

    private compiled(engine: Vorn, texts: Texts): Result {
        const isScore = ([name]: [string, string]): boolean => !isOrchestra(name);
        const scores = Object.fromEntries(Object.entries(texts).filter(isScore));
        return engine.compile(scores, { outputs: ['score', 'builtIn'] });
    }

    private refuse(trouble: string): void {
        this.complain([trouble]);
        this.button.disabled = true;
        this.stage.hidden = true;
        this.picture?.show(null);
    }

    private show(result: Result, texts: Texts): void {
        this.result = result;
        this.texts = texts;
        this.rendering = undefined;
        this.button.disabled = result.status !== 0;
        this.tell(result);
        this.stage.hidden = countAll(result) === 0;
        this.picture?.show(result);
    }

    private tell(result: Result): void {
        const [mistake] = result.diagnostics.filter((one) => one.severity === 'error');
        if (mistake) this.complain(mistakeWords(mistake, Object.keys(this.texts)[0] ?? ''));
        else this.say(`${counted(countAll(result), 'event')}, ${timeText(result.seconds)}`);
    }

    private say(words: string): void {
        this.words.textContent = words;
        this.words.classList.remove('trouble');
    }

    private complain(words: (string | Node)[]): void {
        this.words.replaceChildren(...words);
        this.words.classList.add('trouble');
    }

    private async toggle(): Promise<void> {
        if (this.player.isPlaying) return this.silence();
        const { turn, result } = this;
        try {
            const own = this.rendering ? undefined : await this.orchestra();
            if (turn !== this.turn || !result) return;
            this.tell(result);
            await this.play(this.rendering ?? this.render(result, own?.text), own);
        } catch (error) {
            if (turn === this.turn) this.complain([wordsOf(error)]);
        }
    }

    private async play(rendering: Rendering, own: TextFile | undefined): Promise<void> {
        this.rendering = rendering;
        this.player.play(rendering, 0);
        this.button.replaceChildren(icon('stop'), 'Stop');
        requestAnimationFrame(() => this.follow());
        await rendering.whole();
        if (rendering !== this.rendering || rendering.refusal === '') return;
        if (rendering.frames > 0) return this.say(rendering.refusal);
        this.complain(this.refusalWords(rendering, own));
        this.rendering = undefined; // another click tries again
    }

    private refusalWords({ refusal, text }: Rendering, own: TextFile | undefined): (string | Node)[] {
        if (refusal !== ORCHESTRA_REFUSED || !own) return [refusal];
        const [mistake] = orchestraMistakes(text, partsOf(this.piece, own), refusal);
        return mistake ? mistakeWords(mistake, '') : [refusal];
    }

    private render(result: Result, own: string | undefined): Rendering {
        const orchestra = own ?? result.builtIn?.orchestra ?? '';
        const score = own === undefined ? result.builtIn?.score : new TextDecoder().decode(result.score);
        const encoder = new TextEncoder();
        const files = Object.entries(this.texts).map(([name, text]) => [name, encoder.encode(text)] as const);
        return this.renderer.render({ orchestra, score: score ?? '', files }, new Rendering());
    }

    private async orchestra(): Promise<TextFile | undefined> {
        const address = this.getAttribute('orchestra');
        if (address) return { name: nameIn(address), text: await fetchedText(address) };
        return orchestraOf(this.piece);
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
