import { spawn } from 'node:child_process';
import { once } from 'node:events';
import { createServer } from 'node:http';
import type { AddressInfo } from 'node:net';
import { cpSync, mkdtempSync, readdirSync, readFileSync, renameSync, rmSync, writeFileSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { expect, facts, heard, load, open, PATIENCE, ready, SCORE, SINE, test } from './page';
import type { BrowserContext, Page } from '@playwright/test';

const isHeld = (page: Page): Promise<boolean> =>
    page.evaluate(async () => (await window.vornPlayground?.offline()) ?? false);

const begunWith = (page: Page): Promise<string | null> =>
    page.evaluate(() => document.querySelector('script[type=module]')?.getAttribute('src') ?? null);

test('the page opens without a network, and sounds, though no sound was asked for before', async ({
    playground: page,
    context,
}) => {
    expect(await isHeld(page)).toBe(true);
    await context.setOffline(true);
    await page.reload();
    await ready(page);
    await load(page, SINE);
    expect(await facts(page)).toMatchObject({ status: 0, eventCount: 1 });
    await page.getByRole('button', { name: 'Play', exact: true }).click();
    await expect.poll(async () => (await heard(page)).peak, { timeout: 15000 }).toBeGreaterThan(0.05);
    await context.setOffline(false);
});

test('documents, licences and the page by its name open without a network', async ({ page, context }) => {
    await open(page);
    expect(await isHeld(page)).toBe(true);
    const folder = page.url();
    await context.setOffline(true);
    for (const [place, words] of [
        ['documents/manual.html', 'Vorn'],
        ['documents/tutorial/03-a-rhythm.html', 'Playground'],
        ['licences/LGPL-2.1.txt', 'GNU LESSER GENERAL PUBLIC LICENSE'],
    ] as const) {
        await page.goto(new URL(place, folder).href);
        await expect(page.locator('body')).toContainText(words);
    }
    await page.goto(new URL('documents/tutorial/03-a-rhythm.html#x', folder).href);
    const score = page.locator('vorn-score').first();
    await expect(score).toContainText(/[0-9]+ events, 0:/);
    await score.getByRole('button', { name: 'Play' }).click();
    await expect(score.getByRole('button', { name: 'Stop' })).toBeVisible();
    await page.goto(new URL('index.html', folder).href);
    await ready(page);
    expect(await facts(page)).toMatchObject({ status: 0 });
    await context.setOffline(false);
});

test('who saves data is sent Csound when sound is asked for, and no sooner', async ({ page }) => {
    await page.addInitScript(() =>
        Object.defineProperty(navigator, 'connection', { value: { saveData: true } }),
    );
    const fetched: string[] = [];
    page.context().on('request', (request) => fetched.push(request.url()));
    await open(page);
    expect(await isHeld(page)).toBe(false);
    expect(fetched.filter((address) => /csound.*\.z$/.test(address))).toEqual([]);
});

// The same page under other names for all of its scripts and styles, as a new build has them.
function buildAnew(folder: string): void {
    const assets = join(folder, 'assets');
    const names = readdirSync(assets).filter((name) => /\.(js|css)$/.test(name));
    const renamed = (text: string): string =>
        names.reduce((before, name) => before.replaceAll(name, name.replace('-', '-anew-')), text);
    for (const name of names) {
        writeFileSync(join(assets, name), renamed(readFileSync(join(assets, name), 'utf8')));
        renameSync(join(assets, name), join(assets, renamed(name)));
    }
    for (const name of ['index.html', 'service_worker.js']) {
        const text = renamed(readFileSync(join(folder, name), 'utf8'));
        writeFileSync(join(folder, name), text.replace(/(OWN \+ ")/, '$1anew'));
    }
}

async function deployed(use: (folder: string, address: string) => Promise<void>): Promise<void> {
    const folder = mkdtempSync(join(tmpdir(), 'vorn-deployed-'));
    cpSync('dist', folder, { recursive: true });
    const server = spawn(process.execPath, ['tools/serve.mjs', '--port', '0', '--folder', folder]);
    try {
        const [line] = (await once(server.stdout, 'data')) as [Buffer];
        await use(folder, line.toString().trim());
    } finally {
        server.kill();
        rmSync(folder, { recursive: true });
    }
}

const storeCount = (page: Page): Promise<number> => page.evaluate(async () => (await caches.keys()).length);

async function twoPages(context: BrowserContext, address: string): Promise<[Page, Page]> {
    const [one, other] = [await context.newPage(), await context.newPage()];
    await open(one, address);
    await isHeld(one);
    await open(other, address);
    await isHeld(other);
    return [one, other];
}

test('a new version is used when asked for, and pages of the old one keep their parts', async ({
    context,
}) => {
    await deployed(async (folder, address) => {
        const [one, other] = await twoPages(context, address);
        const old = await begunWith(one);
        await load(one, SCORE + '; mine\n');
        buildAnew(folder);
        await one.evaluate(async () => (await navigator.serviceWorker.ready).update());
        await one.getByRole('button', { name: 'Use it' }).click();
        await expect.poll(() => begunWith(one).catch(() => old)).not.toBe(old);
        await ready(one);
        await expect(one.locator('.cm-content')).toContainText('; mine');

        // Of the old one only this page is left, and neither server nor new store has its parts.
        await other.getByRole('button', { name: 'Examples' }).click();
        await expect(other.locator('.card').first()).toBeVisible();
        expect(await isHeld(one)).toBe(true);
        expect(await storeCount(one)).toBe(2);
        await other.close();
        await one.reload();
        await ready(one);
        await isHeld(one);
        await expect.poll(() => storeCount(one)).toBe(1);
    });
});

test('a new version that waits keeps what it holds', async ({ page, context }) => {
    await deployed(async (folder, address) => {
        await open(page, address);
        await isHeld(page);
        const old = await begunWith(page);
        buildAnew(folder);
        await page.evaluate(async () => (await navigator.serviceWorker.ready).update());
        await expect(page.getByRole('button', { name: 'Use it' })).toBeVisible();
        await page.reload();
        await ready(page);
        expect(await isHeld(page)).toBe(true); // the older version has tidied up
        await page.getByRole('button', { name: 'Use it' }).click();
        await expect.poll(() => begunWith(page).catch(() => old)).not.toBe(old);
        await ready(page);
        await context.setOffline(true);
        await page.reload();
        await ready(page);
        await context.setOffline(false);
    });
});

// The page of `origin`, but its folder leads to the page by its name, and so does `again`. The server has no
// address of version 6, where Node 18 looks for "localhost" first.
async function led(
    origin: string,
    use: (address: string, renew: () => void) => Promise<void>,
): Promise<void> {
    let build = '';
    const server = createServer((request, answer) => {
        const name = (request.url ?? '/').slice(1);
        if (name === '' || name === 'again') return answer.writeHead(302, { location: '/index.html' }).end();
        return void fetch(new URL(name, origin.replace('localhost', '127.0.0.1'))).then(async (found) => {
            const bytes = Buffer.from(await found.arrayBuffer());
            const isWorker = name === 'service_worker.js';
            answer.writeHead(found.status, { 'content-type': found.headers.get('content-type') ?? '' });
            answer.end(isWorker ? bytes.toString().replace('OWN + "', `OWN + "${build}`) : bytes);
        });
    });
    await once(server.listen(0, '127.0.0.1'), 'listening');
    try {
        const { port } = server.address() as AddressInfo;
        await use(`http://localhost:${port}/`, () => (build = 'anew'));
    } finally {
        server.closeAllConnections();
        server.close();
    }
}

test('the page opens again where its folder leads to another address', async ({ page, baseURL }) => {
    await led(baseURL ?? '', async (address, renew) => {
        await open(page, address);
        expect(await isHeld(page)).toBe(true);
        await open(page, address);

        // What cannot be opened, as browsers have it from before, goes with the next build.
        const before = await page.evaluate(async () => {
            const [name = ''] = await caches.keys();
            await (await caches.open(name)).put('./', await fetch('./again'));
            return name;
        });
        expect(await page.goto(address).catch(() => null)).toBeNull();
        renew();
        await expect.poll(() => page.goto(address).catch(() => null), { timeout: PATIENCE }).not.toBeNull();
        await ready(page);
        await isHeld(page);
        await expect.poll(() => page.evaluate(() => caches.keys())).not.toContain(before);
        expect(await storeCount(page)).toBe(1);
    });
});

test('the page can be installed', async ({ playground: page, context, baseURL }) => {
    await isHeld(page);
    const session = await context.newCDPSession(page);
    const { errors, data } = await session.send('Page.getAppManifest');
    expect(errors).toEqual([]);
    const { installabilityErrors } = await session.send('Page.getInstallabilityErrors');
    // A window without a profile, as tests have it, cannot install anything; nothing else is in the way.
    expect(installabilityErrors.map(({ errorId }) => errorId)).toEqual(['in-incognito']);
    const manifest = JSON.parse(data ?? '{}') as { icons: { src: string; sizes: string; purpose: string }[] };
    for (const { src, sizes } of manifest.icons.filter((icon) => icon.sizes !== 'any')) {
        const bytes = await (await page.request.get(new URL(src, baseURL).href)).body();
        expect(`${bytes.readUInt32BE(16)}x${bytes.readUInt32BE(20)}`).toBe(sizes);
    }
    expect(manifest.icons.map(({ sizes, purpose }) => `${sizes} ${purpose}`)).toEqual(
        expect.arrayContaining(['192x192 any', '512x512 any', '512x512 maskable']),
    );
});
