// What the live page shows in Chromium, and how the page is worked: steps, zoom, lights, keys, large pages.

import assert from "node:assert/strict";
import test from "node:test";
import { choose, downloaded, field, painted, picture, repaints, says, value, visit } from "./page.mjs";
import { loadCore, now } from "./support.mjs";

const holds = (page, name, wanted) => page.waitForFunction(
    ([id, text]) => document.getElementById(id).value === text, [`control-${name}`, wanted]);

/** Returns the pixels of the live page that are so, as counts by column. */
async function columns(page, isWanted) {
    const { width, height, pixels } = await picture(page, await page.locator("#canvas").screenshot());
    return Array.from({ length: width }, (_, x) => {
        let count = 0;
        for (let y = 40; y < height; ++y) { // below the ruler
            const at = 4 * (y * width + x);
            count += isWanted(pixels[at], pixels[at + 1], pixels[at + 2]) ? 1 : 0;
        }
        return count;
    });
}

test("each form has steps of its own; Reset, presets and pop-up menus are steps", async () => {
    await visit("#grid", async (page) => {
        await painted(page);
        const begin = await value(page, "PopupUnits");
        await field(page, "EditTopMargin").fill("1.5");
        await field(page, "PopupUnits").selectOption({ label: "cm" });
        await holds(page, "EditTopMargin", "3.81");
        await page.click("#toGallery");
        await page.click("[data-kind=polar]");
        await page.locator("#title", { hasText: "Polar" }).waitFor();
        assert.ok(await page.locator("#undo").isDisabled() && await page.locator("#redo").isDisabled());
        await field(page, "EditTopMargin").fill("2");
        await choose(page, "reset");
        await holds(page, "EditTopMargin", "0.5");
        assert.equal(await page.locator("#undo").getAttribute("title"), "Undo: Reset");
        await page.keyboard.press("Control+z");
        await holds(page, "EditTopMargin", "2");
        await page.keyboard.press("Control+Shift+z");
        await holds(page, "EditTopMargin", "0.5");
        await page.keyboard.press("Control+z");
        await page.keyboard.press("Control+z");
        await holds(page, "EditTopMargin", "0.5");
        assert.ok(await page.locator("#undo").isDisabled());
        await page.goBack(); // the gallery
        await page.goBack();
        await page.locator("#title", { hasText: "Grid" }).waitFor();
        assert.equal(await value(page, "PopupUnits"), begin); // a new form
        assert.ok(await page.locator("#undo").isDisabled() && await page.locator("#redo").isDisabled());
    }, { locale: "en-US" });
});

test("the page is shown at its true size, larger, smaller and as a whole", async () => {
    await visit("#grid&horizontal-spacing=1&vertical-spacing=1&line-color=%23000000", async (page) => {
        await painted(page);
        const percent = async () => parseInt(await page.locator("#zoomText").textContent(), 10);
        const whole = await percent();
        assert.ok(whole < 100 && await page.locator("#zoomFit").getAttribute("aria-pressed") === "true");
        await repaints(page, () => page.click("#zoomTrue"));
        assert.equal(await percent(), 100);
        const dark = (await columns(page, (red, green, blue) => red + green + blue < 500))
            .flatMap((count, x) => count > 300 ? [x] : []);
        const gaps = dark.slice(1).map((x, i) => x - dark[i]).filter((gap) => gap > 3);
        assert.ok(gaps.length >= 3 && gaps.every((gap) => Math.abs(gap - 96) <= 1), `lines are ${gaps} pixels apart`);
        await repaints(page, () => page.click("#zoomIn"));
        assert.equal(await percent(), 125);
        await repaints(page, () => page.click("#zoomOut"));
        assert.equal(await percent(), 100);
        await page.focus("#pane");
        await repaints(page, () => page.keyboard.press("+"));
        assert.equal(await percent(), 125);
        const box = await page.locator("#pane").boundingBox();
        await page.mouse.move(box.x + 200, box.y + 200);
        await page.keyboard.down("Control");
        await repaints(page, () => page.mouse.wheel(0, -5000));
        await page.keyboard.up("Control");
        assert.equal(await percent(), 1200); // the largest
        await repaints(page, () => page.keyboard.press("0"));
        assert.equal(await percent(), whole);
    }, { locale: "en-US" });
});

test("the field with the focus lights its strokes and no others", async () => {
    await visit("#grid", async (page) => {
        await painted(page);
        const lit = () => columns(page, (red, green, blue) => red > 225 && green > 60 && green < 130 && blue < 60);
        const total = (counts) => counts.reduce((sum, count) => sum + count, 0);
        const focus = async (name) => {
            await repaints(page, () => field(page, name).focus());
            return lit();
        };
        assert.equal(total(await lit()), 0);
        const tallest = (counts) => Math.max(...counts);
        const upright = await focus("EditVertSpacing"), level = await focus("EditHorzSpacing");
        assert.ok(total(upright) > 1000 && total(level) > 1000, "nothing is lit");
        // One of them lights whole columns, the other one rows, which cross every column a few times.
        assert.ok(Math.abs(tallest(upright) - tallest(level)) > 200, `${tallest(upright)}, ${tallest(level)}`);
        await repaints(page, () => field(page, "PopupPaperSize").focus());
        assert.equal(total(await lit()), 0);
    });
});

test("the keyboard alone leads from the gallery to the file", async () => {
    await visit("", async (page) => {
        const tabTo = async (id) => {
            for (let i = 0; i < 80 && await page.evaluate(() => document.activeElement.id) !== id; ++i) {
                await page.keyboard.press("Tab");
            }
            assert.equal(await page.evaluate(() => document.activeElement.id), id);
        };
        await tabTo("search");
        await page.keyboard.type("hexagon");
        await page.keyboard.press("Enter");
        await page.locator("#title", { hasText: "Hexagon" }).waitFor();
        assert.notEqual(await page.evaluate(() => document.activeElement.tagName), "BODY"); // the focus is not lost
        await tabTo("control-EditTopMargin");
        await page.keyboard.press("ArrowUp");
        await page.waitForFunction(() => document.getElementById("control-EditTopMargin").value !== "0.5");
        await page.keyboard.press("Control+a");
        await page.keyboard.type("1.25");
        const { name, bytes } = await downloaded(page, () => page.keyboard.press("Control+Enter"));
        assert.match(name, /\.pdf$/);
        assert.ok(bytes.toString("latin1").startsWith("%PDF-1.4"));
        await tabTo("generate");
        await downloaded(page, () => page.keyboard.press("Enter"));
        await downloaded(page, () => page.keyboard.press("Control+s"));
        await page.keyboard.press("Shift+Tab");
        await page.keyboard.press("Enter"); // Print
        await page.locator("#dialog[open]").waitFor();
        await page.keyboard.press("Escape");
        assert.equal(await page.evaluate(() => document.activeElement.id), "print");
    }, { locale: "en-US" });
});

test("Return accepts a dialog and Escape leaves the form as it is", async () => {
    await visit("#graph", async (page) => {
        await painted(page);
        await page.click("#range");
        await page.fill("#dialog-EditMinX", "0");
        await page.fill("#dialog-EditMaxX", "1200");
        await page.keyboard.press("Escape");
        assert.ok(await page.locator("#undo").isDisabled());
        await page.click("#range");
        await page.fill("#dialog-EditMinX", "0");
        await page.fill("#dialog-EditMaxX", "1200");
        await page.locator("#dialogAccept:not([disabled])").waitFor();
        await page.keyboard.press("Enter");
        await page.waitForFunction(() => document.getElementById("undo").title === "Undo: From Data Range");
    });
});

test("of a page that is too large the beginning is shown, in words; the next page works", async () => {
    const core = await loadCore();
    await visit("#dots&paper-size=A0&horizontal-spacing=0.01&vertical-spacing=0.01", async (page) => {
        await page.locator("#status", { hasText: "only its beginning is shown" }).waitFor({ timeout: 60000 });
        await choose(page, "savePng");
        await says(page, "No picture is made: The page is very large");
        await field(page, "EditVertSpacing").fill("2");
        await field(page, "EditHorzSpacing").fill("2");
        await repaints(page, () => field(page, "EditHorzSpacing").press("Enter"));
        await page.locator("#slow[hidden]").waitFor({ state: "attached", timeout: 60000 });
        await page.clock.setFixedTime(Date.UTC(now[0], now[1] - 1, ...now.slice(2, 6)));
        const { bytes } = await downloaded(page, () => page.click("#generate"));
        core.ask({ do: "open", link: "dots&paper-size=A0&horizontal-spacing=2&vertical-spacing=2", now });
        assert.ok(bytes.equals(Buffer.from(core.ask({ do: "write", format: "pdf", now }).bytes)));
        await page.click("#undo");
        await holds(page, "EditHorzSpacing", "0.01");
    }, { timezoneId: "UTC" });
});

test("margins and titles follow the pointer in steps of the unit; a drag is one step, and Escape takes it back", async () => {
    await visit("#graph&units=cm&paper-size=A4", async (page) => {
        await painted(page);
        const pane = await page.locator("#pane").boundingBox();
        const cursor = () => page.locator("#pane").evaluate(({ style }) => style.cursor);
        const find = async (wanted, from, to) => { // the first place between two with that cursor
            for (let i = 0; i <= 200; ++i) {
                const [x, y] = [0, 1].map((axis) => from[axis] + ((to[axis] - from[axis]) * i) / 200);
                await page.mouse.move(x, y);
                if (await cursor() === wanted) {
                    return [x, y];
                }
            }
            assert.fail(`nothing can be dragged with ${wanted}`);
        };
        const middle = [pane.x + pane.width / 2, pane.y + pane.height / 2];
        const perCentimeter = (await page.evaluate(() => parseInt(document.getElementById("zoomText").textContent, 10))) / 100 * 96 / 2.54;
        const drag = async ([x, y], right, down, end = () => page.mouse.up()) => {
            await page.mouse.move(x, y);
            await page.mouse.down();
            await page.mouse.move(x + right / 2, y + down / 2);
            await repaints(page, () => page.mouse.move(x + right, y + down));
            await end();
        };
        const edge = await find("ew-resize", [pane.x + 25, middle[1]], middle);
        const begin = Number(await value(page, "EditLeftMargin"));
        await repaints(page, () => drag(edge, 1 * perCentimeter, 0));
        const moved = Number(await value(page, "EditLeftMargin"));
        assert.ok(Math.abs(moved - begin - 1) <= 0.1 && Math.abs(moved * 20 - Math.round(moved * 20)) < 1e-9, `${begin} to ${moved}`);
        assert.match(await page.locator("#undo").getAttribute("title"), /^Undo: Left margin .* → /);
        await page.click("#undo");
        await holds(page, "EditLeftMargin", String(begin));
        assert.ok(await page.locator("#undo").isDisabled());
        await drag(edge, 2 * perCentimeter, 0, () => page.keyboard.press("Escape"));
        await holds(page, "EditLeftMargin", String(begin));
        await page.mouse.up();
        assert.ok(await page.locator("#undo").isDisabled());
        const title = await find("move", [middle[0] - 60, pane.y + 40], [middle[0] - 60, middle[1]]);
        await repaints(page, () => drag(title, perCentimeter, 0));
        assert.match(await page.locator("#undo").getAttribute("title"), /^Undo: Page title moved/);
    });
});
