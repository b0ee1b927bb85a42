#pragma once

// The error and warning numbers by name. Their texts are in message_table.cpp.
// A reserved number is known by its text, but nothing raises it.

namespace vorn::error {

constexpr int COMMENT_MISMATCH = 3;
constexpr int PFIELD_MISMATCH = 4;  // reserved
constexpr int MISSING_BLOCK_END = 5;
constexpr int MISSING_MACRO_END = 8;
constexpr int TEMPORARY_FILE = 9;
constexpr int I_WITHOUT_NUMBER = 10;  // reserved
constexpr int BAD_INSTRUMENT = 11;
constexpr int BAD_START_TIME = 12;
constexpr int BAD_BEATS = 13;
constexpr int BAD_EVENTS = 14;
constexpr int P2_NOT_FIRST = 15;
constexpr int BAD_PFIELD_NUMBER = 16;
constexpr int BAD_OUTPUT_SPECIFIER = 17;
constexpr int OUTPUT_MUST_BE_REAL = 18;
constexpr int MISSING_PARENTHESIS = 19;
constexpr int INVALID_COMMAND = 20;
constexpr int BAD_P2_INPUT = 21;
constexpr int INVALID_GLOBAL_COMMAND = 22;
constexpr int BAD_VALUE = 23;
constexpr int REPEAT_WITHOUT_DIGIT = 24;
constexpr int COMMENT_UNENDED = 25;
constexpr int BAD_P3_INPUT = 26;
constexpr int DATA_OUT_OF_BOUNDS = 27;
constexpr int BAD_DEVIATION = 28;
constexpr int BAD_SEED = 29;
constexpr int MISSING_BLOCK_BRACE = 30;
constexpr int MISSING_CLOSING_BRACE = 31;  // reserved
constexpr int OUT_OF_MEMORY = 32;
constexpr int PREMATURE_END = 33;
constexpr int MISSING_EQUALS = 34;
constexpr int BAD_PFIELD_COUNT = 35;
constexpr int DDF_WITHOUT_PARENTHESIS = 36;
constexpr int MORE_THAN_TWO_VALUES = 37;
constexpr int MISSING_WEIGHT = 38;
constexpr int BAD_BRACKET_VALUE = 39;
constexpr int BAD_DDF_TIME = 40;
constexpr int MISSING_VALUE = 41;
constexpr int BAD_WEIGHT_SUM = 42;
constexpr int BAD_LOOP = 43;
constexpr int PFIELD_OUT_OF_BOUNDS = 44;
constexpr int MISPLACED_LOOP = 45;
constexpr int BAD_TEMPO = 46;
constexpr int BAD_GLOBAL_DATA = 47;
constexpr int BAD_EQUATION_DATA = 48;
constexpr int MULTIPLE_FUSION = 49;
constexpr int BAD_WINDOW = 50;
constexpr int BAD_WALK_START = 51;
constexpr int BAD_WALK_RANGE = 52;
constexpr int BAD_TIME_FRACTION = 53;
constexpr int ZERO_INTERVAL = 54;
constexpr int BAD_OPERATION = 55;
constexpr int EQUATION_WITHOUT_BRACKETS = 56;  // reserved
constexpr int BAD_PFIELD_REFERENCE = 57;
constexpr int EQUATION_WITHOUT_PFIELD = 58;
constexpr int DIVISION_BY_ZERO = 59;
constexpr int DIVISION_BY_ZERO_PFIELD = 60;
constexpr int HOLD_WITHOUT_PARENTHESIS = 61;
constexpr int S2_BELOW_P4 = 62;
constexpr int BAD_CURVE_EXPONENT = 63;
constexpr int BEAT_MOVE_NOT_ALLOWED = 64;
constexpr int BAD_SAMPLE_RATE = 65;
constexpr int DUPLICATE_PFIELD = 70;
constexpr int PFIELDS_SKIPPED = 71;
constexpr int ZERO_INTERVAL_IN_DDF = 72;
constexpr int INVALID_BLOCK_COMMAND = 73;
constexpr int BAD_DEFINE = 80;
constexpr int MACRO_WITHOUT_BODY = 81;
constexpr int STRAY_QUOTE = 82;
constexpr int DUPLICATE_MACRO = 84;
constexpr int MACRO_CALL_WITHOUT_PARENTHESIS = 85;
constexpr int BAD_MACRO_SYNTAX = 86;
constexpr int BAD_MACRO_ARGUMENT_COUNT = 87;
constexpr int BAD_MACRO_NAME = 88;
constexpr int EXPANSION_TOO_LONG = 89;
constexpr int NO_MACROS = 91;
constexpr int COMMAND_WITHOUT_PARENTHESIS = 96;
constexpr int NOTHING_ENTERED = 97;
constexpr int DUPLICATE_CONSTANT = 100;
constexpr int NO_MEMORY_FOR_CONSTANT = 102;
constexpr int MACRO_IN_CONSTANT = 103;
constexpr int EQUATION_UNENDED = 105;
constexpr int BAD_TIME_VARIABLE = 106;
constexpr int BAD_EQUATION_CHARACTER = 107;
constexpr int BAD_EQUATION_TERMS = 108;
constexpr int BAD_CONSTANT_NAME = 109;
constexpr int BAD_ENDIF = 113;
constexpr int BAD_IF = 114;
constexpr int BAD_IF_VALUE = 115;
constexpr int IF_WITHOUT_PARENTHESIS = 116;
constexpr int IF_REACHED_END = 117;
constexpr int MISMATCHED_ENDIF = 118;
constexpr int MISSING_ENDIF = 119;
constexpr int MISSING_LENGTH = 120;
constexpr int BAD_LENGTH = 121;
constexpr int BAD_FACTOR = 125;
constexpr int FACTOR_IN_P2 = 126;
constexpr int TEMPO_TERM1 = 150;
constexpr int TEMPO_TERM2 = 151;
constexpr int TEMPO_TERM3 = 152;
constexpr int TEMPO_TERM4 = 153;
constexpr int TEMPO_TERM5 = 154;  // reserved
constexpr int TEMPO_START_RANGE = 155;
constexpr int TEMPO_END_RANGE = 156;
constexpr int START_TEMPO_RANGE = 157;
constexpr int END_TEMPO_RANGE = 158;
constexpr int TEMPO_TIMES_BACKWARDS = 159;
constexpr int NOT_IMPLEMENTED = 200;  // reserved
constexpr int BAD_REAL = 500;
constexpr int ALREADY_PRINTED = 999;     // the message has been printed; nothing more is
constexpr int PRINTED_ECHO_LEFT = 1000;  // the message has been printed; only the echo follows

}  // namespace vorn::error

namespace vorn::warning {

constexpr int DURATION_NEGATIVE = 1;
constexpr int BLOCK_SKIPPED = 2;
constexpr int EVENTS_NOT_ADDED = 10;
constexpr int DDF_TRUNCATED = 11;
constexpr int REPEAT_TRUNCATED = 12;
constexpr int DURATION_ALTERED = 14;
constexpr int LOOP_TERMINATED = 15;
constexpr int MANY_PFIELDS = 19;
constexpr int LATE_START = 20;
constexpr int LONG_DURATION = 21;
constexpr int DIVISION_BY_PFIELD = 22;
constexpr int P3_CODES = 24;
constexpr int LARGE_DEVIATION = 26;
constexpr int TEMPO1_FAST = 30;
constexpr int TEMPO1_SLOW = 31;
constexpr int TEMPO2_FAST = 32;
constexpr int TEMPO2_SLOW = 33;
constexpr int TEMPO_STARTS_LATE = 34;
constexpr int TEMPO_CHANGE_LONG = 35;

}  // namespace vorn::warning
