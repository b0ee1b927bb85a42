// MIDI instruments beside the browser, where it has them. Messages are handed over a little ahead with
// the time at which they are due, which the browser keeps better than any timer.
import type { MidiMessage } from './midi_file';

const AHEAD = 400; // milliseconds
const EVERY = 100;
const ALL_NOTES_OFF = 123;
const ALL_SOUND_OFF = 120;

export interface Port {
    readonly id: string;
    readonly name: string;
}

export const hasMidi = (): boolean => 'requestMIDIAccess' in navigator;

let access: MIDIAccess | undefined;

// Asks the browser, which may ask the user.
export async function findPorts(): Promise<Port[]> {
    if (!hasMidi()) return [];
    access ??= await navigator.requestMIDIAccess();
    return [...access.outputs.values()].map(({ id, name }) => ({ id, name: name ?? id }));
}

export class PortPlayer {
    private timer: ReturnType<typeof setInterval> | undefined;
    private port: MIDIOutput | undefined;
    private messages: readonly MidiMessage[] = [];
    private next = 0;
    private anchor = 0;

    get isPlaying(): boolean {
        return this.timer !== undefined;
    }
    get position(): number {
        return this.isPlaying ? Math.max(0, (performance.now() - this.anchor) / 1000) : 0;
    }

    // `onEnd` is called when the last message has been sent and its time has come.
    play(portId: string, messages: readonly MidiMessage[], from: number, onEnd: () => void): boolean {
        this.stop();
        this.port = access?.outputs.get(portId);
        if (!this.port) return false;
        this.messages = messages;
        this.next = messages.findIndex((message) => message.seconds >= from);
        if (this.next < 0) this.next = messages.length;
        this.anchor = performance.now() + EVERY - from * 1000;
        this.timer = setInterval(() => this.work(onEnd), EVERY);
        return true;
    }

    stop(): void {
        clearInterval(this.timer);
        this.timer = undefined;
        for (let channel = 0; channel < 16; channel++) {
            this.port?.send([0xb0 + channel, ALL_NOTES_OFF, 0]);
            this.port?.send([0xb0 + channel, ALL_SOUND_OFF, 0]);
        }
        this.port = undefined;
    }

    private work(onEnd: () => void): void {
        const until = performance.now() + AHEAD;
        let due = this.messages[this.next];
        while (due && this.anchor + due.seconds * 1000 < until) {
            this.port?.send([...due.bytes], this.anchor + due.seconds * 1000);
            due = this.messages[++this.next];
        }
        const last = this.messages.at(-1)?.seconds ?? 0;
        if (!due && this.position > last + 0.5) {
            this.stop();
            onEnd();
        }
    }
}
