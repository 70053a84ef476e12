// Paints the display list of a page on a canvas: true widths, but a line thinner than a pixel keeps one pixel and loses
// opacity instead, so that no line is lost and the page is as dark as in print.

import { numeral, tr } from "./language.ts";
import type { Font, View } from "./words.ts";

export interface DisplayList {
    numbers: Float32Array;
    texts: string[];
}

export interface Sheet {
    width: number; // points
    height: number;
}

type Context = OffscreenCanvasRenderingContext2D;

const faintest = 0.1;
const leastLit = 2; // device pixels
const lightColor = "#f25900";

// The codes of the core's display list.
const scaleCode = 1, penCode = 2, linesCode = 3, strokeCode = 4, fillCode = 5, fillStrokeCode = 6, textCode = 7;

const sizesOfPath = [2, 2, 6]; // numbers of a move, a line and a curve

function channel(value: number): number {
    return Math.round(Math.min(Math.max(value, 0), 1) * 255);
}

export class Painter {
    private across = 1; // device pixels per unit of the list
    private up = 1;
    private width = 1; // of the pen, in the list's units
    private color = "#000";
    private cap = 0;
    private dash: number[] = [];
    private dashPhase = 0;

    constructor(
        private readonly context: Context,
        private readonly fonts: Font[],
        private readonly scale: number, // device pixels per point
        private readonly left: number, // of the page, in device pixels
        private readonly bottom: number,
        private readonly isLit: boolean,
    ) {
        this.across = this.up = scale;
    }

    paint(list: DisplayList): void {
        const n = list.numbers;
        this.context.lineJoin = "miter";
        this.context.miterLimit = 10;
        for (let at = 0; at < n.length; ) {
            const code = n[at]!;
            if (code === scaleCode) {
                this.across = this.scale * n[at + 1]!;
                this.up = this.scale * n[at + 2]!;
                at += 3;
            } else if (code === penCode) {
                this.setPen(n, at + 1);
                at += 9;
            } else if (code === linesCode) {
                this.lines(n, at + 2, n[at + 1]!);
                at += 2 + 4 * n[at + 1]!;
            } else if (code === strokeCode) {
                this.path(n, at + 1);
                this.stroke();
                at += 2 + n[at + 1]!;
            } else if (code === fillCode || code === fillStrokeCode) {
                this.path(n, at + 4);
                this.fill(this.colorAt(n, at + 1));
                if (code === fillStrokeCode) {
                    this.stroke();
                }
                at += 5 + n[at + 4]!;
            } else if (code === textCode) {
                this.text(list.texts[n[at + 1]!]!, n, at + 2);
                at += 13;
            } else {
                throw new Error(`the display list is damaged at ${at}`);
            }
        }
    }

    private colorAt(n: Float32Array, at: number): string {
        return this.isLit ? lightColor : `rgb(${channel(n[at]!)},${channel(n[at + 1]!)},${channel(n[at + 2]!)})`;
    }

    private setPen(n: Float32Array, at: number): void {
        this.width = n[at]!;
        this.color = this.colorAt(n, at + 1);
        this.cap = n[at + 4]!;
        const [on, off] = [n[at + 5]!, n[at + 6]!];
        this.dash = on > 0 || off > 0 ? [on, off] : [];
        this.dashPhase = n[at + 7]!;
    }

    /** Sets opacity and width, and returns the width in device pixels. */
    private usePen(isDot: boolean): number {
        const wanted = this.width * Math.sqrt(this.across * this.up);
        const least = this.isLit ? leastLit : 1;
        const isThin = wanted < least;
        const faded = isDot ? wanted * wanted : wanted;
        this.context.globalAlpha = isThin && !this.isLit && wanted > 0 ? Math.max(faded, faintest) : 1;
        return isThin ? least : wanted;
    }

    private stroke(): void {
        const { context } = this;
        const pixels = Math.sqrt(this.across * this.up);
        context.lineWidth = this.usePen(false);
        context.strokeStyle = this.color;
        context.lineCap = this.cap === 1 ? "round" : this.cap === 2 ? "square" : "butt";
        context.setLineDash(this.dash.map((length) => length * pixels));
        context.lineDashOffset = this.dashPhase * pixels;
        context.stroke();
        context.globalAlpha = 1;
    }

    private fill(color: string): void {
        if (!this.isLit) {
            this.context.fillStyle = color;
            this.context.fill();
        }
    }

    private path(n: Float32Array, at: number): void {
        const { context, left, bottom, across, up } = this;
        const end = at + 1 + n[at]!;
        const x = (i: number) => left + across * n[i]!;
        const y = (i: number) => bottom - up * n[i]!;
        context.beginPath();
        for (let i = at + 1; i < end; i += 1 + sizesOfPath[n[i]!]!) {
            if (n[i] === 0) {
                context.moveTo(x(i + 1), y(i + 2));
            } else if (n[i] === 1) {
                context.lineTo(x(i + 1), y(i + 2));
            } else {
                context.bezierCurveTo(x(i + 1), y(i + 2), x(i + 3), y(i + 4), x(i + 5), y(i + 6));
            }
        }
    }

    /**
     * Paints strokes of one line each. Upright and level ones are rectangles, which are exact and fast; thin ones fill one
     * row or column of pixels.
     */
    private lines(n: Float32Array, begin: number, count: number): void {
        const { context, left, bottom, across, up } = this;
        const end = begin + 4 * count;
        const dotWidth = this.usePen(true), dotAlpha = context.globalAlpha;
        const width = this.usePen(false), alpha = context.globalAlpha;
        let current = alpha; // setting it for each of many dots would take long
        const isThin = alpha < 1 || this.width * Math.sqrt(across * up) < 1;
        const isPlain = this.dash.length === 0 && (this.cap !== 1 || isThin);
        const overhang = this.cap === 2 ? width / 2 : 0;
        const { width: right, height: lower } = context.canvas;
        let slanted = 0;
        context.fillStyle = this.color;
        context.beginPath();
        for (let i = begin; i < end; i += 4) {
            const x1 = left + across * n[i]!, y1 = bottom - up * n[i + 1]!;
            const x2 = left + across * n[i + 2]!, y2 = bottom - up * n[i + 3]!;
            if (Math.max(x1, x2) < -width || Math.max(y1, y2) < -width || Math.min(x1, x2) > right + width ||
                Math.min(y1, y2) > lower + width) {
                continue; // not seen
            }
            if (x1 === x2 && y1 === y2) {
                if (current !== dotAlpha) {
                    context.globalAlpha = current = dotAlpha;
                }
                this.dot(x1, y1, dotWidth);
                continue;
            }
            if (current !== alpha) {
                context.globalAlpha = current = alpha;
            }
            if (isPlain && x1 === x2) {
                const from = Math.min(y1, y2) - overhang, length = Math.abs(y2 - y1) + 2 * overhang;
                context.fillRect(isThin ? Math.floor(x1) : x1 - width / 2, from, width, length);
            } else if (isPlain && y1 === y2) {
                const from = Math.min(x1, x2) - overhang, length = Math.abs(x2 - x1) + 2 * overhang;
                context.fillRect(from, isThin ? Math.floor(y1) : y1 - width / 2, length, width);
            } else {
                context.moveTo(x1, y1);
                context.lineTo(x2, y2);
                if (++slanted % 1000 === 0) {
                    this.stroke();
                    context.globalAlpha = alpha;
                    context.beginPath();
                }
            }
        }
        context.globalAlpha = 1;
        if (slanted % 1000 !== 0) {
            this.stroke();
        }
    }

    /** A line without length. It is filled, because not every browser paints its round ends. */
    private dot(x: number, y: number, width: number): void {
        const { context } = this;
        if (width <= 1 || this.cap === 2) {
            context.fillRect(width <= 1 ? Math.floor(x) : x - width / 2, width <= 1 ? Math.floor(y) : y - width / 2, width, width);
            return;
        }
        if (width < 2.5) {
            context.fillRect(x - width * 0.443, y - width * 0.443, width * 0.886, width * 0.886); // of the same area
            return;
        }
        const disk = new Path2D();
        disk.arc(x, y, width / 2, 0, 2 * Math.PI);
        context.fill(disk);
    }

    private text(text: string, n: Float32Array, at: number): void {
        const { context, across, up } = this;
        const font = this.fonts[n[at]!]!;
        const [a, b, c, d, e, f] = n.subarray(at + 2, at + 8) as unknown as [number, number, number, number, number, number];
        context.setTransform(across * a, -up * b, -across * c, up * d, this.left + across * e, this.bottom - up * f);
        context.font = `${font.isSlanted ? "italic " : ""}${font.isBold ? "bold " : ""}${n[at + 1]!}px ${font.families || "serif"}`;
        context.fillStyle = this.colorAt(n, at + 8);
        context.fillText(text, 0, 0);
        context.setTransform(1, 0, 0, 1, 0, 0);
    }
}

export interface Scene {
    sheet: Sheet;
    page: DisplayList;
    lights: DisplayList | null;
    fonts: Font[];
}

/** Paints the sheet with its page and lights where the view shows them. */
export function paintScene(context: Context, scene: Scene, view: View): void {
    const { ratio } = view;
    const scale = view.scale * ratio;
    const left = Math.round(view.x * ratio), top = Math.round(view.y * ratio);
    const { sheet } = scene;
    context.setTransform(1, 0, 0, 1, 0, 0);
    context.globalAlpha = 1;
    context.clearRect(0, 0, context.canvas.width, context.canvas.height);
    context.fillStyle = "#fff";
    context.fillRect(left, top, sheet.width * scale, sheet.height * scale);
    context.save();
    context.beginPath();
    context.rect(left, top, sheet.width * scale, sheet.height * scale);
    context.clip();
    const bottom = top + sheet.height * scale;
    new Painter(context, scene.fonts, scale, left, bottom, false).paint(scene.page);
    if (scene.lights) {
        new Painter(context, scene.fonts, scale, left, bottom, true).paint(scene.lights);
    }
    context.restore();
}

export const rulerWidth = 22; // CSS pixels

/** Paints rulers at the upper and left edge, in the unit of the form, with their zero at the corner of the sheet. */
export function paintRulers(context: Context, view: View, isInInches: boolean): void {
    const unit = (isInInches ? 72 : 72 / 2.54) * view.scale; // CSS pixels
    const step = [1, 2, 5, 10, 20, 50].find((units) => units * unit >= 34) ?? 100;
    const parts = (isInInches ? [16, 8, 4, 2, 1] : [10, 5, 2, 1]).find((count) => unit / count >= 5 || count === 1) ?? 1;
    context.save();
    context.setTransform(view.ratio, 0, 0, view.ratio, 0, 0);
    const ink = view.isDark ? "#b8bcc4" : "#5a5f68";
    for (const isUpright of [false, true]) {
        const [origin, length] = isUpright ? [view.y, view.height] : [view.x, view.width];
        context.fillStyle = view.isDark ? "#22252b" : "#f4f5f7";
        context.fillRect(0, 0, isUpright ? rulerWidth : length, isUpright ? length : rulerWidth);
        context.fillStyle = ink;
        context.font = "10px sans-serif";
        for (let tick = Math.ceil(((rulerWidth - origin) / unit) * parts); origin + (tick / parts) * unit < length; ++tick) {
            const place = Math.round(origin + (tick / parts) * unit);
            const isWhole = tick % parts === 0;
            const isNamed = isWhole && (tick / parts) % step === 0;
            const size = isNamed ? 8 : isWhole ? 6 : 3;
            context.fillRect(isUpright ? rulerWidth - size : place, isUpright ? place : rulerWidth - size,
                isUpright ? size : 1, isUpright ? 1 : size);
            if (isNamed) {
                context.fillText(numeral(tick / parts), isUpright ? 2 : place + 3, isUpright ? place + 10 : 10);
            }
        }
    }
    context.fillStyle = view.isDark ? "#22252b" : "#f4f5f7";
    context.fillRect(0, 0, rulerWidth, rulerWidth);
    context.fillStyle = ink;
    context.fillText(isInInches ? tr("in") : tr("cm"), 4, 14);
    context.restore();
}
