#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "input/observer.h"

// The score as its readers saw it: every line of the copy after macros and constants.

namespace vorn::kit {

// A stretch of it, its lines joined. Blanks stand for comments, so that whoever
// looks for values meets none.
struct Excerpt {
    struct Line {
        std::size_t offset;  // in `text`
        LinePlace begin;
    };

    LinePlace place(std::size_t offset) const;

    std::string text;
    std::vector<Line> lines;
};

class ExpandedText {
public:
    // A line as it is read; one that is not read, within a false condition, is blank.
    void add_line(std::string_view text, bool is_read);
    void apply(const Splice& splice);  // to the line added last

    std::string_view line(std::uint64_t number) const;  // empty: there is none, or no room was left for it
    std::string_view last_line() const { return line(begins_.size()); }
    std::uint64_t lines() const { return begins_.size(); }

    // From `begin` up to `end`, which is not part of it.
    Excerpt excerpt(const LinePlace& begin, const LinePlace& end) const;

private:
    std::string text_;
    std::vector<std::size_t> begins_;  // of each line in text_
};

}  // namespace vorn::kit
