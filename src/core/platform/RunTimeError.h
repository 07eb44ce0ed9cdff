#pragma once

#include <stdexcept>
#include <string>

namespace vastrel {

/// A numbered failure that nothing catches on its way: it stops the command that raised it, and the error
/// boundary shows its report.
class RunTimeError : public std::runtime_error {
public:
    /// `number` is one of the platform's customary numbers below, or a class's own.
    /// `description` is what the person reads; `source` names the procedure or class that raised it.
    RunTimeError(long number, std::string source, const std::string& description);

    long Number() const { return number_; }
    const std::string& Source() const { return source_; }
    std::string Description() const { return what(); }

    /// Whether the process ends after the report. All other errors end the command alone.
    bool EndsProcess() const { return endsProcess_; }
    void SetEndsProcess() { endsProcess_ = true; }

private:
    long number_;
    std::string source_;
    bool endsProcess_ = false;
};

/// The platform's customary error numbers.
enum CustomaryError : long {
    InvalidProcedureCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    DivisionByZero = 11,
    TypeMismatch = 13,
    OutOfStringSpace = 14,
    FileNotFound = 53,
    DiskFull = 61,
    InputPastEndOfFile = 62,
    PermissionDenied = 70,
    PathFileAccessError = 75,
    ObjectNotSet = 91,
    InvalidUseOfNull = 94,
    NoCurrentRecord = 3021,
    ItemNotFound = 3265,
};

/// The customary words of a customary number: "Division by zero" for 11.
std::string CustomaryText(long number);

/// Raises a customary error. A non-empty `detail` (the file, line or record concerned) follows on a line of
/// its own.
[[noreturn]] void RaiseCustomary(CustomaryError number, const std::string& source,
                                 const std::string& detail = {});

/// The report as a person sees it: "Run-time error '11':", an empty line, the description.
/// Numbers outside the 16-bit range are written with their hexadecimal form behind.
std::string ReportText(const RunTimeError& error);

} // namespace vastrel
