// What the page makes equals what linealis-cli makes, to the last byte.

import assert from "node:assert/strict";
import { execFile } from "node:child_process";
import { mkdir, mkdtemp, readFile, readdir, rm, writeFile } from "node:fs/promises";
import { tmpdir } from "node:os";
import { join } from "node:path";
import test, { after, before } from "node:test";
import { promisify } from "node:util";
import { cli, epoch, loadCore, now, randomFrom, root } from "./support.mjs";

const count = Number(process.env.LINEALIS_FORMS ?? 700);
const run = (...parameters) => promisify(execFile)(cli, parameters, {
    env: { ...process.env, SOURCE_DATE_EPOCH: epoch, TZ: "UTC" }, encoding: "buffer", maxBuffer: 1 << 26,
});
const same = (made, wanted, what) => assert.ok(Buffer.compare(Buffer.from(made), wanted) === 0, `${what} differs`);

let core;
let folder;

before(async () => {
    core = await loadCore();
    folder = await mkdtemp(join(tmpdir(), "linealis-web-"));
});
after(() => rm(folder, { recursive: true, force: true }));

/** Calls `work` for each item, a few at a time. */
async function each(items, work) {
    const left = [...items];
    await Promise.all(Array.from({ length: 4 }, async () => {
        for (let item = left.shift(); item !== undefined; item = left.shift()) {
            await work(item);
        }
    }));
}

const numbers = ["0", "1", "2", "5", "-1", ".25", "0.5", "1.27", "12", "20", "0.1", "3,5", "1e1", "abc", "", "5mm", "1/4in", "33.333"];
const proses = ["", "Plain", "(open", "back\\slash", "Größe – “é”", "x".repeat(300), "日本"];

/** Returns a form with random values in some of its controls. */
function randomForm(kind, random) {
    const pick = (list) => list[Math.floor(random() * list.length)];
    core.ask({ do: "open", kind, now });
    const whole = JSON.parse(new TextDecoder().decode(core.ask({ do: "json" }).bytes));
    const controls = {};
    for (const [name, { type, value, items }] of Object.entries(whole.controls)) {
        if (type === "label" || random() < 0.6) {
            continue;
        }
        const isNumber = /^[-.\d]*$/.test(String(value)) && value !== "";
        controls[name] = type === "text" ? pick(isNumber ? numbers : proses)
            : type === "check" ? random() < 0.5
            : type === "color" ? `#${Math.floor(random() * 0x1000000).toString(16).padStart(6, "0")}`
            : pick(items);
    }
    return { kind, controls };
}

test(`PDF, SVG, DXF, settings and JSON of ${count} random forms`, async () => {
    const random = randomFrom(7);
    const { kinds } = core.ask({ do: "catalog" }).json;
    const forms = join(folder, "forms");
    await Promise.all(["forms", "pdf", "svg", "dxf"].map((name) => mkdir(join(folder, name))));
    const made = new Map();
    let refused = 0;
    for (let i = 0; i < count; ++i) {
        const kind = kinds[i % kinds.length];
        const form = JSON.stringify(randomForm(kind.name, random));
        const name = `${String(i).padStart(5, "0")}-${kind.name}`;
        const opened = core.ask({ do: "open", file: `${name}.json`, now }, new TextEncoder().encode(form)).json;
        assert.equal(opened.error, undefined, form);
        const [json, settings] = ["json", "settings"].map((what) => core.ask({ do: what }).bytes);
        const [svg, dxf, pdf] = ["svg", "dxf", "pdf"].map((format) => core.ask({ do: "write", format, now }));
        if (pdf.json.error !== undefined) { // too heavy; the next form must work all the same
            ++refused;
            continue;
        }
        made.set(name, { json, settings, pdf: pdf.bytes, svg: svg.bytes, dxf: dxf.bytes, extension: kind.extension });
        await writeFile(join(forms, `${name}.json`), form);
    }
    assert.ok(refused < count / 50, `${refused} forms were refused`);
    const sources = (await readdir(forms)).sort().map((name) => join(forms, name));
    for (const format of ["pdf", "svg", "dxf"]) {
        await run("generate", ...sources, "--format", format, "--output-dir", join(folder, format), "-j", "2");
    }
    await each(made, async ([name, { json, settings, pdf, svg, dxf, extension }]) => {
        const source = join(forms, `${name}.json`);
        const saved = join(folder, `${name}.${extension}`);
        same(pdf, await readFile(join(folder, "pdf", `${name}.pdf`)), `the PDF of ${name}`);
        same(svg, await readFile(join(folder, "svg", `${name}.svg`)), `the SVG of ${name}`);
        same(dxf, await readFile(join(folder, "dxf", `${name}.dxf`)), `the DXF of ${name}`);
        same(json, (await run("form", source)).stdout, `the JSON of ${name}`);
        await run("save", source, "-o", saved);
        const bytes = await readFile(saved);
        same(settings, bytes, `the settings file of ${name}`);
        if (Number(name.slice(0, 5)) % 5 === 0) { // a process each takes the most time of this test
            core.ask({ do: "open", file: saved, now }, bytes);
            same(core.ask({ do: "json" }).bytes, (await run("form", saved)).stdout, `the opened settings file of ${name}`);
        }
    });
    console.log(`${made.size} forms: PDF, SVG, DXF, settings files and JSON are the same as linealis-cli's`);
});

test("a link holds every preset and every form in under 2 KB", () => {
    const random = randomFrom(8);
    const pageOf = () => Buffer.from(core.ask({ do: "write", format: "pdf", now }).bytes);
    const { presets, kinds } = core.ask({ do: "catalog" }).json;
    const sources = [...presets.map(({ id }) => ({ preset: id })), ...kinds.map(({ name }) => ({ kind: name }))];
    for (const source of sources) {
        core.ask({ do: "open", ...source, now });
        if (source.kind !== undefined) {
            const text = new TextEncoder().encode(JSON.stringify(randomForm(source.kind, random)));
            core.ask({ do: "open", file: "random.json", now }, text);
        }
        const { link } = core.ask({ do: "link" }).json;
        const page = pageOf();
        assert.ok(source.kind !== undefined || link.length < 2048, link);
        assert.equal(core.ask({ do: "open", link, now }).json.error, undefined, link);
        assert.ok(page.equals(pageOf()), link);
    }
});

test("hostile links and files are refused in words, and the paper that is open stays", () => {
    core.ask({ do: "open", kind: "grid", now });
    core.ask({ do: "set", control: "EditTopMargin", value: "1.5", finish: true });
    const refused = (request, bytes) => core.ask({ do: "open", now, ...request }, bytes && new TextEncoder().encode(bytes)).json.error;
    assert.match(refused({ link: "&a=b" }), /names no kind/);
    assert.match(refused({ link: "grid&top-margin=%G1" }), /damaged/);
    assert.match(refused({ link: "grid&top-margin" }), /has no value/);
    assert.match(refused({ link: `grid&title=${"x".repeat(40000)}` }), /longer than/);
    assert.match(refused({ link: "<b>x" }), /no kind of paper named '<b>x'/);
    assert.match(refused({ link: "grid&units=furlongs" }), /inches, cm/);
    assert.match(refused({ file: "a.json" }, "[".repeat(5000)), /more than 8 deep/);
    assert.match(refused({ file: "a.json" }, "{"), /not valid JSON/);
    assert.match(refused({ file: "a.svg" }, "<svg xmlns='http://www.w3.org/2000/svg'/>"), /carries no form/);
    assert.match(core.ask({ do: "nothing" }).json.error, /not possible/);
    assert.match(core.ask({ do: "set", control: 7 }).json.error, /type/);
    assert.equal(core.ask({ do: "link" }).json.link, "grid&top-margin=1.5");
});

test("damaged JSON forms open or are refused in words, and what opens can be drawn, written and read again", () => {
    const random = randomFrom(9);
    const below = (count) => Math.floor(random() * count);
    const stuff = ["{", "}", "[", "]", '"', ",", ":", "\\u0000", "\\ud800", "\0", "1e999", "-", "null", "true", "[[[[[[[[[", "ÿ", "\xff", '"kind":7,'];
    const odd = [null, [], {}, { value: {} }, { value: null }, 1e308, -0, 1e-320, true, "\u0000", "\ud800", "9".repeat(5000), "-.", "#-1", "1/0"];
    const { kinds } = core.ask({ do: "catalog" }).json;
    let opened = 0;
    for (let i = 0; i < 1000; ++i) {
        const { name } = kinds[i % kinds.length];
        const form = randomForm(name, random);
        if (i % 2 === 0) {
            const names = Object.keys(form.controls);
            form.controls[names[below(names.length)]] = odd[below(odd.length)];
        }
        let bytes = Buffer.from(JSON.stringify(form));
        if (i % 2 === 1) {
            const at = below(bytes.length);
            bytes = Buffer.concat([bytes.subarray(0, at), Buffer.from(stuff[below(stuff.length)], "latin1"),
                bytes.subarray(at + below(3))]);
        }
        core.ask({ do: "open", kind: "grid", now });
        const { error, kind } = core.ask({ do: "open", file: "damaged.json", now }, bytes).json;
        if (error !== undefined) {
            assert.ok(error.length > 0);
            assert.equal(core.ask({ do: "link" }).json.link, "grid");
            continue;
        }
        ++opened;
        const json = core.ask({ do: "json" }).bytes;
        assert.equal(core.ask({ do: "draw" }).json.error, undefined);
        assert.equal(core.ask({ do: "open", file: "again.json", now }, json).json.kind, kind);
        same(core.ask({ do: "json" }).bytes, Buffer.from(json), bytes.toString());
    }
    assert.ok(opened > 50 && opened < 950, `${opened} of 1000 opened`);
});

test("every file of the settings fuzzer's corpus opens or is refused", async () => {
    const { kinds } = core.ask({ do: "catalog" }).json;
    const corpus = join(root, "fuzz/corpus/Settings");
    for (const file of await readdir(corpus)) {
        const bytes = await readFile(join(corpus, file));
        for (const { extension } of kinds) {
            const { error, state } = core.ask({ do: "open", file: `x.${extension}`, now }, bytes).json;
            assert.ok(error !== undefined || state.summary.length > 0);
        }
    }
});

test("steps are undone and redone, entries are converted, and margins are linked", () => {
    core.ask({ do: "open", kind: "grid", now });
    const { value } = core.ask({ do: "set", control: "EditTopMargin", value: "5mm" }).json.state.controls.EditTopMargin;
    assert.equal(value, "5mm");
    const finished = core.ask({ do: "set", control: "EditTopMargin", finish: true }).json.state;
    assert.match(finished.controls.EditTopMargin.value, /^0\.19685/);
    assert.match(finished.undo, /^Top margin 0\.5 → 0\.19685/);
    core.ask({ do: "linkMargins", isOn: true });
    const linked = core.ask({ do: "set", control: "EditLeftMargin", value: "1", finish: true }).json.state.controls;
    assert.deepEqual(["Top", "Bottom", "Left", "Right"].map((side) => linked[`Edit${side}Margin`].value), ["1", "1", "1", "1"]);
    core.ask({ do: "undo" });
    const undone = core.ask({ do: "undo" }).json;
    assert.equal(undone.state.controls.EditTopMargin.value, "0.5");
    assert.equal(undone.state.undo, "");
    assert.match(core.ask({ do: "redo" }).json.state.controls.EditTopMargin.value, /^0\.19685/);
    const changed = core.ask({ do: "set", control: "EditTopMargin", value: "2", finish: true }).json.state;
    assert.equal(changed.redo, "");
});
