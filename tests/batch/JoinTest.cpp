#include "support/PartsOfARange.h"

using namespace vastrel;

namespace {

namespace fs = std::filesystem;
using Json = nlohmann::ordered_json;

class Join : public PartsOfARange {
protected:
    /// A range from 1 on three points.
    static Words RossiOfThree(const std::string& to, const std::string& step) {
        return {"retrospective-points",
                "three.txt",
                "--format",
                "obs-exp",
                "--variable",
                "rossi",
                "--from",
                "1",
                "--to",
                to,
                "--step",
                step};
    }
};

/// A PDF tells the second in which it was made.
std::string WithoutDate(std::string bytes) {
    const std::string date = "/CreationDate (D:";
    constexpr size_t digits = 14;
    if (const auto place = bytes.find(date); place != std::string::npos)
        bytes.erase(place, date.size() + digits);
    return bytes;
}

} // namespace

TEST_F(Join, GivesEveryByteOfTheOneRun) {
    Words files{"lists.txt", "report.txt", "out.json", "table.csv", "layer.shp", "layer.dbf", "layer.shx"};
    Words outputs{"--lists",  "lists.txt", "--report",  "report.txt", "--json",
                  "out.json", "--table",   "table.csv", "--layer",    "layer.shp"};
#if VASTREL_PICTURES
    files = files + Words{"map.png", "chart.svg"};
    outputs = outputs + Words{"--map", "map.png", "--map-step", "3", "--chart", "chart.svg"};
#endif
    for (const auto& command : {Points, Polygons})
        for (const auto* variable : {"unadjusted", "adjusted", "freeman-tukey", "rossi"}) {
            const Words run = command + Words{"--variable", variable};
            const auto one = Made(run + outputs, files);
            for (const int of : {1, 2, 3, 7}) { // of four steps: some parts of seven are empty
                const Words parts = Parts(run, of);
                EXPECT_TRUE(Made(Words{"join"} + parts + outputs, files) == one)
                    << command[0] << " " << variable << " " << of;
            }
        }
}

TEST_F(Join, GivesTheOtherKindsOfOutputToo) {
    std::vector<Words> kinds{{"--layer", "layer.geojson"}, {"--json", "out.json"}};
#if VASTREL_PICTURES
    kinds.insert(
        kinds.end(),
        {{"--map", "map.svg", "--map-step", "1"}, {"--chart", "chart.png"}, {"--chart", "chart.pdf"}});
#endif
    for (const auto& command : {Points, Polygons}) {
        const Words one = command + Words{"--alpha", "0.01"};
        const Words joined = Words{"join"} + Parts(one, 2);
        EXPECT_EQ(RunBatchWithNotes(joined), RunBatchWithNotes(one));
        for (const auto& kind : kinds)
            EXPECT_TRUE(WithoutDate(Made(joined + kind, {kind[1]})[0]) ==
                        WithoutDate(Made(one + kind, {kind[1]})[0]))
                << kind[1];
    }
}

TEST_F(Join, TakesTheTextsOfTheSettingsAsTheyWereGiven) {
    fs::copy_file("three.txt", "-a [b], \"c\".txt");
    const Words run{"retrospective-points",
                    "--format=obs-exp",
                    "--from",
                    " 0",
                    "--to",
                    "1.0",
                    "--surface",
                    "5595,4275,369,281",
                    "--zoom",
                    "0.9",
                    "--",
                    "-a [b], \"c\".txt"};
    const auto with = [&](const Words& more) {
        return Words{run.front()} + more + Words(run.begin() + 1, run.end());
    };
    EXPECT_EQ(RunBatch(with({"--part", "1/1", "--state", "part1"})), (BatchResult{0, "", ""}));
    EXPECT_EQ(Made({"join", "part1", "--json", "out.json"}, {"out.json"}),
              Made(with({"--json", "out.json"}), {"out.json"}));
}

TEST_F(Join, ShowsTheMessagesOfTheOneRun) {
    const Words run = RossiOfThree("20", "10");
    const auto one = RunBatch(run);
    EXPECT_NE(one.Errors, ""); // M* has no value
    EXPECT_EQ(RunBatch(PartOf(run, 1, 2)).Status, 0);
    EXPECT_EQ(RunBatch(PartOf(run, 2, 2)).Status, 0);
    EXPECT_EQ(RunBatch({"join", "part1", "part2"}), one);
}

TEST_F(Join, RefusesAWrongPart) {
    for (const auto* part : {"", "1", "0/3", "4/3", "-1/3", "1/0", "1/-3", "1/3/", "1/3 ", " 1/3", "a/b", "/",
                             "1.0/3", "1/1000000", "1/99999999999999999999"}) {
        const auto result = RunBatch(Three + Words{"--part", part, "--state", "state"});
        EXPECT_EQ(result.Status, 2) << part;
        EXPECT_NE(result.Errors, "") << part;
    }
    const Words part{"--part", "1/2"}, state{"--state", "state"};
    for (const Words& more :
         {part, state, part + state + Words{"--lists", "lists.txt"},
          part + state + Words{"--json", "out.json"}, part + Words{"--state", "three.txt"}})
        EXPECT_EQ(RunBatch(Three + more).Status, 2) << more.back();
    const Words single{"retrospective-points", "three.txt", "--format", "obs-exp", "--sigma", "1"};
    EXPECT_EQ(RunBatch(single + part + state).Status, 2);
    EXPECT_FALSE(fs::exists("state") || fs::exists("lists.txt") || fs::exists("out.json"));
    EXPECT_EQ(RunBatch(Words{"prospective-points"} + part).Status, 2);
    EXPECT_EQ(RunBatch({"join"}).Status, 2);
}

TEST_F(Join, WritesNoFileThatIsAPartOrAnInput) {
    Parts(Three, 2);
    const auto before = ReadFile("part1");
    EXPECT_EQ(RunBatch({"join", "part1", "part2", "--lists", "./part1"}),
              (BatchResult{2, "", "./part1 is an input.\n"}));
    EXPECT_EQ(RunBatch({"join", "part1", "part2", "--lists", "three.txt"}),
              (BatchResult{2, "", "three.txt is an input.\n"}));
    EXPECT_EQ(RunBatch({"join", "part1", "part2", "--lists", "a", "--json", "a"}).Status, 2);
    EXPECT_EQ(RunBatch({"join", "part1", "part2", "--chart", "a.txt"}).Status, 2);
    EXPECT_EQ(RunBatch({"join", "part1", "part2", "--sigma", "1"}).Status, 2);
    EXPECT_EQ(ReadFile("part1"), before);
}

// With the settings of a run that is made again, what the parts cannot have falls away.
TEST_F(Join, TakesPartsOfAnEarlierRun) {
    const auto json =
        Made(Three + Words{"--json", "out.json", "--lists", "lists.txt"}, {"out.json", "lists.txt"});
    folder_.Write("earlier.json", json[0]);
    for (const auto* number : {"1", "2"})
        EXPECT_EQ(RunBatch({"again", "earlier.json", "--part", std::string(number) + "/2", "--state",
                            std::string("part") + number}),
                  (BatchResult{0, "", ""}));
    EXPECT_EQ(Made({"join", "part1", "part2", "--json", "out.json", "--lists", "lists.txt"},
                   {"out.json", "lists.txt"}),
              json);
}

TEST_F(Join, NamesThePartsThatAreMissing) {
    Parts(Three, 3);
    ExpectRefused({"part1", "part3"}, "Part 2 of 3 is missing.");
    ExpectRefused({"part2"}, "Parts 1, 3 of 3 are missing.");
    ExpectRefused({"part1", "part2", "part4"}, "part4 is not there.");
    EXPECT_EQ(RunBatch(PartOf(Three, 500, 999999)).Status, 0);
    ExpectRefused({"part500"}, "Parts 1, 2, 3, 4, 5, 6, 7, 8, 9, 10 and 999988 more of 999999 are missing.");
    fs::create_directory("folder");
    EXPECT_EQ(RunBatch({"join", "part1", "folder", "part3"}).Status, 4);
}

TEST_F(Join, NamesAPartThatIsThereTwice) {
    Parts(Three, 3);
    fs::copy_file("part2", "copy");
    ExpectRefused({"part1", "part2", "part3", "copy"}, "part2 and copy are both part 2 of 3.");
    ExpectRefused({"part1", "part1", "part3"}, "part1 and part1 are both part 1 of 3.");
}

TEST_F(Join, NamesAPartOfAnotherRun) {
    Parts(Three, 2);
    const auto other = [&](const Words& words, const std::string& part, const std::string& what) {
        EXPECT_EQ(RunBatch(words + Words{"--part", part, "--state", "other"}).Status, 0);
        ExpectRefused({"part1", "other"}, what);
    };
    const std::string settings = "other was made with other settings than part1: ";
    other(Three, "2/3", "other is part 2 of 3, and part1 is part 1 of 2.");
    other(Three + Words{"--alpha", "0.01"}, "2/2", settings + "alpha differs.");
    other(Three + Words{"--variable", "rossi"}, "2/2", settings + "variable differs.");
    other(Polygons, "2/2", settings + "the command differs.");
    fs::copy_file("three.txt", "again.txt");
    auto renamed = Three;
    renamed[1] = "again.txt";
    other(renamed, "2/2", settings + "FILE differs.");
    folder_.Write("three.txt", "A,0,0,9,4\nB,1,0,3,6\nC,0,1,5,8\n");
    other(Three, "2/2", "other was made from other input than part1: three.txt differs.");
}

TEST_F(Join, HoldsTheInputAgainstThatOfTheParts) {
    const Words parts = Parts(Polygons, 2);
    folder_.Write("country.cpg", "ISO-8859-1");
    ExpectRefused(parts, "country.cpg is not what it was: its SHA-256 differs.");
    fs::remove("country.cpg");
    ExpectRefused(parts, "country.cpg is not there any more.");
}

// One call of the shell for all, since there are thousands.
// The lengths, depths and kinds of which a reader can die.
// The bandwidth overflows at the second step: so does its part, in the same words, and leaves no file.
TEST_F(Join, LeavesOutAPartThatEndedInAFault) {
    const Words run = RossiOfThree("1e300", "5e299");
    const auto one = RunBatch(run + Words{"--lists", "lists.txt"});
    EXPECT_EQ(one.Status, 4);
    EXPECT_EQ(RunBatch(PartOf(run, 1, 3)).Status, 0);
    for (const int number : {2, 3})
        EXPECT_EQ(RunBatch(PartOf(run, number, 3)), one);
    ExpectRefused({"part1", "part2", "part3"}, "part2 is not there.");
}

TEST_F(Join, WaitsForAPartThatIsAtWorkOrWasKilled) {
    const auto one = Made(Points + Words{"--json", "out.json"}, {"out.json"});
    EXPECT_EQ(RunBatch(PartOf(Points, 1, 2)), (BatchResult{0, "", ""}));
    // Stopped, the second one is at work for as long as it takes to look.
    const std::string part2 = "\"$BATCH\" retrospective-points country_exp.txt --format obs-exp --from 0.2 "
                              "--to 1.1 --step 0.35 --part 2/2 --state part2";
    const std::string join = "\"$BATCH\" --quiet join part1 part2 --json out.json";
    EXPECT_EQ(RunShell(part2 + " --quiet & kill -STOP $!; " + join + "; echo $?; kill -KILL $!; wait; " +
                       join + "; echo $?; ls -A | grep -c part"),
              (BatchResult{0, "3\n3\n1\n", "part2 is not there.\npart2 is not there.\n"}));
    EXPECT_EQ(RunShell(part2 + " --quiet & kill -STOP $!; " + join + "; echo $?; kill -CONT $!; wait; " +
                       join + "; echo $?"),
              (BatchResult{0, "3\n0\n", "part2 is not there.\n"}));
    EXPECT_EQ(ReadFile("out.json"), one[0]);
}

TEST_F(Join, LeavesWhatWasThereWhereItIsRefused) {
    Parts(Three, 2);
    folder_.Write("lists.txt", "before");
    EXPECT_EQ(RunBatch({"join", "part1", "--lists", "lists.txt"}).Status, 3);
    EXPECT_EQ(ReadFile("lists.txt"), "before");
}

TEST_F(Join, ReadsPartsThatComeThroughPipes) {
    const auto one = Made(Three + Words{"--json", "out.json"}, {"out.json"});
    Parts(Three, 2);
    EXPECT_EQ(RunShell("cat part2 | \"$BATCH\" --quiet join part1 /dev/stdin --json out.json").Status, 0);
    EXPECT_EQ(ReadFile("out.json"), one[0]);
}
