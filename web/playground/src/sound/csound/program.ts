// Csound as a program: its module is linked for the place in memory where it is put, as a shared
// library is, and then answers to the functions of its C interface.
//
//     [ stack 0 .. 8 MB | data of the program | heap that grows ]
//
// Each performance gets an instance of its own, so that nothing of one is left in the next.
import { ConsoleStdout, File, OpenFile, PreopenDirectory, WASI } from '@bjorn3/browser_wasi_shim';

const PAGE = 65536;
const STACK = 8 * 1024 * 1024;
const MOST_PAGES = 12288; // 768 MB

// The functions of <csound.h> that are used here, and two of the module's own for texts.
export interface CsoundFunctions {
    csoundInitialize(flags: number): number;
    csoundCreateWasi(): number;
    csoundSetOption(csound: number, text: number): number;
    csoundCompileOrc(csound: number, text: number): number;
    csoundReadScore(csound: number, text: number): number;
    csoundStartWasi(csound: number): number;
    csoundPerformKsmps(csound: number): number;
    csoundGetSpout(csound: number): number;
    csoundGetKsmps(csound: number): number;
    csoundGetNchnls(csound: number): number;
    csoundGetSr(csound: number): number;
    csoundGet0dBFS(csound: number): number;
    csoundCleanup(csound: number): number;
    allocStringMem(length: number): number;
    freeStringMem(text: number): void;
}

export interface CsoundInstance {
    readonly functions: CsoundFunctions;
    readonly memory: WebAssembly.Memory;
    // Calls `use` with the address of `text`, ended by a zero.
    withText(text: string, use: (address: number) => number): number;
}

interface Needs {
    memory: number;
    table: number;
}

// What the module asks for, from its section "dylink.0": numbers in groups of seven bits.
export function readNeeds(module: WebAssembly.Module): Needs {
    const [section] = WebAssembly.Module.customSections(module, 'dylink.0');
    if (!section) throw new Error('This program of Csound cannot be linked.');
    const bytes = new Uint8Array(section);
    let at = 2;
    const next = (): number => {
        let value = 0;
        for (let shift = 0; ; shift += 7) {
            const byte = bytes[at++] ?? 0;
            value |= (byte & 127) << shift;
            if (byte < 128) return value;
        }
    };
    const memory = next();
    const alignment = next();
    return { memory: memory + 2 ** alignment, table: next() };
}

const global = (value: number, mutable: boolean): WebAssembly.Global =>
    new WebAssembly.Global({ value: 'i32', mutable }, value);

// The files that the orchestra may read, by name.
export type Files = ReadonlyMap<string, Uint8Array>;

function system(files: Files): WASI {
    const folder = new Map([...files].map(([name, bytes]) => [name, new File(bytes)]));
    const silent = ConsoleStdout.lineBuffered(() => undefined);
    return new WASI([], [], [new OpenFile(new File([])), silent, silent, new PreopenDirectory('/', folder)], {
        debug: false,
    });
}

function surroundings(
    memory: WebAssembly.Memory,
    needs: Needs,
    onMessage: (text: string) => void,
): WebAssembly.ModuleImports {
    const decoder = new TextDecoder();
    return {
        memory,
        __indirect_function_table: new WebAssembly.Table({ initial: needs.table + 1, element: 'anyfunc' }),
        __stack_pointer: global(STACK, true),
        __memory_base: global(STACK, false),
        __table_base: global(1, false),
        csoundLoadModules: () => 0,
        printDebugCallback: () => undefined,
        csoundWasiJsMessageCallback: (_csound: number, _kind: number, length: number, address: number) =>
            onMessage(decoder.decode(new Uint8Array(memory.buffer, address, length))),
    };
}

function withTextOf(functions: CsoundFunctions, memory: WebAssembly.Memory): CsoundInstance['withText'] {
    const encoder = new TextEncoder();
    return (text, use) => {
        const bytes = encoder.encode(text);
        const address = functions.allocStringMem(bytes.length);
        const place = new Uint8Array(memory.buffer, address, bytes.length + 1);
        place.set(bytes);
        place[bytes.length] = 0;
        const result = use(address);
        functions.freeStringMem(address);
        return result;
    };
}

// An instance, ready for csoundCreateWasi. What Csound prints goes to `onMessage` as it comes.
export async function startProgram(
    module: WebAssembly.Module,
    files: Files,
    onMessage: (text: string) => void,
): Promise<CsoundInstance> {
    const needs = readNeeds(module);
    const pages = Math.ceil((STACK + needs.memory) / PAGE);
    const memory = new WebAssembly.Memory({ initial: pages, maximum: MOST_PAGES });
    const wasi = system(files);
    const instance = await WebAssembly.instantiate(module, {
        wasi_snapshot_preview1: wasi.wasiImport,
        env: surroundings(memory, needs, onMessage),
        'GOT.mem': { __heap_base: global(pages * PAGE, true) },
    });
    const exported = instance.exports as Record<string, () => void>;
    wasi.inst = { exports: { memory } };
    exported['_start']?.();
    exported['__wasi_js_csoundSetMessageStringCallback']?.();
    const functions = instance.exports as unknown as CsoundFunctions;
    return { functions, memory, withText: withTextOf(functions, memory) };
}
