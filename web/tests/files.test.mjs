// Files that come into the page in Chromium, and what the browser keeps of them.

import assert from "node:assert/strict";
import { execFile } from "node:child_process";
import { writeFile } from "node:fs/promises";
import { join } from "node:path";
import test from "node:test";
import { promisify } from "node:util";
import { address, choose, downloaded, drop, field, folder, painted, picture, repaints, says, value, visit } from "./page.mjs";
import { cli, loadCore, now } from "./support.mjs";

const text = (words) => new TextEncoder().encode(words);

test("a settings file of every kind can be dropped, on the gallery and on another form", async () => {
    const core = await loadCore();
    const { kinds } = core.ask({ do: "catalog" }).json;
    await visit("", async (page) => {
        for (const [i, { name, galleryTitle, extension }] of kinds.entries()) {
            core.ask({ do: "open", kind: name, now });
            core.ask({ do: "set", control: "EditTopMargin", value: `1.${i + 10}`, finish: true });
            const { bytes, json } = core.ask({ do: "settings" });
            assert.equal(json.extension, extension);
            await drop(page, `My ${name}.${extension}`, bytes);
            await page.locator("#title", { hasText: galleryTitle }).waitFor();
            await page.waitForFunction((wanted) => document.getElementById("control-EditTopMargin").value === wanted, `1.${i + 10}`);
            assert.ok(await page.locator("#undo").isDisabled(), `${name} has just been opened`);
            const again = await downloaded(page, () => choose(page, "saveSettings"));
            assert.equal(again.name, `My ${name}.${extension}`);
            assert.ok(again.bytes.equals(Buffer.from(bytes)), name);
            if (i % 2 === 0) {
                await page.click("#toGallery");
            }
        }
    });
});

test("files that are no forms are refused in words, and the form that is open stays", async () => {
    await visit("#grid", async (page) => {
        await field(page, "EditTopMargin").fill("1.5");
        for (const [name, bytes, words] of [
            ["<img src=x onerror=alert(1)>.json", text("{"), "<img src=x onerror=alert(1)>.json"],
            ["deep.json", text("[".repeat(5000)), "more than 8 deep"],
            ["other.json", text('{"kind": "<b>none</b>", "controls": {}}'), "no kind of paper named '<b>none</b>'"],
            ["empty.svg", text('<svg xmlns="http://www.w3.org/2000/svg"><script>alert(1)</script></svg>'), "carries no form"],
            ["page.pdf", text("%PDF-1.4"), "page.pdf"],
            ["cut.ini", text("x"), "cut.ini"],
        ]) {
            await drop(page, name, bytes);
            await says(page, words);
            assert.equal(await value(page, "EditTopMargin"), "1.5", name);
        }
        assert.equal(await page.locator("#paper img, #paper b, #paper script").count(), 0);
        await drop(page, "good.json", text('{"kind": "grid", "controls": {"EditTopMargin": "<b>2</b>", "EditLeftMargin": 3}}'));
        await page.waitForFunction(() => document.getElementById("control-EditLeftMargin").value === "3");
        assert.equal(await value(page, "EditTopMargin"), "<b>2</b>");
        await page.locator(".said.remark", { hasText: "<b>2</b>" }).waitFor();
    });
});

test("markers are chosen or dropped, drawn and undone; their faulty lines are numbered", async () => {
    const core = await loadCore();
    const markers = text("1 1 here\r\none 2 there\n3 3\n\n4 4 again\n");
    const pdf = async (page) => (await downloaded(page, () => page.click("#generate"))).bytes;
    await visit("#graph", async (page) => {
        await page.clock.setFixedTime(Date.UTC(now[0], now[1] - 1, ...now.slice(2, 6)));
        await painted(page);
        const without = await pdf(page);
        const [chooser] = await Promise.all([page.waitForEvent("filechooser"), page.click("#markers")]);
        await repaints(page, () => chooser.setFiles({ name: "points.txt", mimeType: "text/plain", buffer: Buffer.from(markers) }));
        await says(page, "Markers from points.txt");
        assert.ok(await field(page, "CheckBoxMarkers").isChecked());
        await page.click("#checks > summary");
        await page.locator("#checkItems", { hasText: "Marker file, line 3: there is no text" }).waitFor();
        const faults = (await page.locator("#checkItems button").allTextContents()).filter((one) => one.startsWith("Marker"));
        assert.deepEqual(faults.slice(0, 2), ["Marker file, line 2: “one” is not a number", "Marker file, line 3: there is no text"]);
        core.ask({ do: "open", kind: "graph", now });
        core.ask({ do: "markers", name: "points.txt" }, markers);
        const wanted = Buffer.from(core.ask({ do: "write", format: "pdf", now }).bytes);
        const made = await pdf(page);
        assert.ok(made.equals(wanted) && !made.equals(without));
        await page.click("#undo");
        await page.waitForFunction(() => !document.getElementById("control-CheckBoxMarkers").checked);
        assert.ok((await pdf(page)).equals(without));
        await drop(page, "points.csv", text("2 2 dropped\n"));
        await says(page, "Markers from points.csv");
        assert.ok(!(await pdf(page)).equals(without));
        await drop(page, "binary.txt", new Uint8Array([0, 1, 2, 255, 0]));
        await says(page, "so no markers are drawn");
    }, { timezoneId: "UTC", locale: "en-US" });
    await visit("#grid", async (page) => {
        await drop(page, "points.txt", markers);
        await says(page, "points.txt"); // grids have no markers
        assert.equal(await page.locator("#markers").count(), 0);
    });
});

test("fields that a settings file does not store are named when a form is saved, kept and brought back", async () => {
    await visit("#axonometric", async (page) => {
        await painted(page);
        await field(page, "CheckBoxFrame").click();
        await downloaded(page, () => choose(page, "saveSettings"));
        await says(page, "does not store Draw Frame");
        await choose(page, "savePreset");
        await page.fill("#dialog input", "Framed");
        await page.keyboard.press("Enter");
        await says(page, "Saved as the preset Framed, except for Draw Frame");
        await choose(page, "saveDefault");
        await says(page, "begin like this one, except for Draw Frame");
        await page.waitForTimeout(900); // until the form has been kept as it is
        await choose(page, "bringBack");
        await says(page, "The form is back as you last left it, except for Draw Frame");
    });
});

test("own presets and defaults outlive a reload, and go when they are deleted", async () => {
    await visit("#hexagon", async (page) => {
        await painted(page);
        await field(page, "EditTopMargin").fill("1.75");
        await choose(page, "savePreset");
        await page.fill("#dialog input", "Mine");
        await page.click("#dialogAccept");
        await says(page, "Saved as the preset Mine");
        await choose(page, "saveDefault");
        await says(page, "begin like this one");
        await page.reload();
        await painted(page);
        assert.equal(await value(page, "EditTopMargin"), "1.75"); // the default
        await field(page, "EditTopMargin").fill("3");
        await page.click("#presets");
        await page.locator("#dialog button", { hasText: /^Mine$/ }).click();
        await says(page, "The form is now Mine");
        assert.equal(await value(page, "EditTopMargin"), "1.75");
        await page.click("#undo"); // one step
        await page.waitForFunction(() => document.getElementById("control-EditTopMargin").value === "3");
        await page.goto(address);
        await page.fill("#search", "mine");
        await page.locator("#tiles button", { hasText: /^Mine$/ }).click();
        await page.waitForFunction(() => document.getElementById("control-EditTopMargin")?.value === "1.75");
        await page.click("#presets");
        await page.click("[aria-label='Delete Preset: Mine']");
        await page.locator("#dialog[open] h2").first().waitFor();
        await page.waitForFunction(() => !document.querySelector("[aria-label='Delete Preset: Mine']"));
        await page.click("#dialogCancel");
        await choose(page, "forgetDefault");
        await says(page, "begin as they come");
        await page.goto(`${address}?anew#hexagon`);
        await painted(page);
        assert.notEqual(await value(page, "EditTopMargin"), "1.75");
        await page.click("#toGallery");
        assert.equal(await page.locator("#tiles button", { hasText: /^Mine$/ }).count(), 0);
    });
});

/** Checks the checksum of each chunk of a PNG file. */
const checksums = `
import sys, zlib
rest = open(sys.argv[1], "rb").read()[8:]
while rest:
    size = int.from_bytes(rest[:4], "big")
    assert zlib.crc32(rest[4:size + 8]) == int.from_bytes(rest[size + 8:size + 12], "big"), rest[4:8]
    rest = rest[size + 12:]
`;

test("a picture has 300 dots per inch, is of the newest form, and has its lines where they belong", async () => {
    await visit("#grid&paper-size=Custom&custom-width=3&custom-height=2&horizontal-spacing=0.25&vertical-spacing=0.25", async (page) => {
        await painted(page);
        for (const [name, given] of [["LeftMargin", "1"], ["RightMargin", "1"], ["TopMargin", "0.5"], ["BottomMargin", "0.49"]]) {
            await field(page, `Edit${name}`).fill(given);
        }
        const png = await downloaded(page, () => choose(page, "savePng"));
        assert.equal(png.name, "Grid.png");
        const { width, height, pixels } = await picture(page, png.bytes);
        assert.deepEqual([width, height], [900, 600]);
        const isInk = (x, y) => pixels[4 * (y * width + x)] < 250 || pixels[4 * (y * width + x) + 2] < 250;
        const inked = [];
        for (let y = 0; y < height; ++y) {
            for (let x = 0; x < width; ++x) {
                if (isInk(x, y)) {
                    inked.push([x, y]);
                }
            }
        }
        const [xs, ys] = [0, 1].map((axis) => inked.map((at) => at[axis]).sort((a, b) => a - b));
        for (const [found, wanted] of [[xs[0], 300], [xs.at(-1), 600], [ys[0], 150], [ys.at(-1), 450]]) {
            assert.ok(Math.abs(found - wanted) <= 3, `ink at ${found}, not ${wanted}`);
        }
        await field(page, "EditTopMargin").fill("abc");
        await page.locator(".said.remark", { hasText: "not a number" }).waitFor();
        // The file says its resolution, and another program reads the form from it.
        const at = png.bytes.indexOf("pHYs");
        assert.deepEqual([png.bytes.readUInt32BE(at + 4), png.bytes.readUInt32BE(at + 8), png.bytes[at + 12]], [11811, 11811, 1]);
        await writeFile(join(folder, "Grid.png"), png.bytes);
        const { stdout } = await promisify(execFile)(cli, ["form", join(folder, "Grid.png")]);
        assert.equal(JSON.parse(stdout).controls.EditBottomMargin.value, "0.49");
        await promisify(execFile)("python3", ["-c", checksums, join(folder, "Grid.png")]);
    });
});
