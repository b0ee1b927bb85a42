#pragma once

#include <cstdint>
#include <cstdio>

#include "input/observer.h"

// The reading state: one line of the score description and a place in it.
//
// All readers of the program share one Reader, passed by reference. A routine
// that never fetches a line takes only the text and the position. The invariant
// that every routine keeps: 0 <= pos <= length of text, so text[pos] is always
// valid and is 0 exactly at the end of the line. Look-ahead goes through peek,
// which never reads behind that terminating zero.

namespace vorn {

constexpr int LINE_SIZE = 4096;  // bytes of the line buffer, terminating zero included

struct Reader {
    std::FILE* stream = nullptr;  // the resolved score description
    char text[LINE_SIZE] = {};    // the current line after preprocessing
    std::int32_t pos = 0;         // index of the next character to read
    std::uint64_t line = 0;       // lines read so far; 1 after the first

    Observer* observer = nullptr;  // who is told what is read; null: nobody
    LinePlace header;              // of the block at hand; line 0: none has been read
};

inline LinePlace place(const Reader& reader) { return {reader.line, reader.pos}; }

// Which line a routine works on that needs no more of the reader, and who is told.
struct WatchedLine {
    WatchedLine(std::uint64_t line, Observer* watcher = nullptr) : number(line), observer(watcher) {}
    explicit WatchedLine(const Reader& reader) : WatchedLine(reader.line, reader.observer) {}

    std::uint64_t number;
    Observer* observer;
};

// The character `ahead` places behind pos, or 0 at and behind the end of the text.
inline char peek(const char* text, std::int32_t pos, std::int32_t ahead = 1) {
    for (; ahead > 0 && text[pos] != 0; --ahead) ++pos;
    return text[pos];
}

}  // namespace vorn
