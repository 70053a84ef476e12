// The page in a real browser.

import assert from "node:assert/strict";
import { execFile } from "node:child_process";
import { readFile } from "node:fs/promises";
import { join } from "node:path";
import { pathToFileURL } from "node:url";
import test from "node:test";
import { promisify } from "node:util";
import axe from "axe-core";
import { address, browser, choose, downloaded, field, folder, painted, repaints, says, value, visit } from "./page.mjs";
import { loadCore, now, root } from "./support.mjs";

test("all forms open, follow keys, and make the core's PDF", async () => {
    const core = await loadCore();
    await visit("", async (page) => {
        await page.clock.setFixedTime(Date.UTC(now[0], now[1] - 1, ...now.slice(2, 6)));
        for (const { name, galleryTitle } of core.ask({ do: "catalog" }).json.kinds) {
            await page.click(`[data-kind=${name}]`);
            await page.locator("#title", { hasText: galleryTitle }).waitFor();
            await painted(page);
            await repaints(page, () => field(page, "EditTopMargin").fill("1.25"));
            const { name: file, bytes } = await downloaded(page, () => page.click("#generate"));
            assert.equal(file, `${galleryTitle}.pdf`);
            const state = core.ask({ do: "open", kind: name, now }).json.state;
            const isMetric = (await value(page, "PopupUnits")) !== String(state.controls.PopupUnits.index);
            core.ask({ do: "open", kind: name, now, isMetric });
            core.ask({ do: "set", control: "EditTopMargin", value: "1.25", finish: true });
            const wanted = Buffer.from(core.ask({ do: "write", format: "pdf", now }).bytes);
            assert.ok(bytes.equals(wanted), name);
            await page.click("#toGallery");
        }
    }, { timezoneId: "UTC" });
});

test("a page follows its form: remarks, enabling, undo, lights, things to check", async () => {
    await visit("#grid", async (page) => {
        await painted(page);
        await field(page, "EditTopMargin").fill("abc");
        await page.locator(".said.remark", { hasText: "not a number" }).waitFor();
        assert.equal(await field(page, "EditTopMargin").getAttribute("aria-invalid"), "true");
        await field(page, "EditTopMargin").fill("5mm");
        await field(page, "EditTopMargin").press("Enter");
        await page.waitForFunction(() => document.getElementById("control-EditTopMargin").value.startsWith("0.19685"));
        await page.locator("#checks:not([hidden])").waitFor(); // closer to the edge than printers print
        await page.click("#checks > summary");
        await page.locator("#checkItems button").first().click();
        assert.equal(await page.evaluate(() => document.activeElement.id), "control-EditTopMargin");
        await repaints(page, () => page.keyboard.press("ArrowUp"));
        await page.click("#undo");
        await page.click("#undo");
        await page.waitForFunction(() => document.getElementById("control-EditTopMargin").value === "0.5");
        await page.click("#redo");
        await says(page, "Redid: Top margin 0.5 → 0.19685");
        await field(page, "PopupPaperSize").selectOption({ label: "Custom" });
        await page.waitForFunction(() => !document.getElementById("control-EditCustomWidth").disabled);
    });
});

test("a click on a line of the page leads to its field", async () => {
    await visit("#grid", async (page) => {
        await painted(page);
        const box = await page.locator("#pane").boundingBox();
        await page.mouse.click(box.x + box.width / 2, box.y + box.height / 2);
        for (let shift = 1; shift < 40 && !(await page.evaluate(() => document.activeElement.id)).startsWith("control-"); ++shift) {
            await page.mouse.click(box.x + box.width / 2 + shift, box.y + box.height / 2);
            await page.waitForTimeout(20);
        }
        assert.match(await page.evaluate(() => document.activeElement.id), /control-Edit(Vert|Horz)/);
    });
});

test("the gallery finds kinds and presets, and presets are laid over a form", async () => {
    await visit("", async (page) => {
        await page.fill("#search", "college");
        assert.deepEqual(await page.locator("#tiles button").allTextContents(), ["College Ruled"]);
        await page.fill("#search", "no such paper");
        await page.locator("#galleryStatus", { hasText: "no such paper" }).waitFor();
        await page.fill("#search", "hexagon");
        await page.press("#search", "Enter");
        await painted(page);
        await page.click("#presets");
        const preset = page.locator("#dialog [data-preset]").first();
        const title = await preset.textContent();
        await preset.click();
        await says(page, `The form is now ${title}`);
        assert.equal(await page.locator("#undo").getAttribute("title"), `Undo: ${title}`);
    });
});

test("settings files go out and come back, and pages carry their form", async () => {
    await visit("#polar", async (page) => {
        await painted(page);
        await field(page, "EditTopMargin").fill("0.75");
        const files = [];
        for (const item of ["saveSettings", "saveSvg", "saveJson"]) {
            files.push(await downloaded(page, () => choose(page, item)));
        }
        const png = await downloaded(page, () => choose(page, "savePng"));
        assert.equal(png.bytes.readUInt32BE(16), 2550); // 8.5 in at 300 dots per inch
        for (const { name, bytes } of files) {
            await page.click("#toGallery");
            await page.click("[data-kind=grid]");
            await page.locator("#title", { hasText: "Grid" }).waitFor();
            await page.setInputFiles("#file", []);
            const [chooser] = await Promise.all([page.waitForEvent("filechooser"), choose(page, "open")]);
            await chooser.setFiles({ name, mimeType: "", buffer: bytes });
            await page.locator("#title", { hasText: "Polar" }).waitFor();
            assert.equal(await value(page, "EditTopMargin"), "0.75", name);
        }
    });
});

test("own presets, the default and the form as it was left are kept", async () => {
    await visit("#lined", async (page) => {
        await painted(page);
        await field(page, "EditTopMargin").fill("2.5");
        await choose(page, "savePreset");
        await page.fill("#dialog input", "Mine <b>");
        await page.click("#dialogAccept");
        await says(page, "Saved as the preset Mine <b>");
        await choose(page, "saveDefault");
        await says(page, "begin like this one");
        await page.waitForTimeout(900); // until the form has been kept as it is
        await page.goto(`${address}?again#lined`);
        await painted(page);
        assert.equal(await value(page, "EditTopMargin"), "2.5");
        await choose(page, "forgetDefault");
        await says(page, "begin as they come");
        await page.goto(`${address}?anew#lined`);
        await painted(page);
        assert.notEqual(await value(page, "EditTopMargin"), "2.5");
        await choose(page, "bringBack");
        await page.waitForFunction(() => document.getElementById("control-EditTopMargin").value === "2.5");
        await page.click("#toGallery");
        await page.locator("#tiles button", { hasText: "Mine <b>" }).click();
        await page.waitForFunction(() => document.getElementById("control-EditTopMargin").value === "2.5");
    });
});

test("the wizard and the range of data fill in graph paper", async () => {
    await visit("#graph", async (page) => {
        await painted(page);
        await page.click("#range");
        await page.fill("#dialog-EditMinX", "0");
        await page.fill("#dialog-EditMaxX", "abc");
        await page.locator("#dialog .problem:not(:empty)").waitFor();
        assert.ok(await page.locator("#dialogAccept").isDisabled());
        await page.fill("#dialog-EditMaxX", "1200");
        await page.locator("#dialogAccept:not([disabled])").waitFor();
        await page.click("#dialogAccept");
        await page.waitForFunction(() => document.getElementById("undo").title === "Undo: From Data Range");
        await page.click("#wizard");
        await page.click("#dialogAccept");
        await page.waitForFunction(() => document.getElementById("undo").title === "Undo: Easy Graph Wizard");
    });
});

test("a link opens its form, and a hostile one says why not", async () => {
    await visit("#grid&top-margin=1.75&units=cm&line-color=%23FF0000", async (page, context) => {
        await painted(page);
        assert.equal(await value(page, "EditTopMargin"), "1.75");
        await context.grantPermissions(["clipboard-read", "clipboard-write"]);
        await choose(page, "copyLink");
        await says(page, "Copied a link");
        const link = await page.evaluate(() => navigator.clipboard.readText());
        assert.match(link, /#grid&.*top-margin=1\.75/);
    });
    await visit("#grid&top-margin=%3Cimg%20src=x%20onerror=alert(1)%3E", async (page) => {
        await page.locator(".said.remark", { hasText: "<img src=x" }).waitFor();
        assert.equal(await page.locator("#form img").count(), 0);
    });
    await visit("#%3Cscript%3E&a=1", async (page) => {
        await page.locator("#galleryStatus", { hasText: "no kind of paper named '<script>'" }).waitFor();
    });
});

test("a page prints at its true size", async () => {
    await visit("#grid&paper-size=A4&units=cm", async (page) => {
        await painted(page);
        await page.evaluate(() => { window.print = () => { window.hasPrinted = true; }; });
        await page.click("#print");
        await page.locator("#dialog", { hasText: "A4" }).waitFor();
        await page.evaluate(() => { URL.revokeObjectURL = () => {}; });
        await page.click("#dialogAccept");
        await page.waitForFunction(() => window.hasPrinted);
        const file = join(folder, "printed.pdf");
        await page.pdf({ path: file, preferCSSPageSize: true, printBackground: true });
        const { stdout } = await promisify(execFile)("pdfinfo", [file]);
        assert.match(stdout, /Pages: +1\n/);
        const [, width, height] = stdout.match(/Page size: +([\d.]+) x ([\d.]+)/);
        assert.ok(Math.abs(width - 595) < 1.5 && Math.abs(height - 842) < 1.5, stdout);
        await promisify(execFile)("mutool", ["draw", "-r", "600", "-c", "gray", "-o", join(folder, "printed.pgm"), file]);
        const measured = spanOfColumns(await readFile(join(folder, "printed.pgm"))) * 25.4 / 600;
        // 595 pt less margins of 1.27 cm, in whole cells of 0.635 cm: 29 cells.
        assert.ok(Math.abs(measured - 29 * 6.35) < 0.2, `${measured} mm`);
    });
});

/** Returns how far apart the first and the last dark column of a gray picture are, in pixels. */
function spanOfColumns(pgm) {
    const [header, width, height] = pgm.toString("latin1", 0, 80).match(/^P5\s+(?:#.*\n)?(\d+)\s+(\d+)\s+255\s/);
    const row = pgm.subarray(header.length + Math.floor(height / 2) * width);
    let [first, last] = [width, 0];
    for (let dy = 0; dy < 200; ++dy) {
        for (let x = 0; x < width; ++x) {
            if (row[dy * width + x] < 200) {
                first = Math.min(first, x);
                last = Math.max(last, x);
            }
        }
    }
    return last - first;
}

test("a page that takes too long is stopped; the form and its steps stay", async () => {
    await visit("#dots&paper-size=A0&horizontal-spacing=0.02", async (page) => {
        await painted(page);
        await field(page, "EditTopMargin").fill("1");
        await field(page, "EditTopMargin").press("Enter");
        const spacing = page.locator("input.number[data-control*=Spacing], input.number[data-control*=Cell]").first();
        await spacing.fill("0.004");
        await page.click("#stop", { timeout: 20000 });
        await says(page, "Stopped");
        assert.equal(await value(page, "EditTopMargin"), "1");
        await repaints(page, () => page.click("#undo"));
        await page.click("#undo");
        await page.waitForFunction(() => document.getElementById("control-EditTopMargin").value === "0.5");
    });
});

test("the page works offline, sends nothing elsewhere, and allows no inline script", async () => {
    await visit("", async (page, context) => {
        const strangers = [];
        context.on("request", (request) => request.url().startsWith(address) || strangers.push(request.url()));
        await page.evaluate(() => navigator.serviceWorker.ready);
        await page.waitForFunction(() => caches.match("de.json"));
        await context.setOffline(true);
        await page.goto(`${address}#ternary`);
        await page.reload();
        await painted(page);
        assert.equal(await page.locator("#generate").textContent(), "Erstellen");
        const { bytes } = await downloaded(page, () => page.click("#generate"));
        assert.ok(bytes.toString("latin1").startsWith("%PDF-1.4"));
        assert.deepEqual(strangers.filter((url) => !url.startsWith("blob:") && !url.startsWith("data:")), []);
        assert.deepEqual(await context.cookies(), []);
    }, { locale: "de-DE" });
    const context = await browser.newContext();
    const page = await context.newPage();
    await page.goto(address);
    const isBlocked = await page.evaluate(() => new Promise((resolve) => {
        document.addEventListener("securitypolicyviolation", () => resolve(true));
        const script = document.createElement("script");
        script.textContent = "window.isRun = true";
        document.body.append(script);
        setTimeout(() => resolve(window.isRun !== true), 500);
    }));
    assert.ok(isBlocked);
    await context.close();
});

test("the single file opens from disk", async () => {
    const page = await browser.newPage({ locale: "ja-JP" });
    await page.goto(`${pathToFileURL(join(root, "build/web/linealis.html"))}#brick`);
    await painted(page);
    assert.equal(await page.locator("#generate").textContent(), "作成");
    const { bytes } = await downloaded(page, () => page.click("#generate"));
    assert.ok(bytes.toString("latin1").startsWith("%PDF-1.4"));
    await page.close();
});

test("nothing stands in the way of anyone: all forms, light, dark, forced colors, 200 %, a phone", async () => {
    const looks = [{}, { colorScheme: "dark" }, { forcedColors: "active" },
        { viewport: { width: 640, height: 360 }, deviceScaleFactor: 2 },
        { viewport: { width: 360, height: 640 }, hasTouch: true }];
    // The other rules read the elements, which are the same in every look.
    const rulesOfLooks = ["color-contrast", "target-size", "scrollable-region-focusable", "aria-hidden-focus", "nested-interactive"];
    const kinds = (await loadCore()).ask({ do: "catalog" }).json.kinds.map(({ name }) => name);
    for (const look of looks) {
        await visit("", async (page) => {
            await page.evaluate(axe.source);
            const check = async (what) => {
                const { violations } = await page.evaluate((runOnly) => axe.run(document, {
                    resultTypes: ["violations"], ...(runOnly && { runOnly }),
                }), look === looks[0] ? null : rulesOfLooks);
                const words = violations.map(({ id, nodes }) => `${id}: ${nodes[0].html}`);
                assert.deepEqual(words, [], `${what}, ${JSON.stringify(look)}`);
            };
            await check("gallery");
            const areAll = look === looks[0] || look.viewport; // colors are the same in all forms
            for (const kind of areAll ? kinds : kinds.filter((_, i) => i % 4 === 0)) {
                await page.evaluate((hash) => { location.hash = hash; }, kind);
                await page.waitForFunction((name) => document.querySelector("#form input") &&
                    location.hash.startsWith(`#${name}`), kind);
                await page.waitForTimeout(50);
                await check(kind);
                const overflow = await page.evaluate(() => document.documentElement.scrollWidth - innerWidth);
                assert.ok(overflow <= 0, `${kind} is ${overflow} pixels too wide, ${JSON.stringify(look)}`);
            }
        }, look);
    }
});
