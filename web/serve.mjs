// Serves a folder of static files on the loopback, for a look and for the tests, the way docs/hosting.md describes.
//
//   node serve.mjs FOLDER [PORT]

import { createReadStream } from "node:fs";
import { stat } from "node:fs/promises";
import { createServer } from "node:http";
import { extname, join, resolve, sep } from "node:path";
import { pathToFileURL } from "node:url";

const types = {
    ".html": "text/html; charset=utf-8", ".js": "text/javascript; charset=utf-8", ".css": "text/css; charset=utf-8",
    ".wasm": "application/wasm", ".png": "image/png", ".svg": "image/svg+xml", ".webmanifest": "application/manifest+json",
};

/** Starts a server on a port, or on any free one if it is 0. Resolves with the server once it listens. */
export function serve(folder, port = 0) {
    const root = resolve(folder);
    const server = createServer(async (request, response) => {
        const path = decodeURIComponent(new URL(request.url, "http://localhost").pathname);
        const file = join(root, path.endsWith("/") ? `${path}index.html` : path);
        const isFile = file.startsWith(root + sep) && (await stat(file).catch(() => null))?.isFile();
        if (!isFile) {
            response.writeHead(404).end();
            return;
        }
        response.writeHead(200, {
            "Content-Type": types[extname(file)] ?? "application/octet-stream",
            "Cache-Control": "no-cache",
            "X-Content-Type-Options": "nosniff",
            "Referrer-Policy": "no-referrer",
        });
        createReadStream(file).pipe(response);
    });
    return new Promise((listening) => server.listen(port, "127.0.0.1", () => listening(server)));
}

if (import.meta.url === pathToFileURL(process.argv[1]).href) {
    const [folder, port] = process.argv.slice(2);
    const server = await serve(folder, Number(port ?? 8080));
    console.log(`Linealis is at http://127.0.0.1:${server.address().port}/ until you press Ctrl+C.`);
}
