#pragma once

#include "core/platform/Platform.h"

#include <deque>
#include <functional>
#include <string>

namespace vastrel {

/// The platform of a test: a queue of expected questions with their answers. A call that was not expected
/// fails the test at once, and so does what is left in the queue at the end. All calls go into a transcript.
/// It is the platform in use for as long as it lives.
class ScriptedPlatform : public Platform {
public:
    ScriptedPlatform();
    ~ScriptedPlatform() override;

    void ExpectMessage(const std::string& text, const std::string& title = "Warning!",
                       Message::Icon icon = Message::Icon::Stop);
    /// An empty path answers a file dialog with a cancel.
    void ExpectFile(FileQuestion::Kind way, const std::string& filter, const std::string& path);
    /// A file dialog that ends without a name and without a cancel.
    void ExpectNoName(FileQuestion::Kind way, const std::string& filter);
    void ExpectRunTimeError(long number);
    void ExpectEndOfProcess();

    /// What happens inside the n-th yield call from now (counted from 1); empty otherwise.
    void AtYield(long call, std::function<void()> event);

    bool BusyPointer() const { return busy_; }
    /// One line a call: "message Warning!: text", "open (filter) -> path", "pointer busy", "yield 10001", ...
    const std::string& Transcript() const { return transcript_; }
    /// How often the clicks and keys that waited were dropped.
    int DroppedInputs() const { return droppedInputs_; }
    long YieldCalls() const { return yieldCalls_; }

    void ShowMessage(const Message& message) override;
    FileChoice ChooseFile(const FileQuestion& question) override;
    void SetBusyPointer(bool busy) override;
    void DropInput() override { ++droppedInputs_; }
    void Yield(long count) override;
    void ReportRunTimeError(const RunTimeError& error) override;
    void EndProcess(int status) override;
    std::string ProgramFolder() override;

private:
    struct Expected {
        std::string Call;
        std::string Answer;
    };
    std::string Take(const std::string& call);

    std::deque<Expected> expected_;
    std::deque<std::pair<long, std::function<void()>>> yieldEvents_;
    std::string transcript_;
    bool busy_ = false;
    long yieldCalls_ = 0;
    int droppedInputs_ = 0;
};

} // namespace vastrel
