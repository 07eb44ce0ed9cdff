#pragma once

#include "support/FileSizeLimit.h"
#include "support/ScriptedPlatform.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace vastrel {

constexpr long DiskFullError = 61;
constexpr long PassedOver = 0;

/// Saves by `save`, which asks for a file by this filter, over an old file on a full disk: that is told by
/// this error, or passed over, and the old file stands whole with nothing beside it.
template <typename Save>
void ExpectOldFileOnAFullDisk(ScriptedPlatform& script, const char* filter, const char* ending, long error,
                              Save save) {
    const TemporaryFolder folder;
    const std::string path = folder.Write(std::string("old") + ending, "what stood here");
    script.ExpectFile(FileQuestion::Kind::Save, filter, path);
    if (error != PassedOver) script.ExpectRunTimeError(error);
    {
        const FileSizeLimit full(0);
        save();
    }
    EXPECT_EQ(ReadFile(path), "what stood here");
    const std::filesystem::directory_iterator files(folder.Path());
    EXPECT_EQ(std::distance(begin(files), end(files)), 1);
}

} // namespace vastrel
