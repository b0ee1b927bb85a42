#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "kit/run/decimal_text.h"

// A text of JSON, written from beginning to end. Commas are put where they belong; whether
// brackets match is the writer's business. Bytes that are no UTF-8 pass as they are: who decodes
// the text replaces them. A library's tree of values would be a quarter of the module.
//
//     json.open('{').key("size").number(3).close('}')     ->     {"size":3}

namespace vorn::web {

class JsonText {
public:
    JsonText& open(char bracket) {
        separate();
        bytes_ += bracket;
        is_first_ = true;
        return *this;
    }
    JsonText& close(char bracket) {
        bytes_ += bracket;
        is_first_ = false;
        return *this;
    }
    JsonText& key(std::string_view name) {
        separate();
        quote(name);
        bytes_ += ':';
        is_first_ = true;  // no comma before its value
        return *this;
    }
    JsonText& raw(std::string_view json) {
        separate();
        bytes_ += json;
        return *this;
    }
    JsonText& text(std::string_view text) {
        separate();
        quote(text);
        return *this;
    }
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
    void separate() {
        if (!is_first_) bytes_ += ',';
        is_first_ = false;
    }
    void quote(std::string_view text);

    std::string bytes_;
    bool is_first_ = true;
};

}  // namespace vorn::web
