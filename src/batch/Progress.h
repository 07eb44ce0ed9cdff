#pragma once

#include "batch/Command.h"

namespace vastrel {

/// Shows on standard error how far a run is, where that is a terminal.
class Progress {
public:
    explicit Progress(const ProgramOptions& options);
    void Show(const std::string& row) const;

private:
    bool visible_;
};

} // namespace vastrel
