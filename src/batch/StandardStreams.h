#pragma once

namespace vastrel {

/// Puts the null device in the place of standard streams that are closed, so that no file of the run gets
/// their numbers and takes what is meant for them. Writing to a standard output that was closed fails.
void HoldStandardStreams();

} // namespace vastrel
