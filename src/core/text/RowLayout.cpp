#include "core/text/RowLayout.h"

namespace vastrel {

std::string Dashes(int n) {
    return std::string(static_cast<size_t>(n), '-');
}

} // namespace vastrel
