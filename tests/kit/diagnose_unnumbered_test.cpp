#include "kit/diagnose/unnumbered.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>

#include "driver/run.h"
#include "kit/diagnose/explanation.h"
#include "kit/diagnose/from_messages.h"
#include "kit/diagnose/plain_words.h"
#include "kit/run/recorder.h"
#include "tests/kit/table_sources.h"

// Messages without a number get codes of their own, each with an explanation.

namespace vorn::kit {
namespace {

const std::string SCORE = "i1 = 3, 0, 4 {\np2 1\np3 1 }\n";

std::string first_code(const ScoreRun& run) {
    const std::vector<Diagnostic> diagnostics = from_messages(run);
    return diagnostics.empty() ? "" : diagnostics.front().code;
}

std::string code_of_run(const RunOptions& options, const std::string& name = "score.vorn") {
    test::TableSources sources{{"score.vorn", SCORE}};
    return first_code(run_score(name, options, sources));
}

std::string code_of_command_line(const std::vector<const char*>& arguments) {
    ScoreRun run;
    const RunOptions options;
    test::TableSources sources;
    Recorder recorder(run, options, sources);
    std::FILE* const silence = std::fopen("/dev/null", "w");
    EXPECT_EQ(
        run_program(static_cast<int>(arguments.size()), arguments.data(), {silence, silence, &recorder}), 1);
    std::fclose(silence);
    return first_code(run);
}

TEST(Unnumbered, FilesThatCannotBeUsed) {
    EXPECT_EQ(code_of_run({}, "missing.vorn"), "Eopen");
    RunOptions options;
    options.output = "no such folder/out.sco";
    EXPECT_EQ(code_of_run(options), "Eopen");
    options.output = "/dev/full";
    EXPECT_EQ(code_of_run(options), "Ewrite");
    options.output = "score.vorn";
    EXPECT_EQ(code_of_run(options), "Enames");
}

TEST(Unnumbered, CommandLinesOfVornThatAreNotComplete) {
    EXPECT_EQ(code_of_command_line({"vorn"}), "Eusage");
    EXPECT_EQ(code_of_command_line({"vorn", "-l"}), "Eusage");
    EXPECT_EQ(code_of_command_line({"vorn", "-x"}), "Eusage");
    EXPECT_EQ(code_of_command_line({"vorn", "-q", "in.vorn", "out.sco"}), "Eusage");
}

TEST(Unnumbered, WordsThatAreNotKnown) {
    EXPECT_EQ(unnumbered_code(Severity::ERROR, "Something new"), "Eother");
    EXPECT_EQ(unnumbered_code(Severity::ERROR, ""), "Eother");
    EXPECT_EQ(unnumbered_code(Severity::ERROR, "Press on"), "Eother");
    EXPECT_EQ(unnumbered_code(Severity::WARNING, "Can't open \"x\"."), "Wother");
}

TEST(Unnumbered, WordsThatTakeMoreThanAScore) {
    EXPECT_EQ(unnumbered_code(Severity::ERROR, "Can't open temporary file"), "Etemporary");
    EXPECT_EQ(unnumbered_code(Severity::ERROR, "The name of the temporary folder (TMPDIR) is too long."),
              "Etemporary");
    EXPECT_EQ(unnumbered_code(Severity::ERROR, "Yikes, out of memory!"), "E32");
}

std::string text_of_file(const std::filesystem::path& path) {
    std::ifstream stream(path);
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

const std::string A_WORD = "macro";  // what a message may be about

// A format of the engine, its text as the observer's records have it.
std::string as_told(std::string text) {
    text = std::regex_replace(text, std::regex(R"("\s*")"), "");
    text = std::regex_replace(text, std::regex(R"(\\n)"), " ");
    text = std::regex_replace(text, std::regex(R"(\\(.))"), "$1");
    text = std::regex_replace(text, std::regex(R"(^\s*(ERROR: |WARNING: )?(Line %d: )?)"), "");
    text = std::regex_replace(text, std::regex("%s"), A_WORD);
    return std::regex_replace(text, std::regex("%[a-z]"), "7");
}

TEST(Unnumbered, EveryMessageOfTheEngineHasACodeThatIsExplained) {
    const std::regex call(R"(print_(error|warning)\([^";{]*((?:"(?:[^"\\]|\\.)*"\s*)+))");
    int found = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator("src")) {
        if (entry.path().extension() != ".cpp") continue;
        const std::string source = text_of_file(entry.path());
        for (std::sregex_iterator at(source.begin(), source.end(), call), end; at != end; ++at) {
            std::string words = (*at)[2];
            words = as_told(words.substr(1, words.rfind('"') - 1));
            if (on_one_line(words) == A_WORD) continue;  // put together elsewhere
            const Severity severity = (*at)[1] == "error" ? Severity::ERROR : Severity::WARNING;
            const std::string code(unnumbered_code(severity, words));
            EXPECT_NE(code.substr(1), "other") << entry.path() << ": " << words;
            EXPECT_TRUE(find_explanation(code)) << code;
            ++found;
        }
    }
    EXPECT_GT(found, 12);
}

}  // namespace
}  // namespace vorn::kit
