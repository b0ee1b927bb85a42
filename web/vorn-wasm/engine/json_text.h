#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "kit/run/decimal_text.h"

// A text of JSON, written from beginning to end. Commas are put where they belong; whether
// brackets match is the writer's business. Bytes that are no UTF-8 pass as they are: who decodes
// the text replaces them. A library's tree of values would be a quarter of the module, and so would
// these routines be if they stood in each of the hundred places that call them.
//
//     json.open('{').key("size").number(3).close('}')     ->     {"size":3}

namespace vorn::web {

class JsonText {
public:
    JsonText& open(char bracket);
    JsonText& close(char bracket);
    JsonText& key(std::string_view name);
    JsonText& raw(std::string_view json);
    JsonText& text(std::string_view text);
    JsonText& number(double value);  // null where it is not finite
    JsonText& count(std::uint64_t value) { return raw(std::to_string(value)); }
    JsonText& flag(bool value) { return raw(value ? "true" : "false"); }
    JsonText& texts(const std::vector<std::string>& texts);

    // Where something lies in the module's memory: [address, elements].
    template <typename Values>
    JsonText& address(const Values& values) {
        open('[').count(reinterpret_cast<std::uintptr_t>(values.data())).count(values.size());
        return close(']');
    }

    std::string take() { return std::move(bytes_); }

private:
    void separate();
    void quote(std::string_view text);

    std::string bytes_;
    bool is_first_ = true;
};

}  // namespace vorn::web
