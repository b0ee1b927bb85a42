#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "support/run_case.h"

// One end-to-end case: a folder tests/cases/<feature>/<case>/ as tests/README.md describes it.

namespace vorn::test {

using Texts = std::map<std::string, std::string>;  // by the name of the expectation file

struct Case {
    std::string name;  // "<feature>/<case>"
    Arguments arguments;
    Texts inputs;    // what the run finds in its folder
    Texts expected;  // the expected.* files
};

std::vector<std::string> find_cases(const std::filesystem::path& root);

// Throws std::runtime_error on a file that means nothing.
Case load_case(const std::filesystem::path& root, const std::string& name);

void write_inputs(const Case& a_case, const WorkFolder& folder);

// What the run says and leaves, under the names of the expectation files, all of them.
Texts actual_texts(const Case& a_case, const RunResult& result);

// What differs from the expectations, readable; empty when nothing does.
std::string problems(const Case& a_case, const RunResult& result);

// Whether standard error tells nothing but the figures of the blocks.
bool is_quiet(const std::string& err);

}  // namespace vorn::test
