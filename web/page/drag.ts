// Margins and titles that are dragged on the live page with a mouse or a pen.

/** A part of the page that can be dragged. */
interface Handle {
    handle: string; // a side, or the role of a title
    start?: [number, number]; // of a title's text, in points before the scale of the page
}

/** What can be dragged on the page, in points from its lower left corner. */
export interface Handles {
    inside: [left: number, bottom: number, right: number, top: number]; // where the margins end
    titles: (Handle & { area: [left: number, bottom: number, right: number, top: number] })[];
}

export interface DragEvents {
    onBegin(handle: Handle): void;
    /** The pointer is so many points from where it was pressed. */
    onMove(x: number, y: number, isFine: boolean): void;
    onEnd(isCanceled: boolean): void;
}

/** Where the pointer is on the page, in points, and how large a point is, in CSS pixels. */
export interface PlaceOnPage {
    x: number;
    y: number;
    scale: number;
}

const reach = 4; // CSS pixels to a handle
const leastDrag = 4; // CSS pixels

export class PageDrag {
    handles: Handles | null = null;
    private pressed: { handle: Handle; x: number; y: number } | null = null; // where, in CSS pixels
    private isDragging = false;
    private hasDragged = false;
    private latest: PointerEvent | null = null; // that has not been told yet

    constructor(private readonly pane: HTMLElement, private readonly placeOf: (event: MouseEvent) => PlaceOnPage,
        private readonly events: DragEvents) {
        pane.addEventListener("pointerdown", (event) => this.press(event));
        pane.addEventListener("pointermove", (event) => this.move(event));
        pane.addEventListener("pointerup", () => this.end(false));
        pane.addEventListener("pointercancel", () => this.end(true));
        document.addEventListener("keydown", (event) => {
            if (event.key === "Escape" && this.isDragging) {
                this.end(true);
            }
        });
    }

    /** Whether the click that is being handled ended a drag. */
    get wasDrag(): boolean {
        return this.hasDragged;
    }

    private handleAt({ x, y, scale }: PlaceOnPage): Handle | null {
        if (!this.handles) {
            return null;
        }
        const title = this.handles.titles.find(({ area: [left, bottom, right, top] }) =>
            x >= left && x <= right && y >= bottom && y <= top);
        if (title) {
            return title;
        }
        const [left, bottom, right, top] = this.handles.inside;
        const outside = (low: number, high: number, at: number) => Math.max(low - at, 0, at - high);
        const edges: [string, number][] = [
            ["Top", Math.hypot(y - top, outside(left, right, x))], ["Bottom", Math.hypot(y - bottom, outside(left, right, x))],
            ["Left", Math.hypot(x - left, outside(bottom, top, y))], ["Right", Math.hypot(x - right, outside(bottom, top, y))]];
        const [nearest] = edges.sort((a, b) => a[1] - b[1]);
        return left < right && bottom < top && nearest![1] * scale <= reach ? { handle: nearest![0] } : null;
    }

    private press(event: PointerEvent): void {
        this.hasDragged = false;
        const handle = event.button === 0 && event.pointerType !== "touch" ? this.handleAt(this.placeOf(event)) : null;
        if (handle) {
            this.pressed = { handle, x: event.clientX, y: event.clientY };
            this.pane.setPointerCapture(event.pointerId); // so that the pointer can leave the page
        }
    }

    private move(event: PointerEvent): void {
        if (!this.pressed) {
            const side = this.handleAt(this.placeOf(event))?.handle;
            this.pane.style.cursor = side === undefined ? "" : side === "Top" || side === "Bottom" ? "ns-resize"
                : side === "Left" || side === "Right" ? "ew-resize" : "move";
            return;
        }
        if (!this.isDragging && Math.abs(event.clientX - this.pressed.x) + Math.abs(event.clientY - this.pressed.y) >= leastDrag) {
            this.isDragging = this.hasDragged = true;
            this.events.onBegin(this.pressed.handle);
        }
        if (this.isDragging) {
            if (!this.latest) {
                requestAnimationFrame(() => this.tell());
            }
            this.latest = event;
        }
    }

    private tell(): void {
        const { latest, pressed } = this;
        this.latest = null;
        if (latest && pressed) {
            const { scale } = this.placeOf(latest);
            this.events.onMove((latest.clientX - pressed.x) / scale, (pressed.y - latest.clientY) / scale, latest.altKey || latest.ctrlKey);
        }
    }

    private end(isCanceled: boolean): void {
        if (this.isDragging) {
            this.tell();
            this.events.onEnd(isCanceled);
        }
        this.isDragging = false;
        this.pressed = null;
    }
}
