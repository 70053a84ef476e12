// Keeps the files of the page in the browser, so that it works offline. A new version replaces all of them together. The
// texts of a language are kept once they are asked for.

/** What the build puts in: the files and a text that differs with their contents. */
declare const builtIn: { files: string[]; version: string };

const worker = self as unknown as {
    addEventListener(type: "install" | "activate", listener: (event: { waitUntil(work: Promise<unknown>): void }) => void): void;
    addEventListener(type: "fetch", listener: (event: { request: Request; respondWith(response: Promise<Response>): void }) => void): void;
    skipWaiting(): Promise<void>;
    clients: { claim(): Promise<void> };
};
const cacheName = `linealis-${builtIn.version}`;

async function answer(request: Request): Promise<Response> {
    const cache = await caches.open(cacheName);
    const kept = await cache.match(request, { ignoreSearch: true });
    if (kept) {
        return kept;
    }
    const response = await fetch(request);
    if (response.ok && request.url.endsWith(".json")) {
        await cache.put(request, response.clone());
    }
    return response;
}

worker.addEventListener("install", (event) => {
    event.waitUntil(caches.open(cacheName)
        .then((cache) => cache.addAll(builtIn.files.map((file) => new Request(file, { cache: "no-cache" }))))
        .then(() => worker.skipWaiting()));
});

worker.addEventListener("activate", (event) => {
    event.waitUntil(caches.keys()
        .then((names) => Promise.all(names.filter((name) => name.startsWith("linealis-") && name !== cacheName)
            .map((name) => caches.delete(name))))
        .then(() => worker.clients.claim()));
});

worker.addEventListener("fetch", (event) => {
    if (event.request.method === "GET") {
        event.respondWith(answer(event.request));
    }
});
