// Files that the page makes and takes, and printing.

import type { Bytes } from "./core.ts";
import { byId, make } from "./dom.ts";

/** Saves bytes as a file in the folder of downloads. */
export function download(bytes: Bytes, name: string, type: string): void {
    const url = URL.createObjectURL(new Blob([bytes], { type }));
    const link = make("a", { href: url, download: name });
    document.body.append(link);
    link.click();
    link.remove();
    setTimeout(() => URL.revokeObjectURL(url), 60_000);
}

export interface Chosen {
    name: string;
    bytes: Bytes;
}

export async function read(file: File): Promise<Chosen> {
    return { name: file.name, bytes: new Uint8Array(await file.arrayBuffer()) };
}

/** Lets the user choose a file. Resolves only if one is chosen. */
export function choose(accept: string): Promise<Chosen> {
    const input = byId<HTMLInputElement>("file");
    input.accept = accept;
    input.value = "";
    return new Promise((resolve, reject) => {
        input.onchange = () => {
            const file = input.files?.[0];
            if (file) {
                read(file).then(resolve, reject);
            }
        };
        input.click();
    });
}

/** Calls `take` with files that are dropped on the page. */
export function takeDropped(take: (file: File) => void): void {
    document.addEventListener("dragover", (event) => {
        if (event.dataTransfer?.types.includes("Files")) {
            event.preventDefault();
            document.body.classList.add("dropping");
        }
    });
    document.addEventListener("dragleave", () => document.body.classList.remove("dropping"));
    document.addEventListener("drop", (event) => {
        event.preventDefault();
        document.body.classList.remove("dropping");
        const file = event.dataTransfer?.files[0];
        if (file) {
            take(file);
        }
    });
}

const printSheet = new CSSStyleSheet();

/** Prints an SVG page whose size is given in points, on paper of exactly that size. */
export async function printSvg(svg: Bytes, width: number, height: number): Promise<void> {
    const url = URL.createObjectURL(new Blob([svg], { type: "image/svg+xml" }));
    const image = make("img", { src: url, alt: "" });
    printSheet.replaceSync(`@page { size: ${width}pt ${height}pt; margin: 0 }
        #printed img { width: ${width}pt; height: ${height - 0.1}pt; object-fit: cover; object-position: top left }`);
    document.adoptedStyleSheets = [printSheet];
    byId("printed").replaceChildren(image);
    await image.decode();
    window.print();
    URL.revokeObjectURL(url);
}
