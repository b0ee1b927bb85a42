#include "output/csound_writer.h"

#include <cstdio>
#include <cstring>

#include "blocks/command_codes.h"
#include "generators/arithmetic.h"
#include "input/messages.h"
#include "input/real_text.h"
#include "output/pitch_conversion.h"

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

struct Column;
using ColumnWriter = char* (*)(char* to, const Column& column, float value);

// What is written for one p-field, from P4 on.
struct Column {
    ColumnWriter write;
    std::size_t value;  // index in the event's values
    int width;
    int decimals;
    std::int32_t fft_size;  // size index of type "bn"
    std::uint64_t sample_rate;
};

struct LinePlan {
    char head[16];  // "\ni1 "
    std::size_t head_size;
    int start_decimals;
    int duration_decimals;
    Column columns[MAX_PFIELD_COUNT];
    std::size_t column_count;
};

constexpr int START_WIDTH = 5;                                               // beside the decimals
constexpr int DURATION_WIDTH = 3;                                            // beside the decimals
constexpr std::size_t LINE_SPACE = (MAX_PFIELD_COUNT + 1) * REAL_TEXT_SIZE;  // more than any line needs

char* write_real(char* to, const Column& column, float value) {
    return format_real(to, value, column.width, column.decimals);
}

template <float (*convert)(float)>
char* write_converted(char* to, const Column& column, float value) {
    return format_real(to, convert(value), column.width, column.decimals);
}

char* write_rounded(char* to, const Column& column, float value) {
    return format_integer(to, Round(value), column.width);
}

char* write_bin(char* to, const Column& column, float value) {
    return format_integer(to, cpc_to_bin(column.fft_size, value, column.sample_rate), column.width);
}

float rounded_amp_to_db(float amplitude) { return amp_to_db(Round(amplitude)); }

// For "re" width and decimals are what the p-field's own decimals are added to.
struct OutputConversion {
    int type;
    int width;
    int decimals;
    ColumnWriter write;
};

constexpr OutputConversion OUTPUT_CONVERSIONS[] = {
    {CODE_DB, 4, 1, write_converted<rounded_amp_to_db>},
    {CODE_HZ, 11, 5, write_converted<cpc_to_hz>},
    {CODE_IN, 5, 0, write_rounded},
    {CODE_OP, 6, 3, write_converted<cpc_to_pch>},
    {CODE_OD, 4, 2, write_converted<cpc_to_oct>},
    {CODE_RE, 6, 0, write_real},
    {CODE_TR, 8, 6, write_converted<st_to_tr>},
    {CODE_BN, 5, 0, write_bin},
};

// The row of an output type, or null when the type writes nothing.
const OutputConversion* find_conversion(std::uint32_t type) {
    for (const OutputConversion& conversion : OUTPUT_CONVERSIONS) {
        if (static_cast<std::uint32_t>(conversion.type) == type) return &conversion;
    }
    return nullptr;
}

void plan_columns(LinePlan& plan, const ScoreFormat& format) {
    plan.column_count = 0;
    for (int pfield = 4; pfield <= format.pfields; ++pfield) {
        const int setting = pfield - 2;
        const OutputConversion* conversion = find_conversion(format.out_types[setting]);
        if (conversion == nullptr) continue;
        const int own = conversion->type == CODE_RE ? static_cast<int>(format.decimals[setting]) : 0;
        plan.columns[plan.column_count++] =
            Column{conversion->write,         static_cast<std::size_t>(pfield - 4),
                   conversion->width + own,   conversion->decimals + own,
                   format.fft_sizes[setting], format.sample_rate};
    }
}

void plan_line(LinePlan& plan, const ScoreFormat& format) {
    const int size = std::snprintf(plan.head, sizeof plan.head, "\ni%d ", format.instrument);
    plan.head_size = static_cast<std::size_t>(size);
    plan.start_decimals = static_cast<int>(format.decimals[0]);
    plan.duration_decimals = static_cast<int>(format.decimals[1]);
    plan_columns(plan, format);
}

char* write_line(char* to, const LinePlan& plan, const ListNode& event) {
    std::memcpy(to, plan.head, sizeof plan.head);
    to += plan.head_size;
    to = format_real(to, event.start, plan.start_decimals + START_WIDTH, plan.start_decimals);
    *to++ = ' ';
    to = format_real(to, event.dur, plan.duration_decimals + DURATION_WIDTH, plan.duration_decimals);
    *to++ = ' ';
    for (std::size_t i = 0; i < plan.column_count; ++i) {
        const Column& column = plan.columns[i];
        to = column.write(to, column, event.pf[column.value]);
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
