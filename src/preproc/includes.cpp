#include "preproc/includes.h"

#include <cstdint>
#include <cstdio>
#include <limits>

#include <sys/stat.h>

#include "input/characters.h"
#include "input/errors.h"
#include "input/messages.h"
#include "preproc/preprocessor.h"

// Copies a file with every include directive replaced by the file it names:
//
//     #include |strings.def| ; shared      ->      <text of strings.def> ; shared
//
// The copy is byte for byte outside directives. Only a "#" outside comments can
// begin a directive, so the copy keeps track of comments; the characters behind
// such a "#" that turn out to be no directive are copied without being tracked:
// kept on purpose, as is that a "#in" which goes on otherwise vanishes.
//
// A read error is no end of a file. It ends the copying of that file, whatever
// it cuts off, and whoever has opened the file reports it. A write error ends the
// copying of all files, however much there is to read.

namespace vorn {

namespace {

// What the comment tracking of one file remembers.
class CommentTracker {
public:
    bool in_comment() const { return depth_ != 0 || line_; }
    void remember(int c) { previous_ = c; }
    void end_line_comment() { line_ = false; }

    void end_all() {
        depth_ = 0;
        line_ = false;
    }

    // Takes in one copied character.
    void track(int c) {
        if (c == '*' && previous_ == '/') {
            ++depth_;  // also behind ";": kept on purpose
        } else {
            track_rest(c);
        }
        previous_ = c;
    }

private:
    // A ";" or ">" right behind "/" ends a line comment, and "/" right behind
    // "*" closes also where that "*" has just opened: both kept on purpose.
    void track_rest(int c) {
        if (c == ';' || c == '>') line_ = previous_ != '/';
        if (c == '/' && previous_ == '*' && depth_ > 0) --depth_;
        if (c == '\n') line_ = false;
    }

    int previous_ = ' ';      // last character seen
    unsigned int depth_ = 0;  // open "/*" comments
    bool line_ = false;       // the rest of the line is commentary
};

// How many characters may be read from the file, its end counted.
std::int64_t reading_budget(std::FILE* in) {
    struct stat found = {};
    const bool has_end = fstat(fileno(in), &found) == 0 && S_ISREG(found.st_mode);
    return has_end ? std::numeric_limits<std::int64_t>::max() : MAX_ENDLESS_LENGTH + 1;
}

class IncludeCopy {
public:
    IncludeCopy(std::FILE* in, std::FILE* out, int& count, IncludeCheck may_include,
                const WatchedSource& source)
        : in_(in),
          out_(out),
          count_(count),
          may_include_(may_include),
          source_(source),
          whole_budget_(reading_budget(in)) {}
    int run();

private:
    int read() { return --budget_ >= 0 ? getc_unlocked(in_) : EOF; }
    bool is_endless() const { return budget_ < 0; }
    bool has_failed() const { return is_endless() || std::ferror(in_) != 0; }
    void write(int c) { write_failed_ |= putc_unlocked(c, out_) == EOF; }
    void copy(int c);
    std::int64_t offset() const { return whole_budget_ - budget_; }  // of what is read next
    MessagePlace place() const;
    void tell(SourceChange change) const;
    int do_directive();
    bool read_keyword_rest();
    int read_file_name();
    bool accepts(const WatchedSource& included) const;
    int refuse_name() const;
    int include_file();
    int copy_included(const WatchedSource& included);

    std::FILE* in_;
    std::FILE* out_;
    int& count_;
    IncludeCheck may_include_;
    const WatchedSource& source_;
    const std::int64_t whole_budget_;
    std::int64_t budget_ =
        whole_budget_;  // characters that may still be read; negative once one more was wanted
    bool write_failed_ = false;
    std::int64_t hash_offset_ = -1;  // of the "#" that is looked at
    CommentTracker comment_;
    char name_[MAX_INCLUDE_NAME + 1] = {};
};

void IncludeCopy::copy(int c) {
    write(c);
    comment_.track(c);
}

MessagePlace IncludeCopy::place() const {
    MessagePlace place(source_.observer);
    place.directive_offset = hash_offset_;
    return place;
}

// From here on the copy goes on with this file as it stands.
void IncludeCopy::tell(SourceChange change) const {
    if (source_.observer == nullptr) return;
    source_.observer->on_source(
        {change, source_.name, source_.depth, ftello(out_), offset(), source_.directive_offset});
}

int IncludeCopy::run() {
    tell(SourceChange::BEGIN);
    for (int c = read(); c != EOF && !write_failed_; c = read()) {
        if (c == '#' && !comment_.in_comment()) {
            if (const int result = do_directive()) return result;
        } else {
            copy(c);
        }
    }
    if (!is_endless()) return 0;
    print_error(source_.observer, "\nERROR: A device or pipe has more than %d characters.\n\n",
                MAX_ENDLESS_LENGTH);
    return error::ALREADY_PRINTED;
}

// "include" white space "|" name "|", behind the "#". At the end of the input
// the missing character is written too, as the byte 255.
int IncludeCopy::do_directive() {
    hash_offset_ = offset() - 1;
    const int second = read();
    if (second != 'i') {
        write('#');
        write(second);
        comment_.remember(second);
        return 0;
    }
    const int third = read();
    if (third != 'n') {
        write('#');
        write('i');
        write(third);
        comment_.remember('i');
        return 0;
    }
    if (!read_keyword_rest()) {
        comment_.end_line_comment();
        comment_.remember('i');
        tell(SourceChange::SKIP);
        return 0;
    }
    if (const int result = read_file_name()) return result;
    return has_failed() ? 0 : include_file();
}

// "clude"; what is read is gone, also when it goes on otherwise.
bool IncludeCopy::read_keyword_rest() {
    for (const char* expected = "clude"; *expected != 0; ++expected) {
        if (read() != *expected) return false;
    }
    return true;
}

// white space "|" name "|". The input's end closes a name too. A line feed in a
// name counts towards its length but is not part of it: kept on purpose.
int IncludeCopy::read_file_name() {
    int c = read();
    while (c != EOF && is_space(static_cast<char>(c))) c = read();
    if (c != '|' && !has_failed()) {
        print_error(place(), "\n\nInclude filename must be preceeded by a |.\n");
        return 1;
    }
    int length = 0;
    int count = 0;
    for (c = read(); c != '|' && c != EOF; c = read()) {
        if (++count > MAX_INCLUDE_NAME) {
            print_error(place(),
                        "\nERROR: Include filename has exceeded maximum\nlength of %d characters.\n\n",
                        MAX_INCLUDE_NAME);
            return error::ALREADY_PRINTED;
        }
        if (c != '\n') name_[length++] = static_cast<char>(c);
    }
    name_[length] = 0;
    return 0;
}

// A directory opens, but has no bytes.
bool is_readable(std::FILE* stream) {
    const int first = std::getc(stream);
    if (std::ferror(stream)) return false;
    if (first != EOF) std::ungetc(first, stream);
    return true;
}

bool IncludeCopy::accepts(const WatchedSource& included) const {
    return may_include_ == nullptr || may_include_(included, place());
}

int IncludeCopy::refuse_name() const {
    print_error(place(), "\nBad include file name: \"%s\"\n\n", name_);
    return error::ALREADY_PRINTED;
}

int IncludeCopy::copy_included(const WatchedSource& included) {
    if (!accepts(included)) return error::ALREADY_PRINTED;
    if (!is_readable(included.stream)) return refuse_name();
    Mprintf("\n\tOpening include file \"%s\"...", name_);
    if (const int result = parse_includes(included.stream, out_, count_, may_include_, included))
        return result;
    tell(SourceChange::RESUME);
    if (!std::ferror(included.stream)) return 0;
    print_error(place(), "\nERROR: Can't open \"%s\".\n\n", name_);
    return error::ALREADY_PRINTED;
}

int IncludeCopy::include_file() {
    WatchedSource included = {source_.observer, name_, source_.depth + 1, hash_offset_, nullptr, &source_};
    if (!accepts(included)) return error::ALREADY_PRINTED;
    included.stream = open_source(source_.observer, name_, source_.name);
    if (included.stream == nullptr) return refuse_name();
    const int result = copy_included(included);
    std::fclose(included.stream);
    write_failed_ = std::ferror(out_) != 0;
    comment_.end_all();
    comment_.remember('|');
    return result;
}

}  // namespace

// The count is a budget for the whole run, never lowered: kept on purpose.
int parse_includes(std::FILE* in, std::FILE* out, int& count, IncludeCheck may_include,
                   const WatchedSource& source) {
    if (++count > MAX_INCLUDE_FILES) {
        MessagePlace place(source.observer);
        place.directive_offset = source.directive_offset;
        print_error(place, "\n\nToo many embedded include files! (Max = %d)\n", MAX_INCLUDE_FILES);
        return 1;
    }
    return IncludeCopy(in, out, count, may_include, source).run();
}

}  // namespace vorn
