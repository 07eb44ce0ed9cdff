#pragma once

#include "core/workspace/Arrays.h"
#include "core/workspace/Collection.h"
#include "core/workspace/KernelWeights.h"
#include "core/workspace/MapView.h"
#include "core/workspace/PairDistances.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace vastrel {

class CFileName;
class CPart;
class CPoint;
class CPolygon;
class Recordset;

/// The location of a Region: the centroid of a polygon, or a point of a text file.
struct RegionPoint {
    std::string ID;
    double X = 0;
    double Y = 0;
    bool operator==(const RegionPoint&) const = default;
};

/// The area of one part of a Region.
struct PartAreaRecord {
    std::int32_t RegionIndex = 0;
    double PartArea = 0;   // of this part alone, without its sign
    double RegionArea = 0; // in part 1 only: the signed areas of all parts summed, without the sign
    bool operator==(const PartAreaRecord&) const = default;
};

/// A vertex.
struct PointXY {
    double X = 0;
    double Y = 0;
    bool operator==(const PointXY&) const = default;
};

/// A plot position, rounded to whole plot units.
struct PlotPoint {
    std::int32_t X = 0;
    std::int32_t Y = 0;
    bool operator==(const PlotPoint&) const = default;
};

/// The one store of the open dataset and of the results of the tests. Arrays count the Regions from 1 in file
/// order and are re-dimensioned whole. There is one instance, `ws`, for the life of the process: the dialogs
/// fill it, the procedures read it and add their results, maps and lists read those.
struct Workspace {
    // ---- Where the dataset comes from
    bool bShapefileData = false;                   // a shapefile was opened last
    bool bTextfileData = false;                    // a text entry was chosen last
    std::string ShapeFilePath;                     // whole path of the .shp
    std::string ShapeFileTitle;                    // its name without folder
    std::string ShapeFileTitleSaved;               // the same, for the caption of the map window
    std::string ShapeBaseName;                     // the title up to its first "."
    std::string DbfTableName;                      // ShapeBaseName plus ".dbf"
    std::string DbfFilePath;                       // the path up to its first ".", plus ".dbf"
    std::string DbfDirectory;                      // DbfFilePath without DbfTableName
    std::string DbConnection;                      // how the table's folder was opened
    std::shared_ptr<CFileName> DatasetFileName;    // from the choice of a shapefile to the end of its load
    std::shared_ptr<Recordset> AttributeRecordset; // rewound by each walk, before and after
    double AttributeRowCount = 0;                  // its rows when it was opened

    // ---- Size of the dataset
    std::int32_t NumRegion = 0; // of a point dataset only after a test was run
    double NumTextRegion = 0;   // lines of the point text file

    // ---- Geometry
    Collection<CPolygon> ShpPolygons;     // of the last polygon shapefile, a Region each
    Collection<CPoint> ShpPoints;         // of the last point shapefile
    std::shared_ptr<CPolygon> CurPolygon; // being walked
    std::shared_ptr<CPart> CurPart;       // being walked
    Array1<PointXY> ShpPartPoints;        // its vertices
    Table<PartAreaRecord> ShpPartArea;    // (Region, part)
    double TotalShapeArea = 0;
    Array1<RegionPoint> RegionCentroid;
    std::int16_t ShpFileType = 0;                                          // shape type of the .shp
    double ExtentXMin = 0, ExtentYMin = 0, ExtentXMax = 0, ExtentYMax = 0; // box of its main header
    double ExtentWidth = 0, ExtentHeight = 0, ExtentArea = 0;
    double MapZoom = 0; // of the map window; 1 after every open of a shapefile

    // ---- Counts
    Array1<double> PopBase;  // population; stays zero where expected counts were given
    Array1<double> ObsCount; // observed counts, or cases
    Array1<double> ExpCount;
    Array1<double> ExpRatio; // each Region's expected share
    double TotalPop = 0;     // shapefiles with populations only
    double TotalObs = 0;

    // ---- Identifiers of a polygon dataset
    Array1<std::string> PrimaryIDs;
    Array1<std::string> SecondaryIDs;
    bool bUseSecondaryID = false;
    std::string CusumPrimaryField, CusumSecondaryField; // columns of the prospective test
    Array1<std::string> CusumRegionIDs;                 // values of the first

    // ---- Coupling of the screens
    bool bRetroMapping = false; // the map shows retrospective results
    bool bCusumMapping = false; // the map shows cusum results
    double AlphaLevel = 0;      // 0.05 or 0.01

    // ---- Point map
    Array1<PlotPoint>
        PlottedPoints; // positions at the last drawing; the hull of the study area reorders them
    double ScaleX = 0; // plot units per map unit
    double ScaleY = 0;

    // ---- Polygon map
    PolygonMapView PolygonView;

    // ---- Kernel matrices of the last bandwidth
    double CurrentSigma = 0;
    PairDistances Distances;         // of all bandwidths, for as long as the positions stay
    KernelWeights WeightM;           // 1..N: row-normalised kernel
    Table<double> WeightUnadjusted;  // 0..N, used 1..N: the same for the score statistic
    Table<double> WeightAdjusted;    // 0..N, used 1..N: columns scaled by the expected counts
    Table<double> ScoreGramPlain;    // 0..N-1: WeightUnadjusted transposed times WeightUnadjusted
    Table<double> ScoreGramAdjusted; // 0..N-1: the same scaled by the expected shares

    // ---- Score statistic
    Array1<double> LocalU, LocalZ;
    Array1<double> LocalUAdjusted, LocalZAdjusted;
    double GlobalU = 0;
    double GlobalUAdjusted = 0;
    double ScoreMean = 0;
    double ScoreVar = 0;
    double ScoreDF = 0;  // real, never rounded
    double ScoreZ = 0;   // normal approximation
    double ScoreChi = 0; // chi-squared approximation
    Array1<double> MapClassScore, MapDrawScore;

    // ---- M statistic
    Array1<double> DevRaw; // o - e, polygon datasets only
    Array1<double> DevPearson, DevFreemanTukey, DevRossi;
    Array1<double> LocalM, LocalMSorted;
    Array1<double> MapDrawM, MapClassM;

    // ---- What the map keeps for redraws; the legend sorts the first
    Array1<double> DisplayClassValues, DisplayDrawValues;

    // ---- Sweep over bandwidths: step k in element k, from 0
    std::int16_t BandwidthCount = 0;
    double SigmaTo = 0;
    Array1<double> BandwidthList;
    Array1<double> SweepStat, SweepChi, SweepChiCritical, SweepDF, SweepPValue, SweepMaxM, SweepMCritical;
    Table<double> StatisticTable; // (Region, step)
    Table<double> ChartData;      // (step, 0 statistic or 1 critical value)
    std::vector<std::string> ChartLabels;

    // ---- Parameters of the prospective test
    double KValue = 0; // reference value
    double HValue = 0; // threshold

    // ---- Prospective test on polygons
    double StartFieldIndex = 0; // columns of the z-scores, counted from 0
    double EndFieldIndex = 0;
    Table<double> TextZScore; // (Region, period): z-scores of a text file; filtered ones after a run
    double TextPeriodCount = 0;
    Table<double> PreviousCusum; // (Region, period): the saved table of a cusum file
    double PreviousPeriodCount = 0;
    Array1<double> PreviousMaxCusum;
    double RunPeriodCount = 0;
    Table<double> CusumValue; // (Region, period): lists, map and file read it
    Array1<double> MaxCusum;
    Array1<std::string> MaxRegion, RegionLabel;
    bool bCusumRun = false; // a run has begun: the map has cusum colours
    std::int32_t AnimationDelay = 300000;
    std::int32_t SelectedPeriod = 0;
    std::int32_t SelectedRegion = 0; // counted from 0
    std::vector<std::ptrdiff_t> SignaledRegions;

    // ---- Chart of cusums, shared by all charts: (row from 0, 0 cusum or 1 threshold)
    Table<double> CusumChartData;
    std::vector<std::string> CusumChartLabels; // empty for a row without a label

    // ---- Export of z-values
    double ObsFromIndex = 0, ObsToIndex = 0; // first and last column, counted from 0
    double ExpFromIndex = 0, ExpToIndex = 0;
    double ExportSigma = 0;
    Array1<double> ExportObs, ExportExp; // counts of one period
    KernelWeights ExportWeights;         // 1..N: row-normalised kernel
    Array1<double> ExportDeviation;      // of one period
    Array1<double> ExportZ;              // the deviations of one period, smoothed
    Table<double> ExportTable;           // (Region, period)

    // ---- Legend of the statistic map
    Array1<double> LegendLimits; // 0..6: limits in force
    Array1<double> LegendWork;   // 0..6: limits as built; elements 0 and 6 stay 0
    Array1<double> LegendColors; // 0..6: colours of classes 1 to 6
    double LegendMin = 0;
    double LegendMax = 0;
};

extern Workspace ws;

} // namespace vastrel
