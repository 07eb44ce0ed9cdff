#pragma once

#include <string>

namespace vastrel {

/// Signals while files are being saved. A signal that ends the process (SIGINT, SIGTERM and their like) first
/// takes away the temporary names below. SIGPIPE and SIGXFSZ of the process's own writing let the write fail
/// instead, so that it is told like a full disk. A signal that the process ignores stays ignored.
class SaveSignals {
public:
    SaveSignals();
    ~SaveSignals();
    SaveSignals(const SaveSignals&) = delete;
    SaveSignals& operator=(const SaveSignals&) = delete;
};

/// While one of these stands, a signal that ends the process waits for it.
class SignalsWait {
public:
    SignalsWait();
    ~SignalsWait();
    SignalsWait(const SignalsWait&) = delete;
    SignalsWait& operator=(const SignalsWait&) = delete;
};

/// The name of a file, or of an empty folder, that is taken away with this object, or when a signal ends the
/// process. It begins as no name at all: what has been made becomes temporary by MarkMade, inside of the
/// SignalsWait in which it was made.
class TemporaryName {
public:
    enum class Kind { File, Folder };

    TemporaryName(std::string path, Kind kind) : path_(std::move(path)), kind_(kind) {}
    ~TemporaryName();
    TemporaryName(const TemporaryName&) = delete;
    TemporaryName& operator=(const TemporaryName&) = delete;

    const std::string& Path() const { return path_; }
    void MarkMade();

    /// The name is none any more: what it named was moved, or stays for good.
    void Forget();

    /// Takes away what it names; safe in a signal handler.
    void Remove() const;

    /// Takes away all of them, newest first; safe in a signal handler.
    static void RemoveAll();

private:
    std::string path_;
    Kind kind_;
    bool made_ = false;
    TemporaryName* newer_ = nullptr;
    TemporaryName* older_ = nullptr;
};

} // namespace vastrel
