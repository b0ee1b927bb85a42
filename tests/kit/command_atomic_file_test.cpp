#include <gtest/gtest.h>
#include <stdlib.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

#include "kit/command/atomic_file.h"
#include "kit/command/interruption.h"

// A signal is sent at the worst moment: the system's call has made the temporary
// file, and nothing in the program knows its name yet.

namespace {

namespace fs = std::filesystem;
int signal_when_made = 0;

}  // namespace

extern "C" int mkstemp(char* name) noexcept {
    const int descriptor = mkostemp(name, 0);
    if (signal_when_made != 0) raise(signal_when_made);
    return descriptor;
}

namespace vorn::kit {

namespace {

class AtomicFiles : public testing::Test {
protected:
    void SetUp() override { fs::create_directories(folder_); }
    void TearDown() override { fs::remove_all(folder_); }
    std::ptrdiff_t files() const { return std::distance(fs::directory_iterator(folder_), {}); }

    const std::string folder_ = testing::TempDir() + "vorn-atomic-" + std::to_string(getpid());
};

void write_interrupted(const std::string& path, int signal) {
    std::signal(signal, SIG_DFL);  // whatever began the test may let it ignore them
    clean_up_when_interrupted();
    signal_when_made = signal;
    std::string error;
    if (write_file(path, "text", error)) std::exit(0);
}

TEST_F(AtomicFiles, OneThatIsBeingMadeWhenASignalComesIsRemoved) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        EXPECT_EXIT(write_interrupted(folder_ + "/text", signal), testing::KilledBySignal(signal), "");
        EXPECT_EQ(files(), 0);
    }
}

TEST_F(AtomicFiles, OneThatIsKeptIsTheOnlyFile) {
    std::string error;
    EXPECT_TRUE(write_file(folder_ + "/text", "text", error)) << error;
    EXPECT_EQ(files(), 1);
}

}  // namespace

}  // namespace vorn::kit
