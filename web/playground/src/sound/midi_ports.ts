// MIDI instruments beside the browser, where it has them. Messages are handed over a little ahead with
// the time at which they are due, which the browser keeps better than any timer.
import type { MidiMessage } from './midi_file';

const AHEAD = 250; // milliseconds
const AHEAD_IN_BACKGROUND = 1600; // where timers come once a second
const EVERY = 100;
const SOON = 100; // from a command to its first message
const ALL_NOTES_OFF = 123;
const ALL_SOUND_OFF = 120;
const CONTROL = 0xb0;

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

const isNote = ({ bytes }: MidiMessage): boolean => [0x80, 0x90].includes((bytes[0] ?? 0) & 0xf0);

export class PortPlayer {
    private timer: ReturnType<typeof setInterval> | undefined;
    private port: MIDIOutput | undefined;
    private messages: readonly MidiMessage[] = [];
    private next = 0;
    private anchor = 0;
    private handedOver = 0; // until when

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
        const first = messages.findIndex((message) => message.seconds >= from);
        this.next = first < 0 ? messages.length : first;
        this.anchor = performance.now() + SOON - from * 1000;
        // Instruments and controls that hold where it begins.
        for (const { bytes } of messages.slice(0, this.next).filter((message) => !isNote(message)))
            this.port.send([...bytes]);
        this.timer = setInterval(() => this.work(onEnd), EVERY);
        this.work(onEnd);
        return true;
    }

    // At once, and once more behind what has been handed over, which not every browser can take back.
    stop(): void {
        clearInterval(this.timer);
        this.timer = undefined;
        (this.port as { clear?: () => void } | undefined)?.clear?.();
        this.silence();
        if (this.handedOver > performance.now()) this.silence(this.handedOver + 1);
        this.port = undefined;
        this.handedOver = 0;
    }

    private silence(time?: number): void {
        for (let channel = 0; channel < 16; channel++) {
            this.port?.send([CONTROL + channel, ALL_NOTES_OFF, 0], time);
            this.port?.send([CONTROL + channel, ALL_SOUND_OFF, 0], time);
        }
    }

    private work(onEnd: () => void): void {
        const until = performance.now() + (document.hidden ? AHEAD_IN_BACKGROUND : AHEAD);
        let due = this.messages[this.next];
        while (due && this.anchor + due.seconds * 1000 < until) {
            this.handedOver = this.anchor + due.seconds * 1000;
            this.port?.send([...due.bytes], this.handedOver);
            due = this.messages[++this.next];
        }
        const last = this.messages.at(-1)?.seconds ?? 0;
        if (!due && this.position > last + 0.5) {
            this.stop();
            onEnd();
        }
    }
}
