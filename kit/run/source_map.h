#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "input/observer.h"
#include "kit/run/text_index.h"

// From a place in the line that a message shows back to what the composer wrote:
//
//     expanded line, position  --splices undone-->  line of the copy, span
//                              --source spans--->   file, line, columns

namespace vorn::kit {

// A file of the score as it was read, by the name under which it was found.
struct SourceFile {
    std::string name;
    std::string text;
    TextIndex index;
};

// Bytes [begin, end) of a file.
struct FileSpan {
    int file = -1;  // index of SourceMap::files; -1: the place is not known
    std::uint64_t begin = 0;
    std::uint64_t end = 0;
};

// A place as people count: line from 1; column in bytes from 0, within `text`, the
// whole line without its end; character from 1, as columns are told.
struct TextPlace {
    std::uint32_t line = 0;
    std::uint32_t column = 0;
    std::string_view text;
    std::uint32_t character = 0;
};

// A call that was undone on the way: its name, and what it had put into the line.
struct Expansion {
    SpliceKind kind = SpliceKind::MACRO;
    std::string name;
    FileSpan call;
};

class SourceMap {
public:
    // --- told while the copy is made and read ---
    int add_file(const std::string& name, std::string text);
    void add_span(int file, std::int64_t copy_offset, std::int64_t file_offset);
    void add_line(std::size_t length);
    void add_splice(const Splice& splice);

    // --- asked afterwards, or while the line is the current one ---
    // What the character at `place` of the expanded line comes from: itself, or the
    // outermost call whose expansion it belongs to. `through`, when given, gets the
    // calls, outermost first.
    FileSpan find(const LinePlace& place, std::vector<Expansion>* through = nullptr) const;

    // From there to what the character at `last` comes from, where that is the same file.
    FileSpan find(const LinePlace& begin, const LinePlace& last,
                  std::vector<Expansion>* through = nullptr) const;

    TextPlace text_place(const FileSpan& span) const;  // of its beginning
    std::string joined_text() const;  // the score with the texts of its includes in their places
    const std::deque<SourceFile>& files() const { return files_; }

private:
    struct Span {
        std::uint64_t copy_offset;
        std::uint64_t file_offset;
        int file;
    };
    struct KeptSplice {
        std::uint64_t line;
        std::int32_t start;
        std::int32_t end;
        std::int32_t inserted;
        SpliceKind kind;
        std::string name;
    };

    FileSpan in_file(std::uint64_t line, std::int32_t begin, std::int32_t end) const;

    std::deque<SourceFile> files_;  // a deque: the texts must not move while a stream reads them
    std::vector<Span> spans_;       // by copy offset
    std::vector<std::uint64_t> line_offsets_{0};  // of line n + 1 in the copy, at index n
    std::deque<KeptSplice> splices_;              // by line; the oldest go when there are too many
};

}  // namespace vorn::kit
