// The piece as files of every kind, made here and nowhere else.
import type { Output, Result, VornClient } from 'vorn-wasm';
import type { Sounding } from '../sound/sounding';
import type { AppStore } from '../state/app_state';
import { orchestraOf } from '../state/orchestras';
import { mainFile, withoutSuffix, writtenSourcesOf, writtenText, type TextFile } from '../state/piece';
import type { MenuEntry } from '../ui/menu';
import { notice } from '../ui/notices';
import { renderedWave } from './rendered_wave';

const DEADLINE = 60000;

export function saveAs(name: string, content: BlobPart | Blob, type = 'application/octet-stream'): void {
    const blob = content instanceof Blob ? content : new Blob([content], { type });
    const link = document.createElement('a');
    link.href = URL.createObjectURL(blob);
    link.download = name;
    link.click();
    setTimeout(() => URL.revokeObjectURL(link.href), 60000);
}

// Orchestra and score in one file that Csound plays by itself.
export const csoundDocument = (orchestra: string, score: string): string =>
    `<CsoundSynthesizer>
<CsOptions>
-odac -d
</CsOptions>
<CsInstruments>
${orchestra.trimEnd()}
</CsInstruments>
<CsScore>
${score.trimEnd()}
</CsScore>
</CsoundSynthesizer>
`;

const textEntry = (file: TextFile): MenuEntry => ({
    name: file.name,
    hint: 'the text',
    act: () => saveAs(file.name, writtenText(file)),
});

export class Downloads {
    constructor(
        private readonly store: AppStore,
        private readonly engine: Promise<VornClient>,
        private readonly sounding: Sounding,
    ) {}

    entries(): MenuEntry[] {
        const { piece } = this.store.state;
        const stem = withoutSuffix(mainFile(piece).name);
        const offer = (
            suffix: string,
            hint: string,
            make: () => Promise<BlobPart | Blob | undefined>,
        ): MenuEntry => ({
            name: stem + suffix,
            hint,
            act: () => void this.give(stem + suffix, make),
        });
        return [
            ...piece.files.map(textEntry),
            'line',
            offer('.sco', 'Csound score', () => this.made('score', (result) => result.score)),
            offer('.csd', 'score and orchestra', () => this.document()),
            offer('.wav', 'sound', () => renderedWave(this.sounding, stem + '.wav')),
            'line',
            offer('.mid', 'MIDI, all blocks', () => this.made('fullMidi', (result) => result.fullMidi)),
            offer('-m.mid', 'MIDI, first block', () => this.made('midi', (result) => result.midi)),
            'line',
            offer('.svg', 'picture', () => this.made('picture', (result) => result.picture)),
            offer('.json', 'events', () => this.made('json', (result) => result.json)),
        ];
    }

    private async give(name: string, make: () => Promise<BlobPart | Blob | undefined>): Promise<void> {
        try {
            const content = await make();
            if (content !== undefined) saveAs(name, content);
        } catch (error) {
            notice(error instanceof Error ? error.message : String(error));
        }
    }

    private async compiled(output: Output): Promise<Result> {
        const { piece } = this.store.state;
        const options = { main: mainFile(piece).name, outputs: [output], picture: { title: piece.title } };
        const client = await this.engine;
        const result = await client.compile(writtenSourcesOf(piece), options, { deadline: DEADLINE });
        if (result.status !== 0) throw new Error('The score has a mistake; there is no file of it yet.');
        return result;
    }

    private async made(
        output: Output,
        pick: (result: Result) => Uint8Array | string | undefined,
    ): Promise<BlobPart> {
        const result = await this.compiled(output);
        const content = pick(result);
        if (content === undefined)
            throw new Error(result.midiMessages || 'There is no such file of this score.');
        return content as BlobPart;
    }

    private async document(): Promise<string> {
        const orchestra = orchestraOf(this.store.state.piece);
        if (!orchestra) {
            const { builtIn } = await this.compiled('builtIn');
            return csoundDocument(builtIn?.orchestra ?? '', builtIn?.score ?? '');
        }
        const { score } = await this.compiled('score');
        return csoundDocument(orchestra.text, new TextDecoder().decode(score));
    }
}
