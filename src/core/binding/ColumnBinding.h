#pragma once

#include <string>

namespace vastrel {

/// What the two columns of counts of a polygon dataset mean.
enum class CountFormat {
    PopCase, // population and cases
    ObsExp,  // observed and expected counts
};

/// Names of columns: what the lists of the data input show, or what was picked in them last. An empty name is
/// no choice.
struct CountColumns {
    std::string Pop, Case, Obs, Exp;
    std::string PrimaryID, SecondaryID;

    /// Whether one of the five is missing that the closing data input looks at, whatever the format. One
    /// format leaves two of them empty, unless columns were picked under both.
    bool LacksOne() const;
};

/// The message for columns that the format, and the use of a secondary id, ask for and that are not chosen;
/// nullptr where all are.
const char* MissingColumns(CountFormat format, bool useSecondaryID, const CountColumns& shown);

/// Fills PrimaryIDs or SecondaryIDs from a column as soon as it is picked. Run-time errors: those of
/// ReadTexts.
void TakePrimaryIDs(const std::string& column);
void TakeSecondaryIDs(const std::string& column);

/// Binds the columns of the format to the store: checks every row, then fills counts, expected counts, shares
/// and totals, then the four deviations. False after the message for the first bad row, on which the
/// attribute table then stands; the arrays are as they were.
///
/// Run-time errors: 9 for more rows than Regions; 6 and 11 for arithmetic faults, among them cases that sum
/// to 0: the counts stay filled, the procedure's own results stand at zero.
bool BindCounts(CountFormat format, const CountColumns& columns);

/// The row check alone. A base of 0 or below or a count below 0 is invalid, then a null is refused. A null
/// compares as unknown: beside a negative count the row is invalid, beside a good value it is null.
bool CheckRows(CountFormat format, const CountColumns& columns);

/// PopBase (populations only), ObsCount, ExpCount, ExpRatio, TotalObs and TotalPop, which is 0 for observed
/// and expected counts. Fewer rows than Regions leave the rest at 0.
void FillCounts(CountFormat format, const CountColumns& columns);

/// DevRaw, DevPearson, DevFreemanTukey and DevRossi from the counts.
void ComputeDeviations(CountFormat format);

} // namespace vastrel
