#include "batch/Checksum.h"

#include <array>
#include <nettle/sha2.h>

namespace vastrel {

struct Checksum::State {
    sha256_ctx Context;
};

void Checksum::Forget::operator()(State* state) const {
    delete state;
}

Checksum::Checksum() : state_(new State) {
    sha256_init(&state_->Context);
}

void Checksum::Add(std::string_view bytes) {
    sha256_update(&state_->Context, bytes.size(), reinterpret_cast<const std::uint8_t*>(bytes.data()));
    size_ += bytes.size();
}

std::string Checksum::Text() {
    std::array<std::uint8_t, SHA256_DIGEST_SIZE> digest{};
    sha256_digest(&state_->Context, digest.size(), digest.data());
    std::string text;
    for (const std::uint8_t byte : digest)
        for (const int digit : {byte >> 4, byte & 15})
            text += "0123456789abcdef"[digit];
    return text;
}

} // namespace vastrel
