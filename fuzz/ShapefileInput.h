#pragma once

#include "InputParts.h"

#include <string>

namespace vastrel {

/// Writes the three files of a dataset from an input: .shp and .shx behind their lengths, the rest as .dbf.
/// Gives the path of the .shp.
std::string WriteShapefile(InputParts parts);

/// Opens such a dataset into the store as the programs do: names, table, header, shapes, areas, centroids.
void OpenDataset(const std::string& path);

/// Writes a table and opens it into the store, with so many Regions in a row that lie beside it.
void OpenTable(std::string_view dbf, int regions);

/// The number of a column of the open table, and its name. Run-time error 3265 where the table has none.
int ColumnOf(unsigned choice);
std::string ColumnName(unsigned choice);

} // namespace vastrel
