// The writing half of CShapeFile.
#include "core/spatial/ByteOrder.h"
#include "core/spatial/CMultiPoint.h"
#include "core/spatial/CPolyLine.h"
#include "core/spatial/CPolygon.h"
#include "core/spatial/CShapeFile.h"
#include "core/spatial/ErrorSource.h"
#include "core/spatial/ShapeErrors.h"
#include "core/spatial/ShapeWriter.h"
#include "core/text/Numbers.h"

namespace vastrel {

namespace {

// Places in the main headers.
constexpr std::int64_t FileLengthPlace = 24;
constexpr std::int64_t BoxPlace = 36;

constexpr std::int32_t NullContentLength = 2; // words

/// Run-time error 6 for a file that has grown beyond what its format can tell.
std::int32_t Words(std::int64_t bytes) {
    const std::int64_t words = bytes / 2;
    return RoundToInt32(static_cast<double>(words));
}

/// Which shapes a file takes, and how each is written.
struct ShapeRule {
    const char* ClassName;
    std::int32_t RequiredType;
    const char* NameInMessage;
    const char* PutSource;
    std::string (*Contents)(const IShape&);
};

template <typename Shape>
std::string ContentsOf(const IShape& shape) {
    return RecordContents(static_cast<const Shape&>(shape));
}

/// Multipoints are tested as points are, and refused with the points' text; meant so.
constexpr ShapeRule ShapeRules[] = {
    {CPoint::Name, PointType, "CPoint", "C_ShapeFile::PutPoints", ContentsOf<CPoint>},
    {CPolyLine::Name, PolyLineType, "CPolyline", "CShapeFile::PutPolyLine", ContentsOf<CPolyLine>},
    {CPolygon::Name, PolygonType, "CPolygon", "CShapeFile::PutPolygon", ContentsOf<CPolygon>},
    {CMultiPoint::Name, PointType, "CPoint", "CShapeFile::PutMultiPoints", ContentsOf<CMultiPoint>},
};

const ShapeRule& RuleOf(const IShape& shape) {
    for (const auto& rule : ShapeRules)
        if (IsOfClass(shape, rule.ClassName)) return rule;
    throw RunTimeError(InvalidShapeClass, "", "Invalid shape type");
}

} // namespace

void CShapeFile::PutMainHeaders() {
    WithSource("CShapeFile::PutMainHeaders", [&] {
        MainHeader header;
        header.FileCode = ShapefileCode;
        header.Version = ShapefileVersion;
        header.ShapeType = shapeType_;
        header.XMin = extent_.Left();
        header.YMin = extent_.Bottom();
        header.XMax = extent_.Right();
        header.YMax = extent_.Top();
        mainHeader_ = indexHeader_ = header;
        indexFile_.Write(0, Bytes(header));
        mainFile_.Write(0, Bytes(header));
    });
}

void CShapeFile::Add(const IShape& shape) {
    WithSource("CShapeFile::Add", [&] {
        const ShapeRule& rule = RuleOf(shape);
        if (shapeType_ != rule.RequiredType)
            throw RunTimeError(WrongShapeForFile, "",
                               "Cannot add type " + std::string(rule.NameInMessage) +
                                   " to a ShapeFile initialized as other type");
        if (shape.IsNull()) return PutNull();
        WithSource(rule.PutSource, [&] {
            PutRecord(rule.Contents(shape));
            PutExtent(shape);
        });
    });
}

void CShapeFile::PutRecord(const std::string& contents) {
    const std::int32_t length = Words(static_cast<std::int64_t>(contents.size()));
    indexFile_.Append(Bytes(RecordHeader{Words(mainFile_.Size()), length}));
    mainFile_.Append(Bytes(RecordHeader{count_ + 1, length}) + contents);
    for (auto* file : {&mainFile_, &indexFile_}) {
        std::string fileLength;
        AppendSwapped(fileLength, Words(file->Size()));
        file->Write(FileLengthPlace, fileLength);
    }
    ++count_;
}

/// Writes two bytes of contents where the header promises four, and leaves the file lengths and the extent
/// alone; meant so.
void CShapeFile::PutNull() {
    WithSource("CShapeFile::PutNull", [&] {
        indexFile_.Append(Bytes(RecordHeader{Words(mainFile_.Size()), NullContentLength}));
        mainFile_.Append(Bytes(RecordHeader{count_ + 1, NullContentLength}) + std::string(2, '\0'));
        ++count_;
    });
}

void CShapeFile::PutExtent(const IShape& shape) {
    WithSource("CShapeFile::PutExtent", [&] {
        const CRect before = extent_;
        if (count_ == 1)
            extent_.TakeEdges(shape.Left(), shape.Right(), shape.Top(), shape.Bottom());
        else
            extent_.MoveOutwards(shape.Left(), shape.Right(), shape.Top(), shape.Bottom());
        const bool wasSet = count_ == 1 || before.Left() != extent_.Left() ||
                            before.Bottom() != extent_.Bottom() || before.Right() != extent_.Right() ||
                            before.Top() != extent_.Top();
        if (!wasSet) return;
        std::string box;
        for (const double edge : {extent_.Left(), extent_.Bottom(), extent_.Right(), extent_.Top()})
            AppendDouble(box, edge);
        mainFile_.Write(BoxPlace, box);
        indexFile_.Write(BoxPlace, box);
    });
}

} // namespace vastrel
