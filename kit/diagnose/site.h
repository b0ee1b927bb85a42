#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "kit/run/score_run.h"

// What stands where a message points, for those who look around there.

namespace vorn::kit {

// Bytes [begin, end) of a site's text.
struct Stretch {
    std::size_t begin = 0;
    std::size_t end = 0;
};

// The place in its file; or, where calls were expanded, in the expanded line. Then
// there is no file that an edit could change.
struct Site {
    const ScoreRun& run;
    const RunMessage& message;
    std::string_view text;
    std::size_t at = 0;  // where reading stopped, at most text.size()
    int file = -1;       // of the text; -1: it is an expanded line

    char operator[](std::size_t place) const { return place < text.size() ? text[place] : '\0'; }
    std::string_view of(Stretch stretch) const {
        return text.substr(stretch.begin, stretch.end - stretch.begin);
    }
};

[[nodiscard]] Site site_of(const ScoreRun& run, const RunMessage& message);

// Letters, digits and the signs that values and names may hold: "c4", "1e-3", "$NAME".
[[nodiscard]] bool is_word_char(char c);

// The word that holds `at`; empty where none does.
[[nodiscard]] Stretch word_at(std::string_view text, std::size_t at);

// The word at `at`, or the character there.
[[nodiscard]] Stretch word_or_character(std::string_view text, std::size_t at);

// The word at `at`; or the one that ends before it, where a blank, a closing sign or the
// end stands there; or the character there.
[[nodiscard]] Stretch word_touching(std::string_view text, std::size_t at);

// Over blanks and line ends: behind the last visible character before `at`, and on
// the first one from `at` on.
[[nodiscard]] std::size_t behind_visible(std::string_view text, std::size_t at);
[[nodiscard]] std::size_t next_visible(std::string_view text, std::size_t at);

[[nodiscard]] Stretch line_around(std::string_view text, std::size_t at);
[[nodiscard]] bool is_first_on_line(std::string_view text, std::size_t at);

// The text from the open block's header on, or some thousands of characters, up to `at`,
// with blanks in the place of comments. Its first character stands at `offset`.
struct CodeBefore {
    std::string text;
    std::size_t offset = 0;
};
[[nodiscard]] CodeBefore code_before(const Site& site);

// Puts blanks in the place of comments. Where the last one does not end: its beginning.
std::optional<std::size_t> blank_comments(std::string& code);

// The "p4" of the statement that `at` lies in.
[[nodiscard]] std::optional<Stretch> statement_around(const Site& site);

// The "(" in the same statement, before `at`, that nothing closes.
[[nodiscard]] std::optional<std::size_t> open_parenthesis(const Site& site);

// Where a parenthesis should have been closed that is open still, if what stands at `at`
// belongs to something else: behind the last character before.
[[nodiscard]] std::optional<std::size_t> missing_parenthesis(const Site& site);

// "ra(... )" up to `at`, which stands behind its ")".
[[nodiscard]] std::optional<Stretch> call_before(const Site& site);

}  // namespace vorn::kit
