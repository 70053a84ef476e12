// What the tests share: the core in node, and the page in a real browser.

import { readFile } from "node:fs/promises";
import { dirname, join } from "node:path";
import { fileURLToPath } from "node:url";
import { build } from "esbuild";

export const root = join(dirname(fileURLToPath(import.meta.url)), "../..");
export const site = process.env.LINEALIS_SITE ?? join(root, "build/web/site");
export const cli = process.env.LINEALIS_CLI ?? join(root, "build/release/bin/linealis-cli");
export const now = [2026, 3, 4, 5, 6, 7, 0];
export const epoch = String(Date.UTC(2026, 2, 4, 5, 6, 7) / 1000);

/** Loads the core that the page loads. */
export async function loadCore() {
    const { outputFiles } = await build({
        entryPoints: [join(root, "web/page/core.ts")], bundle: true, write: false, format: "esm",
    });
    const { Core } = await import(`data:text/javascript;base64,${Buffer.from(outputFiles[0].text).toString("base64")}`);
    return Core.load(await WebAssembly.compile(await readFile(join(site, "core.wasm"))));
}

/** Returns a function that returns numbers from 0 to below 1, the same ones for the same seed. */
export function randomFrom(seed) {
    return () => {
        seed = (seed + 0x6d2b79f5) | 0;
        let t = Math.imul(seed ^ (seed >>> 15), 1 | seed);
        t = (t + Math.imul(t ^ (t >>> 7), 61 | t)) ^ t;
        return ((t ^ (t >>> 14)) >>> 0) / 4294967296;
    };
}
