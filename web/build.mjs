// Writes the page for browsers: a folder of static files, and one HTML file that opens from disk.
//
//   node build.mjs CORE.wasm FOLDER

import { createHash } from "node:crypto";
import { copyFile, mkdir, readFile, readdir, rm, writeFile } from "node:fs/promises";
import { basename, dirname, join } from "node:path";
import { fileURLToPath } from "node:url";
import { build } from "esbuild";
import { po } from "gettext-parser";

const here = dirname(fileURLToPath(import.meta.url));
const [corePath, folder] = process.argv.slice(2);
if (!corePath || !folder) {
    console.error("usage: node build.mjs CORE.wasm FOLDER");
    process.exit(2);
}

/** Bundles a script of the page. */
async function bundle(name, builtIn) {
    const result = await build({
        entryPoints: [join(here, "page", `${name}.ts`)],
        bundle: true,
        minify: true,
        write: false,
        format: "iife",
        target: "es2022",
        define: { builtIn: JSON.stringify(builtIn) },
    });
    return result.outputFiles[0].text;
}

/** Asks the core for its catalog, so that the gallery needs no core. */
async function catalogOf(core) {
    const { outputFiles } = await build({ entryPoints: [join(here, "page/core.ts")], bundle: true, write: false, format: "esm" });
    const { Core } = await import(`data:text/javascript;base64,${Buffer.from(outputFiles[0].text).toString("base64")}`);
    return (await Core.load(await WebAssembly.compile(core))).ask({ do: "catalog" }).json;
}

/** Reads a catalog of gettext: the name of its language, and what page/language.ts takes. */
function languageOf(catalog) {
    const { headers, translations } = po.parse(catalog);
    const formOf = new Function("n", `return Number(${headers["Plural-Forms"].match(/plural=([^;]+)/)[1]})`);
    const texts = {};
    for (const { msgid, msgid_plural: many, msgstr } of Object.values(translations[""])) {
        if (msgid !== "") {
            texts[msgid] = many ? msgstr : msgstr[0];
        }
    }
    return { name: texts.English, texts: { plurals: Array.from({ length: 200 }, (_, count) => formOf(count)).join(""), texts } };
}

const resources = join(here, "../resources");
const pictures = (await readdir(join(resources, "gallery"))).filter((name) => name.endsWith("@2x.png"));
const icons = ["linealis-64.png", "linealis-128.png", "linealis-256.png", "linealis.svg"];
const core = await readFile(corePath);
const catalog = await catalogOf(core);
for (const kind of catalog.kinds) {
    kind.picture = pictures.find((name) => name.toLowerCase() === `${basename(kind.picture, ".png")}@2x.png`.toLowerCase());
}

const translations = join(here, "../translations");
const texts = {};
const languages = [{ code: "en", name: "English" }];
for (const file of (await readdir(translations)).sort()) {
    const code = basename(file, ".po");
    const language = languageOf(await readFile(join(translations, file)));
    texts[code] = language.texts;
    languages.push({ code, name: language.name });
}
languages.sort((a, b) => a.name.localeCompare(b.name, "en"));

// The folder.
await rm(folder, { recursive: true, force: true });
await mkdir(folder, { recursive: true });
const write = (name, content) => writeFile(join(folder, name), content);
const worker = await bundle("worker", null);
const style = await readFile(join(here, "static/page.css"), "utf8");
const html = await readFile(join(here, "static/index.html"), "utf8");
await write("core.wasm", core);
await write("worker.js", worker);
await write("page.js", await bundle("app", { catalog, languages, inlined: null }));
await write("page.css", style);
await write("index.html", html);
for (const [code, of] of Object.entries(texts)) {
    await write(`${code}.json`, JSON.stringify(of));
}
await copyFile(join(here, "static/manifest.webmanifest"), join(folder, "manifest.webmanifest"));
for (const picture of pictures) {
    await copyFile(join(resources, "gallery", picture), join(folder, picture));
}
for (const icon of icons) {
    await copyFile(join(resources, "icons", icon), join(folder, icon));
}
const files = (await readdir(folder)).sort();
const hash = createHash("sha256");
for (const file of files) {
    hash.update(await readFile(join(folder, file)));
}
await write("service.js", await bundle("service", {
    files: ["./", ...files.filter((file) => !file.endsWith(".json"))], version: hash.digest("hex").slice(0, 12),
}));

// The single file. Its scripts are part of it, so it has no policy against inline scripts.
const urlOf = async (path) => `data:image/png;base64,${(await readFile(path)).toString("base64")}`;
const inlinedPictures = Object.fromEntries(await Promise.all(
    pictures.map(async (name) => [name, await urlOf(join(resources, "gallery", name))])));
const script = await bundle("app", {
    catalog, languages, inlined: { worker, core: core.toString("base64"), pictures: inlinedPictures, texts },
});
const inlined = html
    .replace(/<meta http-equiv="Content-Security-Policy"[^>]*>\n/, "")
    .replace(/<link rel="(manifest|preload)"[^>]*>\n/g, "")
    .replace(/<link rel="icon"[^>]*>/, `<link rel="icon" href="${await urlOf(join(resources, "icons/linealis-64.png"))}">`)
    .replace(/<link rel="stylesheet"[^>]*>/, () => `<style>\n${style}</style>`)
    .replace(/<script src="page.js" defer><\/script>\n/, "")
    .replace("</body>", () => `<script>${script.replaceAll("</script", "<\\/script")}</script>\n</body>`);
await writeFile(join(dirname(folder), "linealis.html"), inlined);
console.log(`${folder}: ${files.length + 1} files`);
