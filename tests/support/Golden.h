#pragma once

#include "support/TemporaryFolder.h"

namespace vastrel {

/// The bytes of a golden file, which is written by hand.
inline std::string Golden(const std::string& name) {
    return ReadFile(std::string(PROJECT_FOLDER) + "/tests/golden/" + name);
}

} // namespace vastrel
