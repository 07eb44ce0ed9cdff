#include "batch/Program.h"

#include "batch/FileRoles.h"
#include "batch/Settings.h"

#include <algorithm>

namespace vastrel {

namespace {

constexpr AddCommand Commands[] = {AddRetrospectivePoints,
                                   AddRetrospectivePolygons,
                                   AddProspectivePoints,
                                   AddProspectivePolygons,
                                   AddExport,
                                   AddCentroids,
                                   AddPValue,
                                   AddHValue,
                                   AddAgain,
                                   AddJoin};

/// The words of the command line in the order that the parser takes, last first. The words of p-value stand
/// behind a "--", since they may begin with a minus sign. "--sigma=" is --sigma with an empty text, which the
/// parser would take from the next word.
std::vector<std::string> ParserWords(const std::vector<std::string>& given) {
    std::vector<std::string> words;
    for (const std::string& word : given) {
        const bool emptyValue = word.rfind("--", 0) == 0 && word.find('=') == word.size() - 1;
        words.push_back(emptyValue ? word.substr(0, word.size() - 1) : word);
        if (emptyValue) words.emplace_back();
    }
    const auto command =
        std::find_if(words.begin(), words.end(), [](const auto& word) { return word.rfind("-", 0) != 0; });
    const bool isPValue = command != words.end() && *command == PValueCommand;
    if (isPValue && words.end() - command > 1 && command[1].rfind("-", 0) != 0)
        words.insert(command + 1, "--");
    std::reverse(words.begin(), words.end());
    return words;
}

} // namespace

Program::Program(ConsolePlatform& console) {
    options_.Console = &console;
    options_.Record = &record_;
    options_.Parts = &parts_;
    parser_.set_version_flag("--version", "vastrel-batch " VASTREL_VERSION);
    parser_.add_flag("--quiet", options_.Quiet, "no progress on standard error");
    parser_.set_config("--config", "", "settings of the command (TOML)")->take_all();
    parser_.config_formatter(std::make_shared<SettingsFile>(parser_));
    parser_.allow_config_extras(CLI::config_extras_mode::error);
    parser_.require_subcommand(1);
    parser_.fallthrough();
    for (const auto add : Commands)
        add(parser_, options_, run_);
    for (auto* command : parser_.get_subcommands({}))
        command->set_version_flag("--version", "vastrel-batch " VASTREL_VERSION);
}

ExitStatus Program::Run(const std::vector<std::string>& words) {
    parser_.parse(ParserWords(words));
    RequireSeparateFiles(parser_);
    record_.Begin(*parser_.get_subcommands().front());
    return RunCommand(run_)(); // a copy: again sets another
}

} // namespace vastrel
