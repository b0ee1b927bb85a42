import { readFileSync } from 'node:fs';
import { describe, expect, it } from 'vitest';

const read = (path: string): unknown =>
    JSON.parse(readFileSync(new URL(path, import.meta.url), 'utf8')) as unknown;

interface Locked {
    readonly version: string;
    readonly link?: boolean;
    readonly resolved?: string;
    readonly dependencies?: Record<string, string>;
}

interface Licence {
    readonly name: string;
    readonly version: string;
    readonly licence: string;
    readonly text: string;
}

const { packages } = read('../../../package-lock.json') as { packages: Record<string, Locked> };
const licences = read('../../generated/licences.json') as Licence[];

// Where the lock file has a package that another one asks for.
function placeOf(name: string, from: string): string {
    const parents = from
        .split('/node_modules/')
        .map((_, at, all) => all.slice(0, all.length - at).join('/node_modules/'));
    const places = [...parents.map((parent) => `${parent}/node_modules/${name}`), `node_modules/${name}`];
    const found = places.find((place) => packages[place]);
    if (!found) throw new Error(`${name} is not in the lock file.`);
    return packages[found]?.link ? (packages[found].resolved ?? '') : found;
}

// All that is part of the page: what it depends on, and what that depends on.
function shipped(place: string, found = new Set<string>()): Set<string> {
    for (const name of Object.keys(packages[place]?.dependencies ?? {})) {
        const next = placeOf(name, place);
        if (found.has(next)) continue;
        found.add(next);
        // Of @csound/browser only its program is taken.
        if (name !== '@csound/browser') shipped(next, found);
    }
    return found;
}

describe('the licences of the About page', () => {
    it('are those of all packages that are part of the page, with their versions', () => {
        const places = [...shipped('playground')].filter((place) => place.includes('node_modules/'));
        const wanted = places.map(
            (place) => `${place.split('node_modules/').at(-1) ?? ''} ${packages[place]?.version ?? ''}`,
        );
        const listed = licences.filter(({ version }) => version !== '');
        expect(wanted.length).toBeGreaterThan(15);
        expect(listed.map(({ name, version }) => `${name} ${version}`).sort()).toEqual(wanted.sort());
    });
    it('are there in full', () => {
        for (const { name, licence, text } of licences) {
            expect(licence, name).not.toBe('');
            expect(text.length, name).toBeGreaterThan(500);
        }
        const csound = licences.find(({ name }) => name === '@csound/browser');
        expect(csound?.text).toContain('GNU LESSER GENERAL PUBLIC LICENSE');
        expect(csound?.text).toContain('END OF TERMS AND CONDITIONS');
    });
    it('name what is linked into the engine', () => {
        const linked = licences.filter(({ version }) => version === '').map(({ name }) => name);
        expect(linked).toEqual(['libc++', 'musl', 'nlohmann-json', 'wasi-libc']);
    });
});
