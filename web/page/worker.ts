// The worker has the core and the canvas. Requests are answered in order; the page is drawn when none waits, so only the
// newest form is drawn.

import { Core } from "./core.ts";
import type { Bytes } from "./core.ts";
import type { Handles } from "./drag.ts";
import { type Language, speak, spoken, tr } from "./language.ts";
import { type DisplayList, paintRulers, paintScene, type Scene } from "./painter.ts";
import type { Catalog, Drawn, FromWorker, Request, ToWorker, View, Warning } from "./words.ts";

const rounding = 1e-6; // pixels that a size of whole pixels may come out larger by

let core: Core | null = null;
let context: OffscreenCanvasRenderingContext2D | null = null;
let view: View | null = null;
let scene: Scene | null = null;
let page: Drawn | null = null;
let newest = 0; // the last request that the scene follows
let lit = "";
let isStale = false; // the form is newer than the scene
let isUnpainted = false; // the view or the lights are newer than the canvas
let areUnlit = false;
let areUnchecked = false;
let isWaiting = false;

const waiting: Extract<ToWorker, { type: "ask" }>[] = []; // until the core is loaded
const turn = new MessageChannel(); // its messages come after those that wait already

function say(message: FromWorker, transfer: Transferable[] = []): void {
    (self as unknown as { postMessage(message: FromWorker, transfer: Transferable[]): void }).postMessage(message, transfer);
}

function later(): void {
    if (!isWaiting) {
        isWaiting = true;
        turn.port2.postMessage(null);
    }
}

function listOf(answer: { json: { texts: string[] }; bytes: Bytes }): DisplayList {
    return { numbers: new Float32Array(answer.bytes.buffer), texts: answer.json.texts };
}

function draw(loaded: Core): void {
    const begin = performance.now();
    const answer = loaded.ask<Drawn & { texts: string[]; error?: string }>({ do: "draw" });
    if (answer.json.error !== undefined) {
        return; // no paper is open yet
    }
    const fonts = scene?.fonts ?? loaded.ask<Catalog>({ do: "catalog" }).json.fonts;
    page = { ...answer.json };
    scene = { sheet: page, page: listOf(answer), lights: null, fonts };
    areUnlit = lit !== "";
    areUnchecked = isUnpainted = true;
    say({ type: "drawn", page, milliseconds: performance.now() - begin, memory: loaded.memory });
}

function light(loaded: Core, shown: Scene): void {
    areUnlit = false;
    isUnpainted = true;
    shown.lights = lit === "" ? null : listOf(loaded.ask<{ texts: string[] }>({ do: "lights", control: lit }));
}

function paint(): void {
    if (!context || !view || !scene || !page) {
        return;
    }
    isUnpainted = false;
    const { canvas } = context;
    const width = Math.max(1, Math.round(view.width * view.ratio)), height = Math.max(1, Math.round(view.height * view.ratio));
    if (canvas.width !== width || canvas.height !== height) {
        canvas.width = width;
        canvas.height = height;
    }
    paintScene(context, scene, view);
    if (view.rulers) {
        paintRulers(context, view, page.isInInches);
    }
    say({ type: "painted", newest });
}

/** Does the most urgent thing, then lets messages come in. */
function work(): void {
    isWaiting = false;
    if (!core) {
        return;
    }
    if (isStale) {
        isStale = false;
        draw(core);
    } else if (areUnlit && scene) {
        light(core, scene);
    } else if (isUnpainted) {
        paint();
    } else if (areUnchecked) {
        areUnchecked = false;
        say({ type: "warnings", ...core.ask<{ warnings: Warning[]; handles: Handles }>({ do: "check" }).json });
    }
    if (isStale || (scene && (areUnlit || (isUnpainted && context && view) || areUnchecked))) {
        later();
    }
}

function answer(id: number, request: Request, bytes: Bytes | undefined, draws: boolean): void {
    const { json, bytes: made } = core!.ask<{ error?: string }>(request, bytes);
    say({ type: "answer", id, json, bytes: made }, [made.buffer]);
    if (json.error === undefined && draws) {
        newest = id;
        isStale = true;
        later();
    }
}

/** Paints the page at a resolution of its own and returns it as PNG. */
async function paintPicture(id: number, dotsPerInch: number): Promise<void> {
    if (isStale) {
        isStale = false;
        draw(core!);
    }
    const refuse = (error: string) => say({ type: "answer", id, json: { error }, bytes: new Uint8Array() });
    const { sheet } = scene!;
    if (page!.problem !== "") {
        refuse(tr("No picture is made: %1", page!.problem)); // it would lack strokes
        return;
    }
    const pixels = (points: number) => Math.ceil((points / 72) * dotsPerInch - rounding);
    const canvas = new OffscreenCanvas(pixels(sheet.width), pixels(sheet.height));
    const into = canvas.getContext("2d");
    if (!into) {
        refuse(tr("The picture is too large for this browser"));
        return;
    }
    paintScene(into, { ...scene!, lights: null },
        { width: canvas.width, height: canvas.height, ratio: 1, scale: dotsPerInch / 72, x: 0, y: 0, rulers: false, isDark: false });
    const blob = await canvas.convertToBlob({ type: "image/png" });
    const { bytes } = core!.ask({ do: "dress", dotsPerInch }, new Uint8Array(await blob.arrayBuffer()));
    say({ type: "answer", id, json: {}, bytes }, [bytes.buffer]);
}

/** Tells the core the language of the page. */
function tell(loaded: Core): void {
    const { texts, plurals, decimalMark } = spoken();
    loaded.ask({ do: "language", texts, plurals, decimalMark });
}

function change(language: Language): void {
    speak(language);
    if (core) {
        tell(core);
        areUnchecked = isUnpainted = true; // warnings and rulers in other words
    }
}

async function start(module: WebAssembly.Module | Bytes): Promise<void> {
    core = await Core.load(module instanceof WebAssembly.Module ? module : await WebAssembly.compile(module));
    tell(core);
    for (const { id, request, bytes, draws } of waiting.splice(0)) {
        answer(id, request, bytes, draws);
    }
}

function fail(why: unknown): void {
    say({ type: "failed", why: why instanceof Error ? why.message : String(why) });
}

function take(message: ToWorker): void {
    switch (message.type) {
        case "start":
            start(message.module).catch(fail);
            break;
        case "canvas":
            context = message.canvas.getContext("2d");
            isUnpainted = true;
            break;
        case "ask":
            if (core) {
                answer(message.id, message.request, message.bytes, message.draws);
            } else {
                waiting.push(message);
            }
            break;
        case "view":
            view = message.view;
            isUnpainted = true;
            break;
        case "light":
            areUnlit = lit !== message.control;
            lit = message.control;
            break;
        case "language":
            change(message.language);
            break;
        case "picture":
            paintPicture(message.id, message.dotsPerInch).catch(fail);
            break;
    }
    later();
}

turn.port1.onmessage = () => {
    try {
        work();
    } catch (why) {
        fail(why);
    }
};
self.onmessage = ({ data }: MessageEvent<ToWorker>) => {
    try {
        take(data);
    } catch (why) {
        fail(why);
    }
};
