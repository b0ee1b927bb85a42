#pragma once

#include <cstddef>
#include <cstdint>

namespace vorn::fuzz {

// Choices made by a string of bytes, one byte each. When the bytes are used up
// every choice is the first one, which each rule keeps for what ends soonest.
class Dice {
public:
    Dice(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

    // From 0 to below `sides`, which is 1 to 256.
    std::size_t roll(std::size_t sides) { return at_ < size_ ? data_[at_++] % sides : 0; }

    // A place from 0 to below `size`, of any size above 0; takes two bytes.
    std::size_t place(std::size_t size) {
        const std::size_t high = roll(256);
        return (high << 8 | roll(256)) % size;
    }

    void use_up() { at_ = size_; }

private:
    const std::uint8_t* data_;
    std::size_t size_;
    std::size_t at_ = 0;
};

}  // namespace vorn::fuzz
