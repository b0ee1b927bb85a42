#include "blocks/tempo_command.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "input/line_buffer.h"
#include "input/run_flags.h"
#include "output/tempo_map.h"
#include "support/message_capture.h"

namespace vorn {
namespace {

// The program's initial state while it lives, and again behind it.
struct CleanState {
    CleanState() { reset(); }
    ~CleanState() { reset(); }
    CleanState(const CleanState&) = delete;
    CleanState& operator=(const CleanState&) = delete;

    static void reset() {
        reset_tempo_map();
        reset_run_flags();
    }
};

class GetTempoChange : public testing::Test {
protected:
    ~GetTempoChange() override {
        if (reader_.stream != nullptr) std::fclose(reader_.stream);
    }

    // Reads the command whose text follows "te"; the text may have several lines.
    int read(const std::string& text) {
        if (reader_.stream != nullptr) std::fclose(reader_.stream);
        reader_ = Reader{};
        reader_.stream = std::tmpfile();
        std::fputs((text + "\n").c_str(), reader_.stream);
        std::rewind(reader_.stream);
        EXPECT_EQ(get_buff(reader_), 0);
        return get_tempo_change(reader_);
    }

    // What the reader left unread of its line, without the blank that ends each line.
    std::string rest() const {
        const std::string text = reader_.text + reader_.pos;
        return text.substr(0, text.find_last_not_of(' ') + 1);
    }

    std::string warnings() { return messages_.text(); }

private:
    CleanState state_;
    Reader reader_;
    test::MessageCapture messages_;
};

void expect_entry(int index, const TempoDef& expected) {
    const TempoDef& entry = TEMPO_LIST[index];
    EXPECT_EQ(entry.start_time, expected.start_time);
    EXPECT_EQ(entry.start_tempo, expected.start_tempo);
    EXPECT_EQ(entry.end_time, expected.end_time);
    EXPECT_EQ(entry.end_tempo, expected.end_tempo);
    EXPECT_EQ(entry.curve_type, expected.curve_type);
    EXPECT_EQ(entry.curve_value, expected.curve_value);
}

std::string line_warning(const std::string& text, const std::string& line, std::size_t caret) {
    return "\n\nWARNING: Line 1:" + text + "\n" + line + " \n" + std::string(caret, ' ') + "^\n";
}

// --- short form ---

TEST_F(GetTempoChange, ShortFormReplacesEntryZeroUpToBeatThousand) {
    EXPECT_EQ(read("(120) rest"), 0);
    EXPECT_EQ(rest(), " rest");
    EXPECT_EQ(TOT_TEMPOS, 1);
    expect_entry(0, {0, 120, 1000, 120, 0, 0});
    EXPECT_EQ(to_tempo(1.0f, 0.0f), 0.5f);
    EXPECT_EQ(to_tempo(1.0f, 500.0f), 0.5f);
    EXPECT_EQ(to_tempo(1.0f, 5000.0f), 0.5f);
    EXPECT_EQ(warnings(), "");
}

TEST_F(GetTempoChange, ShortFormKeepsTheCurveValueAndTheCount) {
    EXPECT_EQ(read("(0 8 60 120 v2.5)"), 0);
    EXPECT_EQ(read("(1000 1001 60 120)"), 0);
    EXPECT_EQ(read("(90)"), 0);
    EXPECT_EQ(TOT_TEMPOS, 2);
    expect_entry(0, {0, 90, 1000, 90, 0, 2.5f});
}

TEST_F(GetTempoChange, ShortFormConflictsWithEveryStartBeforeBeatThousand) {
    EXPECT_EQ(read("(90)"), 0);
    (void)warnings();
    EXPECT_EQ(read("(599 600 60 60)"), 0);
    EXPECT_EQ(warnings(), "\nWARNING: Tempo #2 conflicts with previous tempo's end time!");
}

TEST_F(GetTempoChange, ShortFormWarnsOfUnusualTempi) {
    EXPECT_EQ(read("(300.5)"), 0);
    EXPECT_EQ(warnings(), line_warning("Tempo1 is quite fast. Is that okay?", "(300.5)", 7));
    EXPECT_EQ(read("(29.5)"), 0);
    EXPECT_EQ(warnings(), line_warning("Tempo1 is quite slow. Is that okay?", "(29.5)", 6));
    EXPECT_EQ(read("(300)"), 0);
    EXPECT_EQ(read("(30)"), 0);
    EXPECT_EQ(warnings(), "");
}

TEST_F(GetTempoChange, ShortFormRefusesTempiOutOfRange) {
    for (const char* text : {"(0.5)", "(4000.5)", "(-60)", "(0)"}) {
        EXPECT_EQ(read(text), 46) << text;
        EXPECT_EQ(rest(), "") << text;
        expect_entry(0, {0, 60, 0, 60, 1, 0});
    }
    EXPECT_EQ(read("(1)"), 0);
    EXPECT_EQ(read("(4000)"), 0);
}

// --- long form ---

TEST_F(GetTempoChange, LongFormFromBeatZeroReplacesEntryZero) {
    EXPECT_EQ(read("(0 8 60 120 l)rest"), 0);
    EXPECT_EQ(rest(), "rest");
    EXPECT_EQ(TOT_TEMPOS, 1);
    expect_entry(0, {0, 60, 8, 120, 2, 1});
    EXPECT_FLOAT_EQ(find_tempo(4), 102.426407f);  // 60 + 60 sqrt(0.5)
}

TEST_F(GetTempoChange, MinusZeroIsBeatZero) {
    EXPECT_EQ(read("(-0 8 60 120)"), 0);
    EXPECT_EQ(TOT_TEMPOS, 1);
    EXPECT_EQ(TEMPO_LIST[0].end_time, 8.0f);
}

TEST_F(GetTempoChange, LaterStartIsWrittenBehindTheLast) {
    EXPECT_EQ(read("(8 16 60 120 f)"), 0);
    EXPECT_EQ(read("(16 20 120 60 s)"), 0);
    EXPECT_EQ(TOT_TEMPOS, 3);
    expect_entry(0, {0, 60, 0, 60, 1, 0});
    expect_entry(1, {8, 60, 16, 120, 0, 1});
    expect_entry(2, {16, 120, 20, 60, 4, 1});
    EXPECT_EQ(warnings(), "");
}

TEST_F(GetTempoChange, WithoutALetterTheCurveIsTypeOne) {
    EXPECT_EQ(read("(0 10 60 120)"), 0);
    expect_entry(0, {0, 60, 10, 120, 1, 1});
    EXPECT_EQ(find_tempo(5), 75.0f);
}

TEST_F(GetTempoChange, CurveLetters) {
    const struct {
        const char* text;
        float type, value;
    } LETTERS[] = {{"f", 0, 1}, {"e", 1, 1}, {"L", 2, 1}, {"v.5", 3, 0.5f}, {"S", 4, 1}, {"c", 5, 1}};
    for (const auto& row : LETTERS) {
        EXPECT_EQ(read(std::string("(0 10 60 120 ") + row.text + ")"), 0);
        expect_entry(0, {0, 60, 10, 120, row.type, row.value});
    }
}

TEST_F(GetTempoChange, SeparatorsAndCommentsBetweenTerms) {
    EXPECT_EQ(read("  ( 4 , 8/60 /* from */ 120 , l ) x"), 0);
    EXPECT_EQ(rest(), " x");
    expect_entry(1, {4, 60, 8, 120, 2, 1});
}

TEST_F(GetTempoChange, TermsOnSeveralLines) {
    EXPECT_EQ(read("( 4 ; start\n8\n\n60 /* a\nb */ 120\nl\n) x"), 0);
    EXPECT_EQ(rest(), " x");
    expect_entry(1, {4, 60, 8, 120, 2, 1});
}

TEST_F(GetTempoChange, ShortFormOnSeveralLines) {
    EXPECT_EQ(read("( 90 ; andante\n) x"), 0);
    EXPECT_EQ(rest(), " x");
    EXPECT_EQ(find_tempo(0), 90.0f);
}

TEST_F(GetTempoChange, WarnsOfLateStartsAndEnds) {
    EXPECT_EQ(read("(700 800 60 60)"), 0);
    EXPECT_EQ(warnings(),
              line_warning("This change starts quite late. Is that okay?", "(700 800 60 60)", 14) +
                  line_warning("This tempo change is quite long. Is that okay?", "(700 800 60 60)", 14));
    EXPECT_EQ(read("(0 600.5 60 60)"), 0);
    EXPECT_EQ(warnings(),
              line_warning("This tempo change is quite long. Is that okay?", "(0 600.5 60 60)", 14));
}

TEST_F(GetTempoChange, StartAtTheLimitIsNotLate) {
    EXPECT_EQ(read("(600 600.5 60 60)"), 0);
    EXPECT_EQ(warnings(),
              line_warning("This tempo change is quite long. Is that okay?", "(600 600.5 60 60)", 16));
}

TEST_F(GetTempoChange, WarnsOfUnusualTempiAtBothEnds) {
    EXPECT_EQ(read("(0 1 301 29)"), 0);
    EXPECT_EQ(warnings(), line_warning("Tempo1 is quite fast. Is that okay?", "(0 1 301 29)", 11) +
                              line_warning("Tempo2 is quite slow. Is that okay?", "(0 1 301 29)", 11));
    EXPECT_EQ(read("(0 1 29 301)"), 0);
    EXPECT_EQ(warnings(), line_warning("Tempo1 is quite slow. Is that okay?", "(0 1 29 301)", 11) +
                              line_warning("Tempo2 is quite fast. Is that okay?", "(0 1 29 301)", 11));
    EXPECT_EQ(read("(0 600 30 300)"), 0);
    EXPECT_EQ(warnings(), "");
}

TEST_F(GetTempoChange, ConflictWarningUnderSuppression) {
    SUPRESS = 1;
    EXPECT_EQ(read("(0 8 60 120)"), 0);
    EXPECT_EQ(read("(4 700 1 60)"), 0);
    EXPECT_EQ(warnings(), "\nWARNING: Tempo #2 conflicts with previous tempo's end time!");
}

TEST_F(GetTempoChange, OldConflictsAreRepeatedAtEachCommand) {
    EXPECT_EQ(read("(0 8 60 120)"), 0);
    EXPECT_EQ(read("(4 9 60 60)"), 0);
    (void)warnings();
    EXPECT_EQ(read("(8 9 60 60)"), 0);
    EXPECT_EQ(warnings(),
              "\nWARNING: Tempo #2 conflicts with previous tempo's end time!"
              "\nWARNING: Tempo #3 conflicts with previous tempo's end time!");
    EXPECT_EQ(read("(20 30 60 60)"), 0);
    EXPECT_EQ(warnings(),
              "\nWARNING: Tempo #2 conflicts with previous tempo's end time!"
              "\nWARNING: Tempo #3 conflicts with previous tempo's end time!");
}

TEST_F(GetTempoChange, SpansOutOfOrderAreStoredAsWritten) {
    EXPECT_EQ(read("(20 24 90 90)"), 0);
    EXPECT_EQ(read("(5 8 120 120)"), 0);
    EXPECT_EQ(warnings(), "\nWARNING: Tempo #3 conflicts with previous tempo's end time!");
    EXPECT_EQ(TEMPO_LIST[1].start_time, 20.0f);
    EXPECT_EQ(TEMPO_LIST[2].start_time, 5.0f);
}

// --- errors ---

struct Failure {
    const char* text;
    int number;
    const char* rest;
};

TEST_F(GetTempoChange, ErrorsAndTheirPlaces) {
    const Failure FAILURES[] = {
        {"120)", 96, "120)"},
        {" x(120)", 96, "x(120)"},
        {"()", 150, ")"},
        {"(x)", 150, "x)"},
        {"(,120)", 150, ",120)"},  // what separates terms stands between them only
        {"(/* a */120)", 150, "/* a */120)"},
        {"(\n120)", 150, ""},
        {"(120 x)", 151, "x)"},
        {"(0 8)", 152, ")"},
        {"(0 8 x", 152, "x"},
        {"(0 8 60)", 153, ")"},
        {"(0 8 60 x)", 153, "x)"},
        {"(0 8 60 120 v0)", 63, ")"},
        {"(0 8 60 120 v)", 63, ")"},
        {"(0 8 60 120 l*)", 64, "*)"},
        {"(-1 8 60 120)", 155, ")"},
        {"(10000.5 8 60 120)", 155, ")"},
        {"(0 -1 60 120)", 156, ")"},
        {"(0 10001 60 120)", 156, ")"},
        {"(0 8 0 120)", 157, ")"},
        {"(0 8 4001 120)", 157, ")"},
        {"(0 8 60 0.5)", 158, ")"},
        {"(0 8 60 4001)", 158, ")"},
        {"(10 5 60 60)", 159, ")"},
    };
    for (const Failure& row : FAILURES) {
        EXPECT_EQ(read(row.text), row.number) << row.text;
        EXPECT_EQ(rest(), row.rest) << row.text;
        EXPECT_EQ(TOT_TEMPOS, 1) << row.text;
        expect_entry(0, {0, 60, 0, 60, 1, 0});
        EXPECT_EQ(warnings(), "") << row.text;
    }
}

TEST_F(GetTempoChange, ChecksAreMadeInTheirOrder) {
    EXPECT_EQ(read("(-1 -1 0 0)"), 155);
    EXPECT_EQ(read("(5 -1 0 0)"), 156);
    EXPECT_EQ(read("(5 1 0 0)"), 157);
    EXPECT_EQ(read("(5 1 60 0)"), 158);
    EXPECT_EQ(read("(5 1 60 60)"), 159);
}

TEST_F(GetTempoChange, TextCutOffBehindEachTerm) {
    EXPECT_EQ(read(""), 96);
    EXPECT_EQ(read("("), 150);
    EXPECT_EQ(read("(0"), 151);
    EXPECT_EQ(read("(0 8"), 152);
    EXPECT_EQ(read("(0 8 60"), 153);
    EXPECT_EQ(read("(0 8 60 120"), 19);
    EXPECT_EQ(read("(0 8 60 120 v"), 63);
    EXPECT_EQ(read("(0 8 60 120 l"), 19);
}

TEST_F(GetTempoChange, CommentLeftOpen) {
    EXPECT_EQ(read("(0 8 /* no end"), 152);
    EXPECT_EQ(read("(/* no end"), 150);
}

TEST_F(GetTempoChange, StoredBeforeTheParenthesisIsLookedFor) {
    EXPECT_EQ(read("(4 8 60 120 l 5)"), 19);
    EXPECT_EQ(rest(), "5)");
    EXPECT_EQ(TOT_TEMPOS, 2);
    expect_entry(1, {4, 60, 8, 120, 2, 1});
    EXPECT_EQ(read("(0 8 70 120 q)"), 19);  // an unknown letter is the straight line and stays
    EXPECT_EQ(rest(), "q)");
    expect_entry(0, {0, 70, 8, 120, 0, 1});
}

TEST_F(GetTempoChange, A51stDefinitionIsRefused) {
    for (int k = 1; k < MAX_TEMPOS; ++k) {
        const std::string beat = std::to_string(k);
        EXPECT_EQ(read("(" + beat + " " + beat + " 60 60)"), 0);
    }
    EXPECT_EQ(TOT_TEMPOS, MAX_TEMPOS);
    EXPECT_EQ(read("(50 51 60 60)"), 27);
    EXPECT_EQ(rest(), ")");
    EXPECT_EQ(TOT_TEMPOS, MAX_TEMPOS);
    EXPECT_EQ(TEMPO_LIST[MAX_TEMPOS - 1].start_time, 49.0f);
    EXPECT_EQ(read("(0 1 90 90)"), 0);  // entry 0 can still be replaced
    EXPECT_EQ(read("(80)"), 0);
    EXPECT_EQ(TEMPO_LIST[0].start_tempo, 80.0f);
}

}  // namespace
}  // namespace vorn
