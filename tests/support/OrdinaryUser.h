#pragma once

#include "support/TemporaryFolder.h"

#include <functional>

namespace vastrel {

/// Fails the test where `check` is not true for an ordinary user. The superuser is refused nothing, so its
/// check runs in a process of user "nobody"; the folder is opened to that user, and its permissions are
/// `mode` while the check runs.
void ExpectOfAnOrdinaryUser(const TemporaryFolder& folder, const std::function<bool()>& check,
                            unsigned mode = 0755);

} // namespace vastrel
