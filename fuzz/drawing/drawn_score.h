#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace vorn::fuzz {

struct DrawnScore {
    std::map<std::string, std::string> inputs;  // "in.vorn" and its include files
    std::vector<std::string> arguments;
    bool valid = true;         // no mistake was made: the status must be 0
    std::vector<int> columns;  // of a valid score: how many numbers a line of each block has
};

// The score that these bytes draw from the grammar, with options; one in four
// gets a single mistake. No bytes at all yield the shortest score.
DrawnScore draw_score(const std::uint8_t* data, std::size_t size);

// The bytes as they are for the text of a score; their number chooses the options.
DrawnScore score_of_bytes(const std::uint8_t* data, std::size_t size);

// One of both from what follows the first byte, which says which: the bytes as they
// are where it is a multiple of 4.
DrawnScore score_of_kind(const std::uint8_t* data, std::size_t size);

}  // namespace vorn::fuzz
