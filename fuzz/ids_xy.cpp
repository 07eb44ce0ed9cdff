// The ids and coordinates of a prospective run on points.
#include "FuzzTarget.h"
#include "InputParts.h"
#include "core/prospective/CusumInput.h"

using namespace vastrel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    const TextFile file("ids.txt", std::string(InputParts(data, size).Rest()));
    RunOnInput([&] {
        PointCusum watch;
        LoadIDXY(watch, file);
    });
    return 0;
}
