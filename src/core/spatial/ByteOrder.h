#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <string>

namespace vastrel {

/// Reverses the four bytes of an integer: a shapefile holds some of its integers with the high byte first.
constexpr std::int32_t SwapBytes(std::int32_t value) {
    const auto bits = static_cast<std::uint32_t>(value);
    return static_cast<std::int32_t>((bits >> 24) | ((bits >> 8) & 0xFF00U) | ((bits << 8) & 0xFF0000U) |
                                     (bits << 24));
}

static_assert(std::endian::native == std::endian::little, "numbers are read as they stand in the files");

/// The number at these bytes, low byte first.
template <typename T>
T NumberAt(const char* bytes) {
    T value;
    std::memcpy(&value, bytes, sizeof value);
    return value;
}

/// The integer at these bytes, high byte first.
inline std::int32_t SwappedAt(const char* bytes) {
    return SwapBytes(NumberAt<std::int32_t>(bytes));
}

inline void AppendInteger(std::string& bytes, std::int32_t value) {
    bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
}
inline void AppendSwapped(std::string& bytes, std::int32_t value) {
    AppendInteger(bytes, SwapBytes(value));
}
inline void AppendDouble(std::string& bytes, double value) {
    bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
}

} // namespace vastrel
