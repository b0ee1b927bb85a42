// The page as tests see it: opened, with a piece in it, and asked for what it shows.
import { expect, test as base, type Page } from '@playwright/test';
import type { Playground } from '../../src/api/script_interface';

declare global {
    interface Window {
        vornPlayground?: Playground;
    }
}

// How long an answer may take on a machine that is busy with other things, in milliseconds.
export const PATIENCE = 15_000;

export const SCORE = `i1 = 5, 0, 4 {
p2 .5
p3 .9
p4(hz) no c4 e4 g4 c5
p5 .2
}
`;

// A sine of 440 hertz, as pure as can be.
export const SINE: Record<string, string> = {
    'sine.vorn': 'i1 = 5, 0, 6 {\np2 6\np3 1\np4(hz) no a4\np5 .3\n}\n',
    'sine.orc': `sr = 44100
ksmps = 32
nchnls = 1
0dbfs = 1
instr 1
asound poscil p5, p4
out asound
endin
`,
};

// The page, where nothing may go wrong unnoticed: no error of a script, no request to another host.
export const test = base.extend<{ playground: Page }>({
    playground: async ({ page, baseURL }, use) => {
        const wrong: string[] = [];
        page.on('pageerror', (error) => wrong.push(`error: ${error.message}`));
        page.on(
            'console',
            (message) => message.type() === 'error' && wrong.push(`console: ${message.text()}`),
        );
        page.on('request', (request) => {
            const address = new URL(request.url());
            const isOwn = address.origin === new URL(baseURL ?? '').origin;
            if (!isOwn && !['data:', 'blob:'].includes(address.protocol))
                wrong.push(`request: ${request.url()}`);
        });
        await open(page);
        await use(page);
        expect(wrong).toEqual([]);
    },
});

export async function open(page: Page, address = './'): Promise<void> {
    await page.goto(address);
    await ready(page);
}

export const ready = async (page: Page): Promise<void> => {
    await page.waitForFunction(() => window.vornPlayground !== undefined);
    await page.evaluate(() => window.vornPlayground?.drawn());
};

export async function load(page: Page, files: Record<string, string> | string): Promise<void> {
    const texts = typeof files === 'string' ? { 'piece.vorn': files } : files;
    await page.evaluate((given) => window.vornPlayground?.load(given), texts);
}

export interface Facts {
    status: number | null;
    eventCount: number;
    codes: string[];
    trouble: string;
}

export const facts = (page: Page): Promise<Facts> =>
    page.evaluate(async () => {
        const result = await window.vornPlayground?.result();
        return {
            status: result?.status ?? null,
            eventCount: result?.eventCount ?? 0,
            codes: result?.diagnostics.map((one) => one.code) ?? [],
            trouble: result?.trouble ?? '',
        };
    });

export const textOf = (page: Page, name = 'piece.vorn'): Promise<string | undefined> =>
    page.evaluate((file) => window.vornPlayground?.state().files[file], name);

export const state = (page: Page) =>
    page.evaluate(() => {
        const now = window.vornPlayground?.state();
        if (!now) throw new Error('The page has not begun.');
        return now;
    });

// What is heard now: its greatest amplitude, and the frequency in hertz by its rising zeros.
export const heard = (page: Page): Promise<{ peak: number; hertz: number }> =>
    page.evaluate(() => {
        const { samples, sampleRate } = window.vornPlayground?.heard() ?? { samples: [], sampleRate: 0 };
        let peak = 0;
        const zeros: number[] = [];
        for (let at = 1; at < samples.length; at++) {
            const [before = 0, now = 0] = [samples[at - 1], samples[at]];
            peak = Math.max(peak, Math.abs(now));
            if (before < 0 && now >= 0) zeros.push(at - 1 + before / (before - now));
        }
        const [first = 0, last = 0] = [zeros[0], zeros.at(-1)];
        return { peak, hertz: ((zeros.length - 1) * sampleRate) / (last - first) };
    });

// Whether anything has been drawn on the canvas of the events: the pixels that are not clear.
export const inkOf = (page: Page): Promise<number> =>
    page.evaluate(() => {
        const canvas = document.querySelectorAll<HTMLCanvasElement>('.picture-sight canvas')[1];
        const pixels = canvas?.getContext('2d')?.getImageData(0, 0, canvas.width, canvas.height).data ?? [];
        let count = 0;
        for (let at = 3; at < pixels.length; at += 4) if (pixels[at] !== 0) count += 1;
        return count;
    });

export { expect };
