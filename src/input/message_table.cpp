#include "input/message_table.h"

#include <cstddef>

#include "input/errors.h"

// The texts of all numbered errors and warnings. A row is a number and its
// text; what stands in a text, misspellings and trailing blanks included, is
// what composers and their scripts have come to know, and is kept as it is. So
// are the texts of reserved numbers, which nothing raises.

namespace vorn {

namespace {

struct MessageRow {
    int number;
    const char* text;
};

constexpr MessageRow ERROR_TABLE[] = {
    {error::COMMENT_MISMATCH, "Comments seemed to be mismatched... reached EOF."},
    {error::PFIELD_MISMATCH, "P-fields don't match i-block header!"},  // reserved
    {error::MISSING_BLOCK_END, "Reached end-of-file before \"}\" was found."},
    {error::MISSING_MACRO_END, "EOF reached: missing macro body end (#)."},
    {error::TEMPORARY_FILE, "Ouch! Can't open the temporary file (huh?)."},
    {error::I_WITHOUT_NUMBER, "\"i\" must be followed by a number"},  // reserved
    {error::BAD_INSTRUMENT, "Bad i-number."},
    {error::BAD_START_TIME, "Bad i-start time."},
    {error::BAD_BEATS, "Bad number of beats."},
    {error::BAD_EVENTS, "Bad number of events."},
    {error::P2_NOT_FIRST, "P2 must be specifed first (others may be out of numerical order)."},
    {error::BAD_PFIELD_NUMBER, "Bad p-field number."},
    {error::BAD_OUTPUT_SPECIFIER, "Invalid output specifier or precision out of range."},
    {error::OUTPUT_MUST_BE_REAL, "P2 and P3 must output floats."},
    {error::MISSING_PARENTHESIS, "Missing \")\"."},
    {error::INVALID_COMMAND, "Invalid command."},
    {error::BAD_P2_INPUT, "P2 input must be \"re\", \"in\" or \"rh\"."},
    {error::INVALID_GLOBAL_COMMAND, "Invalid G-block command or character."},
    {error::BAD_VALUE, "Value out of bounds or syntax error."},
    {error::REPEAT_WITHOUT_DIGIT, "\"x\" operator must be followed by a digit."},
    {error::COMMENT_UNENDED, "Reached EOF! (missing comment \"*/\"?)"},
    {error::BAD_P3_INPUT, "P3 input must be \"re\" or \"in\"."},
    {error::DATA_OUT_OF_BOUNDS, "Data is out of bounds."},
    {error::BAD_DEVIATION, "Format DV/RD(f): f = real number >= 0 and < 100 (1 = 100%)"},
    {error::BAD_SEED, "Format RS(ui): ui = UNSIGNED INT (0-65535)."},
    {error::MISSING_BLOCK_BRACE, "Missing i-block initiator ({)."},
    {error::MISSING_CLOSING_BRACE, "Missing i-block terminator (})."},  // reserved
    {error::OUT_OF_MEMORY, "Yikes, out of memory!"},
    {error::PREMATURE_END, "Premature end-of-file!"},
    {error::MISSING_EQUALS, "Instrument number must be followed by \"=\"."},
    {error::BAD_PFIELD_COUNT, "Bad number of parameters?"},
    {error::DDF_WITHOUT_PARENTHESIS, "Illegal characters between DDF name and \"(\"."},
    {error::MORE_THAN_TWO_VALUES, "A maximum of two values expected."},
    {error::MISSING_WEIGHT, "Percentage value expected. (Missing \")\" in last DDF?)"},
    {error::BAD_BRACKET_VALUE, "Value missing in []s, bad input type, or out of bounds"},
    {error::BAD_DDF_TIME, "Bad number of beats or events."},
    {error::MISSING_VALUE, "Value(s) or []s missing?"},
    {error::BAD_WEIGHT_SUM, "Percentages must add up to 1.0."},
    {error::BAD_LOOP, "Bad loop syntax (missing \"<\" or bad placement?)"},
    {error::PFIELD_OUT_OF_BOUNDS, "P-field out of bounds! (More than specified in i-header)"},
    {error::MISPLACED_LOOP, "misplaced \"<\" (or memory error)."},
    {error::BAD_TEMPO, "Format te(f): f = real number."},
    {error::BAD_GLOBAL_DATA, "Invalid global-block data"},
    {error::BAD_EQUATION_DATA, "Error in EX data (equations need to be in []s)."},
    {error::MULTIPLE_FUSION, "Multiple ':'s! "},
    {error::BAD_WINDOW, "RW command: Window % value out of range (must be 0-1)."},
    {error::BAD_WALK_START, "RW command: Starting value out of range."},
    {error::BAD_WALK_RANGE, "RW command: Bad range value."},
    {error::BAD_TIME_FRACTION, "TIME Varibale: Bad time percentage."},
    {error::ZERO_INTERVAL, "Must specify EVENTS when using a start interval of 0."},
    {error::BAD_OPERATION, "EX command: Missing or bad operation: use +, -, /, or *."},
    {error::EQUATION_WITHOUT_BRACKETS, "EX command: Equation must be enclosed in []s."},  // reserved
    {error::BAD_PFIELD_REFERENCE, "EX command: Error getting p-field (must be previously defined)."},
    {error::EQUATION_WITHOUT_PFIELD, "EX command: A pfield must be used at least once."},
    {error::DIVISION_BY_ZERO, "EX command: Yikes, can't divide by 0!"},
    {error::DIVISION_BY_ZERO_PFIELD, "EX command: Division by pfield produces a / 0 error!"},
    {error::HOLD_WITHOUT_PARENTHESIS, "HO command: Missing final \")\"."},
    {error::S2_BELOW_P4, "S2 command may only be used in P4 and above."},
    {error::BAD_CURVE_EXPONENT, "Bad user-defined curve type (must be > 0)."},
    {error::BEAT_MOVE_NOT_ALLOWED, "Beat-related move (*) not allowed when DDF time = events or in TE)"},
    {error::BAD_SAMPLE_RATE, "Format SR(uli): uli = UNSIGNED LONG INT (0-65535+)."},
    {error::DUPLICATE_PFIELD, "Duplicate p-fields are not allowed."},
    {error::PFIELDS_SKIPPED, "Whoops, some p-fields were skipped."},
    {error::ZERO_INTERVAL_IN_DDF, "Can't have a P2 of 0 when specifying beats in a DDF."},
    {error::INVALID_BLOCK_COMMAND, "Invalid I-block command or character."},
    {error::BAD_DEFINE, "Error in macro \"#define\" or \"#undef\" statement."},
    {error::MACRO_WITHOUT_BODY, "Macro body must be enclosed in #s"},
    {error::STRAY_QUOTE, "Stray \"'\" found -- too many macro arguments in call?"},
    {83, "Duplicate macro name?!"},  // reserved
    {error::DUPLICATE_MACRO, "Oy! You've already defined a macro with that name!"},
    {error::MACRO_CALL_WITHOUT_PARENTHESIS, "Error in macro call: missing (."},
    {error::BAD_MACRO_SYNTAX, "Error in macro syntax. (Bad # of arguments?)"},
    {error::BAD_MACRO_ARGUMENT_COUNT, "Wrong number of arguments in macro call."},
    {error::BAD_MACRO_NAME, "Macro name (or argument name) must start with an alphabetic character."},
    {error::EXPANSION_TOO_LONG, "Macro body exceeds maximum size."},
    {90, "Macro name exceeds memory allocation."},  // reserved
    {error::NO_MACROS, "There are no macros to undefine."},
    {92, "Not a macro command."},                                                         // reserved
    {93, "You must precede the \"oc\" (octave-class) mode with the \"pc\" mode."},        // reserved
    {94, "\"oc\" (octave-class) mode must be the last input mode in p-field!"},           // reserved
    {95, "duplicate \"oc\" (octave-class) mode found (can only have one in a p-field)"},  // reserved
    {error::COMMAND_WITHOUT_PARENTHESIS, "Illegal characters between command name and \"(\""},
    {error::NOTHING_ENTERED, "Didn't enter anything?"},
    {error::DUPLICATE_CONSTANT, "Eeek! You've already defined a \"const\" with that name!"},
    {101, "Error in \"const\" statement."},  // reserved
    {error::NO_MEMORY_FOR_CONSTANT, "Yikes, not enough memory to allocate constant!"},
    {error::MACRO_IN_CONSTANT, "Sorry but you can't use a macro name in a \"const\" definition."},
    {error::EQUATION_UNENDED, "\"const\" equations must be contained on a single line, sorry :("},
    {error::BAD_TIME_VARIABLE, "\"@\" must be followed by a 1, 2, 3, or 4"},
    {error::BAD_EQUATION_CHARACTER, "Oops, illegal character in \"const\" equation."},
    {error::BAD_EQUATION_TERMS, "Illegal number of terms or operations in\"const\" equation."},
    {error::BAD_CONSTANT_NAME, "Constant name must start with an alphabetic character."},
    {error::BAD_ENDIF,
     "Error in \"#endif\" Statement. \n"
     "(N.B. #if and #endif must be isolated to their own lines\n"
     "with no other data than whitespace.)"},
    {error::BAD_IF,
     "Error in \"#if\" Statement. \n"
     "(N.B. #if and #endif must be isolated to their own lines \n"
     "with no other data than whitespace.)"},
    {error::BAD_IF_VALUE, "\"#if\" Statement expects a floating-point value within ()s. "},
    {error::IF_WITHOUT_PARENTHESIS, "\"#if\" statement is missing terminal \")\""},
    {error::IF_REACHED_END,
     "Reached EOF. \"#if\" statement is missing \"#endif\"? \n"
     "(N.B. #if and #endif must be isolated\n"
     "to their own lines with no other data than whitespace.)"},
    {error::MISMATCHED_ENDIF,
     "\"#if\" statement: mismatched \"#endif\". \n"
     "(N.B. #if and #endif must be isolated to their own\n"
     " lines with no other data than whitespace.)"},
    {error::MISSING_ENDIF,
     "\"#if\" statement: missing an \"#endif\"? \n"
     "(N.B. #if and #endif must be isolated to their own\n"
     " lines with no other data than whitespace.)"},
    {error::MISSING_LENGTH, "ZOINKS! You skipped the i-block duration!"},
    {error::BAD_LENGTH, "Ack! Error getting the i-block duration!"},
    {error::BAD_FACTOR, "Format PF(f): f = real number."},
    {error::FACTOR_IN_P2, "PF only valid in P3 and higher P-fields."},
    {error::TEMPO_TERM1, "\"te\" term1, expecting a tempo or start time."},
    {error::TEMPO_TERM2, "\"te\" term2, bad end time."},
    {error::TEMPO_TERM3, "\"te\" term3, bad start tempo."},
    {error::TEMPO_TERM4, "\"te\" term4, bad end tempo."},
    {error::TEMPO_TERM5, "\"te\" term5, error getting curve type."},  // reserved
    {error::TEMPO_START_RANGE, "\"te\" term1 (start time), out of range."},
    {error::TEMPO_END_RANGE, "\"te\" term2 (end time), out of range."},
    {error::START_TEMPO_RANGE, "\"te\" term3 (start tempo), out of range."},
    {error::END_TEMPO_RANGE, "\"te\" term4 (end tempo), out of range."},
    {error::TEMPO_TIMES_BACKWARDS, "\"te\" term1 and term2 (times), are backwards!"},
    {error::NOT_IMPLEMENTED, "Not implemented yet..."},  // reserved
    {error::BAD_REAL, "Expecting a digit or decimal point in floating-point number."},
};

constexpr MessageRow WARNING_TABLE[] = {
    {warning::DURATION_NEGATIVE, "P3 Duration < 0! (Event turned into rest...)"},
    {warning::BLOCK_SKIPPED, "I-block skipped! (i-no < 0)"},
    {warning::EVENTS_NOT_ADDED, "Reached end of i-time or i-events -- event(s) not added."},
    {warning::DDF_TRUNCATED, "Reached end of i-time or i-events, DDF data truncated"},
    {warning::REPEAT_TRUNCATED, "Reached end of i-time or i-events, (repeat truncated)"},
    {warning::DURATION_ALTERED, "Reached end of i-time of i-events, duration altered."},
    {warning::LOOP_TERMINATED, "Previous loop terminated."},
    {warning::MANY_PFIELDS, "Are you sure you want that many p-fields?!"},
    {warning::LATE_START, "Are you sure you want such a late start time?!"},
    {warning::LONG_DURATION, "Are you sure you want such a long duration?!"},
    {warning::DIVISION_BY_PFIELD, "EX Command: Division by a pfield may / by 0!"},
    {23, "Is this a duplicate macro name?!"},  // reserved
    {warning::P3_CODES, "Be aware of p3 codes when using the EX command!"},
    {25, "Is this a duplicate constant name?!"},  // reserved
    {warning::LARGE_DEVIATION, "Yowza! Should RD be > 1 (100%)?"},
    {warning::TEMPO1_FAST, "Tempo1 is quite fast. Is that okay?"},
    {warning::TEMPO1_SLOW, "Tempo1 is quite slow. Is that okay?"},
    {warning::TEMPO2_FAST, "Tempo2 is quite fast. Is that okay?"},
    {warning::TEMPO2_SLOW, "Tempo2 is quite slow. Is that okay?"},
    {warning::TEMPO_STARTS_LATE, "This change starts quite late. Is that okay?"},
    {warning::TEMPO_CHANGE_LONG, "This tempo change is quite long. Is that okay?"},
};

template <std::size_t count>
const char* find_text(const MessageRow (&table)[count], int number, const char* otherwise) {
    for (const MessageRow& row : table) {
        if (row.number == number) return row.text;
    }
    return otherwise;
}

}  // namespace

const char* error_text(int number) { return find_text(ERROR_TABLE, number, "Unspecified error..."); }

const char* warning_text(int number) { return find_text(WARNING_TABLE, number, "Unspecified warning..."); }

}  // namespace vorn
