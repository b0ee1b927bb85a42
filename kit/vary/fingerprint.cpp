#include "kit/vary/fingerprint.h"

#include <cstdint>

// A text counts with its length, so that "ab", "c" is not "a", "bc".

namespace vorn::kit {

namespace {

constexpr std::uint64_t BASIS = 0xcbf29ce484222325U;
constexpr std::uint64_t PRIME = 0x100000001b3U;

void mix(std::uint64_t& hash, std::string_view bytes) {
    for (const char byte : bytes) hash = (hash ^ static_cast<unsigned char>(byte)) * PRIME;
}

}  // namespace

std::string fingerprint(const std::vector<std::string_view>& texts) {
    std::uint64_t hash = BASIS;
    for (const std::string_view text : texts) {
        mix(hash, std::to_string(text.size()) + ":");
        mix(hash, text);
    }
    std::string digits;
    for (int shift = 60; shift >= 0; shift -= 4) digits += "0123456789abcdef"[(hash >> shift) & 15U];
    return digits;
}

}  // namespace vorn::kit
