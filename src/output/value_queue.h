#pragma once

#include <cstdint>

// The values of a p-field statement written inside a loop, for replay.
//
// A doubly linked ring whose handle points at the tail, the newest value;
// the tail's next is the head. An empty queue is a null handle.

namespace vorn {

struct QNode {
    QNode* prev;
    float value;
    std::uint32_t code;  // 1: fused to the value before it
    QNode* next;
};

// Appends one value. False: out of memory, or a fused value for an empty queue.
[[nodiscard]] bool StoreInQ(QNode*& queue, std::uint32_t code, float value);

// Appends a copy of the last group: the last value not fused and all behind it.
// False: out of memory or an empty queue.
[[nodiscard]] bool DoQEvent(QNode*& queue);

// Debugging dump on standard output: backwards from the tail, or forwards from the head.
void TraverseQ(const QNode* queue, bool backwards);

void FreeQNodes(QNode*& queue);

}  // namespace vorn
