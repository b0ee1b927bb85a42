#include "kit/command/wave_file.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <memory>
#include <vector>

// RIFF (Microsoft and IBM, 1991): chunks of a name of four letters, a length of four
// bytes, the lowest first, and their contents, padded to an even length.

namespace vorn::kit {

namespace {

constexpr std::size_t PART_FRAMES = 1 << 14;

struct Closer {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, Closer>;

struct Chunk {
    char name[4];
    std::uint32_t length;
};

std::uint32_t number(const unsigned char* bytes, int count) {
    std::uint32_t value = 0;
    for (int at = count - 1; at >= 0; --at) value = value << 8 | bytes[at];
    return value;
}

bool read_chunk(std::FILE* file, Chunk& chunk) {
    unsigned char bytes[8];
    if (std::fread(bytes, 1, sizeof bytes, file) != sizeof bytes) return false;
    std::memcpy(chunk.name, bytes, sizeof chunk.name);
    chunk.length = number(bytes + 4, 4);
    return true;
}

bool is_named(const Chunk& chunk, const char* name) { return std::memcmp(chunk.name, name, 4) == 0; }

bool skip(std::FILE* file, const Chunk& chunk) {
    return std::fseek(file, static_cast<long>(chunk.length) + (chunk.length & 1U), SEEK_CUR) == 0;
}

// The chunk "fmt "; the width of a sample in bytes, 0 when it is of another kind.
unsigned read_format(std::FILE* file, const Chunk& chunk, WaveFigures& figures) {
    unsigned char bytes[40] = {};
    if (chunk.length < 16 || chunk.length > sizeof bytes) return 0;
    if (std::fread(bytes, 1, chunk.length, file) != chunk.length) return 0;
    figures.channels = number(bytes + 2, 2);
    figures.rate = number(bytes + 4, 4);
    const unsigned width = number(bytes + 14, 2) / 8;
    return width == 2 || width == 3 ? width : 0;
}

void measure_sample(WaveFigures& figures, const unsigned char* bytes, unsigned width) {
    const unsigned bits = 8 * width;
    const std::int64_t largest = (std::int64_t{1} << (bits - 1)) - 1;
    std::int64_t sample = number(bytes, static_cast<int>(width));
    if (sample > largest) sample -= std::int64_t{1} << bits;
    const std::int64_t size = sample < 0 ? -sample : sample;
    if (size >= largest) ++figures.full_scale;
    figures.peak = std::max(figures.peak, static_cast<double>(size) / static_cast<double>(largest + 1));
}

// False when the file ends before the chunk does.
bool measure_data(std::FILE* file, const Chunk& chunk, unsigned width, WaveFigures& figures) {
    const std::size_t frame = static_cast<std::size_t>(figures.channels) * width;
    if (frame == 0) return false;
    std::vector<unsigned char> part(PART_FRAMES * frame);
    std::size_t left = chunk.length / frame;
    figures.frames = left;
    while (left > 0) {
        const std::size_t wanted = std::min(left, PART_FRAMES);
        if (std::fread(part.data(), frame, wanted, file) != wanted) return false;
        for (std::size_t at = 0; at < wanted * frame; at += width) {
            measure_sample(figures, part.data() + at, width);
        }
        left -= wanted;
    }
    return true;
}

}  // namespace

std::optional<WaveFigures> measure_wave(const std::string& path) {
    const File file(std::fopen(path.c_str(), "rb"));
    char heading[12];
    if (file == nullptr || std::fread(heading, 1, sizeof heading, file.get()) != sizeof heading ||
        std::memcmp(heading, "RIFF", 4) != 0 || std::memcmp(heading + 8, "WAVE", 4) != 0) {
        return std::nullopt;
    }
    WaveFigures figures;
    unsigned width = 0;
    for (Chunk chunk = {}; read_chunk(file.get(), chunk);) {
        if (is_named(chunk, "data")) {
            const bool is_whole = width != 0 && measure_data(file.get(), chunk, width, figures);
            return is_whole ? std::optional(figures) : std::nullopt;
        }
        if (is_named(chunk, "fmt ")) {
            width = read_format(file.get(), chunk, figures);
        } else if (!skip(file.get(), chunk)) {
            return std::nullopt;
        }
    }
    return std::nullopt;
}

}  // namespace vorn::kit
