#pragma once

#include <string>

namespace vorn::web {

extern std::string answer;  // of the last call; written by every export that computes

}  // namespace vorn::web

#define VORN_EXPORT(name) extern "C" __attribute__((export_name(#name))) auto name
