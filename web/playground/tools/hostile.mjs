// Scores that mean harm, or are only too much: by name the texts of a piece. The tests let the page survive
// them; measure.mjs tells for how long it does not answer meanwhile.
export const MARKUP = '<img src=x onerror="window.harmed=1"><script>window.harmed=1</script>';

export const TEXTS = {
    'an include of itself': { 'a.vorn': '#include |a.vorn|\n' },
    'includes in a circle': {
        'a.vorn': '#include |b.inc|\n',
        'b.inc': '#include |b.inc|\n#include |b.inc|\n',
    },
    'a macro bomb': {
        'a.vorn':
            '#define A #x x x x x x x x x x#\n' +
            [...'BCDEFGHIJ']
                .map((name, index) => `#define ${name} #${`$${'ABCDEFGHI'[index] ?? ''} `.repeat(10)}#`)
                .join('\n') +
            '\ni1 = 4 0 4 { p2 1 p3 1 p4 $J }\n',
    },
    'a million events': { 'a.vorn': 'i1 = 5, 0, -1000000 {\np2 .001\np3 1\np4 ra(T 1 [0 1])\np5 1\n}\n' },
    'a key that nobody hears': { 'a.vorn': 'i1 = 4, 0, 2 {\np2 1\np3 1\np4(hz) 44000000 60\n}\n' },
    'keys beyond counting': {
        'a.vorn': 'i1 = 4, 0, 2 {\np2 1\np3 1\np4(hz) 99999999999999999999 .0000000001\n}\n',
    },
    'a time beyond counting': {
        'a.vorn': 'i1 = 4, 0, -4 {\np2 9999999999999999999999999\np3 1\np4(hz) 60 62\n}\n',
    },
    'three thousand instruments': {
        'a.vorn': Array.from({ length: 3000 }, (_, at) => `i${at + 1} = 4 0 4 { p2 1 p3 1 p4 60 }\n`).join(
            '',
        ),
    },
    '64 KB of emoji': { 'a.vorn': '😀🎵🎹🥁'.repeat(4096) },
    'markup everywhere': { [`${MARKUP.replaceAll('/', '')}.vorn`]: `${MARKUP}\n#include |${MARKUP}|\n` },
    'control characters': { 'a.vorn': '\u0000\u0007\u001b[31m\u202e i1 = \u2028\u2029\r\r\n' },
};
