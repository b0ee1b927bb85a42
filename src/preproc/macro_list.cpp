#include "preproc/macro_list.h"

#include <new>

#include "input/errors.h"
#include "input/messages.h"
#include "preproc/preprocessor.h"

// Macros stand in a list, newest first, and in a table by name; names are
// distinct, so the table alone answers every look-up. A record owns its strings:
// whoever drops a record frees them with it.

namespace vorn {

Macro* macro_list = nullptr;

namespace {

NameTable MACRO_NAMES;  // the records of macro_list by name; empty with it

bool copy_strings(Macro& copy, const Macro& macro) {
    copy.name = copy_text(macro.name);
    copy.body = copy_text(macro.body);
    if (copy.name == nullptr || copy.body == nullptr) return false;
    for (int at = 0; at < macro.argument_count; ++at) {
        copy.argument_names[at] = copy_text(macro.argument_names[at]);
        if (copy.argument_names[at] == nullptr) return false;
    }
    return true;
}

}  // namespace

Macro* find_macro(const Name& name) { return static_cast<Macro*>(MACRO_NAMES.find(name)); }

int store_macro(Macro* macro) {
    if (find_macro(whole_name(macro->name)) != nullptr) {
        free_macro(macro);
        return error::DUPLICATE_MACRO;
    }
    macro->next = macro_list;
    if (macro_list != nullptr) macro_list->previous = macro;
    macro_list = macro;
    MACRO_NAMES.insert(*macro);
    return 0;
}

void remove_macro(Macro* macro) {
    MACRO_NAMES.remove(*macro);
    if (macro->next != nullptr) macro->next->previous = macro->previous;
    if (macro->previous != nullptr) macro->previous->next = macro->next;
    if (macro_list == macro) macro_list = macro->next;
    free_macro(macro);
}

Macro* copy_macro(const Macro& macro) {
    OwnedMacro copy(new (std::nothrow) Macro());
    if (copy == nullptr || !copy_strings(*copy, macro)) return nullptr;
    copy->argument_count = macro.argument_count;
    return copy.release();
}

void free_macro(Macro* macro) {
    if (macro == nullptr) return;
    delete[] macro->name;
    delete[] macro->body;
    for (char* argument : macro->argument_names) delete[] argument;
    delete macro;
}

void free_macros(Macro* list) {
    while (list != nullptr) {
        Macro* next = list->next;
        free_macro(list);
        list = next;
    }
}

void free_macro_list() {
    MACRO_NAMES.clear();
    free_macros(macro_list);
    macro_list = nullptr;
}

void print_macro(const Macro& macro) {
    Mprintf("\n\tMACRO %s: ", macro.name);
    for (int at = 0; at < macro.argument_count; ++at) {
        Mprintf("\n\t\tARG %d: %s", at, macro.argument_names[at]);
    }
    Mprintf("\n\tBODY: %s ", macro.body);
}

}  // namespace vorn
