// The point dataset, in both formats.
#include "FuzzTarget.h"

#include "core/retrospective/PointDataset.h"

using namespace vastrel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    const std::string path = WriteInput("points.txt", AsText(data, size));
    for (const auto format : {PointFormat::ObsExp, PointFormat::PopCase})
        RunReader([&] { LoadPointDataset(path, format); });
    return 0;
}
