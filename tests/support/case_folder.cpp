#include "support/case_folder.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <regex>
#include <sstream>
#include <stdexcept>

#include "support/midi_dump.h"

// A case is compared as a set of texts under the names of its expectation
// files. A missing expectation stands for the plainest outcome: status 0,
// nothing on standard output, no (or an empty) score, log and expansion file,
// and on standard error nothing but the figures of the blocks.

namespace vorn::test {

namespace fs = std::filesystem;

namespace {

constexpr std::array EXPECTATIONS = {"expected.status", "expected.out", "expected.err", "expected.score",
                                     "expected.midi",   "expected.log", "expected.exp"};

constexpr std::size_t SHOWN_WIDTH = 160;  // characters of a line in a report
constexpr const char* NO_LINE_FEED = "(no line feed)";

bool is_expectation(const std::string& name) {
    return std::find(EXPECTATIONS.begin(), EXPECTATIONS.end(), name) != EXPECTATIONS.end();
}

// Words divided by white space; between quotes of either kind white space is kept.
Arguments split_words(const std::string& text) {
    static const std::regex word(R"re("([^"]*)"|'([^']*)'|(\S+))re");
    Arguments words;
    for (std::sregex_iterator it(text.begin(), text.end(), word), end; it != end; ++it) {
        words.push_back((*it)[1].str() + (*it)[2].str() + (*it)[3].str());
    }
    return words;
}

// The file named by option -l or -x, attached or as the next argument; empty without one.
std::string option_file(const Arguments& arguments, const std::string& option) {
    for (std::size_t i = 0; i < arguments.size() && arguments[i].starts_with("-"); ++i) {
        if (!arguments[i].starts_with(option)) continue;
        if (arguments[i].size() > option.size()) return arguments[i].substr(option.size());
        return i + 1 < arguments.size() ? arguments[i + 1] : "";
    }
    return "";
}

bool makes_midi(const Arguments& arguments) {
    return std::any_of(arguments.begin(), arguments.end(),
                       [](const std::string& word) { return word.starts_with("-m"); });
}

std::string file_or_nothing(const Texts& files, const std::string& name) {
    const auto found = files.find(name);
    return found == files.end() ? "" : found->second;
}

// Messages are compared behind the banner, unless the expectation shows the banner too.
std::string messages(const Case& a_case, const std::string& name, const std::string& text) {
    const bool with_banner = file_or_nothing(a_case.expected, name).starts_with("\nVorn (");
    const std::string fixed = without_chance(text);
    return with_banner ? fixed : behind_banner(fixed);
}

// The lines without their line feeds; behind a last line that has none stands a note.
std::vector<std::string> lines_of(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    if (!text.empty() && text.back() != '\n') lines.push_back(NO_LINE_FEED);
    return lines;
}

std::string visible(const std::string& line) {
    std::ostringstream shown;
    for (const char c : line.substr(0, SHOWN_WIDTH)) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 32 || byte > 126) {
            constexpr const char* DIGITS = "0123456789abcdef";
            shown << "\\x" << DIGITS[byte / 16] << DIGITS[byte % 16];
        } else {
            shown << c;
        }
    }
    if (line.size() > SHOWN_WIDTH) shown << "... (" << line.size() << " characters)";
    return shown.str();
}

void show_lines(std::ostream& report, const char* title, const std::vector<std::string>& lines,
                std::size_t differing) {
    report << "  " << title << ":\n";
    const std::size_t first = differing < 3 ? 0 : differing - 3;
    const std::size_t last = std::min(lines.size(), differing + 4);
    for (std::size_t i = first; i < last; ++i) {
        report << (i == differing ? "  > " : "    ") << i + 1 << ": " << visible(lines[i]) << '\n';
    }
    if (differing >= lines.size()) report << "  > (ends before line " << differing + 1 << ")\n";
}

// The lines around the first one that differs, of both texts.
std::string difference(const std::string& name, const std::string& expected, const std::string& actual) {
    const std::vector<std::string> wanted = lines_of(expected);
    const std::vector<std::string> got = lines_of(actual);
    std::size_t line = 0;
    while (line < wanted.size() && line < got.size() && wanted[line] == got[line]) ++line;
    std::size_t column = 0;
    if (line < wanted.size() && line < got.size()) {
        const std::size_t shorter = std::min(wanted[line].size(), got[line].size());
        while (column < shorter && wanted[line][column] == got[line][column]) ++column;
    }
    std::ostringstream report;
    report << name << " differs from line " << line + 1 << ", column " << column + 1 << " on\n";
    show_lines(report, "expected", wanted, line);
    show_lines(report, "actual", got, line);
    return report.str();
}

std::string stray_files(const Case& a_case, const RunResult& result) {
    Texts files = result.files;
    for (const auto& [name, bytes] : a_case.inputs) {
        const auto found = files.find(name);
        if (found == files.end() || found->second != bytes) return name + " was changed by the run\n";
        files.erase(found);
    }
    const Arguments& arguments = a_case.arguments;
    if (!arguments.empty()) files.erase(arguments.back());
    files.erase(option_file(arguments, "-l"));
    files.erase(option_file(arguments, "-x"));
    return files.empty() ? "" : "the run left " + files.begin()->first + " behind\n";
}

}  // namespace

std::vector<std::string> find_cases(const fs::path& root) {
    std::vector<std::string> names;
    for (const fs::directory_entry& feature : fs::directory_iterator(root)) {
        if (!feature.is_directory())
            throw std::runtime_error(feature.path().string() + " is no feature's folder");
        for (const fs::directory_entry& entry : fs::directory_iterator(feature)) {
            names.push_back((feature.path().filename() / entry.path().filename()).string());
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

Case load_case(const fs::path& root, const std::string& name) {
    Case a_case{name, {"in.vorn", "out.sco"}, {}, {}};
    const fs::path folder = root / name;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
        const std::string file = entry.path().lexically_relative(folder).string();
        const std::string suffix = entry.path().extension().string();
        if (entry.is_directory()) continue;
        if (file == "args") {
            a_case.arguments = split_words(read_file(entry.path()));
        } else if (is_expectation(file)) {
            a_case.expected[file] = read_file(entry.path());
        } else if (suffix == ".vorn" || suffix == ".inc") {
            a_case.inputs[file] = read_file(entry.path());
        } else {
            throw std::runtime_error("nobody reads " + name + "/" + file);
        }
    }
    return a_case;
}

void write_inputs(const Case& a_case, const WorkFolder& folder) {
    for (const auto& [name, bytes] : a_case.inputs) {
        fs::create_directories((folder.path() / name).parent_path());
        folder.write(name, bytes);
    }
}

Texts actual_texts(const Case& a_case, const RunResult& result) {
    const Arguments& arguments = a_case.arguments;
    const std::string output = arguments.empty() ? "" : file_or_nothing(result.files, arguments.back());
    Texts texts;
    texts["expected.status"] = std::to_string(result.status) + "\n";
    texts["expected.out"] = without_chance(result.out);
    texts["expected.err"] = messages(a_case, "expected.err", result.err);
    texts[makes_midi(arguments) ? "expected.midi" : "expected.score"] =
        makes_midi(arguments) && !output.empty() ? midi_dump(output) : output;
    const std::string log = file_or_nothing(result.files, option_file(arguments, "-l"));
    texts["expected.log"] = messages(a_case, "expected.log", log);
    texts["expected.exp"] = file_or_nothing(result.files, option_file(arguments, "-x"));
    return texts;
}

std::string problems(const Case& a_case, const RunResult& result) {
    std::string report = a_case.expected.empty() ? "the case expects nothing\n" : "";
    report += stray_files(a_case, result);
    Texts actual = actual_texts(a_case, result);
    for (const char* name : EXPECTATIONS) {
        const std::string plain = std::string(name) == "expected.status" ? "0\n" : "";
        const auto expected = a_case.expected.find(name);
        const std::string& wanted = expected == a_case.expected.end() ? plain : expected->second;
        if (expected == a_case.expected.end() && std::string(name) == "expected.err") {
            if (is_quiet(actual[name])) continue;
        }
        if (wanted != actual[name]) report += difference(name, wanted, actual[name]);
    }
    return report;
}

bool is_quiet(const std::string& err) {
    static const std::regex figures(
        "|[0-9]+ events generated in block #[0-9]+ \\(i[0-9]+\\)\\."
        "|Total i-block duration: +[0-9.]+ \\(secs\\), +[0-9.]+ \\(beats\\)"
        "|Cumulative i-block duration: +[0-9.]+ \\(secs\\)"
        "|Global cumulative duration of all i-blocks = +[0-9.]+ \\(secs\\)");
    std::istringstream stream(err);
    for (std::string line; std::getline(stream, line);) {
        if (!std::regex_match(line, figures)) return false;
    }
    return true;
}

}  // namespace vorn::test
