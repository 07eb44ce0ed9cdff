// A part of a range of bandwidths, as it is read to be joined with the others. An input is the first of its
// two items; the other one, its seal, is put behind.
#include "FuzzTarget.h"
#include "InputFolder.h"
#include "InputParts.h"
#include "batch/Checksum.h"
#include "batch/Command.h"
#include "batch/JoinedParts.h"

using namespace vastrel;

namespace {

std::string WithSeal(std::string_view content) {
    Checksum sum;
    sum.Add(content);
    return std::string(content) + "\x78\x40" + sum.Text();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    const std::string path = WriteInput("part", WithSeal(InputParts(data, size).Rest()));
    RunOnInput([&] {
        try {
            const JoinedParts parts({path});
            parts.Require(2, 3);
            parts.Step(0);
        } catch (const InputRefused&) {
        }
    });
    return 0;
}
