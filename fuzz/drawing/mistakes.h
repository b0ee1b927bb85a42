#pragma once

#include <string>

#include "drawing/dice.h"

namespace vorn::fuzz {

// Changes one place of the text in a way that often makes it wrong.
void make_mistake(std::string& text, Dice& dice);

}  // namespace vorn::fuzz
