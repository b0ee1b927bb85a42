#include "output/output_file.h"

#include <cstring>
#include <new>

// Everything that reaches the output file is gathered in one buffer of a
// megabyte and written whole, so that a score of a million lines costs
// some forty calls of the system. The writers format straight into the buffer:
//
//     char* to = output_space(file, 200);
//     char* end = format_real(to, value, 9, 3);
//     output_advance(file, static_cast<std::size_t>(end - to));
//
// Invariant: used <= OUTPUT_BUFFER_SIZE. After a failed write the buffer is
// still filled and emptied, so no writer has to look at the failure.

namespace vorn {

OutputFile fout;

namespace {

// Hands the gathered bytes to the stream.
void empty_buffer(OutputFile& file) {
    if (!file.failed && std::fwrite(file.data, 1, file.used, file.stream) != file.used) file.failed = true;
    file.used = 0;
}

}  // namespace

bool open_output(OutputFile& file, std::FILE* stream) {
    file = OutputFile{};
    file.data = new (std::nothrow) char[OUTPUT_BUFFER_SIZE];
    if (file.data == nullptr) return false;
    file.stream = stream;
    // Our buffer is enough: without one of its own the stream copies nothing.
    std::setvbuf(stream, nullptr, _IONBF, 0);
    return true;
}

char* output_space(OutputFile& file, std::size_t size) {
    if (OUTPUT_BUFFER_SIZE - file.used < size) empty_buffer(file);
    return file.data + file.used;
}

void output_bytes(OutputFile& file, const void* bytes, std::size_t size) {
    const char* from = static_cast<const char*>(bytes);
    while (size > 0) {
        if (file.used == OUTPUT_BUFFER_SIZE) empty_buffer(file);
        const std::size_t room = OUTPUT_BUFFER_SIZE - file.used;
        const std::size_t part = size < room ? size : room;
        std::memcpy(file.data + file.used, from, part);
        file.used += part;
        from += part;
        size -= part;
    }
}

void output_text(OutputFile& file, const char* text) { output_bytes(file, text, std::strlen(text)); }

void output_char(OutputFile& file, char c) {
    *output_space(file, 1) = c;
    output_advance(file, 1);
}

bool flush_output(OutputFile& file) {
    if (file.stream == nullptr) return !file.failed;
    empty_buffer(file);
    if (std::fflush(file.stream) != 0) file.failed = true;
    return !file.failed;
}

bool close_output(OutputFile& file) {
    if (file.stream == nullptr) return !file.failed;
    bool complete = flush_output(file);
    if (std::fclose(file.stream) != 0) complete = false;
    delete[] file.data;
    file = OutputFile{};
    file.failed = !complete;
    return complete;
}

void reset_output_file() {
    close_output(fout);
    fout = OutputFile{};
}

}  // namespace vorn
