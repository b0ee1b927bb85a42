#pragma once

#include <cstddef>
#include <cstdio>

// The output file with one large buffer of its own, written whole.
// A failed write is remembered; the driver asks for it.

namespace vorn {

struct OutputFile {
    std::FILE* stream = nullptr;
    char* data = nullptr;  // OUTPUT_BUFFER_SIZE bytes, allocated by open_output
    std::size_t used = 0;
    bool failed = false;  // a write has failed; what follows is dropped
};

constexpr std::size_t OUTPUT_BUFFER_SIZE = std::size_t{1} << 20;

extern OutputFile fout;  // the score or MIDI file; opened and closed by the driver

// Takes over the stream. False: out of memory; the stream is still the caller's.
[[nodiscard]] bool open_output(OutputFile& file, std::FILE* stream);

// A place for `size` (at most 64 KiB) further bytes; commit what was written with output_advance.
char* output_space(OutputFile& file, std::size_t size);
inline void output_advance(OutputFile& file, std::size_t size) { file.used += size; }

void output_bytes(OutputFile& file, const void* bytes, std::size_t size);
void output_text(OutputFile& file, const char* text);
void output_char(OutputFile& file, char c);

// Writes what is gathered; false once any write has failed.
bool flush_output(OutputFile& file);

// Flushes, closes the stream and releases the buffer; false if anything was not written.
bool close_output(OutputFile& file);

void reset_output_file();

}  // namespace vorn
