// The dialog for a pad: many pages in one file, two or four on each side of a sheet, with backs.

import type { Answered } from "./client.ts";
import type { Bytes } from "./core.ts";
import { showDialog } from "./dialog.ts";
import { byId, make, setText } from "./dom.ts";
import { choose, type Chosen } from "./files.ts";
import { listed, tr, withoutKey } from "./language.ts";
import type { Catalog, Request } from "./words.ts";

interface Pad {
    pages: number; // as possible
    copies: number;
    columns: number;
    rows: number;
    words: string;
}

export interface PadSource {
    catalog: Catalog;
    /** The front as SVG. */
    picture: Bytes;
    ask(request: Request, bytes?: Bytes): Promise<Answered<Pad>>;
    now(): number[];
}

/** What the dialog began with and was left with. */
const last = { pages: "50", up: "1", hasNumbers: false, copies: "1" };

function row(id: string, text: string, field: HTMLElement): HTMLElement {
    field.id = id;
    return make("div", { class: "row" }, make("div", { class: "cell" },
        make("label", { class: "caption", for: field.id }, text), field));
}

function select(options: [value: string, text: string][]): HTMLSelectElement {
    return make("select", {}, ...options.map(([value, text]) => make("option", { value }, text)));
}

const sameBack = "same", fileBack = "file"; // besides the names of kinds

/** Shows the dialog. Resolves with the file of the pad, or with null if the user cancels. */
export async function askPad(source: PadSource): Promise<Bytes | null> {
    const { catalog } = source;
    const number = (most: number, value: string) =>
        Object.assign(make("input", { type: "number", class: "number", min: 1, max: most }), { value });
    const pages = number(10000, last.pages), copies = number(100, last.copies);
    const up = select([["1", tr("1 page")], ["2", tr("%1 pages, with cut marks", "2")], ["4", tr("%1 pages, with cut marks", "4")]]);
    up.value = last.up;
    const numbers = make("input", { type: "checkbox", id: "padNumbers" });
    numbers.checked = last.hasNumbers;
    const back = select([["", tr("Blank")], [sameBack, tr("Same as the front")], [fileBack, tr("File...")],
        ...catalog.kinds.map(({ name, galleryTitle }): [string, string] => [name, listed(galleryTitle)])]);
    const preset = select([]);
    const words = make("p", { class: "weak", role: "status" }), problem = make("p", { class: "problem", role: "status" });
    const url = URL.createObjectURL(new Blob([source.picture], { type: "image/svg+xml" }));
    const sheet = make("div", { class: "sheet" });
    let file: Chosen | null = null;

    const request = (): Request => {
        Object.assign(last, { pages: pages.value, up: up.value, hasNumbers: numbers.checked, copies: copies.value });
        return {
            do: "pad", pages: Number(pages.value) || 1, up: Number(up.value), hasNumbers: numbers.checked,
            copies: Number(copies.value) || 1, now: source.now(),
            back: back.value === "" ? null : back.value === sameBack ? { isSame: true } : back.value === fileBack ? { file: file!.name }
                : preset.value === "" ? { kind: back.value } : { preset: preset.value },
        };
    };
    const ask = (more: object) => source.ask({ ...request(), ...more }, back.value === fileBack ? file!.bytes : undefined)
        .catch((why: Error) => void setText(problem, why.message));
    /** Shows what the pad is. With `isDone`, numbers that are out of range become possible ones. */
    const show = async (isDone: boolean) => {
        setText(problem, "");
        const answered = await ask({ isOnlyDescribed: true });
        byId<HTMLButtonElement>("dialogAccept").disabled = !answered;
        if (!answered) {
            return;
        }
        const { json } = answered;
        setText(words, json.words);
        sheet.style.gridTemplateColumns = `repeat(${json.columns}, auto)`;
        sheet.replaceChildren(...Array.from({ length: json.columns * json.rows }, () => make("img", { src: url, alt: "" })));
        if (isDone) {
            pages.value = String(json.pages);
            copies.value = String(json.copies);
        }
    };
    const fillPresets = () => {
        const options = catalog.presets.filter(({ kind }) => kind === back.value);
        preset.replaceChildren(...select([["", tr("None")], ...options.map(({ id, title }): [string, string] => [id, listed(title)])]).children);
        preset.disabled = options.length === 0;
    };
    let chosen = back.value;
    const chooseBack = async () => {
        if (back.value === fileBack) {
            back.value = chosen; // until a file is chosen
            file = await choose([...catalog.kinds.map(({ extension }) => `.${extension}`), ".json", ".svg", ".png", ".pdf"].join());
            back.value = fileBack;
        }
        chosen = back.value;
        fillPresets();
        await show(true);
    };
    fillPresets();
    for (const field of [pages, copies]) {
        field.addEventListener("input", () => void show(false));
        field.addEventListener("change", () => void show(true));
    }
    for (const field of [up, numbers, preset]) {
        field.addEventListener("change", () => void show(true));
    }
    back.addEventListener("change", () => void chooseBack());
    const fields = make("div", { class: "form" },
        row("padPages", withoutKey(tr("&Pages:")), pages), row("padUp", withoutKey(tr("On each &side:")), up),
        make("div", { class: "row" }, make("div", { class: "cell check" },
            make("label", { class: "box" }, numbers, withoutKey(tr("&Number the pages"))))),
        row("padBack", withoutKey(tr("&Back:")), back), row("padPreset", withoutKey(tr("P&reset:")), preset), row("padCopies", withoutKey(tr("&Copies:")), copies));
    const accepted = showDialog({
        title: tr("Print Pad"), body: [make("div", { class: "pad" }, fields, sheet), words, problem], accept: withoutKey(tr("Sa&ve PDF...")),
    });
    await show(true);
    const isWanted = await accepted;
    URL.revokeObjectURL(url);
    if (!isWanted) {
        return null;
    }
    const made = await source.ask(request(), back.value === fileBack ? file!.bytes : undefined);
    return made.bytes;
}
