// Drives the built page, served below a path, in Debian's own Chromium. The port differs from run to run, so that
// two may go on at once; the first process that reads this hands it on to its workers.
import { defineConfig } from '@playwright/test';

const PORT = (process.env['PLAYGROUND_PORT'] ??= String(20_000 + (process.pid % 10_000)));

export default defineConfig({
    testDir: 'tests/browser',
    workers: 1,
    retries: 1, // a busy machine may let Chromium wait; what fails twice fails
    timeout: 60_000,
    forbidOnly: true,
    reporter: [['list']],
    use: {
        baseURL: `http://localhost:${PORT}/some/path/`,
        viewport: { width: 1280, height: 800 },
        launchOptions: {
            executablePath: process.env['CHROMIUM'] ?? '/usr/bin/chromium',
            args: ['--no-sandbox', '--autoplay-policy=no-user-gesture-required'],
        },
    },
    webServer: {
        command: `node tools/serve.mjs --port ${PORT} --base /some/path/`,
        url: `http://localhost:${PORT}/some/path/`,
        reuseExistingServer: false,
    },
});
