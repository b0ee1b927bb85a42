// What the page may load and run: its own files, and WebAssembly from them. Nothing that a score holds can
// become a script, and no request goes to another host. The built page carries it; while it is developed
// the server needs more.
import type { Plugin } from 'vite';

const POLICY = [
    "default-src 'none'",
    "script-src 'self' 'wasm-unsafe-eval'",
    "style-src 'self' 'nonce-editor'", // the editor brings rules of its own
    "style-src-attr 'unsafe-inline'", // and places its lines and its cursor so
    "img-src 'self' data: blob:",
    "font-src 'self'",
    "connect-src 'self'",
    "worker-src 'self'",
    "manifest-src 'self'",
    "base-uri 'none'",
    "form-action 'none'",
].join('; ');

export const contentSecurity = (): Plugin => ({
    name: 'content-security',
    apply: 'build',
    transformIndexHtml: () => [
        {
            tag: 'meta',
            attrs: { 'http-equiv': 'Content-Security-Policy', content: POLICY },
            injectTo: 'head-prepend',
        },
    ],
});
