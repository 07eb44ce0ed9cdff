#pragma once

#include <string>
#include <sys/types.h>

namespace vastrel {

/// What the system calls of saving meet from now on: those that open for writing, write, sync, name, move and
/// take away. For a child process that does nothing else.
struct SystemFaults {
    int AtCall = 0;    // the call concerned, counted from 1; 0 for none
    int Error = 0;     // it fails so, where it is none that takes away
    int Signal = 0;    // or this signal comes first, from another process
    off_t Room = -1;   // by how many bytes files may still grow; -1 for any
    bool Links = true; // whether the disk knows second names
};

void Meet(const SystemFaults& faults);

/// Whether the call concerned came.
bool CallCame();

/// Ends the faults, and gives the order in which there was writing: w for writing, s for bringing a file on
/// the disk and S for a folder, r for moving.
std::string MetCalls();

} // namespace vastrel
