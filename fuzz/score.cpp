#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include <unistd.h>

#include "driver/run.h"

// Runs the whole program on arbitrary score descriptions; the size of the input
// chooses the options, so that every case of the tests is a seed as it stands.
// The sanitizers watch; a run that does not end meets libFuzzer's time limit.
//
//     fuzz_score -dict=fuzz/score.dict -timeout=10 corpus/
//
// Built with a small VORN_MAX_EVENTS, so that a block of millions of events,
// which is a legal thing to ask for, meets its limit soon.

namespace {

// All with "-s": a function that counts four billion events behind the end of a
// block is legal, and warns as often.
constexpr const char* OPTION_SETS[][3] = {
    {"-s", nullptr, nullptr}, {"-s", "-m", nullptr}, {"-s", "-t", nullptr}, {"-s", "-x/dev/null", nullptr}};

struct Files {
    std::string input = "/tmp/vorn_fuzz_" + std::to_string(getpid());
    std::FILE* silence = std::fopen("/dev/null", "w");
    ~Files() {
        std::remove(input.c_str());
        std::fclose(silence);
    }
};

void write_input(const Files& files, const std::uint8_t* data, std::size_t size) {
    std::FILE* const stream = std::fopen(files.input.c_str(), "wb");
    if (stream == nullptr) std::abort();
    std::fwrite(data, 1, size, stream);
    std::fclose(stream);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Files files;
    write_input(files, data, size);
    const char* arguments[6] = {"vorn"};
    int count = 1;
    for (const char* option : OPTION_SETS[size % 4]) {
        if (option != nullptr) arguments[count++] = option;
    }
    arguments[count++] = files.input.c_str();
    arguments[count++] = "/dev/null";
    const int status = vorn::run_program(count, arguments, {files.silence, files.silence});
    if (status != 0 && status != 1) std::abort();
    return 0;
}
