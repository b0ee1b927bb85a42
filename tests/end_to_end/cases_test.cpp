#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "support/case_folder.h"

// Every folder under tests/cases is one test, found when the program starts:
// run once as a program of its own and once in this process, and compared byte
// for byte. What a failing case really gave is left in the build folder, where
// scripts/accept looks for it.

namespace vorn::test {
namespace {

namespace fs = std::filesystem;

const fs::path CASES = VORN_CASES;
const fs::path ACTUAL = VORN_ACTUAL;

// The expectation files that the case would need for this outcome.
void leave_actual(const Case& a_case, const RunResult& result) {
    for (const auto& [name, text] : actual_texts(a_case, result)) {
        const bool is_plain = name == "expected.status" ? text == "0\n" : text.empty();
        const bool is_left_out = name == "expected.err" ? is_quiet(text) : is_plain;
        if (is_left_out && !a_case.expected.contains(name)) continue;
        fs::create_directories(ACTUAL / a_case.name);
        write_file(ACTUAL / a_case.name / name, text);
    }
}

class CaseTest : public testing::Test {
public:
    explicit CaseTest(std::string name) : name_(std::move(name)) {}

    void TestBody() override {
        fs::remove_all(ACTUAL / name_);
        const Case a_case = load_case(CASES, name_);
        const WorkFolder program_folder;
        write_inputs(a_case, program_folder);
        const RunResult as_program = run_as_program(program_folder, a_case.arguments);
        const std::string program_problems = problems(a_case, as_program);
        if (!program_problems.empty()) {
            leave_actual(a_case, as_program);
            FAIL() << "Run as a program (scripts/accept " << name_ << "):\n" << program_problems;
        }

        const WorkFolder process_folder;
        write_inputs(a_case, process_folder);
        const RunResult in_process = run_in_process(process_folder, a_case.arguments);
        const std::string process_problems = problems(a_case, in_process);
        if (!process_problems.empty()) ADD_FAILURE() << "Run in this process:\n" << process_problems;
    }

private:
    std::string name_;
};

TEST(Cases, AreFound) { EXPECT_FALSE(find_cases(CASES).empty()) << "no folder in " << CASES; }

void register_cases() {
    for (const std::string& name : find_cases(CASES)) {
        const std::string feature = name.substr(0, name.find('/'));
        const std::string a_case = name.substr(name.find('/') + 1);
        testing::RegisterTest(feature.c_str(), a_case.c_str(), nullptr, nullptr, __FILE__, __LINE__,
                              [name]() -> CaseTest* { return new CaseTest(name); });
    }
}

}  // namespace
}  // namespace vorn::test

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    vorn::test::register_cases();
    return RUN_ALL_TESTS();
}
