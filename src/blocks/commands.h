#pragma once

#include <cstdint>
#include <string_view>

// The two-letter command vocabulary, shared by global commands, block commands,
// input types, output types and data-defining functions.

namespace vorn {

// The names of each kind of command, in lower case, of two letters each and one
// behind the other; ">" and "#" and the second name of "ex" are not among them.
inline constexpr std::string_view GLOBAL_COMMANDS = "pfrsrdsrte";
inline constexpr std::string_view STATEMENT_COMMANDS = "dbdvexhoinmomsnooppfrardrerhrsrwses2";
inline constexpr std::string_view OUTPUT_SPECIFIERS = "bnindbhzodopretrxx";

// Reads one command. True with pos behind it; an unknown second letter can end
// in true with code and pos untouched, so set code to NO_COMMAND before. False:
// no command begins with this letter, or a digit behind "re" or "bn" is above 7.
[[nodiscard]] bool get_command(int& code, const char* text, std::int32_t& pos);

// Whether a global command starts at pos: "pf", "rs", "rd", "sr", "te", ">" or "#".
[[nodiscard]] bool is_gcommand(const char* text, std::int32_t pos);

// Whether a command that may stand in a p-field statement starts at pos.
[[nodiscard]] bool is_command(const char* text, std::int32_t pos);

// Whether an output specifier starts at pos.
[[nodiscard]] bool is_output_specifier(const char* text, std::int32_t pos);

// The name of a command or type of two letters; empty for the other codes.
[[nodiscard]] std::string_view command_name(int code);

}  // namespace vorn
