#include <cstdint>
#include <cstdlib>
#include <new>

#include "web/vorn-wasm/engine/answer.h"
#include "web/vorn-wasm/engine/expanded_lines.h"
#include "web/vorn-wasm/engine/exports.h"

// What the module offers. A caller puts texts into the module's memory, calls, and
// reads the answer before it calls again:
//
//     address = vorn_allocate(size), bytes are written there
//     vorn_compile(address, size), vorn_release(address)
//     vorn_answer(), vorn_answer_size(): the answer
//
// The module has one engine and one compilation at a time. A text passed in belongs
// to the caller.

namespace vorn::web {

std::string answer;

namespace {

Compilation last_compilation;
SaidTexts last_command;
int is_out_of_memory = 0;  // 1: the module has ended for want of memory

[[noreturn]] void end_for_want_of_memory() {
    is_out_of_memory = 1;
    __builtin_trap();
}

}  // namespace

VORN_EXPORT(vorn_begin)()->void { std::set_new_handler(end_for_want_of_memory); }
VORN_EXPORT(vorn_is_out_of_memory)()->int { return is_out_of_memory; }
VORN_EXPORT(vorn_allocate)(std::size_t size)->void* { return std::malloc(size > 0 ? size : 1); }
VORN_EXPORT(vorn_release)(void* address)->void { std::free(address); }
VORN_EXPORT(vorn_answer)()->const char* { return answer.data(); }
VORN_EXPORT(vorn_answer_size)()->std::size_t { return answer.size(); }

VORN_EXPORT(vorn_compile)(const char* request, std::size_t size)->void {
    last_compilation = {};
    answer = {};
    last_compilation = compile(read_request({request, size}));
    answer = compilation_answer(last_compilation);
}

// Arguments end with a NUL byte each.
VORN_EXPORT(vorn_run)(const char* arguments, std::size_t size)->void {
    last_command = run_vorn(split({arguments, size}), nullptr);
    answer = command_answer(last_command);
}

VORN_EXPORT(vorn_expanded_lines)(const char* file, std::size_t size, std::size_t line)->void {
    answer = texts_answer(expanded_lines(last_compilation.run, {file, size}, line));
}

VORN_EXPORT(vorn_performance)(const char* output, std::size_t size)->void {
    const kit::PerformanceReport report = kit::read_performance({output, size}, last_compilation.run);
    answer = performance_answer(report, last_compilation.run.map);
}

}  // namespace vorn::web
