#pragma once

#include <string>
#include <string_view>
#include <vector>

// The score language as rules. A rule is a name and its productions, one of
// which is drawn; the first is the one that ends soonest, and a production that
// stands twice is drawn twice as often. In a production a name between
// backticks, which the language has no use for, stands for another rule or, where
// the choice depends on what has been drawn before, for a routine of
// drawn_score.cpp; what follows a blank is handed on and stands for "`?`" there:
//
//     `weighted range`   ->   .5 `range` .5 `range`   ->   .5 [t 1 2] .5 60

namespace vorn::fuzz {

using Productions = std::vector<std::string_view>;

// Null when there is no rule of this name.
const Productions* find_rule(std::string_view name);

// Every production, one behind the other.
std::string grammar_text();

}  // namespace vorn::fuzz
