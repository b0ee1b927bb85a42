#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "driver/reset.h"
#include "output/value_queue.h"
#include "support/case_folder.h"

// All cases, three rounds in one process, each round in another order. What one
// run leaves behind in a variable shows as a difference in a later run, a file that
// it leaves open in their number.

namespace vorn::test {
namespace {

const std::filesystem::path CASES = VORN_CASES;
constexpr unsigned SEED = 20240229;
constexpr int ROUNDS = 3;

RunResult run_afresh(const Case& a_case) {
    const WorkFolder folder;
    write_inputs(a_case, folder);
    return run_in_process(folder, a_case.arguments);
}

// Every byte of both outcomes, banner included.
void expect_same(const RunResult& first, const RunResult& later, const std::string& where) {
    EXPECT_EQ(first.status, later.status) << where;
    EXPECT_EQ(first.out, later.out) << where;
    EXPECT_EQ(without_chance(first.err), without_chance(later.err)) << where;
    EXPECT_TRUE(first.files == later.files) << where << ": the files differ";
}

std::ptrdiff_t count_open_files() {
    const std::filesystem::path open_files = "/proc/self/fd";
    if (!std::filesystem::exists(open_files)) return 0;
    return std::distance(std::filesystem::directory_iterator(open_files), {});
}

TEST(Rounds, LeaveNothingBehindForTheNextRun) {
    std::vector<Case> cases;
    for (const std::string& name : find_cases(CASES)) cases.push_back(load_case(CASES, name));
    ASSERT_FALSE(cases.empty());

    std::mt19937 order(SEED);
    const std::ptrdiff_t open_before = count_open_files();
    std::map<std::string, RunResult> first;
    for (int round = 1; round <= ROUNDS; ++round) {
        std::shuffle(cases.begin(), cases.end(), order);
        std::string before = "nothing";
        for (const Case& a_case : cases) {
            const std::string where = "seed " + std::to_string(SEED) + ", round " + std::to_string(round) +
                                      ": " + a_case.name + " after " + before;
            const RunResult result = run_afresh(a_case);
            EXPECT_EQ(queued_values, 0U) << where << ": values of a loop are left";
            const auto [entry, is_first] = first.try_emplace(a_case.name, result);
            if (is_first) {
                const std::string differences = problems(a_case, result);
                if (!differences.empty()) ADD_FAILURE() << where << '\n' << differences;
            } else {
                expect_same(entry->second, result, where);
            }
            before = a_case.name;
        }
    }
    reset_program();
    EXPECT_EQ(count_open_files(), open_before);
}

}  // namespace
}  // namespace vorn::test
