#include "driver/standard_streams.h"

#include <fcntl.h>
#include <unistd.h>

// A program may be started without one of its standard streams:
//
//     vorn piece.vorn piece.sco 2>&-
//
// The first file that it opens then gets the number of the missing stream, and
// what is meant for the screen ends in the score. Holding the three numbers
// before any file is opened prevents it.

namespace vorn {

void keep_standard_streams() {
    int descriptor = 0;
    while (descriptor >= 0 && descriptor <= STDERR_FILENO) descriptor = open("/dev/null", O_RDWR);
    if (descriptor > STDERR_FILENO) close(descriptor);
}

}  // namespace vorn
