#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "support/run_case.h"

// The preprocessor's mistakes come to light when a line is fetched, which may be
// anywhere inside a command or a statement. Whatever is being read then, it is
// the mistake of the line that is told, with the line.

namespace vorn::test {
namespace {

// Each is sound as it stands, with line ends wherever one may be.
const std::string SCORES[] = {
    "te(0\n8\n60\n120\nl\n)\n",
    "te(90\n)\nrd(.1)\nsr(48000)\nrs(7)\n",
    "i1\n=\n5\n0\n4\n{\np2\n1\np3\n.5\np4\n1\np5\n2\n}\n",
    "i1=4 0 4{\np2 1\n,\n1\n/* */\n1 x2\np3\n4\n/\n/\n8\np4\n1\n:\n2\n<\n3\n>\nx2\n}\n",
    "i1=4 0 -4{p2 1 p3 1 p4\nra(-2\n.5\n1\n.5\n[\n2\n3\n]\n)\nra\n(-2 1 [\ng\n1\n2\n]\n)\n}\n",
    "i1=4 0 -4{p2 1 p3 1 p4 rw(-4\n1\n[\n1\n9\n]\n.5\n3\n)\n}\n",
    "i1=4 0 4{p2 1 p3 1 p4 mo(4\n.5\n[\n1\n2\n]\n3\n.5\nl\n2\n3\n)\n}\n",
    "i1=4 0 -4{p2 1 p3 1 p4 se(-4\n.5\n*\n[\n1\n2\n3\n]\n.5\nx\n[\n1\n2\n3\n]\n)\n}\n",
    "i1=4 0 -4{p2 1 p3 1 p4 s2(-4\n.5\n*\n[\n1'2\n3\n]\n.5\n4\n)\n}\n",
    "i1=4 0 -4{p2 1 p3 1 p4 ex(-4\n.5\nf\np2\n.5\n[p3 + 1]\n)\n}\n",
    "i1=4 0 4{p2 1 p3 1 p4 ms(4\n.5\n[\n1\n2\n]\n[\n3\n4\n]\n.5\n1\n2\n)\n}\n",
    "i1=4 0 -4{p2 1 p3 1 p4 ho(-2\n60\n)\n}\n",
    "i1=4 0 4{p2 ho(4\n1\n)\np3\ndv(.1)\n1\np4\npf(2)\n1\n}\n",
};

void expect_mistake(const std::string& score, std::size_t end) {
    const std::string begin = score.substr(0, end + 1);
    const auto line = std::count(begin.begin(), begin.end(), '\n') + 1;
    const WorkFolder folder;
    folder.write("in.vorn", begin + "~[1/0]\n");
    const RunResult result = run_in_process(folder, {"-s", "in.vorn", "out.sco"});
    EXPECT_EQ(result.status, 1) << begin;
    EXPECT_EQ(behind_banner(result.err), "\n\nERROR: Line " + std::to_string(line) +
                                             ":EX command: Yikes, can't divide by 0!\n~[1/0] \n     ^\n")
        << begin;
}

TEST(LineMistakes, AreToldWhateverIsBeingRead) {
    for (const std::string& score : SCORES) {
        const WorkFolder folder;
        folder.write("in.vorn", score);
        const RunResult whole = run_in_process(folder, {"-s", "in.vorn", "out.sco"});
        EXPECT_EQ(whole.status, 0) << score << behind_banner(whole.err);
        for (std::size_t at = 0; at + 1 < score.size(); ++at) {
            if (score[at] == '\n') expect_mistake(score, at);
        }
    }
}

}  // namespace
}  // namespace vorn::test
