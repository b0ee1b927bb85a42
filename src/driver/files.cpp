#include "driver/files.h"

#include <algorithm>
#include <iterator>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "driver/file_identity.h"
#include "driver/held_log.h"
#include "driver/options.h"
#include "driver/temporary_file.h"
#include "input/errors.h"
#include "input/message_table.h"
#include "input/messages.h"
#include "input/run_flags.h"
#include "output/output_file.h"

// The files of a run. Input first, then everything that is written: output,
// expansion file, temporary file, log. A file that could not be written in full
// makes the run fail, so that nobody takes a cut score for a whole one. The log
// is closed last: it tells of the others.
//
// An include file may turn out to be one of those that are written. It is
// refused then, and not lost: the older text of an output is cut off only when
// the includes have been copied, unless a standard stream writes that file, too.
// Until then nothing is written to any of them; what the log has to tell waits
// in memory. One that is still being read, the input among them, is refused as
// well: nothing in it could end its includes.

namespace vorn {

std::FILE* fin = nullptr;
std::FILE* ftmp = nullptr;

namespace {

constexpr const char* OUTPUT_MODES[] = {"w", "wb"};  // indexed by MKMIDI

bool report_unopened(const char* name, Observer* observer) {
    print_error(observer, "\nERROR: Can't open \"%s\".\n\n", name);
    return false;
}

void report_unwritten(const char* name, Observer* observer) {
    print_error(observer, "\nERROR: Can't write \"%s\".\n\n", name);
}

// A directory opens for reading but has no text.
bool open_input(Observer* observer) {
    if (identity(in_fname).type != S_IFDIR) fin = open_source(observer, in_fname, nullptr);
    return fin != nullptr || report_unopened(in_fname, observer);
}

// Whether the run's messages go into that file.
bool tells_messages(const FileIdentity& file) {
    return gives_back(file, identity(std_out)) || gives_back(file, identity(std_err));
}

// Whether opening `name` for writing would destroy the score description, or let it grow.
bool is_input_file(const char* name) {
    return name != nullptr && gives_back(identity(in_fname), identity(name));
}

// The input under another name is as much of a clash as the name itself, and so are the messages
// of the run. Asked before the input is opened, where a pipe would wait for its writer, and once more
// when it is: its descriptor has a name, too.
bool check_same_files(Observer* observer) {
    const bool clash = is_input_file(out_fname) || is_input_file(log_fname) || is_input_file(exp_fname) ||
                       tells_messages(identity(in_fname)) || has_open(observer, in_fname, nullptr);
    if (clash) report_name_clash(observer);
    return !clash;
}

// Opens for writing as fopen does, but leaves the older text. That of a file
// that a standard stream writes, too, goes at once: later it would be a message.
std::FILE* open_for_writing(const char* name, const char* mode) {
    const FileIdentity file = identity(name);
    const bool is_shared = is_same_file(file, identity(std_out)) || is_same_file(file, identity(std_err));
    const int descriptor = open(name, O_WRONLY | O_CREAT | (is_shared ? O_TRUNC : 0), 0666);
    std::FILE* const stream = descriptor < 0 ? nullptr : fdopen(descriptor, mode);
    if (stream == nullptr && descriptor >= 0) close(descriptor);
    return stream;
}

bool cut_older_text(std::FILE* stream, const char* name, Observer* observer) {
    if (stream == nullptr) return true;
    const int descriptor = fileno(stream);
    struct stat file = {};
    const bool known = fstat(descriptor, &file) == 0;
    if (known && !S_ISREG(file.st_mode)) return true;
    if (known && ftruncate(descriptor, lseek(descriptor, 0, SEEK_CUR)) == 0) return true;
    report_unwritten(name, observer);
    return false;
}

bool open_output_file(Observer* observer) {
    std::FILE* const stream = open_for_writing(out_fname, OUTPUT_MODES[MKMIDI]);
    if (stream == nullptr) return report_unopened(out_fname, observer);
    if (open_output(fout, stream)) return true;
    std::fclose(stream);
    print_error(observer, "\nERROR: %s\n\n", error_text(error::OUT_OF_MEMORY));
    return false;
}

bool open_extra_file(std::FILE*& stream, int wanted, const char* name, Observer* observer) {
    if (!wanted) return true;
    stream = open_for_writing(name, "w");
    return stream != nullptr || report_unopened(name, observer);
}

bool open_copy(Observer* observer) {
    ftmp = open_temporary_file(observer);
    return ftmp != nullptr;
}

// Two outputs in one file would overwrite each other, and one in the input or the
// temporary file would change the score. Only now that all exist can that be told of
// files that the run has made.
bool check_separate_files(Observer* observer) {
    std::FILE* const streams[] = {fin, fout.stream, fecho, ftmp, fllog};
    bool clash = false;
    for (std::size_t at = 1; at < std::size(streams); ++at) {
        for (std::size_t other = 0; other < at; ++other) {
            clash = clash || is_same_file(identity(streams[at]), identity(streams[other]));
        }
    }
    if (clash) report_name_clash(observer);
    return !clash;
}

// Closes a stream that was written; false and a message when something is missing.
bool close_written(std::FILE*& stream, const char* name, Observer* observer) {
    if (stream == nullptr) return true;
    const bool failed = std::ferror(stream) != 0;
    const bool written = std::fclose(stream) == 0 && !failed;
    stream = nullptr;
    if (!written) report_unwritten(name, observer);
    return written;
}

bool close_output_file(Observer* observer) {
    if (fout.stream == nullptr) return true;
    const bool written = close_output(fout);
    if (!written) report_unwritten(out_fname, observer);
    return written;
}

bool is_written(const FileIdentity& file) {
    std::FILE* const streams[] = {fout.stream, fecho, ftmp, fllog, held_log()};
    return tells_messages(file) ||
           std::any_of(std::begin(streams), std::end(streams),
                       [&](std::FILE* stream) { return gives_back(file, identity(stream)); });
}

// Closes the one that is this file as it is.
void leave_unwritten(const FileIdentity& file) {
    if (gives_back(file, identity(fout.stream))) close_output(fout);  // the run fails anyway
    if (gives_back(file, identity(held_log()))) drop_log();
    if (!gives_back(file, identity(fecho))) return;
    std::fclose(fecho);
    fecho = nullptr;
}

// Whether the name is that of a file whose includes are being resolved.
bool is_being_read(const WatchedSource& included) {
    if (has_open(included.observer, included.name, included.includer->name)) return true;
    const FileIdentity file = identity(included.name);
    for (const WatchedSource* open = included.includer; open != nullptr; open = open->includer) {
        if (gives_back(file, identity(open->stream))) return true;
    }
    return false;
}

void close_input() {
    if (fin != nullptr) std::fclose(fin);
    fin = nullptr;
}

}  // namespace

bool open_files(Observer* observer) {
    const bool opened = check_same_files(observer) && open_input(observer) && check_same_files(observer) &&
                        open_output_file(observer) && open_extra_file(fecho, MKEXP, exp_fname, observer) &&
                        open_copy(observer) && open_extra_file(fllog, MKLOG, log_fname, observer) &&
                        check_separate_files(observer) &&
                        (hold_log() || report_unopened(log_fname, observer));
    if (!opened) {
        cut_older_texts(observer);
        close_files(observer);
    }
    return opened;
}

bool is_written_file(const char* name) { return is_written(identity(name)); }

bool accept_include(const WatchedSource& included, const MessagePlace& place) {
    const bool is_open = included.stream != nullptr;
    const FileIdentity file = is_open ? identity(included.stream) : identity(included.name);
    const bool clash = is_open ? is_written(file) : is_being_read(included);
    if (!clash) return true;
    leave_unwritten(file);
    print_error(place, "%s", NAME_CLASH);
    return false;
}

bool cut_older_texts(Observer* observer) {
    const bool logged = release_log();
    if (!logged) report_unwritten(log_fname, observer);
    bool cut = cut_older_text(fout.stream, out_fname, observer);
    cut = cut_older_text(fecho, exp_fname, observer) && cut;
    return cut_older_text(fllog, log_fname, observer) && cut && logged;
}

int reopen_temporary_file(Observer* observer) {
    if (std::ferror(fin)) {  // its text is cut, and nothing tells where
        report_unopened(in_fname, observer);
        return error::ALREADY_PRINTED;
    }
    close_input();
    if (!close_written(ftmp, tmp_fname, observer)) return error::ALREADY_PRINTED;
    fin = std::fopen(tmp_fname, "r");
    return fin == nullptr ? error::TEMPORARY_FILE : 0;
}

bool close_files(Observer* observer) {
    close_input();
    bool written = close_output_file(observer);
    written = close_written(fecho, exp_fname, observer) && written;
    if (ftmp != nullptr) std::fclose(ftmp);
    ftmp = nullptr;
    remove_temporary_file();
    return close_written(fllog, log_fname, observer) && written;
}

void reset_files() {
    close_input();
    drop_log();
    ftmp = nullptr;
    tmp_fname[0] = 0;
}

}  // namespace vorn
