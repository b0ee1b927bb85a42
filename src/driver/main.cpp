#include <cstdio>

#include "driver/interrupts.h"
#include "driver/run.h"
#include "driver/standard_streams.h"

// What a process needs around a run and a run by itself must not touch: standard
// streams that are open, and signals that leave no temporary file behind.

int main(int argc, char** argv) {
    vorn::keep_standard_streams();
    vorn::remove_temporary_file_on_interrupt();
    return vorn::run_program(argc, argv, {stdout, stderr});
}
