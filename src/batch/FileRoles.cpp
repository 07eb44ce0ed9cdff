#include "batch/FileRoles.h"

#include "batch/Command.h"
#include "batch/WatchOptions.h"
#include "core/layer/SaveLayer.h"
#include "core/platform/NativePath.h"
#include "core/text/OutputTarget.h"

#include <filesystem>
#include <map>

namespace vastrel {

namespace {

namespace fs = std::filesystem;

enum class Role { Input, Output, Pictures };

/// What the options do with the files that they name.
const std::map<std::string, Role> Roles{
    {"FILE", Role::Input},      {"F", Role::Input},          {"--ids", Role::Input},
    {"--z", Role::Input},       {"--previous", Role::Input}, {"--lists", Role::Output},
    {"--report", Role::Output}, {"--map", Role::Output},     {"--chart", Role::Output},
    {"--json", Role::Output},   {"--cusum", Role::Output},   {"--out", Role::Output},
    {"--layer", Role::Output},  {"--table", Role::Output},   {"--state", Role::Output},
    {"--maps", Role::Pictures}, {"--config", Role::Input},
};

/// A file as an option names it.
struct NamedFile {
    std::string Option, Path;
    std::optional<std::string> Identity;
    bool IsDescriptor = false;

    std::string Named() const { return Path == "-" ? "Standard output" : Path; }
    std::string Words() const { return Option.front() == '-' ? Option + " " + Path : Path; }
};

NamedFile Named(const std::string& option, const std::string& path) {
    return {option, path, FileIdentity(path), IsDescriptor(path)};
}

/// The files of the command, by what is done with them.
struct CommandFiles {
    std::vector<NamedFile> Inputs, Outputs;
    std::vector<NamedFile> Folders; // of pictures whose number is not known yet

    void AddInput(const std::string& option, const std::string& path) {
        for (const auto& file : FilesOfInput(AbsolutePath(path)))
            Inputs.push_back(Named(option, file));
    }

    void AddOutput(const std::string& option, const std::string& path) {
        if (option != "--layer" || !IsLayerPath(path)) return Outputs.push_back(Named(option, path));
        for (const auto& file : PathsOfLayer(path))
            Outputs.push_back(Named(option, file));
    }

    /// The folder, and the pictures of an earlier run in it.
    void AddPictures(const std::string& option, const std::string& path) {
        Folders.push_back(Named(option, path));
        Outputs.push_back(Folders.back());
        std::error_code ignored;
        for (fs::directory_iterator entry(NativePath(path), ignored), end; !ignored && entry != end;
             entry.increment(ignored))
            if (IsPeriodPicture(PathText(entry->path().filename())))
                Outputs.push_back(Named(option, PathText(entry->path())));
    }
};

CommandFiles FilesOf(const CLI::App& program, bool onceMore) {
    CommandFiles files;
    auto options = onceMore ? std::vector<const CLI::Option*>() : program.get_options();
    for (const CLI::App* command : program.get_subcommands())
        for (const CLI::Option* option : command->get_options())
            options.push_back(option);
    for (const CLI::Option* option : options) {
        const std::string name = option->get_name();
        const auto role = Roles.find(name);
        if (role == Roles.end()) continue;
        for (const std::string& path : option->results()) {
            if (path.empty()) continue;
            if (role->second == Role::Input) files.AddInput(name, path);
            if (role->second == Role::Output) files.AddOutput(name, path);
            if (role->second == Role::Pictures) files.AddPictures(name, path);
        }
    }
    // A run that is asked for nothing tells its lists there.
    if (files.Outputs.empty()) files.Outputs.push_back(Named("Standard output", "-"));
    return files;
}

bool AreOne(const NamedFile& a, const NamedFile& b) {
    return a.Identity && a.Identity == b.Identity;
}

/// Two outputs of one name are refused even where they are no file; what goes to one descriptor goes there in
/// its order.
bool Collide(const NamedFile& a, const NamedFile& b) {
    if (a.Path == b.Path) return a.Path != "-";
    return AreOne(a, b) && !(a.IsDescriptor && b.IsDescriptor);
}

/// Whether a file is one that the pictures of a folder may come to.
bool IsPictureIn(const NamedFile& folder, const NamedFile& file) {
    const std::string name = FileName(file.Path);
    return file.Identity && folder.Identity && IsPeriodPicture(name) &&
           *file.Identity == *folder.Identity + "/" + name;
}

[[noreturn]] void RefuseOneFile(const NamedFile& a, const NamedFile& b) {
    throw WrongUse(a.Words() + " and " + b.Words() + " are one file.");
}

} // namespace

void RequireSeparateFiles(const CLI::App& program, bool onceMore) {
    const CommandFiles files = FilesOf(program, onceMore);
    for (size_t i = 0; i < files.Outputs.size(); ++i) {
        const NamedFile& output = files.Outputs[i];
        for (const NamedFile& input : files.Inputs)
            if (AreOne(input, output)) throw WrongUse(output.Named() + " is an input.");
        for (size_t j = 0; j < i; ++j)
            if (Collide(files.Outputs[j], output)) RefuseOneFile(files.Outputs[j], output);
        for (const NamedFile& folder : files.Folders)
            if (IsPictureIn(folder, output)) RefuseOneFile(folder, output);
    }
}

} // namespace vastrel
