// Serves the built page on this machine, and nowhere else:
//
//     node tools/serve.mjs [--port 8080] [--base /some/path/] [--watch piece.vorn]
//
// With --watch the page opens with that file, the includes beside it and its orchestra, and follows their
// changes, of which it is told by server-sent events. Its address then says so: the page itself may come from
// what the browser holds.
import { createReadStream, existsSync, readFileSync, statSync, watch, readdirSync } from 'node:fs';
import { createServer } from 'node:http';
import { basename, dirname, extname, join, normalize, resolve } from 'node:path';
import { fileURLToPath } from 'node:url';
import { parseArgs } from 'node:util';

const TYPES = {
    '.html': 'text/html; charset=utf-8',
    '.js': 'text/javascript',
    '.css': 'text/css',
    '.svg': 'image/svg+xml',
    '.json': 'application/json',
    '.webmanifest': 'application/manifest+json',
    '.wasm': 'application/wasm',
    '.woff2': 'font/woff2',
    '.vorn': 'text/plain; charset=utf-8',
    '.orc': 'text/plain; charset=utf-8',
    '.inc': 'text/plain; charset=utf-8',
    '.txt': 'text/plain; charset=utf-8',
};
const WATCHED = '?watch';
const PAUSE = 30; // milliseconds that a burst of changes may take

const { values: options } = parseArgs({
    options: {
        port: { type: 'string', default: '8080' },
        base: { type: 'string', default: '/' },
        watch: { type: 'string' },
        folder: { type: 'string' },
    },
});
const folder = resolve(options.folder ?? join(dirname(fileURLToPath(import.meta.url)), '../dist'));

const PART = /\.(vorn|orc|inc)$/i;

// The watched score, first, and what lies beside it: includes, and the orchestra of the same name.
function watchedPiece(file) {
    const place = dirname(resolve(file));
    const stem = basename(file, extname(file));
    const isOwn = (name) => basename(name, extname(name)) === stem;
    const isPart = (name) => /\.inc$/i.test(name) || (/\.orc$/i.test(name) && isOwn(name));
    const others = readdirSync(place).filter((name) => PART.test(name) && isPart(name));
    const files = [basename(file), ...others].map((name) => ({
        name,
        bytes: readFileSync(join(place, name)).toString('base64'), // whatever letters they are
    }));
    return { title: stem, files };
}

const listeners = new Set();

function tell(listener) {
    try {
        listener.write(`data: ${JSON.stringify(watchedPiece(options.watch))}\n\n`);
    } catch {
        // The file is being replaced; the next change tells of it.
    }
}

function startWatching() {
    let timer;
    watch(dirname(resolve(options.watch)), (_kind, name) => {
        if (name && !PART.test(name)) return;
        clearTimeout(timer);
        timer = setTimeout(() => listeners.forEach(tell), PAUSE);
    });
}

function listen(answer) {
    answer.writeHead(200, { 'content-type': 'text/event-stream', 'cache-control': 'no-store' });
    listeners.add(answer);
    answer.on('close', () => listeners.delete(answer));
    tell(answer);
}

function send(answer, path) {
    answer.writeHead(200, { 'content-type': TYPES[extname(path)] ?? 'application/octet-stream' });
    return createReadStream(path).pipe(answer);
}

// The file below the folder that an address names; nothing for any other.
function fileOf(address) {
    const { pathname } = new URL(address, 'http://localhost');
    if (!pathname.startsWith(options.base)) return undefined;
    const path = normalize(join(folder, decodeURIComponent(pathname.slice(options.base.length))));
    if (path !== folder && !path.startsWith(folder + '/')) return undefined;
    const file = existsSync(path) && statSync(path).isDirectory() ? join(path, 'index.html') : path;
    return existsSync(file) ? file : undefined;
}

// The service worker, too, asks for the page: what it is to hold is no way to another address.
const isOpened = ({ headers }) => options.watch && headers['sec-fetch-mode'] === 'navigate';

function respond(request, answer) {
    try {
        if (options.watch && request.url === `${options.base}watched`) return listen(answer);
        if (isOpened(request) && request.url === options.base)
            return answer.writeHead(302, { location: options.base + WATCHED }).end();
        const file = fileOf(request.url ?? '/');
        if (file) return send(answer, file);
    } catch {
        // An address that cannot be read is one that is not there.
    }
    answer.writeHead(404).end('Not found\n');
    return undefined;
}

if (!existsSync(join(folder, 'index.html'))) {
    console.error('The page has not been built: run npm run build in web/ first.');
    process.exit(1);
}
if (options.watch && !existsSync(options.watch)) {
    console.error(`${options.watch} cannot be read.`);
    process.exit(1);
}
if (options.watch) startWatching();
const server = createServer(respond);
server.on('error', (error) => {
    console.error(`The page cannot be served at port ${options.port}: ${error.message}`);
    process.exit(1);
});
server.listen(Number(options.port), '127.0.0.1', () => {
    console.log(`http://localhost:${server.address().port}${options.base}${options.watch ? WATCHED : ''}`);
});
