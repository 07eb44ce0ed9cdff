// The cusum file (.csm).
#include "FuzzTarget.h"

#include "core/prospective/CusumFile.h"
#include "core/workspace/Workspace.h"

using namespace vastrel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    const std::string path = WriteInput("saved.csm", AsText(data, size));
    RunReader([&] {
        ws.NumRegion = 4;
        ReadCusumFile(path);
    });
    return 0;
}
