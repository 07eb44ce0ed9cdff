#pragma once

#include "batch/Outputs.h"
#include "core/layer/Layer.h"

#include <CLI/CLI.hpp>

namespace vastrel {

/// The options --layer and --table that all test commands share.
struct LayerOptions {
    std::string Layer, Table;

    void AddTo(CLI::App& command);
    bool AsksForNothing() const { return Layer.empty() && Table.empty(); }

    /// WrongUse for a layer whose name does not tell its format.
    void Check() const;

    /// WrongUse for more columns than the format of the layer holds.
    void RequireRoomFor(std::ptrdiff_t columns) const;
};

/// Adds the files of a layer, and tells on standard error what there is to know about them.
void AddLayer(Outputs& outputs, const std::string& path, const Layer& layer, bool quiet);

} // namespace vastrel
