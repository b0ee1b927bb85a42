#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "drawing/drawn_score.h"
#include "support/run_case.h"

// Writes scores that chance draws from the grammar of the fuzzers, each into a
// folder of its own that looks like a case of the tests: in.vorn, its include
// files, args, and expected.status where no mistake was made. The same seed writes the same scores on every
// machine.
//
//     write_scores --seed 1 --count 100 --out build/scores     -> 000000 ... 000099

namespace {

namespace fs = std::filesystem;
using vorn::fuzz::DrawnScore;

std::vector<std::uint8_t> random_bytes(std::mt19937_64& random) {
    std::vector<std::uint8_t> bytes(64 + random() % 1024);
    for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random() >> 56);
    return bytes;
}

void write_score(const DrawnScore& score, const fs::path& folder) {
    fs::create_directories(folder);
    for (const auto& [name, bytes] : score.inputs) vorn::test::write_file(folder / name, bytes);
    std::string arguments;
    for (const std::string& argument : score.arguments) arguments += argument + '\n';
    vorn::test::write_file(folder / "args", arguments);
    if (score.valid) vorn::test::write_file(folder / "expected.status", "0\n");
}

std::string numbered(unsigned long number) {
    char name[32];
    std::snprintf(name, sizeof name, "%06lu", number);
    return name;
}

}  // namespace

int main(int argc, char** argv) {
    std::map<std::string, std::string> options = {{"--seed", "1"}, {"--count", "100"}, {"--out", ""}};
    bool understood = argc % 2 == 1;
    for (int i = 1; i + 1 < argc; i += 2) {
        understood = understood && options.contains(argv[i]);
        options[argv[i]] = argv[i + 1];
    }
    if (!understood || options["--out"].empty()) {
        std::fprintf(stderr, "Usage: write_scores [--seed S] [--count N] --out folder\n");
        return 2;
    }
    std::mt19937_64 random(std::strtoull(options["--seed"].c_str(), nullptr, 10));
    const unsigned long count = std::strtoul(options["--count"].c_str(), nullptr, 10);
    for (unsigned long number = 0; number < count; ++number) {
        const std::vector<std::uint8_t> bytes = random_bytes(random);
        write_score(vorn::fuzz::draw_score(bytes.data(), bytes.size()),
                    fs::path(options["--out"]) / numbered(number));
    }
    return 0;
}
