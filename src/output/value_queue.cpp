#include "output/value_queue.h"

#include <cstdio>
#include <cstdlib>

#include "input/run_flags.h"

// The queue is written in reading order and replayed from its head, so a loop
// "<1 : 3 2>" holds 1, 3 (code 1) and 2. A group is a value with code 0 and the
// fused values behind it; repeating a value inside a loop appends its whole group.
//
// Invariants: the handle is null or points at the newest value of a closed ring;
// the first value of a queue has code 0, so walking back from the tail to the
// start of a group always ends.

namespace vorn {

std::uint64_t queued_values = 0;

bool StoreInQ(QNode*& queue, std::uint32_t code, float value) {
    if (queue == nullptr && code != 0) return false;
    if (queued_values >= MAX_QUEUED) return false;
    auto* node = static_cast<QNode*>(std::malloc(sizeof(QNode)));
    if (node == nullptr) return false;
    *node = QNode{node, value, code, node};
    if (queue != nullptr) {
        node->prev = queue;
        node->next = queue->next;
        queue->next->prev = node;
        queue->next = node;
    }
    queue = node;
    ++queued_values;
    return true;
}

bool DoQEvent(QNode*& queue) {
    if (queue == nullptr) return false;
    const QNode* const last = queue;
    const QNode* node = last;
    while (node->code != 0) node = node->prev;
    while (StoreInQ(queue, node->code, node->value)) {
        if (node == last) return true;
        node = node->next;
    }
    return false;
}

void TraverseQ(const QNode* queue, bool backwards) {
    if (queue == nullptr) {
        std::fputs("empty", std_out);
        return;
    }
    const QNode* const first = backwards ? queue : queue->next;
    const QNode* node = first;
    do {
        std::fprintf(std_out, "\n%f %d", double{node->value}, static_cast<int>(node->code));
        node = backwards ? node->prev : node->next;
    } while (node != first);
}

void FreeQNodes(QNode*& queue) {
    queued_values = 0;
    if (queue == nullptr) return;
    QNode* node = queue->next;
    queue->next = nullptr;
    while (node != nullptr) {
        QNode* next = node->next;
        std::free(node);
        node = next;
    }
    queue = nullptr;
}

void reset_value_queue() { queued_values = 0; }

}  // namespace vorn
