#pragma once

#include <string>

namespace vastrel {

class RunTimeError;

/// A message box. The system's messages are `Stop` boxes titled "Warning!" unless they say otherwise.
struct Message {
    enum class Icon { Stop, Information, Plain };
    std::string Text;
    std::string Title = "Warning!";
    Icon Symbol = Icon::Stop;
};

/// What a file dialog is asked for. `Filter` holds pairs of caption and pattern between bars, as in
/// "Text Files (*.txt)|*.txt|All Files (*.*)|*.*|".
struct FileQuestion {
    enum class Kind { Open, Save };
    Kind Way = Kind::Open;
    std::string Filter;
    std::string DefaultExtension; // ".csm"; empty where none is added
};

/// What a file dialog gives: the whole path and the file name without folder. Both are empty after a cancel.
struct FileChoice {
    std::string Path;
    std::string Title;
    bool Cancelled = false;
};

/// The seam to the machine: all that the program's parts ask of a person or of the event loop. The desktop
/// has it on Qt, the batch program on its streams, tests on a script.
class Platform {
public:
    virtual ~Platform() = default;

    virtual void ShowMessage(const Message& message) = 0;

    /// After a choice the process's current folder is the folder of the chosen file.
    virtual FileChoice ChooseFile(const FileQuestion& question) = 0;

    /// The busy pointer of the whole program: one state, set and reset, no stack.
    virtual void SetBusyPointer(bool busy) = 0;

    /// Drops the clicks and keys that wait, where a person can make any.
    virtual void DropInput() = 0;

    /// Serves pending events and brings pending paints to the screen, `count` times, each paced.
    virtual void Yield(long count) = 0;

    /// Shows the report of an error that nothing has caught.
    virtual void ReportRunTimeError(const RunTimeError& error) = 0;

    /// Ends the process at once, with no further steps.
    virtual void EndProcess(int status) = 0;

    /// The folder that holds the program's pictures folder "BitMaps".
    virtual std::string ProgramFolder() = 0;
};

/// The platform in use. Run-time error 91 before one is set.
Platform& platform();
void SetPlatform(Platform* use);

/// A stop box titled "Warning!".
void Warn(const std::string& text);

/// A plain box without an icon, titled with the program's name.
void Tell(const std::string& text);

} // namespace vastrel
