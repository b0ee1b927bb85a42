#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "support/case_folder.h"

// All cases, three rounds in one process, each round in another order. What one
// run leaves behind in a variable shows as a difference in a later run.

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

TEST(Rounds, LeaveNothingBehindForTheNextRun) {
    std::vector<Case> cases;
    for (const std::string& name : find_cases(CASES)) cases.push_back(load_case(CASES, name));
    ASSERT_FALSE(cases.empty());

    std::mt19937 order(SEED);
    std::map<std::string, RunResult> first;
    for (int round = 1; round <= ROUNDS; ++round) {
        std::shuffle(cases.begin(), cases.end(), order);
        std::string before = "nothing";
        for (const Case& a_case : cases) {
            const std::string where = "seed " + std::to_string(SEED) + ", round " + std::to_string(round) +
                                      ": " + a_case.name + " after " + before;
            const RunResult result = run_afresh(a_case);
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
}

}  // namespace
}  // namespace vorn::test
