#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "blocks/block_state.h"
#include "blocks/command_codes.h"
#include "blocks/statement.h"
#include "driver/reset.h"
#include "generators/ddf.h"
#include "generators/random.h"
#include "input/line_buffer.h"
#include "input/messages.h"
#include "input/reader.h"
#include "input/run_flags.h"
#include "output/event_list.h"
#include "output/tempo_map.h"
#include "output/value_queue.h"
#include "support/draws.h"

namespace vorn::test {

// A score text as the readers see it, its first line fetched.
class ScoreText {
public:
    explicit ScoreText(const std::string& text) {
        reader.stream = std::tmpfile();
        std::fwrite(text.data(), 1, text.size(), reader.stream);
        std::rewind(reader.stream);
        static_cast<void>(get_buff(reader));
    }
    ~ScoreText() { std::fclose(reader.stream); }
    ScoreText(const ScoreText&) = delete;
    ScoreText& operator=(const ScoreText&) = delete;

    // The line from the position on, without the blank that a line end leaves.
    std::string rest() const {
        std::string text = reader.text + reader.pos;
        while (!text.empty() && text.back() == ' ') text.pop_back();
        return text;
    }

    Reader reader;
};

// One block at tempo 60 in which a test runs data-defining functions. What they
// print is caught, and the random sequence starts anew with seed 1.
class DdfBlock : public testing::Test {
protected:
    DdfBlock() : out_(std::tmpfile()), err_(std::tmpfile()) {
        reset_program();
        std_out = out_;
        std_err = err_;
    }
    ~DdfBlock() override {
        FreeQNodes(statement.queue);
        reset_program();
        std::fclose(out_);
        std::fclose(err_);
    }

    // P2 of a block that starts at `start` and lasts `length` beats, or minus so many events.
    void begin_starts(float length, float start = 0, int pfields = 6) {
        MAX_PFIELDS = pfields;
        STIME = SBEAT = CBEATS = start;
        ETIME = length;
        EVENTS = length < 0 ? static_cast<std::uint64_t>(-length) : 0;
        begin_statement(2);
    }

    // P4 of a block of `count` events, one per beat from `start` on.
    void begin_values(int count, float start = 0, int pfields = 6) {
        begin_starts(-static_cast<float>(count), start, pfields);
        for (int i = 0; i < count; ++i) {
            ASSERT_TRUE(InsertBegTime(note_list, MAX_PFIELDS, IS_FUSED, 1.0F, start, CBEATS));
            CBEATS += 1.0F;
        }
        DID_P[2] = DID_P[3] = 1;
        begin_statement(4);
    }

    // As after the head of a p-field statement.
    void begin_statement(int pfield) {
        P_NO = pfield;
        EVENT_NO = 0;
        IN_TYPE = OUT_TYPE = CODE_RE;
        IS_FUSED = IN_LOOP = WROTE_DATA = 0;
        PFACTOR = 1;
        MAX_DEV2 = 0;
        FreeQNodes(statement.queue);
        statement = Statement{};
        if (pfield > 2) statement.cursor = LUT = note_list;
    }

    // Runs a function written as "(...)"; what follows it is in `rest`.
    int run(DdfKind kind, const std::string& text) {
        ScoreText score(text);
        const int result = do_DDF(kind, score.reader, statement);
        rest = score.rest();
        return result;
    }
    int run_S2(const std::string& text) {
        ScoreText score(text);
        const int result = do_S2(score.reader, statement);
        rest = score.rest();
        return result;
    }

    // The values of a p-field from the head of the list on; P2 is the start, P3 the duration.
    static std::vector<float> column(int pfield) {
        return collect([pfield](const ListNode& event) {
            if (pfield == 2) return event.start;
            return pfield == 3 ? event.dur : event.pf[pfield - 4];
        });
    }
    static std::vector<float> beats() {
        return collect([](const ListNode& event) { return event.beat; });
    }
    static std::vector<float> codes() {
        return collect([](const ListNode& event) { return static_cast<float>(event.code); });
    }

    // The loop queue as value and code in turns.
    std::vector<float> queued() const {
        std::vector<float> values;
        if (statement.queue == nullptr) return values;
        const QNode* node = statement.queue;
        do {
            node = node->next;
            values.push_back(node->value);
            values.push_back(static_cast<float>(node->code));
        } while (node != statement.queue);
        return values;
    }

    // Numbers taken from the sequence of seed 1 so far.
    static int draws() {
        const RandomState saved = random_state;
        const std::int32_t taken = draws_from_here();
        random_state = saved;
        return taken;
    }

    // What has been printed since the last call.
    std::string printed() { return caught(out_); }
    std::string messages() { return caught(err_); }

    Statement statement;
    std::string rest;

private:
    template <typename Part>
    static std::vector<float> collect(Part part) {
        std::vector<float> values;
        const ListNode* node = note_list;
        if (node == nullptr) return values;
        do {
            node = node->next;
            values.push_back(part(*node));
        } while (node != note_list);
        return values;
    }

    static std::int32_t draws_from_here() {
        const std::int32_t next[] = {rand(), rand(), rand()};
        const std::vector<std::int32_t> numbers = reference_sequence(1, 20000);
        for (std::size_t i = 0; i + 2 < numbers.size(); ++i) {
            if (numbers[i] == next[0] && numbers[i + 1] == next[1] && numbers[i + 2] == next[2]) {
                return static_cast<std::int32_t>(i);
            }
        }
        return MANY_DRAWS;
    }

    static std::string caught(std::FILE* stream) {
        std::string text(static_cast<std::size_t>(std::ftell(stream)), '\0');
        std::rewind(stream);
        text.resize(std::fread(text.data(), 1, text.size(), stream));
        std::rewind(stream);
        return text;
    }

    std::FILE* out_;
    std::FILE* err_;
};

using Values = std::vector<float>;

}  // namespace vorn::test
