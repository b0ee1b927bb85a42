// The script of <vorn-score>: one file, into the folder of the page, beside which Csound is put.
import { fileURLToPath } from 'node:url';
import { defineConfig } from 'vite';

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
            name: 'csound-beside',
            async generateBundle() {
                const { readFile } = await import('node:fs/promises');
                const source = await readFile(here('generated/csound.wasm.z'));
                this.emitFile({ type: 'asset', fileName: 'csound.wasm.z', source });
            },
        },
    ],
});
