// The point dataset. An input is a byte for its format, and the file.
#include "FuzzTarget.h"
#include "InputParts.h"
#include "core/retrospective/PointDataset.h"

using namespace vastrel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    InputParts parts(data, size);
    const auto format = parts.TakeChoice(2) == 0 ? PointFormat::ObsExp : PointFormat::PopCase;
    const TextFile file("points.txt", std::string(parts.Rest()));
    RunOnInput([&] { LoadPointDataset(file, format); });
    return 0;
}
