#pragma once

#include "core/layer/Layer.h"

namespace vastrel {

/// Makes the files of a layer in every format; GeoJSON that is no JSON is a finding.
void CheckLayer(const Layer& layer);

} // namespace vastrel
