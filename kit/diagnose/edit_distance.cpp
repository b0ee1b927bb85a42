#include "kit/diagnose/edit_distance.h"

#include <algorithm>
#include <vector>

// Row i of the table holds the distances between the first i letters of `a` and
// each beginning of `b`. A row needs the two before it.

namespace vorn::kit {

namespace {

using Row = std::vector<std::size_t>;

Row first_row(std::size_t size) {
    Row row(size + 1);
    for (std::size_t at = 0; at <= size; ++at) row[at] = at;
    return row;
}

}  // namespace

std::size_t edit_distance(std::string_view a, std::string_view b) {
    Row older;
    Row last = first_row(b.size());
    for (std::size_t i = 1; i <= a.size(); ++i) {
        Row row(b.size() + 1, i);
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t changed = last[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
            row[j] = std::min({row[j - 1] + 1, last[j] + 1, changed});
            const bool exchanged = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
            if (exchanged) row[j] = std::min(row[j], older[j - 2] + 1);
        }
        older = std::move(last);
        last = std::move(row);
    }
    return last[b.size()];
}

}  // namespace vorn::kit
