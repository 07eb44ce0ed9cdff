#include "batch/Settings.h"

#include "batch/Command.h"
#include "core/text/WholeFile.h"

#include <sstream>

namespace vastrel {

using Json = nlohmann::ordered_json;

namespace {

constexpr std::uint64_t LongestToml = std::uint64_t{16} * 1024 * 1024; // what is read of it takes far more
constexpr const char* NoSettings = "The file holds no settings of an earlier run.";

/// Options that tell of the program, not of a run.
bool IsSetting(const CLI::App& command, const CLI::Option& option) {
    return &option != command.get_help_ptr() && &option != command.get_version_ptr();
}

bool GoesWithWhatIsGiven(const CLI::Option& option) {
    for (const CLI::Option* other : option.get_excludes())
        if (other->count() > 0) return false;
    for (const CLI::Option* other : option.get_needs())
        if (other->count() == 0) return false;
    return true;
}

/// The texts of an option in force; none where it is not.
std::vector<std::string> TextsInForce(const CLI::Option& option) {
    if (option.count() > 0) return option.results();
    const std::string text = option.get_default_str();
    return text.empty() || !GoesWithWhatIsGiven(option) ? std::vector<std::string>() : std::vector{text};
}

std::vector<std::string> TextsOf(const Json& setting) {
    return setting.is_array() ? setting.get<std::vector<std::string>>()
                              : std::vector{setting.get<std::string>()};
}

} // namespace

Json SettingsOf(const CLI::App& command) {
    Json settings;
    settings["Command"] = command.get_name();
    for (const CLI::Option* option : command.get_options()) {
        if (!IsSetting(command, *option)) continue;
        const auto texts = TextsInForce(*option);
        if (texts.empty()) continue;
        const bool single = option->get_items_expected_max() <= 1;
        settings[option->get_single_name()] = single ? Json(texts.front()) : Json(texts);
    }
    return settings;
}

EarlierRun RunOf(const Json& json) {
    EarlierRun earlier;
    earlier.Settings = json.at("Settings");
    earlier.Command = earlier.Settings.at("Command").get<std::string>();
    earlier.Settings.erase("Command");
    for (const auto& [name, value] : earlier.Settings.items())
        TextsOf(value);
    for (const auto& file : json.at("Inputs"))
        earlier.Inputs.push_back({file.at("Path").get<std::string>(),
                                  file.at("Bytes").get_ref<const Json::number_unsigned_t&>(),
                                  file.at("SHA256").get<std::string>()});
    return earlier;
}

EarlierRun ReadEarlierRun(const std::string& text) try {
    constexpr int deepest = 32;       // a run writes
    constexpr int mostKept = 1000000; // far less
    bool isHead = true;
    int kept = 0;
    return RunOf(Json::parse(text, [&](int depth, Json::parse_event_t event, const Json& parsed) {
        const bool isTopKey = depth == 1 && event == Json::parse_event_t::key;
        if (isTopKey) isHead = parsed == "Settings" || parsed == "Inputs";
        if (depth > deepest || (isHead && ++kept > mostKept)) throw InputRefused(NoSettings);
        return !isTopKey || isHead;
    }));
} catch (const Json::exception&) {
    throw InputRefused(NoSettings);
}

std::vector<std::string> WordsOf(const std::string& option, const std::string& value) {
    return value.empty() ? std::vector{option, value} : std::vector{option + "=" + value};
}

std::vector<CLI::ConfigItem> SettingsFile::from_config(std::istream& stream) const {
    if (Command() == nullptr) return {}; // the parser tells what is missing
    const bool isJson = (stream >> std::ws).peek() == '{';
    const std::string text =
        ReadToEnd(stream, "The configuration file", isJson ? LargestPipe() : LongestToml);
    auto settings = isJson ? FromJson(text) : FromToml(text);
    std::erase_if(settings, [&](const CLI::ConfigItem& item) {
        if (item.parents.empty()) return false;
        const CLI::Option* option = Command()->get_option_no_throw("--" + item.name);
        return option != nullptr && std::ranges::any_of(option->get_excludes(), [](const CLI::Option* other) {
                   return other->count() > 0;
               });
    });
    return settings;
}

const CLI::App* SettingsFile::Command() const {
    const auto chosen = program_.get_subcommands();
    return chosen.empty() ? nullptr : chosen.front();
}

std::vector<CLI::ConfigItem> SettingsFile::FromToml(const std::string& text) const {
    std::vector<CLI::ConfigItem> settings;
    std::istringstream stream(text);
    for (auto& item : ConfigBase::from_config(stream)) {
        const bool isSectionMark = item.name == "++" || item.name == "--";
        const bool ofCommand = item.parents.empty() || item.parents.front() == Command()->get_name();
        if (isSectionMark || !ofCommand) continue;
        const bool ofProgram =
            item.parents.empty() && program_.get_option_no_throw("--" + item.name) != nullptr;
        if (!ofProgram) item.parents = {Command()->get_name()};
        settings.push_back(std::move(item));
    }
    return settings;
}

std::vector<CLI::ConfigItem> SettingsFile::FromJson(const std::string& text) const {
    std::vector<CLI::ConfigItem> settings;
    const EarlierRun earlier = ReadEarlierRun(text);
    for (const auto& [name, value] : earlier.Settings.items()) {
        CLI::ConfigItem item{{Command()->get_name()}, name, TextsOf(value)};
        // What is the default anyway need not be given, and stands in the way of nothing.
        const CLI::Option* option = Command()->get_option_no_throw("--" + name);
        const bool isDefault = option != nullptr && item.inputs == std::vector{option->get_default_str()};
        if (!isDefault) settings.push_back(std::move(item));
    }
    return settings;
}

} // namespace vastrel
