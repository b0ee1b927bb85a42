#pragma once

#include <filesystem>
#include <string>
#include <vector>

// The inputs of a fuzzer that the repository keeps, below the folder fuzz/: the corpus,
// which scripts/fuzz merge chooses anew, and what once showed a fault, which stays.

namespace vorn::test {

inline std::vector<std::filesystem::path> kept_inputs(const std::filesystem::path& fuzz,
                                                      const std::string& fuzzer) {
    std::vector<std::filesystem::path> inputs;
    for (const char* kind : {"corpus", "found"}) {
        std::error_code absent;  // not every fuzzer has found one
        for (const auto& entry : std::filesystem::directory_iterator(fuzz / kind / fuzzer, absent)) {
            inputs.push_back(entry.path());
        }
    }
    return inputs;
}

}  // namespace vorn::test
