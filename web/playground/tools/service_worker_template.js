// Holds the files of the page, by the name of their build, and answers from there first.
const STORE = 'vorn-playground-' + 'VERSION';
const FILES = [/* FILES */];

self.addEventListener('install', (event) => {
    event.waitUntil(
        caches
            .open(STORE)
            .then((store) => store.addAll(FILES))
            .then(() => self.skipWaiting()),
    );
});

async function takeOver() {
    const names = await caches.keys();
    const old = names.filter((name) => name.startsWith('vorn-playground-') && name !== STORE);
    await Promise.all(old.map((name) => caches.delete(name)));
    await self.clients.claim();
}

self.addEventListener('activate', (event) => event.waitUntil(takeOver()));

// What is not there yet is fetched and, when it belongs to the build, held from then on.
async function answer(request) {
    const store = await caches.open(STORE);
    const held = await store.match(request, { ignoreSearch: true });
    if (held) return held;
    const fresh = await fetch(request);
    if (fresh.ok && new URL(request.url).pathname.includes('/assets/'))
        await store.put(request, fresh.clone());
    return fresh;
}

self.addEventListener('fetch', (event) => {
    const { request } = event;
    const address = new URL(request.url);
    if (request.method !== 'GET' || address.origin !== location.origin) return;
    if (address.pathname.endsWith('/watched')) return;
    event.respondWith(answer(request));
});
