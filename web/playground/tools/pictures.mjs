// Draws the main views of the built page into docs/pictures/: npm run pictures. With a folder as argument
// it draws every view there, at three widths, light and dark, to be looked at.
import { spawn } from 'node:child_process';
import { once } from 'node:events';
import { mkdirSync } from 'node:fs';
import { dirname, join, resolve } from 'node:path';
import { fileURLToPath } from 'node:url';
import { chromium } from '@playwright/test';

const here = dirname(dirname(fileURLToPath(import.meta.url)));
const target = resolve(process.argv[2] ?? join(here, '../../docs/pictures'));
const isWhole = process.argv[2] !== undefined;

const WIDTHS = { wide: [1440, 900], middle: [1024, 768], narrow: [360, 740] };
const press = (name) =>
    `[...document.querySelectorAll('button')].find((one) => one.ariaLabel === '${name}' || one.textContent === '${name}')?.click()`;
const example = (name) => [
    press('Examples'),
    'new Promise((r) => setTimeout(r, 900))',
    `[...document.querySelectorAll('.card')].find((one) => one.textContent.startsWith('${name}')).click()`,
];
const MISTAKES = `window.vornPlayground.load({ 'piece.vorn': 'i1 = 5, 0, 8 {\\np2 .5\\np3 0,9\\np4(hz) no c4 e4 bb4 c5\\np5 ra(T 1 [100 200]\\n}\\n' }, 'A piece with mistakes')`;

const VIEWS = {
    begin: [],
    mistakes: [MISTAKES],
    cloud: [
        ...example('Granular cloud'),
        press('Seeds'),
        press('Keep'),
        press('Roll'),
        'new Promise((r) => setTimeout(r, 400))',
        press('Keep'),
    ],
    picture: [...example('A minor canon'), press('Picture')],
    gallery: [press('Examples'), 'new Promise((r) => setTimeout(r, 2500))'],
    manual: [press('Manual'), 'new Promise((r) => setTimeout(r, 800))'],
    share: [press('Share')],
    download: [press('Download')],
    playing: ['window.vornPlayground.play(4)', 'new Promise((r) => setTimeout(r, 3000))', press('Sound')],
};

// What stands in docs/pictures.
const KEPT = [
    ['begin', 'wide', 'light', 'playground'],
    ['cloud', 'wide', 'dark', 'playground_dark'],
    ['mistakes', 'middle', 'light', 'playground_mistakes'],
    ['picture', 'narrow', 'light', 'playground_narrow'],
];

const wholeList = Object.keys(VIEWS).flatMap((view) =>
    Object.keys(WIDTHS).flatMap((width) =>
        ['light', 'dark'].map((scheme) => [view, width, scheme, `${view}_${width}_${scheme}`]),
    ),
);

async function draw(browser, address, [view, width, scheme, name]) {
    const [w, h] = WIDTHS[width];
    const context = await browser.newContext({ viewport: { width: w, height: h }, colorScheme: scheme });
    const page = await context.newPage();
    await page.goto(address);
    await page.waitForFunction(() => window.vornPlayground);
    await page.evaluate(() => window.vornPlayground.drawn());
    for (const step of VIEWS[view]) {
        await page.evaluate(step);
        await page.evaluate(() => window.vornPlayground.drawn());
    }
    await page.waitForTimeout(300);
    await page.screenshot({ path: join(target, `${name}.png`) });
    await context.close();
}

mkdirSync(target, { recursive: true });
const server = spawn(process.execPath, [join(here, 'tools/serve.mjs'), '--port', '0']);
const [line] = await once(server.stdout, 'data');
const browser = await chromium.launch({
    executablePath: process.env.CHROMIUM ?? '/usr/bin/chromium',
    args: ['--no-sandbox', '--autoplay-policy=no-user-gesture-required'],
});
try {
    const filter = process.argv[3];
    const list = isWhole ? wholeList.filter(([, , , name]) => !filter || name.includes(filter)) : KEPT;
    for (const one of list) await draw(browser, line.toString().trim(), one);
} finally {
    await browser.close();
    server.kill();
}
