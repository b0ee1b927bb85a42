// Holds the files of the page, by the name of their build, and answers from there first. Another build has a
// store of its own and waits until the reader asks for it; a store goes when no page of its build is left.
const OWN = `vorn-playground ${self.registration.scope} `;
const STORE = OWN + 'VERSION';
const FILES = [/* FILES */];
const LATER = [/* LATER */]; // large or seldom asked for, and not needed to begin
const TWINS = {/* TWINS */}; // files with the bytes of another one, which is held for both
const PATIENCE = 2000; // milliseconds that a page may take to say what it was made from

self.addEventListener('install', (event) => event.waitUntil(holdFirst()));

self.addEventListener('activate', (event) => event.waitUntil(self.clients.claim().then(tidy)));

const addressOf = (name) => new URL(name, self.registration.scope).href;
const twinOf = new Map(Object.entries(TWINS).map(([name, twin]) => [addressOf(name), addressOf(twin)]));

const coming = new Map(); // what is being fetched, by its address

// Browsers open no page with an answer that another address has given.
function withoutWay(answer) {
    const { body, status, statusText, headers, redirected } = answer;
    return redirected ? new Response(body, { status, statusText, headers }) : answer;
}

async function fetchInto(store, address) {
    const fresh = withoutWay(await fetch(address));
    if (fresh.ok) await store.put(address, fresh.clone());
    return fresh;
}

// Whoever asks meanwhile waits for the same answer.
function hold(store, address) {
    const fetched = coming.get(address) ?? fetchInto(store, address).finally(() => coming.delete(address));
    coming.set(address, fetched);
    return fetched.then((fresh) => fresh.clone());
}

async function holdFirst() {
    const store = await caches.open(STORE);
    const answers = await Promise.all(FILES.map((name) => hold(store, addressOf(name))));
    if (!answers.every(({ ok }) => ok)) throw new Error('The page is not all there.');
}

async function holdLater() {
    const store = await caches.open(STORE);
    for (const name of LATER) {
        const address = addressOf(name);
        if (!(await store.match(address)) && !(await hold(store, address)).ok) return false;
    }
    return true;
}

// The stores of this page, another one at the same host left out.
const ownStores = async () => (await caches.keys()).filter((name) => name.startsWith(OWN));

// The parts of a page that is older than this build are in its own store.
async function held(request) {
    const store = await caches.open(STORE);
    const found = await store.match(twinOf.get(request.url.replace(/[?#].*/, '')) ?? request, {
        ignoreSearch: true,
    });
    if (found || request.mode === 'navigate') return found;
    for (const name of await ownStores()) {
        const older = await (await caches.open(name)).match(request, { ignoreSearch: true });
        if (older) return older;
    }
    return undefined;
}

async function answer(request) {
    const found = await held(request);
    if (found) return found;
    if (!new URL(request.url).pathname.includes('/assets/')) return fetch(request);
    return hold(await caches.open(STORE), request.url);
}

// The script that a page was begun with; nothing when it does not answer.
function beginningOf(client) {
    return new Promise((resolve) => {
        const { port1, port2 } = new MessageChannel();
        port1.onmessage = ({ data }) => resolve(data);
        client.postMessage('which beginning', [port2]);
        setTimeout(resolve, PATIENCE);
    });
}

// While a newer build is there, its store is one that goes on.
async function tidy() {
    if (self.registration.installing || self.registration.waiting) return;
    const pages = await self.clients.matchAll({ type: 'window', includeUncontrolled: true });
    const store = await caches.open(STORE);
    for (const page of pages) {
        const beginning = await beginningOf(page);
        if (!beginning || !(await store.match(beginning))) return;
    }
    const old = (await ownStores()).filter((name) => name !== STORE);
    await Promise.all(old.map((name) => caches.delete(name)));
}

const TASKS = { 'hold the rest': holdLater, 'take over': () => self.skipWaiting(), tidy };

self.addEventListener('message', (event) => {
    const work = TASKS[event.data]?.();
    if (!work) return;
    const tell = (result) => event.ports[0]?.postMessage(result);
    event.waitUntil(work.then(tell, () => tell(false)));
});

self.addEventListener('fetch', (event) => {
    const { request } = event;
    const address = new URL(request.url);
    if (request.method !== 'GET' || address.origin !== location.origin) return;
    if (address.pathname.endsWith('/watched')) return;
    event.respondWith(answer(request));
});
