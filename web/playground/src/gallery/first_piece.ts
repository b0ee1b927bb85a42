// What a first visit shows: a piece that sounds well after one click.
import orchestra from '../../../../examples/a_minor_canon/a_minor_canon.orc?raw';
import score from '../../../../examples/a_minor_canon/a_minor_canon.vorn?raw';
import type { Piece } from '../state/piece';

export const firstPiece: Piece = {
    title: 'A minor canon',
    files: [
        { name: 'a_minor_canon.vorn', text: score },
        { name: 'a_minor_canon.orc', text: orchestra },
    ],
};
