#include "preproc/macro_definition.h"

#include <cstddef>
#include <cstdint>
#include <new>

#include "input/characters.h"
#include "input/errors.h"
#include "input/growing_array.h"
#include "input/line_buffer.h"
#include "input/messages.h"
#include "input/skip.h"
#include "preproc/conditionals.h"
#include "preproc/keyword.h"
#include "preproc/preprocessor.h"

// Definitions of macros, read by the g-block reader's "#" command:
//
//     #define TRILL(a'b) #$a $b $a $b#
//     #undef TRILL
//
// The body is kept verbatim, comments included; a line end in it is kept as a
// line feed. The macro scan has seen each of these lines before (macro_scan) and
// has expanded nothing between the marks of a definition.
//
// Invariant: a record is owned by one OwnedMacro until it is complete and enters
// macro_list, so that every early return frees it with all its strings.

namespace vorn {

namespace {

constexpr std::size_t MAX_BODY_LENGTH = LINE_SIZE - 1;  // a body must fit a line; message: report_too_long
constexpr NameErrors MACRO_NAME_ERRORS = {"macro name", error::BAD_MACRO_NAME, error::OUT_OF_MEMORY};

// The name characters from pos to the first other one or the line's end.
bool append_name_part(GrowingArray<char>& name, Reader& reader) {
    for (; is_name_char(reader.text[reader.pos]); ++reader.pos) {
        if (!name.append(reader.text[reader.pos])) return false;
    }
    return true;
}

// A formal argument's name, which goes on behind the end of a line cut in pieces.
int get_formal_name(char*& copy, Reader& reader) {
    GrowingArray<char> name;
    do {
        if (!append_name_part(name, reader)) return error::OUT_OF_MEMORY;
        if (reader.text[reader.pos] != 0) break;
        const int result = get_buff(reader);
        if (result > 0) return result;
        if (result == END_OF_INPUT) break;
    } while (is_name_char(reader.text[reader.pos]));
    copy = copy_text(name.data(), name.size());
    return copy == nullptr ? error::OUT_OF_MEMORY : 0;
}

// formal [separator]
int get_formal(Macro& macro, Reader& reader) {
    if (const int result = skip_wc(reader)) return result;
    if (!is_letter(reader.text[reader.pos])) return error::BAD_MACRO_NAME;
    if (macro.argument_count == MAX_MACRO_ARGUMENTS) return error::BAD_MACRO_ARGUMENT_COUNT;
    if (const int result = get_formal_name(macro.argument_names[macro.argument_count], reader)) return result;
    ++macro.argument_count;
    if (const int result = skip_wc(reader)) return result;
    const char c = reader.text[reader.pos];
    if (c == ',' || c == '\'' || c == '#') ++reader.pos;
    skip_blanks(reader.text, reader.pos);
    return 0;
}

// The text of a body while it is read, with the comments that hide a "#".
struct BodyText {
    char text[MAX_BODY_LENGTH];
    std::size_t length = 0;
    bool in_block = false;
    bool in_line = false;

    bool ends_at(char c) const { return c == '#' && !in_block && !in_line; }

    bool append(char c) {
        if (length == MAX_BODY_LENGTH) return false;
        text[length++] = c;
        return true;
    }

    void track(char c, char next) {
        if (in_line) return;
        if (in_block) {
            in_block = !(c == '*' && next == '/');
        } else {
            in_block = c == '/' && next == '*';
            in_line = c == ';';
        }
    }
};

// What follows the last character of a line within a body.
int go_to_next_line(BodyText& body, Reader& reader) {
    if (!body.append('\n')) return report_too_long("macro body", WatchedLine(reader));
    body.in_line = false;
    const int result = get_buff(reader);
    return result == END_OF_INPUT ? error::MISSING_MACRO_END : result;
}

int read_body(BodyText& body, Reader& reader) {
    for (char c = reader.text[reader.pos]; !body.ends_at(c); c = reader.text[reader.pos]) {
        if (c == 0) {
            if (const int result = go_to_next_line(body, reader)) return result;
            continue;
        }
        if (!body.append(c)) return report_too_long("macro body", WatchedLine(reader));
        body.track(c, peek(reader.text, reader.pos));
        ++reader.pos;
    }
    ++reader.pos;
    return 0;
}

int define_macro(Reader& reader) {
    OwnedMacro macro;
    if (const int result = get_macro(macro, reader)) return result;
    return store_macro(macro.release());
}

}  // namespace

int get_macro(OwnedMacro& macro, Reader& reader) {
    if (const int result = get_define(reader.text, reader.pos)) return result;
    skip_blanks(reader.text, reader.pos);
    macro.reset(new (std::nothrow) Macro());
    if (macro == nullptr) return error::OUT_OF_MEMORY;
    if (const int result = get_name(*macro, reader)) return result;
    if (const int result = get_args(*macro, reader)) return result;
    return get_body(*macro, reader);
}

int get_define(const char* text, std::int32_t& pos) { return skip_keyword(text, pos, "define"); }

int get_name(Macro& macro, Reader& reader) {
    if (const int result = skip_wc(reader)) return result;
    return read_defined_name(macro.name, MACRO_NAME_ERRORS, reader.text, reader.pos, WatchedLine(reader));
}

// ["(" formal {[separator] formal} ")"], the "(" directly behind the name: a
// blank before it makes a macro without arguments whose body is missing.
int get_args(Macro& macro, Reader& reader) {
    if (reader.text[reader.pos] != '(') return 0;
    ++reader.pos;
    do {
        if (const int result = get_formal(macro, reader)) return result;
    } while (reader.text[reader.pos] != ')');
    ++reader.pos;
    skip_blanks(reader.text, reader.pos);
    return 0;
}

// "#" text "#"
int get_body(Macro& macro, Reader& reader) {
    if (const int result = skip_wc(reader)) return result;
    if (reader.text[reader.pos] != '#') return error::MACRO_WITHOUT_BODY;
    ++reader.pos;
    const LinePlace begin = place(reader);
    BodyText body;
    if (const int result = read_body(body, reader)) return result;
    macro.body = copy_text(body.text, body.length);
    if (macro.body == nullptr) return error::OUT_OF_MEMORY;
    if (reader.observer != nullptr) {
        reader.observer->on_macro({macro.name, macro.argument_count, macro.body, begin});
    }
    return 0;
}

int do_undefine(const char* text, std::int32_t& pos, const WatchedLine& line) {
    if (const int result = skip_keyword(text, pos, "undef")) return result;
    skip_blanks(text, pos);
    const std::int32_t start = pos;
    while (text[pos] != 0 && !is_space(text[pos])) ++pos;
    if (macro_list == nullptr) return error::NO_MACROS;
    const Name name = {text + start, static_cast<std::size_t>(pos - start)};
    Macro* macro = find_macro(name);
    if (macro == nullptr) return report_unknown("macro", name, line);
    remove_macro(macro);
    return 0;
}

int parse_macro(Reader& reader) {
    switch (reader.text[reader.pos]) {
        case 'i': {
            float value = 0;
            return get_if(reader.text, reader.pos, WatchedLine(reader), value);
        }
        case 'e':
            // Without effect on the open "#if": kept on purpose.
            if (is_endif(reader.text, reader.pos)) reader.pos += ENDIF_LENGTH;
            return 0;
        case 'd':
            return define_macro(reader);
        default:
            return do_undefine(reader.text, reader.pos, WatchedLine(reader));
    }
}

}  // namespace vorn
