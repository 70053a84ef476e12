// Measures the page in Chromium: until the first page is seen, from a key to the page, 600,000 dots, and sizes over the wire.

import { execFileSync } from "node:child_process";
import { readFileSync, readdirSync } from "node:fs";
import { dirname, join } from "node:path";
import { fileURLToPath } from "node:url";
import { chromium } from "playwright-core";
import { serve } from "./serve.mjs";

const site = join(dirname(fileURLToPath(import.meta.url)), "../build/web/site");
const server = await serve(site);
const address = `http://127.0.0.1:${server.address().port}/`;
const browser = await chromium.launch({ executablePath: "/usr/bin/chromium", args: ["--no-sandbox"] });
const kinds = ["graph", "axonometric", "cornell", "crosses", "dots", "engineering", "hexagon", "isometric", "lined", "polar",
    "trapezoid", "ternary", "grid", "brick"];
const median = (list) => [...list].sort((a, b) => a - b)[Math.floor(list.length / 2)];
const round = (milliseconds) => `${Math.round(milliseconds)} ms`;

async function visit(hash) {
    const context = await browser.newContext({ viewport: { width: 1280, height: 720 } });
    const page = await context.newPage();
    await page.goto(address + hash);
    await page.locator("#pane[data-painted]").waitFor();
    return page;
}

/** Types into a field and returns how long it took until the page was painted anew. */
function keyToPage(page, name, text) {
    return page.evaluate(([id, value]) => new Promise((resolve) => {
        const field = document.getElementById(id), pane = document.getElementById("pane");
        const count = pane.dataset.painted;
        const begin = performance.now();
        new MutationObserver((_, observer) => {
            if (pane.dataset.painted !== count) {
                observer.disconnect();
                resolve(performance.now() - begin);
            }
        }).observe(pane, { attributes: true });
        field.value = value;
        field.dispatchEvent(new Event("input"));
    }), [`control-${name}`, text]);
}

const firsts = [];
for (let i = 0; i < 5; ++i) {
    const page = await visit("#grid");
    firsts.push(await page.evaluate(() => performance.getEntriesByName("painted")[0].startTime));
    await page.context().close();
}
console.log(`first page seen: median ${round(median(firsts))}, worst ${round(Math.max(...firsts))}`);

for (const kind of kinds) {
    const page = await visit(`#${kind}`);
    const times = [];
    for (let i = 0; i < 15; ++i) {
        times.push(await keyToPage(page, "EditTopMargin", String(0.5 + i / 100)));
        await page.waitForTimeout(30);
    }
    console.log(`key to page, ${kind}: median ${round(median(times))}, worst ${round(Math.max(...times))}`);
    await page.context().close();
}

const dots = await visit("#dots&paper-size=A0");
const name = await dots.locator("input.number[data-control*=Spacing]").first().getAttribute("data-control");
const spacings = await dots.locator("input.number[data-control*=Spacing]").evaluateAll((all) => all.map(({ dataset }) => dataset.control));
for (const other of spacings.slice(1)) {
    await keyToPage(dots, other, "0.0505");
}
console.log(`600,000 dots: ${round(await keyToPage(dots, name, "0.0505"))}, ${await dots.locator("#pane").getAttribute("aria-label")}`);
await browser.close();
server.close();

const wire = (names) => names.reduce((sum, file) => sum + execFileSync("brotli", ["-q", "11", "-c", join(site, file)]).length, 0);
const all = readdirSync(site);
console.log(`core: ${readFileSync(join(site, "core.wasm")).length} bytes, ${wire(["core.wasm"])} over the wire`);
console.log(`page: ${wire(all.filter((file) => /\.(js|html|css)$/.test(file)))} bytes over the wire, pictures ${wire(all.filter((file) => file.endsWith(".png")))}`);
