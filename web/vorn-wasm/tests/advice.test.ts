import { execFile } from 'node:child_process';
import { mkdtempSync, mkdirSync, rmSync, writeFileSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { dirname, join } from 'node:path';
import { promisify } from 'node:util';
import { expect, it } from 'vitest';
import { loadVorn } from '../src/node.js';
import type { Diagnostic, Excerpt, Place } from '../src/types.js';
import { TOP, loadCases, type ScoreCase } from './outcomes.js';

// What is said of a score in a page is what `vornkit check` says of it, place for place.

const KIT = process.env['VORNKIT_PROGRAM'] ?? join(TOP, 'build/dev/vornkit');
const AT_ONCE = 4;

interface KitPlace {
    readonly line: number;
    readonly column: number;
    readonly end_line: number;
    readonly end_column: number;
}

const places = (place: Place | null): (number | undefined)[] | null =>
    place && [place.line, place.column, place.endLine, place.endColumn];

const excerpts = (one: Excerpt | null): unknown[] | null => one && [one.text, one.column, one.endColumn];

// As `vornkit check --format json` has it, places without their files and bytes.
const asKit = (one: Diagnostic): unknown => ({
    level: one.severity,
    code: one.code,
    text: one.text,
    place: places(one.place),
    source: excerpts(one.source),
    expansion: one.expansion && {
        ...one.expansion,
        line: excerpts(one.expansion.line),
        calls: one.expansion.calls.map((call) => ({ ...call, place: places(call.place) })),
    },
    notes: one.notes.map(({ text, place }) => ({ text, place: places(place) })),
    advice: one.advice,
    fix: one.fix && [one.fix.title, ...one.fix.edits.map(({ replacement }) => replacement)],
    repeats: one.repeats,
});

// The same of the kit's own; edits are what a fix is made from.
function readKit(key: string, value: unknown): unknown {
    const found = value as Record<string, unknown> | null;
    if (found === null || typeof found !== 'object' || Array.isArray(found)) return value;
    if (key === 'fix') return [found['title'], found['replacement']];
    if (key === 'source' || key === 'line') return [found['text'], found['column'], found['end_column']];
    if (key === 'place') {
        const { line, column, end_line, end_column } = found as unknown as KitPlace;
        return [line, column, end_line, end_column];
    }
    delete found['edits'];
    return found;
}

async function kitDiagnostics({ inputs }: ScoreCase): Promise<unknown> {
    const folder = mkdtempSync(join(tmpdir(), 'vorn-advice-'));
    for (const [name, bytes] of Object.entries(inputs)) {
        mkdirSync(dirname(join(folder, name)), { recursive: true });
        writeFileSync(join(folder, name), bytes);
    }
    const said = promisify(execFile)(KIT, ['check', '--format', 'json', 'in.vorn'], { cwd: folder });
    const { stdout } = await said.catch((error: unknown) => error as { stdout: string });
    rmSync(folder, { recursive: true });
    const report = JSON.parse(stdout.replaceAll(`${folder}/`, ''), readKit) as {
        scores: { diagnostics: unknown }[];
    };
    return report.scores[0]?.diagnostics;
}

it('is what vornkit says of every case', async () => {
    const vorn = await loadVorn(new URL('../dist/vorn-small.wasm', import.meta.url));
    const cases = loadCases(join(TOP, 'tests/cases'), 2).filter(
        ({ args, inputs }) => args.join(' ') === 'in.vorn out.sco' && inputs['in.vorn'],
    );
    let count = 0;
    for (let first = 0; first < cases.length; first += AT_ONCE) {
        const some = cases.slice(first, first + AT_ONCE);
        const wanted = await Promise.all(some.map(kitDiagnostics));
        some.forEach(({ name, inputs }, at) => {
            const { diagnostics } = vorn.compile(inputs, { main: 'in.vorn', outputs: [], quiet: true });
            expect(diagnostics.map(asKit), name).toEqual(wanted[at]);
            count += diagnostics.length;
        });
    }
    expect(count).toBeGreaterThan(400);
}, 300_000);
