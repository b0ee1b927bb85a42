#include <cmath>
#include <cstdlib>

#include "kit/lint/rules.h"
#include "preproc/constant_text.h"

// A constant comes into a line as a text of three decimals.

namespace vorn::kit::rules {

namespace {

std::string text_of(double value) {
    char text[CONSTANT_TEXT_SIZE];
    FtoA(text, value);
    return text;
}

// Beyond what single precision would have lost anyway.
bool loses_digits(double value, const std::string& text) {
    const double read = std::strtod(text.c_str(), nullptr);
    return std::fabs(read - value) > 1e-6 * std::fmax(1, std::fabs(value));
}

void add_loss(const ConstantRecord& constant, const std::string& text, double value, Findings& findings) {
    Diagnostic diagnostic = findings.at(constant.span);
    diagnostic.text =
        "The constant " + constant.name + " yields " + text + " instead of " + number_text(value) + ".";
    diagnostic.advice.push_back(
        "A text has three decimals; a larger unit, or a macro instead of the constant, keeps more of them.");
    findings.add(std::move(diagnostic));
}

}  // namespace

// One that is only used in equations keeps all of its digits, but for those that an
// equation has lost which defines it.
void digits_lost(const ScoreRun& run, Findings& findings) {
    for (const ConstantRecord& constant : run.constants) {
        const std::string text = text_of(constant.exact_value);
        const bool is_cut_already = constant.value != constant.exact_value;
        if (!is_cut_already && constant.calls == 0) continue;
        if (loses_digits(constant.exact_value, text))
            add_loss(constant, text, constant.exact_value, findings);
    }
}

}  // namespace vorn::kit::rules
