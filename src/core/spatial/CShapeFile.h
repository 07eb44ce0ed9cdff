#pragma once

#include "core/spatial/CFileName.h"
#include "core/spatial/CRect.h"
#include "core/spatial/ShapefileFormat.h"

#include <memory>
#include <optional>

namespace vastrel {

/// A shapefile pair, .shp and .shx, read and written record by record. Both files are opened for reading and
/// writing, so that a write-protected pair cannot be opened, and stay open for the object's life. Errors are
/// the numbered ones of ShapeErrors.h and, for files that are not sound, customary run-time errors (see
/// ShapeReader); the source is the operation's.
class CShapeFile {
public:
    static constexpr std::int32_t OpenExisting = 0;
    static constexpr std::int32_t CREATEIT = 1; // deletes existing files of these names first

    double Left() const { return extent_.Left(); }
    double Right() const { return extent_.Right(); }
    double Top() const { return extent_.Top(); }
    double Bottom() const { return extent_.Bottom(); }

    /// How many records the header of the .shx tells.
    std::int32_t Count() const { return count_; }
    /// The shape type of the file: 1 points, 3 polylines, 5 polygons, 8 multipoints.
    std::int32_t FileType() const { return shapeType_; }
    /// How many bytes the .shp has.
    std::int64_t MainFileSize() const { return mainFile_.Size(); }

    /// Reads record `index`, from 1; nothing for a type that has no class, and for a point beyond the index.
    std::shared_ptr<IShape> Item(std::int32_t index);

    /// Opens a pair, or starts a new one for a status other than 0; any but CREATEIT starts it without
    /// deleting first. A new pair needs a shape type. The files are found regardless of the case of their
    /// names.
    /// Offsets 0x20C missing file, 0x20D missing type, 0x207 no valid file code; run-time errors 70 for a
    /// write-protected file or one that may not be deleted, 62 for a header that is cut off, 9 for a .shx
    /// whose header tells a negative count, 6 for an extent that is not finite.
    void SetFileSpec(const CFileName& name, std::int32_t status,
                     std::optional<std::int32_t> shapeType = std::nullopt);

    /// Appends a record. Offsets 0x210 for a shape that is not the file's, 0x211 for none that a file holds.
    void Add(const IShape& shape);

private:
    void OpenFiles(std::int32_t status);
    void StartPair(std::optional<std::int32_t> shapeType);
    void ReadPair();
    void PutMainHeaders();
    void PutNull();
    void PutRecord(const std::string& contents);
    void PutExtent(const IShape& shape);

    std::int32_t shapeType_ = 0;
    CFileName fileName_; // its extension goes to and fro between "shp" and "shx"
    MainHeader mainHeader_, indexHeader_;
    BinaryFile mainFile_, indexFile_;
    std::int32_t count_ = 0;
    CRect extent_;
};

} // namespace vastrel
