#pragma once

#include <cstddef>
#include <cstdint>

// What each routine with a logarithm, a power or a sine in it gives for a sample,
// as bits. Declared for both builds of the library's sources: with its own
// mathematics (vorn) and with the platform's.

constexpr std::size_t BLOCK = 4096;

struct Use {
    const char* name;
    bool reaches_scores;                     // else a double that is narrowed before it does
    std::uint64_t (*result)(std::uint64_t);  // of the sample of that number
};

constexpr std::size_t USES = 14;

namespace vorn {
extern const Use uses[USES];
}

namespace platform {
extern const Use uses[USES];
}
