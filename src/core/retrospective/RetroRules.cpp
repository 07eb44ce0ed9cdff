#include "core/retrospective/RetroRules.h"

namespace vastrel {

namespace {

using namespace RetroColumns;

const RetroFields AdjustedHeading{{"Sigma", 5}, {"U", 7},     {"Chi ", 8},
                                  {"DF  ", 7},  {"M(M*)", 8}, {"P-Val", 8}};
const RetroFields MHeading{{"Sigma", 6}, {"M  ", 8}, {"M* ", 5}};

SweepLayout SweepOfM(const char* sigmaPattern) {
    const RetroFields row{{Sigma, 6, sigmaPattern}, {M, 6, "0.00"}, {MStar, 6, "0.00"}};
    return {MHeading, row, row};
}

} // namespace

const SweepLayout& RetroRules::SweepOf(RetroVariable variable) const {
    switch (variable) {
    case RetroVariable::Unadjusted:
        return SweepUnadjusted;
    case RetroVariable::AdjustedPoisson:
        return SweepAdjusted;
    default:
        return SweepM;
    }
}

// NOLINTNEXTLINE(readability-function-size): a table
const RetroRules& PolygonRules() {
    static const RetroRules rules{
        .ReadsSecondaryID = true,
        .IDsFromColumns = true,
        .TakesNumTextRegion = false,
        .RunsAtLoad = true,
        .FillsAlphaAtLoad = false,
        .RangeOptionDisablesSave = true,
        .FirstRegionRow = 3,
        .ChartLabelPattern = "0.000",
        .PValueHeading = "P-Val    ",
        .ScoreOneID =
            {{.Heading = {{"ID", 13}, {"U(i) ", 11}, {"Z[U(i)]", 9}, {"Observed", 10}, {"Expected", 12}},
              .Row = {{ID1, 13},
                      {Local, 10, "###0.000"},
                      {Z, 10, "0.000"},
                      {Obs, 10, "0.000"},
                      {Exp, 12, "0.000"}}},
             {.Heading = {{"ID", 13}, {"U(i) ", 11}, {"Z[U(i)]", 9}, {"Observed", 10}, {"Expected", 11}},
              .Row = {{ID1, 13},
                      {Local, 10, "###0.000"},
                      {Z, 10, "0.000"},
                      {Obs, 10, "0.000"},
                      {Exp, 11, "0.000"}}}},
        .ScoreTwoIDs =
            {.Heading = {{"ID(1)", 13}, {"ID(2)", 13}, {"U(i) ", 10}, {"Z[U(i)]", 8}, {"Obs", 9}, {"Exp", 9}},
             .Row = {{ID1, 13},
                     {ID2, 13},
                     {Local, 9, "###0.000"},
                     {Z, 9, "0.000"},
                     {Obs, 9, "0.000"},
                     {Exp, 9, "0.000"}}},
        .MOneID = {.Heading = {{"ID", 13}, {"M(i) ", 11}, {"Observed", 9}, {"Expected", 10}},
                   .Row = {{ID1, 13}, {Local, 10, "###0.000"}, {Obs, 10, "0.000"}, {Exp, 10, "0.000"}}},
        .MTwoIDs =
            {.Heading = {{"ID(1)", 15}, {"ID(2)", 13}, {"M(i) ", 11}, {"Observed", 9}, {"Expected", 10}},
             .Row = {{ID1, 15}, {ID2, 13}, {Local, 10, "###0.000"}, {Obs, 10, "0.000"}, {Exp, 10, "0.000"}}},
        .SweepUnadjusted = {.Heading = {{"Sigma", 6}, {"U", 10}, {"Chi", 9}, {"DF   ", 12}, {"P-Val", 6}},
                            .Row = {{Sigma, 6, "0.000"},
                                    {Stat, 10, "0.00"},
                                    {Chi, 9, "0.00"},
                                    {DF, 9, "0.00"},
                                    {P, 9, "0.0000"}},
                            .SmallPRow = {{Sigma, 6, "0.000"},
                                          {Stat, 10, "0.00"},
                                          {Chi, 9, "0.00"},
                                          {DF, 9, "0.00"},
                                          {"   <0.001"}}},
        // M has two decimals beside a p-value and one beside "<0.001"; it is meant so.
        .SweepAdjusted = {.Heading = AdjustedHeading,
                          .Row = {{Sigma, 5, "0.00"},
                                  {Stat, 7, "0.0"},
                                  {Chi, 7, "0.0"},
                                  {DF, 6, "0.0"},
                                  {M, 5, "0.00"},
                                  {"("},
                                  {MStar, 3, "0.00"},
                                  {")"},
                                  {P, 6, "0.000"}},
                          .SmallPRow = {{Sigma, 5, "0.00"},
                                        {Stat, 7, "0.0"},
                                        {Chi, 7, "0.0"},
                                        {DF, 6, "0.0"},
                                        {M, 5, "0.0"},
                                        {"("},
                                        {MStar, 3, "0.0"},
                                        {")"},
                                        {"  <0.001"}}},
        .SweepM = SweepOfM("0.000"),
    };
    return rules;
}

const RetroRules& PointRules() {
    static const RetroLayout score{
        .Heading = {{"ID", 13}, {"U(i) ", 11}, {"Z[U(i)]", 9}, {"Observed", 11}, {"Expected", 11}},
        .Row = {
            {ID1, 13}, {Local, 10, "###0.000"}, {Z, 10, "0.000"}, {Obs, 11, "0.000"}, {Exp, 11, "0.000"}}};
    static const RetroRules rules{
        .ReadsSecondaryID = false,
        .IDsFromColumns = false,
        .TakesNumTextRegion = true,
        .RunsAtLoad = false,
        .FillsAlphaAtLoad = true,
        .RangeOptionDisablesSave = false,
        .FirstRegionRow = 2,
        .ChartLabelPattern = "0.00",
        .PValueHeading = "p-value    ",
        .ScoreOneID = {score, score},
        .ScoreTwoIDs = {},
        .MOneID = {.Heading = {{"ID", 13}, {"M(i) ", 11}, {"Observed", 10}, {"Expected", 11}},
                   .Row = {{ID1, 13}, {Local, 10, "###0.000"}, {Obs, 11, "0.000"}, {Exp, 11, "0.000"}}},
        .MTwoIDs = {},
        .SweepUnadjusted = {.Heading = {{"Sigma", 6}, {"U", 9}, {"Chi", 8}, {"DF   ", 11}, {"P-Val", 7}},
                            .Row = {{Sigma, 6, "0.00"},
                                    {Stat, 9, "0.0"},
                                    {Chi, 8, "0.0"},
                                    {DF, 8, "0.00"},
                                    {P, 9, "0.0000"}},
                            .SmallPRow = {{Sigma, 6, "0.00"},
                                          {Stat, 9, "0.0"},
                                          {Chi, 8, "0.0"},
                                          {DF, 8, "0.00"},
                                          {" <0.001", 10}}},
        .SweepAdjusted = {.Heading = AdjustedHeading,
                          .Row = {{Sigma, 5, "0.00"},
                                  {Stat, 7, "0.0"},
                                  {Chi, 7, "0.0"},
                                  {DF, 6, "0.0"},
                                  {M, 5, "0.0"},
                                  {"("},
                                  {MStar, 3, "0.0"},
                                  {")"},
                                  {P, 8, "0.0000"}},
                          .SmallPRow = {{Sigma, 5, "0.00"},
                                        {Stat, 7, "0.0"},
                                        {Chi, 7, "0.0"},
                                        {DF, 6, "0.0"},
                                        {M, 5, "0.0"},
                                        {"("},
                                        {MStar, 3, "0.0"},
                                        {")"},
                                        {" <0.001", 8}}},
        .SweepM = SweepOfM("0.00"),
    };
    return rules;
}

} // namespace vastrel
