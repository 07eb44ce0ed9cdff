#pragma once

#include <string>

namespace vastrel {

class CMultiPoint;
class CPoint;
class CPolyLine;
class CPolygon;

// The contents of a record of the .shp, as the bytes that stand behind the record header.

std::string RecordContents(const CPoint& point);
std::string RecordContents(const CPolyLine& line);
std::string RecordContents(const CPolygon& polygon);
std::string RecordContents(const CMultiPoint& points);

} // namespace vastrel
