// The view of one paper: its form, its page, and everything that can be done with them.

import type { Client } from "./client.ts";
import { Refusal, timeNow } from "./client.ts";
import type { Bytes } from "./core.ts";
import { askName, closeDialog, showDialog } from "./dialog.ts";
import { button, byId, make, setText } from "./dom.ts";
import { choose, download, printSvg, type Chosen } from "./files.ts";
import { FormView } from "./form.ts";
import { presetGroups } from "./gallery.ts";
import { listed, numeral, plural, tr, withoutKey } from "./language.ts";
import { askPad } from "./pad.ts";
import { allKept, forget, keep, type Kept } from "./store.ts";
import type { Catalog, Dialog, Paper, PaperState, Warning } from "./words.ts";

const millisecondsBeforeKeeping = 600;
const dotsPerInchOfPictures = 300;

/** Adds which fields of a form are not kept. */
function except(said: string, lost: string | undefined): string {
    return lost ? tr("%1, except for %2", said, lost) : said;
}

interface Written {
    type: string;
    extension: string;
    width: number;
    height: number;
    paper: string;
}

export class PaperView {
    private paper: Paper | null = null;
    private form: FormView | null = null;
    private state: PaperState | null = null;
    private fileName = "";
    private keepTimer = 0;

    constructor(private readonly client: Client, private readonly catalog: Catalog, private readonly languageBox: () => HTMLElement) {
        byId("undo").addEventListener("click", () => this.step("undo"));
        byId("redo").addEventListener("click", () => this.step("redo"));
        byId("generate").addEventListener("click", () => this.generate());
        byId("print").addEventListener("click", () => this.print());
        byId("presets").addEventListener("click", () => this.choosePreset());
        document.addEventListener("keydown", (event) => this.key(event));
        document.addEventListener("click", (event) => {
            for (const menu of document.querySelectorAll<HTMLDetailsElement>("details.menu[open]")) {
                if (!menu.contains(event.target as Node) || (event.target as HTMLElement).closest(".menu > div button")) {
                    menu.open = false;
                }
            }
        });
    }

    get isOpen(): boolean {
        return this.paper !== null && !byId("paper").hidden;
    }

    get kind(): string {
        return this.paper?.kind ?? "";
    }

    /** Shows a paper that the core has opened. */
    show(paper: Paper, fileName: string): void {
        this.paper = paper;
        this.fileName = fileName;
        this.form = new FormView(paper.form, {
            onSet: (control, value, finish) => this.change({ do: "set", control, value, finish }),
            onFinish: (control) => this.change({ do: "set", control, finish: true }),
            onSteps: (control, steps) => this.change({ do: "set", control, steps }),
            onCopy: (control) => this.change({ do: "copyRow", control }),
            onLinkMargins: (isOn) => this.change({ do: "linkMargins", isOn }),
            onFocus: (control) => this.client.light(control),
        }, "control-", paper.marginsAreLinked);
        byId("form").replaceChildren(this.form.element);
        byId("helpers").replaceChildren(
            ...(paper.hasRange ? [button(tr("From Data Range..."), () => this.dialog("range"), { id: "range" })] : []),
            ...(paper.hasWizard ? [button(tr("%1...", tr("Easy Graph Wizard")), () => this.dialog("wizard"), { id: "wizard" })] : []),
            ...(paper.hasMarkers ? [button(tr("Choose a marker file"), () => this.markers(), { id: "markers" })] : []),
        );
        setText(byId("title"), paper.title);
        document.title = `${paper.title} – Linealis`;
        this.client.light("");
        this.showWarnings([]);
        this.fillMenu();
        this.say("");
        this.update(paper.state);
    }

    /** Shows the same form in the language that the core now speaks. */
    async translate(): Promise<void> {
        if (this.paper) {
            const described = await this.ask<Paper>({ do: "describe" });
            if (described) {
                this.show(described.json, this.fileName);
            }
        }
    }

    update(state: PaperState): void {
        this.state = state;
        this.form?.update(state);
        const say = (id: string, step: string, words: string) => {
            const one = byId<HTMLButtonElement>(id);
            one.disabled = step === "";
            one.title = words;
            one.setAttribute("aria-label", words);
        };
        say("undo", state.undo, state.undo === "" ? tr("Undo") : tr("Undo: %1", state.undo));
        say("redo", state.redo, state.redo === "" ? tr("Redo") : tr("Redo: %1", state.redo));
        byId("pane").setAttribute("aria-label", tr("%1: %2", tr("Page"), state.summary));
        window.clearTimeout(this.keepTimer);
        this.keepTimer = window.setTimeout(() => void this.keepLeft(), millisecondsBeforeKeeping);
    }

    showWarnings(warnings: Warning[]): void {
        byId("checks").hidden = warnings.length === 0;
        setText(byId("checkCount"), plural("%1 thing to check", "%1 things to check", warnings.length,
            numeral(warnings.length)));
        byId("checkItems").replaceChildren(...warnings.map(({ control, text }) =>
            button(text, () => this.focus(control))));
    }

    focus(control: string): void {
        document.body.classList.remove("showsPage");
        this.form?.focus(control);
    }

    nameOf(control: string): string {
        return this.form?.nameOf(control) ?? "";
    }

    say(text: string): void {
        setText(byId("status"), text);
    }

    /** Ends the entry in the focused field, which becomes a step of its own. */
    finish(): void {
        this.form?.finish();
    }

    private change(request: { do: string; [name: string]: unknown }, bytes?: Bytes): void {
        this.say("");
        this.ask(request, bytes);
    }

    /** Asks the core. What it refuses is said to the user. */
    private ask<Json>(request: { do: string; [name: string]: unknown }, bytes?: Bytes): Promise<{ json: Json; bytes: Bytes } | null> {
        return this.client.ask<Json>(request, bytes).catch((why: unknown) => {
            if (!(why instanceof Refusal)) {
                throw why;
            }
            this.say(why.message);
            return null;
        });
    }

    private async step(name: "undo" | "redo"): Promise<void> {
        this.finish();
        const answered = await this.ask<{ step: string }>({ do: name });
        if (answered?.json.step) {
            this.say(name === "undo" ? tr("Undid: %1", answered.json.step) : tr("Redid: %1", answered.json.step));
        }
    }

    private key(event: KeyboardEvent): void {
        if (!this.isOpen || !(event.ctrlKey || event.metaKey)) {
            return;
        }
        const actions: Record<string, () => void> = {
            z: () => void this.step(event.shiftKey ? "redo" : "undo"),
            y: () => void this.step("redo"),
            s: () => void this.saveSettings(),
            p: () => void this.print(),
            Enter: () => void this.generate(),
        };
        const action = actions[event.key.length === 1 ? event.key.toLowerCase() : event.key];
        if (action) {
            event.preventDefault();
            action();
        }
    }

    private get baseName(): string {
        return this.fileName.replace(/\.[^.]*$/, "") || this.paper!.title;
    }

    private async write(format: string): Promise<{ json: Written; bytes: Bytes } | null> {
        this.finish();
        return this.ask<Written>({ do: "write", format, now: timeNow() });
    }

    private async generate(format = "pdf"): Promise<void> {
        const written = await this.write(format);
        if (written) {
            const name = `${this.baseName}.${written.json.extension}`;
            download(written.bytes, name, written.json.type);
            this.say(tr("Wrote %1, %2", name, this.state!.summary));
        }
    }

    private async savePicture(): Promise<void> {
        this.finish();
        try {
            const { bytes } = await this.client.picture(dotsPerInchOfPictures);
            download(bytes, `${this.baseName}.png`, "image/png");
            this.say(tr("Wrote %1, %2", `${this.baseName}.png`, dotsPerInchOfPictures + tr(" dpi")));
        } catch (why) {
            this.say(why instanceof Refusal ? why.message : tr("%1 was not written", `${this.baseName}.png`));
        }
    }

    private async pad(): Promise<void> {
        const front = await this.write("svg");
        const bytes = front && await askPad({
            catalog: this.catalog, picture: front.bytes, now: timeNow, ask: (request, file) => this.client.ask(request, file),
        }).catch((why: Error) => void this.say(why.message));
        if (bytes) {
            const name = tr("%1 pad.pdf", this.baseName);
            download(bytes, name, "application/pdf");
            this.say(tr("Wrote %1", name));
        }
    }

    private async saveJson(): Promise<void> {
        const made = await this.ask<{ type: string }>({ do: "json" });
        if (made) {
            download(made.bytes, `${this.baseName}.json`, made.json.type);
        }
    }

    private async print(): Promise<void> {
        const written = await this.write("svg");
        if (!written) {
            return;
        }
        const { width, height, paper } = written.json;
        const millimeters = (points: number) => numeral(Math.round((points * 25.4) / 72));
        const isWanted = await showDialog({
            title: tr("Print the page at its true size"),
            body: [make("p", {}, tr("Choose in the browser's print dialog:")), make("ul", {},
                make("li", {}, tr("Paper size: %1 (%2)", paper, tr("%1 × %2 mm", millimeters(width), millimeters(height)))),
                make("li", {}, tr("Scale: 100 % or “Default”, not “Fit to page”")),
                make("li", {}, tr("Margins: none, and no headers and footers")))],
            accept: withoutKey(tr("&Print...")),
        });
        if (isWanted) {
            await printSvg(written.bytes, width, height);
        }
    }

    private choosePreset(): void {
        const presets = this.catalog.presets.filter(({ kind }) => kind === this.kind);
        void allKept().then((kept) => {
            const own = kept.filter(({ kind, sort }) => kind === this.kind && sort === "preset");
            const groups = presetGroups(this.catalog.groups, presets, (preset) => {
                closeDialog();
                this.layOver({ preset: preset.id }, listed(preset.title));
            });
            const mine = own.length === 0 ? [] : [make("h2", {}, tr("Yours")),
                make("div", { class: "presetList" }, ...own.flatMap((one) => this.ownPreset(one)))];
            void showDialog({ title: tr("Presets"), body: [...mine, ...groups] });
        });
    }

    private ownPreset(own: Kept): HTMLElement[] {
        const toDelete = tr("%1: %2", tr("Delete Preset"), own.name);
        return [
            button(own.name, () => {
                closeDialog();
                this.layOver({}, own.name, own);
            }),
            button("✕", () => void forget(own).then(() => this.choosePreset()),
                { class: "quiet", "aria-label": toDelete, title: toDelete }),
        ];
    }

    /** Loads a preset or a form that the browser has kept into the form, as one step. */
    private layOver(what: { preset?: string }, name: string, kept?: Kept, said = tr("The form is now %1", name)): void {
        this.finish();
        void this.ask({ do: "layOver", name, ...what }, kept?.bytes).then((answered) => {
            if (answered) {
                this.say(except(said, kept?.lost));
            }
        });
    }

    private async settings(): Promise<{ json: { extension: string; lost: string }; bytes: Bytes } | null> {
        this.finish();
        return this.ask({ do: "settings" });
    }

    private async saveSettings(): Promise<void> {
        const made = await this.settings();
        if (made) {
            const name = `${this.baseName}.${made.json.extension}`;
            download(made.bytes, name, "application/octet-stream");
            this.say(made.json.lost === "" ? tr("Wrote %1", name) : tr("%1 does not store %2", name, made.json.lost));
        }
    }

    /** Keeps the form and says so with `done`. */
    private async keepAs(sort: Kept["sort"], name: string, done: string): Promise<void> {
        const { kind, extension } = this.paper!;
        const made = await this.settings();
        if (!made) {
            return;
        }
        const { bytes, json: { lost } } = made;
        try {
            await keep({ kind, extension, name, sort, bytes, lost });
            this.say(except(done, lost));
        } catch {
            this.say(tr("The browser does not let this page keep anything"));
        }
    }

    private async keepLeft(): Promise<void> {
        const paper = this.paper;
        if (this.state === null || this.state.undo === "" || paper === null) {
            return; // as it was opened
        }
        const made = await this.client.ask<{ lost: string }>({ do: "settings" }).catch(() => null);
        if (made && paper === this.paper) {
            const { kind, extension } = paper;
            await keep({ kind, extension, name: "", sort: "left", bytes: made.bytes, lost: made.json.lost }).catch(() => {});
        }
    }

    private async savePreset(): Promise<void> {
        const name = await askName(tr("Save as Preset"), "");
        if (name !== "") {
            await this.keepAs("preset", name, tr("Saved as the preset %1", name));
        }
    }

    private async bringBack(): Promise<void> {
        const left = (await allKept()).find(({ sort, kind }) => sort === "left" && kind === this.kind);
        if (left) {
            this.layOver({}, tr("As I Left It"), left, tr("The form is back as you last left it"));
        } else {
            this.say(tr("Nothing of this paper has been kept"));
        }
    }

    private async copyLink(): Promise<void> {
        this.finish();
        const made = await this.ask<{ link: string }>({ do: "link" });
        if (!made) {
            return;
        }
        const address = `${location.href.split("#")[0]!}#${made.json.link}`;
        history.replaceState(null, "", `#${made.json.link}`);
        try {
            await navigator.clipboard.writeText(address);
            this.say(tr("Copied a link to this form"));
        } catch {
            this.say(tr("The address of this page is now a link to this form"));
        }
    }

    private fillMenu(): void {
        const item = (text: string, action: () => unknown, id: string) => button(text, () => void action(), { id });
        byId("menuItems").replaceChildren(
            item(tr("Open..."), () => byId("openFromGallery").click(), "open"),
            item(tr("Save Settings"), () => this.saveSettings(), "saveSettings"),
            item(withoutKey(tr("Copy &Link")), () => this.copyLink(), "copyLink"),
            make("hr"),
            item(withoutKey(tr("Print P&ad...")), () => this.pad(), "pad"),
            item(tr("Save page as %1", "SVG"), () => this.generate("svg"), "saveSvg"),
            item(tr("Save page as %1", "PNG"), () => this.savePicture(), "savePng"),
            item(tr("Save page as %1", "DXF"), () => this.generate("dxf"), "saveDxf"),
            item(tr("Save form as %1", "JSON"), () => this.saveJson(), "saveJson"),
            make("hr"),
            item(tr("Save as Preset..."), () => this.savePreset(), "savePreset"),
            item(tr("Use as My Default"),
                () => this.keepAs("default", "", tr("New forms of this paper begin like this one")), "saveDefault"),
            item(tr("Forget the default"), async () => {
                await forget({ sort: "default", kind: this.kind, name: "" }).catch(() => {});
                this.say(tr("New forms of this paper begin as they come"));
            }, "forgetDefault"),
            item(tr("As I Left It"), () => this.bringBack(), "bringBack"),
            item(tr("Reset Form"), () => {
                this.change({ do: "reset", now: timeNow() });
                this.say(tr("Form reset"));
            }, "reset"),
            make("hr"),
            this.languageBox(),
        );
    }

    private async markers(): Promise<void> {
        this.useMarkers(await choose(".txt,.csv,.tsv,text/plain"));
    }

    useMarkers({ name, bytes }: Chosen): void {
        this.finish();
        void this.ask({ do: "markers", name }, bytes).then((answered) => {
            if (answered) {
                this.say(tr("Markers from %1", name));
            }
        });
    }

    /** Shows the wizard or the range of data, whose forms the core describes too. */
    private async dialog(dialog: "wizard" | "range"): Promise<void> {
        this.finish();
        const opened = await this.ask<Dialog>({ do: "openDialog", dialog });
        if (!opened) {
            return;
        }
        const problem = make("p", { class: "problem", role: "status" }), outcome = make("pre");
        const accept = byId<HTMLButtonElement>("dialogAccept");
        const set = async (request: object) => {
            const answered = await this.ask<Dialog>({ do: "setInDialog", dialog, ...request });
            if (answered) {
                show(answered.json);
            }
        };
        const form = new FormView(opened.json.form, {
            onSet: (control, value, finish) => void set({ control, value, finish }),
            onFinish: (control) => void set({ control, finish: true }),
            onSteps: () => {},
            onCopy: () => {},
            onLinkMargins: () => {},
            onFocus: () => {},
        }, "dialog-");
        const show = ({ state, problem: why, outcome: made }: Dialog) => {
            form.update(state);
            setText(problem, why ?? "");
            setText(outcome, made ?? "");
            accept.disabled = Boolean(why);
        };
        const title = dialog === "range" ? tr("From Data Range") : tr("Easy Graph Wizard");
        const accepted = showDialog({ title, body: [form.element, outcome, problem], accept: tr("OK") });
        show(opened.json);
        if (await accepted) {
            await this.ask({ do: "acceptDialog", dialog });
        }
    }
}
