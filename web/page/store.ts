// What the browser keeps between visits: own presets, defaults and forms as they were left, as bytes of settings files; and
// what the user prefers.

import type { Bytes } from "./core.ts";

export interface Kept {
    kind: string;
    extension: string;
    name: string; // of an own preset; empty otherwise
    sort: "preset" | "default" | "left";
    bytes: Bytes;
    lost?: string; // names of fields that a settings file does not store
}

const papers = "papers", preferences = "preferences"; // stores

function keyOf({ sort, kind, name }: Pick<Kept, "sort" | "kind" | "name">): string {
    return [sort, kind, name].join("/");
}

function open(): Promise<IDBDatabase> {
    return new Promise((resolve, reject) => {
        const request = indexedDB.open("linealis", 2);
        request.onupgradeneeded = () => {
            for (const name of [papers, preferences].filter((one) => !request.result.objectStoreNames.contains(one))) {
                request.result.createObjectStore(name);
            }
        };
        request.onsuccess = () => resolve(request.result);
        request.onerror = () => reject(request.error ?? new Error("the browser keeps nothing"));
    });
}

async function use<Result>(
    name: string, mode: IDBTransactionMode, action: (store: IDBObjectStore) => IDBRequest<Result>,
): Promise<Result> {
    const database = await open();
    try {
        return await new Promise<Result>((resolve, reject) => {
            const request = action(database.transaction(name, mode).objectStore(name));
            request.onsuccess = () => resolve(request.result);
            request.onerror = () => reject(request.error ?? new Error("the browser keeps nothing"));
        });
    } finally {
        database.close();
    }
}

/** Keeps a form. Rejects if the browser does not let pages keep anything. */
export async function keep(kept: Kept): Promise<void> {
    await use(papers, "readwrite", (store) => store.put(kept, keyOf(kept)));
}

export async function forget(kept: Pick<Kept, "sort" | "kind" | "name">): Promise<void> {
    await use(papers, "readwrite", (store) => store.delete(keyOf(kept)));
}

/** Returns everything that is kept; nothing if the browser does not let pages keep anything. */
export async function allKept(): Promise<Kept[]> {
    try {
        return await use<Kept[]>(papers, "readonly", (store) => store.getAll() as IDBRequest<Kept[]>);
    } catch {
        return [];
    }
}

/** Keeps the code of the language that the user has chosen; an empty text for that of the browser. */
export async function keepLanguage(code: string): Promise<void> {
    await use(preferences, "readwrite", (store) => store.put(code, "language"));
}

/** Returns what keepLanguage has kept; an empty text if that is nothing. */
export async function keptLanguage(): Promise<string> {
    try {
        return (await use<string | undefined>(preferences, "readonly", (store) => store.get("language"))) ?? "";
    } catch {
        return "";
    }
}
