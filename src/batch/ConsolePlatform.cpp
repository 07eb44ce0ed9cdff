#include "batch/ConsolePlatform.h"

#include "core/platform/RunTimeError.h"

#include <cstdio>
#include <cstdlib>
#include <iostream>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace vastrel {

bool StandardErrorIsTerminal() {
#ifdef _WIN32
    return _isatty(_fileno(stderr)) != 0;
#else
    return isatty(STDERR_FILENO) != 0;
#endif
}

void ConsolePlatform::ShowProgress(const std::string& line) {
    ClearProgress();
    std::cerr << line << std::flush;
    showsProgress_ = true;
}

void ConsolePlatform::ClearProgress() {
    if (showsProgress_) std::cerr << "\r\033[K" << std::flush;
    showsProgress_ = false;
}

void ConsolePlatform::ShowMessage(const Message& message) {
    ClearProgress();
    std::cerr << message.Text << '\n';
    ++messageCount_;
}

FileChoice ConsolePlatform::ChooseFile(const FileQuestion&) {
    FileChoice none;
    none.Cancelled = true;
    return none;
}

void ConsolePlatform::SetBusyPointer(bool) {}
void ConsolePlatform::DropInput() {}
void ConsolePlatform::Yield(long) {}

void ConsolePlatform::ReportRunTimeError(const RunTimeError& error) {
    ClearProgress();
    std::cerr << ReportText(error) << '\n';
}

void ConsolePlatform::EndProcess(int status) {
    std::exit(status);
}
std::string ConsolePlatform::ProgramFolder() {
    return ".";
}

} // namespace vastrel
