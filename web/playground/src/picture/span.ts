// The stretch of time in sight, and how it moves: pan, zoom around a moment, fit, follow.
export interface Span {
    readonly from: number; // seconds
    readonly to: number;
}

export const SHORTEST = 0.01;
const SHORTEST_PART = 1e-9; // of the whole: numbers of its end tell far shorter ones not apart
const MARGIN = 0.02; // of the whole, behind its end

export const wholeSpan = (seconds: number): Span => ({ from: 0, to: Math.max(seconds, 1) * (1 + MARGIN) });

// Kept within the piece, and neither longer than it nor shorter than the shortest.
export function within(span: Span, seconds: number): Span {
    const whole = wholeSpan(seconds);
    const shortest = Math.max(SHORTEST, whole.to * SHORTEST_PART);
    const length = Math.min(Math.max(span.to - span.from, shortest), whole.to);
    const from = Math.min(Math.max(span.from, 0), whole.to - length);
    return { from, to: from + length };
}

// `factor` above 1 shows less; the moment `at` stays where it is.
export const zoomed = ({ from, to }: Span, factor: number, at: number): Span => ({
    from: at - (at - from) / factor,
    to: at + (to - at) / factor,
});

export const moved = ({ from, to }: Span, seconds: number): Span => ({
    from: from + seconds,
    to: to + seconds,
});

export const lengthOf = ({ from, to }: Span): number => to - from;

// The span that shows `at`, turned over like a page when it has left the sight.
export function following(span: Span, at: number): Span {
    if (at >= span.from && at <= span.to) return span;
    return moved(span, at - span.from - lengthOf(span) * 0.05);
}

const STEPS = [1, 2, 5];

// A round distance of at least `least` for marks on an axis.
export function roundStep(least: number): number {
    const power = 10 ** Math.floor(Math.log10(least));
    return power * ([...STEPS, 10].find((step) => step * power >= least * (1 - 1e-9)) ?? 10);
}

const MOST_MARKS = 1000; // more than any sight has room for

// The multiples of `step` from one end to the other, counted before they are made: a score may hold any
// number, and where numbers are large adding 1 to one may lead nowhere.
export function marksBetween(from: number, to: number, step: number): number[] {
    const first = Math.ceil(from / step);
    const count = Math.min(MOST_MARKS, Math.floor(to / step) - first + 1);
    return count > 0 ? Array.from({ length: count }, (_, index) => (first + index) * step) : [];
}

const MINUTE_STEPS = [1, 2, 5, 10, 15, 30, 60, 120, 300, 600, 1800, 3600];

export const timeStep = (least: number): number =>
    least <= 0.5 ? roundStep(least) : (MINUTE_STEPS.find((step) => step >= least) ?? roundStep(least));

export function timeText(seconds: number, step = 1): string {
    const digits = step >= 1 ? 0 : Math.min(3, Math.ceil(-Math.log10(step) - 1e-9));
    const rounded = Number(seconds.toFixed(digits)); // 59.7 is 1:00, not 0:60
    const minutes = Math.floor(rounded / 60);
    const rest = Math.max(0, rounded - minutes * 60).toFixed(digits);
    return `${minutes}:${rest.padStart(digits > 0 ? digits + 3 : 2, '0')}`;
}
