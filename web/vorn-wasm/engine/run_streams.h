#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "driver/run.h"

// One call of the command, what it says kept in memory.

namespace vorn::web {

struct SaidTexts {
    int status = 1;
    std::string out;
    std::string err;
};

// `arguments` are those behind the command's name.
[[nodiscard]] SaidTexts run_vorn(const std::vector<std::string>& arguments, Observer* observer);

}  // namespace vorn::web
