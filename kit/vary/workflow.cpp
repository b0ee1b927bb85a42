#include "kit/vary/workflow.h"

#include <nlohmann/json.hpp>

// Names stand in the settings alone, as JSON, and reach the shell through Snakemake's
// own quoting (":q"): whatever a name holds, the rules are the same text. Status 1 of
// a variant, a score refused with this seed, is part of its record and stops nothing.

namespace vorn::kit {

namespace {

constexpr const char* RULES =
    R"snake(# The variants of a score and the page that shows them, as `vornkit vary` makes them, on as
# many processors and machines as Snakemake is given. Run it where vornkit was run:
#
#     snakemake --snakefile FOLDER/Snakefile --cores all
#
# config.json beside this file says what is made. Another program than the vornkit of the
# search path: --config vornkit=/its/path
import os


configfile: os.path.join(workflow.basedir, "config.json")


FOLDER = config["folder"]
COMMAND = [config["vornkit"]] + config["arguments"]
NUMBERS = range(config["first"], config["first"] + config["count"])


localrules:
    all,
    sheet,


rule all:
    input:
        os.path.join(FOLDER, "index.html"),


rule sheet:
    input:
        [os.path.join(FOLDER, "variants", str(number)) for number in NUMBERS],
    output:
        os.path.join(FOLDER, "index.html"),
    params:
        command=COMMAND,
    shell:
        "{params.command:q} || [ $? -eq 1 ]"


rule variant:
    input:
        lambda wildcards: config["inputs"],
    output:
        directory(os.path.join(FOLDER, "variants", "{number}")),
    wildcard_constraints:
        number="[0-9]+",
    params:
        command=COMMAND,
    shell:
        "{params.command:q} --only {wildcards.number} || [ $? -eq 1 ]"
)snake";

using nlohmann::ordered_json;

bool is_utf8(const std::string& text) {
    const std::string written =
        ordered_json(text).dump(-1, ' ', false, ordered_json::error_handler_t::replace);
    return ordered_json::parse(written).get<std::string>() == text;
}

}  // namespace

std::string snakefile() { return RULES; }

std::string workflow_settings(const Workflow& workflow) {
    ordered_json settings;
    settings["vornkit"] = "vornkit";
    settings["arguments"] = workflow.arguments;
    settings["folder"] = workflow.folder;
    settings["inputs"] = workflow.inputs;
    settings["first"] = workflow.first;
    settings["count"] = workflow.count;
    return settings.dump(2, ' ', false, ordered_json::error_handler_t::replace) + "\n";
}

std::string workflow_hindrance(const Workflow& workflow) {
    if (workflow.folder.find_first_of("{}") != std::string::npos) {
        return "\"" + workflow.folder + "\": Snakemake takes \"{\" in the name of a folder for a pattern";
    }
    for (const auto* const names : {&workflow.inputs, &workflow.arguments}) {
        for (const std::string& name : *names) {
            if (!is_utf8(name))
                return "\"" + name + "\" is not UTF-8, which the settings of a workflow are written in";
        }
    }
    return {};
}

}  // namespace vorn::kit
