#include "batch/RunRecord.h"

#include "batch/Checksum.h"
#include "batch/Command.h"
#include "batch/Settings.h"
#include "core/platform/NativePath.h"
#include "core/platform/RunTimeError.h"
#include "core/spatial/ShapefileFiles.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>

namespace vastrel {

namespace {

InputFile Measured(const std::string& name, std::string_view bytes) {
    Checksum sum;
    sum.Add(bytes);
    return {name, sum.Size(), sum.Text()};
}

InputFile MeasuredOnDisk(const std::string& name, const std::string& path) {
    std::ifstream stream(NativePath(path), std::ios::binary);
    Checksum sum;
    for (std::vector<char> chunk(size_t{256} * 1024); stream;) {
        stream.read(chunk.data(), static_cast<std::streamsize>(chunk.size()));
        sum.Add({chunk.data(), static_cast<size_t>(stream.gcount())});
    }
    if (stream.bad() || !stream.eof())
        RaiseCustomary(PathFileAccessError, "RunRecord", path + " could not be read to its end.");
    const std::uint64_t size = sum.Size();
    return {name, size, sum.Text()};
}

/// The name of a file in the folder of another, as that one is named.
std::string NamedBeside(const std::string& neighbour, const std::string& file) {
    return PathText(NativePath(neighbour).replace_filename(NativePath(file).filename()));
}

/// What the files of a shapefile have in common: the path up to the first dot of the file's name.
std::string Stem(const std::string& path) {
    const std::string file = FileName(path);
    return path.substr(0, path.size() - file.size()) + file.substr(0, file.find('.'));
}

auto Find(const std::vector<InputFile>& files, const std::string& path) {
    return std::find_if(files.begin(), files.end(), [&](const auto& file) { return file.Path == path; });
}

bool Has(const std::vector<InputFile>& files, const std::string& path) {
    return Find(files, path) != files.end();
}

} // namespace

void RunRecord::Begin(const CLI::App& command) {
    command_ = &command;
    files_.clear();
}

void RunRecord::Expect(std::vector<InputFile> files, bool strict) {
    expected_ = std::move(files);
    strict_ = strict;
}

bool RunRecord::IsNeeded() const {
    const auto isGiven = [&](const char* name) {
        const CLI::Option* option = command_->get_option_no_throw(name);
        return option != nullptr && option->count() > 0;
    };
    return !expected_.empty() || isGiven("--json") || isGiven("--state");
}

void RunRecord::Differs(const std::string& what) const {
    if (strict_) throw InputRefused(what);
    std::cerr << "Note: " << what << '\n';
}

void RunRecord::TakeDown(InputFile file) {
    const auto before = Find(expected_, file.Path);
    if (before != expected_.end() && *before != file)
        Differs(file.Path + " is not what it was: its SHA-256 differs.");
    files_.push_back(std::move(file));
}

void RunRecord::TookText(const std::string& path, const TextFile& file) {
    if (IsNeeded()) TakeDown(Measured(path, file.Bytes()));
}

void RunRecord::TookShapefile(const std::string& path) {
    if (!IsNeeded()) return;
    const bool wasRead = Has(expected_, path);
    for (const auto& file : FilesOfShapefile(AbsolutePath(path))) {
        std::error_code ignored;
        if (!std::filesystem::is_regular_file(NativePath(file), ignored)) continue; // it was not read either
        const std::string name = files_.empty() || !Has(files_, path) ? path : NamedBeside(path, file);
        TakeDown(MeasuredOnDisk(name, file));
        if (wasRead && !Has(expected_, name)) Differs(name + " was not there before.");
    }
    for (const auto& before : expected_)
        if (wasRead && Stem(before.Path) == Stem(path) && !Has(files_, before.Path))
            Differs(before.Path + " is not there any more.");
}

nlohmann::ordered_json RunRecord::Header() const {
    nlohmann::ordered_json header;
    header["Program"] = {{"Name", "vastrel-batch"}, {"Version", VASTREL_VERSION}};
    header["Settings"] = SettingsOf(*command_);
    auto& inputs = header["Inputs"] = nlohmann::ordered_json::array();
    for (const auto& file : files_)
        inputs.push_back({{"Path", file.Path}, {"Bytes", file.Bytes}, {"SHA256", file.SHA256}});
    return header;
}

nlohmann::ordered_json RunRecord::HeaderOfWhole() const {
    auto header = Header();
    for (const char* ofPart : {"part", "state"})
        header["Settings"].erase(ofPart);
    return header;
}

} // namespace vastrel
