#include "output/csound_writer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <initializer_list>
#include <string>
#include <vector>

#include "blocks/command_codes.h"
#include "input/messages.h"
#include "input/run_flags.h"

namespace {

using vorn::ListNode;

std::string contents(std::FILE* stream) {
    std::rewind(stream);
    std::string text;
    for (int c = std::fgetc(stream); c != EOF; c = std::fgetc(stream)) text += static_cast<char>(c);
    return text;
}

// A block of events written to a file; all columns are "re" with three decimals
// until a test says otherwise.
struct PrintCsound : testing::Test {
    ListNode* list = nullptr;
    int instrument = 1;
    std::vector<std::uint32_t> types;
    std::vector<std::uint32_t> decimals;
    std::vector<std::int32_t> fft_sizes;
    std::uint64_t sample_rate = 44100;
    std::uint64_t events = 0;
    std::int64_t event_no = 0;
    bool written = false;
    std::FILE* messages = std::tmpfile();
    std::FILE* const saved_messages = vorn::std_err;

    PrintCsound() { vorn::std_err = messages; }
    ~PrintCsound() override {
        vorn::std_err = saved_messages;
        std::fclose(messages);
        vorn::reset_event_list();
    }

    int pfields() const { return static_cast<int>(types.size()) + 1; }

    // Room for P2 up to the given p-field.
    void make_columns(int last_pfield) {
        const auto count = static_cast<std::size_t>(last_pfield) - 1;
        types.assign(count, vorn::CODE_RE);
        decimals.assign(count, 3);
        fft_sizes.assign(count, 4);
    }
    void add(float start, float duration, std::initializer_list<float> values = {}) {
        if (types.empty()) make_columns(3 + static_cast<int>(values.size()));
        int fused = 0;
        ASSERT_TRUE(vorn::InsertBegTime(list, pfields(), fused, 1.0F, 0.0F, 0.0F));
        list->start = start;
        list->dur = duration;
        std::copy(values.begin(), values.end(), list->pf);
        ++events;
        ++event_no;
    }
    std::string print() {
        vorn::OutputFile out;
        std::FILE* stream = std::tmpfile();
        EXPECT_TRUE(vorn::open_output(out, stream));
        const vorn::ScoreFormat format{instrument,      pfields(),        types.data(),
                                       decimals.data(), fft_sizes.data(), sample_rate};
        written = vorn::print_csound(list, out, format, {events, event_no});
        EXPECT_TRUE(vorn::flush_output(out));
        const std::string text = contents(stream);
        vorn::close_output(out);
        return text;
    }
    // The text of one P4 value of an event at 0 for 1 second.
    std::string item(int type, float value) {
        vorn::FreeListNodes(list);
        make_columns(4);
        types[2] = static_cast<std::uint32_t>(type);
        add(0.0F, 1.0F, {value});
        const std::string line = print();
        const std::string head = "\ni1    0.000  1.000 ";
        EXPECT_EQ(line.substr(0, head.size()), head);
        EXPECT_EQ(line.back(), '\n');
        return line.substr(head.size(), line.size() - head.size() - 1);
    }
};

}  // namespace

TEST_F(PrintCsound, WritesTheDefaultLine) {
    add(0.0F, 1.0F, {7000.0F, 8.0F});
    EXPECT_EQ(print(), "\ni1    0.000  1.000  7000.000     8.000 \n");
    EXPECT_TRUE(written);
}

TEST_F(PrintCsound, WritesOneLineForEachEvent) {
    instrument = 12;
    add(0.0F, 0.5F, {1.0F});
    add(0.5F, 1.25F, {2.0F});
    add(1234.5F, 100.0F, {-3.5F});
    EXPECT_EQ(print(),
              "\ni12    0.000  0.500     1.000 "
              "\ni12    0.500  1.250     2.000 "
              "\ni12 1234.500 100.000    -3.500 \n");
}

TEST_F(PrintCsound, TrailingBlankAfterEveryItem) {
    add(0.0F, 1.0F);
    EXPECT_EQ(print(), "\ni1    0.000  1.000 \n");
}

TEST_F(PrintCsound, WidthsFollowTheDecimals) {
    // Start: decimals + 5; duration: decimals + 3; the others: decimals + 6.
    make_columns(5);
    decimals = {1, 0, 5, 7};
    add(2.25F, 3.0F, {0.5F, 0.25F});
    EXPECT_EQ(print(), "\ni1    2.2   3     0.50000     0.2500000 \n");
}

TEST_F(PrintCsound, PrecisionZeroWritesNoPoint) {
    make_columns(4);
    decimals[2] = 0;
    add(0.0F, 1.0F, {440.0F});
    EXPECT_EQ(print(), "\ni1    0.000  1.000    440 \n");
}

TEST_F(PrintCsound, XxWritesNothingNotEvenTheBlank) {
    make_columns(6);
    types[3] = vorn::CODE_XX;
    add(0.0F, 1.0F, {1.0F, 2.0F, 3.0F});
    EXPECT_EQ(print(), "\ni1    0.000  1.000     1.000     3.000 \n");
}

TEST_F(PrintCsound, UnknownTypeWritesNothingNotEvenTheBlank) {
    for (const int type : {0, 1, 3, 5, 10, 15, 22, 28, 1000, -1}) EXPECT_EQ(item(type, 5.0F), "") << type;
}

TEST_F(PrintCsound, WritesEveryOutputType) {
    EXPECT_EQ(item(vorn::CODE_RE, 48.0F), "   48.000 ");
    EXPECT_EQ(item(vorn::CODE_IN, 48.0F), "   48 ");
    EXPECT_EQ(item(vorn::CODE_DB, 10.0F), "20.0 ");
    EXPECT_EQ(item(vorn::CODE_HZ, 48.0F), "  261.62558 ");
    EXPECT_EQ(item(vorn::CODE_OP, 48.0F), " 8.000 ");
    EXPECT_EQ(item(vorn::CODE_OD, 54.0F), "8.50 ");
    EXPECT_EQ(item(vorn::CODE_TR, 12.0F), "2.000000 ");
    EXPECT_EQ(item(vorn::CODE_BN, 57.0F), "   41 ");
}

TEST_F(PrintCsound, IntegersRoundHalvesUp) {
    EXPECT_EQ(item(vorn::CODE_IN, 2.5F), "    3 ");
    EXPECT_EQ(item(vorn::CODE_IN, -2.5F), "   -2 ");
    EXPECT_EQ(item(vorn::CODE_IN, 1e12F), "2147483647 ");
}

TEST_F(PrintCsound, DecibelsAreTakenOfTheRoundedAmplitude) {
    EXPECT_EQ(item(vorn::CODE_DB, 9.6F), "20.0 ");
    EXPECT_EQ(item(vorn::CODE_DB, 1.4F), " 0.0 ");
}

TEST_F(PrintCsound, DecibelsOfZeroAreMinusInfinity) {
    EXPECT_EQ(item(vorn::CODE_DB, 0.0F), "-inf ");
    EXPECT_EQ(item(vorn::CODE_DB, 0.4F), "-inf ");
}

TEST_F(PrintCsound, NegativePitchesCountDownFromTheirOctave) {
    EXPECT_EQ(item(vorn::CODE_OP, -1.0F), " 3.990 ");
    EXPECT_EQ(item(vorn::CODE_OD, -1.0F), "3.92 ");
}

TEST_F(PrintCsound, BinUsesTheColumnsSizeAndTheRate) {
    make_columns(5);
    types[2] = types[3] = vorn::CODE_BN;
    fft_sizes[2] = 0;
    fft_sizes[3] = 7;
    add(0.0F, 1.0F, {57.0F, 57.0F});
    sample_rate = 65536;
    EXPECT_EQ(print(), "\ni1    0.000  1.000     2   220 \n");
}

TEST_F(PrintCsound, KeepsTheSignOfZero) { EXPECT_EQ(item(vorn::CODE_RE, -0.0001F), "   -0.000 "); }

TEST_F(PrintCsound, ValuesWiderThanTheirFieldPushTheLine) {
    EXPECT_EQ(item(vorn::CODE_RE, 1234567.0F), "1234567.000 ");
    EXPECT_EQ(item(vorn::CODE_RE, 1e20F), "100000002004087734272.000 ");
}

TEST_F(PrintCsound, LeavesRestsOutAndLowersTheCounts) {
    make_columns(3);
    add(0.0F, -1.0F);
    add(1.0F, 1.0F);
    add(2.0F, 0.0F);
    add(3.0F, 1.0F);
    add(4.0F, -0.5F);
    EXPECT_EQ(print(), "\ni1    1.000  1.000 \ni1    3.000  1.000 \n");
    EXPECT_EQ(events, 2U);
    EXPECT_EQ(event_no, 2);
}

TEST_F(PrintCsound, BlockOfRestsWritesAMessageOnly) {
    instrument = 7;
    make_columns(3);
    add(0.0F, 0.0F);
    add(0.0F, -1.0F);
    EXPECT_EQ(print(), "");
    EXPECT_FALSE(written);
    EXPECT_EQ(list, nullptr);
    EXPECT_EQ(events, 0U);
    EXPECT_EQ(event_no, 0);
    EXPECT_EQ(contents(messages),
              "\n\nOops i-block 7 is all rests (check p2=0 and p3 != 400+n OR 1000+n?)! ");
}

TEST_F(PrintCsound, EmptyListWritesNothing) {
    make_columns(3);
    events = 5;
    EXPECT_EQ(print(), "");
    EXPECT_FALSE(written);
    EXPECT_EQ(events, 5U);
    EXPECT_EQ(contents(messages), "");
}

TEST_F(PrintCsound, WritesTheLargestLine) {
    // 125 columns of 47 characters: 39 digits, point, 7 decimals; and a blank each.
    make_columns(128);
    std::fill(decimals.begin(), decimals.end(), 7U);
    for (int i = 0; i < 60; ++i) {
        add(1.0F, 1.0F);
        for (int k = 0; k < 125; ++k) list->pf[k] = 3.4e38F;
    }
    const std::string text = print();
    const std::string head = "\ni1    1.0000000  1.0000000 ";
    EXPECT_EQ(text.size(), 60 * (head.size() + 125 * 48) + 1);
    EXPECT_EQ(text.substr(0, head.size()), head);
}
