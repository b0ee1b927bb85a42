#pragma once

#include <memory>

#include "preproc/name_table.h"

// The macros of a run, and the records that carry them.

namespace vorn {

constexpr int MAX_MACRO_ARGUMENTS = 128;  // formal arguments of one macro; more: error 87

// A macro; or one actual argument of a call: then the name is that of the formal
// argument and the body its text. All strings are owned.
struct Macro : NamedRecord {
    int argument_count = 0;
    char* body = nullptr;
    Macro* next = nullptr;
    Macro* previous = nullptr;                       // in macro_list only
    char* argument_names[MAX_MACRO_ARGUMENTS] = {};  // null from argument_count on
};

// All defined macros, newest first; null: none. Written by store_macro and remove_macro.
extern Macro* macro_list;

Macro* find_macro(const Name& name);          // null: no such macro
[[nodiscard]] int store_macro(Macro* macro);  // takes it over at the head; 84, dropping it, if known
void remove_macro(Macro* macro);              // unlinks and frees

// A deep copy outside any list; null when memory runs out.
[[nodiscard]] Macro* copy_macro(const Macro& macro);

void free_macro(Macro* macro);  // one record with its strings; null is nothing
void free_macros(Macro* list);  // a whole list
void print_macro(const Macro& macro);

struct MacroFreer {
    void operator()(Macro* list) const { free_macros(list); }
};
using OwnedMacro = std::unique_ptr<Macro, MacroFreer>;  // a record or a list

}  // namespace vorn
