// Reads a Standard MIDI File as far as a player needs it: what is to be sent, and when.
export interface MidiMessage {
    readonly seconds: number;
    readonly bytes: readonly number[];
}

interface Timed {
    ticks: number;
    order: number;
    bytes: number[];
    tempo: number; // microseconds a quarter; 0: it is no tempo
}

class Reader {
    at = 0;
    constructor(private readonly bytes: Uint8Array) {}

    byte(): number {
        return this.bytes[this.at++] ?? 0;
    }
    number(length: number): number {
        let value = 0;
        for (let count = 0; count < length; count++) value = value * 256 + this.byte();
        return value;
    }
    // Seven bits a byte, the last one without its eighth.
    quantity(): number {
        let value = 0;
        for (let count = 0; count < 4; count++) {
            const byte = this.byte();
            value = value * 128 + (byte & 127);
            if (byte < 128) break;
        }
        return value;
    }
    letters(length: number): string {
        return Array.from({ length }, () => String.fromCharCode(this.byte())).join('');
    }
    get isOver(): boolean {
        return this.at >= this.bytes.length;
    }
}

const TEMPO = 0x51;
const dataLength = (status: number): number => ([0xc0, 0xd0].includes(status & 0xf0) ? 1 : 2);

function readMeta(reader: Reader): number {
    const kind = reader.byte();
    const end = reader.quantity() + reader.at;
    const tempo = kind === TEMPO ? reader.number(3) : 0;
    reader.at = end;
    return tempo;
}

// One event behind its time; `running` is the status that holds where none is written.
function readEvent(reader: Reader, running: number): { status: number; bytes: number[]; tempo: number } {
    let status = reader.byte();
    if (status === 0xff) return { status: running, bytes: [], tempo: readMeta(reader) };
    if (status === 0xf0 || status === 0xf7) {
        reader.at += reader.quantity();
        return { status: running, bytes: [], tempo: 0 };
    }
    if (status < 0x80) {
        reader.at -= 1;
        status = running;
    }
    const data = Array.from({ length: dataLength(status) }, () => reader.byte());
    return { status, bytes: [status, ...data], tempo: 0 };
}

function readTrack(reader: Reader, end: number, events: Timed[]): void {
    let ticks = 0;
    let running = 0x90;
    while (reader.at < end) {
        ticks += reader.quantity();
        const { status, bytes, tempo } = readEvent(reader, running);
        running = status;
        if (bytes.length > 0 || tempo > 0) events.push({ ticks, order: events.length, bytes, tempo });
    }
    reader.at = end;
}

function inSeconds(events: Timed[], division: number): MidiMessage[] {
    const messages: MidiMessage[] = [];
    let seconds = 0;
    let before = 0;
    let tempo = 500000;
    for (const event of events) {
        seconds += ((event.ticks - before) * tempo) / (division * 1e6);
        before = event.ticks;
        if (event.tempo > 0) tempo = event.tempo;
        else messages.push({ seconds, bytes: event.bytes });
    }
    return messages;
}

export function readMidi(bytes: Uint8Array): MidiMessage[] {
    const reader = new Reader(bytes);
    if (reader.letters(4) !== 'MThd') return [];
    reader.at += 8;
    const division = reader.number(2) || 1;
    const events: Timed[] = [];
    while (!reader.isOver) {
        const kind = reader.letters(4);
        const end = reader.number(4) + reader.at;
        if (kind === 'MTrk') readTrack(reader, Math.min(end, bytes.length), events);
        reader.at = end;
    }
    events.sort((a, b) => a.ticks - b.ticks || a.order - b.order);
    return inSeconds(events, division);
}
