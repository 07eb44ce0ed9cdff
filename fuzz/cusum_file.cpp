// The cusum file (.csm).
#include "FuzzTarget.h"
#include "InputParts.h"
#include "core/prospective/CusumFile.h"
#include "core/workspace/Workspace.h"

using namespace vastrel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    const TextFile file("saved.csm", std::string(InputParts(data, size).Rest()));
    RunOnInput([&] {
        ws.NumRegion = 4;
        ReadCusumFile(file);
    });
    return 0;
}
