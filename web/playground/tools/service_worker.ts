// The service worker of the built page: it holds every file of the build, so that the page opens without a
// network. A new build has another name for its store.
import { createHash } from 'node:crypto';
import { readFileSync } from 'node:fs';
import { fileURLToPath } from 'node:url';
import type { Plugin } from 'vite';

const TEMPLATE = fileURLToPath(new URL('service_worker_template.js', import.meta.url));

// Csound is large: it is held when the page has begun.
const LATER = /csound.*\.z$/;

export const serviceWorker = (): Plugin => ({
    name: 'service-worker',
    apply: 'build',
    generateBundle(_options, bundle) {
        const names = Object.keys(bundle).filter((name) => !name.endsWith('.map'));
        const files = names.filter((name) => !LATER.test(name));
        const later = names.filter((name) => LATER.test(name));
        const parts = Object.values(bundle).map((part) => ('code' in part ? part.code : part.source));
        const hash = createHash('sha256');
        for (const part of parts) hash.update(part);
        const list = ['./', './icon.svg', './manifest.webmanifest', ...files.map((name) => `./${name}`)];
        const text = readFileSync(TEMPLATE, 'utf8')
            .replace("'VERSION'", JSON.stringify(hash.digest('hex').slice(0, 16)))
            .replace('[/* FILES */]', JSON.stringify(list.filter((name) => name !== './index.html')))
            .replace('[/* LATER */]', JSON.stringify(later.map((name) => `./${name}`)));
        this.emitFile({ type: 'asset', fileName: 'service_worker.js', source: text });
    },
});
