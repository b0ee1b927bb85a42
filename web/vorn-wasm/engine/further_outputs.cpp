#include "web/vorn-wasm/engine/further_outputs.h"

#include "kit/events/events_csv.h"
#include "kit/events/events_json.h"
#include "kit/midi/midi_bytes.h"
#include "kit/orchestra/built_in.h"

// Each is a text that is made of the finished run.

namespace vorn::web {

namespace {

class StringSink final : public kit::TextSink {
public:
    bool take(std::string_view piece) override {
        text += piece;
        return true;
    }

    std::string text;
};

template <typename Write>
std::string table_text(const Compilation& compilation, const Request& request, Write write) {
    StringSink sink;
    static_cast<void>(write(compilation.run, request.events, sink));  // the sink takes everything
    return std::move(sink.text);
}

void make_midi(Compilation& compilation, const Request& request) {
    kit::MidiOptions options;
    options.roles = request.roles;
    const kit::MidiNotes notes = kit::midi_notes(compilation.run, options);
    compilation.midi_remarks = notes.remarks;
    if (notes.error.empty()) {
        compilation.texts["fullMidi"] = kit::midi_bytes(notes, request.title);
    } else {
        compilation.midi_remarks.push_back(notes.error);
    }
}

}  // namespace

// Of a refused score only the table that tells of the refusal.
void make_further_outputs(Compilation& compilation, const Request& request) {
    const kit::ScoreRun& run = compilation.run;
    auto& texts = compilation.texts;
    if (request.wants("json")) texts["json"] = table_text(compilation, request, kit::write_events_json);
    if (run.status != 0) return;
    if (request.wants("csv")) texts["csv"] = table_text(compilation, request, kit::write_events_csv);
    if (request.wants("picture")) texts["picture"] = kit::picture(run, request.picture);
    if (request.wants("fullMidi")) make_midi(compilation, request);
    if (request.wants("builtIn")) {
        kit::BuiltIn built_in = kit::built_in(run, request.roles);
        texts["builtInOrchestra"] = std::move(built_in.orchestra);
        texts["builtInScore"] = std::move(built_in.score);
    }
}

}  // namespace vorn::web
