#include "preproc/keyword.h"

#include "input/characters.h"
#include "input/errors.h"

// A keyword is as many characters as it has, whatever they are, white space
// included; only the end of the line cuts it short:
//
//     "undef A"    "uNDEF A"    "xxxxf A"    pass as "undef"

namespace vorn {

int skip_keyword(const char* text, std::int32_t& pos, const char* keyword) {
    bool resembles = false;
    std::int32_t end = pos;
    for (; *keyword != 0 && text[end] != 0; ++keyword, ++end) resembles |= text[end] == *keyword;
    if (!resembles) return error::BAD_DEFINE;
    pos = end;
    return is_space(text[pos]) ? 0 : error::BAD_DEFINE;
}

}  // namespace vorn
