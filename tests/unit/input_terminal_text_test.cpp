#include "input/terminal_text.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <string>

// What a terminal is shown, as a table of texts.

namespace {

std::string shown(const std::string& text) {
    char* data = nullptr;
    std::size_t size = 0;
    std::FILE* const stream = open_memstream(&data, &size);
    vorn::write_to_terminal(stream, text.data(), text.size());
    std::fclose(stream);
    const std::string caught(data, size);
    std::free(data);
    return caught;
}

void expect_as_it_is(const std::string& text) { EXPECT_EQ(shown(text), text); }

// Each byte of it as "\xHH", between letters that stay.
void expect_escaped(const std::string& character) {
    std::string escaped;
    for (const char byte : character) {
        char digits[8];
        std::snprintf(digits, sizeof digits, "\\x%02X", static_cast<unsigned char>(byte));
        escaped += digits;
    }
    EXPECT_EQ(shown("a" + character + "b"), "a" + escaped + "b");
    EXPECT_EQ(shown(character), escaped);
}

TEST(TerminalText, PrintableAsciiLineFeedAndTabStand) {
    std::string text = "\n\t";
    for (char c = ' '; c <= '~'; ++c) text += c;
    expect_as_it_is(text);
    expect_as_it_is("");
}

TEST(TerminalText, LowerControlsAndDeleteAreEscaped) {
    for (char c = 0; c < ' '; ++c) {
        if (c != '\n' && c != '\t') expect_escaped(std::string(1, c));
    }
    expect_escaped("\x7F");
    EXPECT_EQ(shown("\x1B[2J"), "\\x1B[2J");
    EXPECT_EQ(shown("\r\n"), "\\x0D\n");
}

TEST(TerminalText, UpperControlsAreEscapedInBothForms) {
    for (int byte = 0x80; byte < 0xA0; ++byte) {
        const std::string control(1, static_cast<char>(byte));
        expect_escaped(control);
        expect_escaped("\xC2" + control);
    }
    EXPECT_EQ(shown("\x9B"
                    "2J"),
              "\\x9B2J");
}

TEST(TerminalText, LettersOfUtf8Stand) {
    expect_as_it_is("Stück ½ für Čeněk \xC2\xA0 Αθήνα 楽譜 𝄞");
    expect_as_it_is("\xED\x9F\xBF\xEE\x80\x80\xF4\x8F\xBF\xBF");  // beside the surrogates, and the last
}

TEST(TerminalText, LettersOfLatin1Stand) {
    expect_as_it_is(
        "St\xFC"
        "ck \xE4\xF6\xDF \xA0\xFF");
    expect_as_it_is("\xFC");
}

// A byte of the upper controls is one wherever it belongs to no letter.
TEST(TerminalText, BrokenLettersHideNoControl) {
    EXPECT_EQ(shown("\xC3"), "\xC3");
    EXPECT_EQ(shown("\xE2\x9B"), "\xE2\\x9B");
    EXPECT_EQ(shown("\xE2\x9B"
                    "a"),
              "\xE2\\x9B"
              "a");
    EXPECT_EQ(shown("\xF0\x9D\x84"), "\xF0\\x9D\\x84");
    EXPECT_EQ(shown("\xF8\x9B\x80\x80\x80"), "\xF8\\x9B\\x80\\x80\\x80");
    EXPECT_EQ(shown("\xC3\x1B[2J"), "\xC3\\x1B[2J");
}

TEST(TerminalText, LongerFormsThanNeededAreNoLetters) {
    EXPECT_EQ(shown("\xC0\x9B"), "\xC0\\x9B");
    EXPECT_EQ(shown("\xC1\xBF"), "\xC1\xBF");
    EXPECT_EQ(shown("\xE0\x82\x9B"), "\xE0\\x82\\x9B");
    EXPECT_EQ(shown("\xE0\x9F\xBF"), "\xE0\\x9F\xBF");
    EXPECT_EQ(shown("\xF0\x8F\xBF\xBF"), "\xF0\\x8F\xBF\xBF");
}

TEST(TerminalText, SurrogatesAndCodesBehindTheLastAreNoLetters) {
    EXPECT_EQ(shown("\xED\xA0\x80"), "\xED\xA0\\x80");
    EXPECT_EQ(shown("\xED\xBF\xBF"), "\xED\xBF\xBF");
    EXPECT_EQ(shown("\xF4\x90\x80\x80"), "\xF4\\x90\\x80\\x80");
}

TEST(TerminalText, TurnsOfDirectionAreEscaped) {
    for (const char* const mark : {"\u061C", "\u200E", "\u200F", "\u202A", "\u202E", "\u2066", "\u2069"}) {
        expect_escaped(mark);
    }
    expect_as_it_is("\u061B\u061D\u200D\u2010\u2029\u202F\u2065\u206A\u00A0");
    expect_as_it_is("שלום");
}

TEST(TerminalText, SizesOfCharacters) {
    const auto size = [](const char* text, std::size_t bytes) {
        return vorn::terminal_character(text, bytes).size;
    };
    EXPECT_EQ(size("ab", 2), 1U);
    EXPECT_EQ(size("üb", 3), 2U);
    EXPECT_EQ(size("楽譜", 6), 3U);
    EXPECT_EQ(size("𝄞", 4), 4U);
    EXPECT_EQ(size("𝄞", 3), 1U);
    EXPECT_EQ(size("\xC2\x9B"
                   "a",
                   3),
              2U);
}

}  // namespace
