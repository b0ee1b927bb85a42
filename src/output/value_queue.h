#pragma once

#include <cstdint>

#include "output/event_list.h"

// The values of a p-field statement written inside a loop, for replay.
//
// A doubly linked ring whose handle points at the tail, the newest value;
// the tail's next is the head. An empty queue is a null handle. A statement has one
// queue, so there is one at a time.

namespace vorn {

struct QNode {
    QNode* prev;
    float value;
    std::uint32_t code;  // 1: fused to the value before it
    QNode* next;
};

// Values of one queue; one more is as if memory were used up, which 3.2 GB beside a
// full block are not on a machine of 8 GiB. A value that is stored queues two at most,
// but each repeat of a chord in P2 queues the whole chord for a single event.
constexpr std::uint64_t MAX_QUEUED = 2 * MAX_EVENTS;

extern std::uint64_t queued_values;  // 0 to MAX_QUEUED; written by StoreInQ and FreeQNodes

// Appends one value. False: out of memory, or a fused value for an empty queue.
[[nodiscard]] bool StoreInQ(QNode*& queue, std::uint32_t code, float value);

// Appends a copy of the last group: the last value not fused and all behind it.
// False: out of memory or an empty queue.
[[nodiscard]] bool DoQEvent(QNode*& queue);

// Debugging dump on standard output: backwards from the tail, or forwards from the head.
void TraverseQ(const QNode* queue, bool backwards);

void FreeQNodes(QNode*& queue);

void reset_value_queue();

}  // namespace vorn
