#include "preproc/constant_definition.h"

#include <new>

#include "input/errors.h"
#include "input/numbers.h"
#include "input/skip.h"
#include "preproc/keyword.h"
#include "preproc/preprocessor.h"

// Definitions of constants, read by the g-block reader's "#c" command:
//
//     #const BAR 2.5
//     #const HALF ~[BAR / 2]
//
// By the time the second line is read here it says "#const HALF 1.250": constants
// in the value have been expanded by the line's scan, macro calls have not.

namespace vorn {

namespace {

constexpr NameErrors CONSTANT_NAME_ERRORS = {"constant name", error::BAD_CONSTANT_NAME,
                                             error::NO_MEMORY_FOR_CONSTANT};

}  // namespace

int get_var(OwnedConstant& constant, Reader& reader) {
    if (const int result = get_vdefine(reader.text, reader.pos)) return result;
    skip_blanks(reader.text, reader.pos);
    constant.reset(new (std::nothrow) Constant());
    if (constant == nullptr) return error::NO_MEMORY_FOR_CONSTANT;
    return get_vdata(*constant, reader);
}

// A bad keyword is reported with the text for macros: kept on purpose.
int get_vdefine(const char* text, std::int32_t& pos) { return skip_keyword(text, pos, "const"); }

// NAME value
int get_vdata(Constant& constant, Reader& reader) {
    if (const int result = skip_wc(reader)) return result;
    const int result =
        read_defined_name(constant.name, CONSTANT_NAME_ERRORS, reader.text, reader.pos, WatchedLine(reader));
    if (result > 0) return result;
    skip_blanks(reader.text, reader.pos);
    if (reader.text[reader.pos] == '$') return error::MACRO_IN_CONSTANT;
    const LinePlace begin = place(reader);
    if (!get_df(constant.value, reader.text, reader.pos)) return error::BAD_REAL;
    if (reader.observer != nullptr) {
        reader.observer->on_constant({constant.name, constant.value, begin, reader.pos});
    }
    return 0;
}

int parse_var(Reader& reader) {
    if (reader.text[reader.pos] != 'c') return 0;
    OwnedConstant constant;
    if (const int result = get_var(constant, reader)) return result;
    return store_var(constant.release());
}

}  // namespace vorn
