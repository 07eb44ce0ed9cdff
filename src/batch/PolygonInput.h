#pragma once

#include "batch/Command.h"
#include "core/binding/ColumnBinding.h"

#include <string>

namespace vastrel {

/// Opens a polygon shapefile with its attribute table into the store, in the order in which the desktop
/// program does after its file dialog. False where the base name is refused; the message has been shown.
/// A table that cannot be opened is told, and the run goes on without.
/// Run-time errors: 53 no such file, 75 a directory, and those of the opening steps.
bool OpenPolygonInput(const std::string& path);

/// The options that name the id columns of a polygon dataset.
struct IDColumns {
    std::string ID, ID2;

    void AddTo(CLI::App& command);
};

/// The options that name the columns of the retrospective test: --pop and --cases, or --obs and --exp, and
/// the ids.
struct CountOptions {
    std::string Pop, Cases, Obs, Exp;
    IDColumns IDs;

    void AddTo(CLI::App& command);

    /// One pair, and no other column; WrongUse otherwise.
    void Check() const;

    CountFormat Format() const { return Pop.empty() ? CountFormat::ObsExp : CountFormat::PopCase; }
};

/// All that the desktop program does from the choice of a shapefile to the screen of the test: opening,
/// binding of the columns, areas and centroids. False where the base name or the data are refused; the
/// message has been shown. WrongUse for a column that the table lacks or that the screen would not offer.
/// Run-time errors: those of the steps; 91 where no table could be opened.
bool OpenForRetrospective(const std::string& path, const CountOptions& columns);

/// The same for the prospective test, which computes areas and centroids before it asks for the ids.
bool OpenForProspective(const std::string& path, const IDColumns& columns);

/// The number of a column of the open table, counted from 0, by its name as it stands or else without regard
/// to case. WrongUse for a column that the table lacks.
int ColumnNumber(const std::string& name);

} // namespace vastrel
