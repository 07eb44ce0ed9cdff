#pragma once

#include "core/retrospective/RetroVariable.h"
#include "core/retrospective/RowValues.h"

namespace vastrel {

/// The rows of a sweep list: another row form where the p-value is below 0.001.
struct SweepLayout {
    RetroFields Heading;
    RetroFields Row;
    RetroFields SmallPRow;
};

/// Where the retrospective screens of polygons and of points differ, in their rows and in what they count.
/// The differences are meant. No field has a default, so that the compiler asks for every one.
// NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init)
struct RetroRules {
    bool ReadsSecondaryID;         // two ids where bUseSecondaryID is set
    bool IDsFromColumns;           // PrimaryIDs; otherwise the ID of RegionCentroid
    bool TakesNumTextRegion;       // NumRegion is taken from the text file at the start of a sweep
    bool RunsAtLoad;               // Run is enabled before data are loaded on the screen itself
    bool FillsAlphaAtLoad;         // the list of alpha; otherwise the column dialog does
    bool RangeOptionDisablesSave;  // the choice of a range of bandwidths disables Save
    int FirstRegionRow;            // list row that a click takes for the first Region
    const char* ChartLabelPattern; // of the bandwidths under the chart
    const char* PValueHeading;     // in the report of a range

    RetroLayout ScoreOneID[2]; // unadjusted, adjusted
    RetroLayout ScoreTwoIDs;
    RetroLayout MOneID;
    RetroLayout MTwoIDs;

    SweepLayout SweepUnadjusted;
    SweepLayout SweepAdjusted;
    SweepLayout SweepM;

    const SweepLayout& SweepOf(RetroVariable variable) const;
};

const RetroRules& PolygonRules();
const RetroRules& PointRules();

} // namespace vastrel
