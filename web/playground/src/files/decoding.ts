// Bytes of a file as text. What is not UTF-8 is read as Windows-1252, which has a letter for nearly every byte
// and holds Latin-1: so no letter is lost, and the composer is told. Inside and in all that is downloaded the
// text is UTF-8. A byte order mark stays: the engine tells of it here as it does anywhere else. That of an
// orchestra goes, of which the composer is told, too.
import { BYTE_ORDER_MARK, textFile, type TextFile } from '../state/piece';
import { notice } from '../ui/notices';

const utf8 = new TextDecoder('utf-8', { fatal: true, ignoreBOM: true });
const windows1252 = new TextDecoder('windows-1252');

function fromUtf8(bytes: Uint8Array): string | undefined {
    try {
        return utf8.decode(bytes);
    } catch {
        return undefined;
    }
}

// Undefined: it is no text, as a MIDI file is none. No text holds a byte of zero.
export function readText(name: string, bytes: Uint8Array): TextFile | undefined {
    if (bytes.includes(0)) {
        notice(`${name} is no text and was left out.`);
        return undefined;
    }
    const text = fromUtf8(bytes);
    if (text === undefined)
        notice(`${name} is not UTF-8: it is read as Windows-1252, and downloads will be UTF-8.`);
    const file = textFile(name, text ?? windows1252.decode(bytes));
    if (text?.startsWith(BYTE_ORDER_MARK) && !file.text.startsWith(BYTE_ORDER_MARK))
        notice(`${name} began with a byte order mark, which Csound refuses: it was left out.`);
    return file;
}
