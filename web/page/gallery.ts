// The gallery: all kinds of paper, the presets, and a search over both.

import { button, byId, make, setText } from "./dom.ts";
import { listed, plural, tr } from "./language.ts";
import type { Kept } from "./store.ts";
import type { Catalog, Kind, Preset } from "./words.ts";

export interface GalleryEvents {
    onKind(kind: Kind): void;
    onPreset(preset: Preset): void;
    onOwn(own: Kept): void;
}

/** Whether papers are A4 for most people who use the language of the browser. */
export function isMetric(): boolean {
    return !/-(US|CA|MX|PH|CL|CO|VE)$/i.test(navigator.language) && navigator.language !== "en";
}

/** Whether every word occurs in the texts, in any case. */
export function matches(words: string, ...texts: string[]): boolean {
    const searched = texts.join(" ").toLocaleLowerCase();
    return words.toLocaleLowerCase().split(/\s+/).every((word) => searched.includes(word));
}

/** Returns a list of presets under headings. A click on a preset calls `onPreset`. */
export function presetGroups(order: string[], presets: Preset[], onPreset: (preset: Preset) => void): HTMLElement[] {
    const groups = new Map<string, Preset[]>();
    for (const metricFirst of [true, false]) {
        for (const preset of presets.filter((one) => (one.isMetric === isMetric()) === metricFirst)) {
            groups.set(preset.group, [...(groups.get(preset.group) ?? []), preset]);
        }
    }
    return order.filter((group) => groups.has(group)).flatMap((group) => [
        make("h2", {}, listed(group)),
        make("div", { class: "presetList" }, ...groups.get(group)!.map((preset) =>
            button(listed(preset.title), () => onPreset(preset), { "data-preset": preset.id }))),
    ]);
}

export class Gallery {
    private own: Kept[] = [];

    constructor(private readonly catalog: Catalog, private readonly picture: (name: string) => string,
        private readonly events: GalleryEvents) {
        byId("search").addEventListener("input", () => this.say(this.fill()));
        byId("search").addEventListener("keydown", (event) => {
            if (event.key === "Enter") {
                byId("tiles").querySelector<HTMLElement>("button")?.click();
            }
        });
    }

    /** Shows the user's presets. Leaves everything in its place if they are the same as before. */
    setOwn(own: Kept[]): void {
        const presets = own.filter(({ sort }) => sort === "preset");
        const namesOf = (list: Kept[]) => list.map(({ kind, name }) => `${kind}/${name}`).join("\n");
        const isNew = namesOf(presets) !== namesOf(this.own);
        this.own = presets;
        if (isNew || byId("tiles").childElementCount === 0) {
            this.fill();
        }
    }

    private say(found: number): void {
        const words = byId<HTMLInputElement>("search").value.trim();
        setText(byId("galleryStatus"), words === "" ? "" : found === 0 ? tr("Nothing is named “%1”", words)
            : plural("%1 result", "%1 results", found, String(found)));
    }

    /** Shows what the search finds, and returns how much that is. */
    fill(): number {
        const words = byId<HTMLInputElement>("search").value.trim();
        const { catalog, events } = this;
        const titleOf = (kind: string) => catalog.kinds.find(({ name }) => name === kind)?.title ?? "";
        const kinds = catalog.kinds.filter(({ title, galleryTitle }) => matches(words, title, galleryTitle, listed(title), listed(galleryTitle)));
        const presets = catalog.presets.filter(({ title, keywords, kind, group }) =>
            matches(words, title, keywords, titleOf(kind), group, listed(title), listed(titleOf(kind)), listed(group)));
        const own = this.own.filter(({ name, kind }) => matches(words, name, titleOf(kind), listed(titleOf(kind))));
        byId("tiles").replaceChildren(
            ...(kinds.length > 0 ? [make("div", { class: "kinds" }, ...kinds.map((kind) => this.tile(kind)))] : []),
            ...(own.length > 0 ? [make("h2", {}, tr("Yours")), make("div", { class: "presetList" },
                ...own.map((one) => button(one.name, () => events.onOwn(one))))] : []),
            ...presetGroups(catalog.groups, presets, (preset) => events.onPreset(preset)),
        );
        return kinds.length + presets.length + own.length;
    }

    private tile(kind: Kind): HTMLElement {
        const tile = button("", () => this.events.onKind(kind), { "data-kind": kind.name });
        tile.append(make("img", { src: this.picture(kind.picture), alt: "", width: 78, height: 101 }), listed(kind.galleryTitle));
        return tile;
    }
}
