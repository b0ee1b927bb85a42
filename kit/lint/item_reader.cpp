#include "kit/lint/item_reader.h"

#include <algorithm>

#include "blocks/block_state.h"
#include "blocks/command_codes.h"
#include "blocks/commands.h"
#include "blocks/input_values.h"
#include "blocks/pitch_input.h"
#include "input/characters.h"
#include "input/numbers.h"
#include "input/skip.h"

// The readers of src/ take a text and a position, and the input type from the
// block state, which is ours while nothing runs. Of a generator the values in
// brackets are read, and plain numbers between them; its letters are stepped over.

namespace vorn::kit {

namespace {

struct MarkItem {
    char mark;
    ItemKind kind;
};

constexpr MarkItem MARKS[] = {
    {'<', ItemKind::LOOP_OPEN}, {'>', ItemKind::LOOP_CLOSE}, {':', ItemKind::FUSION},
    {'\'', ItemKind::FUSION},   {'/', ItemKind::SLASH},      {',', ItemKind::COMMA},
};

constexpr int SETTINGS[] = {CODE_DV, CODE_PF, CODE_RD, CODE_RS, CODE_SR};
constexpr int NUMBER_TYPES[] = {CODE_RE, CODE_IN, CODE_DB};
constexpr int RANGE_GENERATORS[] = {CODE_RA, CODE_RW, CODE_MO};  // a letter may open their brackets

template <std::size_t size>
bool is_one_of(const int (&codes)[size], int code) {
    return std::count(std::begin(codes), std::end(codes), code) > 0;
}

class ItemReader {
public:
    ItemReader(const std::string& text, std::vector<Item>& items)
        : text_(text.c_str()), size_(text.size()), items_(items) {}

    bool read() {
        if (!read_head()) return false;
        for (;;) {
            skip_blanks(text_, pos_);
            if (at_end()) return true;
            if (!read_item()) return false;
        }
    }

private:
    bool at_end() const { return static_cast<std::size_t>(pos_) >= size_; }

    // "p" digits ["(" ... ")"]
    bool read_head() {
        ++pos_;
        int number = 0;
        if (!get_i(number, text_, pos_)) return false;
        skip_blanks(text_, pos_);
        if (text_[pos_] != '(') return true;
        return skip_behind(')');
    }

    bool skip_behind(char mark) {
        while (!at_end() && text_[pos_] != mark) ++pos_;
        if (at_end()) return false;
        ++pos_;
        return true;
    }

    Item& add(ItemKind kind, std::int32_t begin) {
        Item item;
        item.kind = kind;
        item.begin = static_cast<std::size_t>(begin);
        item.end = static_cast<std::size_t>(pos_);
        item.in_generator = in_generator_;
        items_.push_back(item);
        return items_.back();
    }

    bool read_item() {
        if (is_command(text_, pos_)) return read_command();
        if (read_mark()) return true;
        if (text_[pos_] == 'x') return read_times();
        return in_limits(text_[pos_]) && read_value();
    }

    bool read_mark() {
        for (const MarkItem& mark : MARKS) {
            if (text_[pos_] != mark.mark) continue;
            ++pos_;
            add(mark.kind, pos_ - 1);
            return true;
        }
        return false;
    }

    // "x" digits
    bool read_times() {
        const std::int32_t begin = pos_++;
        std::uint64_t times = 0;
        if (!is_digit(text_[pos_]) || !get_uli(times, text_, pos_)) return false;
        while (is_space(text_[pos_ - 1])) --pos_;
        add(ItemKind::TIMES, begin).times = times;
        return true;
    }

    bool read_value() {
        const std::int32_t begin = pos_;
        float value = 0;
        if (!get_input_type(value, text_, pos_) || pos_ == begin) return false;
        LAST_VAL = value;
        Item& item = add(ItemKind::VALUE, begin);
        item.value = value;
        item.code = IN_TYPE;
        return true;
    }

    bool read_command() {
        const std::int32_t begin = pos_;
        int code = NO_COMMAND;
        if (!get_command(code, text_, pos_) || code == NO_COMMAND) return false;
        if (is_input_code(code)) {
            IN_TYPE = code;
            add(ItemKind::INPUT_TYPE, begin).code = code;
            return true;
        }
        skip_blanks(text_, pos_);
        if (text_[pos_] != '(') return false;
        const std::size_t index = items_.size();
        add(is_one_of(SETTINGS, code) ? ItemKind::SETTING : ItemKind::GENERATOR, begin).code = code;
        const bool ended = items_[index].kind == ItemKind::SETTING ? skip_behind(')') : read_generator(code);
        items_[index].end = static_cast<std::size_t>(pos_);
        return ended;
    }

    bool read_generator(int code) {
        in_generator_ = true;
        while (!at_end() && text_[pos_] != ')') {
            const bool has_values = code != CODE_EX;
            if (has_values && text_[pos_] == '[') {
                read_bracket(code);
            } else if (!has_values || !read_number()) {
                ++pos_;
            }
        }
        in_generator_ = false;
        return skip_behind(')');
    }

    // "[" values "]", as far as they can be read.
    void read_bracket(int code) {
        ++pos_;
        skip_blanks(text_, pos_);
        if (is_one_of(RANGE_GENERATORS, code) && is_rrange_type(text_[pos_])) ++pos_;
        for (;;) {
            skip_blanks(text_, pos_);
            if (at_end() || text_[pos_] == ']') return;
            if (!read_mark() && !read_value()) return;
        }
    }

    bool read_number() {
        const char c = text_[pos_];
        const bool begins = is_digit(c) || ((c == '-' || c == '+' || c == '.') && is_digit(text_[pos_ + 1]));
        return begins && is_one_of(NUMBER_TYPES, IN_TYPE) && read_value();
    }

    const char* text_;
    std::size_t size_;
    std::vector<Item>& items_;
    std::int32_t pos_ = 0;
    bool in_generator_ = false;
};

}  // namespace

void begin_reading_items() {
    reset_block_state();
    reset_pitch_input();
}

bool read_items(const std::string& text, std::vector<Item>& items) {
    if (text.empty()) return false;
    IN_TYPE = CODE_RE;
    return ItemReader(text, items).read();
}

}  // namespace vorn::kit
