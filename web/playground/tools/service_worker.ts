// The service worker of the built folder: it holds every file there, so that page, documents and licences open
// without a network. A new build, or another way to hold one, has another name for its store.
import { createHash } from 'node:crypto';
import { readdirSync, readFileSync, statSync, writeFileSync } from 'node:fs';
import { join, resolve } from 'node:path';
import { fileURLToPath } from 'node:url';
import type { Plugin } from 'vite';

const TEMPLATE = fileURLToPath(new URL('service_worker_template.js', import.meta.url));
const OWN_NAME = 'service_worker.js';

export interface BuiltFile {
    readonly name: string; // its path below the folder
    readonly digest: string;
}

export interface Held {
    readonly first: readonly string[]; // what the page begins with
    readonly later: readonly string[]; // when it has begun
    readonly twins: Readonly<Record<string, string>>; // who has the bytes of another one, which is held for both
}

// What is large, or asked for by few: Csound, the documents, the licences, the script of <vorn-score>.
const isLater = (name: string): boolean =>
    /csound.*\.z$/.test(name) || !/^(assets\/|icon\.svg$|manifest\.webmanifest$)/.test(name);

const isHeld = (name: string): boolean => name !== OWN_NAME && !name.endsWith('.map');

// The page is held by the address of its folder, too, and that is the name that it goes by.
const addressOf = (name: string): string => (name === 'index.html' ? './' : `./${name}`);

export function heldFiles(files: readonly BuiltFile[]): Held {
    const byDigest = new Map<string, string>();
    const twins: Record<string, string> = { './index.html': './' };
    const inOrder = files
        .filter(({ name }) => isHeld(name))
        .sort((a, b) => Number(isLater(a.name)) - Number(isLater(b.name)) || (a.name < b.name ? -1 : 1));
    for (const { name, digest } of inOrder) {
        const same = byDigest.get(digest);
        if (same !== undefined) twins[addressOf(name)] = addressOf(same);
        else byDigest.set(digest, name);
    }
    const names = [...byDigest.values()].filter((name) => name !== 'index.html');
    return {
        first: ['./', ...names.filter((name) => !isLater(name)).map(addressOf)],
        later: names.filter(isLater).map(addressOf),
        twins,
    };
}

function filesIn(folder: string, below = ''): BuiltFile[] {
    return readdirSync(join(folder, below)).flatMap((name) => {
        const path = below + name;
        if (statSync(join(folder, path)).isDirectory()) return filesIn(folder, `${path}/`);
        const digest = createHash('sha256')
            .update(readFileSync(join(folder, path)))
            .digest('hex');
        return [{ name: path, digest }];
    });
}

function workerFor(files: readonly BuiltFile[]): string {
    const { first, later, twins } = heldFiles(files);
    const template = readFileSync(TEMPLATE, 'utf8');
    const hash = createHash('sha256').update(template);
    for (const { name, digest } of files.filter((file) => isHeld(file.name)))
        hash.update(`${name} ${digest}\n`);
    return template
        .replace("'VERSION'", JSON.stringify(hash.digest('hex').slice(0, 16)))
        .replace('[/* FILES */]', JSON.stringify(first))
        .replace('[/* LATER */]', JSON.stringify(later))
        .replace('{/* TWINS */}', JSON.stringify(twins));
}

// Belongs to the build that is the last one to put files into the folder.
export function serviceWorker(): Plugin {
    let folder = '';
    return {
        name: 'service-worker',
        apply: 'build',
        configResolved({ root, build }) {
            folder = resolve(root, build.outDir);
        },
        closeBundle() {
            writeFileSync(join(folder, OWN_NAME), workerFor(filesIn(folder)));
        },
    };
}
