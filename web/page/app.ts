// The page: gallery and paper, the address, files that are opened, and what the worker says.

import { Client, Refusal, type Sources } from "./client.ts";
import type { Bytes } from "./core.ts";
import { byId, setText } from "./dom.ts";
import { choose, read, takeDropped, type Chosen } from "./files.ts";
import { Gallery, isMetric } from "./gallery.ts";
import { label, languageBox } from "./labels.ts";
import { codeFor, english, languageOf, numeral, speak, spoken, type Texts, tr } from "./language.ts";
import { LivePage } from "./livepage.ts";
import { PaperView } from "./paper.ts";
import { allKept, keepLanguage, keptLanguage, type Kept } from "./store.ts";
import type { Catalog, Request } from "./words.ts";

/** What the build puts into the page. `inlined` is null in a folder of files, and has everything in a single file. */
declare const builtIn: {
    catalog: Catalog;
    languages: { code: string; name: string }[];
    inlined: { worker: string; core: string; pictures: Record<string, string>; texts: Record<string, Texts> } | null;
};

function bytesOf(base64: string): Bytes {
    return Uint8Array.from(atob(base64), (character) => character.charCodeAt(0));
}

function sources(): Sources {
    const { inlined } = builtIn;
    if (inlined) {
        return {
            workerUrl: URL.createObjectURL(new Blob([inlined.worker], { type: "text/javascript" })),
            module: Promise.resolve(bytesOf(inlined.core)),
        };
    }
    return { workerUrl: "worker.js", module: compiled() };
}

/** Hosts that name another type than application/wasm keep a browser from compiling while the file arrives. */
async function compiled(): Promise<WebAssembly.Module> {
    const response = await fetch("core.wasm");
    if (!response.ok) {
        throw new Error(`core.wasm: ${response.status} ${response.statusText}`);
    }
    return response.headers.get("Content-Type") === "application/wasm"
        ? WebAssembly.compileStreaming(response)
        : WebAssembly.compile(await response.arrayBuffer());
}

let latestAddress: string | null = null; // what the page shows, as the part of the address after "#"

const live = new LivePage(
    (view) => client.setView(view),
    (x, y, reach) => {
        client.ask<{ control: string }>({ do: "hit", x, y, reach }).then(({ json }) => {
            if (json.control !== "") {
                paper.focus(json.control);
            }
        }, () => {});
    },
    (percent, isFit) => {
        setText(byId("zoomText"), tr("%1 %", numeral(percent)));
        byId("zoomFit").setAttribute("aria-pressed", String(isFit));
    },
    {
        onBegin: (handle) => {
            paper.finish();
            tell({ do: "dragBegin", ...handle });
        },
        onMove: (x, y, isFine) => tell({ do: "drag", x, y, isFine }),
        onEnd: (isCanceled) => tell({ do: "dragEnd", isCanceled }),
    },
);

/** Tells the core, which answers with a new state of the form. */
function tell(request: Request): void {
    client.ask(request).catch((why: Error) => paper.say(why.message));
}

const client = new Client(sources(), {
    onState: (state) => paper.update(state),
    onDrawn: (page, milliseconds) => {
        live.show(page);
        byId("pane").dataset["drawn"] = String(Math.round(milliseconds));
        if (page.problem !== "") {
            paper.say(page.problem);
        }
    },
    onPainted: () => {
        const { dataset } = byId("pane");
        dataset["painted"] = String(Number(dataset["painted"] ?? 0) + 1);
        performance.mark("painted");
    },
    onWarnings: (warnings, handles) => {
        paper.showWarnings(warnings);
        live.showHandles(handles);
    },
    onFailed: (why) => paper.say(tr("The page could not be drawn: %1", why)),
    onSlow: (isSlow) => void (byId("slow").hidden = !isSlow),
    newCanvas: () => live.newCanvas(),
});

const paper: PaperView = new PaperView(client, builtIn.catalog, newLanguageBox);

const gallery = new Gallery(builtIn.catalog, (name) => builtIn.inlined?.pictures[name] ?? name, {
    onKind: (kind) => void openKind(kind.name),
    onPreset: (preset) => void open({ preset: preset.id }, undefined, "", preset.kind),
    onOwn: (own) => void openKept(own),
});

function show(view: "gallery" | "paper"): void {
    byId("gallery").hidden = view !== "gallery";
    byId("paper").hidden = view !== "paper";
    if (view === "gallery") {
        document.title = "Linealis";
        void allKept().then((kept) => gallery.setOwn(kept));
    } else {
        live.sendNow();
    }
}

function say(text: string): void {
    setText(byId("galleryStatus"), text);
    paper.say(text);
}

/** Opens a paper and shows it. Says in the gallery or the paper why it could not be opened. */
async function open(request: Omit<Request, "do">, bytes: Bytes | undefined, fileName: string, kind?: string): Promise<boolean> {
    try {
        const opening = client.open(request, bytes);
        const isFromGallery = !byId("gallery").hidden;
        show("paper");
        const { json } = await opening;
        paper.show(json, fileName);
        if (isFromGallery) {
            byId("formSide").focus(); // what had the focus is hidden
        }
        setAddress(kind ?? json.kind);
        return true;
    } catch (why) {
        if (!(why instanceof Refusal)) {
            throw why;
        }
        if (paper.kind === "") {
            show("gallery");
        }
        say(why.message);
        return false;
    }
}

/** Opens a new form, which begins with the default that the user has kept. */
async function openKind(kind: string): Promise<void> {
    const kept = (await allKept()).find(({ sort, kind: of }) => sort === "default" && of === kind);
    if (!kept || !(await open({ file: `default.${kept.extension}` }, kept.bytes, ""))) {
        await open({ kind, isMetric: isMetric() }, undefined, "");
    }
}

async function openKept(kept: Kept): Promise<void> {
    await open({ file: `${kept.name}.${kept.extension}` }, kept.bytes, kept.name);
}

async function openFile({ name, bytes }: Chosen): Promise<void> {
    const isText = /\.(txt|csv|tsv)$/i.test(name);
    if (isText && paper.isOpen && builtIn.catalog.kinds.some(({ name: kind, hasMarkers }) => hasMarkers && kind === paper.kind)) {
        paper.useMarkers({ name, bytes });
    } else {
        await open({ file: name }, bytes, name);
    }
}

function setAddress(address: string): void {
    if (latestAddress === null || latestAddress.split("&")[0] === address) {
        history.replaceState(null, "", latestAddress === null ? `#${address}` : location.hash);
        latestAddress ??= address;
    } else {
        history.pushState(null, "", `#${address}`);
        latestAddress = address;
    }
}

/** Shows what the address says: the gallery, or the form of a link. */
async function follow(): Promise<void> {
    const link = location.hash.slice(1);
    latestAddress = link;
    if (link === "") {
        show("gallery");
    } else if (builtIn.catalog.kinds.some(({ name }) => name === link)) {
        await openKind(link);
    } else {
        await open({ link }, undefined, "");
    }
}

async function textsOf(code: string): Promise<Texts> {
    const inlined = builtIn.inlined?.texts[code];
    return code === "en" ? english : inlined ?? await (await fetch(`${code}.json`)).json() as Texts;
}

let chosenLanguage = ""; // code; empty for that of the browser

/** Shows everything in a language, given by code, or in the one that the browser prefers. */
async function useLanguage(chosen: string): Promise<void> {
    chosenLanguage = chosen;
    const wanted = navigator.languages;
    const code = codeFor(chosen === "" ? wanted : [chosen], builtIn.languages.map((one) => one.code));
    const texts = await textsOf(code).catch(() => null);
    if (chosen !== chosenLanguage) {
        return; // another one has been chosen since
    }
    if (texts) {
        speak(languageOf(code, texts, wanted));
        client.speak(spoken());
    }
    label();
    const place = byId("galleryLanguage"), box = newLanguageBox();
    const hasFocus = place.contains(document.activeElement);
    place.replaceChildren(box);
    if (hasFocus) {
        box.focus();
    }
    gallery.fill();
    await paper.translate();
    if (!texts) {
        say(tr("The texts of this language could not be loaded"));
    }
}

function newLanguageBox(): HTMLElement {
    return languageBox(builtIn.languages, chosenLanguage, (code) => {
        void useLanguage(code)
            .then(() => keepLanguage(code))
            .catch(() => say(tr("The browser does not let this page keep anything")));
    });
}

function listen(): void {
    byId("toGallery").addEventListener("click", () => {
        paper.finish();
        latestAddress = "";
        history.pushState(null, "", location.href.split("#")[0]);
        show("gallery");
        byId("search").focus();
    });
    byId("openFromGallery").addEventListener("click", () => {
        const types = builtIn.catalog.kinds.map(({ extension }) => `.${extension}`);
        void choose([...types, ".json", ".svg", ".png", ".pdf"].join()).then(openFile);
    });
    takeDropped((file) => void ready.then(() => read(file)).then(openFile));
    byId("zoomIn").addEventListener("click", () => live.zoomBy(1.25));
    byId("zoomOut").addEventListener("click", () => live.zoomBy(0.8));
    byId("zoomFit").addEventListener("click", () => live.zoomTo(0));
    byId("zoomTrue").addEventListener("click", () => live.zoomToTrueSize());
    byId("stop").addEventListener("click", () => {
        client.stop();
        paper.say(tr("Stopped. The page will be drawn after the next change"));
    });
    for (const [id, isPage] of [["showForm", false], ["showPage", true]] as const) {
        byId(id).addEventListener("click", () => {
            document.body.classList.toggle("showsPage", isPage);
            byId("showForm").setAttribute("aria-pressed", String(!isPage));
            byId("showPage").setAttribute("aria-pressed", String(isPage));
            live.sendNow();
        });
    }
    window.addEventListener("popstate", () => void follow());
}

const ready = keptLanguage().then(useLanguage).then(follow); // what the address says is shown
listen();
if (builtIn.inlined === null && "serviceWorker" in navigator) {
    // The texts of the language may have been fetched before anything kept them.
    navigator.serviceWorker.addEventListener("controllerchange", () => void textsOf(spoken().code));
    navigator.serviceWorker.register("service.js").catch(() => {}); // works online only
}
