// Measures the built page in Chromium: npm run measure. Each figure with its limit; the status is 1 when one
// is beyond it.
import { spawn } from 'node:child_process';
import { once } from 'node:events';
import { readdirSync, readFileSync } from 'node:fs';
import { dirname, join } from 'node:path';
import { fileURLToPath } from 'node:url';
import { gzipSync } from 'node:zlib';
import { chromium } from '@playwright/test';
import { TEXTS } from './hostile.mjs';

const here = dirname(dirname(fileURLToPath(import.meta.url)));
const dist = join(here, 'dist');
let isBeyond = false;

function tell(what, value, limit, unit) {
    const isWell = value <= limit;
    isBeyond ||= !isWell;
    console.log(
        `${what.padEnd(62)} ${value.toFixed(1).padStart(9)} ${unit.padEnd(2)}  at most ${limit} ${isWell ? '' : '  BEYOND'}`,
    );
}

const median = (values) => [...values].sort((a, b) => a - b)[values.length >> 1];

function compressedKilobytes(names) {
    return names.reduce((sum, name) => sum + gzipSync(readFileSync(join(dist, name))).length, 0) / 1000;
}

// What is fetched before sound, the manual or the examples are asked for.
function measureSizes(fetched) {
    tell(
        'engine, compressed (gzip)',
        compressedKilobytes([...new Set(fetched)].filter((name) => /vorn.*\.wasm$/.test(name))),
        150,
        'kB',
    );
    const first = [...new Set(fetched)].filter((name) => name !== '');
    tell('page without Csound, compressed (gzip)', compressedKilobytes(['index.html', ...first]), 500, 'kB');
}

const many = `i1 = 7, 0, -100000 {
p2 .01
p3 1
p4(hz) no ra(T 1 [c2 c7])
p5 ra(T 1 [0 1])
p6 ra(T 1 [0 1])
p7 ra(T 1 [0 1])
}
`;

// From a key to the frame in which its picture has been drawn.
const keyToPicture = (page, times) =>
    page.evaluate(async (count) => {
        const editor = document.querySelector('.cm-content');
        const found = [];
        for (let press = 0; press < count; press++) {
            const begin = performance.now();
            document.execCommand('insertText', false, press % 2 === 0 ? ' ' : '\t');
            await window.vornPlayground.drawn();
            found.push(performance.now() - begin);
            await new Promise((resolve) => setTimeout(resolve, 30));
        }
        editor.blur();
        return found;
    }, times);

// From frame to frame while the wheel turns: 16.7 is what 60 a second take, and none is left out.
const moving = (page, wheel) =>
    page.evaluate(async (turn) => {
        const stage = document.querySelector('#stage');
        const { left, top } = stage.getBoundingClientRect();
        const frame = () => new Promise((resolve) => requestAnimationFrame(resolve));
        const found = [];
        let before = await frame();
        for (let count = 0; count < 60; count++) {
            const sign = count < 30 ? 1 : -1;
            const place = { clientX: left + 400, clientY: top + 100, bubbles: true, cancelable: true };
            const { deltaX = 0, deltaY = 0 } = turn;
            stage.dispatchEvent(
                new WheelEvent('wheel', { ...place, deltaX: sign * deltaX, deltaY: sign * deltaY }),
            );
            const now = await frame();
            found.push(now - before);
            before = now;
        }
        return found;
    }, wheel);

async function measureKeys(page, what, limit) {
    await page.locator('.cm-content').click();
    await page.keyboard.press('Control+End');
    await keyToPicture(page, 3);
    await page.locator('.cm-content').click();
    await page.keyboard.press('Control+End');
    tell(`key to picture, ${what}, median`, median(await keyToPicture(page, 15)), limit, 'ms');
}

const loadFiles = (page, files) => page.evaluate((texts) => window.vornPlayground.load(texts), files);

// The texts of an example as the gallery has them: the score first.
function exampleFiles(folder) {
    const names = readdirSync(folder).filter((name) => /\.(vorn|orc|inc)$/.test(name));
    const sorted = names.sort((a, b) => Number(b.endsWith('.vorn')) - Number(a.endsWith('.vorn')));
    return Object.fromEntries(sorted.map((name) => [name, readFileSync(join(folder, name), 'utf8')]));
}

async function measureExamples(page) {
    const place = join(here, '../../examples');
    for (const { name } of readdirSync(place, { withFileTypes: true }).filter((one) => one.isDirectory())) {
        await loadFiles(page, exampleFiles(join(place, name)));
        await measureKeys(page, name, 30);
    }
}

const UNTIL_STOPPED = 2500; // milliseconds, in which the engine is ended and begun anew

// The longest time between two frames while a piece is loaded, computed and drawn, or stopped.
const longestSilence = (page, files) =>
    page.evaluate(
        async ([texts, least]) => {
            const frame = () => new Promise((resolve) => requestAnimationFrame(resolve));
            const begin = await frame();
            let before = begin;
            let longest = 0;
            void window.vornPlayground.load(texts);
            while (before - begin < least) {
                const now = await frame();
                longest = Math.max(longest, now - before);
                before = now;
            }
            return longest;
        },
        [files, UNTIL_STOPPED],
    );

async function measureHostile(page) {
    const five = { '5 MB of blocks': { 'a.vorn': 'i1 = 4 0 4 { p2 1 p3 1 p4 60 }\n'.repeat(5e6 / 31) } };
    const line = { '5 MB in a line': { 'a.vorn': '1 '.repeat(2.5e6) } };
    for (const [name, files] of Object.entries({ ...TEXTS, ...five, ...line })) {
        tell(`no answer while it has ${name}`, await longestSilence(page, files), 2000, 'ms');
        await loadFiles(page, { 'a.vorn': '' });
    }
}

async function begin(browser, address, onRequest = () => undefined) {
    const page = await browser.newPage({ viewport: { width: 1440, height: 900 } });
    page.context().on('request', onRequest); // those of Workers, too
    await page.goto(address);
    await page.waitForFunction(() => window.vornPlayground);
    await page.evaluate(() => window.vornPlayground.drawn());
    const time = await page.evaluate(() => performance.now());
    return { page, time };
}

async function measureMemory(page) {
    const score = 'i1 = 5, 0, -200 {\np2 .1\np3 1\np4 ra(T 1 [0 1])\np5 1\n}\n';
    const session = await page.context().newCDPSession(page);
    const heap = async () => {
        await session.send('HeapProfiler.collectGarbage');
        return (await session.send('Runtime.getHeapUsage')).usedSize / 1e6;
    };
    const compile = (times) =>
        page.evaluate(
            async ([text, count]) => {
                for (let time = 0; time < count; time++)
                    await window.vornPlayground.compile({ 'x.vorn': text });
            },
            [score, times],
        );
    await compile(500);
    const before = await heap();
    await compile(10000);
    tell('page memory after 10,000 compilations, more than before', (await heap()) - before, 2, 'MB');
}

const server = spawn(process.execPath, [join(here, 'tools/serve.mjs'), '--port', '0']);
const [line] = await once(server.stdout, 'data');
const address = line.toString().trim();
const browser = await chromium.launch({
    executablePath: process.env.CHROMIUM ?? '/usr/bin/chromium',
    args: ['--no-sandbox'],
});
try {
    const fetched = [];
    // What the service worker lays in store for later is not part of the beginning.
    const note = (request) =>
        request.serviceWorker() || fetched.push(new URL(request.url()).pathname.slice(1));
    const { page: warm } = await begin(browser, address, note);
    await warm.close();
    measureSizes(fetched.filter((name) => /^assets\//.test(name)));
    const times = [];
    for (let count = 0; count < 5; count++) {
        const { page, time } = await begin(browser, address);
        times.push(time);
        await page.close();
    }
    tell('begun, computed and drawn, median', median(times), 1000, 'ms');
    const { page } = await begin(browser, address);
    await measureExamples(page);
    await loadFiles(page, { 'many.vorn': many });
    const drawing = await page.evaluate(() => window.vornPlayground.measureDrawing(20));
    tell('a picture of 100,000 events, median', median(drawing), 16.7, 'ms');
    tell(
        'a frame while 100,000 events are zoomed, median',
        median(await moving(page, { deltaY: -40 })),
        17.5,
        'ms',
    );
    await moving(page, { deltaY: -20 }); // half of them, to have room to pan
    tell('a frame while they are panned, median', median(await moving(page, { deltaX: 12 })), 17.5, 'ms');
    await loadFiles(page, { 'long.vorn': many.replace('p3 1', 'p3 50') });
    const long = await page.evaluate(() => window.vornPlayground.measureDrawing(20));
    tell('a picture of 100,000 events that reach over each other, median', median(long), 33.3, 'ms');
    await loadFiles(page, { 'many.vorn': many });
    await measureKeys(page, '100,000 events', 150);
    await measureHostile(page);
    await measureMemory(page);
} finally {
    await browser.close();
    server.kill();
}
process.exitCode = isBeyond ? 1 : 0;
