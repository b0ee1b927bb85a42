#include "kit/command/vornkit.h"

int main(int argc, char** argv) { return vorn::kit::run_vornkit(argc, argv); }
