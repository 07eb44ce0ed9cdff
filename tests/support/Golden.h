#pragma once

#include "support/TemporaryFolder.h"

#include "support/ProjectFolder.h"

namespace vastrel {

/// The bytes of a golden file, which is written by hand.
inline std::string Golden(const std::string& name) {
    return ReadFile(InProject("tests/golden/") + name);
}

} // namespace vastrel
