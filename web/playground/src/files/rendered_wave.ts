// A sound file is rendered whole, however long it takes: how far it is stands on the page, with a button that
// ends it; what no such file can hold is told as soon as that is known.
import { timeText } from '../picture/span';
import { CANCELLED } from '../sound/rendering';
import type { Sounding } from '../sound/sounding';
import type { WaveRendering } from '../sound/wave';
import { notice, progressNotice } from '../ui/notices';

export function progressWords(name: string, rendering: WaveRendering): string {
    const { seconds, scoreSeconds, mostSeconds } = rendering;
    const words = `${name}: ${timeText(seconds)} of ${timeText(scoreSeconds)}`;
    if (scoreSeconds <= mostSeconds) return words;
    return `${words}. A .wav file holds 4 GB, the first ${timeText(mostSeconds)} of this sound; the rest is left out.`;
}

// Nothing when it was cancelled.
export async function renderedWave(sounding: Sounding, name: string): Promise<Blob | undefined> {
    const finished = sounding.finishedWave;
    if (finished) return finished;
    const rendering = await sounding.renderWave();
    const progress = progressNotice(name, () => sounding.cancelWave());
    const tell = (): void =>
        progress.tell(rendering.seconds / rendering.scoreSeconds, progressWords(name, rendering));
    const stop = rendering.onChange(tell);
    await rendering.whole();
    stop();
    progress.close();
    const { refusal, isCut, frames } = rendering;
    if (refusal === CANCELLED) return undefined;
    if (frames === 0 || (refusal !== '' && !isCut)) throw new Error(refusal || 'Csound made no sound.');
    if (isCut) notice(refusal);
    return rendering.file();
}
