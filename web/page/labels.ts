// The texts of the elements that are always there, in the language of the page.

import { byId, make, setText } from "./dom.ts";
import { spoken, tr, withoutKey } from "./language.ts";

interface Label {
    text?: string;
    name?: string; // for screen readers
    title?: string;
}

const labels = (): Record<string, Label> => ({
    search: { name: tr("Search papers and presets") },
    openFromGallery: { text: tr("Open...") },
    toGallery: { title: tr("Show all kinds of paper") },
    toGalleryText: { text: tr("Gallery") },
    presets: { text: tr("Presets") },
    menuText: { text: tr("More") },
    showForm: { text: tr("Form") },
    showPage: { text: tr("Page") },
    formSide: { name: tr("Form") },
    pageSide: { name: tr("Live page") },
    zoom: { name: tr("Zoom in percent of the actual size") },
    zoomOut: { name: tr("Zoom Out") },
    zoomFit: { text: tr("Fit") },
    zoomTrue: { text: tr("100 %"), title: tr("Actual Size") },
    zoomIn: { name: tr("Zoom In") },
    slowText: { text: tr("Drawing the page") },
    stop: { text: tr("Stop") },
    print: { text: withoutKey(tr("&Print...")) },
    generate: { text: tr("Generate") },
    file: { name: tr("File") },
});

/** Gives the elements their texts, and the document its language. */
export function label(): void {
    document.documentElement.lang = spoken().code.replace("_", "-");
    for (const [id, { text, name, title }] of Object.entries(labels())) {
        const element = byId(id);
        if (text !== undefined) {
            setText(element, text);
        }
        if (name !== undefined) {
            element.setAttribute("aria-label", name);
        }
        if (title !== undefined) {
            element.title = title;
        }
    }
    byId<HTMLInputElement>("search").placeholder = tr("Search papers and presets");
}

/** Returns a pop-up menu of the languages. `chosen` is empty for the language of the browser. */
export function languageBox(languages: { code: string; name: string }[], chosen: string, onChoose: (code: string) => void): HTMLElement {
    const box = make("select", { "aria-label": tr("Language"), title: tr("Language") },
        make("option", { value: "" }, tr("Language of the browser")),
        ...languages.map(({ code, name }) => make("option", { value: code, lang: code.replace("_", "-") }, name)));
    box.value = chosen;
    box.addEventListener("change", () => {
        const menu = box.closest("details");
        if (menu) {
            menu.open = false;
            menu.querySelector("summary")!.focus();
        }
        onChoose(box.value);
    });
    return box;
}
