// What the browser keeps between visits: own presets, defaults and forms as they were left, as bytes of settings files.

import type { Bytes } from "./core.ts";

export interface Kept {
    kind: string;
    extension: string;
    name: string; // of an own preset; empty otherwise
    sort: "preset" | "default" | "left";
    bytes: Bytes;
    lost?: string; // names of fields that a settings file does not store
}

const storeName = "papers";

function keyOf({ sort, kind, name }: Pick<Kept, "sort" | "kind" | "name">): string {
    return [sort, kind, name].join("/");
}

function open(): Promise<IDBDatabase> {
    return new Promise((resolve, reject) => {
        const request = indexedDB.open("linealis", 1);
        request.onupgradeneeded = () => request.result.createObjectStore(storeName);
        request.onsuccess = () => resolve(request.result);
        request.onerror = () => reject(request.error ?? new Error("the browser keeps nothing"));
    });
}

async function use<Result>(mode: IDBTransactionMode, action: (store: IDBObjectStore) => IDBRequest<Result>): Promise<Result> {
    const database = await open();
    try {
        return await new Promise<Result>((resolve, reject) => {
            const request = action(database.transaction(storeName, mode).objectStore(storeName));
            request.onsuccess = () => resolve(request.result);
            request.onerror = () => reject(request.error ?? new Error("the browser keeps nothing"));
        });
    } finally {
        database.close();
    }
}

/** Keeps a form. Rejects if the browser does not let pages keep anything. */
export async function keep(kept: Kept): Promise<void> {
    await use("readwrite", (store) => store.put(kept, keyOf(kept)));
}

export async function forget(kept: Pick<Kept, "sort" | "kind" | "name">): Promise<void> {
    await use("readwrite", (store) => store.delete(keyOf(kept)));
}

/** Returns everything that is kept; nothing if the browser does not let pages keep anything. */
export async function allKept(): Promise<Kept[]> {
    try {
        return await use<Kept[]>("readonly", (store) => store.getAll() as IDBRequest<Kept[]>);
    } catch {
        return [];
    }
}
