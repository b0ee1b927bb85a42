#include "driver/options.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <regex>
#include <string>
#include <vector>

#include "input/run_flags.h"

// The command line as a table: words, whether the run may go on, and what is told.

namespace {

using vorn::exp_fname;
using vorn::in_fname;
using vorn::log_fname;
using vorn::out_fname;

class Stream {
public:
    Stream() : stream_(std::tmpfile()) {}
    ~Stream() { std::fclose(stream_); }
    Stream(const Stream&) = delete;
    Stream& operator=(const Stream&) = delete;

    std::FILE* get() const { return stream_; }
    std::string text() const {
        std::string caught(static_cast<std::size_t>(std::ftell(stream_)), '\0');
        std::rewind(stream_);
        caught.resize(std::fread(caught.data(), 1, caught.size(), stream_));
        return caught;
    }

private:
    std::FILE* stream_;
};

// One command line read afresh. Empty texts stand for names that were not given.
struct CommandLine {
    explicit CommandLine(std::vector<const char*> words) {
        words.insert(words.begin(), "vorn");
        reset();
        const Stream out_stream;
        const Stream err_stream;
        vorn::std_out = out_stream.get();
        vorn::std_err = err_stream.get();
        accepted = vorn::get_options(static_cast<int>(words.size()), words.data());
        distinct = accepted && vorn::check_fnames();
        out = out_stream.text();
        err = err_stream.text();
        in_name = in_fname == nullptr ? "" : in_fname;
        out_name = out_fname == nullptr ? "" : out_fname;
        log_name = log_fname == nullptr ? "" : log_fname;
        exp_name = exp_fname == nullptr ? "" : exp_fname;
        flags = std::string(vorn::MKLOG ? "l" : "") + (vorn::MKMIDI ? "m" : "") + (vorn::SUPRESS ? "s" : "") +
                (vorn::SHOW_TEMPOS ? "t" : "") + (vorn::MKEXP ? "x" : "");
        reset();
    }

    static void reset() {
        vorn::reset_options();
        vorn::reset_run_flags();
    }

    bool accepted;
    bool distinct;
    std::string out, err, in_name, out_name, log_name, exp_name, flags;
};

// The usage text with the build's date and time taken out.
const char* const USAGE =
    "\nVorn (2.1.2, DATE, TIME)\n"
    "  Usage: vorn [options] infile outfile\n"
    "  Options:\n"
    "  -l <logfile>  screen ouput (text)\n"
    "  -m            outfile is a MIDI file (format 1)\n"
    "  -s            suppress non-error messages\n"
    "  -t            verbose tempo information\n"
    "  -x <expfile>  macro expansions (text)\n\n";

std::string without_build(const std::string& text) {
    static const std::regex build(
        "2\\.1\\.2, [A-Z][a-z]{2} [ 0-9][0-9] [0-9]{4}, [0-9]{2}:[0-9]{2}:[0-9]{2}");
    return std::regex_replace(text, build, "2.1.2, DATE, TIME");
}

void expect_usage(const std::vector<const char*>& words) {
    const CommandLine line(words);
    EXPECT_FALSE(line.accepted);
    EXPECT_EQ(without_build(line.err), USAGE);
    EXPECT_EQ(line.out, "");
}

TEST(Options, NoArgumentsPrintTheUsage) { expect_usage({}); }

TEST(Options, UnknownOptionsPrintTheUsage) {
    expect_usage({"-q", "in", "out"});
    expect_usage({"-L", "in", "out"});
    expect_usage({"-", "in", "out"});
    expect_usage({"--", "in", "out"});
    expect_usage({"-s", "-h", "in", "out"});
}

TEST(Options, ExactlyTwoNamesMustRemain) {
    expect_usage({"in"});
    expect_usage({"in", "out", "more"});
    expect_usage({"-s"});
    expect_usage({"-s", "in"});
    expect_usage({"-lrun.log", "in"});
    expect_usage({"-l", "run.log"});
}

TEST(Options, MustPrecedeTheNames) {
    expect_usage({"in", "out", "-s"});
    expect_usage({"in", "-s", "out"});
    const CommandLine line({"in", "-s"});
    EXPECT_TRUE(line.accepted);
    EXPECT_EQ(line.out_name, "-s");
    EXPECT_EQ(line.flags, "");
}

TEST(Options, TwoNamesAreInputAndOutput) {
    const CommandLine line({"in", "out"});
    EXPECT_TRUE(line.accepted);
    EXPECT_TRUE(line.distinct);
    EXPECT_EQ(line.in_name, "in");
    EXPECT_EQ(line.out_name, "out");
    EXPECT_EQ(line.flags, "");
    EXPECT_EQ(line.err + line.out, "");
}

TEST(Options, EachSetsItsFlag) {
    EXPECT_EQ(CommandLine({"-m", "in", "out"}).flags, "m");
    EXPECT_EQ(CommandLine({"-s", "in", "out"}).flags, "s");
    EXPECT_EQ(CommandLine({"-t", "in", "out"}).flags, "t");
    EXPECT_EQ(CommandLine({"-lx", "in", "out"}).flags, "l");
    EXPECT_EQ(CommandLine({"-xl", "in", "out"}).flags, "x");
    EXPECT_EQ(CommandLine({"-x", "e", "-t", "-s", "-m", "-l", "g", "in", "out"}).flags, "lmstx");
}

TEST(Options, OnlySecondCharacterCounts) {
    const CommandLine line({"-mfoo", "-squeeze", "-tempo", "in", "out"});
    EXPECT_TRUE(line.accepted);
    EXPECT_EQ(line.flags, "mst");
}

TEST(Options, NamesMayBeAttachedOrFollow) {
    for (const auto& words : {std::vector<const char*>{"-lrun.log", "-xexp", "in", "out"},
                              std::vector<const char*>{"-l", "run.log", "-x", "exp", "in", "out"}}) {
        const CommandLine line(words);
        EXPECT_TRUE(line.accepted);
        EXPECT_EQ(line.log_name, "run.log");
        EXPECT_EQ(line.exp_name, "exp");
        EXPECT_EQ(line.in_name, "in");
    }
    EXPECT_EQ(CommandLine({"-l-odd", "in", "out"}).log_name, "-odd");
}

TEST(Options, TheLastNameGivenCounts) {
    EXPECT_EQ(CommandLine({"-la", "-l", "b", "in", "out"}).log_name, "b");
}

TEST(Options, MissingLogNameIsToldOnStandardOutput) {
    for (const auto& words :
         {std::vector<const char*>{"-l"}, std::vector<const char*>{"-l", "-m", "in", "out"}}) {
        const CommandLine line(words);
        EXPECT_FALSE(line.accepted);
        EXPECT_EQ(line.out, "\nError: No logfile name\n");
        EXPECT_EQ(line.err, "");
    }
}

TEST(Options, MissingExpansionNameIsToldOnStandardOutput) {
    for (const auto& words :
         {std::vector<const char*>{"-s", "-x"}, std::vector<const char*>{"-x", "-l", "log", "in", "out"}}) {
        const CommandLine line(words);
        EXPECT_FALSE(line.accepted);
        EXPECT_EQ(line.out, "\nError: No macro-expansion file name\n");
        EXPECT_EQ(line.err, "");
    }
}

TEST(FileNames, NoneMayBeGivenTwice) {
    for (const auto& words : {std::vector<const char*>{"same", "same"},
                              {"-l", "in", "in", "out"},
                              {"-l", "out", "in", "out"},
                              {"-x", "in", "in", "out"},
                              {"-x", "out", "in", "out"},
                              {"-l", "both", "-x", "both", "in", "out"}}) {
        const CommandLine line(words);
        EXPECT_TRUE(line.accepted);
        EXPECT_FALSE(line.distinct);
        EXPECT_EQ(line.err, "\nERROR: You can't use a filename multiple times!\n\n");
        EXPECT_EQ(line.out, "");
    }
}

TEST(FileNames, AreComparedAsTexts) {
    EXPECT_TRUE(CommandLine({"x", "./x"}).distinct);
    EXPECT_TRUE(CommandLine({"x", "X"}).distinct);
    EXPECT_TRUE(CommandLine({"-l", "log", "-x", "log2", "in", "out"}).distinct);
}

}  // namespace
