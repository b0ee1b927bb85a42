#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace vorn::kit {

// What a sound file holds, in figures.
struct WaveFigures {
    unsigned channels = 0;
    unsigned rate = 0;             // frames a second
    std::uint64_t frames = 0;      // a sample of each channel
    double peak = 0;               // the largest sample; 1: full scale
    std::uint64_t full_scale = 0;  // samples that are as large as can be: most likely cut off

    double seconds() const { return rate == 0 ? 0 : static_cast<double>(frames) / rate; }
};

// Reads a WAV file of 16 or 24 bits; nothing when it is none, or not complete.
[[nodiscard]] std::optional<WaveFigures> measure_wave(const std::string& path);

}  // namespace vorn::kit
