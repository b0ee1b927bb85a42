#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <optional>
#include <sstream>
#include <string>

#include "blocks/block_state.h"
#include "blocks/iblock.h"
#include "blocks/pfield.h"
#include "driver/reset.h"
#include "input/line_buffer.h"
#include "input/reader.h"
#include "output/event_list.h"
#include "support/message_capture.h"

// What the tests of blocks share: a reader over a text, the messages that come
// of it, and the events of a block as text.

namespace vorn::test {

class BlockTest : public testing::Test {
protected:
    BlockTest() {
        reset_program();
        capture_.emplace();
    }
    ~BlockTest() override {
        free_stream();
        capture_.reset();
        reset_program();
    }

    // Makes the text the input. With its first line fetched, pos at its beginning.
    void open(const std::string& text) {
        free_stream();
        reader.stream = std::tmpfile();
        std::fwrite(text.data(), 1, text.size(), reader.stream);
        std::rewind(reader.stream);
        reader.pos = 0;
        reader.line = 0;
        reader.text[0] = 0;
    }
    void feed(const std::string& text) {
        open(text);
        ASSERT_EQ(get_buff(reader), 0);
    }

    // Reads one block, whose "i" opens the text.
    int read_block(const std::string& text) {
        feed(text);
        return parse_iblock(reader);
    }

    // Reads the data of the statement of P(number) in the block that is there.
    int run_statement(int number, const std::string& data) {
        P_NO = number;
        reset_pfield();
        feed(data + "}");
        return do_pfield(reader);
    }

    std::string messages() { return capture_->text(); }

    // What stands behind pos on the line, without the blank that a line end leaves.
    std::string rest() const {
        std::string text = reader.text + reader.pos;
        while (text.ends_with(' ')) text.pop_back();
        return text;
    }

    // The events of a block of `count`, one second apart from 0 on, P2 to `pfields`.
    static void make_events(int count, int pfields) {
        MAX_PFIELDS = pfields;
        ASSERT_TRUE(allocate_output_settings());
        for (int i = 0; i < count; ++i) {
            const auto beat = static_cast<float>(i);
            ASSERT_TRUE(InsertBegTime(note_list, pfields, IS_FUSED, 1.0F, 0.0F, beat));
        }
        EVENTS = static_cast<std::uint64_t>(count);
        ETIME = -static_cast<float>(count);
    }

    // "start dur code [P4 ...]" for each event, divided by ", "; P4 and up as many as there are.
    static std::string events(int pfields = MAX_PFIELDS) {
        std::ostringstream text;
        if (note_list == nullptr) return "none";
        const ListNode* node = note_list;
        do {
            node = node->next;
            text << (text.tellp() > 0 ? ", " : "") << node->start << ' ' << node->dur << ' ' << node->code;
            for (int n = 4; n <= pfields; ++n) text << ' ' << node->pf[n - 4];
        } while (node != note_list);
        return text.str();
    }

    // One p-field of every event, divided by blanks.
    static std::string pfield(int number) {
        std::ostringstream text;
        if (note_list == nullptr) return "none";
        const ListNode* node = note_list;
        do {
            node = node->next;
            const float value = number == 2 ? node->start : number == 3 ? node->dur : node->pf[number - 4];
            text << (text.tellp() > 0 ? " " : "") << value;
        } while (node != note_list);
        return text.str();
    }

    Reader reader;

private:
    void free_stream() {
        if (reader.stream != nullptr) std::fclose(reader.stream);
        reader.stream = nullptr;
    }

    std::optional<MessageCapture> capture_;
};

}  // namespace vorn::test
