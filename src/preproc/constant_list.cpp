#include "preproc/constant_list.h"

#include "input/errors.h"
#include "input/messages.h"
#include "preproc/preprocessor.h"

// Constants stand in a list, newest first, and in a table by name that answers
// every look-up. Names are distinct and nothing removes a single constant.

namespace vorn {

Constant* var_list = nullptr;

namespace {

NameTable CONSTANT_NAMES;  // the records of var_list by name; empty with it

}  // namespace

Constant* find_var(const Name& name) { return static_cast<Constant*>(CONSTANT_NAMES.find(name)); }

int store_var(Constant* constant) {
    if (find_var(whole_name(constant->name)) != nullptr) {
        free_var(constant);
        return error::DUPLICATE_CONSTANT;
    }
    constant->next = var_list;
    var_list = constant;
    CONSTANT_NAMES.insert(*constant);
    return 0;
}

void free_var(Constant* constant) {
    if (constant == nullptr) return;
    delete[] constant->name;
    delete constant;
}

void free_vars(Constant* list) {
    while (list != nullptr) {
        Constant* next = list->next;
        free_var(list);
        list = next;
    }
}

void free_variable_list() {
    CONSTANT_NAMES.clear();
    free_vars(var_list);
    var_list = nullptr;
}

void print_var(const Constant& constant) { Mprintf("\n\tCONST %s: %f", constant.name, constant.value); }

}  // namespace vorn
