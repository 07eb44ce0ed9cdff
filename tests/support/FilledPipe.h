#pragma once

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sys/stat.h>
#include <thread>
#include <utility>

namespace vastrel {

/// A pipe with a name, and a writer that fills it once when a reader comes.
class FilledPipe {
public:
    explicit FilledPipe(std::string bytes) : bytes_(std::move(bytes)) {
        EXPECT_EQ(mkfifo(Path().c_str(), 0600), 0);
        writer_ = std::thread([this] { std::ofstream(Path(), std::ios::binary) << bytes_; });
    }
    ~FilledPipe() { writer_.join(); }
    FilledPipe(const FilledPipe&) = delete;
    FilledPipe& operator=(const FilledPipe&) = delete;
    std::string Path() const { return folder_ / "pipe.txt"; }

private:
    TemporaryFolder folder_;
    std::string bytes_;
    std::thread writer_;
};

} // namespace vastrel
