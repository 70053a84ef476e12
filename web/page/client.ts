// The page's side of the worker. It remembers what made the form, so that a new worker can take the place of one that
// works too long or has grown too large.

import type { Bytes } from "./core.ts";
import type { Handles } from "./drag.ts";
import { english, type Language, tr } from "./language.ts";
import type { Drawn, FromWorker, Paper, PaperState, Request, ToWorker, View, Warning } from "./words.ts";

export interface Answered<Json> {
    json: Json;
    bytes: Bytes;
}

/** Why the core did nothing, in words for the user. */
export class Refusal extends Error {}

/** What the client tells the page. */
export interface Listener {
    /** The form may have changed. Not called if a newer change is on its way. */
    onState(state: PaperState): void;
    onDrawn(page: Drawn, milliseconds: number): void;
    onPainted(): void;
    onWarnings(warnings: Warning[], handles: Handles): void;
    onFailed(why: string): void;
    /** The page is being drawn for so long that the user may want to stop it; or no longer. */
    onSlow(isSlow: boolean): void;
    /** Returns a new canvas for a new worker. */
    newCanvas(): HTMLCanvasElement;
}

export interface Sources {
    workerUrl: string;
    /** The module, or its bytes where a worker cannot receive a module. */
    module: Promise<WebAssembly.Module | Bytes>;
}

const changes = new Set(["open", "set", "layOver", "undo", "redo", "reset", "copyRow", "linkMargins", "markers",
    "acceptDialog", "setInDialog", "openDialog", "dragBegin", "drag", "dragEnd"]);
const drawing = new Set(["open", "set", "layOver", "undo", "redo", "reset", "copyRow", "markers", "acceptDialog",
    "drag", "dragEnd"]);
const millisecondsUntilSlow = 1000;
const mostMemory = 400 << 20; // bytes; a worker that has taken more is replaced before the next page

interface Entry {
    request: Request;
    bytes?: Bytes | undefined;
}

export class Client {
    private worker: Worker;
    private nextId = 1;
    private newestChange = 0;
    private readonly pending = new Map<number, { resolve(value: Answered<never>): void; reject(why: Error): void }>();
    private journal: Entry[] = [];
    private view: View | null = null;
    private lit = "";
    private language = english;
    private slowTimer = 0;
    private isHeavy = false; // the worker has grown too large

    constructor(private readonly sources: Sources, private readonly listener: Listener) {
        this.worker = this.start();
    }

    /** Asks the core. Rejects with a Refusal if it says why it cannot. */
    ask<Json>(request: Request, bytes?: Bytes): Promise<Answered<Json>> {
        const isChange = changes.has(request.do);
        const draws = drawing.has(request.do);
        if (draws && this.isHeavy && this.pending.size === 0) {
            this.restart();
        }
        const id = this.nextId++;
        if (isChange) {
            this.note({ request, bytes });
            this.newestChange = draws ? id : this.newestChange;
        }
        const answered = new Promise<Answered<Json>>((resolve, reject) => {
            this.pending.set(id, { resolve: resolve as (value: Answered<never>) => void, reject });
        });
        this.post({ type: "ask", id, request, bytes, draws });
        if (draws) {
            this.expect();
        }
        return answered;
    }

    open(request: Omit<Request, "do">, bytes?: Bytes): Promise<Answered<Paper>> {
        return this.ask<Paper>({ do: "open", now: timeNow(), ...request }, bytes);
    }

    /** Paints the page as PNG. */
    picture(dotsPerInch: number): Promise<Answered<object>> {
        const id = this.nextId++;
        this.post({ type: "picture", id, dotsPerInch });
        return new Promise((resolve, reject) => this.pending.set(id, { resolve, reject }));
    }

    setView(view: View): void {
        this.view = view;
        this.post({ type: "view", view });
    }

    light(control: string): void {
        this.lit = control;
        this.post({ type: "light", control });
    }

    speak(language: Language): void {
        this.language = language;
        this.post({ type: "language", language });
    }

    /** Ends what the worker does. The form and its steps stay; the page is drawn again after the next change. */
    stop(): void {
        this.restart();
    }

    private start(): Worker {
        const worker = new Worker(this.sources.workerUrl);
        worker.onmessage = ({ data }: MessageEvent<FromWorker>) => {
            if (worker === this.worker) {
                this.hear(data);
            }
        };
        worker.onerror = (event) => this.listener.onFailed(event.message);
        const canvas = this.listener.newCanvas().transferControlToOffscreen();
        worker.postMessage({ type: "canvas", canvas } satisfies ToWorker, [canvas]);
        worker.postMessage({ type: "language", language: this.language } satisfies ToWorker);
        void this.sources.module.then((module) => worker.postMessage({ type: "start", module } satisfies ToWorker));
        return worker;
    }

    /** Starts a new worker with the form and its steps, which draws the page after the next change. */
    private restart(): void {
        this.isHeavy = false;
        this.worker.terminate();
        this.expectNothing();
        for (const { reject } of this.pending.values()) {
            reject(new Refusal(tr("Stopped. The page will be drawn after the next change")));
        }
        this.pending.clear();
        this.worker = this.start();
        if (this.view) {
            this.setView(this.view);
        }
        this.light(this.lit);
        for (const entry of this.journal) {
            this.newestChange = this.nextId++;
            this.post({ type: "ask", id: this.newestChange, ...entry, draws: false });
        }
    }

    /**
     * Notes a change. A paper that is opened makes what was before unimportant; of an entry in a field, the last text counts, and
     * of a drag, the last place.
     */
    private note(entry: Entry): void {
        const { request } = entry;
        const last = this.journal.at(-1)?.request;
        if (request.do === "open") {
            this.journal = [];
        } else if (request.do === "set" && last?.do === "set" && last.control === request.control &&
            "value" in request && "value" in last && last.finish !== true) {
            this.journal.pop();
        } else if (request.do === "drag" && last?.do === "drag") {
            this.journal.pop();
        }
        this.journal.push(entry);
    }

    private post(message: ToWorker): void {
        this.worker.postMessage(message);
    }

    private expect(): void {
        if (this.slowTimer === 0) {
            this.slowTimer = window.setTimeout(() => this.listener.onSlow(true), millisecondsUntilSlow);
        }
    }

    private expectNothing(): void {
        window.clearTimeout(this.slowTimer);
        this.slowTimer = 0;
        this.listener.onSlow(false);
    }

    private hear(message: FromWorker): void {
        switch (message.type) {
            case "answer":
                this.hearAnswer(message);
                break;
            case "drawn":
                this.listener.onDrawn(message.page, message.milliseconds);
                this.isHeavy = message.memory > mostMemory;
                break;
            case "painted":
                if (message.newest >= this.newestChange) {
                    this.expectNothing();
                }
                this.listener.onPainted();
                break;
            case "warnings":
                this.listener.onWarnings(message.warnings, message.handles);
                break;
            case "failed":
                this.listener.onFailed(message.why);
                this.restart();
                break;
        }
    }

    private hearAnswer({ id, json, bytes }: Extract<FromWorker, { type: "answer" }>): void {
        const waiting = this.pending.get(id);
        this.pending.delete(id);
        if (json.error !== undefined) {
            this.expectNothing();
            waiting?.reject(new Refusal(json.error));
            return;
        }
        const isOfOpenForm = json.state && "summary" in json.state && !("form" in json);
        if (isOfOpenForm && id >= this.newestChange && waiting) {
            this.listener.onState(json.state!);
        }
        waiting?.resolve({ json, bytes } as Answered<never>);
    }
}

/** The local time as the core takes it: year to second, and the seconds east of GMT. */
export function timeNow(): number[] {
    const now = new Date();
    return [now.getFullYear(), now.getMonth() + 1, now.getDate(), now.getHours(), now.getMinutes(), now.getSeconds(),
        -60 * now.getTimezoneOffset()];
}
