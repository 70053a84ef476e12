// Pads of many pages.

import assert from "node:assert/strict";
import { execFile } from "node:child_process";
import { readFile, writeFile } from "node:fs/promises";
import { join } from "node:path";
import test from "node:test";
import { promisify } from "node:util";
import { choose, downloaded, folder, painted, visit } from "./page.mjs";
import { cli, epoch, loadCore, now } from "./support.mjs";

const run = (program, ...parameters) => promisify(execFile)(program, parameters, {
    env: { ...process.env, SOURCE_DATE_EPOCH: epoch, TZ: "UTC" }, encoding: "buffer", maxBuffer: 1 << 28,
});

/** Returns what a PDF file shows, as one gray picture after the other. */
async function shown(name, bytes) {
    const file = join(folder, name);
    await writeFile(file, bytes);
    return (await run("mutool", "draw", "-q", "-r", "40", "-c", "gray", "-F", "pgm", "-o", "-", file)).stdout;
}

test("a pad shows what linealis-cli pad shows, and has the content of its pages once", async () => {
    const core = await loadCore();
    const cases = [
        [{ kind: "hexagon" }, { pages: 3, up: 1, copies: 2 }, []],
        [{ kind: "grid" }, { pages: 5, up: 2, hasNumbers: true, back: { kind: "dots" } }, ["--back", "dots"]],
        [{ link: "cornell&paper-size=A5&orientation=Landscape" }, { pages: 9, up: 4, back: { isSame: true } },
            ["--back", "same", "--set", "paper-size=A5", "--set", "orientation=Landscape"]],
        [{ kind: "lined" }, { pages: 2, up: 1, hasNumbers: true, back: { preset: "squares-5mm" } }, ["--back", "squares-5mm"]],
    ];
    for (const [opened, pad, more] of cases) {
        const { kind } = core.ask({ do: "open", now, ...opened }).json;
        const single = Buffer.from(core.ask({ do: "write", format: "pdf", now }).bytes);
        const made = core.ask({ do: "pad", now, ...pad });
        assert.equal(made.json.error, undefined, kind);
        const file = join(folder, `${kind}.pdf`), wanted = join(folder, `${kind}-wanted.pdf`);
        await writeFile(file, made.bytes);
        await run("qpdf", "--check", file); // fails if it finds anything
        const form = join(folder, `${kind}.json`);
        await writeFile(form, core.ask({ do: "json" }).bytes);
        await run(cli, "pad", "--form", form, "-o", wanted, "--pages", String(pad.pages), "--up", String(pad.up),
            "--copies", String(pad.copies ?? 1), ...(pad.hasNumbers ? ["--numbers"] : []),
            ...more.map((word) => word === "same" ? form : word));
        for (const words of ["Pages", "Page size"]) {
            const of = async (path) => (await run("pdfinfo", path)).stdout.toString().split("\n").find((line) => line.startsWith(`${words}:`));
            assert.equal(await of(file), await of(wanted), kind);
        }
        assert.ok((await shown("made.pdf", made.bytes)).equals(await shown("wanted.pdf", await readFile(wanted))), `${kind} looks different`);
        assert.match((await run("mutool", "show", file, "trailer/Root/ViewerPreferences/PrintScaling")).stdout.toString(), /None/);
        core.ask({ do: "open", now, file: "pad.pdf" }, made.bytes);
        assert.ok(Buffer.from(core.ask({ do: "write", format: "pdf", now }).bytes).equals(single), `${kind}: another form came back`);
        assert.ok(made.bytes.length < 2 * single.length + 12000, `${kind}: ${made.bytes.length} bytes`);
    }
});

test("the dialog makes a pad, with possible numbers, and refuses a back of another size", async () => {
    await visit("#grid&paper-size=A4&units=cm", async (page) => {
        await painted(page);
        await choose(page, "pad");
        await page.fill("#padPages", "99999");
        await page.locator("#padUp").selectOption("2");
        await page.locator("#dialogBody", { hasText: "5000 sheets" }).waitFor();
        assert.equal(await page.inputValue("#padPages"), "10000");
        await page.fill("#padPages", "5");
        await page.check("#padNumbers");
        const [chooser] = await Promise.all([page.waitForEvent("filechooser"), page.locator("#padBack").selectOption("file")]);
        const form = { kind: "dots", controls: { PopupPaperSize: "A5" } };
        await chooser.setFiles({ name: "small.json", mimeType: "", buffer: Buffer.from(JSON.stringify(form)) });
        await page.locator("#dialog .problem", { hasText: "small.json cannot be the back" }).waitFor();
        assert.ok(await page.locator("#dialogAccept").isDisabled());
        await page.locator("#padBack").selectOption("dots");
        await page.locator("#dialogBody", { hasText: "3 sheets of 420 × 297 mm, printed on both sides" }).waitFor();
        const { name, bytes } = await downloaded(page, () => page.click("#dialogAccept"));
        assert.equal(name, "Grid pad.pdf");
        const file = join(folder, name);
        await writeFile(file, bytes);
        assert.match((await run("pdfinfo", file)).stdout.toString(), /Pages: +6\n/);
        assert.match((await run("pdftotext", file, "-")).stdout.toString(), /1\s+4\s+2\s+5\s+3/);
    });
});
