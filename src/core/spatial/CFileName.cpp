#include "core/spatial/CFileName.h"

#include "core/platform/RunTimeError.h"
#include "core/spatial/ShapeErrors.h"

#include <string_view>

namespace vastrel {

namespace {

constexpr std::string_view ForbiddenInPath = "?\"*|/><:";
constexpr std::string_view ForbiddenInName = "?\"*|/><:\\";

[[noreturn]] void Refuse(const char* source) {
    throw RunTimeError(InvalidFileSpec, source, "The FileSpec is invalid");
}

bool IsLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

bool IsValidSpec(std::string_view spec) {
    if (spec.size() < 2 || !IsLetter(spec[0]) || spec[1] != ':') return false;
    for (const char* twice : {"\\\\", ".."})
        if (spec.find(twice) != std::string_view::npos) return false;
    for (const char needed : {'\\', '.'})
        if (spec.find(needed) == std::string_view::npos) return false;
    return spec.find_first_of(ForbiddenInPath, 2) == std::string_view::npos;
}

/// Where the base name starts, and where the last "." stands. A "." in a folder name alone leaves no base
/// name; the text then ends there.
struct Pieces {
    size_t NameStart;
    size_t Point;
};

Pieces PiecesOf(const std::string& spec) {
    const size_t slash = spec.rfind('\\');
    const size_t point = spec.rfind('.');
    return {slash == std::string::npos ? 0 : slash + 1, point == std::string::npos ? spec.size() : point};
}

} // namespace

void CFileName::SetFileSpec(const std::string& spec) {
    if (!IsValidSpec(spec)) Refuse("C_FileName::SetFileSpec");
    spec_ = spec;
}

std::string CFileName::GetBaseName() const {
    const auto [start, point] = PiecesOf(spec_);
    return point > start ? spec_.substr(start, point - start) : "";
}

void CFileName::SetBaseName(const std::string& name) {
    if (name.empty() || name.find_first_of(ForbiddenInName) != std::string::npos)
        Refuse("C_FileName::SetBaseName");
    const auto [start, point] = PiecesOf(spec_);
    spec_ = spec_.substr(0, start) + name + spec_.substr(point);
}

std::string CFileName::GetExtension() const {
    const size_t point = PiecesOf(spec_).Point;
    return point < spec_.size() ? spec_.substr(point + 1) : "";
}

void CFileName::SetExtension(const std::string& extension) {
    if (extension.empty()) Refuse("C_FileName::SetBaseName"); // the source of an empty one is meant so
    if (extension.find_first_of(ForbiddenInName) != std::string::npos) Refuse("C_FileName::SetExtension");
    const size_t point = PiecesOf(spec_).Point;
    spec_ = spec_.substr(0, point < spec_.size() ? point + 1 : point) + extension;
}

} // namespace vastrel
