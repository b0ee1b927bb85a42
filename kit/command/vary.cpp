#include <algorithm>
#include <charconv>
#include <filesystem>
#include <memory>
#include <sstream>

#include "kit/command/console.h"
#include "kit/command/keep_variants.h"
#include "kit/command/option_checks.h"
#include "kit/command/process.h"
#include "kit/command/progress.h"
#include "kit/command/score_input.h"
#include "kit/command/subcommands.h"
#include "kit/command/vary_folder.h"
#include "kit/vary/fingerprint.h"

// vornkit vary: the same piece with other seeds, or with other values of a constant,
// and a page to choose from.
//
//     score  --run once-->  where the value stands  --workers-->  variants  -->  page
//
// A variant that is whole and made from the same is not made again: the same command
// goes on where it was interrupted, and makes everything anew when the score changes.

namespace vorn::kit {

namespace {

constexpr unsigned MOST_VARIANTS = MAX_SEED;
constexpr std::size_t MOST_LISTED = 10;
constexpr const char* MAKE = "2";  // changes when variants are made in another way

struct VaryArguments {
    std::string score;
    std::string folder;
    unsigned long count = 0;  // 0: not given
    unsigned long first = 1;
    unsigned long jobs = 0;  // 0: one a processor
    std::string assignment;
    std::string orchestra;
    std::string only;
    std::string keep;
    bool relative = false;
    bool writes_workflow = false;
};

// --- what is asked for ---

// "17", "17,403", "17-20,403". Empty: the text is no list of such numbers.
std::vector<unsigned> read_numbers(const std::string& text) {
    std::vector<unsigned> numbers;
    const char* at = text.c_str();
    const char* const end = at + text.size();
    for (bool is_over = text.empty(); !is_over; ++at) {
        unsigned from = 0;
        auto read = std::from_chars(at, end, from);
        unsigned to = from;
        if (read.ec == std::errc() && read.ptr != end && *read.ptr == '-') {
            read = std::from_chars(read.ptr + 1, end, to);
        }
        if (read.ec != std::errc() || to < from || to > MOST_VARIANTS) return {};
        for (unsigned number = from; number <= to; ++number) numbers.push_back(number);
        at = read.ptr;
        is_over = at == end;
        if (!is_over && *at != ',') return {};
    }
    return numbers;
}

std::string check_counts(const VaryArguments& arguments, const std::optional<Range>& range) {
    if (arguments.first + arguments.count - 1 > MAX_SEED) {
        return "seeds go up to " + std::to_string(MAX_SEED) + "; " + std::to_string(arguments.count) +
               " from " + std::to_string(arguments.first) + " on are too many";
    }
    const std::size_t most = range ? whole_numbers(*range) : 0;
    if (most == 0 || arguments.count <= most) return {};
    return "there are only " + std::to_string(most) + " whole numbers in " + arguments.assignment +
           "; ask for fewer with --count, or write a decimal point";
}

// Takes "--set" and the counts into the plan; the reason when they make no sense.
std::string take_counts(VaryPlan& plan, VaryArguments& arguments, std::string& name) {
    if (!arguments.assignment.empty()) {
        const Assignment assignment = read_assignment(arguments.assignment);
        if (!assignment.error.empty()) return "--set " + assignment.error;
        name = assignment.name;
        plan.range = assignment.range;
    }
    if (std::string reason = check_counts(arguments, plan.range); !reason.empty()) return reason;
    plan.first = static_cast<unsigned>(arguments.first);
    plan.count = static_cast<unsigned>(arguments.count);
    return {};
}

std::string check_use(const VaryArguments& arguments) {
    if (arguments.keep.empty() && arguments.folder.empty())
        return "say with -o in which folder the variants go";
    if (arguments.writes_workflow && arguments.score == "-") return "a workflow needs a score that is a file";
    if (!arguments.only.empty() && read_numbers(arguments.only).empty()) {
        return "--only \"" + arguments.only + "\": write numbers, as 17 or 17,403 or 17-20";
    }
    if (!arguments.keep.empty() && read_numbers(arguments.keep).empty()) {
        return "--keep \"" + arguments.keep + "\": write numbers, as 17 or 17,403 or 17-20";
    }
    return {};
}

// --- the plan ---

void take_texts(VaryPlan& plan, const ScoreRun& run) {
    for (const SourceFile& file : run.map.files()) plan.texts.emplace(file.name, file.text);
    plan.varied_file = run.map.files()[static_cast<std::size_t>(plan.variation.file)].name;
}

std::string check_orchestra(const VaryPlan& plan) {
    if (plan.orchestra.empty()) return {};
    if (!SystemSources().read(plan.orchestra)) return "cannot read the orchestra \"" + plan.orchestra + "\"";
    return reason_against_program("csound", "csound");
}

std::string fingerprint_inputs(const VaryPlan& plan) {
    const std::string orchestra =
        plan.orchestra.empty() ? "" : SystemSources().read(plan.orchestra).value_or("");
    std::vector<std::string_view> inputs = {MAKE, plan.variation.name, plan.varied_file, plan.orchestra,
                                            orchestra};
    for (const auto& [name, text] : plan.texts) {
        inputs.push_back(name);
        inputs.push_back(text);
    }
    return fingerprint(inputs);
}

void append_option(std::vector<std::string>& words, const std::string& option, const std::string& value) {
    if (value.empty()) return;
    words.push_back(option);
    words.push_back(value);
}

VaryWords words_of(const VaryArguments& arguments) {
    const bool has_dash = arguments.score.size() > 1 && arguments.score[0] == '-';
    VaryWords words;
    words.choice = {"vary", (has_dash ? "./" : "") + arguments.score};
    if (arguments.relative) words.choice.push_back("--relative");
    words.whole = words.choice;
    append_option(words.whole, "-o", arguments.folder);
    append_option(words.whole, "--count", std::to_string(arguments.count));
    append_option(words.whole, "--first", std::to_string(arguments.first));
    append_option(words.whole, "--set", arguments.assignment);
    append_option(words.whole, "--render", arguments.orchestra);
    append_option(words.whole, "--jobs", "1");
    if (arguments.assignment.empty()) return words;
    append_option(words.choice, "--count", std::to_string(arguments.count));
    if (arguments.first != 1) append_option(words.choice, "--first", std::to_string(arguments.first));
    append_option(words.choice, "--set", arguments.assignment);
    return words;
}

// --- the work ---

struct Failure {
    unsigned number;
    Outcome outcome;
    std::string reason;
};

struct Work {
    std::vector<Failure> failures;
    int ended_by = 0;  // a signal
};

// Variants that were refused before and would be refused again are told again.
std::vector<unsigned> unfinished(const VaryPlan& plan, const std::vector<unsigned>& numbers, Work& work) {
    std::vector<unsigned> left;
    for (const unsigned number : numbers) {
        const std::optional<VariantRecord> record = finished_variant(plan, number);
        if (!record || record->state == VariantState::SILENT) {
            left.push_back(number);
        } else if (record->state == VariantState::REFUSED) {
            work.failures.push_back({number, Outcome::REFUSED, record->message});
        }
    }
    return left;
}

Work make_variants(const VaryPlan& plan, const std::vector<unsigned>& numbers, std::size_t jobs) {
    Work work;
    const std::vector<unsigned> left = unfinished(plan, numbers, work);
    Progress progress("making variants");
    std::size_t done = 0;
    progress.tell(done, left.size());
    WorkerOptions options;
    options.tasks = left.size();
    options.processes = jobs;
    options.work = [&](std::size_t task) {
        TaskResult result = make_variant(plan, left[task]);
        result.task = task;
        return result;
    };
    options.report = [&](const TaskResult& result) {
        progress.tell(++done, left.size());
        if (result.outcome == Outcome::WELL) return;
        work.failures.push_back({left[result.task], result.outcome, result.reason});
    };
    work.ended_by = run_workers(options);
    std::sort(work.failures.begin(), work.failures.end(),
              [](const Failure& a, const Failure& b) { return a.number < b.number; });
    return work;
}

// Each line with the variant that it is about; what holds of many in turn is told once.
void tell_failure(const Failure& failure, const Failure* before) {
    const std::string variant = "variant " + std::to_string(failure.number) + ": ";
    if (before != nullptr && before->reason == failure.reason) {
        return complain(variant + "the same as variant " + std::to_string(before->number));
    }
    std::istringstream lines(failure.reason);
    std::string line;
    do {
        std::getline(lines, line);
        complain(variant + line);
    } while (!lines.eof());
}

Outcome tell_failures(const std::vector<Failure>& failures) {
    Outcome outcome = Outcome::WELL;
    for (std::size_t at = 0; at < failures.size(); ++at) {
        outcome = std::max(outcome, failures[at].outcome);
        if (at < MOST_LISTED) tell_failure(failures[at], at == 0 ? nullptr : &failures[at - 1]);
    }
    if (failures.size() > MOST_LISTED) {
        complain("and " + std::to_string(failures.size() - MOST_LISTED) + " more variants");
    }
    return outcome;
}

std::vector<unsigned> all_numbers(const VaryPlan& plan) {
    std::vector<unsigned> numbers(plan.count);
    for (unsigned at = 0; at < plan.count; ++at) numbers[at] = plan.first + at;
    return numbers;
}

[[noreturn]] void tell_interruption(const VaryPlan& plan, int signal) {
    std::size_t whole = 0;
    for (const unsigned number : all_numbers(plan)) whole += finished_variant(plan, number) ? 1U : 0U;
    complain("interrupted: " + std::to_string(whole) + " of " + std::to_string(plan.count) +
             " variants are whole; the same command goes on with the others");
    end_by_signal(signal);
}

// Says so when the choice is none.
void tell_alike(const VaryPlan& plan) {
    std::string score;
    for (const unsigned number : all_numbers(plan)) {
        const std::optional<VariantRecord> record = finished_variant(plan, number);
        if (!record || record->state == VariantState::REFUSED) return;
        if (!score.empty() && score != record->score) return;
        score = record->score;
    }
    if (plan.count > 1) {
        complain("note: all variants are alike: nothing in the score depends on " +
                 (plan.range ? plan.variation.name : std::string("the seed")));
    }
}

Outcome make_all(const VaryPlan& plan, const VaryArguments& arguments) {
    const bool is_part = !arguments.only.empty();
    const std::size_t jobs = arguments.jobs > 0 ? arguments.jobs : usual_processes();
    const std::vector<unsigned> numbers = is_part ? read_numbers(arguments.only) : all_numbers(plan);
    for (const unsigned number : numbers) {
        if (number >= plan.first && number < plan.first + plan.count) continue;
        return wrong_use("there is no variant " + std::to_string(number) + " among these " +
                         std::to_string(plan.count));
    }
    const Work work = make_variants(plan, numbers, jobs);
    if (work.ended_by != 0) tell_interruption(plan, work.ended_by);
    const Outcome outcome = tell_failures(work.failures);
    if (is_part) return outcome;
    std::string reason;
    if (!write_sheet(plan, words_of(arguments), reason)) return wrong_use(reason);
    tell_alike(plan);
    return outcome;
}

Outcome keep_chosen(const VaryPlan& plan, const VaryArguments& arguments) {
    const std::vector<unsigned> numbers = read_numbers(arguments.keep);
    const unsigned behind = plan.range ? plan.first + plan.count : MAX_SEED + 1;
    const unsigned first = plan.range ? plan.first : 0;
    for (const unsigned number : numbers) {
        if (number >= first && number < behind) continue;
        return wrong_use("--keep " + std::to_string(number) + ": there is no such variant");
    }
    return keep_variants(plan, numbers, arguments.folder);
}

Outcome go(VaryPlan& plan, const VaryArguments& arguments) {
    if (!arguments.keep.empty()) return keep_chosen(plan, arguments);
    plan.folder = arguments.folder;
    plan.orchestra = arguments.orchestra;
    if (const std::string reason = check_orchestra(plan); !reason.empty()) return wrong_use(reason);
    plan.inputs = fingerprint_inputs(plan);
    std::string reason;
    if (!claim_folder(plan, reason)) return wrong_use(reason);
    if (!arguments.writes_workflow) return make_all(plan, arguments);
    return write_workflow(plan, words_of(arguments), reason) ? Outcome::WELL : wrong_use(reason);
}

constexpr unsigned long USUAL_COUNT = 24;

Outcome vary(VaryArguments arguments) {
    VaryPlan plan;
    std::string name;
    if (arguments.assignment.empty() && !arguments.keep.empty()) arguments.count = 1;  // seeds need no count
    if (const std::string reason = check_use(arguments); !reason.empty()) return wrong_use(reason);
    if (const std::string reason = take_counts(plan, arguments, name); !reason.empty())
        return wrong_use(reason);
    const ScoreInput input(arguments.score, arguments.relative);
    if (!input.is_well()) return input.outcome();
    plan.score = arguments.score;
    plan.relative = arguments.relative;
    plan.variation = plan.range ? find_name(input.run(), name) : find_seed(input.run());
    if (!plan.variation.error.empty()) return wrong_use(plan.variation.error);
    take_texts(plan, input.run());
    return go(plan, arguments);
}

}  // namespace

void add_vary(CLI::App& app, Outcome& outcome) {
    CLI::App* const command =
        app.add_subcommand("vary", "makes the same piece with other seeds or values, to choose from");
    command->footer(
        "Example: vornkit vary piece.vorn --count 1000 --render piece.orc -o variants\n"
        "         vornkit vary piece.vorn --count 9 --set TEMPO=60..120 -o tempi\n"
        "         vornkit vary piece.vorn --keep 17,403\n"
        "The page to choose from is index.html in the folder.");
    const auto arguments = std::make_shared<VaryArguments>();
    arguments->count = USUAL_COUNT;
    command->add_option("SCORE", arguments->score, "the score; - is standard input")->required();
    command->add_option("-o,--output", arguments->folder, "the folder of the variants")->type_name("FOLDER");
    command->add_option("--count", arguments->count, "how many")
        ->capture_default_str()
        ->check(number_between(1, MOST_VARIANTS));
    command->add_option("--first", arguments->first, "the first number, which is a seed")
        ->capture_default_str()
        ->check(number_between(0, MAX_SEED));
    command->add_option("--set", arguments->assignment, "vary this constant or macro and not the seed")
        ->type_name("NAME=from..to");
    command->add_option("--render", arguments->orchestra, "let Csound render a sound of each")
        ->type_name("ORC");
    command->add_option("--jobs", arguments->jobs, "processes at a time; default: one a processor")
        ->check(CLI::Range(1, 256));
    command->add_option("--only", arguments->only, "make these variants alone, and no page")
        ->type_name("N,...");
    command->add_option("--keep", arguments->keep, "write the scores of these, beside the score or to -o")
        ->type_name("N,...");
    command->add_flag("--snakemake", arguments->writes_workflow,
                      "write a Snakemake workflow, and run nothing");
    command->add_flag("--relative", arguments->relative, "look includes up beside the including file");
    command->callback([arguments, &outcome] { outcome = vary(*arguments); });
}

}  // namespace vorn::kit
