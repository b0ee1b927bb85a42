#pragma once

#include <cmath>
#include <cstddef>
#include <vector>

// Pearson's chi-square test of counts against probabilities.

namespace vorn::test {

struct ChiSquare {
    double statistic;
    double limit;  // passed by one fair sample in a thousand

    bool fits() const { return statistic < limit; }
};

// The limit by the approximation of E. B. Wilson and M. M. Hilferty, 1931.
inline double chi_square_limit(double degrees) {
    constexpr double NORMAL_QUANTILE = 3.0902;
    const double spread = 2.0 / (9.0 * degrees);
    return degrees * std::pow(1.0 - spread + NORMAL_QUANTILE * std::sqrt(spread), 3.0);
}

// Bins of fewer than ten expected counts are joined with their right neighbours.
inline ChiSquare chi_square(const std::vector<double>& counts, const std::vector<double>& probabilities) {
    double total = 0.0;
    for (const double count : counts) total += count;
    double statistic = 0.0, counted = 0.0, expected = 0.0, bins = 0.0;
    for (std::size_t i = 0; i < counts.size(); ++i) {
        counted += counts[i];
        expected += total * probabilities[i];
        if (expected < 10.0 && i + 1 < counts.size()) continue;
        if (expected > 0.0) statistic += (counted - expected) * (counted - expected) / expected;
        bins += 1.0;
        counted = expected = 0.0;
    }
    return {statistic, chi_square_limit(bins - 1.0)};
}

// Counts of `draw()` in equal bins over [0, 1], held against the law's
// distribution function; the last bin takes 1 and the first takes 0.
template <typename Draw, typename Law>
ChiSquare fit_on_unit_interval(int draws, std::size_t bins, Draw draw, Law law) {
    std::vector<double> counts(bins), probabilities(bins);
    for (int i = 0; i < draws; ++i) {
        const auto bin = static_cast<std::size_t>(static_cast<double>(draw()) * static_cast<double>(bins));
        counts[bin < bins ? bin : bins - 1] += 1.0;
    }
    double below = 0.0;
    for (std::size_t i = 0; i < bins; ++i) {
        const double upto = i + 1 == bins ? 1.0 : law(static_cast<double>(i + 1) / static_cast<double>(bins));
        probabilities[i] = upto - below;
        below = upto;
    }
    return chi_square(counts, probabilities);
}

}  // namespace vorn::test
