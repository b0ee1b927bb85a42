// The time of one printed number, beside the library's for the same values:
// the whole and the broken values of a score, in the default column.

#include "input/real_text.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <random>
#include <vector>

namespace {

constexpr std::size_t VALUES = 4096;

// Amplitudes, pitches and fractions in turn.
std::vector<float> score_values() {
    std::mt19937 random(1);
    std::vector<float> values(VALUES);
    for (std::size_t i = 0; i < VALUES; ++i) {
        const float unit = static_cast<float>(random() >> 8) / 16777216.0F;
        const float spans[] = {32000.0F, 12.0F, -1.0F, 500.0F};
        values[i] = unit * spans[i % 4];
    }
    return values;
}

void print_real(benchmark::State& state) {
    const std::vector<float> values = score_values();
    const int decimals = static_cast<int>(state.range(0));
    char text[vorn::REAL_TEXT_SIZE];
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(vorn::format_real(text, values[i++ % VALUES], decimals + 6, decimals));
        benchmark::ClobberMemory();
    }
}

void print_real_by_library(benchmark::State& state) {
    const std::vector<float> values = score_values();
    const int decimals = static_cast<int>(state.range(0));
    char text[vorn::REAL_TEXT_SIZE];
    std::size_t i = 0;
    for (auto _ : state) {
        const double value = values[i++ % VALUES];
        benchmark::DoNotOptimize(std::snprintf(text, sizeof text, "%*.*f", decimals + 6, decimals, value));
        benchmark::ClobberMemory();
    }
}

void print_integer(benchmark::State& state) {
    const std::vector<float> values = score_values();
    char text[vorn::REAL_TEXT_SIZE];
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(vorn::format_integer(text, static_cast<int>(values[i++ % VALUES]), 5));
        benchmark::ClobberMemory();
    }
}

void print_integer_by_library(benchmark::State& state) {
    const std::vector<float> values = score_values();
    char text[vorn::REAL_TEXT_SIZE];
    std::size_t i = 0;
    for (auto _ : state) {
        const int value = static_cast<int>(values[i++ % VALUES]);
        benchmark::DoNotOptimize(std::snprintf(text, sizeof text, "%5d", value));
        benchmark::ClobberMemory();
    }
}

BENCHMARK(print_real)->Arg(0)->Arg(3)->Arg(5)->Arg(7);
BENCHMARK(print_real_by_library)->Arg(0)->Arg(3)->Arg(5)->Arg(7);
BENCHMARK(print_integer);
BENCHMARK(print_integer_by_library);

}  // namespace
