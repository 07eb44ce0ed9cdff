#include "batch/Progress.h"

#include <cstdio>
#include <iostream>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace vastrel {

namespace {

bool StandardErrorIsTerminal() {
#ifdef _WIN32
    return _isatty(_fileno(stderr)) != 0;
#else
    return isatty(STDERR_FILENO) != 0;
#endif
}

} // namespace

Progress::Progress(const ProgramOptions& options) : visible_(!options.Quiet && StandardErrorIsTerminal()) {}

void Progress::Show(const std::string& row) const {
    if (visible_) std::cerr << row << std::endl;
}

} // namespace vastrel
