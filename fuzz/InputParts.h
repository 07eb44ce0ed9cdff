#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vastrel {

/// The parts of one input of a fuzz target, taken from its head. Behind its end every part is empty or 0.
class InputParts {
public:
    InputParts(const std::uint8_t* data, size_t size) : rest_(reinterpret_cast<const char*>(data), size) {}

    unsigned TakeByte() {
        const std::string_view byte = Take(1);
        return byte.empty() ? 0 : static_cast<unsigned char>(byte.front());
    }

    /// A number below `end`, from one byte.
    unsigned TakeChoice(unsigned end) { return TakeByte() % end; }

    /// A part behind its length of two bytes, low byte first.
    std::string_view TakePart() {
        const unsigned low = TakeByte(), high = TakeByte();
        return Take(low + 256 * high);
    }

    /// The text up to the next line feed, which is passed over.
    std::string_view TakeLine() {
        const std::string_view line = rest_.substr(0, rest_.find('\n'));
        rest_.remove_prefix(line.size() == rest_.size() ? line.size() : line.size() + 1);
        return line;
    }

    bool IsEmpty() const { return rest_.empty(); }
    std::string_view Rest() const { return rest_; }

private:
    std::string_view Take(size_t count) {
        const std::string_view taken = rest_.substr(0, count);
        rest_.remove_prefix(taken.size());
        return taken;
    }

    std::string_view rest_;
};

} // namespace vastrel
