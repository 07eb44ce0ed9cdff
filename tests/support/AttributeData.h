#pragma once

#include "support/ShapefileBytes.h"

namespace vastrel {

/// Opens a table of these rows as the attribute table of a fresh store, for so many Regions.
void OpenTable(const TemporaryFolder& folder, const std::vector<TableColumn>& columns,
               const std::vector<std::vector<std::string>>& rows, int regions);

/// Writes a polygon dataset of unit squares in a row, as many as there are rows, and gives the path of its
/// .shp.
std::string WriteDataset(const TemporaryFolder& folder, const std::string& name,
                         const std::vector<TableColumn>& columns,
                         const std::vector<std::vector<std::string>>& rows);

/// A field of the row on which the attribute table stands, as text.
std::string CurrentText(const std::string& column);

/// Opens a copy of a real dataset ("nc/nc") as the program does after its file dialog, shapes included, in a
/// fresh store; false where the data are not there.
bool OpenRealDataset(const TemporaryFolder& folder, const std::string& name);

} // namespace vastrel
