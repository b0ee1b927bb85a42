import { spawn, type ChildProcess } from 'node:child_process';
import { mkdtempSync, rmSync, writeFileSync } from 'node:fs';
import { createServer } from 'node:net';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { expect, facts, open, SCORE, test, textOf } from './page';

const SCRIPT = new URL('../../../../scripts/playground', import.meta.url).pathname;
const BUILD = 10 * 60_000; // milliseconds, on a busy machine, though nothing has changed

const freePort = (): Promise<number> =>
    new Promise((resolve) => {
        const server = createServer();
        server.listen(0, '127.0.0.1', () => {
            const address = server.address();
            server.close(() => resolve(typeof address === 'object' && address ? address.port : 0));
        });
    });

// The first line of what it prints; when it ends without one, what it complains of.
const firstLine = (process: ChildProcess): Promise<string> =>
    new Promise((resolve, reject) => {
        let complaint = '';
        process.stdout?.once('data', (bytes: Buffer) => resolve(bytes.toString().trim()));
        process.stderr?.on('data', (bytes: Buffer) => (complaint += bytes.toString()));
        process.once('exit', () => reject(new Error(complaint)));
    });

async function served(words: readonly string[], use: (address: string) => Promise<void>): Promise<void> {
    const [program = '', ...others] = words;
    const server = spawn(program, others, { stdio: ['ignore', 'pipe', 'pipe'] });
    try {
        await use(await firstLine(server));
    } finally {
        server.kill();
    }
}

// What the browser holds of the page from before, without a file, must not hide it.
test('scripts/playground builds the page and serves it with a file, where it was served without one', async ({
    page,
}) => {
    test.setTimeout(BUILD);
    const folder = mkdtempSync(join(tmpdir(), 'vorn-script-'));
    const file = join(folder, 'disk.vorn');
    writeFileSync(file, SCORE);
    const port = String(await freePort());
    try {
        await served([process.execPath, 'tools/serve.mjs', '--port', port], async (address) => {
            expect(address).toBe(`http://localhost:${port}/`);
            await open(page, address);
            await page.evaluate(() => window.vornPlayground?.offline());
            expect((await facts(page)).eventCount).toBeGreaterThan(100);
        });
        await served([SCRIPT, '--port', port, '--watch', file], async (address) => {
            await open(page, address);
            await expect.poll(() => textOf(page, 'disk.vorn')).toBe(SCORE);
            writeFileSync(file, SCORE.replace('0, 4', '0, 8'));
            await expect.poll(() => textOf(page, 'disk.vorn')).toContain('0, 8');
            expect(await facts(page)).toMatchObject({ status: 0, eventCount: 16 });
        });
    } finally {
        rmSync(folder, { recursive: true });
    }
});
