// Hands on the picture: wheel and pinch zoom, dragging pans, a click leads to the text; and keys for all of
// it: arrows pan, + and - zoom, 0 shows all, "." and "," step through the events, Enter leads to the text.
import type { Picture } from './picture';

const CLICK = 4; // pixels that a pointer may move within a click
const WHEEL = 0.0022;

interface Pointer {
    x: number;
    y: number;
}

class Gestures {
    private readonly pointers = new Map<number, Pointer>();
    private begin: Pointer | undefined;
    private hasMoved = false;

    constructor(private readonly picture: Picture) {
        const { stage } = picture;
        stage.addEventListener('wheel', (event) => this.wheel(event), { passive: false });
        stage.addEventListener('pointerdown', (event) => this.down(event));
        stage.addEventListener('pointermove', (event) => this.move(event));
        stage.addEventListener('pointerup', (event) => this.up(event));
        stage.addEventListener('pointercancel', (event) => this.pointers.delete(event.pointerId));
        stage.addEventListener('pointerleave', () => this.leave());
        stage.addEventListener('dblclick', () => picture.fit());
        stage.addEventListener('keydown', (event) => this.key(event));
    }

    private place(event: MouseEvent): Pointer {
        const box = this.picture.stage.getBoundingClientRect();
        return { x: event.clientX - box.left, y: event.clientY - box.top };
    }

    private wheel(event: WheelEvent): void {
        const { x } = this.place(event);
        const gutter = this.picture.layout?.gutter ?? 0;
        if (x < gutter && !event.ctrlKey) return; // scrolls through the lanes
        event.preventDefault();
        const sideways = event.shiftKey ? event.deltaX || event.deltaY : event.deltaX;
        if (Math.abs(sideways) > Math.abs(event.shiftKey ? 0 : event.deltaY)) {
            this.picture.pan(sideways / this.picture.stage.clientWidth);
        } else {
            this.picture.zoom(Math.exp(-event.deltaY * WHEEL * (event.ctrlKey ? 4 : 1)), x);
        }
    }

    private down(event: PointerEvent): void {
        if (event.button !== 0) return;
        this.pointers.set(event.pointerId, this.place(event));
        this.begin = this.place(event);
        this.hasMoved = this.pointers.size > 1;
    }

    private move(event: PointerEvent): void {
        const now = this.place(event);
        const before = this.pointers.get(event.pointerId);
        if (!before) {
            const hit = this.picture.hitAt(now.x, now.y);
            this.picture.setHover(hit);
            this.picture.told.onHover(hit, now.x, now.y);
            return;
        }
        if (!this.hasMoved && this.begin) {
            if (Math.hypot(now.x - this.begin.x, now.y - this.begin.y) < CLICK) return;
            this.hasMoved = true;
            this.picture.stage.setPointerCapture(event.pointerId);
            this.picture.told.onHover(undefined, 0, 0);
        }
        if (this.pointers.size === 2) this.pinch(event.pointerId, before, now);
        else this.drag(event, before, now);
        this.pointers.set(event.pointerId, now);
    }

    private drag(event: PointerEvent, before: Pointer, now: Pointer): void {
        this.picture.pan((before.x - now.x) / (this.picture.stage.clientWidth || 1));
        if (event.pointerType !== 'mouse') this.picture.stage.scrollTop += before.y - now.y;
    }

    private pinch(id: number, before: Pointer, now: Pointer): void {
        const other = [...this.pointers].find(([one]) => one !== id)?.[1];
        if (!other) return;
        const wide = (one: Pointer): number => Math.max(8, Math.abs(one.x - other.x));
        this.picture.zoom(wide(now) / wide(before), (now.x + other.x) / 2);
    }

    private up(event: PointerEvent): void {
        const isClick = this.pointers.delete(event.pointerId) && !this.hasMoved;
        if (!isClick) return;
        const { x, y } = this.place(event);
        const hit = this.picture.hitAt(x, y);
        if (hit) this.picture.told.onChoose(hit);
    }

    private leave(): void {
        if (this.pointers.size > 0) return;
        this.picture.setHover(undefined);
        this.picture.told.onHover(undefined, 0, 0);
    }

    private key(event: KeyboardEvent): void {
        if (event.ctrlKey || event.metaKey || event.altKey) return;
        const action = this.actions[event.key];
        if (!action) return;
        event.preventDefault();
        action();
    }

    private readonly actions: Record<string, () => void> = {
        ArrowLeft: () => this.picture.pan(-0.15),
        ArrowRight: () => this.picture.pan(0.15),
        ArrowUp: () => this.picture.stage.scrollBy({ top: -60 }),
        ArrowDown: () => this.picture.stage.scrollBy({ top: 60 }),
        '+': () => this.picture.zoom(1.4),
        '=': () => this.picture.zoom(1.4),
        '-': () => this.picture.zoom(1 / 1.4),
        '0': () => this.picture.fit(),
        Home: () => this.picture.pan(-1e6),
        End: () => this.picture.pan(1e6),
        '.': () => this.step(1),
        ',': () => this.step(-1),
        Enter: () => this.picture.hover && this.picture.told.onChoose(this.picture.hover),
    };

    private step(direction: 1 | -1): void {
        const hit = this.picture.step(direction);
        if (hit) this.picture.told.onHover(hit, -1, -1);
    }
}

export function listenToHands(picture: Picture): void {
    new Gestures(picture);
}
