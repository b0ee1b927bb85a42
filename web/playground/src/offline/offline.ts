// The page without a network, and its next version. The service worker holds the page while it begins, and
// what is large, Csound, when it has begun and the machine has time. A new version waits until the reader
// asks for it; pages of the old one keep their parts as long as they are open.
import { notice } from '../ui/notices';

const IDLE_AT_LAST = 5000; // milliseconds
const BETWEEN_LOOKS = 60 * 60 * 1000; // for a new version

const ask = (worker: ServiceWorker, task: string): Promise<unknown> =>
    new Promise((resolve) => {
        const { port1, port2 } = new MessageChannel();
        port1.onmessage = ({ data }) => resolve(data);
        worker.postMessage(task, [port2]);
    });

const loaded = (): Promise<void> =>
    new Promise((resolve) => {
        if (document.readyState === 'complete') resolve();
        else addEventListener('load', () => resolve(), { once: true });
    });

const idle = (): Promise<void> =>
    new Promise((resolve) => {
        if ('requestIdleCallback' in window) requestIdleCallback(() => resolve(), { timeout: IDLE_AT_LAST });
        else setTimeout(resolve, IDLE_AT_LAST);
    });

const savesData = (): boolean =>
    (navigator as { connection?: { saveData?: boolean } }).connection?.saveData === true;

function useNewVersion({ waiting }: ServiceWorkerRegistration): void {
    // Another window may have asked for it already.
    if (!waiting) return location.reload();
    navigator.serviceWorker.addEventListener('controllerchange', () => location.reload(), { once: true });
    waiting.postMessage('take over');
}

// Nothing to tell of the first version of all.
function offer(registration: ServiceWorkerRegistration): void {
    if (!registration.waiting || !navigator.serviceWorker.controller) return;
    const act = (): void => useNewVersion(registration);
    notice('There is a new version of this page. What you wrote stays.', {
        word: 'Use it',
        act,
        lasts: true,
    });
}

function offerWhenInstalled(registration: ServiceWorkerRegistration): void {
    const { installing } = registration;
    installing?.addEventListener('statechange', () => offer(registration));
}

function lookNowAndThen(registration: ServiceWorkerRegistration): void {
    let last = Date.now();
    document.addEventListener('visibilitychange', () => {
        if (document.visibilityState === 'hidden' || Date.now() - last < BETWEEN_LOOKS) return;
        last = Date.now();
        void registration.update().catch(() => undefined);
    });
}

// By its script the worker knows which version a page is of.
function tellBeginning(): void {
    navigator.serviceWorker.addEventListener('message', ({ data, ports }: MessageEvent<unknown>) => {
        if (data === 'which beginning') ports[0]?.postMessage(import.meta.url);
    });
}

async function hold(): Promise<boolean> {
    await loaded();
    const registration = await navigator.serviceWorker.register('./service_worker.js');
    registration.addEventListener('updatefound', () => offerWhenInstalled(registration));
    offer(registration);
    lookNowAndThen(registration);
    const { active } = await navigator.serviceWorker.ready;
    await idle();
    if (!active) return false;
    void ask(active, 'tidy');
    return !savesData() && (await ask(active, 'hold the rest')) === true;
}

// Settles when the whole page is held, its sound included: false where that is not done.
export async function holdOffline(): Promise<boolean> {
    if (!import.meta.env.PROD || !('serviceWorker' in navigator)) return false;
    tellBeginning();
    return hold().catch(() => false);
}
