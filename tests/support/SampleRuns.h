#pragma once

#include "support/ProjectFolder.h"
#include "support/TemporaryFolder.h"

#include <filesystem>
#include <string>
#include <vector>

namespace vastrel {

using Words = std::vector<std::string>;

inline Words operator+(Words words, const Words& more) {
    words.insert(words.end(), more.begin(), more.end());
    return words;
}

inline void CopySamples(const TemporaryFolder& folder, const Words& names) {
    for (const auto& name : names)
        std::filesystem::copy_file(InProject("samples/" + name), folder / name);
}

/// Runs of the batch program on samples in a folder, whose path ends in a slash; none is the current folder.
struct SampleRuns {
    std::string Folder;

    Words RetroPolygons() const {
        return {"retrospective-polygons",
                Folder + "country.shp",
                "--pop",
                "POP",
                "--cases",
                "CASES",
                "--id",
                "NAME"};
    }
    Words WatchPoints() const {
        return {"prospective-points",   "--ids",      Folder + "watch_xy.txt",      "--z",
                Folder + "watch_z.txt", "--previous", Folder + "watch_previous.txt"};
    }
    Words WatchPolygons() const {
        return {
            "prospective-polygons", Folder + "country.shp", "--z", Folder + "watch_z.txt", "--id", "NAME"};
    }
};

} // namespace vastrel
