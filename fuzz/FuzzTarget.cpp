#include "FuzzTarget.h"

#include "FiniteStore.h"
#include "core/platform/AvailableMemory.h"
#include "core/platform/Platform.h"
#include "core/platform/RunTimeError.h"
#include "core/workspace/Workspace.h"

/// What the address sanitizer asks for its settings. Freed memory is kept back for a short time only: giving
/// ever new pages to an input would take longer than the input itself.
extern "C" const char* __asan_default_options() { // NOLINT(bugprone-reserved-identifier)
    return "quarantine_size_mb=8:malloc_context_size=8";
}

namespace vastrel {

namespace {

/// Far below what the fuzzer lets a process take, so that what is not held against it shows.
constexpr std::uint64_t Memory = std::uint64_t{256} * 1024 * 1024;

class SilentPlatform : public Platform {
public:
    SilentPlatform() {
        SetPlatform(this);
        ForceAvailableMemory([] { return Memory; });
    }
    void ShowMessage(const Message&) override {}
    FileChoice ChooseFile(const FileQuestion&) override { return {"", "", true}; }
    void SetBusyPointer(bool) override {}
    void DropInput() override {}
    void Yield(long) override {}
    void ReportRunTimeError(const RunTimeError&) override {}
    void EndProcess(int) override {}
    std::string ProgramFolder() override { return "."; }
};

} // namespace

void RunOnInput(const std::function<void()>& procedure) {
    static SilentPlatform silent;
    ws = Workspace{};
    try {
        procedure();
    } catch (const RunTimeError&) { // the input is refused
    }
    RequireFiniteStore();
}

} // namespace vastrel
