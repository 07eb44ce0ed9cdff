#include "core/layer/SaveLayer.h"

#include "core/platform/Computation.h"
#include "core/platform/NativePath.h"
#include "core/platform/Platform.h"
#include "core/spatial/ShapefileFiles.h"
#include "core/text/OutputSet.h"

#include <filesystem>

namespace vastrel {

namespace {

namespace fs = std::filesystem;

std::string Absolute(const std::string& path) {
    return PathText(fs::absolute(NativePath(path)).lexically_normal());
}

bool SameFile(const std::string& a, const std::string& b) {
    std::error_code ignored;
    return Absolute(a) == Absolute(b) || fs::equivalent(NativePath(a), NativePath(b), ignored);
}

/// The first of the outputs that is an input, by whatever spelling or link; empty where none is.
std::string OutputOverInput(const std::vector<std::string>& outputs, const std::vector<std::string>& inputs) {
    for (const std::string& input : inputs)
        for (const std::string& file : FilesOfInput(input))
            for (const std::string& output : outputs)
                if (SameFile(file, output)) return output;
    return "";
}

/// Gives what a person should know about the files.
std::vector<std::string> WriteLayer(const std::string& path, const Layer& layer) {
    const Computation writing;
    LayerFiles files = FilesOfLayer(path, layer);
    OutputSet outputs;
    for (FileBytes& file : files.Files)
        outputs.Add(file.Path, std::move(file.Bytes));
    outputs.Commit();
    return files.Notes;
}

} // namespace

std::vector<std::string> FilesOfInput(const std::string& path) {
    if (path.empty()) return {};
    auto files = PathsOfLayer(path); // the projection among them
    if (files.size() == 1) return files;
    for (const std::string& file : FilesOfShapefile(Absolute(path)))
        files.push_back(file);
    return files;
}

void SaveLayerAs(const Layer& layer, const std::vector<std::string>& inputs) {
    const FileChoice choice = platform().ChooseFile({FileQuestion::Kind::Save, LayerFilter, ".geojson"});
    if (choice.Cancelled || choice.Path.empty()) return;
    if (!IsLayerPath(choice.Path)) return Warn("The name of a layer ends in .geojson or .shp.");
    const std::string over = OutputOverInput(PathsOfLayer(choice.Path), inputs);
    if (!over.empty()) return Warn(FileName(over) + " is part of the dataset.");
    const std::string tooMany = TooManyLayerColumns(FileName(choice.Path), std::ssize(layer.Rows.Columns));
    if (!tooMany.empty()) return Warn(tooMany);
    for (const std::string& note : WriteLayer(choice.Path, layer))
        Tell(note);
}

} // namespace vastrel
