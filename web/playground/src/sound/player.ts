// Plays renderings: the samples that are there are handed to the sound system a second or two ahead. The
// place that is heard follows from its clock alone, so that the moving line and the loop are exact.
//
//     score      |----x=====================|          x: where playing began, or the loop did
//     clock           ^ anchor
import type { Rendering } from './rendering';

const AHEAD = 1.5;
const EVERY = 100; // milliseconds
const SOON = 0.06; // seconds from a command to its first sample

export interface PlayerEvents {
    onEnd(): void;
    // A loop begins again: what is to be heard from now on.
    nextRendering(): Rendering;
    loops(): boolean;
}

export class Player {
    private context: AudioContext | undefined;
    private volumeNode: GainNode | undefined;
    private analyser: AnalyserNode | undefined;
    private rendering: Rendering | undefined;
    private timer: ReturnType<typeof setInterval> | undefined;
    private sources = new Set<AudioBufferSourceNode>();
    private anchor = 0; // clock at which frame 0 of the rendering would be heard
    private anchorBefore = 0; // that of the round that is still heard when the next one is handed over
    private from = 0; // where playing began
    private frame = 0; // the first that has not been handed over
    private volume = 0.8;
    private isWaiting = true; // for samples

    constructor(private readonly events: PlayerEvents) {}

    get isPlaying(): boolean {
        return this.rendering !== undefined;
    }

    get position(): number {
        if (!this.rendering || !this.context) return 0;
        if (this.isWaiting) return this.from;
        const now = this.context.currentTime;
        return Math.max(0, now - (now < this.anchor ? this.anchorBefore : this.anchor));
    }

    setVolume(volume: number): void {
        this.volume = volume;
        if (this.volumeNode) this.volumeNode.gain.value = volume ** 2;
    }

    // Must be called within the handling of a click or a key: browsers let no sound begin otherwise.
    play(rendering: Rendering, from: number): void {
        this.stop();
        this.rendering = rendering;
        this.from = from;
        this.isWaiting = true;
        this.frame = -1;
        this.timer = setInterval(() => this.work(), EVERY);
        this.work();
    }

    stop(): void {
        clearInterval(this.timer);
        this.rendering = undefined;
        this.silence();
    }

    // The samples that are heard at this moment, and their rate; for meters and for tests.
    heard(): { samples: Float32Array; sampleRate: number } {
        const samples = new Float32Array(this.analyser?.fftSize ?? 0);
        this.analyser?.getFloatTimeDomainData(samples);
        return { samples, sampleRate: this.context?.sampleRate ?? 0 };
    }

    private silence(): void {
        for (const source of this.sources) source.stop();
        this.sources.clear();
    }

    // A context of the rendering's own rate, so that no stretch is resampled on its own.
    private contextFor(rate: number): AudioContext {
        if (this.context?.sampleRate === rate) return this.context;
        void this.context?.close();
        const context = new AudioContext({ sampleRate: rate, latencyHint: 'playback' });
        this.volumeNode = context.createGain();
        this.analyser = context.createAnalyser();
        this.analyser.fftSize = 8192;
        this.volumeNode.connect(this.analyser).connect(context.destination);
        this.context = context;
        this.setVolume(this.volume);
        return context;
    }

    private work(): void {
        const { rendering } = this;
        if (!rendering) return;
        if (rendering.sampleRate === 0) {
            if (rendering.hasEnded) this.finish();
            return;
        }
        const context = this.contextFor(rendering.sampleRate);
        if (context.state === 'suspended') void context.resume();
        if (this.frame < 0) this.frame = Math.floor(this.from * rendering.sampleRate);
        this.handOver(context, rendering);
    }

    private handOver(context: AudioContext, rendering: Rendering): void {
        while (rendering === this.rendering) {
            const chunk = rendering.chunkAt(this.frame);
            if (chunk < 0) break;
            if (this.isWaiting) this.begin(context, rendering);
            const due = this.anchor + this.frame / rendering.sampleRate;
            if (due > context.currentTime + AHEAD) return;
            this.schedule(context, rendering, chunk, due);
        }
        if (rendering === this.rendering) this.atTheEnd(context, rendering);
    }

    private begin(context: AudioContext, rendering: Rendering): void {
        this.anchor = context.currentTime + SOON - this.frame / rendering.sampleRate;
        this.anchorBefore = this.anchor;
        this.isWaiting = false;
    }

    private schedule(context: AudioContext, rendering: Rendering, chunk: number, due: number): void {
        const samples = rendering.chunks[chunk] ?? [];
        const length = samples[0]?.length ?? 0;
        const buffer = context.createBuffer(Math.max(1, samples.length), length, rendering.sampleRate);
        samples.forEach((one, channel) => buffer.copyToChannel(one, channel));
        const source = context.createBufferSource();
        source.buffer = buffer;
        if (this.volumeNode) source.connect(this.volumeNode);
        const skipped = this.frame - rendering.startOf(chunk);
        source.start(due, skipped / rendering.sampleRate);
        source.onended = () => this.sources.delete(source);
        this.sources.add(source);
        this.frame = rendering.startOf(chunk) + length;
    }

    // All that is there has been handed over: wait for more, begin the loop again, or end.
    private atTheEnd(context: AudioContext, rendering: Rendering): void {
        const end = this.anchor + this.frame / rendering.sampleRate;
        const isOver = this.isWaiting || context.currentTime >= end;
        if (!rendering.hasEnded) {
            if (isOver) this.isWaiting = true;
        } else if (isOver || rendering.frames === 0) {
            this.finish();
        } else if (this.events.loops() && end - context.currentTime < AHEAD / 2) {
            this.loop(end);
        }
    }

    // The next round is heard when this one has ended; until then the line stands at its beginning.
    private loop(end: number): void {
        const next = this.events.nextRendering();
        if (next.sampleRate !== this.context?.sampleRate) {
            this.play(next, 0);
            return;
        }
        this.rendering = next;
        this.frame = 0;
        this.from = 0;
        this.anchorBefore = this.anchor;
        this.anchor = end;
        this.isWaiting = false;
        this.work();
    }

    private finish(): void {
        if (this.events.loops() && (this.rendering?.frames ?? 0) > 0) {
            this.play(this.events.nextRendering(), 0);
            return;
        }
        this.stop();
        this.events.onEnd();
    }
}
