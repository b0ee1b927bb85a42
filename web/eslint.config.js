import js from '@eslint/js';
import globals from 'globals';
import typescript from 'typescript-eslint';

// Layout is Prettier's; here stands what a reader of the code may rely on.
export default typescript.config(
    { ignores: ['**/dist/', '**/node_modules/', '**/generated/', '**/test-results/'] },
    js.configs.recommended,
    ...typescript.configs.strict,
    { languageOptions: { globals: { ...globals.browser, ...globals.node } } },
    {
        rules: {
            eqeqeq: 'error',
            'no-var': 'error',
            'prefer-const': 'error',
            'max-depth': ['error', 3],
            'max-lines-per-function': ['error', { max: 60, skipBlankLines: true, skipComments: true }],
        },
    },
    { files: ['**/*.test.ts', '**/tests/**'], rules: { 'max-lines-per-function': 'off' } },
);
