#pragma once

namespace vastrel {

class CPoint;
class CPolyLine;
class CPolygon;

/// 0 for equal coordinates, otherwise the Euclidean distance.
double DistanceToPoint(const CPoint& from, const CPoint& to);

/// The smallest of the distances to the vertices and to the segments at the nearest vertex of each part; see
/// CPoint::Distance. A shape without a vertex is a run-time error 9.
double DistanceToPolyLine(const CPoint& from, const CPolyLine& line);
double DistanceToPolygon(const CPoint& from, const CPolygon& polygon);

} // namespace vastrel
