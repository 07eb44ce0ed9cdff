#include "FuzzTarget.h"

#include "core/platform/Platform.h"
#include "core/platform/RunTimeError.h"
#include "core/workspace/Workspace.h"

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace vastrel {

namespace {

namespace fs = std::filesystem;

class SilentPlatform : public Platform {
public:
    SilentPlatform() { SetPlatform(this); }
    void ShowMessage(const Message&) override {}
    FileChoice ChooseFile(const FileQuestion&) override { return {"", "", true}; }
    void SetBusyPointer(bool) override {}
    void Yield(long) override {}
    void ReportRunTimeError(const RunTimeError&) override {}
    void EndProcess(int) override {}
    std::string ProgramFolder() override { return "."; }
};

/// A folder of the process's own. In memory where there is such a place, since every input is written anew.
class InputFolder {
public:
    InputFolder() {
        const fs::path memory = "/dev/shm";
        std::string pattern =
            ((fs::is_directory(memory) ? memory : fs::temp_directory_path()) / "vastrel-fuzz-XXXXXX")
                .string();
        if (mkdtemp(pattern.data()) == nullptr) std::abort();
        path_ = pattern;
    }
    ~InputFolder() {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }
    InputFolder(const InputFolder&) = delete;
    InputFolder& operator=(const InputFolder&) = delete;
    const fs::path& Path() const { return path_; }

private:
    fs::path path_;
};

void RequireFinite(double value) {
    if (!std::isfinite(value)) std::abort();
}

void RequireFinite(const RegionPoint& point) {
    RequireFinite(point.X);
    RequireFinite(point.Y);
}

template <typename T>
void RequireFinite(const Array1<T>& values) {
    for (std::ptrdiff_t i = 0; i <= values.UpperBound(); ++i)
        RequireFinite(values(i));
}

} // namespace

std::string WriteInput(const std::string& name, std::string_view bytes) {
    static const InputFolder folder;
    const fs::path path = folder.Path() / name;
    std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return path.string();
}

void RunReader(const std::function<void()>& read) {
    static SilentPlatform silent;
    ws = Workspace{};
    try {
        read();
    } catch (const RunTimeError&) {
    }
    RequireFinite(ws.RegionCentroid);
    RequireFinite(ws.TotalShapeArea);
    for (const auto* counts : {&ws.PopBase, &ws.ObsCount, &ws.ExpCount, &ws.ExpRatio})
        RequireFinite(*counts);
    for (const auto* table : {&ws.TextZScore, &ws.PreviousCusum})
        for (std::ptrdiff_t i = 0; i <= table->UpperBound1(); ++i)
            for (std::ptrdiff_t t = 0; t <= table->UpperBound2(); ++t)
                RequireFinite((*table)(i, t));
}

} // namespace vastrel
