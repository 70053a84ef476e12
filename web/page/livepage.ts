// The live page: what of it is seen, how large, and what a click means. The worker paints it.

import { byId, make } from "./dom.ts";
import { type DragEvents, type Handles, PageDrag, type PlaceOnPage } from "./drag.ts";
import { rulerWidth } from "./painter.ts";
import type { Drawn, View } from "./words.ts";

const pixelsPerPoint = 96 / 72; // CSS
const room = 16; // CSS pixels around the page
const reach = 4; // CSS pixels that a click may miss a line by
const smallestScale = 0.05, largestScale = 16;

export class LivePage {
    private readonly pane = byId("pane");
    private readonly spacer = byId("spacer");
    private canvas: HTMLCanvasElement | null = null;
    private page: Drawn = { width: 612, height: 792, isInInches: true, problem: "" };
    private zoom = 0; // CSS pixels per point; 0 fits the page into the pane
    private isWaiting = false;
    private readonly drag: PageDrag;

    constructor(
        private readonly onView: (view: View) => void,
        private readonly onClick: (x: number, y: number, reach: number) => void,
        private readonly onZoom: (percent: number, isFit: boolean) => void,
        dragEvents: DragEvents,
    ) {
        this.drag = new PageDrag(this.pane, (event) => this.placeOf(event), dragEvents);
        new ResizeObserver(() => this.send()).observe(this.pane);
        this.pane.addEventListener("scroll", () => this.send());
        this.pane.addEventListener("wheel", (event) => {
            if (event.ctrlKey) {
                event.preventDefault();
                this.zoomBy(Math.exp(-event.deltaY / 300));
            }
        }, { passive: false });
        this.pane.addEventListener("click", (event) => this.click(event));
        this.pane.addEventListener("keydown", (event) => {
            const factor = { "+": 1.25, "=": 1.25, "-": 0.8 }[event.key];
            if (factor !== undefined) {
                this.zoomBy(factor);
            } else if (event.key === "0") {
                this.zoomTo(0);
            }
        });
        window.matchMedia("(prefers-color-scheme: dark)").addEventListener("change", () => this.send());
    }

    /** Puts a new canvas in place of the old one, whose worker has ended. */
    newCanvas(): HTMLCanvasElement {
        const canvas = make("canvas", { id: "canvas", "aria-hidden": "true" });
        this.canvas?.remove();
        this.canvas = canvas;
        this.pane.prepend(canvas);
        return canvas;
    }

    show(page: Drawn): void {
        const isNew = page.width !== this.page.width || page.height !== this.page.height || page.isInInches !== this.page.isInInches;
        this.page = page;
        if (isNew) {
            this.send();
        }
    }

    showHandles(handles: Handles): void {
        this.drag.handles = handles;
    }

    zoomBy(factor: number): void {
        this.zoomTo(Math.min(Math.max(this.scale() * factor, smallestScale), largestScale));
    }

    /** Shows the page at its true size. */
    zoomToTrueSize(): void {
        this.zoomTo(pixelsPerPoint);
    }

    zoomTo(scale: number): void {
        const old = this.scale();
        const { scrollLeft, scrollTop, clientWidth, clientHeight } = this.pane;
        this.zoom = scale;
        const factor = this.scale() / old;
        this.size();
        this.pane.scrollTo((scrollLeft + clientWidth / 2) * factor - clientWidth / 2,
            (scrollTop + clientHeight / 2) * factor - clientHeight / 2);
        this.send();
    }

    private get left(): number {
        return this.hasRulers ? rulerWidth : 0;
    }

    private get hasRulers(): boolean {
        return this.pane.clientWidth > 480;
    }

    private scale(): number {
        if (this.zoom > 0) {
            return this.zoom;
        }
        const across = this.pane.clientWidth - this.left - 2 * room, up = this.pane.clientHeight - this.left - 2 * room;
        return Math.max(Math.min(across / this.page.width, up / this.page.height), smallestScale);
    }

    private size(): void {
        const scale = this.scale();
        const fits = this.zoom === 0;
        this.spacer.style.width = fits ? "0" : `${this.page.width * scale + 2 * room + this.left}px`;
        this.spacer.style.height = fits ? "0" : `${this.page.height * scale + 2 * room + this.left}px`;
    }

    /** Where the upper left corner of the page is in the canvas, in CSS pixels. */
    private corner(): { x: number; y: number } {
        const scale = this.scale();
        const place = (paneSize: number, pageSize: number, scrolled: number) =>
            Math.max((paneSize + this.left - pageSize * scale) / 2, room + this.left) - scrolled;
        return {
            x: Math.round(place(this.pane.clientWidth, this.page.width, this.pane.scrollLeft)),
            y: Math.round(place(this.pane.clientHeight, this.page.height, this.pane.scrollTop)),
        };
    }

    /** Tells the worker what is seen, once per frame. */
    private send(): void {
        if (this.isWaiting) {
            return;
        }
        this.isWaiting = true;
        requestAnimationFrame(() => {
            this.isWaiting = false;
            this.sendNow();
        });
    }

    sendNow(): void {
        const { clientWidth: width, clientHeight: height } = this.pane;
        if (width === 0 || height === 0) {
            return; // another tab is shown
        }
        this.size();
        if (this.canvas) {
            this.canvas.style.width = `${width}px`;
            this.canvas.style.height = `${height}px`;
        }
        const scale = this.scale();
        this.onView({
            width, height, scale, ...this.corner(), ratio: window.devicePixelRatio, rulers: this.hasRulers,
            isDark: window.matchMedia("(prefers-color-scheme: dark)").matches,
        });
        this.onZoom(Math.round((100 * scale) / pixelsPerPoint), this.zoom === 0);
    }

    private placeOf(event: MouseEvent): PlaceOnPage {
        const box = this.pane.getBoundingClientRect();
        const corner = this.corner(), scale = this.scale();
        return {
            x: (event.clientX - box.left - corner.x) / scale,
            y: this.page.height - (event.clientY - box.top - corner.y) / scale,
            scale,
        };
    }

    private click(event: MouseEvent): void {
        const { x, y, scale } = this.placeOf(event);
        if (!this.drag.wasDrag && x >= 0 && x <= this.page.width && y >= 0 && y <= this.page.height) {
            this.onClick(x, y, reach / scale);
        }
    }
}
