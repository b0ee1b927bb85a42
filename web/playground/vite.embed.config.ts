// The script of <vorn-score>: one file, into the folder of the page, beside which Csound is put; and the
// documents, which use it. Then the folder is whole, and the service worker is told what is in it.
import { fileURLToPath } from 'node:url';
import { defineConfig } from 'vite';
import { documentFiles } from './tools/documents.mjs';
import { serviceWorker } from './tools/service_worker';

const here = (path: string): string => fileURLToPath(new URL(path, import.meta.url));

export default defineConfig({
    publicDir: false,
    worker: { format: 'iife' },
    build: {
        target: 'es2022',
        outDir: 'dist',
        emptyOutDir: false,
        reportCompressedSize: false,
        lib: { entry: here('src/embed/vorn_score.ts'), formats: ['es'], fileName: () => 'vorn-score.js' },
    },
    plugins: [
        {
            name: 'documents',
            generateBundle() {
                for (const file of documentFiles(here('../../docs')))
                    this.emitFile({ type: 'asset', ...file });
            },
        },
        {
            name: 'csound-beside',
            async generateBundle() {
                const { readFile } = await import('node:fs/promises');
                const source = await readFile(here('generated/csound.wasm.z'));
                this.emitFile({ type: 'asset', fileName: 'csound.wasm.z', source });
            },
        },
        serviceWorker(),
    ],
});
