#include "preproc/macro_call.h"

#include <cstring>
#include <memory>
#include <new>
#include <utility>

#include "input/errors.h"
#include "input/messages.h"
#include "input/run_flags.h"
#include "input/skip.h"
#include "preproc/splice.h"

// Expanding calls, outermost first:
//
//     #define M(a) #$a-$N($a)#        $M(1) 5
//
// The actual arguments are read verbatim, the body's own "$" are replaced in a
// work buffer (the arguments' before the macros'), and the result takes the place
// of the call in the text. Whoever called then scans the inserted text again.
//
// Invariant: each text is LINE_SIZE bytes long and changes only through splice, and
// the records made for a call are freed when it ends, whatever its outcome.

namespace vorn {

namespace {

// The record of a list that has a name; null: none.
const Macro* find_argument(const Macro* arguments, const Name& name) {
    while (arguments != nullptr && !same_name(name, arguments->name)) arguments = arguments->next;
    return arguments;
}

// Puts an argument's record at the head of its call's list; 84 for a repeated name.
int store_argument(OwnedMacro& arguments, OwnedMacro argument) {
    if (find_argument(arguments.get(), whole_name(argument->name)) != nullptr) return error::DUPLICATE_MACRO;
    argument->next = arguments.release();
    arguments = std::move(argument);
    return 0;
}

OwnedMacro make_argument(const char* name, const char* start, std::size_t length) {
    OwnedMacro argument(new (std::nothrow) Macro());
    if (argument == nullptr) return nullptr;
    argument->name = copy_text(name);
    argument->body = copy_text(start, length);
    if (argument->name == nullptr || argument->body == nullptr) return nullptr;
    return argument;
}

// text ("'" | "#"), or text ")" for the last one: at the first ")", whatever was
// opened before it, kept on purpose.
int read_argument(OwnedMacro& arguments, const char* name, bool last, const char* text, std::int32_t& pos) {
    const char* start = text + pos;
    for (;; ++pos) {
        const char c = text[pos];
        if (c == 0) return error::BAD_MACRO_SYNTAX;
        if (last && c == '\'') return error::STRAY_QUOTE;
        if (last ? c == ')' : c == '\'' || c == '#') break;
    }
    OwnedMacro argument = make_argument(name, start, static_cast<std::size_t>(text + pos - start));
    if (argument == nullptr) return error::OUT_OF_MEMORY;
    ++pos;
    return store_argument(arguments, std::move(argument));
}

// [white space] "(" text {("'" | "#") text} ")"
int read_arguments(OwnedMacro& arguments, const Macro& macro, const char* text, std::int32_t& pos) {
    skip_blanks(text, pos);
    if (text[pos] != '(') return error::MACRO_CALL_WITHOUT_PARENTHESIS;
    ++pos;
    for (int at = 0; at < macro.argument_count; ++at) {
        const bool last = at == macro.argument_count - 1;
        const int result = read_argument(arguments, macro.argument_names[at], last, text, pos);
        if (result > 0) return result;
    }
    return 0;
}

// Expands every call in a body. What an expansion inserts is scanned again, but a
// call with which it begins is stepped over: kept on purpose, for the line's own
// scan meets it later.
int expand_calls(const Macro* arguments, char* body, const WatchedLine& line, ExpansionBudget& budget) {
    for (std::int32_t pos = 0; body[pos] != 0;) {
        if (body[pos++] != '$') continue;
        std::int32_t inserted = 0;
        if (const int result = expand(arguments, body, pos, line, budget, inserted)) return result;
        if (inserted > 0 && body[pos] == '$') skip_name(body, pos);
    }
    return 0;
}

// Turns the working copy's body into what a call with these arguments inserts.
int expand_body(Macro& working, const Macro* arguments, const WatchedLine& line, ExpansionBudget& budget) {
    std::unique_ptr<char[]> body(new (std::nothrow) char[LINE_SIZE]);
    if (body == nullptr) return error::OUT_OF_MEMORY;
    std::memcpy(body.get(), working.body, std::strlen(working.body) + 1);  // a body fits a line
    ++budget.depth;
    const int result = expand_calls(arguments, body.get(), line, budget);
    --budget.depth;
    if (result > 0) return result;
    delete[] working.body;
    working.body = body.release();
    return 0;
}

int expand_with_arguments(Macro& working, const char* text, std::int32_t& pos, const WatchedLine& line,
                          ExpansionBudget& budget) {
    OwnedMacro arguments;
    if (const int result = read_arguments(arguments, working, text, pos)) return result;
    return expand_body(working, arguments.get(), line, budget);
}

// Finds what a name stands for; null: nothing. A call of a macro, unlike that of
// an argument, counts as a level of nesting.
const Macro* find_called(const Macro* arguments, const Name& name, bool& too_deep,
                         const ExpansionBudget& budget) {
    const Macro* argument = find_argument(arguments, name);
    too_deep = argument == nullptr && budget.depth >= MAX_CALL_DEPTH;
    return argument != nullptr ? argument : find_macro(name);
}

}  // namespace

int expand(const Macro* arguments, char* text, std::int32_t& pos, const WatchedLine& line,
           ExpansionBudget& budget, std::int32_t& inserted) {
    const std::int32_t start = pos - 1;
    const Name name = read_name(text, pos);
    bool too_deep = false;
    const Macro* macro = find_called(arguments, name, too_deep, budget);
    if (macro == nullptr) return report_unknown("macro", name, line);
    if (too_deep || ++budget.expansions > MAX_EXPANSIONS) return error::EXPANSION_TOO_LONG;
    const OwnedMacro working(copy_macro(*macro));
    if (working == nullptr) return error::OUT_OF_MEMORY;
    if (working->argument_count > 0) {
        if (const int result = expand_with_arguments(*working, text, pos, line, budget)) return result;
    }
    if (const int result = expand_in_buff(*working, text, start, line, budget.depth == 0)) return result;
    pos = start;
    inserted = static_cast<std::int32_t>(std::strlen(working->body));
    return 0;
}

int expand_macro(char* text, std::int32_t& pos, const WatchedLine& line, ExpansionBudget& budget) {
    std::int32_t inserted = 0;
    return expand(nullptr, text, pos, line, budget, inserted);
}

int expand_in_buff(const Macro& macro, char* text, std::int32_t pos, const WatchedLine& line, bool in_line) {
    if (!SUPRESS) Mprintf("\n\tExpanding macro \"%s\" into line %d...", macro.name, line.number);
    std::int32_t end = pos;
    skip_name(text, end);
    if (!splice(text, pos, end, macro.body)) return error::EXPANSION_TOO_LONG;
    if (in_line) tell_splice(line, SpliceKind::MACRO, macro.name, pos, end, macro.body);
    return 0;
}

// Also a macro without formal arguments takes a group behind its name with it:
// kept on purpose.
void skip_name(const char* text, std::int32_t& pos) {
    if (text[pos] == '$') ++pos;
    read_name(text, pos);
    skip_args(text, pos);
}

void skip_args(const char* text, std::int32_t& pos) {
    if (text[pos] != '(') return;
    int depth = 0;
    do {
        if (text[pos] == '(') ++depth;
        if (text[pos] == ')') --depth;
        ++pos;
    } while (depth > 0 && text[pos] != 0);
}

}  // namespace vorn
