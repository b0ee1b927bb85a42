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
import { loadVorn } from 'vorn-wasm/node';
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

const vorn = await loadVorn();

function isSilent(text, files) {
    const others = Object.fromEntries(files.map((file) => [file.name, file.text]));
    const result = vorn.compile({ ...others, 'manual.vorn': text }, { main: 'manual.vorn', outputs: [] });
    return result.status === 0 && result.eventCount === 0;
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
const CSOUND = '@csound/browser';
const isPackage = (name) => name !== CSOUND && !name.startsWith('vorn-');
const packages = withDependencies(Object.keys(own.dependencies).filter(isPackage), here);
const wholeText = (name) => readFileSync(join(here, 'public/licences', `${name}.txt`), 'utf8').trim();

// Csound's package brings no text of its licence.
const { version, license } = require(join(packageFolder(CSOUND), 'package.json'));
packages.set(CSOUND, { name: CSOUND, version, licence: license, text: wholeText(license) });

// What is linked into the engine.
const LINKED = [
    { name: 'libc++', licence: 'Apache-2.0 WITH LLVM-exception', text: wholeText('libc++') },
    { name: 'wasi-libc', licence: 'CC0-1.0 AND MIT AND BSD-2-Clause', text: wholeText('wasi-libc') },
    { name: 'nlohmann-json', licence: 'MIT', text: wholeText('nlohmann-json') },
    {
        name: 'musl',
        licence: 'MIT',
        text: readFileSync(join(here, '../../third_party/musl/COPYRIGHT'), 'utf8'),
    },
];
for (const one of LINKED) packages.set(one.name, { version: '', ...one });

mkdirSync(target, { recursive: true });
writeFileSync(join(target, 'csound.wasm.z'), csoundProgram());
writeFileSync(join(target, 'manual.json'), JSON.stringify(manualPages(join(here, '../../docs'), isSilent)));
const sorted = [...packages.values()].sort((a, b) => a.name.localeCompare(b.name));
writeFileSync(join(target, 'licences.json'), JSON.stringify(sorted));
