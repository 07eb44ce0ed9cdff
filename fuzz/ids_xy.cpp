// The ids and coordinates of a prospective run on points.
#include "FuzzTarget.h"

#include "core/prospective/CusumInput.h"

using namespace vastrel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    const std::string path = WriteInput("ids.txt", AsText(data, size));
    RunReader([&] {
        PointCusum watch;
        LoadIDXY(watch, path);
    });
    return 0;
}
