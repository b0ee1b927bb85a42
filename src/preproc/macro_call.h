#pragma once

#include "input/reader.h"
#include "preproc/macro_list.h"

// Calls of macros, "$" NAME ["(" actual arguments ")"], expanded in place in a
// text of LINE_SIZE bytes.

namespace vorn {

constexpr int MAX_CALL_DEPTH = 200;    // calls within bodies within ...; deeper: error 89
constexpr int MAX_EXPANSIONS = 10000;  // in one line, those within bodies counted; more: error 89

// What the expansions of one line have used up.
struct ExpansionBudget {
    int expansions = 0;
    int depth = 0;  // bodies being expanded
};

// Expands the call whose name stands at pos, right behind its "$". A name is looked
// up among `arguments` (null: none) and then among the macros. Returns 0 with pos at
// the inserted text and `inserted` its length, or an error number with pos where
// reading stopped.
[[nodiscard]] int expand(const Macro* arguments, char* text, std::int32_t& pos, const WatchedLine& line,
                         ExpansionBudget& budget, std::int32_t& inserted);

// The same for a call in the line itself.
[[nodiscard]] int expand_macro(char* text, std::int32_t& pos, const WatchedLine& line,
                               ExpansionBudget& budget);

// Replaces the call whose "$" stands at pos by the record's body and says so; the
// observer is told where the text is the line itself. 89 when it would not fit.
[[nodiscard]] int expand_in_buff(const Macro& macro, char* text, std::int32_t pos, const WatchedLine& line,
                                 bool in_line);

// Moves over a call: "$", name, and a parenthesised group directly behind the name.
void skip_name(const char* text, std::int32_t& pos);

// Moves over a balanced group that starts at pos, if one does; the end of the text ends it.
void skip_args(const char* text, std::int32_t& pos);

}  // namespace vorn
