#include "kit/picture/beats.h"

#include <algorithm>
#include <cmath>

#include "kit/run/tempo.h"

// The points of the longest block come first; every other block may only lengthen
// the line at either end. Beyond the ends the tempo that holds there goes on:
//
//     seconds  ....o--o---o-----o.....
//              tempo  longest  ^ what another block adds

namespace vorn::kit {

namespace {

constexpr double FAR = 1e6;  // seconds for which the tempo at an end goes on

double last_start(const BlockRecord& block) {
    return block.events.size() == 0 ? 0 : block.events.exact_start.back();
}

double time_span(const BlockRecord& block) {
    const double span = block.events.size() == 0 ? 0 : last_start(block) - block.events.exact_start.front();
    return std::isfinite(span) ? span : 0;
}

std::vector<std::size_t> by_span(const ScoreRun& run) {
    std::vector<std::size_t> order;
    for (std::size_t index = 0; index < run.blocks.size(); ++index) {
        if (run.blocks[index].events.size() > 0) order.push_back(index);
    }
    std::stable_sort(order.begin(), order.end(), [&run](std::size_t a, std::size_t b) {
        return time_span(run.blocks[a]) > time_span(run.blocks[b]);
    });
    return order;
}

// Beat and second of a row; a block's first event has the start of the score exactly.
BeatPoint point_of(const BlockRecord& block, std::size_t index, std::size_t row) {
    return {block.events.exact_start[row], double{block.events.beat[row]}, index};
}

bool is_finite(const BeatPoint& point) { return std::isfinite(point.second) && std::isfinite(point.beat); }

double interpolate(double value, double from_low, double from_high, double to_low, double to_high) {
    return to_low + (value - from_low) / (from_high - from_low) * (to_high - to_low);
}

}  // namespace

BeatMap::BeatMap(const ScoreRun& run, double grain) {
    for (const std::size_t index : by_span(run)) add_block(run.blocks[index], index, grain);
    if (!points_.empty()) extend_ends(run);
}

void BeatMap::add_block(const BlockRecord& block, std::size_t index, double grain) {
    std::vector<BeatPoint> before;
    const BeatPoint first = points_.empty() ? BeatPoint{} : points_.front();
    const bool has_points = !points_.empty();
    for (std::size_t row = 0; row < block.events.size(); ++row) {
        const BeatPoint point = point_of(block, index, row);
        if (!is_finite(point)) continue;
        const auto goes_on = [&](const std::vector<BeatPoint>& points) {
            return points.empty() ||
                   (point.second >= points.back().second + grain && point.beat > points.back().beat);
        };
        if (has_points && point.second < first.second) {
            if (point.second <= first.second - grain && point.beat < first.beat && goes_on(before)) {
                before.push_back(point);
            }
        } else if (goes_on(points_)) {
            points_.push_back(point);
        }
    }
    points_.insert(points_.begin(), before.begin(), before.end());
}

void BeatMap::extend_ends(const ScoreRun& run) {
    const auto beats_per_second = [&run](const BeatPoint& point) {
        return double{tempos_at(run, point.block, {static_cast<float>(point.beat)})[0]} / 60;
    };
    const BeatPoint first = points_.front();
    const BeatPoint last = points_.back();
    points_.insert(points_.begin(),
                   {first.second - FAR, first.beat - FAR * beats_per_second(first), first.block});
    points_.push_back({last.second + FAR, last.beat + FAR * beats_per_second(last), last.block});
}

double BeatMap::beat(double second) const {
    const auto behind = std::upper_bound(points_.begin() + 1, points_.end() - 1, second,
                                         [](double at, const BeatPoint& point) { return at < point.second; });
    const BeatPoint& low = *(behind - 1);
    return interpolate(second, low.second, behind->second, low.beat, behind->beat);
}

double BeatMap::second(double beat) const {
    const auto behind = std::upper_bound(points_.begin() + 1, points_.end() - 1, beat,
                                         [](double at, const BeatPoint& point) { return at < point.beat; });
    const BeatPoint& low = *(behind - 1);
    return interpolate(beat, low.beat, behind->beat, low.second, behind->second);
}

std::size_t BeatMap::block(double second) const {
    const auto behind = std::upper_bound(points_.begin() + 1, points_.end() - 1, second,
                                         [](double at, const BeatPoint& point) { return at < point.second; });
    return (behind - 1)->block;
}

std::size_t BeatMap::strangers(const ScoreRun& run, double tolerance) const {
    std::size_t count = 0;
    for (const BlockRecord& block : run.blocks) {
        bool is_off = false;
        for (std::size_t row = 0; row < block.events.size() && !is_off; ++row) {
            const BeatPoint point = point_of(block, 0, row);
            is_off = is_finite(point) && std::fabs(second(point.beat) - point.second) > tolerance;
        }
        count += is_off ? 1 : 0;
    }
    return count;
}

std::vector<Tick> beat_ticks(const BeatMap& map, const Scale& seconds, double least) {
    std::vector<Tick> ticks;
    if (map.is_empty()) return ticks;
    const double first = map.beat(seconds.low);
    const double last = map.beat(seconds.high);
    const double step = round_step((last - first) * least / (seconds.end - seconds.begin));
    for (double number = std::ceil(first / step - 1e-6); number * step <= last + step * 1e-6; ++number) {
        const double place = seconds(map.second(number * step));
        if (number >= 0 && (ticks.empty() || place >= ticks.back().place + least / 2)) {
            ticks.push_back({place, step_label(number * step, step)});
        }
    }
    return ticks;
}

std::vector<double> tempos_over_time(const ScoreRun& run, const BeatMap& map,
                                     const std::vector<double>& seconds) {
    std::vector<double> tempos;
    std::size_t at = 0;
    while (at < seconds.size() && !map.is_empty()) {
        const std::size_t block = map.block(seconds[at]);
        std::vector<float> beats;
        for (; at < seconds.size() && map.block(seconds[at]) == block; ++at) {
            beats.push_back(static_cast<float>(map.beat(seconds[at])));
        }
        for (const float tempo : tempos_at(run, block, beats)) tempos.push_back(double{tempo});
    }
    return tempos;
}

}  // namespace vorn::kit
