#pragma once

#include "core/platform/Platform.h"

namespace vastrel {

bool StandardErrorIsTerminal();

/// The platform of the batch program: messages and reports go to standard error, nobody is asked anything.
class ConsolePlatform : public Platform {
public:
    /// How many messages the system has shown.
    int MessageCount() const { return messageCount_; }

    /// The line that tells how far a run is, on a terminal; the next one, and any message, takes its place.
    void ShowProgress(const std::string& line);
    void ClearProgress();

    void ShowMessage(const Message& message) override;
    FileChoice ChooseFile(const FileQuestion& question) override;
    void SetBusyPointer(bool busy) override;
    void DropInput() override;
    void Yield(long count) override;
    void ReportRunTimeError(const RunTimeError& error) override;
    void EndProcess(int status) override;
    std::string ProgramFolder() override;

private:
    int messageCount_ = 0;
    bool showsProgress_ = false;
};

} // namespace vastrel
