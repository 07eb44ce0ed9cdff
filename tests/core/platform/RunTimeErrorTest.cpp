#include "core/platform/RunTimeError.h"

#include "support/RaisedError.h"

#include <gtest/gtest.h>

#include <utility>

using namespace vastrel;

TEST(RunTimeError, CarriesNumberSourceAndDescription) {
    const RunTimeError error(5009, "cMathLib", "does not fit");
    EXPECT_EQ(error.Number(), 5009);
    EXPECT_EQ(error.Source(), "cMathLib");
    EXPECT_EQ(error.Description(), "does not fit");
}

TEST(RunTimeError, EndsTheCommandAloneUnlessItIsTold) {
    RunTimeError error(53, "CShapeFile", "File not found");
    EXPECT_FALSE(error.EndsProcess());
    error.SetEndsProcess();
    EXPECT_TRUE(error.EndsProcess());
}

TEST(RunTimeError, HasTheCustomaryNumbersAndWords) {
    const std::pair<long, const char*> customary[] = {{5, "Invalid procedure call or argument"},
                                                      {6, "Overflow"},
                                                      {7, "Out of memory"},
                                                      {9, "Subscript out of range"},
                                                      {11, "Division by zero"},
                                                      {13, "Type mismatch"},
                                                      {14, "Out of string space"},
                                                      {53, "File not found"},
                                                      {61, "Disk full"},
                                                      {62, "Input past end of file"},
                                                      {70, "Permission denied"},
                                                      {75, "Path/File access error"},
                                                      {91, "Object variable not set"},
                                                      {94, "Invalid use of Null"},
                                                      {3021, "No current record"},
                                                      {3265, "Item not found in this collection"},
                                                      {4711, "Application-defined error"}};
    for (const auto& [number, words] : customary)
        EXPECT_EQ(CustomaryText(number), words) << number;
}

TEST(RunTimeError, PutsADetailOnALineOfItsOwn) {
    EXPECT_EQ(ErrorDescriptionOf([] { RaiseCustomary(Overflow, "test"); }), "Overflow");
    EXPECT_EQ(ErrorDescriptionOf([] { RaiseCustomary(Overflow, "test", "line 3"); }), "Overflow\nline 3");
    try {
        RaiseCustomary(TypeMismatch, "ToNumber");
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number(), 13);
        EXPECT_EQ(error.Source(), "ToNumber");
    }
}

TEST(RunTimeError, IsReportedWithItsNumber) {
    EXPECT_EQ(ReportText(RunTimeError(11, "x", "Division by zero")),
              "Run-time error '11':\n\nDivision by zero");
    EXPECT_EQ(ReportText(RunTimeError(5022, "x", "null")), "Run-time error '5022':\n\nnull");
    EXPECT_EQ(ReportText(RunTimeError(32767, "x", "a")), "Run-time error '32767':\n\na");
}

TEST(RunTimeError, IsReportedWithTheHexadecimalFormOfALargeNumber) {
    // 0x80040001 as a signed number of 32 bits: 2147745793 - 4294967296
    EXPECT_EQ(ReportText(RunTimeError(-2147221503, "x", "a")),
              "Run-time error '-2147221503 (80040001)':\n\na");
    EXPECT_EQ(ReportText(RunTimeError(32768, "x", "a")), "Run-time error '32768 (00008000)':\n\na");
}
