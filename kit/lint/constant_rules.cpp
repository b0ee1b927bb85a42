#include <cmath>
#include <cstdlib>

#include "kit/lint/rules.h"
#include "preproc/constant_text.h"

// Constants and equations come into a line as texts of three decimals.

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

// One that is only used in equations keeps all of its digits, but for those that an
// equation has lost which defines it.
void check_loss(const ConstantRecord& constant, Findings& findings) {
    const bool is_cut_already = constant.value != constant.exact_value;
    const std::string text = text_of(constant.exact_value);
    if (!is_cut_already && constant.calls == 0) return;
    if (!loses_digits(constant.exact_value, text)) return;
    Diagnostic diagnostic = findings.at(constant.span);
    diagnostic.text = (constant.name.empty() ? "The equation" : "The constant " + constant.name) +
                      " yields " + text + " instead of " + number_text(constant.exact_value) + ".";
    diagnostic.advice.push_back("A text has three decimals; a larger unit, or a number instead, keeps more.");
    findings.add(std::move(diagnostic));
}

}  // namespace

void digits_lost(const ScoreRun& run, Findings& findings) {
    for (const ConstantRecord& constant : run.constants) check_loss(constant, findings);
    for (const ConstantRecord& equation : run.equations) check_loss(equation, findings);
}

}  // namespace vorn::kit::rules
