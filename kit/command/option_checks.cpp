#include "kit/command/option_checks.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>

// What options take, with the reason in the words of this command when one is refused.

namespace vorn::kit {

namespace {

constexpr int FIRST_PFIELD = 4;
constexpr int LAST_PFIELD = 128;

std::string check_pfield(std::string& text) {
    const std::string digits = text.substr(0, 1) == "p" ? text.substr(1) : text;
    const bool is_number =
        !digits.empty() && digits.size() < 4 && digits.find_first_not_of("0123456789") == std::string::npos;
    const int number = is_number ? std::stoi(digits) : 0;
    if (number < FIRST_PFIELD || number > LAST_PFIELD) {
        return "\"" + text + "\" is no p-field from p4 to p128";
    }
    text = digits;
    return {};
}

std::string joined(const std::vector<std::string>& words, const std::string& between) {
    std::string list = words[0];
    for (std::size_t at = 1; at < words.size(); ++at) list += between + words[at];
    return list;
}

std::string plain_number(double number) {
    char text[32];
    return {text, std::to_chars(text, text + sizeof text, number, std::chars_format::general).ptr};
}

}  // namespace

CLI::Validator pfield_name() { return {check_pfield, "P-FIELD"}; }

void take_one_of(CLI::Option* option, const std::vector<std::string>& words) {
    const auto check = [words](const std::string& text) {
        const bool is_found = std::find(words.begin(), words.end(), text) != words.end();
        return is_found ? std::string() : "\"" + text + "\": write " + joined(words, " or ");
    };
    option->check(check)->type_name(joined(words, "|"));
}

CLI::Validator number_between(double low, double high) {
    const std::string list = plain_number(low) + " to " + plain_number(high);
    const auto check = [low, high, list](std::string& text) {
        char* end = nullptr;
        const double number = std::strtod(text.c_str(), &end);
        const bool is_read = !text.empty() && *end == 0;
        const bool is_within = is_read && number >= low && number <= high;  // not-a-number is neither
        return is_within ? std::string() : "\"" + text + "\" is no number from " + list;
    };
    return {check, list};
}

}  // namespace vorn::kit
