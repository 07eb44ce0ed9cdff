#pragma once

#include <string>

namespace vastrel {

struct FileChoice;

/// What the file dialog offers.
constexpr const char* ShapefileFilter = "SHP Files (*.shp)|*.shp|All Files (*.*)|*.*|";

constexpr const char* BaseNameTooLong = "The length of filename should be less than 8.";
constexpr const char* NoShapefileChosen = "You didn't specify shapefile.";

/// Whether the base name of the store has more than the 8 characters that an open goes on with. The words of
/// the message say otherwise; meant so.
bool IsBaseNameTooLong();

/// Asks for a shapefile and opens its attribute table: names, connection and recordset of the store.
///
/// Without a choice, or with a base name (the title up to its first ".") of nine or more characters, it shows
/// its message and gives false. True otherwise, also where the table could not be opened: a plain message
/// then tells why, and the recordset is the one of before.
/// A path that is no file specification is offset 0x203, which ends the process.
bool OpenShapeAttributes();

/// The same for a choice that was made already.
bool OpenShapeAttributes(const FileChoice& choice);

/// How the tables of a folder are reached.
std::string BuildDbaseConnection(const std::string& folder);

/// Fills the shape type and the extent from the main header of the .shp. Run-time errors: those of a file
/// that cannot be opened; 62 a file that is cut off; 6 an extent that is not finite or too large.
void ReadShapeHeader();

/// Fills NumRegion and, by the type of the file, ShpPolygons or ShpPoints; the other stays as it was. Lines
/// and multipoints are read and not kept. Errors are those of CShapeFile, and 9999 for any other type; all of
/// them end the process. A load that stops half way leaves what it had filled.
void LoadShapes();

} // namespace vastrel
