#include "core/spatial/IShape.h"

#include "core/platform/Platform.h"

#include <cstring>

namespace vastrel {

double DistanceNotImplemented() {
    Tell("NOT IMPLEMENTED");
    return 0;
}

bool IsOfClass(const ShapeObject& object, const char* className) {
    return std::strcmp(object.ClassName(), className) == 0;
}

} // namespace vastrel
