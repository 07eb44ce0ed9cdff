// The z-scores and the saved cusums of a prospective run, on points and on polygons.
#include "FuzzTarget.h"

#include "core/prospective/CusumInput.h"
#include "core/workspace/Workspace.h"

using namespace vastrel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    const std::string path = WriteInput("z.txt", AsText(data, size));
    RunReader([&] {
        PointCusum watch;
        LoadNewZScore(watch, path);
    });
    RunReader([&] {
        PointCusum watch;
        LoadOldCusum(watch, path);
    });
    RunReader([&] {
        ws.NumRegion = 4;
        ReadTextZScores(path);
    });
    return 0;
}
