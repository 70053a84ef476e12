// Builds a form from the core's description and keeps it up to date.

import { button, make, setText } from "./dom.ts";
import { tr } from "./language.ts";
import type { Control, ControlState, Form, FormState, Group, Row } from "./words.ts";

export interface FormEvents {
    /** The user has changed a control: a key in a text field, or, with `finish`, a choice or the end of an entry. */
    onSet(control: string, value: string, finish: boolean): void;
    /** The user leaves a text field that holds an entry, or presses Return in it. */
    onFinish(control: string): void;
    /** The user wants the value of a text field some steps larger or smaller. */
    onSteps(control: string, steps: number): void;
    /** A row of a table shall be as the row above. */
    onCopy(firstControl: string): void;
    onLinkMargins(isOn: boolean): void;
    onFocus(control: string): void;
}

const cellsOfLine = 2; // in a form without tables
const stepsOfKeys: Record<string, number> = { ArrowUp: 1, ArrowDown: -1, PageUp: 10, PageDown: -10 };

interface Shown {
    control: Control;
    field: HTMLElement;
    set(state: ControlState): void;
}

export class FormView {
    readonly element = make("div", { class: "form" });
    private readonly shown = new Map<string, Shown>();
    private readonly captions = new Map<string, HTMLElement[]>(); // by the control or label that has the text
    private readonly readouts: HTMLElement[] = [];
    private readonly saids: HTMLElement[] = []; // what is known or wrong, one for each group
    private readonly entered = new Set<string>();
    private state: FormState | null = null;

    constructor(private readonly form: Form, private readonly events: FormEvents, private readonly prefix: string,
        private readonly marginsAreLinked = false) {
        this.element.classList.toggle("wide", form.hasTables);
        for (const group of form.groups) {
            this.element.append(this.group(group));
        }
        this.element.addEventListener("focusin", ({ target }) =>
            this.events.onFocus((target as HTMLElement).closest<HTMLElement>("[data-control]")?.dataset["control"] ?? ""));
    }

    /** Shows the state. A field that is being typed into keeps its text if it has none of its own in the state. */
    update(state: FormState): void {
        this.state = state;
        for (const [name, { set, field, control }] of this.shown) {
            const of = state.controls[name]!;
            set(of);
            if (control.type !== "label") {
                this.describe(field, of);
            }
            field.toggleAttribute("disabled", !of.enabled);
            field.classList.toggle("off", !of.enabled);
        }
        for (const [name, elements] of this.captions) {
            for (const element of elements) {
                setText(element, state.controls[name]!.caption);
                element.classList.toggle("off", !state.controls[name]!.enabled);
            }
        }
        this.readouts.forEach((element, i) => {
            setText(element, state.readouts[i] ?? "");
            element.title = state.readouts[i] ?? "";
        });
        this.form.groups.forEach((group, i) => this.say(group, i, state));
    }

    focus(control: string): void {
        const field = this.shown.get(control)?.field;
        field?.focus();
        field?.scrollIntoView({ block: "center" });
        if (field instanceof HTMLInputElement && field.type === "text") {
            field.select();
        }
    }

    /** Ends the entry in the field that has the focus. */
    finish(): void {
        for (const control of [...this.entered]) {
            this.end(control);
        }
    }

    private end(control: string): void {
        if (this.entered.delete(control)) {
            this.events.onFinish(control);
        }
    }

    private describe(field: HTMLElement, { hint, remark }: ControlState): void {
        const words = [remark, hint].filter((text) => text).join(". ");
        field.title = words;
        field.toggleAttribute("aria-invalid", false);
        if (remark) {
            field.setAttribute("aria-invalid", "true");
        }
        if (words) {
            field.setAttribute("aria-description", words);
        }
    }

    private say(group: Group, i: number, state: FormState): void {
        const remarks = group.rows.flatMap(({ cells }) => cells.flat()).flatMap(({ name }) => state.controls[name]?.remark ?? []);
        const said = this.saids[i]!;
        setText(said, remarks.length > 0 ? remarks.join("; ") : state.known[i] ?? "");
        said.classList.toggle("remark", remarks.length > 0);
    }

    private group(group: Group): HTMLElement {
        const said = make("span", { class: "said", role: "status" });
        this.saids.push(said);
        const title = group.title.replace(/\s*[:：]$/, "");
        const section = make("section", { class: "group", "aria-label": title });
        const heading = make("div", { class: "heading" }, make("h2", {}, title));
        if (group.isMargins) {
            heading.append(this.linkButton());
        }
        heading.append(said);
        section.append(heading);
        section.classList.toggle("margins", group.isMargins);
        let table: HTMLElement | null = null;
        for (const row of group.rows) {
            if (!row.isOfTable) {
                section.append(...this.lines(row, this.form.hasTables && !group.isMargins ? row.cells.length : cellsOfLine));
                continue;
            }
            if (!table) {
                table = this.table(row);
                section.append(make("div", { class: "scrolled" }, table));
            }
            table.append(...this.tableRow(row));
        }
        if (group.isFile) {
            section.hidden = true; // a browser keeps no output file
        }
        return section;
    }

    private linkButton(): HTMLElement {
        const linked = button(tr("Link"), () => {
            const isOn = linked.getAttribute("aria-pressed") !== "true";
            linked.setAttribute("aria-pressed", String(isOn));
            this.events.onLinkMargins(isOn);
        }, { class: "quiet", id: `${this.prefix}LinkMargins`, "aria-pressed": String(this.marginsAreLinked), title: tr("Keep all four margins equal") });
        return linked;
    }

    /** Returns the lines of a row, each with at most so many cells. A wide cell has a line of its own. */
    private lines(row: Row, mostCells: number): HTMLElement[] {
        const lines: Control[][][] = [];
        for (const cell of row.cells) {
            const isWide = cell.length > 2 || (cell.length === 2 && cell.some(({ readout }) => readout !== undefined));
            const last = lines.at(-1);
            if (last && last.length < mostCells && !(isWide && mostCells === cellsOfLine)) {
                last.push(cell);
            } else {
                lines.push([cell]);
            }
            if (isWide && mostCells === cellsOfLine) {
                lines.push([]); // what follows begins a line
            }
        }
        return lines.filter((line) => line.length > 0).map((line) => this.line(line));
    }

    private line(cells: Control[][]): HTMLElement {
        const line = make("div", { class: "row" });
        for (const cell of cells) {
            const box = make("div", { class: "cell" });
            const readouts: HTMLElement[] = [];
            for (const control of cell) {
                if (control.captionOf !== undefined) {
                    box.append(this.caption(control));
                }
                box.append(this.widget(control));
                if (control.readout !== undefined) {
                    readouts.push(this.readout(control.readout));
                }
            }
            box.classList.toggle("check", cell[0]!.type === "check");
            box.append(...readouts);
            line.append(box);
        }
        return line;
    }

    private table(first: Row): HTMLElement {
        const controls = first.cells.flat();
        const table = make("div", { class: "table" });
        table.style.gridTemplateColumns = `repeat(${controls.length + 1}, auto)`;
        for (const control of controls) {
            table.append(control.captionOf === undefined ? make("span") : this.captionText(control.captionOf, "columnHead"));
        }
        table.append(make("span"));
        return table;
    }

    private tableRow(row: Row): HTMLElement[] {
        const controls = row.cells.flat();
        const end = make("div", { class: "end" });
        if (row.readout !== undefined) {
            end.append(this.readout(row.readout));
        }
        if (row.copy !== undefined) {
            end.append(button("⤓", () => this.events.onCopy(controls[0]!.name),
                { class: "quiet", "aria-label": row.copy, title: row.copy }));
        }
        return [...controls.map((control) => this.widget(control)), end];
    }

    private readout(number: number): HTMLElement {
        return this.readouts[number] = make("span", { class: "readout" });
    }

    private captionText(name: string, className: string): HTMLElement {
        const text = make("span", { class: className });
        this.captions.set(name, [...(this.captions.get(name) ?? []), text]);
        return text;
    }

    private caption(control: Control): HTMLElement {
        const caption = make("label", { class: "caption", for: this.idOf(control) });
        if (control.rowName !== undefined) {
            caption.append(make("span", { class: "rowName" }, control.rowName), " ");
        }
        caption.append(this.captionText(control.captionOf!, "text"));
        return caption;
    }

    private idOf(control: Control): string {
        return this.prefix + control.name;
    }

    private widget(control: Control): HTMLElement {
        const made = this.makeWidget(control);
        made.field.dataset["control"] = control.name;
        made.field.id = this.idOf(control);
        this.shown.set(control.name, { control, ...made });
        return made.element ?? made.field;
    }

    private makeWidget(control: Control): { field: HTMLElement; element?: HTMLElement; set(state: ControlState): void } {
        switch (control.type) {
            case "text":
                return this.textField(control);
            case "popup":
                return this.popup(control);
            case "check":
                return this.check(control);
            case "radio":
                return this.radio(control);
            case "color":
                return this.color(control);
            case "label": {
                const label = make("span", { class: "label" });
                return { field: label, set: ({ caption }) => setText(label, caption) };
            }
        }
    }

    private textField(control: Control) {
        const { name } = control;
        const field = make("input", {
            type: "text", class: control.isProse ? "prose" : "number", "aria-label": control.wholeName,
            autocomplete: "off", spellcheck: control.isProse === true ? "true" : "false",
            inputmode: control.isProse ? undefined : "text", enterkeyhint: "done",
        });
        field.classList.toggle("short", control.isShort === true);
        field.addEventListener("input", () => {
            this.entered.add(name);
            this.events.onSet(name, field.value, false);
        });
        field.addEventListener("change", () => this.end(name));
        field.addEventListener("keydown", (event) => {
            const steps = stepsOfKeys[event.key];
            if (event.key === "Enter") {
                this.end(name);
            } else if (steps !== undefined && !control.isProse) {
                event.preventDefault();
                this.entered.add(name);
                this.events.onSteps(name, steps);
            }
        });
        field.addEventListener("blur", () => this.end(name));
        return {
            field,
            set: ({ value }: ControlState) => {
                if (field.value !== value) {
                    field.value = value;
                }
            },
        };
    }

    private popup(control: Control) {
        const field = make("select", { "aria-label": control.wholeName },
            ...control.items!.map((item, i) => make("option", { value: i }, item)));
        field.addEventListener("change", () => this.events.onSet(control.name, `#${field.value}`, true));
        return { field, set: ({ index }: ControlState) => void (field.value = String(index)) };
    }

    private check(control: Control) {
        const field = make("input", { type: "checkbox", "aria-label": control.wholeName });
        field.addEventListener("change", () => this.events.onSet(control.name, field.checked ? "on" : "off", true));
        const element = make("label", { class: "box" }, field, this.captionText(control.name, "text"));
        return { field, element, set: ({ value }: ControlState) => void (field.checked = value === "on") };
    }

    private radio(control: Control) {
        const field = make("fieldset", { class: "radio", "aria-label": control.wholeName });
        const buttons = control.items!.map((item, i) => {
            const choice = make("input", { type: "radio", name: this.idOf(control), value: i });
            choice.addEventListener("change", () => this.events.onSet(control.name, `#${i}`, true));
            field.append(make("label", { class: "box" }, choice, make("span", { class: "text" }, item)));
            return choice;
        });
        return { field, set: ({ index }: ControlState) => void (buttons[index ?? 0]!.checked = true) };
    }

    private color(control: Control) {
        const field = make("input", { type: "color", "aria-label": control.wholeName });
        field.addEventListener("input", () => this.events.onSet(control.name, field.value, false));
        field.addEventListener("change", () => this.events.onSet(control.name, field.value, true));
        return { field, set: ({ value }: ControlState) => void (field.value = value.toLowerCase()) };
    }

    /** The name of a control for a list of remarks. */
    nameOf(control: string): string {
        return this.shown.get(control)?.control.wholeName ?? "";
    }

    valueOf(control: string): string {
        return this.state?.controls[control]?.value ?? "";
    }
}
