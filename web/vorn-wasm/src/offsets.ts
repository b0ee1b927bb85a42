// From bytes of UTF-8 to the units in which strings count (UTF-16). A text of ASCII, as
// most scores are, needs no table.

export class Offsets {
    private readonly units: Uint32Array | null;

    constructor(bytes: Uint8Array) {
        this.units = bytes.some((byte) => byte >= 0x80) ? unitsBefore(bytes) : null;
    }

    at(byte: number): number {
        return this.units === null ? byte : (this.units[Math.min(byte, this.units.length - 1)] as number);
    }
}

/** Units of a character by its first byte; a byte that continues one has none of its own. */
function unitsOf(byte: number): number {
    if ((byte & 0xc0) === 0x80) return 0;
    return byte >= 0xf0 ? 2 : 1;
}

function unitsBefore(bytes: Uint8Array): Uint32Array {
    const units = new Uint32Array(bytes.byteLength + 1);
    let count = 0;
    for (let at = 0; at < bytes.byteLength; ++at) {
        units[at] = count;
        count += unitsOf(bytes[at] as number);
    }
    units[bytes.byteLength] = count;
    return units;
}
