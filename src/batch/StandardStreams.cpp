#include "batch/StandardStreams.h"

#include <fcntl.h>
#include <unistd.h>

namespace vastrel {

void HoldStandardStreams() {
    constexpr int ways[] = {O_RDONLY, O_RDONLY, O_WRONLY}; // of standard input, output and error
    for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream)
        if (fcntl(stream, F_GETFD) < 0)
            open("/dev/null", ways[stream]); // gets the lowest number, which is this
}

} // namespace vastrel
