import { ConsoleStdout, OpenFile, File, WASI } from '@bjorn3/browser_wasi_shim';
import { VornError } from './error.js';
import { FileSystem, bytesOf } from './file_system.js';

// One instance of the WebAssembly module: its memory, its files, and calls with texts.

interface Exports extends WebAssembly.Exports {
    memory: WebAssembly.Memory;
    vorn_begin(): void;
    vorn_is_out_of_memory(): number;
    vorn_allocate(size: number): number;
    vorn_release(address: number): void;
    vorn_answer(): number;
    vorn_answer_size(): number;
    vorn_compile(address: number, size: number): void;
    vorn_run(address: number, size: number): void;
    vorn_expanded_lines(address: number, size: number, line: number): void;
    vorn_performance(address: number, size: number): void;
    vorn_explain(address: number, size: number): void;
    vorn_explanations(): void;
    vorn_words(): void;
}

/** Where something lies in the module's memory: an address, and a number of elements. */
export type Address = readonly [number, number];

type TextCall = 'vorn_compile' | 'vorn_run' | 'vorn_expanded_lines' | 'vorn_performance' | 'vorn_explain';

const STANDARD_STREAMS = 3;
const decoder = new TextDecoder();

export class EngineModule {
    readonly files = new FileSystem();
    private readonly wasi: WASI;
    private readonly exports: Exports;

    constructor(module: WebAssembly.Module) {
        const silent = new ConsoleStdout(() => undefined);
        const input = new OpenFile(new File(new Uint8Array()));
        this.wasi = new WASI([], [], [input, silent, silent, this.files.root], { debug: false });
        const instance = new WebAssembly.Instance(module, {
            wasi_snapshot_preview1: this.wasi.wasiImport,
        }) as WebAssembly.Instance & { exports: Exports };
        this.wasi.initialize(instance);
        this.exports = instance.exports;
        this.exports.vorn_begin();
    }

    get memoryBytes(): number {
        return this.exports.memory.buffer.byteLength;
    }

    /** Calls with a text, and what stands behind it among the arguments; returns the answer. */
    call(name: TextCall, text: string, line = 0): unknown {
        const bytes = bytesOf(text);
        const address = this.exports.vorn_allocate(bytes.byteLength);
        if (address === 0) throw new VornError('memory', 'there is no memory for the text');
        new Uint8Array(this.exports.memory.buffer, address, bytes.byteLength).set(bytes);
        this.guarded(() => this.exports[name](address, bytes.byteLength, line));
        this.exports.vorn_release(address);
        return this.answer();
    }

    ask(name: 'vorn_explanations' | 'vorn_words'): unknown {
        this.guarded(() => this.exports[name]());
        return this.answer();
    }

    bytes([address, size]: Address): Uint8Array {
        return new Uint8Array(this.exports.memory.buffer, address, size).slice();
    }

    text(address: Address): string {
        return decoder.decode(new Uint8Array(this.exports.memory.buffer, ...address));
    }

    floats([address, size]: Address): Float32Array {
        return new Float32Array(this.exports.memory.buffer, address, size).slice();
    }

    doubles([address, size]: Address): Float64Array {
        return new Float64Array(this.exports.memory.buffer, address, size).slice();
    }

    /** Rows of `count` values become columns. */
    columns([address, size]: Address, count: number): Float32Array[] {
        const values = new Float32Array(this.exports.memory.buffer, address, size);
        const rows = count > 0 ? size / count : 0;
        return Array.from({ length: count }, (_, column) => {
            const taken = new Float32Array(rows);
            for (let row = 0, at = column; row < rows; ++row, at += count) taken[row] = values[at] as number;
            return taken;
        });
    }

    private answer(): unknown {
        return JSON.parse(this.text([this.exports.vorn_answer(), this.exports.vorn_answer_size()]));
    }

    private guarded(work: () => void): void {
        try {
            work();
        } catch (error) {
            if (this.exports.vorn_is_out_of_memory() !== 0) {
                throw new VornError('memory', 'the score needs more memory than there is');
            }
            throw new VornError('engine', `the engine has failed: ${String(error)}`);
        } finally {
            this.wasi.fds.length = STANDARD_STREAMS + 1; // the shim keeps a place for every file ever opened
        }
    }
}
