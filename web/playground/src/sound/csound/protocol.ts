// What the page and the Worker that renders say to each other. Every performance has a number; an
// answer with the number of an older one is out of date.
export interface RenderRequest {
    kind: 'render';
    id: number;
    program: WebAssembly.Module;
    orchestra: string;
    score: string;
    files: [string, Uint8Array][];
}

export interface CancelRequest {
    kind: 'cancel';
    id: number;
}

export type Request = RenderRequest | CancelRequest;

export type Answer =
    | { kind: 'begun'; id: number; sampleRate: number; channels: number }
    | { kind: 'samples'; id: number; samples: Float32Array<ArrayBuffer>[] }
    | { kind: 'message'; id: number; text: string }
    | { kind: 'ended'; id: number; refusal: string };

export const ORCHESTRA_REFUSED = 'Csound refuses the orchestra.';
