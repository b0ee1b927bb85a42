#include "driver/held_log.h"

#include <gtest/gtest.h>

#include <string>

#include "input/messages.h"
#include "input/run_flags.h"
#include "support/held_memory.h"

// A log that waits in memory is either written behind what it held, or dropped with
// all that it took.

namespace vorn {
namespace {

class HeldLog : public testing::Test {
protected:
    void SetUp() override {
        file_ = std::tmpfile();
        std::fputs("older", file_);
        fllog = file_;
        ASSERT_TRUE(hold_log());
        std::fputs(text_.c_str(), fllog);
    }
    void TearDown() override { fllog = nullptr; }

    const std::string text_ = std::string(2'000'000, 'x');
    std::FILE* file_ = nullptr;
};

TEST_F(HeldLog, IsWrittenWhenItIsReleased) {
    EXPECT_EQ(held_log(), file_);
    EXPECT_TRUE(release_log());
    EXPECT_EQ(fllog, file_);
    EXPECT_EQ(std::ftell(file_), static_cast<long>(5 + text_.size()));
    std::fclose(file_);
}

#if defined(__GLIBC__) && !defined(__SANITIZE_ADDRESS__)
TEST_F(HeldLog, LeavesNothingWhenItIsDropped) {
    const std::size_t held = test::held_memory();
    drop_log();
    EXPECT_LT(test::held_memory() + text_.size(), held + 1000);
    EXPECT_EQ(fllog, nullptr);
    EXPECT_EQ(held_log(), nullptr);
}
#endif

}  // namespace
}  // namespace vorn
