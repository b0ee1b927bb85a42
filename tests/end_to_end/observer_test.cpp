#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "output/event_list.h"
#include "output/tempo_map.h"
#include "support/case_folder.h"

// What an observer is told, over all cases and in a few scores of its own. The
// recorder builds the temporary copy and each expanded line again from the notices.

namespace vorn::test {
namespace {

const std::filesystem::path CASES = VORN_CASES;

struct Span {
    SourceSpan told;
    std::string name;
};

struct Told {
    Message told;
    std::string text;
};

// The byte as readers see it.
char cleaned(char c) {
    if (c == '\n' || c == '\r' || static_cast<unsigned char>(c) == 255) return ' ';
    return c == 0 ? 0x1A : c;
}

std::size_t sounding_events(const ListNode* tail) {
    std::size_t count = 0;
    const ListNode* node = tail;
    if (tail == nullptr) return 0;
    do {
        node = node->next;
        count += node->dur > 0;
    } while (node != tail);
    return count;
}

class Recorder : public Observer {
public:
    void on_source(const SourceSpan& span) override { spans.push_back({span, span.name}); }

    void on_line(const SourceLine& line) override {
        EXPECT_EQ(line.number, ++lines);
        current.assign(line.text, line.length);
        copy += current;
    }

    void on_splice(const Splice& splice) override {
        EXPECT_EQ(splice.line, lines);
        ASSERT_LE(0, splice.start);
        ASSERT_LE(splice.start, splice.end);
        ASSERT_LE(static_cast<std::size_t>(splice.end), current.size());
        const auto start = static_cast<std::size_t>(splice.start);
        const auto size = static_cast<std::size_t>(splice.end) - start;
        replaced.push_back(current.substr(start, size));
        current.replace(start, size, std::string(splice.inserted, splice.inserted_length));
        ++splices;
    }

    void on_message(const Message& message) override {
        messages.push_back({message, std::string(message.text, message.length)});
        if (message.line_text != nullptr && message.place.line > 0) {
            EXPECT_EQ(message.line_text, current) << "the replayed line";
        }
    }

    void on_block(const Block& block) override {
        ++blocks;
        last_block = block;
        sounding += sounding_events(block.events);
    }
    void on_pfield(const PfieldStatement& statement) override { statements.push_back(statement); }
    void on_setting(const Setting& setting) override { settings.push_back(setting); }
    void on_constant(const ConstantDefinition& constant) override {
        constants.push_back(std::string(constant.name) + "=" +
                            current.substr(static_cast<std::size_t>(constant.begin.pos),
                                           static_cast<std::size_t>(constant.end - constant.begin.pos)));
    }
    void on_direct_line(const char* text, const LinePlace&) override { direct.push_back(text); }
    void on_end(int status, double) override { ended_with = status; }

    std::vector<Span> spans;
    std::vector<Told> messages;
    std::vector<std::string> replaced;
    std::vector<std::string> constants;
    std::vector<std::string> direct;
    std::vector<PfieldStatement> statements;
    std::vector<Setting> settings;
    std::string current;
    std::string copy;
    std::uint64_t lines = 0;
    std::size_t splices = 0;
    std::size_t blocks = 0;
    std::size_t sounding = 0;
    Block last_block;
    int ended_with = -1;
};

// The bytes of the copy are those of the files that the spans name.
void expect_mapped(const Recorder& recorder, const Texts& files) {
    for (std::size_t k = 0; k < recorder.spans.size(); ++k) {
        const Span& span = recorder.spans[k];
        const auto file = files.find(std::filesystem::path(span.name).lexically_normal().string());
        if (file == files.end()) continue;
        const auto begin = static_cast<std::size_t>(span.told.copy_offset);
        std::size_t end = recorder.copy.size();
        if (k + 1 < recorder.spans.size()) {
            end = std::min(end, static_cast<std::size_t>(recorder.spans[k + 1].told.copy_offset));
        }
        for (std::size_t at = begin; at < end; ++at) {
            const std::size_t from = static_cast<std::size_t>(span.told.file_offset) + at - begin;
            const char byte = from < file->second.size() ? cleaned(file->second[from]) : ' ';
            ASSERT_EQ(recorder.copy[at], byte) << span.name << " at " << from;
        }
    }
}

// Every told text that is printed stands in `err`, in this order.
void expect_printed(const Recorder& recorder, const std::string& err, bool suppressed) {
    std::size_t at = 0;
    for (const Told& message : recorder.messages) {
        if (suppressed && message.told.severity == Severity::WARNING && message.told.number != 0) continue;
        const std::size_t found = err.find(message.text, at);
        if (found == std::string::npos) {
            ADD_FAILURE() << "not printed: " << message.text;
            return;
        }
        at = found + message.text.size();
    }
}

TEST(Observer, ChangesNoByteOfAnyCaseAndRebuildsItsLines) {
    std::size_t splices = 0;
    std::size_t spans = 0;
    for (const std::string& name : find_cases(CASES)) {
        SCOPED_TRACE(name);
        const Case a_case = load_case(CASES, name);
        const WorkFolder folder;
        write_inputs(a_case, folder);
        Recorder recorder;
        const RunResult result = run_in_process(folder, a_case.arguments, &recorder);
        EXPECT_EQ(problems(a_case, result), "");
        EXPECT_EQ(recorder.ended_with, result.status);
        expect_mapped(recorder, a_case.inputs);
        const auto& arguments = a_case.arguments;
        const bool suppressed = std::any_of(arguments.begin(), arguments.end(),
                                            [](const std::string& word) { return word.starts_with("-s"); });
        expect_printed(recorder, result.out + result.err, suppressed);
        if (result.status != 0) {
            EXPECT_FALSE(recorder.messages.empty()) << "refused unsaid";
        }
        splices += recorder.splices;
        spans += recorder.spans.size();
    }
    EXPECT_GT(splices, 100U);
    EXPECT_GT(spans, 1000U);
}

// "i3 0.500 1.000", the instrument, start and length of a line.
std::string line_beginning(int instrument, double start, double duration, const Block& block) {
    char text[200];
    std::snprintf(text, sizeof text, "i%d %.*f %.*f", instrument, static_cast<int>(block.decimals[0]), start,
                  static_cast<int>(block.decimals[1]), duration);
    return text;
}

// Writes down the lines that the events of each block should become.
class LineRecorder : public Observer {
public:
    void on_block(const Block& block) override {
        if (block.instrument < 0 || block.is_midi || block.events == nullptr) return;
        lines.push_back("block " + std::to_string(block.number) + " of i" + std::to_string(block.instrument));
        const ListNode* event = block.events;
        do {
            event = event->next;
            if (event->dur <= 0) continue;
            lines.push_back(
                line_beginning(block.instrument, double{event->start}, double{event->dur}, block));
        } while (event != block.events);
    }

    std::vector<std::string> lines;
};

// The same of a score: the heads of its blocks, and the first three words of each event.
std::vector<std::string> lines_of_score(const std::string& score) {
    std::vector<std::string> lines;
    std::istringstream stream(score);
    for (std::string line; std::getline(stream, line);) {
        int number = 0;
        int instrument = 0;
        if (std::sscanf(line.c_str(), ";I-block #%d (i%d)", &number, &instrument) == 2) {
            lines.push_back("block " + std::to_string(number) + " of i" + std::to_string(instrument));
        }
        std::istringstream words(line);
        std::string name;
        std::string start;
        std::string duration;
        if (line.starts_with("i") && words >> name >> start >> duration) {
            lines.push_back(name + " " + start + " " + duration);
        }
    }
    return lines;
}

// A ">" line may put an event of its own into the score.
bool writes_lines_itself(const Case& a_case) {
    return std::any_of(a_case.inputs.begin(), a_case.inputs.end(), [](const auto& input) {
        return input.second.find("> i") != std::string::npos || input.second.find(">i") != std::string::npos;
    });
}

TEST(Observer, TellsTheEventsOfEveryCaseAsItsScoreHasThem) {
    std::size_t events = 0;
    for (const std::string& name : find_cases(CASES)) {
        SCOPED_TRACE(name);
        const Case a_case = load_case(CASES, name);
        if (writes_lines_itself(a_case)) continue;
        const WorkFolder folder;
        write_inputs(a_case, folder);
        LineRecorder recorder;
        const RunResult result = run_in_process(folder, a_case.arguments, &recorder);
        const auto output =
            a_case.arguments.empty() ? result.files.end() : result.files.find(a_case.arguments.back());
        if (result.status != 0 || output == result.files.end() || output->second.starts_with("MThd"))
            continue;
        EXPECT_EQ(recorder.lines, lines_of_score(output->second));
        events += recorder.lines.size();
    }
    EXPECT_GT(events, 2'000U);
}

RunResult run_score(Recorder& recorder, const Texts& files, const Arguments& options = {}) {
    const WorkFolder folder;
    for (const auto& [name, text] : files) folder.write(name, text);
    Arguments arguments = options;
    arguments.insert(arguments.end(), {"in.vorn", "out.sco"});
    return run_in_process(folder, arguments, &recorder);
}

TEST(Observer, TellsNestedIncludesThatBeginWithinLines) {
    Recorder recorder;
    const Texts files = {
        {"in.vorn", "rs(1) #include |a|; main\nrs(2)\n"}, {"a", "rs(3) #include |b| ;a"}, {"b", "rs(4)\n"}};
    run_score(recorder, files);
    std::vector<std::string> spans;
    for (const Span& span : recorder.spans) {
        spans.push_back(span.name + " " + std::to_string(span.told.depth) + " " +
                        std::to_string(span.told.copy_offset) + " " + std::to_string(span.told.file_offset));
    }
    EXPECT_EQ(spans, (std::vector<std::string>{"in.vorn 0 0 0", "a 1 6 0", "b 2 12 0", "a 1 18 18",
                                               "in.vorn 0 21 18"}));
    EXPECT_EQ(recorder.copy, "rs(1) rs(3) rs(4)  ;a; main rs(2) ");
    EXPECT_EQ(recorder.settings.size(), 4U);
    expect_mapped(recorder, files);
}

TEST(Observer, TellsOfARefusedIncludeWhereItsDirectiveStands) {
    Recorder recorder;
    EXPECT_EQ(run_score(recorder, {{"in.vorn", "; x\n #include |none|"}}).status, 1);
    ASSERT_EQ(recorder.messages.size(), 1U);
    EXPECT_EQ(recorder.messages[0].text, "\nBad include file name: \"none\"\n\n");
    EXPECT_EQ(recorder.messages[0].told.directive_offset, 5);
    EXPECT_EQ(recorder.messages[0].told.place.line, 0U);
    EXPECT_EQ(recorder.messages[0].told.place.pos, 0);
}

TEST(Observer, TellsOfABlockItsStatementsAndWhatSetsThem) {
    Recorder recorder;
    const RunResult result = run_score(recorder, {{"in.vorn",
                                                   "#const A 0.244792\n> f1 0 8\n i3 = 4, 2, -3 {\n"
                                                   "p2 re 1\np3 re 1\n p4(hz) no c4 r e4 } ;\n"}});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(recorder.constants, (std::vector<std::string>{"A=0.244792"}));
    EXPECT_EQ(recorder.direct, (std::vector<std::string>{" f1 0 8 "}));
    ASSERT_EQ(recorder.statements.size(), 3U);
    EXPECT_EQ(recorder.statements[2].input_type, 10);
    EXPECT_EQ(recorder.statements[2].output_type, 4);
    EXPECT_EQ(recorder.statements[2].begin.line, 6U);
    EXPECT_EQ(recorder.statements[2].begin.pos, 1);
    EXPECT_EQ(recorder.blocks, 1U);
    EXPECT_EQ(recorder.last_block.instrument, 3);
    EXPECT_EQ(recorder.last_block.begin.line, 3U);
    EXPECT_EQ(recorder.last_block.begin.pos, 1);
    EXPECT_EQ(recorder.last_block.end.pos, 20);
    EXPECT_EQ(recorder.last_block.length, -3);
    EXPECT_EQ(recorder.sounding, 2U) << "two notes and a rest";
}

TEST(Observer, TellsOfTemposAndMacros) {
    class Definitions : public Recorder {
    public:
        void on_tempo(const TempoDef& tempo, int index, const LinePlace& begin) override {
            told.push_back("tempo " + std::to_string(index) + " at " + std::to_string(begin.line) + ":" +
                           std::to_string(begin.pos) + " from " + std::to_string(tempo.start_time) + " " +
                           std::to_string(tempo.start_tempo) + " to " + std::to_string(tempo.end_time) + " " +
                           std::to_string(tempo.end_tempo));
        }
        void on_macro(const MacroDefinition& macro) override {
            told.push_back("macro " + std::string(macro.name) + " of " +
                           std::to_string(macro.argument_count) + " at " + std::to_string(macro.begin.line) +
                           ":" + std::to_string(macro.begin.pos) + " \"" + macro.body + "\"");
        }
        std::vector<std::string> told;
    } definitions;
    const RunResult result =
        run_score(definitions,
                  {{"in.vorn", "te(120)\n  te( 2 4 60 90 )\n#define A(x'y) #no $x c4#\n#define B #60#\n"}});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(definitions.told,
              (std::vector<std::string>{"tempo 0 at 1:2 from 0.000000 120.000000 to 1000.000000 120.000000",
                                        "tempo 1 at 2:4 from 2.000000 60.000000 to 4.000000 90.000000",
                                        "macro A of 2 at 3:16 \"no $x c4\"", "macro B of 0 at 4:11 \"60\""}));
}

TEST(Observer, IsToldThatATempoFromBeatZeroTakesTheFirstPlace) {
    class Tempos : public Recorder {
    public:
        void on_tempo(const TempoDef& tempo, int index, const LinePlace&) override {
            told.emplace_back(index, tempo.start_tempo);
        }
        std::vector<std::pair<int, float>> told;
    } tempos;
    run_score(tempos, {{"in.vorn", "te(0 2 60 60) te(2 4 60 90) te(100)\nte(0 2 110 60)\n"}});
    EXPECT_EQ(tempos.told,
              (std::vector<std::pair<int, float>>{{0, 60.0F}, {1, 60.0F}, {0, 100.0F}, {0, 110.0F}}));
}

TEST(Observer, IsToldWhetherABlockBecomesMidi) {
    const Texts texts = {{"in.vorn", "i1 = 5 0 1 {p2 1 p3 1 p4 60 p5 9}\n"}};
    Recorder score;
    Recorder midi;
    run_score(score, texts);
    run_score(midi, texts, {"-m"});
    ASSERT_EQ(score.blocks, 1U);
    ASSERT_EQ(midi.blocks, 1U);
    EXPECT_FALSE(score.last_block.is_midi);
    EXPECT_TRUE(midi.last_block.is_midi);
}

TEST(Observer, IsToldOfSuppressedWarnings) {
    Recorder recorder;
    const RunResult result = run_score(recorder, {{"in.vorn", "rd(2)\n"}}, {"-s"});
    ASSERT_EQ(recorder.messages.size(), 1U);
    EXPECT_EQ(recorder.messages[0].told.number, 26);
    EXPECT_EQ(recorder.messages[0].told.severity, Severity::WARNING);
    EXPECT_EQ(result.err.find("WARNING"), std::string::npos);
}

TEST(Observer, OpensWhatIsRead) {
    class Shelf : public Recorder {
    public:
        std::FILE* open_source(const char* name, const char* includer) override {
            asked.push_back(std::string(name) + " by " + (includer != nullptr ? includer : "nobody"));
            return std::fopen(includer != nullptr ? "in.vorn.other" : name, "r");
        }
        std::vector<std::string> asked;
    } shelf;
    run_score(shelf, {{"in.vorn", "#include |x|"}, {"in.vorn.other", "rs(5)\n"}});
    EXPECT_EQ(shelf.asked, (std::vector<std::string>{"in.vorn by nobody", "x by in.vorn"}));
    EXPECT_EQ(shelf.copy, "rs(5) ");
}

}  // namespace
}  // namespace vorn::test
