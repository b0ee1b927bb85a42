#include "kit/diagnose/unnumbered.h"

// A row is found by how a text begins and, where numbers and names come early,
// by what it holds further on:
//
//     "P4 is blank ... OY!"    begins with "P", holds " is blank"
//
// The first row that fits counts.

namespace vorn::kit {

namespace {

struct Row {
    std::string_view begin;
    std::string_view inside;  // may be empty
    std::string_view code;
};

constexpr Row ERRORS[] = {
    {"P", " is blank", "Eblank"},
    {"Bad number of p-fields", "", "Epfields"},
    {"Maximum number of beats", "", "Ebeats"},
    {"There is no macro", "", "Emacro"},
    {"There is no constant", "", "Econstant"},
    {"The ", " has exceeded the maximum number", "Elong"},
    {"Include filename must be", "", "Ebar"},
    {"Include filename has exceeded", "", "Epath"},
    {"Bad include file name", "", "Einclude"},
    {"Too many embedded include files", "", "Enesting"},
    {"A device or pipe has more than", "", "Eendless"},
    {"Can't open temporary file", "", "Etemporary"},
    {"The name of the temporary folder", "", "Etemporary"},
    {"Can't open ", "", "Eopen"},
    {"Can't write ", "", "Ewrite"},
    {"You can't use a filename", "", "Enames"},
    {"Yikes, out of memory", "", "E32"},
    {"Usage: ", "", "Eusage"},
    {"No logfile name", "", "Eusage"},
    {"No macro-expansion file name", "", "Eusage"},
};

constexpr Row WARNINGS[] = {
    {"There are more warnings", "", "Wmore"},
    {"Tempo #", " conflicts with previous tempo", "Wtempo"},
};

template <std::size_t count>
std::string_view find_code(const Row (&table)[count], std::string_view text, std::string_view otherwise) {
    for (const Row& row : table) {
        if (text.starts_with(row.begin) && text.find(row.inside) != std::string_view::npos) return row.code;
    }
    return otherwise;
}

}  // namespace

std::string_view unnumbered_code(Severity severity, std::string_view text) {
    if (severity == Severity::WARNING) return find_code(WARNINGS, text, "Wother");
    return find_code(ERRORS, text, "Eother");
}

std::string code_of(const RunMessage& message) {
    if (message.number == 0) return std::string(unnumbered_code(message.severity, message.text));
    return (message.severity == Severity::ERROR ? "E" : "W") + std::to_string(message.number);
}

}  // namespace vorn::kit
