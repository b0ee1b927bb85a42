// Where the temporary file is made, under which name, and when it is not.

#include "driver/temporary_file.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>

#include "support/message_capture.h"
#include "support/run_case.h"

namespace {

std::string drawn_names;  // what chance draws next, six characters a name; used up, the last goes on

constexpr char CHARACTERS[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";
constexpr std::size_t DRAWN = 6;

}  // namespace

// Replaces the system's, so that names can be foreseen; without a name it fails.
extern "C" [[gnu::noinline]] int getentropy(void* buffer, std::size_t size) {
    if (drawn_names.size() < DRAWN || size != DRAWN) return -1;
    for (std::size_t at = 0; at < DRAWN; ++at) {
        static_cast<char*>(buffer)[at] =
            static_cast<char>(std::strchr(CHARACTERS, drawn_names[at]) - CHARACTERS);
    }
    if (drawn_names.size() > DRAWN) drawn_names.erase(0, DRAWN);
    return 0;
}

namespace {

bool no_stream = false;  // what fdopen says next

}  // namespace

extern "C" [[gnu::noinline]] FILE* fdopen(int descriptor, const char* mode) noexcept {
    static const auto real = reinterpret_cast<FILE* (*)(int, const char*)>(dlsym(RTLD_NEXT, "fdopen"));
    return no_stream ? nullptr : real(descriptor, mode);
}

namespace vorn::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* REFUSED = "\nERROR: Can't open temporary file\n\n";

class TemporaryFile : public testing::Test {
protected:
    TemporaryFile() { setenv("TMPDIR", folder_.path().c_str(), 1); }
    ~TemporaryFile() override {
        remove_temporary_file();
        unsetenv("TMPDIR");
    }

    // Whether the file is made; it is closed at once and stays.
    static bool make() {
        std::FILE* const stream = open_temporary_file(nullptr);
        if (stream != nullptr) std::fclose(stream);
        return stream != nullptr;
    }

    std::string name(const std::string& end) const { return (folder_.path() / ("vorn" + end)).string(); }

    WorkFolder folder_;
    MessageCapture capture_;
};

TEST_F(TemporaryFile, IsNamedByChanceAndPrivate) {
    drawn_names = "Az09Za";
    ASSERT_TRUE(make());
    EXPECT_EQ(tmp_fname, name("Az09Za"));
    EXPECT_EQ(fs::status(tmp_fname).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    remove_temporary_file();
    EXPECT_STREQ(tmp_fname, "");
    EXPECT_FALSE(fs::exists(name("Az09Za")));
    EXPECT_EQ(capture_.text(), "");
}

TEST_F(TemporaryFile, OfNobodyElseIsTouched) {
    folder_.write("vornTHEIRS", "kept");
    drawn_names = "THEIRSTHEIRSmine00";
    ASSERT_TRUE(make());
    EXPECT_EQ(tmp_fname, name("mine00"));
    EXPECT_EQ(folder_.read("vornTHEIRS"), "kept");
}

TEST_F(TemporaryFile, IsGivenUpAfterAHundredNames) {
    folder_.write("vornTHEIRS", "kept");
    drawn_names.clear();
    for (int at = 0; at < 99; ++at) drawn_names += "THEIRS";
    drawn_names += "mine00";
    EXPECT_TRUE(make());
    remove_temporary_file();
    drawn_names.insert(0, "THEIRS");
    for (int at = 0; at < 99; ++at) drawn_names.insert(0, "THEIRS");
    EXPECT_FALSE(make());
    EXPECT_STREQ(tmp_fname, "");
    EXPECT_EQ(capture_.text(), REFUSED);
    EXPECT_EQ(folder_.read("vornTHEIRS"), "kept");
}

TEST_F(TemporaryFile, NeedsChance) {
    drawn_names.clear();
    EXPECT_FALSE(make());
    EXPECT_EQ(capture_.text(), REFUSED);
}

// Standard input stays as it is, also where it could be written.
TEST_F(TemporaryFile, NeedsAFolder) {
    const int kept = dup(STDIN_FILENO);
    const int null = open("/dev/null", O_RDWR);
    dup2(null, STDIN_FILENO);
    drawn_names = "mine00";
    setenv("TMPDIR", (folder_.path() / "none").c_str(), 1);
    EXPECT_FALSE(make());
    EXPECT_EQ(capture_.text(), REFUSED);
    EXPECT_STREQ(tmp_fname, "");
    EXPECT_GE(fcntl(STDIN_FILENO, F_GETFD), 0);
    dup2(kept, STDIN_FILENO);
    close(null);
    close(kept);
}

TEST_F(TemporaryFile, IsClosedAgainWithoutAStream) {
    const int free_before = dup(STDIN_FILENO);
    close(free_before);
    drawn_names = "mine00";
    no_stream = true;
    EXPECT_FALSE(make());
    no_stream = false;
    EXPECT_EQ(capture_.text(), REFUSED);
    const int free_after = dup(STDIN_FILENO);
    EXPECT_EQ(free_after, free_before);
    close(free_after);
}

TEST_F(TemporaryFile, StandsInTheSystemsFolderWhenNoneIsNamed) {
    drawn_names = std::to_string(1'000'000 + getpid() % 1'000'000).substr(1);
    const std::string expected = "/tmp/vorn" + drawn_names;
    setenv("TMPDIR", "", 1);
    ASSERT_TRUE(make());
    EXPECT_EQ(tmp_fname, expected);
    remove_temporary_file();
    EXPECT_FALSE(fs::exists(expected));
}

}  // namespace
}  // namespace vorn::test
