#include "input/message_table.h"

#include <gtest/gtest.h>

#include <iterator>
#include <map>
#include <string>

#include "input/messages.h"
#include "input/run_flags.h"
#include "support/message_capture.h"

// Every text byte for byte, misspellings and trailing blanks included, once as
// the table holds it and once as it is printed.

namespace {

using vorn::error_no;
using vorn::error_text;
using vorn::warning_no;
using vorn::warning_text;
using vorn::test::MessageCapture;

enum Form { PLAIN, LINE };

struct ErrorRow {
    int number;
    Form form;
    const char* text;
};

const ErrorRow ERRORS[] = {
    {3, PLAIN, "Comments seemed to be mismatched... reached EOF."},
    {4, PLAIN, "P-fields don't match i-block header!"},
    {5, PLAIN, "Reached end-of-file before \"}\" was found."},
    {8, PLAIN, "EOF reached: missing macro body end (#)."},
    {9, PLAIN, "Ouch! Can't open the temporary file (huh?)."},
    {10, LINE, "\"i\" must be followed by a number"},
    {11, LINE, "Bad i-number."},
    {12, LINE, "Bad i-start time."},
    {13, LINE, "Bad number of beats."},
    {14, LINE, "Bad number of events."},
    {15, LINE, "P2 must be specifed first (others may be out of numerical order)."},
    {16, LINE, "Bad p-field number."},
    {17, LINE, "Invalid output specifier or precision out of range."},
    {18, LINE, "P2 and P3 must output floats."},
    {19, LINE, "Missing \")\"."},
    {20, LINE, "Invalid command."},
    {21, LINE, "P2 input must be \"re\", \"in\" or \"rh\"."},
    {22, LINE, "Invalid G-block command or character."},
    {23, LINE, "Value out of bounds or syntax error."},
    {24, LINE, "\"x\" operator must be followed by a digit."},
    {25, LINE, "Reached EOF! (missing comment \"*/\"?)"},
    {26, LINE, "P3 input must be \"re\" or \"in\"."},
    {27, LINE, "Data is out of bounds."},
    {28, LINE, "Format DV/RD(f): f = real number >= 0 and < 100 (1 = 100%)"},
    {29, LINE, "Format RS(ui): ui = UNSIGNED INT (0-65535)."},
    {30, LINE, "Missing i-block initiator ({)."},
    {31, LINE, "Missing i-block terminator (})."},
    {32, LINE, "Yikes, out of memory!"},
    {33, LINE, "Premature end-of-file!"},
    {34, LINE, "Instrument number must be followed by \"=\"."},
    {35, LINE, "Bad number of parameters?"},
    {36, LINE, "Illegal characters between DDF name and \"(\"."},
    {37, LINE, "A maximum of two values expected."},
    {38, LINE, "Percentage value expected. (Missing \")\" in last DDF?)"},
    {39, LINE, "Value missing in []s, bad input type, or out of bounds"},
    {40, LINE, "Bad number of beats or events."},
    {41, LINE, "Value(s) or []s missing?"},
    {42, LINE, "Percentages must add up to 1.0."},
    {43, LINE, "Bad loop syntax (missing \"<\" or bad placement?)"},
    {44, LINE, "P-field out of bounds! (More than specified in i-header)"},
    {45, LINE, "misplaced \"<\" (or memory error)."},
    {46, LINE, "Format te(f): f = real number."},
    {47, LINE, "Invalid global-block data"},
    {48, LINE, "Error in EX data (equations need to be in []s)."},
    {49, LINE, "Multiple ':'s! "},
    {50, LINE, "RW command: Window % value out of range (must be 0-1)."},
    {51, LINE, "RW command: Starting value out of range."},
    {52, LINE, "RW command: Bad range value."},
    {53, LINE, "TIME Varibale: Bad time percentage."},
    {54, LINE, "Must specify EVENTS when using a start interval of 0."},
    {55, LINE, "EX command: Missing or bad operation: use +, -, /, or *."},
    {56, LINE, "EX command: Equation must be enclosed in []s."},
    {57, LINE, "EX command: Error getting p-field (must be previously defined)."},
    {58, LINE, "EX command: A pfield must be used at least once."},
    {59, LINE, "EX command: Yikes, can't divide by 0!"},
    {60, LINE, "EX command: Division by pfield produces a / 0 error!"},
    {61, LINE, "HO command: Missing final \")\"."},
    {62, LINE, "S2 command may only be used in P4 and above."},
    {63, LINE, "Bad user-defined curve type (must be > 0)."},
    {64, LINE, "Beat-related move (*) not allowed when DDF time = events or in TE)"},
    {65, LINE, "Format SR(uli): uli = UNSIGNED LONG INT (0-65535+)."},
    {70, LINE, "Duplicate p-fields are not allowed."},
    {71, LINE, "Whoops, some p-fields were skipped."},
    {72, LINE, "Can't have a P2 of 0 when specifying beats in a DDF."},
    {73, LINE, "Invalid I-block command or character."},
    {80, LINE, "Error in macro \"#define\" or \"#undef\" statement."},
    {81, LINE, "Macro body must be enclosed in #s"},
    {82, LINE, "Stray \"'\" found -- too many macro arguments in call?"},
    {83, LINE, "Duplicate macro name?!"},
    {84, LINE, "Oy! You've already defined a macro with that name!"},
    {85, LINE, "Error in macro call: missing (."},
    {86, LINE, "Error in macro syntax. (Bad # of arguments?)"},
    {87, LINE, "Wrong number of arguments in macro call."},
    {88, LINE, "Macro name (or argument name) must start with an alphabetic character."},
    {89, LINE, "Macro body exceeds maximum size."},
    {90, LINE, "Macro name exceeds memory allocation."},
    {91, LINE, "There are no macros to undefine."},
    {92, LINE, "Not a macro command."},
    {93, LINE, "You must precede the \"oc\" (octave-class) mode with the \"pc\" mode."},
    {94, LINE, "\"oc\" (octave-class) mode must be the last input mode in p-field!"},
    {95, LINE, "duplicate \"oc\" (octave-class) mode found (can only have one in a p-field)"},
    {96, LINE, "Illegal characters between command name and \"(\""},
    {97, LINE, "Didn't enter anything?"},
    {100, LINE, "Eeek! You've already defined a \"const\" with that name!"},
    {101, LINE, "Error in \"const\" statement."},
    {102, LINE, "Yikes, not enough memory to allocate constant!"},
    {103, LINE, "Sorry but you can't use a macro name in a \"const\" definition."},
    {105, LINE, "\"const\" equations must be contained on a single line, sorry :("},
    {106, LINE, "\"@\" must be followed by a 1, 2, 3, or 4"},
    {107, LINE, "Oops, illegal character in \"const\" equation."},
    {108, LINE, "Illegal number of terms or operations in\"const\" equation."},
    {109, LINE, "Constant name must start with an alphabetic character."},
    {113, LINE,
     "Error in \"#endif\" Statement. \n(N.B. #if and #endif must be isolated to their own lines\nwith no "
     "other data than whitespace.)"},
    {114, LINE,
     "Error in \"#if\" Statement. \n(N.B. #if and #endif must be isolated to their own lines \nwith no other "
     "data than whitespace.)"},
    {115, LINE, "\"#if\" Statement expects a floating-point value within ()s. "},
    {116, LINE, "\"#if\" statement is missing terminal \")\""},
    {117, LINE,
     "Reached EOF. \"#if\" statement is missing \"#endif\"? \n(N.B. #if and #endif must be isolated\nto "
     "their own lines with no other data than whitespace.)"},
    {118, LINE,
     "\"#if\" statement: mismatched \"#endif\". \n(N.B. #if and #endif must be isolated to their own\n lines "
     "with no other data than whitespace.)"},
    {119, LINE,
     "\"#if\" statement: missing an \"#endif\"? \n(N.B. #if and #endif must be isolated to their own\n lines "
     "with no other data than whitespace.)"},
    {120, LINE, "ZOINKS! You skipped the i-block duration!"},
    {121, LINE, "Ack! Error getting the i-block duration!"},
    {125, LINE, "Format PF(f): f = real number."},
    {126, LINE, "PF only valid in P3 and higher P-fields."},
    {150, LINE, "\"te\" term1, expecting a tempo or start time."},
    {151, LINE, "\"te\" term2, bad end time."},
    {152, LINE, "\"te\" term3, bad start tempo."},
    {153, LINE, "\"te\" term4, bad end tempo."},
    {154, LINE, "\"te\" term5, error getting curve type."},
    {155, LINE, "\"te\" term1 (start time), out of range."},
    {156, LINE, "\"te\" term2 (end time), out of range."},
    {157, LINE, "\"te\" term3 (start tempo), out of range."},
    {158, LINE, "\"te\" term4 (end tempo), out of range."},
    {159, LINE, "\"te\" term1 and term2 (times), are backwards!"},
    {200, LINE, "Not implemented yet..."},
    {500, LINE, "Expecting a digit or decimal point in floating-point number."},
};

struct WarningRow {
    int number;
    const char* text;
};

const WarningRow WARNINGS[] = {
    {1, "P3 Duration < 0! (Event turned into rest...)"},
    {2, "I-block skipped! (i-no < 0)"},
    {3, "Unspecified warning..."},
    {4, "Unspecified warning..."},
    {5, "Unspecified warning..."},
    {6, "Unspecified warning..."},
    {7, "Unspecified warning..."},
    {8, "Unspecified warning..."},
    {9, "Unspecified warning..."},
    {10, "Reached end of i-time or i-events -- event(s) not added."},
    {11, "Reached end of i-time or i-events, DDF data truncated"},
    {12, "Reached end of i-time or i-events, (repeat truncated)"},
    {13, "Unspecified warning..."},
    {14, "Reached end of i-time of i-events, duration altered."},
    {15, "Previous loop terminated."},
    {16, "Unspecified warning..."},
    {17, "Unspecified warning..."},
    {18, "Unspecified warning..."},
    {19, "Are you sure you want that many p-fields?!"},
    {20, "Are you sure you want such a late start time?!"},
    {21, "Are you sure you want such a long duration?!"},
    {22, "EX Command: Division by a pfield may / by 0!"},
    {23, "Is this a duplicate macro name?!"},
    {24, "Be aware of p3 codes when using the EX command!"},
    {25, "Is this a duplicate constant name?!"},
    {26, "Yowza! Should RD be > 1 (100%)?"},
    {27, "Unspecified warning..."},
    {28, "Unspecified warning..."},
    {29, "Unspecified warning..."},
    {30, "Tempo1 is quite fast. Is that okay?"},
    {31, "Tempo1 is quite slow. Is that okay?"},
    {32, "Tempo2 is quite fast. Is that okay?"},
    {33, "Tempo2 is quite slow. Is that okay?"},
    {34, "This change starts quite late. Is that okay?"},
    {35, "This tempo change is quite long. Is that okay?"},
};

constexpr int UNSPECIFIED[] = {6,   7,   66,  67,  68,  69,  74,  75,  76,  77,   78,
                               79,  98,  99,  104, 110, 111, 112, 122, 123, 124,  127,
                               138, 149, 160, 180, 199, 201, 499, 501, 998, 1001, 32767};

std::string printed_plain(const std::string& text) { return "\nERROR: " + text + "\n\n"; }

// For line 7, "\tp4 x", pos 4.
std::string printed_line(const std::string& kind, const std::string& text) {
    return "\n\n" + kind + ": Line 7:" + text + "\n\tp4 x\n\t   ^\n";
}

std::string printed_error(int number) {
    MessageCapture messages;
    error_no(number, 7, "\tp4 x", 4);
    return messages.text();
}

std::string printed_warning(int number) {
    MessageCapture messages;
    warning_no(number, 7, "\tp4 x", 4);
    return messages.text();
}

TEST(ErrorTable, HoldsEveryTextByteForByte) {
    EXPECT_EQ(std::size(ERRORS), 115U);
    for (const ErrorRow& row : ERRORS) EXPECT_STREQ(error_text(row.number), row.text) << row.number;
}

TEST(ErrorTable, EveryErrorIsPrintedInItsForm) {
    for (const ErrorRow& row : ERRORS) {
        const std::string expected =
            row.form == PLAIN ? printed_plain(row.text) : printed_line("ERROR", row.text);
        EXPECT_EQ(printed_error(row.number), expected) << row.number;
    }
}

TEST(ErrorTable, OtherNumbersAreUnspecified) {
    for (const int number : UNSPECIFIED) {
        const std::string text = "Unspecified error...";
        EXPECT_EQ(error_text(number), text) << number;
        EXPECT_EQ(printed_error(number), number < 10 ? printed_plain(text) : printed_line("ERROR", text))
            << number;
    }
}

// Every number up to 1100: a row of the table or unspecified, nothing else.
TEST(ErrorTable, HoldsNothingElse) {
    std::map<int, std::string> texts;
    for (const ErrorRow& row : ERRORS) texts[row.number] = row.text;
    for (int number = -3; number <= 1100; ++number) {
        const auto found = texts.find(number);
        const std::string expected = found == texts.end() ? "Unspecified error..." : found->second;
        EXPECT_EQ(error_text(number), expected) << number;
    }
}

TEST(ErrorTable, MisspellingsAndTrailingBlanksAreKept) {
    EXPECT_STREQ(error_text(15), "P2 must be specifed first (others may be out of numerical order).");
    EXPECT_STREQ(error_text(53), "TIME Varibale: Bad time percentage.");
    EXPECT_STREQ(error_text(49), "Multiple ':'s! ");
    EXPECT_STREQ(error_text(108), "Illegal number of terms or operations in\"const\" equation.");
    EXPECT_STREQ(error_text(115), "\"#if\" Statement expects a floating-point value within ()s. ");
    EXPECT_STREQ(warning_text(14), "Reached end of i-time of i-events, duration altered.");
}

TEST(WarningTable, HoldsEveryTextByteForByte) {
    EXPECT_EQ(std::size(WARNINGS), 35U);
    for (const WarningRow& row : WARNINGS) EXPECT_STREQ(warning_text(row.number), row.text) << row.number;
}

TEST(WarningTable, EveryWarningIsPrintedInItsForm) {
    for (const WarningRow& row : WARNINGS) {
        const std::string expected =
            row.number <= 9 ? std::string("\nWARNING: ") + row.text : printed_line("WARNING", row.text);
        EXPECT_EQ(printed_warning(row.number), expected) << row.number;
    }
}

TEST(WarningTable, OtherNumbersAreUnspecified) {
    for (const int number : {-1, 0, 36, 37, 100, 999, 1000}) {
        const std::string text = "Unspecified warning...";
        EXPECT_EQ(warning_text(number), text) << number;
        EXPECT_EQ(printed_warning(number), number <= 9 ? "\nWARNING: " + text : printed_line("WARNING", text))
            << number;
    }
}

}  // namespace
