// Writes what the page is made of and no source holds into generated/:
//
//     csound.wasm.z    Csound as @csound/browser ships it, deflated; a browser inflates it while loading
//     manual.json      the documents as pages
//     licences.json    every package whose code is part of the page, for the About page
//
// @csound/browser holds its program as a text inside a module that wants to be the whole sound of a
// page. Taken out of there it can be run by a Worker of our own, which renders ahead of what is heard.
import { mkdirSync, readFileSync, writeFileSync, existsSync } from 'node:fs';
import { createRequire } from 'node:module';
import { dirname, join } from 'node:path';
import { fileURLToPath } from 'node:url';
import { manualPages } from './manual.mjs';

const here = dirname(dirname(fileURLToPath(import.meta.url)));
const target = join(here, 'generated');
const require = createRequire(import.meta.url);

function packageFolder(name, from = here) {
    for (let folder = from; folder !== dirname(folder); folder = dirname(folder)) {
        const found = join(folder, 'node_modules', name);
        if (existsSync(join(found, 'package.json'))) return found;
    }
    throw new Error(`The package ${name} is not installed; run npm ci in web/.`);
}

function csoundProgram() {
    const text = readFileSync(join(packageFolder('@csound/browser'), 'dist', 'csound.js'), 'utf8');
    const found = /__csound_wasm_inline\("([A-Za-z0-9+/=]+)"/.exec(text);
    if (!found) throw new Error('@csound/browser no longer holds its program where it is looked for.');
    return Buffer.from(found[1], 'base64');
}

function licenceText(folder) {
    const names = ['LICENSE', 'LICENSE.md', 'LICENSE.txt', 'LICENCE', 'LICENSE-MIT', 'license'];
    const name = names.find((one) => existsSync(join(folder, one)));
    return name ? readFileSync(join(folder, name), 'utf8').trim() : '';
}

// The packages that `names` bring with them, each once.
function withDependencies(names, from, found = new Map()) {
    for (const name of names) {
        if (found.has(name)) continue;
        const folder = packageFolder(name, from);
        const about = require(join(folder, 'package.json'));
        found.set(name, { name, version: about.version, licence: about.license, text: licenceText(folder) });
        withDependencies(Object.keys(about.dependencies ?? {}), folder, found);
    }
    return found;
}

const own = require(join(here, 'package.json'));
// What @csound/browser depends on is for its own loader, which is not part of the page.
const leaves = ['@csound/browser'];
const shipped = Object.keys(own.dependencies).filter((name) => !name.startsWith('vorn-'));
const packages = withDependencies(
    shipped.filter((name) => !leaves.includes(name)),
    here,
);
for (const name of leaves) {
    const about = require(join(packageFolder(name), 'package.json'));
    packages.set(name, { name, version: about.version, licence: about.license, text: '' });
}

mkdirSync(target, { recursive: true });
writeFileSync(join(target, 'csound.wasm.z'), csoundProgram());
writeFileSync(join(target, 'manual.json'), JSON.stringify(manualPages(join(here, '../../docs'))));
const sorted = [...packages.values()].sort((a, b) => a.name.localeCompare(b.name));
writeFileSync(join(target, 'licences.json'), JSON.stringify(sorted));
