#include "support/ScriptedPlatform.h"

#include "core/platform/RunTimeError.h"
#include "support/ProjectFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace vastrel {

namespace {

constexpr const char* NoName = "<no name>";

std::string MessageCall(const std::string& text, const std::string& title, Message::Icon icon) {
    const char* kind = icon == Message::Icon::Stop          ? "message"
                       : icon == Message::Icon::Information ? "information"
                                                            : "plain message";
    return std::string(kind) + " " + title + ": " + text;
}

std::string FileCall(FileQuestion::Kind way, const std::string& filter) {
    return std::string(way == FileQuestion::Kind::Open ? "open" : "save") + " (" + filter + ")";
}

} // namespace

ScriptedPlatform::ScriptedPlatform() {
    SetPlatform(this);
}

ScriptedPlatform::~ScriptedPlatform() {
    for (const auto& expected : expected_)
        ADD_FAILURE() << "Expected and never called: " << expected.Call;
    SetPlatform(nullptr);
}

void ScriptedPlatform::ExpectMessage(const std::string& text, const std::string& title, Message::Icon icon) {
    expected_.push_back({MessageCall(text, title, icon), ""});
}

void ScriptedPlatform::ExpectFile(FileQuestion::Kind way, const std::string& filter,
                                  const std::string& path) {
    expected_.push_back({FileCall(way, filter), path});
}

void ScriptedPlatform::ExpectNoName(FileQuestion::Kind way, const std::string& filter) {
    ExpectFile(way, filter, NoName);
}

void ScriptedPlatform::ExpectRunTimeError(long number) {
    expected_.push_back({"run-time error " + std::to_string(number), ""});
}

void ScriptedPlatform::ExpectEndOfProcess() {
    expected_.push_back({"end of process", ""});
}

void ScriptedPlatform::AtYield(long call, std::function<void()> event) {
    yieldEvents_.emplace_back(yieldCalls_ + call, std::move(event));
}

std::string ScriptedPlatform::Take(const std::string& call) {
    transcript_ += call + "\n";
    if (expected_.empty() || expected_.front().Call != call) {
        ADD_FAILURE() << "Not expected: " << call
                      << (expected_.empty() ? "" : "\nexpected next: " + expected_.front().Call);
        return {};
    }
    const std::string answer = expected_.front().Answer;
    expected_.pop_front();
    return answer;
}

void ScriptedPlatform::ShowMessage(const Message& message) {
    Take(MessageCall(message.Text, message.Title, message.Symbol));
}

FileChoice ScriptedPlatform::ChooseFile(const FileQuestion& question) {
    const std::filesystem::path path = Take(FileCall(question.Way, question.Filter));
    if (path == NoName) return {"", "", false};
    transcript_.insert(transcript_.size() - 1, " -> " + path.filename().string());
    if (path.has_parent_path()) std::filesystem::current_path(path.parent_path());
    return {path.string(), path.filename().string(), path.empty()};
}

void ScriptedPlatform::SetBusyPointer(bool busy) {
    busy_ = busy;
    transcript_ += busy ? "pointer busy\n" : "pointer normal\n";
}

void ScriptedPlatform::Yield(long count) {
    transcript_ += "yield " + std::to_string(count) + "\n";
    ++yieldCalls_;
    for (size_t i = 0; i < yieldEvents_.size(); ++i) {
        if (yieldEvents_[i].first != yieldCalls_) continue;
        const auto event = yieldEvents_[i].second;
        yieldEvents_.erase(yieldEvents_.begin() + static_cast<std::ptrdiff_t>(i));
        event();
        return;
    }
}

void ScriptedPlatform::ReportRunTimeError(const RunTimeError& error) {
    Take("run-time error " + std::to_string(error.Number()));
}

void ScriptedPlatform::EndProcess(int) {
    Take("end of process");
}

std::string ScriptedPlatform::ProgramFolder() {
    return ProjectFolder();
}

} // namespace vastrel
