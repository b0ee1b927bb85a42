#include "kit/orchestra/document.h"

// Csound reads each part up to the line that closes it.

namespace vorn::kit {

std::string document_text(const std::string& orchestra, const std::string& score) {
    return "<CsoundSynthesizer>\n<CsOptions>\n-d -odac\n</CsOptions>\n<CsInstruments>\n" + orchestra +
           "</CsInstruments>\n<CsScore bin=\"vorn -s\">\n" + score + "</CsScore>\n</CsoundSynthesizer>\n";
}

}  // namespace vorn::kit
