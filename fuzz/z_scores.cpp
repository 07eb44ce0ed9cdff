// The z-scores and the saved cusums of a prospective run, on points and on polygons. An input is a byte for
// what is read, and the file.
#include "FuzzTarget.h"
#include "InputParts.h"
#include "core/prospective/CusumInput.h"
#include "core/workspace/Workspace.h"

using namespace vastrel;

namespace {

enum class Reading { NewScores, SavedCusums, PolygonScores };

void Read(Reading reading, const TextFile& file) {
    PointCusum watch;
    switch (reading) {
    case Reading::NewScores:
        LoadNewZScore(watch, file);
        break;
    case Reading::SavedCusums:
        LoadOldCusum(watch, file);
        break;
    case Reading::PolygonScores:
        ws.NumRegion = 4;
        ReadTextZScores(file);
        break;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    InputParts parts(data, size);
    const auto reading = static_cast<Reading>(parts.TakeChoice(3));
    const TextFile file("z.txt", std::string(parts.Rest()));
    RunOnInput([&] { Read(reading, file); });
    return 0;
}
