#pragma once

#include "blocks/statement.h"
#include "generators/ddf_data.h"
#include "input/reader.h"

namespace vorn {

constexpr int BLOCK_IS_FULL = -1;  // result of insert_DDFp2, never an error number

// Values in a row that may leave both clocks of P2 where they are; one more is error 72.
constexpr std::uint32_t MAX_STANDING_EVENTS = 100'000;

// Creates one event of P2 and moves `progress` behind it. 0, an error number,
// or BLOCK_IS_FULL, with warning 11 and nothing drawn.
[[nodiscard]] int insert_DDFp2(const ValueMaker& maker, Progress& progress, const Reader& reader,
                               Statement& statement);

// Creates all the events of a function in P2. Errors 32, 72.
[[nodiscard]] int create_events(const ValueMaker& maker, const Reader& reader, Statement& statement);

}  // namespace vorn
