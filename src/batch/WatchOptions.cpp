#include "batch/WatchOptions.h"

#include "batch/Pictures.h"

#include <filesystem>

namespace vastrel {

namespace {

const std::string PictureBegin = "period";
const std::string PictureEnd = ".png";

} // namespace

void WatchOptions::AddTo(CLI::App& command) {
    command.add_option("--k", Parameters.K, "reference value")->capture_default_str()->group("Test");
    command.add_option("--h", Parameters.H, "threshold")->capture_default_str()->group("Test");
    command.add_option("--sigma", Parameters.Sigma, "bandwidth of the spatial filter, 0 for none")
        ->capture_default_str()
        ->group("Test");

    command.add_option("--lists", Lists, "the rows of the periods, then of the signalled regions")
        ->group("Output");
    command.add_option("--report", Report, "the report file")->group("Output");
    command.add_option("--cusum", Cusum, "the cusum file")->group("Output");
    command.add_option("--maps", Maps, "folder for one picture a period (.png)")->group("Output");
    command.add_option("--chart", Chart, "the chart of the maxima (.png, .svg or .pdf)")->group("Output");
    command.add_option("--json", Json, "every number")->group("Output");
    Layer.AddTo(command);
    command
        .add_option("--signal-status", SignalStatus,
                    "exit status where a region signals in the last period, 10 to 99")
        ->check(CLI::Range(10, 99))
        ->group("Output");
}

void WatchOptions::Check() const {
    Layer.Check();
    if (!Maps.empty()) RequirePictureEnding(PeriodPicture(Maps, 1, 1), {".png"});
    RequirePictureEnding(Chart, {".png", ".svg", ".pdf"});
}

bool WatchOptions::AsksForNothing() const {
    return Lists.empty() && Report.empty() && Cusum.empty() && Maps.empty() && Chart.empty() &&
           Json.empty() && Layer.AsksForNothing();
}

std::string PeriodPicture(const std::string& folder, std::ptrdiff_t period, std::ptrdiff_t lastPeriod) {
    const size_t digits = std::to_string(lastPeriod).size();
    std::string number = std::to_string(period);
    number.insert(0, digits - number.size(), '0');
    return (std::filesystem::path(folder) / (PictureBegin + number + PictureEnd)).string();
}

bool IsPeriodPicture(const std::string& name) {
    if (name.size() <= PictureBegin.size() + PictureEnd.size()) return false;
    const std::string number =
        name.substr(PictureBegin.size(), name.size() - PictureBegin.size() - PictureEnd.size());
    return PictureBegin + number + PictureEnd == name &&
           number.find_first_not_of("0123456789") == std::string::npos;
}

} // namespace vastrel
