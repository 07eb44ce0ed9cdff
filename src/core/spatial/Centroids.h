#pragma once

namespace vastrel {

/// Fills ShpPartArea and TotalShapeArea from the polygons of the store: each part's area without its sign,
/// and each Region's as the absolute sum of the signed areas of its parts, so that a hole lessens it.
///
/// Run-time errors: 6 for a part of more than 32767 points, a Region of more than 32767 parts, or an area too
/// large; 7 where the table of parts would need more memory than there is; 9 where there are fewer polygons
/// than Regions, and where no Region has any part. What happens in one part
/// names Region and part. After an error there is no area, and the centroids of before are gone too, so that
/// whatever needs them stops.
void ComputeShapeAreas();

/// Fills RegionCentroid; needs ShpPartArea. A Region of one part has the centroid of its ring; one of several
/// the sum of its parts' centroids weighted with part area / Region area, in which holes count with their
/// gross area. Meant so, and so the weights of a Region with a hole sum to more than 1. A Region without a
/// part stays at (0, 0).
///
/// Run-time errors: 11 for a part of zero area that has edges, and for parts whose signed areas cancel; 6 as
/// above; 9 where ShpPartArea belongs to other polygons. They name Region and part. After an error there are
/// neither centroids nor an area.
void ComputeCentroids();

} // namespace vastrel
