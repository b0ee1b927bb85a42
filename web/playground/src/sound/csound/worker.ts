// Renders performances beside the page. Between two stretches of samples it looks for messages, so that
// a performance that nobody wants any more ends at once.
import { perform, CsoundRefusal, type Performance } from './performance';
import type { Answer, RenderRequest, Request } from './protocol';

const SECONDS_AT_ONCE = 0.25;

let wanted = 0;

const say = (answer: Answer, moved: Transferable[] = []): void => {
    self.postMessage(answer, { transfer: moved });
};

// Lets waiting messages in: a message to oneself comes behind them, and sooner than any timer.
const channel = new MessageChannel();
const breath = (): Promise<void> =>
    new Promise((resolve) => {
        channel.port1.onmessage = () => resolve();
        channel.port2.postMessage(null);
    });

async function tell(id: number, performance: Performance): Promise<void> {
    say({ kind: 'begun', id, sampleRate: performance.sampleRate, channels: performance.channels });
    for (;;) {
        const samples = performance.next(performance.sampleRate * SECONDS_AT_ONCE);
        if (!samples) return;
        const owned = samples as Float32Array<ArrayBuffer>[];
        say(
            { kind: 'samples', id, samples: owned },
            owned.map((one) => one.buffer),
        );
        await breath();
        if (wanted !== id) return;
    }
}

async function render(request: RenderRequest): Promise<void> {
    const { id } = request;
    wanted = id;
    const onMessage = (text: string): void => say({ kind: 'message', id, text });
    let refusal = '';
    try {
        const piece = { orchestra: request.orchestra, score: request.score, files: new Map(request.files) };
        await tell(id, await perform(request.program, piece, onMessage));
    } catch (error) {
        refusal = error instanceof CsoundRefusal ? error.message : 'Csound stopped: ' + String(error);
    }
    say({ kind: 'ended', id, refusal });
}

self.onmessage = (event: MessageEvent<Request>): void => {
    if (event.data.kind === 'cancel') wanted = -1;
    else void render(event.data);
};
