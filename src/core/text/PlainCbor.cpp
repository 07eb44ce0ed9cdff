#include "core/text/PlainCbor.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace vastrel {

namespace {

enum class Major { Unsigned, Negative, Bytes, Text, Array, Map, Tag, Other };

constexpr size_t Deepest = 8;
constexpr std::uint64_t MostKeys = 64;
constexpr int LastShortNumber = 23, OneByte = 24, TwoBytes = 25, EightBytes = 27;
constexpr int False = 20, Null = 22;

/// The first byte of an item, and the number that belongs to it.
struct Head {
    Major Kind = Major::Other;
    int Detail = 0;
    std::uint64_t Number = 0;
};

class PlainCbor {
public:
    explicit PlainCbor(std::string_view bytes) : rest_(bytes) {}

    size_t Count() {
        size_t count = 0;
        do {
            if (!TakeItem()) return 0;
            ++count;
            while (!open_.empty() && open_.back() == 0)
                open_.pop_back();
        } while (!open_.empty());
        return rest_.empty() ? count : 0;
    }

private:
    bool TakeItem() {
        if (!open_.empty()) --open_.back();
        const auto head = TakeHead();
        if (!head) return false;
        switch (head->Kind) {
        case Major::Unsigned:
        case Major::Negative:
            return true;
        case Major::Text:
            return Skip(head->Number);
        case Major::Array:
            return Open(head->Number);
        case Major::Map:
            return head->Number <= MostKeys && Open(2 * head->Number);
        case Major::Other:
            return head->Detail >= TwoBytes || (head->Detail >= False && head->Detail <= Null);
        default:
            return false;
        }
    }

    std::optional<Head> TakeHead() {
        if (rest_.empty()) return {};
        const auto first = static_cast<unsigned char>(rest_.front());
        rest_.remove_prefix(1);
        Head head{static_cast<Major>(first >> 5), first & 31, 0};
        if (head.Detail > EightBytes) return {};
        if (head.Detail <= LastShortNumber) {
            head.Number = static_cast<std::uint64_t>(head.Detail);
            return head;
        }
        const size_t size = size_t{1} << (head.Detail - OneByte);
        if (size > rest_.size()) return {};
        for (const char byte : rest_.substr(0, size))
            head.Number = head.Number << 8 | static_cast<unsigned char>(byte);
        rest_.remove_prefix(size);
        return head;
    }

    bool Skip(std::uint64_t size) {
        if (size > rest_.size()) return false;
        rest_.remove_prefix(size);
        return true;
    }

    /// Every item has a byte at least.
    bool Open(std::uint64_t items) {
        if (items > rest_.size() || open_.size() == Deepest) return false;
        open_.push_back(items);
        return true;
    }

    std::string_view rest_;
    std::vector<std::uint64_t> open_; // items to come in each array and map
};

} // namespace

size_t CountPlainCbor(std::string_view bytes) {
    return PlainCbor(bytes).Count();
}

} // namespace vastrel
