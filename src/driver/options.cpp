#include "driver/options.h"

#include <cstring>

#include "driver/banner.h"
#include "input/messages.h"
#include "input/run_flags.h"

// The command line: options, then exactly two file names.
//
//     vorn -s -lrun.log -x echo.txt piece.vorn piece.sco
//
// Only the character behind "-" tells an option; a name may be attached to its
// letter or be the next argument.

namespace vorn {

const char* in_fname = nullptr;
const char* out_fname = nullptr;
const char* log_fname = nullptr;
const char* exp_fname = nullptr;

namespace {

constexpr const char* USAGE =
    "  Usage: vorn [options] infile outfile\n"
    "  Options:\n"
    "  -l <logfile>  screen ouput (text)\n"
    "  -m            outfile is a MIDI file (format 1)\n"
    "  -s            suppress non-error messages\n"
    "  -t            verbose tempo information\n"
    "  -x <expfile>  macro expansions (text)\n\n";

// The arguments that are left, from the one being looked at.
struct Arguments {
    const char* const* next;
    const char* const* end;
    Observer* observer;
};

bool refuse_usage(Observer* observer) {
    print_usage(observer);
    return false;
}

// The name attached to the option or the next argument; null when there is none.
const char* take_name(Arguments& arguments) {
    const char* const attached = *arguments.next++ + 2;
    if (*attached != 0) return attached;
    if (arguments.next == arguments.end || **arguments.next == '-') return nullptr;
    return *arguments.next++;
}

// An option that names a file. A missing name is told on standard output, kept on purpose.
bool take_file_option(Arguments& arguments, int& flag, const char*& name, const char* missing) {
    flag = 1;
    name = take_name(arguments);
    if (name != nullptr) return true;
    std::fprintf(std_out, "\nError: %s\n", missing);
    tell_error(arguments.observer, missing);
    return false;
}

bool take_flag(Arguments& arguments, int& flag) {
    ++arguments.next;
    flag = 1;
    return true;
}

bool take_option(Arguments& arguments) {
    switch ((*arguments.next)[1]) {
        case 'l':
            return take_file_option(arguments, MKLOG, log_fname, "No logfile name");
        case 'x':
            return take_file_option(arguments, MKEXP, exp_fname, "No macro-expansion file name");
        case 'm':
            return take_flag(arguments, MKMIDI);
        case 's':
            return take_flag(arguments, SUPRESS);
        case 't':
            return take_flag(arguments, SHOW_TEMPOS);
        default:
            return refuse_usage(arguments.observer);
    }
}

bool same_name(const char* a, const char* b) {
    return a != nullptr && b != nullptr && std::strcmp(a, b) == 0;
}

}  // namespace

bool get_options(int argc, const char* const* argv, Observer* observer) {
    if (argc < 2) return refuse_usage(observer);
    Arguments arguments{argv + 1, argv + argc, observer};
    while (arguments.next != arguments.end && **arguments.next == '-') {
        if (!take_option(arguments)) return false;
    }
    if (arguments.end - arguments.next != 2) return refuse_usage(observer);
    in_fname = arguments.next[0];
    out_fname = arguments.next[1];
    return true;
}

bool check_fnames(Observer* observer) {
    const bool clash = same_name(in_fname, out_fname) || same_name(log_fname, out_fname) ||
                       same_name(log_fname, in_fname) || same_name(exp_fname, out_fname) ||
                       same_name(exp_fname, in_fname) || same_name(log_fname, exp_fname);
    if (clash) report_name_clash(observer);
    return !clash;
}

void report_name_clash(Observer* observer) {
    std::fputs(NAME_CLASH, std_err);
    tell_error(observer, NAME_CLASH);
}

void print_usage(Observer* observer) {
    print_version();
    print_error(observer, USAGE);
}

void reset_options() { in_fname = out_fname = log_fname = exp_fname = nullptr; }

}  // namespace vorn
