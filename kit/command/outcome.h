#pragma once

namespace vorn::kit {

// What the status of every subcommand means.
enum class Outcome : int {
    WELL = 0,
    REFUSED = 1,    // the score has a mistake
    WRONG_USE = 2,  // an argument, a file or a program that is needed is not as it must be
};

}  // namespace vorn::kit
