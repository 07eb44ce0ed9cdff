#pragma once

#include "support/BatchProgramShell.h"
#include "support/SampleRuns.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <filesystem>

namespace vastrel {

/// A folder with copies of the samples, which is the current folder of the test.
class PartsOfARange : public testing::Test {
protected:
    PartsOfARange() {
        CopySamples(folder_, {"country.shp", "country.shx", "country.dbf", "country.cpg", "country_exp.txt"});
        folder_.Write("three.txt", "A,0,0,9,4\nB,1,0,3,6\nC,0,1,5,7\n");
        std::filesystem::current_path(folder_.Path());
    }

    static std::string PartName(int number) { return "part" + std::to_string(number); }

    /// The words that compute part `number` of `of`.
    static Words PartOf(const Words& words, int number, int of) {
        return words + Words{"--part", std::to_string(number) + "/" + std::to_string(of), "--state",
                             PartName(number)};
    }

    /// Computes all parts, and gives their files.
    static Words Parts(const Words& words, int of) {
        Words files;
        for (int number = of; number >= 1; --number) { // joined in any order
            EXPECT_EQ(RunBatch(PartOf(words, number, of)), (BatchResult{0, "", ""})) << number;
            files.push_back(PartName(number));
        }
        return files;
    }

    /// The bytes of all files that the words make, which go away again.
    static std::vector<std::string> Made(const Words& words, const Words& files) {
        EXPECT_EQ(RunBatch(words), (BatchResult{0, "", ""}));
        std::vector<std::string> bytes;
        for (const auto& file : files) {
            bytes.push_back(ReadFile(file));
            EXPECT_FALSE(bytes.back().empty()) << file;
            std::filesystem::remove(file);
        }
        return bytes;
    }

    /// That these parts are refused in these words, and nothing is written.
    static void ExpectRefused(const Words& parts, const std::string& what) {
        EXPECT_EQ(RunBatch(Words{"join"} + parts + Words{"--lists", "lists.txt", "--json", "out.json"}),
                  (BatchResult{3, "", what + "\n"}));
        EXPECT_FALSE(std::filesystem::exists("lists.txt") || std::filesystem::exists("out.json"));
    }

    static nlohmann::ordered_json Content(const std::string& bytes) {
        return nlohmann::ordered_json::from_cbor(bytes.substr(0, bytes.size() - SealSize));
    }

    static std::string Cbor(const nlohmann::ordered_json& json) {
        std::string bytes;
        nlohmann::ordered_json::to_cbor(json, bytes);
        return bytes;
    }

    /// Writes a part of this content with the seal that it needs.
    void WriteSealed(const std::string& name, const std::string& content) const {
        folder_.Write("content", content);
        const auto sum = RunShell("sha256sum content | cut -c-64 | tr -d '\\n'").Output;
        folder_.Write(name, content + Cbor(sum));
    }

    static constexpr size_t SealSize = 66;

    const Words Range{"--from", "0.2", "--to", "1.1", "--step", "0.35"}; // 0.2, 0.55, 0.9, 1.25 kept as 1.1
    const Words Points = Words{"retrospective-points", "country_exp.txt", "--format", "obs-exp"} + Range;
    const Words Polygons = Words{"retrospective-polygons",
                                 "country.shp",
                                 "--pop",
                                 "POP",
                                 "--cases",
                                 "CASES",
                                 "--id",
                                 "NAME",
                                 "--id2",
                                 "ID"} +
                           Range;
    const Words Three = Words{"retrospective-points", "three.txt", "--format", "obs-exp"} + Range;

    TemporaryFolder folder_;
};

} // namespace vastrel
