#include "support/BrokenBytes.h"
#include "support/PartsOfARange.h"

using namespace vastrel;

namespace {

namespace fs = std::filesystem;
using Json = nlohmann::ordered_json;

class SweepPart : public PartsOfARange {};

} // namespace

TEST_F(SweepPart, NamesAPartOfAnotherVersion) {
    Parts(Three, 2);
    auto content = Content(ReadFile("part2"));
    const std::string version = content["Program"]["Version"];
    content["Program"]["Version"] = "0.9";
    WriteSealed("part2", Cbor(content));
    ExpectRefused({"part1", "part2"}, "part2 was written by vastrel-batch 0.9, and this is " + version + ".");
    content["Form"] = 2;
    WriteSealed("part2", Cbor(content));
    ExpectRefused({"part1", "part2"}, "part2 has the form 2; this program reads 1.");
}

TEST_F(SweepPart, NamesWhatIsNoPart) {
    Parts(Three, 2);
    Made(Three + Words{"--json", "out.json"}, {});
    fs::rename("out.json", "earlier.json");
    folder_.Write("empty", "");
    folder_.Write("text", std::string(1000, 'a'));
    for (const auto* name : {"earlier.json", "empty", "text", "country.shp"})
        ExpectRefused({"part1", name}, std::string(name) + " is no whole part of a range.");
}

TEST_F(SweepPart, RefusesAPartThatWasCutOrChangedAnywhere) {
    Parts(Words{"retrospective-points", "three.txt", "--format", "obs-exp", "--from", "1", "--to", "2",
                "--step", "5"},
          1);
    const auto whole = ReadFile("part1");
    ASSERT_LT(whole.size(), 1000u);
    fs::create_directory("broken");
    int count = 0;
    ForEachBroken(whole, 3, {0x80, 0x01}, [&](const auto& bytes, const auto&) {
        folder_.Write("broken/" + std::to_string(count++), bytes);
    });
    const auto result = RunShell("for f in broken/*; do \"$BATCH\" join $f 2>&1; echo $?; done | sed "
                                 "'s,broken/[0-9]*,F,' | sort | uniq -c | tr -s ' '");
    EXPECT_EQ(result.Output, " " + std::to_string(count) + " 3\n " + std::to_string(count) +
                                 " F is no whole part of a range.\n");
}

TEST_F(SweepPart, LooksIntoAPartThatSomebodyElseHasSealed) {
    Parts(Three, 1);
    const Json sound = Content(ReadFile("part1"));
    const std::string noPart = "part1 is no whole part of a range.";
    const auto refused = [&](const std::string& pointer, const Json& value, const std::string& what) {
        auto content = sound;
        content[Json::json_pointer(pointer)] = value;
        WriteSealed("part1", Cbor(content));
        ExpectRefused({"part1"}, what);
    };
    for (const auto& [pointer, value] :
         std::vector<std::pair<std::string, Json>>{{"/Part/Of", 0},
                                                   {"/Part/Of", 1e300},
                                                   {"/Part/Of", -1},
                                                   {"/Part/Number", 2},
                                                   {"/Part", Json::array()},
                                                   {"/Steps", 1},
                                                   {"/Steps/0", "a"},
                                                   {"/Steps/0/SweepStat", NAN},
                                                   {"/Steps/0/SweepChi", "1"},
                                                   {"/Steps/0/StatisticTable/1", INFINITY},
                                                   {"/Settings", 1},
                                                   {"/Settings/alpha", 0.05},
                                                   {"/Settings/Command", 1},
                                                   {"/Inputs", "a"},
                                                   {"/Inputs/0/Bytes", -1e300},
                                                   {"/Program", nullptr}})
        refused(pointer, value, noPart);
    const std::string notItsSteps = "part1 does not hold the steps of its run.";
    refused("/Steps", Json::array(), notItsSteps);
    refused("/Steps/4", sound["Steps"][0], notItsSteps);
    refused("/Steps/2/StatisticTable", Json::array({1, 2}), notItsSteps);
    refused("/Settings/to", "1.5", notItsSteps);
    for (const auto* name : {"lists", "state", "part", "help", "version", "config", "none", "quiet"})
        refused(std::string("/Settings/") + name, "x",
                std::string("The parts are of a run with the setting \"") + name + "\", which there is not.");
    refused("/Settings/Command", "join",
            "The parts are of a run with the setting \"FILE\", which there is not.");
    refused("/Settings/variable", "x",
            "The parts are of a run that there is not: --variable: x not in "
            "{adjusted,freeman-tukey,rossi,unadjusted}");
    refused("/Settings/sigma", "1", "The parts are of a run that there is not: --sigma excludes --from");
}

TEST_F(SweepPart, ReadsOnlyPlainContent) {
    for (const auto& content :
         {std::string(1000000, '\x81'), std::string(1000000, '\x7f'), std::string(1000000, '\xc1'),
          std::string("\x9b\x7f\xff\xff\xff\xff\xff\xff\xff"),
          std::string("\x7b\x7f\xff\xff\xff\xff\xff\xff\xff")}) {
        WriteSealed("part1", content);
        ExpectRefused({"part1"}, "part1 is no whole part of a range.");
    }
}
