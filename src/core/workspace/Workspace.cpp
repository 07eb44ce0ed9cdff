#include "core/workspace/Workspace.h"

namespace vastrel {

Workspace ws;

} // namespace vastrel
