#include "core/platform/RunTimeError.h"

#include <cstdint>
#include <cstdio>
#include <utility>

namespace vastrel {

RunTimeError::RunTimeError(long number, std::string source, const std::string& description)
    : std::runtime_error(description), number_(number), source_(std::move(source)) {}

std::string CustomaryText(long number) {
    switch (number) {
    case InvalidProcedureCall:
        return "Invalid procedure call or argument";
    case Overflow:
        return "Overflow";
    case OutOfMemory:
        return "Out of memory";
    case SubscriptOutOfRange:
        return "Subscript out of range";
    case DivisionByZero:
        return "Division by zero";
    case TypeMismatch:
        return "Type mismatch";
    case OutOfStringSpace:
        return "Out of string space";
    case FileNotFound:
        return "File not found";
    case DiskFull:
        return "Disk full";
    case InputPastEndOfFile:
        return "Input past end of file";
    case PermissionDenied:
        return "Permission denied";
    case PathFileAccessError:
        return "Path/File access error";
    case ObjectNotSet:
        return "Object variable not set";
    case InvalidUseOfNull:
        return "Invalid use of Null";
    case NoCurrentRecord:
        return "No current record";
    case ItemNotFound:
        return "Item not found in this collection";
    default:
        return "Application-defined error";
    }
}

void RaiseCustomary(CustomaryError number, const std::string& source, const std::string& detail) {
    std::string text = CustomaryText(number);
    if (!detail.empty()) text += "\n" + detail;
    throw RunTimeError(number, source, text);
}

std::string ReportText(const RunTimeError& error) {
    std::string number = std::to_string(error.Number());
    if (error.Number() < INT16_MIN || error.Number() > INT16_MAX) {
        char hex[16];
        std::snprintf(hex, sizeof hex, " (%08x)", static_cast<std::uint32_t>(error.Number()));
        number += hex;
    }
    return "Run-time error '" + number + "':\n\n" + error.Description();
}

} // namespace vastrel
