// What is heard: by Csound with the piece's own orchestra or with one that is made for it, or by a MIDI
// instrument. Whatever has been edited meanwhile is heard when the loop begins again.
import type { Diagnostic, Result, VornClient } from 'vorn-wasm';
import { BUILT_IN, MIDI, ORCHESTRA, type AppStore } from '../state/app_state';
import { orchestraOf, partsOf } from '../state/orchestras';
import { mainFile, sourcesOf, type Piece } from '../state/piece';
import programAddress from '../../generated/csound.wasm.z?url';
import { soundsAlike, stillHolding } from './complaints';
import { csoundProgram } from './csound/loading';
import { ORCHESTRA_REFUSED } from './csound/protocol';
import { readMidi } from './midi_file';
import { midiPiece } from './midi_instrument';
import { PortPlayer } from './midi_ports';
import { orchestraMistakes } from './orchestra_mistakes';
import { Player } from './player';
import { Renderer, Rendering, type SoundPiece } from './rendering';
import { WaveRendering, waveFile } from './wave';

const DEADLINE = 10000;

const text = (bytes: Uint8Array | undefined): string => new TextDecoder().decode(bytes);

const makeRenderer = (): Renderer =>
    new Renderer(
        () => new Worker(new URL('./csound/worker.ts', import.meta.url), { type: 'module' }),
        () => csoundProgram(programAddress),
    );

type Timed = SoundPiece & { readonly seconds: number }; // of its score

export class Sounding {
    private readonly renderer = makeRenderer();
    private readonly waves = makeRenderer(); // of files, beside what is heard
    private readonly player: Player;
    private readonly ports = new PortPlayer();
    private current: Rendering | undefined; // that is heard
    private newest: Rendering | undefined; // that is or will be
    private newestPiece: Piece | undefined;
    private newestOutput = '';
    private attempt = 0;
    private toldPiece: Piece; // that the complaints in the store are about

    constructor(
        private readonly store: AppStore,
        private readonly engine: Promise<VornClient>,
    ) {
        this.player = new Player({
            onEnd: () => this.ended(),
            nextRendering: () => this.nextRound(),
            loops: () => this.store.state.loops,
        });
        store.watch(
            (state) => state.volume,
            (volume) => this.player.setVolume(volume),
        );
        const ahead = (): void => this.renderAhead();
        store.watch((state) => state.resultPiece, ahead);
        store.watch((state) => state.output, ahead);
        this.toldPiece = store.state.piece;
        store.watch(
            (state) => state.pieceNumber,
            () => this.leave(),
        );
        store.watch(
            (state) => state.piece,
            (piece) => this.forgetMended(piece),
        );
        this.player.setVolume(store.state.volume);
    }

    get position(): number {
        return this.ports.isPlaying ? this.ports.position : this.player.position;
    }

    heard(): { samples: Float32Array; sampleRate: number } {
        return this.player.heard();
    }

    async play(from = 0): Promise<void> {
        this.silence();
        const attempt = ++this.attempt;
        this.store.act('load sound', () => ({
            sounding: 'loading',
            soundTrouble: '',
            soundText: '',
            soundDiagnostics: [],
        }));
        try {
            if (this.usesCsound()) await this.playCsound(from, attempt);
            else await this.playPort(from, attempt);
        } catch (error) {
            if (attempt === this.attempt) this.fail(error instanceof Error ? error.message : String(error));
        }
    }

    stop(): void {
        this.attempt += 1;
        const position = this.store.state.sounding === 'playing' ? this.position : 0;
        this.silence();
        this.store.act('stop', () => ({ sounding: 'silent', position }));
    }

    // The piece as a file, when it has been played already.
    get finishedWave(): Blob | undefined {
        const { newest } = this;
        const isWhole = newest?.hasEnded && newest.frames > 0 && this.hasRendering(this.store.state.piece);
        return isWhole ? waveFile(newest) : undefined;
    }

    // The whole piece for a file, rendered as fast as the machine can.
    async renderWave(): Promise<WaveRendering> {
        if (this.waves.isBusy) throw new Error('A sound file is being rendered; wait for it or cancel it.');
        const sound = await this.toSound(this.store.state.piece);
        return this.waves.render(sound, new WaveRendering(sound.seconds));
    }

    cancelWave(): void {
        this.waves.cancel();
    }

    // Another piece is there: the one before is heard no longer.
    private leave(): void {
        this.attempt += 1;
        this.silence();
        this.renderer.cancel();
        this.newest = undefined;
        this.newestPiece = undefined;
        this.toldPiece = this.store.state.piece;
        this.store.act('leave piece', () => ({ sounding: 'silent' }));
    }

    private forgetMended(piece: Piece): void {
        const before = this.toldPiece;
        this.toldPiece = piece;
        if (soundsAlike(before, piece)) return;
        this.store.act('mend', ({ soundDiagnostics }) => ({
            soundDiagnostics: stillHolding(soundDiagnostics, before, piece),
            soundTrouble: '',
        }));
    }

    private usesCsound(): boolean {
        return [ORCHESTRA, BUILT_IN, MIDI].includes(this.store.state.output);
    }

    private silence(): void {
        this.player.stop();
        this.ports.stop();
        this.current = undefined;
    }

    private fail(trouble: string): void {
        this.silence();
        this.store.act('sound fails', () => ({ sounding: 'silent', soundTrouble: trouble, panel: 'sound' }));
    }

    private ended(): void {
        this.silence();
        this.store.act('sound ends', () => ({ sounding: 'silent', position: 0 }));
    }

    private async playCsound(from: number, attempt: number): Promise<void> {
        const { piece } = this.store.state;
        const rendering = await this.renderingOf(piece);
        if (attempt !== this.attempt) return;
        this.current = rendering;
        this.player.play(rendering, from);
        this.store.act('play', () => ({ sounding: 'playing', position: from }));
        this.listen(); // to what one that has ended already said, too
        void rendering.whole().then(() => this.tellRefusal(rendering));
    }

    private tellRefusal(rendering: Rendering): void {
        if (rendering !== this.newest) return;
        if (rendering === this.current && rendering.frames === 0)
            this.fail(rendering.refusal || 'There is no sound.');
        else if (rendering.refusal !== '' && this.isOfThisText())
            this.store.act('sound trouble', () => ({ soundTrouble: rendering.refusal }));
    }

    private isOfThisText(): boolean {
        return this.newestPiece !== undefined && soundsAlike(this.newestPiece, this.store.state.piece);
    }

    private async playPort(from: number, attempt: number): Promise<void> {
        const { piece, output } = this.store.state;
        const result = await this.compiled(piece, 'fullMidi');
        if (attempt !== this.attempt) return;
        const messages = readMidi(result.fullMidi ?? new Uint8Array());
        const again = (): void => void (this.store.state.loops ? this.play(0) : this.ended());
        if (!this.ports.play(output, messages, from, again)) throw new Error('This MIDI port is gone.');
        this.store.act('play', () => ({ sounding: 'playing', position: from }));
    }

    private async compiled(piece: Piece, ...outputs: ('score' | 'builtIn' | 'fullMidi')[]): Promise<Result> {
        const client = await this.engine;
        const options = { main: mainFile(piece).name, outputs };
        const result = await client.compile(sourcesOf(piece), options, { deadline: DEADLINE });
        if (result.status !== 0) throw new Error('The score has a mistake; it sounds when that is mended.');
        if (result.eventCount === 0) throw new Error('The score has no events yet.');
        return result;
    }

    private async toSound(piece: Piece): Promise<Timed> {
        if (this.store.state.output === MIDI) {
            const { fullMidi, seconds } = await this.compiled(piece, 'fullMidi');
            return { ...midiPiece(readMidi(fullMidi ?? new Uint8Array())), seconds };
        }
        const orchestra = this.store.state.output === ORCHESTRA ? orchestraOf(piece) : undefined;
        const files = piece.files.map(
            ({ name, text: content }) => [name, new TextEncoder().encode(content)] as const,
        );
        if (orchestra) {
            const { score, seconds } = await this.compiled(piece, 'score');
            return { orchestra: orchestra.text, score: text(score), files, seconds };
        }
        const { builtIn, seconds } = await this.compiled(piece, 'builtIn');
        return { orchestra: builtIn?.orchestra ?? '', score: builtIn?.score ?? '', files, seconds };
    }

    private hasRendering(piece: Piece): boolean {
        const { newest, newestPiece, newestOutput } = this;
        return newest?.refusal === '' && newestPiece === piece && newestOutput === this.store.state.output;
    }

    private async renderingOf(piece: Piece): Promise<Rendering> {
        return this.newest && this.hasRendering(piece) ? this.newest : this.render(piece);
    }

    private async render(piece: Piece): Promise<Rendering> {
        const sound = await this.toSound(piece);
        const rendering = this.renderer.render(sound, new Rendering());
        this.newest = rendering;
        this.newestPiece = piece;
        this.newestOutput = this.store.state.output;
        rendering.onChange(() => this.listen());
        return rendering;
    }

    // What Csound says of the newest, a few times a second at most.
    private pending: ReturnType<typeof setTimeout> | undefined;
    private listen(): void {
        this.pending ??= setTimeout(() => {
            this.pending = undefined;
            const { newest } = this;
            if (!newest) return;
            this.store.act('Csound speaks', () => ({ soundText: newest.text }));
            if (newest.hasEnded) void this.report(newest);
        }, 150);
    }

    private async report(rendering: Rendering): Promise<void> {
        const { newestPiece: piece } = this;
        if (!piece) return;
        const found = await this.complaintsOf(rendering, piece);
        if (rendering !== this.newest) return;
        this.store.act('Csound reports', (state) => ({
            soundDiagnostics: stillHolding(found, piece, state.piece),
        }));
    }

    // The engine leads from what Csound said to blocks of the score that it has read last.
    private async complaintsOf({ text: said, refusal }: Rendering, piece: Piece): Promise<Diagnostic[]> {
        const orchestra = this.newestOutput === ORCHESTRA ? orchestraOf(piece) : undefined;
        if (refusal === ORCHESTRA_REFUSED && orchestra)
            return orchestraMistakes(said, partsOf(piece, orchestra), refusal);
        if (!soundsAlike(piece, this.store.state.piece)) return [];
        try {
            const client = await this.engine;
            const options = { main: mainFile(piece).name, outputs: [] };
            const read = client.compile(sourcesOf(piece), options, { deadline: DEADLINE });
            const [, told] = await Promise.all([read, client.performance(said)]);
            return [...told.diagnostics];
        } catch {
            return []; // The engine is being started again; the text of Csound is shown all the same.
        }
    }

    private renderAhead(): void {
        const { sounding, result, resultPiece } = this.store.state;
        if (sounding !== 'playing' || !this.usesCsound() || result?.status !== 0 || !resultPiece) return;
        if (this.hasRendering(resultPiece)) return;
        // The one that is heard is finished first: there is one Csound at a time.
        if (this.current && !this.current.hasEnded) void this.current.whole().then(() => this.renderAhead());
        else void this.renderUnheard(resultPiece).catch(() => undefined);
    }

    private async renderUnheard(piece: Piece): Promise<void> {
        const rendering = await this.render(piece);
        await rendering.whole();
        this.tellRefusal(rendering);
    }

    private nextRound(): Rendering {
        const next = this.newest?.frames ? this.newest : this.current;
        this.current = next;
        return next ?? new Rendering();
    }
}
