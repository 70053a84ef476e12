// Loads the core, a WebAssembly module without a runtime of its own, and asks it.

import { tr } from "./language.ts";

export type Bytes = Uint8Array<ArrayBuffer>;

/** What the core says to a request. `json` has "error", for the user, if nothing was done. */
export interface Answer<Json> {
    json: Json;
    bytes: Bytes;
}

interface Exports {
    memory: WebAssembly.Memory;
    _initialize(): void;
    linealis_room(size: number): number;
    linealis_ask(request: number, length: number, bytes: number, count: number): number;
}

const notSupported = 52; // ENOSYS of WASI

/** The system calls that the C library refers to. The core has no files, clock or environment. */
function imports(module: WebAssembly.Module, memory: () => WebAssembly.Memory): WebAssembly.Imports {
    const functions: Record<string, Record<string, (...numbers: number[]) => number>> = {};
    for (const { module: from, name } of WebAssembly.Module.imports(module)) {
        const call = (...numbers: number[]): number => {
            if (name === "proc_exit" || name === "abort") {
                throw new Error("the core has ended");
            }
            if (name === "environ_sizes_get") {
                new Uint32Array(memory().buffer)[numbers[0]! / 4] = 0;
                new Uint32Array(memory().buffer)[numbers[1]! / 4] = 0;
                return 0;
            }
            return name === "environ_get" ? 0 : from === "env" ? -notSupported : notSupported; // system calls return less than 0
        };
        (functions[from] ??= {})[name] = call;
    }
    return functions;
}

export class Core {
    private constructor(private readonly exports: Exports) {}

    static async load(module: WebAssembly.Module): Promise<Core> {
        const instance = await WebAssembly.instantiate(module, imports(module, () => exports.memory));
        const exports = instance.exports as unknown as Exports;
        exports._initialize();
        return new Core(exports);
    }

    /** Bytes of memory that the core has taken. They never become fewer. */
    get memory(): number {
        return this.exports.memory.buffer.byteLength;
    }

    /** Answers a request. Throws if memory runs out on the way, and the core must then be loaded anew. */
    ask<Json>(request: object, bytes: Uint8Array = new Uint8Array()): Answer<Json> {
        const text = new TextEncoder().encode(JSON.stringify(request));
        const places = [text, bytes].map((part) => {
            const place = this.exports.linealis_room(part.length);
            if (place === 0) {
                throw new Error(tr("there is not enough memory"));
            }
            new Uint8Array(this.exports.memory.buffer).set(part, place);
            return place;
        });
        const answer = this.exports.linealis_ask(places[0]!, text.length, places[1]!, bytes.length);
        const memory = this.exports.memory.buffer;
        const [json, length, begin, count] = new Uint32Array(memory, answer, 4) as unknown as [number, number, number, number];
        return {
            json: JSON.parse(new TextDecoder().decode(new Uint8Array(memory, json, length))) as Json,
            bytes: new Uint8Array(memory.slice(begin, begin + count) as ArrayBuffer),
        };
    }
}
