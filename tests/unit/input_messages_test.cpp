#include "input/messages.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>
#include <random>
#include <string>

#include "input/run_flags.h"
#include "support/message_capture.h"

namespace {

using vorn::error_no;
using vorn::Mprintf;
using vorn::put_buff;
using vorn::Reader;
using vorn::warning_no;
using vorn::test::MessageCapture;

// --- the formatter ---

template <typename... Values>
std::string printed(const char* format, const Values&... values) {
    MessageCapture messages;
    Mprintf(format, values...);
    return messages.text();
}

TEST(Mprintf, WritesOrdinaryCharactersAsTheyAre) {
    EXPECT_EQ(printed("\n\tplain \\ text\n"), "\n\tplain \\ text\n");
    EXPECT_EQ(printed(""), "");
}

TEST(Mprintf, FormatsCharactersIntegersAndTexts) {
    EXPECT_EQ(printed("%c%c", 'a', 66), "aB");
    EXPECT_EQ(printed("%d %d", 3, -12), "3 -12");
    EXPECT_EQ(printed("[%s][%s]", "a%db", ""), "[a%db][]");
    EXPECT_EQ(printed("%d", std::numeric_limits<std::int64_t>::max()), "9223372036854775807");
    EXPECT_EQ(printed("%d", std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
    EXPECT_EQ(printed("%d", std::uint64_t{5000000000}), "5000000000");
}

TEST(Mprintf, EveryRealHasTwoDecimalsInSevenCharacters) {
    EXPECT_EQ(printed("%f", 1.0), "   1.00");
    EXPECT_EQ(printed("%f", 1.0F), "   1.00");
    EXPECT_EQ(printed("%f|%f", -2.5, 1234567.0), "  -2.50|1234567.00");
    EXPECT_EQ(printed("%f", 0.125), "   0.12");
    EXPECT_EQ(printed("%f", 0.375), "   0.38");
    EXPECT_EQ(printed("%f", -0.001), "  -0.00");
    EXPECT_EQ(printed("%f", std::numeric_limits<double>::infinity()), "    inf");
    EXPECT_EQ(printed("%f", -std::numeric_limits<double>::infinity()), "   -inf");
    EXPECT_EQ(printed("%f", std::numeric_limits<double>::quiet_NaN()), "   -nan");
    EXPECT_EQ(printed("%f", -std::numeric_limits<double>::quiet_NaN()), "   -nan");
}

// 0.045 lies a little below the half in double precision and a little above it in single.
TEST(Mprintf, DoublesAreNotRoundedToFloatsFirst) {
    EXPECT_EQ(printed("%f", 0.045), "   0.04");
    EXPECT_EQ(printed("%f", 0.045F), "   0.05");
    EXPECT_EQ(printed("%f", 1e300).size(), 304U);
}

TEST(Mprintf, RealsAreAsTheLibraryWritesThem) {
    std::mt19937_64 random(11);
    for (int i = 0; i < 20000; ++i) {
        const std::uint64_t bits = random();
        double value;
        std::memcpy(&value, &bits, sizeof value);
        if (i % 2 == 0) value = static_cast<float>(static_cast<double>(bits % 200000000) / 128 - 500000);
        char expected[400];
        std::snprintf(expected, sizeof expected, "%7.2f", value);
        if (!std::isnan(value)) {
            ASSERT_EQ(printed("%f", value), expected);
        }
    }
}

TEST(Mprintf, WidthsArePrintedLiterallyAndConsumeNothing) {
    EXPECT_EQ(printed("%5d", 3), "5d");
    EXPECT_EQ(printed("%5d %d", 3), "5d 3");
    EXPECT_EQ(printed("%.2f|%-s"), ".2f|-s");
}

TEST(Mprintf, APercentSignStandsForTheNextCharacter) {
    EXPECT_EQ(printed("100%%"), "100%");
    EXPECT_EQ(printed("%%d %q%%%d", 1), "%d q%1");
    EXPECT_EQ(printed("50%"), "50");
}

TEST(Mprintf, LosesNothingOfAMessageLongerThanTheBuffer) {
    const std::string large(200000, 'x');
    EXPECT_EQ(printed("%d,%s,%d", 1, large.c_str(), 2), "1," + large + ",2");
}

TEST(Mprintf, IsNotSilencedByTheFlag) {
    MessageCapture messages;
    vorn::SUPRESS = 1;
    Mprintf("told");
    vorn::SUPRESS = 0;
    EXPECT_EQ(messages.text(), "told");
}

// --- the log ---

class Log {
public:
    Log() {
        vorn::MKLOG = 1;
        vorn::fllog = stream_;
    }
    ~Log() {
        vorn::MKLOG = 0;
        vorn::fllog = nullptr;
        std::fclose(stream_);
    }
    Log(const Log&) = delete;
    Log& operator=(const Log&) = delete;

    std::string text() const {
        std::string caught(static_cast<std::size_t>(std::ftell(stream_)), '\0');
        std::rewind(stream_);
        caught.resize(std::fread(caught.data(), 1, caught.size(), stream_));
        return caught;
    }

private:
    std::FILE* stream_ = std::tmpfile();
};

TEST(Log, HoldsEveryMessageAndEveryEcho) {
    MessageCapture messages;
    const Log log;
    Mprintf("%d events", 3);
    error_no(5, 1, "x", 0);
    error_no(22, 12, "boo", 1);
    error_no(1000, 12, "boo", 2);
    warning_no(2, 3, "y", 0);
    warning_no(19, 3, "y", 1);
    vorn::print_text("\nlast", 5);
    const std::string expected =
        "3 events"
        "\nERROR: Reached end-of-file before \"}\" was found.\n\n"
        "\n\nERROR: Line 12:Invalid G-block command or character.\nboo\n ^\n"
        "boo\n  ^\n"
        "\nWARNING: I-block skipped! (i-no < 0)"
        "\n\nWARNING: Line 3:Are you sure you want that many p-fields?!\ny\n ^\n"
        "\nlast";
    EXPECT_EQ(messages.text(), expected);
    EXPECT_EQ(log.text(), expected);
}

TEST(Log, IsLeftAloneWithoutTheFlag) {
    MessageCapture messages;
    const Log log;
    vorn::MKLOG = 0;
    Mprintf("told");
    error_no(1000, 1, "x", 0);
    EXPECT_EQ(log.text(), "");
}

// --- errors ---

std::string printed_error(int number, const char* text, std::int32_t pos) {
    MessageCapture messages;
    error_no(number, 12, text, pos);
    return messages.text();
}

TEST(ErrorNo, NumbersFromTenHaveLineAndCaret) {
    EXPECT_EQ(printed_error(22, "abc xyz", 4),
              "\n\nERROR: Line 12:Invalid G-block command or character.\nabc xyz\n    ^\n");
    EXPECT_EQ(printed_error(10, "i", 1), "\n\nERROR: Line 12:\"i\" must be followed by a number\ni\n ^\n");
}

TEST(ErrorNo, NumbersThreeToNineArePlain) {
    EXPECT_EQ(printed_error(5, "abc", 1), "\nERROR: Reached end-of-file before \"}\" was found.\n\n");
    EXPECT_EQ(printed_error(9, "abc", 1), "\nERROR: Ouch! Can't open the temporary file (huh?).\n\n");
}

TEST(ErrorNo, ZeroAndNegativeNumbersArePlainAndUnspecified) {
    EXPECT_EQ(printed_error(0, "abc", 1), "\nERROR: Unspecified error...\n\n");
    EXPECT_EQ(printed_error(-1, "abc", 1), "\nERROR: Unspecified error...\n\n");
    EXPECT_EQ(printed_error(2, "abc", 1), "\nERROR: Unspecified error...\n\n");
}

TEST(ErrorNo, Number999IsSilent) { EXPECT_EQ(printed_error(999, "abc", 1), ""); }

TEST(ErrorNo, Number1000IsTheEchoOnly) { EXPECT_EQ(printed_error(1000, "abc", 1), "abc\n ^\n"); }

TEST(ErrorNo, AreNotSilencedByTheFlag) {
    MessageCapture messages;
    vorn::SUPRESS = 1;
    error_no(31, 2, "x", 0);
    vorn::SUPRESS = 0;
    EXPECT_EQ(messages.text(), "\n\nERROR: Line 2:Missing i-block terminator (}).\nx\n^\n");
}

TEST(ErrorNo, TakesLineTextAndPlaceFromAReader) {
    MessageCapture messages;
    Reader reader;
    std::strcpy(reader.text, "p2 x");
    reader.pos = 3;
    reader.line = 5000000000;
    error_no(27, reader);
    EXPECT_EQ(messages.text(), "\n\nERROR: Line 5000000000:Data is out of bounds.\np2 x\n   ^\n");
}

// --- warnings ---

std::string printed_warning(int number) {
    MessageCapture messages;
    warning_no(number, 12, "abc", 2);
    return messages.text();
}

TEST(WarningNo, UpToNineHasNeitherLineNorTrailingLineFeed) {
    EXPECT_EQ(printed_warning(1), "\nWARNING: P3 Duration < 0! (Event turned into rest...)");
    EXPECT_EQ(printed_warning(9), "\nWARNING: Unspecified warning...");
}

TEST(WarningNo, FromTenHasLineAndCaret) {
    EXPECT_EQ(printed_warning(12),
              "\n\nWARNING: Line 12:Reached end of i-time or i-events, (repeat truncated)\nabc\n  ^\n");
    EXPECT_EQ(printed_warning(10),
              "\n\nWARNING: Line 12:Reached end of i-time or i-events -- event(s) not added.\nabc\n  ^\n");
}

TEST(WarningNo, AreSilencedByTheFlag) {
    vorn::SUPRESS = 1;
    EXPECT_EQ(printed_warning(12), "");
    EXPECT_EQ(printed_warning(2), "");
    vorn::SUPRESS = 0;
}

// --- the echo ---

std::string echoed(const char* text, std::int32_t pos) {
    MessageCapture messages;
    put_buff(vorn::std_err, text, pos);
    return messages.text();
}

TEST(PutBuff, CaretStandsUnderThePlace) {
    EXPECT_EQ(echoed("abc", 0), "abc\n^\n");
    EXPECT_EQ(echoed("abc", 2), "abc\n  ^\n");
    EXPECT_EQ(echoed("abc", 3), "abc\n   ^\n");
}

TEST(PutBuff, TabsAreRepeatedBeforeTheCaret) {
    EXPECT_EQ(echoed("\tp2\tx y", 6), "\tp2\tx y\n\t  \t  ^\n");
    EXPECT_EQ(echoed("\tx", 0), "\tx\n^\n");
}

TEST(PutBuff, LineFeedIsShownAsTheLetterL) { EXPECT_EQ(echoed("ab\ncd\n", 4), "abLcdL\n    ^\n"); }

TEST(PutBuff, AnEmptyBufferGivesTwoLineFeedsAndNoCaret) { EXPECT_EQ(echoed("", 0), "\n\n"); }

TEST(PutBuff, AFullLineFits) {
    const std::string line(vorn::LINE_SIZE - 1, '\n');
    const std::string expected = std::string(line.size(), 'L') + "\n" + std::string(line.size(), ' ') + "^\n";
    EXPECT_EQ(echoed(line.c_str(), static_cast<std::int32_t>(line.size())), expected);
}

// --- a terminal ---

class OnTerminal : public testing::Test {
protected:
    OnTerminal() { vorn::ON_TERMINAL = 1; }
    ~OnTerminal() override { vorn::ON_TERMINAL = 0; }
};

TEST_F(OnTerminal, ControlCharactersOfValuesAreEscaped) {
    EXPECT_EQ(printed("\n\"%s\"%c\n", "\x1B[2J\xC3\xBC", '\a'), "\n\"\\x1B[2J\xC3\xBC\"\\x07\n");
    MessageCapture messages;
    vorn::print_text("\x9B", 1);
    EXPECT_EQ(messages.text(), "\\x9B");
}

// The letter that the end of the buffer cuts in two is shown as two bytes, but no control gets through.
TEST_F(OnTerminal, AMessageLongerThanTheBufferIsEscapedThroughout) {
    const std::string fill(sizeof vorn::MESSAGES.data - 1, 'x');
    EXPECT_EQ(printed("%s%s", fill.c_str(), "\xC2\x9B\x1B"), fill + "\xC2\\x9B\\x1B");
}

TEST_F(OnTerminal, TheCaretStandsUnderItsPlaceBehindEscapes) {
    EXPECT_EQ(echoed("a\x1B"
                     "bc",
                     1),
              "a\\x1Bbc\n ^\n");
    EXPECT_EQ(echoed("a\x1B"
                     "bc",
                     2),
              "a\\x1Bbc\n     ^\n");
    EXPECT_EQ(echoed("\x1B\t\xC2\x9B"
                     "c",
                     4),
              "\\x1B\t\\xC2\\x9Bc\n    \t        ^\n");
    EXPECT_EQ(echoed("\xC2\x9B"
                     "c",
                     1),
              "\\xC2\\x9Bc\n    ^\n");
}

// Where nothing is escaped, a terminal is shown what a file gets.
TEST_F(OnTerminal, OtherEchoesAreThoseOfAFile) {
    for (const char* const text : {"a\tb\nc",
                                   "\xC3\xBC"
                                   "bc",
                                   "\xFC"
                                   "bc",
                                   ""}) {
        for (std::int32_t pos = 0; pos <= static_cast<std::int32_t>(std::strlen(text)); ++pos) {
            const std::string on_terminal = echoed(text, pos);
            vorn::ON_TERMINAL = 0;
            EXPECT_EQ(on_terminal, echoed(text, pos));
            vorn::ON_TERMINAL = 1;
        }
    }
}

TEST_F(OnTerminal, AFullLineOfControlsFits) {
    const std::string line(vorn::LINE_SIZE - 1, '\x1B');
    std::string escapes;
    for (std::size_t k = 0; k < line.size(); ++k) escapes += "\\x1B";
    const std::string expected = escapes + "\n" + std::string(escapes.size(), ' ') + "^\n";
    EXPECT_EQ(echoed(line.c_str(), static_cast<std::int32_t>(line.size())), expected);
}

TEST_F(OnTerminal, TheLogKeepsTheBytes) {
    MessageCapture messages;
    const Log log;
    Mprintf("%s", "\x1B");
    error_no(1000, 1,
             "\x1B"
             "x",
             1);
    EXPECT_EQ(messages.text(), "\\x1B\\x1Bx\n    ^\n");
    EXPECT_EQ(log.text(), "\x1B\x1Bx\n ^\n");
}

TEST(InAFile, ControlCharactersStandAsTheyAre) {
    EXPECT_EQ(printed("%s", "\x1B[2J\x9B"), "\x1B[2J\x9B");
    EXPECT_EQ(echoed("\x1B"
                     "x",
                     1),
              "\x1B"
              "x\n ^\n");
}

// --- whole texts ---

TEST(PrintText, PrintsTheBytesAsTheyAre) {
    MessageCapture messages;
    vorn::print_text("50%d\t-", 5);
    EXPECT_EQ(messages.text(), "50%d\t");
}

TEST(PrintText, StandsBetweenTheMessagesAroundIt) {
    MessageCapture messages;
    Mprintf("before");
    vorn::print_text("text", 4);
    Mprintf("after");
    EXPECT_EQ(messages.text(), "beforetextafter");
}

}  // namespace
