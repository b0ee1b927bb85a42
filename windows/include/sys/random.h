#pragma once

#include <cstddef>

// Bytes that nobody can foresee; 0, or -1 where the system has none to give.
extern "C" int getentropy(void* bytes, std::size_t size);
