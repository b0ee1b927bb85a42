import type { CompileOptions, Files, Output } from './types.js';

// What a caller wants, as the engine reads it (engine/request.h).

export interface Request {
    readonly json: string;
    readonly main: string;
    readonly outputs: readonly Output[];
    /** Names of the files that the runs write. */
    readonly score: string;
    readonly midi: string;
    readonly expansion: string;
}

const MAX_SEED = 65535;

export function makeRequest(files: Files, options: CompileOptions): Request {
    const main = options.main ?? Object.keys(files)[0];
    if (main === undefined) throw new TypeError('there is no file to compile');
    if (!(main in files)) throw new TypeError(`there is no file "${main}"`);
    checkSeed(options.seed);
    const base = main.replace(/\.[^./]*$/, '') || main;
    const score = freeName(files, base, '.sco');
    const midi = freeName(files, base, '.mid');
    const expansion = freeName(files, base, '.exp');
    const outputs = options.outputs ?? ['score'];
    const request = { main, outputs, score, midi, expansion };
    return { ...request, json: JSON.stringify(engineRequest(request, base, options)) };
}

function checkSeed(seed: number | undefined): void {
    if (seed === undefined || (Number.isInteger(seed) && seed >= 0 && seed <= MAX_SEED)) return;
    throw new RangeError(`a seed is a whole number from 0 to ${String(MAX_SEED)}, not ${String(seed)}`);
}

function freeName(files: Files, base: string, ending: string): string {
    let name = base + ending;
    for (let count = 2; name in files; ++count) name = `${base}-${String(count)}${ending}`;
    return name;
}

/** A name that begins with "-" must not look like an option. */
function operand(name: string): string {
    return name.startsWith('-') ? `./${name}` : name;
}

function engineRequest(request: Omit<Request, 'json'>, base: string, options: CompileOptions): object {
    const { main, outputs, score, midi, expansion } = request;
    const flags = [...(options.quiet ? ['-s'] : []), ...(options.trace ? ['-t'] : [])];
    if (outputs.includes('expansion')) flags.push('-x', operand(expansion));
    const wantsMidi = outputs.includes('midi');
    return {
        arguments: [...flags, operand(main), operand(score)],
        midiArguments: wantsMidi ? ['-s', '-m', operand(main), operand(midi)] : [],
        outputs,
        seed: options.seed,
        relative: options.relative ?? false,
        events: options.events ?? true,
        ignore: options.ignore ?? [],
        pitch: options.roles?.pitch ?? 0,
        level: options.roles?.level ?? 0,
        rests: options.rests ?? false,
        picture: { title: base, ...options.picture },
        title: base.slice(base.lastIndexOf('/') + 1),
    };
}
