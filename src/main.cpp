#include <cstdio>

#include "driver/interrupts.h"
#include "driver/run.h"
#include "driver/standard_streams.h"

int main(int argc, char** argv) {
    vorn::keep_standard_streams();
    vorn::remove_temporary_file_on_interrupt();
    return vorn::run_program(argc, argv, {stdout, stderr});
}
