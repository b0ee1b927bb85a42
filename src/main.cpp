#include <cstdio>

#include "driver/interrupts.h"
#include "driver/run.h"

int main(int argc, char** argv) {
    vorn::remove_temporary_file_on_interrupt();
    return vorn::run_program(argc, argv, {stdout, stderr});
}
