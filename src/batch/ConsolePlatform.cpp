#include "batch/ConsolePlatform.h"

#include "core/platform/RunTimeError.h"

#include <cstdlib>
#include <iostream>

namespace vastrel {

void ConsolePlatform::ShowMessage(const Message& message) {
    std::cerr << message.Text << '\n';
    ++messageCount_;
}

FileChoice ConsolePlatform::ChooseFile(const FileQuestion&) {
    FileChoice none;
    none.Cancelled = true;
    return none;
}

void ConsolePlatform::SetBusyPointer(bool) {}
void ConsolePlatform::Yield(long) {}

void ConsolePlatform::ReportRunTimeError(const RunTimeError& error) {
    std::cerr << ReportText(error) << '\n';
}

void ConsolePlatform::EndProcess(int status) {
    std::exit(status);
}
std::string ConsolePlatform::ProgramFolder() {
    return ".";
}

} // namespace vastrel
