#pragma once

#include "output/event_list.h"
#include "output/value_queue.h"

namespace vorn {

// State of one p-field statement, handed down to everything that stores a value.
struct Statement {
    ListNode* cursor = nullptr;  // P3 and up: the event that received the last value; starts at the tail
    QNode* queue = nullptr;      // values read while a loop is open
    bool value_expected = true;  // until the first value of a data list is read
    bool block_full = false;     // out of time or events: the rest of the statement is skipped
};

}  // namespace vorn
