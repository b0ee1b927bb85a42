#include "output/csound_writer.h"

#include <cstdio>
#include <cstring>

#include "input/messages.h"
#include "output/written_value.h"

// One line for each sounding event, written straight into the output buffer:
//
//     "\ni1    0.000  1.000  7000.000     8.000 "
//
// Every item ends with a blank, the last one too. What a column needs is worked
// out once for the block, so that the loop over the events looks nothing up;
// columns that write nothing ("xx" and codes that are no output types) are left
// out of that plan, blank and all.

namespace vorn {

namespace {

struct Column {
    ValueForm form;
    std::size_t value;  // index in the event's values
};

struct LinePlan {
    char head[16];  // "\ni1 "
    std::size_t head_size;
    ValueForm start;
    ValueForm duration;
    Column columns[MAX_PFIELD_COUNT];  // from P4 on
    std::size_t column_count;
};

constexpr std::size_t LINE_SPACE = (MAX_PFIELD_COUNT + 1) * REAL_TEXT_SIZE;  // more than any line needs

[[nodiscard]] bool plan_pfield(ValueForm& form, const ScoreFormat& format, int pfield) {
    const int setting = pfield - 2;
    return plan_value(form, {pfield, format.out_types[setting], format.decimals[setting],
                             format.fft_sizes[setting], format.sample_rate});
}

void plan_columns(LinePlan& plan, const ScoreFormat& format) {
    plan.column_count = 0;
    for (int pfield = 4; pfield <= format.pfields; ++pfield) {
        Column& column = plan.columns[plan.column_count];
        if (!plan_pfield(column.form, format, pfield)) continue;
        column.value = static_cast<std::size_t>(pfield - 4);
        ++plan.column_count;
    }
}

void plan_line(LinePlan& plan, const ScoreFormat& format) {
    const int size = std::snprintf(plan.head, sizeof plan.head, "\ni%d ", format.instrument);
    plan.head_size = static_cast<std::size_t>(size);
    (void)plan_pfield(plan.start, format, 2);
    (void)plan_pfield(plan.duration, format, 3);
    plan_columns(plan, format);
}

char* write_line(char* to, const LinePlan& plan, const ListNode& event) {
    std::memcpy(to, plan.head, sizeof plan.head);
    to += plan.head_size;
    to = format_real(to, event.start, plan.start.width, plan.start.decimals);
    *to++ = ' ';
    to = format_real(to, event.dur, plan.duration.width, plan.duration.decimals);
    *to++ = ' ';
    for (std::size_t i = 0; i < plan.column_count; ++i) {
        const Column& column = plan.columns[i];
        to = write_value(to, column.form, event.pf[column.value]);
        *to++ = ' ';
    }
    return to;
}

}  // namespace

bool print_csound(ListNode*& list, OutputFile& out, const ScoreFormat& format, EventCounts counts) {
    if (list == nullptr) return false;
    if (!RemoveRests(list, counts)) {
        Mprintf("\n\nOops i-block %d is all rests (check p2=0 and p3 != 400+n OR 1000+n?)! ",
                format.instrument);
        return false;
    }
    LinePlan plan;
    plan_line(plan, format);
    const ListNode* event = list;
    do {
        event = event->next;
        char* line = output_space(out, LINE_SPACE);
        output_advance(out, static_cast<std::size_t>(write_line(line, plan, *event) - line));
    } while (event != list);
    output_char(out, '\n');
    return true;
}

}  // namespace vorn
