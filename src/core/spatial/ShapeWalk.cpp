#include "core/spatial/ShapeWalk.h"

#include "core/platform/NativePath.h"
#include "core/platform/RunTimeError.h"
#include "core/spatial/BinaryFile.h"
#include "core/spatial/ByteOrder.h"
#include "core/spatial/ShapefileFormat.h"

namespace vastrel {

namespace {

constexpr std::int64_t HeadSize = RecordHeaderSize + PartsPlace; // of a record, its header included

class Walk {
public:
    Walk(const std::string& path, const RingAction& action) : path_(path), action_(action) {
        file_.Open(path, BinaryFile::Access::Read);
    }

    void Run() {
        for (std::int64_t position = MainHeaderSize; position < file_.Size(); ++record_) {
            place_ = "record " + std::to_string(record_ + 1) + " of " + FileName(path_);
            position = TakeRecord(position);
            PassRings();
        }
    }

private:
    /// Reads the record at a position and gives the position behind it.
    std::int64_t TakeRecord(std::int64_t position) {
        char head[HeadSize];
        file_.Read(position, head, sizeof head, place_);
        partCount_ = NumberAt<std::int32_t>(head + RecordHeaderSize + PartCountPlace);
        pointCount_ = NumberAt<std::int32_t>(head + RecordHeaderSize + PointCountPlace);
        if (partCount_ < 0 || pointCount_ < 0)
            RaiseCustomary(SubscriptOutOfRange, "WalkRings", place_ + " has a negative count.");
        position += HeadSize;
        const std::int64_t size = PartIndexSize * partCount_ + PointSize * pointCount_;
        if (size > file_.Size() - position) // before memory is taken
            RaiseCustomary(InputPastEndOfFile, "WalkRings",
                           FileName(path_) + " ends before " + place_ + " does.");
        bytes_.resize(static_cast<size_t>(size));
        file_.Read(position, bytes_.data(), bytes_.size(), place_);
        return position + size;
    }

    void PassRings() {
        for (std::int32_t part = 0; part < partCount_; ++part) {
            const std::int32_t first = FirstPoint(part);
            const std::int32_t next = FirstPoint(part + 1);
            if (first < 0 || first > next || next > pointCount_)
                RaiseCustomary(SubscriptOutOfRange, "WalkRings",
                               place_ + " has part indexes that do not rise within its points.");
            TakeRing(first, next - 1); // the closing vertex repeats the first
            if (!ring_.empty()) Act();
        }
    }

    /// An overflow of the action, of a vertex far away, names the record.
    void Act() const {
        try {
            action_(record_, ring_);
        } catch (const RunTimeError& error) {
            if (error.Description() != CustomaryText(Overflow)) throw;
            RaiseCustomary(Overflow, error.Source(), place_ + " has a vertex too far away to be drawn.");
        }
    }

    /// The index of a part's first point; behind the last part the number of points.
    std::int32_t FirstPoint(std::int32_t part) const {
        return part == partCount_ ? pointCount_
                                  : NumberAt<std::int32_t>(bytes_.data() + PartIndexSize * part);
    }

    void TakeRing(std::int32_t first, std::int32_t end) {
        ring_.clear();
        const char* points = bytes_.data() + PartIndexSize * partCount_;
        for (std::int32_t k = first; k < end; ++k) {
            const char* point = points + PointSize * k;
            ring_.push_back({FiniteCoordinate(NumberAt<double>(point), place_),
                             FiniteCoordinate(NumberAt<double>(point + 8), place_)});
        }
    }

    std::string path_;
    const RingAction& action_;
    BinaryFile file_;
    std::int32_t record_ = 0;
    std::int32_t partCount_ = 0;
    std::int32_t pointCount_ = 0;
    std::string place_; // of the record at hand
    std::vector<char> bytes_;
    std::vector<PointXY> ring_;
};

} // namespace

void WalkRings(const std::string& path, const RingAction& action) {
    Walk(path, action).Run();
}

} // namespace vastrel
