#pragma once

#include <memory>

#include "preproc/name_table.h"

// The constants of a run.

namespace vorn {

struct Constant : NamedRecord {  // the name is owned
    double value = 0;
    Constant* next = nullptr;
};

// All defined constants, newest first; null: none. Written by store_var.
extern Constant* var_list;

Constant* find_var(const Name& name);             // null: no such constant
[[nodiscard]] int store_var(Constant* constant);  // takes it over at the head; 100, dropping it, if known

void free_var(Constant* constant);
void free_vars(Constant* list);
void print_var(const Constant& constant);

struct ConstantFreer {
    void operator()(Constant* constant) const { free_var(constant); }
};
using OwnedConstant = std::unique_ptr<Constant, ConstantFreer>;

}  // namespace vorn
