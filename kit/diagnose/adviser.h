#pragma once

#include <span>

#include "kit/diagnose/diagnostic.h"
#include "kit/diagnose/site.h"

// What a row of an advice table works with: the place, and the diagnostic that it
// adds to. A row looks whether its case is the one that it knows, and says so.

namespace vorn::kit {

class Adviser {
public:
    Adviser(const Site& place, Stretch marked, Diagnostic& diagnostic)
        : site(place), mark(marked), diagnostic_(diagnostic) {}

    const Site& site;
    const Stretch mark;  // what is underlined

    std::string_view word() const { return site.of(mark); }
    bool is_error() const { return diagnostic_.level == Level::ERROR; }

    // Each returns true, so that a row can end with it.
    bool help(std::string text);
    bool note(std::string text, Stretch where);
    bool note_at(std::string text, const FileSpan& where);
    bool edit(Stretch where, std::string replacement);  // a cure that is certain
    bool point_at(Stretch where);                       // the cause, where it is not what was marked

private:
    FileSpan in_file(Stretch stretch) const;

    Diagnostic& diagnostic_;
};

struct AdviceRow {
    std::string_view code;  // empty: of all messages
    bool (*advise)(Adviser&);
};

using AdviceTable = std::span<const AdviceRow>;

// In the order in which they are tried.
[[nodiscard]] AdviceTable character_advice();
[[nodiscard]] AdviceTable number_advice();
[[nodiscard]] AdviceTable open_block_advice();
[[nodiscard]] AdviceTable header_advice();
[[nodiscard]] AdviceTable value_advice();
[[nodiscard]] AdviceTable generator_advice();
[[nodiscard]] AdviceTable command_advice();
[[nodiscard]] AdviceTable name_advice();

}  // namespace vorn::kit
