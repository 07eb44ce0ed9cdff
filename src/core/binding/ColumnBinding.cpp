#include "core/binding/ColumnBinding.h"

#include "core/binding/Deviations.h"
#include "core/numeric/RunProcedure.h"
#include "core/platform/Platform.h"
#include "core/spatial/AttributeRows.h"
#include "core/workspace/Workspace.h"

namespace vastrel {

namespace {

/// The column that has to be above 0, and the one that may be 0.
const std::string& BaseColumn(CountFormat format, const CountColumns& columns) {
    return format == CountFormat::PopCase ? columns.Pop : columns.Exp;
}
const std::string& CountColumn(CountFormat format, const CountColumns& columns) {
    return format == CountFormat::PopCase ? columns.Case : columns.Obs;
}

const char* RowFault(const FieldValue& base, const FieldValue& count) {
    const bool badBase = !base.IsNull() && base.Number() <= 0;
    const bool badCount = !count.IsNull() && count.Number() < 0;
    if (badBase || badCount) return InvalidData;
    return base.IsNull() || count.IsNull() ? NullData : nullptr;
}

double Number(const std::string& column) {
    return AttributeTable().Fields(column).Value().Number();
}

/// Reads the two columns and their totals, row by row; gives the number of rows.
std::ptrdiff_t ReadCounts(CountFormat format, const CountColumns& columns) {
    Array1<double>& base = format == CountFormat::PopCase ? ws.PopBase : ws.ExpCount;
    const std::string& baseColumn = BaseColumn(format, columns);
    const std::string& countColumn = CountColumn(format, columns);
    std::ptrdiff_t rows = 0;
    WalkRows([&](std::ptrdiff_t i) {
        base(i) = Number(baseColumn);
        ws.ObsCount(i) = Number(countColumn);
        if (format == CountFormat::PopCase) ws.TotalPop = AddedTo(ws.TotalPop, base(i));
        ws.TotalObs = AddedTo(ws.TotalObs, ws.ObsCount(i));
        rows = i;
    });
    return rows;
}

void DeriveExpected(CountFormat format, std::ptrdiff_t rows) {
    for (std::ptrdiff_t i = 1; i <= rows; ++i) {
        if (format == CountFormat::PopCase) {
            ws.ExpCount(i) = ExpectedCases(ws.TotalObs, ws.PopBase(i), ws.TotalPop);
            ws.ExpRatio(i) = ShareOf(ws.PopBase(i), ws.TotalPop);
        } else {
            ws.ExpRatio(i) = ShareOf(ws.ExpCount(i), ws.TotalObs);
        }
    }
}

/// A Region beyond the last row has no counts, on which the divisions fail; the table is named then.
Deviations DeviationsOf(CountFormat format, std::ptrdiff_t i, double rate) try {
    return format == CountFormat::PopCase ? DeviationsFromRate(ws.ObsCount(i), rate, ws.PopBase(i))
                                          : DeviationsFromExpected(ws.ObsCount(i), ws.ExpCount(i));
} catch (const RunTimeError& error) {
    if (!ws.AttributeRecordset || i <= AttributeTable().RecordCount()) throw;
    throw RunTimeError(error.Number(), error.Source(), error.Description() + "\n" + RowsForRegions());
}

} // namespace

bool CountColumns::LacksOne() const {
    return Pop.empty() || Case.empty() || Obs.empty() || Exp.empty() || PrimaryID.empty();
}

const char* MissingColumns(CountFormat format, bool useSecondaryID, const CountColumns& shown) {
    const bool complete = !BaseColumn(format, shown).empty() && !CountColumn(format, shown).empty() &&
                          !shown.PrimaryID.empty() && (!useSecondaryID || !shown.SecondaryID.empty());
    if (complete) return nullptr;
    // With a secondary id both formats share the words of the first; meant so.
    if (useSecondaryID) return "You should set 'Pop-Case', 'Primary ID' and 'Secondary ID'.";
    return format == CountFormat::PopCase ? "You should set 'Pop-Case' and 'ID'."
                                          : "You should set 'Obs-Exp' and 'ID'.";
}

void TakePrimaryIDs(const std::string& column) {
    ReadTexts(column, ws.PrimaryIDs);
}

void TakeSecondaryIDs(const std::string& column) {
    ReadTexts(column, ws.SecondaryIDs);
}

bool BindCounts(CountFormat format, const CountColumns& columns) {
    if (!CheckRows(format, columns)) return false;
    FillCounts(format, columns);
    ComputeDeviations(format);
    return true;
}

bool CheckRows(CountFormat format, const CountColumns& columns) {
    Recordset& table = AttributeTable();
    const Field& base = table.Fields(BaseColumn(format, columns));
    const Field& count = table.Fields(CountColumn(format, columns));
    for (table.MoveFirst(); !table.EndOfFile(); table.MoveNext()) {
        const char* fault = RowFault(base.Value(), count.Value());
        if (fault == nullptr) continue;
        Warn(fault);
        return false;
    }
    table.MoveFirst();
    return true;
}

void FillCounts(CountFormat format, const CountColumns& columns) {
    if (format == CountFormat::PopCase) ws.PopBase.ReDim(ws.NumRegion);
    for (auto* counts : {&ws.ObsCount, &ws.ExpCount, &ws.ExpRatio})
        counts->ReDim(ws.NumRegion);
    ws.TotalObs = 0;
    ws.TotalPop = 0;
    const std::ptrdiff_t rows = ReadCounts(format, columns);
    RunProcedure(
        "FillCounts", [&] { DeriveExpected(format, rows); },
        [&] {
            if (format == CountFormat::PopCase) ws.ExpCount.SetZero(); // derived there, read otherwise
            ws.ExpRatio.SetZero();
        });
}

void ComputeDeviations(CountFormat format) {
    const auto arrays = {&ws.DevRaw, &ws.DevPearson, &ws.DevFreemanTukey, &ws.DevRossi};
    for (auto* array : arrays)
        array->ReDim(ws.NumRegion);
    RunProcedure(
        "ComputeDeviations",
        [&] {
            const double rate = format == CountFormat::PopCase ? ShareOf(ws.TotalObs, ws.TotalPop) : 0;
            for (std::ptrdiff_t i = 1; i <= ws.NumRegion; ++i) {
                const Deviations of = DeviationsOf(format, i, rate);
                ws.DevRaw(i) = of.Raw;
                ws.DevPearson(i) = of.Pearson;
                ws.DevFreemanTukey(i) = of.FreemanTukey;
                ws.DevRossi(i) = of.Rossi;
            }
        },
        [&] {
            for (auto* array : arrays)
                array->SetZero();
        });
}

} // namespace vastrel
