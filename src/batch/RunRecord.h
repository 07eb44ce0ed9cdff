#pragma once

#include "batch/InputFile.h"
#include "core/text/TextFile.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

namespace vastrel {

/// What a run tells of itself at the head of its JSON: the program, the settings in force, and the files that
/// it has read. A run that is made again holds its files against those of the first time.
class RunRecord {
public:
    /// The command whose settings are told.
    void Begin(const CLI::App& command);

    /// The files of the first time: one that differs is named on standard error, or is an InputRefused where
    /// this is strict.
    void Expect(std::vector<InputFile> files, bool strict);

    /// Takes down a text file that was read, by its path as given, and the same for a shapefile with all its
    /// files. What is neither told nor expected costs nothing.
    void TookText(const std::string& path, const TextFile& file);
    void TookShapefile(const std::string& path);

    /// Program, Settings and Inputs.
    nlohmann::ordered_json Header() const;

    /// The same for a part of a run: the settings are those of the whole.
    nlohmann::ordered_json HeaderOfWhole() const;

private:
    bool IsNeeded() const;
    void TakeDown(InputFile file);
    void Differs(const std::string& what) const;

    const CLI::App* command_ = nullptr;
    std::vector<InputFile> files_;
    std::vector<InputFile> expected_;
    bool strict_ = false;
};

} // namespace vastrel
