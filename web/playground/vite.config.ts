// The page as one static folder: every address is relative, so that it may stand below any path.
import { fileURLToPath } from 'node:url';
import { defineConfig } from 'vitest/config';
import { contentSecurity } from './tools/content_security';

export default defineConfig({
    base: './',
    assetsInclude: ['**/*.wasm.z'],
    server: { fs: { allow: [fileURLToPath(new URL('../..', import.meta.url))] } },
    worker: { format: 'es' },
    build: {
        target: 'es2022',
        assetsInlineLimit: 0,
        chunkSizeWarningLimit: 1200,
        reportCompressedSize: false,
    },
    plugins: [contentSecurity()],
    test: {
        include: ['tests/unit/**/*.test.ts'],
        setupFiles: ['tests/unit/raw_streams.ts', 'tests/unit/file_class.ts'],
        testTimeout: 30_000,
    },
});
