import type { CompileOptions, Files, Output } from './types.js';

// What a caller wants, as the engine reads it (engine/request.h).

export interface Request {
    readonly text: string;
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
    return { ...request, text: engineRequest(request, base, options) };
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

type Value = string | number | boolean | undefined;

/** Names and values as the engine reads them; what is undefined is left out. */
function encoded(pairs: readonly (readonly [string, Value])[]): string {
    const parts = pairs.filter(([, value]) => value !== undefined);
    const texts = parts.map(([name, value]) => [
        name,
        String(typeof value === 'boolean' ? Number(value) : value),
    ]);
    return texts.map(([name = '', value = '']) => `${name}\0${value.replaceAll('\0', '')}\0`).join('');
}

function engineRequest(request: Omit<Request, 'text'>, base: string, options: CompileOptions): string {
    const { main, outputs, score, midi, expansion } = request;
    const flags = [...(options.quiet ? ['-s'] : []), ...(options.trace ? ['-t'] : [])];
    if (outputs.includes('expansion')) flags.push('-x', operand(expansion));
    const midiArguments = outputs.includes('midi') ? ['-s', '-m', operand(main), operand(midi)] : [];
    const list = (name: string, values: readonly string[]): [string, Value][] =>
        values.map((value) => [name, value]);
    return encoded([
        ...list('argument', [...flags, operand(main), operand(score)]),
        ...list('midiArgument', midiArguments),
        ...list('output', outputs),
        ...list('ignore', options.ignore ?? []),
        ['seed', options.seed],
        ['relative', options.relative],
        ['events', options.events],
        ['rests', options.rests],
        ['pitch', options.roles?.pitch],
        ['level', options.roles?.level],
        ['title', base.slice(base.lastIndexOf('/') + 1)],
        ['pictureTitle', options.picture?.title ?? base],
        ['width', options.picture?.width],
        ['theme', options.picture?.theme],
        ['from', options.picture?.from],
        ['to', options.picture?.to],
    ]);
}
