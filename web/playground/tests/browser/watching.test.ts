import { mkdtempSync, rmSync, writeFileSync } from 'node:fs';
import { spawn } from 'node:child_process';
import { once } from 'node:events';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { expect, facts, open, ready, SCORE, test, textOf } from './page';

test('a file on disk is followed', async ({ page }) => {
    const folder = mkdtempSync(join(tmpdir(), 'vorn-watch-'));
    const file = join(folder, 'disk.vorn');
    writeFileSync(file, `; Gr\u00f6\u00dfe\r\n${SCORE}`, 'latin1');
    writeFileSync(join(folder, 'disk.ORC'), 'instr 1\nendin\n');
    const server = spawn(process.execPath, ['tools/serve.mjs', '--port', '0', '--watch', file]);
    try {
        const [line] = (await once(server.stdout, 'data')) as [Buffer];
        await open(page, line.toString().trim());
        await expect.poll(() => textOf(page, 'disk.vorn')).toBe(`; Größe\n${SCORE}`);
        await expect(page.locator('.notice')).toContainText('disk.vorn is not UTF-8');
        await expect(page.getByRole('tab', { name: 'disk.ORC' })).toBeVisible();
        writeFileSync(file, SCORE.replace('0, 4', '0, 8'));
        await expect.poll(() => textOf(page, 'disk.vorn')).toContain('0, 8');
        expect(await facts(page)).toMatchObject({ status: 0, eventCount: 16 });

        expect(await page.evaluate(() => window.vornPlayground?.offline())).toBe(true);
        await page.reload();
        await ready(page);
        await expect.poll(() => textOf(page, 'disk.vorn')).toContain('0, 8');
        await open(page, new URL('.', page.url()).href);
    } finally {
        server.kill();
        rmSync(folder, { recursive: true });
    }
});
