// What the page, its worker and the core say to each other.

import type { Bytes } from "./core.ts";
import type { Handles } from "./drag.ts";
import type { Language } from "./language.ts";

export interface ControlState {
    value: string;
    caption: string;
    enabled: boolean;
    hint?: string;
    remark?: string;
    index?: number;
}

export interface FormState {
    controls: Record<string, ControlState>;
    readouts: string[];
    known: string[];
}

export interface PaperState extends FormState {
    summary: string;
    undo: string;
    redo: string;
    lost: string;
}

export interface Control {
    name: string;
    type: "text" | "popup" | "check" | "radio" | "color" | "label";
    wholeName?: string;
    isProse?: boolean;
    isShort?: boolean;
    items?: string[];
    captionOf?: string;
    rowName?: string;
    readout?: number;
}

export interface Row {
    cells: Control[][];
    isOfTable?: boolean;
    readout?: number;
    copy?: string;
}

export interface Group {
    title: string;
    isMargins: boolean;
    isSpacing: boolean;
    isFile: boolean;
    rows: Row[];
}

export interface Form {
    groups: Group[];
    hasTables: boolean;
}

export interface Paper {
    kind: string;
    title: string;
    extension: string;
    hasMarkers: boolean;
    hasWizard: boolean;
    hasRange: boolean;
    marginsAreLinked: boolean;
    form: Form;
    state: PaperState;
}

export interface Kind {
    name: string;
    title: string;
    galleryTitle: string;
    picture: string;
    extension: string;
    hasMarkers: boolean;
}

export interface Preset {
    id: string;
    title: string;
    kind: string;
    group: string;
    isMetric: boolean;
    keywords: string;
}

export interface Font {
    families: string;
    isBold: boolean;
    isSlanted: boolean;
}

export interface Catalog {
    version: string;
    kinds: Kind[];
    presets: Preset[];
    groups: string[]; // of presets, in the order in which they are shown
    formats: { name: string; title: string; words: string; type: string }[];
    fonts: Font[];
}

export interface Warning {
    control: string;
    text: string;
}

export interface Dialog {
    form: Form;
    state: FormState;
    problem?: string;
    outcome?: string;
}

/** What is seen of the page: the size of the canvas and the place of the page's upper left corner, in CSS pixels. */
export interface View {
    width: number;
    height: number;
    ratio: number; // device pixels per CSS pixel
    scale: number; // CSS pixels per point
    x: number;
    y: number;
    rulers: boolean;
    isDark: boolean;
}

export interface Drawn {
    width: number;
    height: number;
    isInInches: boolean;
    problem: string;
}

export interface Request {
    do: string;
    [name: string]: unknown;
}

export type ToWorker =
    | { type: "start"; module: WebAssembly.Module | Bytes }
    | { type: "canvas"; canvas: OffscreenCanvas }
    | { type: "ask"; id: number; request: Request; bytes?: Bytes | undefined; draws: boolean }
    | { type: "view"; view: View }
    | { type: "light"; control: string }
    | { type: "language"; language: Language }
    | { type: "picture"; id: number; dotsPerInch: number };

export type FromWorker =
    | { type: "answer"; id: number; json: { error?: string; state?: PaperState }; bytes: Bytes }
    | { type: "drawn"; page: Drawn; milliseconds: number; memory: number }
    | { type: "painted"; newest: number } // the last request that the picture follows
    | { type: "warnings"; warnings: Warning[]; handles: Handles }
    | { type: "failed"; why: string };
