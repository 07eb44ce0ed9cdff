#pragma once

#include "batch/InputFile.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

namespace vastrel {

/// The settings in force of a command that was parsed: its name as Command, then each of its options under
/// its name, in the parser's order, as text (a list of texts where it takes several): what was given, or else
/// its default. The default of an option that does not go with a given one is not in force.
nlohmann::ordered_json SettingsOf(const CLI::App& command);

/// The head of the JSON of an earlier run.
// NOLINTNEXTLINE(bugprone-exception-escape): moving the library's JSON is not said to be free of exceptions
struct EarlierRun {
    std::string Command;
    nlohmann::ordered_json Settings; // without the command
    std::vector<InputFile> Inputs;
};

/// Of the JSON's text, of which the results are passed over. InputRefused for what holds no settings.
EarlierRun ReadEarlierRun(const std::string& text);

/// The same of an object that is parsed; an exception of the JSON library for what holds no settings.
EarlierRun RunOf(const nlohmann::ordered_json& json);

/// The words, on a line, of an option with a value: also of one that begins with a minus sign, or is empty.
std::vector<std::string> WordsOf(const std::string& option, const std::string& value);

/// Reads the settings of the chosen command from a file: from the library's own configuration file (TOML), at
/// its head or in a section of the command's name, or from the JSON of an earlier run. An option of the
/// command line goes before the file, and settings that do not go with it fall away. Run-time error 7 for a
/// TOML file of more than 16 MB, and for a JSON that is larger than an input may be.
class SettingsFile : public CLI::ConfigTOML {
public:
    explicit SettingsFile(const CLI::App& program) : program_(program) {}

    std::vector<CLI::ConfigItem> from_config(std::istream& stream) const override;

private:
    std::vector<CLI::ConfigItem> FromToml(const std::string& text) const;
    std::vector<CLI::ConfigItem> FromJson(const std::string& text) const;
    const CLI::App* Command() const;

    const CLI::App& program_;
};

} // namespace vastrel
