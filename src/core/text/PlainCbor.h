#pragma once

#include <string_view>

namespace vastrel {

/// How many values stand in CBOR of the plain kind that is written here: one item of numbers, texts, arrays
/// and maps, with lengths before their contents, no deeper than 8, maps of at most 64 keys. 0 for any other
/// bytes.
///
/// A reader of all of CBOR goes as deep as its input tells it to, and can be brought to its end by a few
/// bytes of an odd kind: it is given what has passed here.
size_t CountPlainCbor(std::string_view bytes);

} // namespace vastrel
