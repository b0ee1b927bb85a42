#pragma once

#include <string>
#include <vector>

// One word of the language: what it is, how it is written, what it does.

namespace vorn::kit {

// What a word is says where it may stand; one spelling may be several words.
enum class WordKind {
    GLOBAL_COMMAND,  // between the blocks
    DIRECTIVE,       // a word behind "#"
    REFERENCE,       // to a macro, a constant, a time
    COMMENT,
    BLOCK,          // begins a block, a statement
    SETTING,        // in a statement
    INPUT_TYPE,     // how the values of a statement are read
    OUTPUT_TYPE,    // how they are written, in parentheses behind the number of the p-field
    GENERATOR,      // in a statement
    TIME,           // of a generator
    DISTRIBUTION,   // behind the "[" of a range
    CURVE,          // of a movement or a tempo
    CURVE_MARK,     // behind a curve
    SET_MARK,       // before a set
    RESULT_FLAG,    // before an equation of EX
    OPERATOR,       // in an equation
    EQUATION_TERM,  // in an equation
    NOTE,           // under the input type "no"
    ACCIDENTAL,     // behind the letter of a note
    RHYTHM_MARK,    // behind a value, under the input type "rh"
    REPEAT,         // among values
    LOOP,
    CHORD,
    PUNCTUATION,
};

struct Word {
    std::string word;
    WordKind kind = WordKind::PUNCTUATION;
    std::string signature;  // the form in which it is written, with what belongs to it
    std::string text;       // one line
    std::string example;    // lines between the blocks, or one statement
    bool any_case = false;  // upper-case letters mean the same
    std::string digits;     // that may directly follow the word: "0-7"
};

}  // namespace vorn::kit
