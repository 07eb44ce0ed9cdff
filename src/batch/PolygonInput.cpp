#include "batch/PolygonInput.h"

#include "core/binding/CusumNames.h"
#include "core/display/MapZoom.h"
#include "core/platform/NativePath.h"
#include "core/platform/Platform.h"
#include "core/platform/RunTimeError.h"
#include "core/spatial/AttributeRows.h"
#include "core/spatial/BinaryFile.h"
#include "core/spatial/Centroids.h"
#include "core/spatial/ShapeDataset.h"
#include "core/workspace/Workspace.h"

namespace vastrel {

namespace {

/// The name of a column as the screen's list offers it.
std::string Offered(const std::string& name) {
    return AttributeTable().Fields(ColumnNumber(name)).Name();
}

/// The same for a list of numbers.
std::string OfferedNumber(const std::string& name) {
    if (name.empty()) return "";
    const Field& field = AttributeTable().Fields(ColumnNumber(name));
    if (!IsNumberType(field.Type())) throw WrongUse("The column \"" + name + "\" holds no numbers.");
    return field.Name();
}

} // namespace

bool OpenPolygonInput(const std::string& path) {
    const std::string whole = AbsolutePath(path);
    BinaryFile().Open(whole, BinaryFile::Access::Read); // a file dialog offers what exists
    if (!OpenShapeAttributes({whole, FileName(whole), false})) return false;
    ws.MapZoom = PolygonMapZoom.Start;
    ws.bShapefileData = true;
    ws.bTextfileData = false;
    ReadShapeHeader();
    LoadShapes();
    ws.ShapeFileTitleSaved = ws.ShapeFileTitle;
    return true;
}

void IDColumns::AddTo(CLI::App& command) {
    command.add_option("--id", ID, "column of the primary id")->required();
    command.add_option("--id2", ID2, "column of the secondary id");
}

void CountOptions::AddTo(CLI::App& command) {
    CLI::Option* popCase[] = {command.add_option("--pop", Pop, "column of the population"),
                              command.add_option("--cases", Cases, "column of the cases")};
    CLI::Option* obsExp[] = {command.add_option("--obs", Obs, "column of the observed counts"),
                             command.add_option("--exp", Exp, "column of the expected counts")};
    for (CLI::Option* one : popCase)
        for (CLI::Option* other : obsExp)
            one->excludes(other);
    IDs.AddTo(command);
}

void CountOptions::Check() const {
    const bool popCase = !Pop.empty() && !Cases.empty() && Obs.empty() && Exp.empty();
    const bool obsExp = !Obs.empty() && !Exp.empty() && Pop.empty() && Cases.empty();
    if (!popCase && !obsExp) throw WrongUse("Give --pop and --cases, or --obs and --exp.");
}

bool OpenForRetrospective(const std::string& path, const CountOptions& columns) {
    columns.Check();
    if (!OpenPolygonInput(path)) return false;
    CountColumns chosen;
    chosen.Pop = OfferedNumber(columns.Pop);
    chosen.Case = OfferedNumber(columns.Cases);
    chosen.Obs = OfferedNumber(columns.Obs);
    chosen.Exp = OfferedNumber(columns.Exp);
    chosen.PrimaryID = Offered(columns.IDs.ID);
    if (!columns.IDs.ID2.empty()) chosen.SecondaryID = Offered(columns.IDs.ID2);
    TakePrimaryIDs(chosen.PrimaryID);
    ws.bUseSecondaryID = !chosen.SecondaryID.empty();
    if (ws.bUseSecondaryID) TakeSecondaryIDs(chosen.SecondaryID);
    if (!BindCounts(columns.Format(), chosen)) return false;
    ComputeShapeAreas();
    ComputeCentroids();
    return true;
}

bool OpenForProspective(const std::string& path, const IDColumns& columns) {
    if (!OpenPolygonInput(path)) return false;
    ComputeShapeAreas();
    ComputeCentroids();
    CusumNames names{true, Offered(columns.ID), !columns.ID2.empty(), ""};
    if (names.UseSecondary) names.Secondary = Offered(columns.ID2);
    return TakeCusumNames(names);
}

int ColumnNumber(const std::string& name) {
    const Recordset& table = AttributeTable();
    try {
        const Field& field = table.Fields(name);
        for (int k = 0; k < table.FieldCount(); ++k)
            if (&table.Fields(k) == &field) return k;
    } catch (const RunTimeError&) { // told in the words of the command line
    }
    throw WrongUse(ws.DbfTableName + " has no column \"" + name + "\".");
}

} // namespace vastrel
