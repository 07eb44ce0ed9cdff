#include "workspace/Workspace.h"

namespace vastrel {

Workspace ws;

} // namespace vastrel
