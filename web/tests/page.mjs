// The page in Chromium, for the tests that drive it.

import assert from "node:assert/strict";
import { mkdtemp, readFile, rm } from "node:fs/promises";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { after, before } from "node:test";
import { chromium } from "playwright-core";
import { serve } from "../serve.mjs";
import { site } from "./support.mjs";

let server;
export let browser;
export let address;
export let folder;

before(async () => {
    server = await serve(site);
    address = `http://127.0.0.1:${server.address().port}/`;
    browser = await chromium.launch({
        executablePath: process.env.LINEALIS_CHROMIUM ?? "/usr/bin/chromium", args: ["--no-sandbox"],
    });
    folder = await mkdtemp(join(tmpdir(), "linealis-browser-"));
});
after(async () => {
    await browser.close();
    server.close();
    await rm(folder, { recursive: true, force: true });
});

/**
 * Opens the page at an address, calls `use`, and fails on any error that the page or its policy reports. `languages` are those
 * that the browser prefers, and `routes` what it gets in place of files.
 */
export async function visit(hash, use, { languages, routes = {}, ...options } = {}) {
    const context = await browser.newContext({ viewport: { width: 1280, height: 720 }, acceptDownloads: true, ...options });
    if (languages) {
        await context.addInitScript((tags) => Object.defineProperty(navigator, "languages", { value: tags }), languages);
    }
    for (const [pattern, body] of Object.entries(routes)) {
        await context.route(pattern, (route) => route.fulfill({ body, contentType: "application/json" }));
    }
    const page = await context.newPage();
    const errors = [];
    page.on("pageerror", (error) => errors.push(error.message));
    page.on("console", (message) => message.type() === "error" && errors.push(message.text()));
    await page.goto(address + hash);
    try {
        await use(page, context);
        assert.deepEqual(errors, []);
    } finally {
        await context.close();
    }
}

export const field = (page, name) => page.locator(`#control-${name}`);
export const value = (page, name) => field(page, name).inputValue();
export const says = (page, text) => page.locator("#status", { hasText: text }).waitFor();
export const painted = (page) => page.locator("#pane[data-painted]").waitFor();

/** Waits until the page has been painted anew after `action`. */
export async function repaints(page, action) {
    const count = () => page.locator("#pane").evaluate(({ dataset }) => Number(dataset.painted ?? 0));
    const before = await count();
    await action();
    await page.waitForFunction((old) => Number(document.getElementById("pane").dataset.painted ?? 0) > old, before);
}

export async function downloaded(page, click) {
    const [download] = await Promise.all([page.waitForEvent("download"), click()]);
    return { name: download.suggestedFilename(), bytes: await readFile(await download.path()) };
}

export async function choose(page, item) {
    await page.click("#menu > summary");
    await page.click(`#${item}`);
}

/** Drops a file on the page, as a file manager does. */
export async function drop(page, name, bytes) {
    await page.evaluate(([named, base64]) => {
        const content = Uint8Array.from(atob(base64), (character) => character.charCodeAt(0));
        const dataTransfer = new DataTransfer();
        dataTransfer.items.add(new File([content], named));
        for (const type of ["dragover", "drop"]) {
            document.body.dispatchEvent(new DragEvent(type, { dataTransfer, bubbles: true, cancelable: true }));
        }
    }, [name, Buffer.from(bytes).toString("base64")]);
}

/** Decodes a picture in the browser: its size and its pixels, four bytes each. */
export async function picture(page, bytes) {
    const decoded = await page.evaluate(async (base64) => {
        const content = Uint8Array.from(atob(base64), (character) => character.charCodeAt(0));
        const bitmap = await createImageBitmap(new Blob([content]));
        const context = new OffscreenCanvas(bitmap.width, bitmap.height).getContext("2d");
        context.drawImage(bitmap, 0, 0);
        const { data } = context.getImageData(0, 0, bitmap.width, bitmap.height);
        const parts = [];
        for (let at = 0; at < data.length; at += 30000) {
            parts.push(btoa(String.fromCharCode(...data.subarray(at, at + 30000))));
        }
        return { width: bitmap.width, height: bitmap.height, parts };
    }, bytes.toString("base64"));
    return { ...decoded, pixels: Buffer.concat(decoded.parts.map((part) => Buffer.from(part, "base64"))) };
}
