#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace vastrel {

/// The SHA-256 of bytes that come piece by piece.
class Checksum {
public:
    Checksum();
    void Add(std::string_view bytes);

    std::uint64_t Size() const { return size_; }

    /// 64 hexadecimal digits; nothing may be added behind.
    std::string Text();

private:
    struct State;
    struct Forget {
        void operator()(State* state) const;
    };
    std::unique_ptr<State, Forget> state_;
    std::uint64_t size_ = 0;
};

} // namespace vastrel
