#include "kit/command/pfield_option.h"

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

}  // namespace

CLI::Validator pfield_name() { return {check_pfield, "P-FIELD"}; }

}  // namespace vorn::kit
