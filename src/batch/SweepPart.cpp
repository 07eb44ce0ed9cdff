#include "batch/SweepPart.h"

#include "batch/Checksum.h"
#include "batch/Command.h"
#include "core/numeric/Memory.h"
#include "core/platform/RunTimeError.h"
#include "core/text/PlainCbor.h"
#include "core/text/WholeFile.h"
#include "core/workspace/Workspace.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace vastrel {

using Json = nlohmann::ordered_json;

namespace {

constexpr int Form = 1;
constexpr std::ptrdiff_t MostParts = 999999;
constexpr size_t SealSize = 66;     // of a CBOR text with the 64 digits of a SHA-256
constexpr double BytesOfValue = 64; // that a value takes once it is read, at most

constexpr std::pair<const char*, double SweepStep::*> Numbers[] = {{"SweepStat", &SweepStep::Stat},
                                                                   {"SweepChi", &SweepStep::Chi},
                                                                   {"SweepDF", &SweepStep::DF},
                                                                   {"SweepMaxM", &SweepStep::MaxM}};

std::string CborOf(const Json& json) {
    std::string bytes;
    Json::to_cbor(json, bytes);
    return bytes;
}

std::string SealOf(std::string_view bytes) {
    Checksum sum;
    sum.Add(bytes);
    return CborOf(sum.Text());
}

Json JsonOf(const SweepStep& step) {
    Json json;
    for (const auto& [key, value] : Numbers)
        json[key] = step.*value;
    auto& local = json["StatisticTable"] = Json::array();
    for (std::ptrdiff_t i = 1; i <= step.Local.UpperBound(); ++i)
        local.push_back(step.Local(i));
    return json;
}

/// Content that no part has.
struct NoPart : std::exception {};

std::string ReadBytes(const std::string& path) try {
    return ReadWholeFile(path);
} catch (const RunTimeError& error) {
    if (error.Number() != FileNotFound) throw;
    throw InputRefused(path + " is not there."); // not yet, where another machine is at work on it
}

/// The first item of a file, whose second one is its seal.
Json ContentOf(const std::string& path) {
    const std::string bytes = ReadBytes(path);
    if (bytes.size() < SealSize) throw NoPart();
    const auto content = std::string_view(bytes).substr(0, bytes.size() - SealSize);
    const size_t values = CountPlainCbor(content);
    if (values == 0 || bytes.substr(content.size()) != SealOf(content)) throw NoPart();
    RequireMemory(BytesOfValue * static_cast<double>(values), "join");
    return Json::from_cbor(content.begin(), content.end());
}

double FiniteNumber(const Json& json) {
    const double value = json.is_number() ? json.get<double>() : NAN;
    if (!std::isfinite(value)) throw NoPart();
    return value;
}

std::ptrdiff_t WholeNumber(const Json& json) {
    const auto value = json.is_number_unsigned() ? json.get<std::uint64_t>() : 0;
    if (value < 1 || value > MostParts) throw NoPart();
    return static_cast<std::ptrdiff_t>(value);
}

SweepStep StepOf(const Json& json) {
    SweepStep step;
    for (const auto& [key, value] : Numbers)
        step.*value = FiniteNumber(json.at(key));
    const Json& local = json.at("StatisticTable");
    step.Local.ReDim(static_cast<std::ptrdiff_t>(local.size()));
    for (size_t i = 0; i < local.size(); ++i)
        step.Local(static_cast<std::ptrdiff_t>(i) + 1) = FiniteNumber(local.at(i));
    return step;
}

void RequireThisProgram(const std::string& path, const Json& content) {
    if (content.at("Form") != Form)
        throw InputRefused(path + " has the form " + content.at("Form").dump() + "; this program reads " +
                           std::to_string(Form) + ".");
    const auto version = content.at("Program").at("Version").get<std::string>();
    if (version != VASTREL_VERSION)
        throw InputRefused(path + " was written by vastrel-batch " + version +
                           ", and this is " VASTREL_VERSION ".");
}

SweepPart PartOf(const std::string& path, const Json& content) {
    RequireThisProgram(path, content);
    SweepPart part{path, RunOf(content), {}, {}};
    part.Share = {WholeNumber(content.at("Part").at("Number")), WholeNumber(content.at("Part").at("Of"))};
    if (part.Share.Number > part.Share.Of) throw NoPart();
    for (const Json& step : content.at("Steps"))
        part.Steps.push_back(StepOf(step));
    return part;
}

} // namespace

SweepShare ParseShare(const std::string& text) {
    SweepShare share;
    const char* const end = text.data() + text.size();
    const auto number = std::from_chars(text.data(), end, share.Number);
    const auto of = number.ptr != end && *number.ptr == '/'
                        ? std::from_chars(number.ptr + 1, end, share.Of)
                        : std::from_chars_result{end, std::errc::invalid_argument};
    if (number.ec != std::errc() || of.ec != std::errc() || of.ptr != end || share.Number < 1 ||
        share.Number > share.Of || share.Of > MostParts)
        throw WrongUse("--part takes K/N, part K of N: 1/3, 2/3, 3/3. N goes up to " +
                       std::to_string(MostParts) + ".");
    return share;
}

std::string BytesOfPart(const Json& header, const SweepShare& share) {
    Json content{{"Form", Form}};
    content.update(header);
    content["Part"] = {{"Number", share.Number}, {"Of", share.Of}};
    auto& steps = content["Steps"] = Json::array();
    for (std::ptrdiff_t k = share.Number - 1; k < ws.BandwidthCount; k += share.Of)
        steps.push_back(JsonOf(StepOfSweep(k)));
    const std::string bytes = CborOf(content);
    return bytes + SealOf(bytes);
}

SweepPart ReadPart(const std::string& path) {
    const auto refuse = [&]() -> InputRefused {
        return InputRefused(path + " is no whole part of a range.");
    };
    try {
        return PartOf(path, ContentOf(path));
    } catch (const NoPart&) {
        throw refuse();
    } catch (const Json::exception&) {
        throw refuse();
    }
}

} // namespace vastrel
