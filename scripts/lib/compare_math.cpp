#include <cstdio>
#include <cstdlib>

#include "math_results.h"

// Runs both builds of the library's routines over the same samples and prints one
// row for each use. The status is 1 when a result that reaches scores differs.

namespace {

struct Outcome {
    std::uint64_t differences = 0;
    std::uint64_t digest = 0xcbf29ce484222325;  // of ours (G. Fowler, L. C. Noll, K.-P. Vo)
};

Outcome compare(const Use& ours, const Use& theirs, std::uint64_t samples) {
    Outcome outcome;
    for (std::uint64_t sample = 0; sample < samples; ++sample) {
        const std::uint64_t result = ours.result(sample);
        if (result != theirs.result(sample)) ++outcome.differences;
        outcome.digest = (outcome.digest ^ result) * 0x100000001b3;
    }
    return outcome;
}

}  // namespace

int main(int, char** argv) {
    const std::uint64_t samples = std::strtoull(argv[1], nullptr, 10) * 1'000'000;
    std::uint64_t differing = 0;
    std::printf("%-24s %14s %14s  %s\n", "", "samples", "differences", "digest of ours");
    for (std::size_t i = 0; i < USES; ++i) {
        const Outcome outcome = compare(vorn::uses[i], platform::uses[i], samples);
        std::printf("%-24s %14llu %14llu  %016llx\n", vorn::uses[i].name,
                    static_cast<unsigned long long>(samples),
                    static_cast<unsigned long long>(outcome.differences),
                    static_cast<unsigned long long>(outcome.digest));
        std::fflush(stdout);
        if (vorn::uses[i].reaches_scores) differing += outcome.differences;
    }
    std::printf("%llu results that reach scores differ\n", static_cast<unsigned long long>(differing));
    return differing == 0 ? 0 : 1;
}
