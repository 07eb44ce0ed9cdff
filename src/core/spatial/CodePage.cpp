#include "core/spatial/CodePage.h"

#include "core/text/TextEncoding.h"
#include "core/text/TextFile.h"

#include <algorithm>
#include <cctype>
#include <iconv.h>

namespace vastrel {

namespace {

/// The machine's converter from one character set to UTF-8.
class Converter {
public:
    explicit Converter(const std::string& from) : handle_(iconv_open("UTF-8", from.c_str())) {}
    ~Converter() {
        if (IsOpen()) iconv_close(handle_);
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    bool IsOpen() const {
        return handle_ != reinterpret_cast<iconv_t>(-1); // NOLINT(performance-no-int-to-ptr): as iconv has it
    }

    /// A byte that stands for no character becomes "?". Of a set with marks that follow their letter the
    /// converter holds each letter back until it has seen what comes next: the last one has to be asked for.
    std::string Convert(std::string_view bytes) const {
        std::string copy(bytes), text(bytes.size() * 4 + 4, '\0');
        char* from = copy.data();
        char* to = text.data();
        size_t fromLeft = copy.size(), toLeft = text.size();
        const auto releaseLetter = [&] { (void)iconv(handle_, nullptr, nullptr, &to, &toLeft); };
        while (fromLeft > 0 && iconv(handle_, &from, &fromLeft, &to, &toLeft) == static_cast<size_t>(-1)) {
            releaseLetter();
            if (fromLeft == 0 || toLeft == 0) break;
            ++from;
            --fromLeft;
            *to++ = '?';
            --toLeft;
        }
        releaseLetter();
        text.resize(text.size() - toLeft);
        return text;
    }

private:
    iconv_t handle_;
};

/// The language bytes of dBASE tables that are in use, with their character sets.
struct Language {
    int Byte;
    const char* Set;
};
constexpr Language Languages[] = {
    {0x01, "CP437"},  {0x02, "CP850"},  {0x03, "CP1252"}, {0x08, "CP865"},  {0x09, "CP437"},
    {0x0A, "CP850"},  {0x0B, "CP437"},  {0x0D, "CP437"},  {0x0E, "CP850"},  {0x0F, "CP437"},
    {0x10, "CP850"},  {0x11, "CP437"},  {0x12, "CP850"},  {0x13, "CP932"},  {0x14, "CP850"},
    {0x15, "CP437"},  {0x16, "CP850"},  {0x17, "CP865"},  {0x18, "CP437"},  {0x19, "CP437"},
    {0x1A, "CP850"},  {0x1B, "CP437"},  {0x1C, "CP863"},  {0x1D, "CP850"},  {0x1F, "CP852"},
    {0x22, "CP852"},  {0x23, "CP852"},  {0x24, "CP860"},  {0x25, "CP850"},  {0x26, "CP866"},
    {0x37, "CP850"},  {0x40, "CP852"},  {0x4D, "CP936"},  {0x4E, "CP949"},  {0x4F, "CP950"},
    {0x50, "CP874"},  {0x57, "CP1252"}, {0x58, "CP1252"}, {0x59, "CP1252"}, {0x64, "CP852"},
    {0x65, "CP866"},  {0x66, "CP865"},  {0x67, "CP861"},  {0x6A, "CP737"},  {0x6B, "CP857"},
    {0x6C, "CP863"},  {0x78, "CP950"},  {0x79, "CP949"},  {0x7A, "CP936"},  {0x7B, "CP932"},
    {0x7C, "CP874"},  {0x7D, "CP1255"}, {0x7E, "CP1256"}, {0x86, "CP737"},  {0x87, "CP852"},
    {0x88, "CP857"},  {0xC8, "CP1250"}, {0xC9, "CP1251"}, {0xCA, "CP1254"}, {0xCB, "CP1253"},
    {0xCC, "CP1257"},
};

std::string SetOfLanguage(int byte) {
    for (const auto& language : Languages)
        if (language.Byte == byte) return language.Set;
    return "";
}

/// The first line of a .cpg file without blanks around it: the converter may know the set by this name.
std::string NameAsItStands(std::string_view cpg) {
    constexpr const char* blanks = " \t";
    const std::string line(cpg.substr(0, cpg.find_first_of("\r\n")));
    const size_t first = line.find_first_not_of(blanks);
    return first == std::string::npos ? "" : line.substr(first, line.find_last_not_of(blanks) + 1 - first);
}

/// The name of a .cpg file's first line in capitals, without blanks and signs: "ISO 8859-1" is "ISO88591".
std::string PlainName(std::string_view cpg) {
    std::string name;
    for (const char c : cpg.substr(0, cpg.find_first_of("\r\n"))) {
        const auto byte = static_cast<unsigned char>(c);
        if (std::isalnum(byte)) name += static_cast<char>(std::toupper(byte));
    }
    return name;
}

bool TakePrefix(std::string& name, std::string_view prefix) {
    if (name.rfind(prefix, 0) != 0) return false;
    name.erase(0, prefix.size());
    return true;
}

constexpr const char* Utf8 = "UTF-8";

/// The set that a .cpg file names; empty where it is none that is known.
std::string SetOfName(std::string name) {
    if (name == "UTF8" || name == "65001") return Utf8;
    const bool isNumbered =
        !name.empty() && std::all_of(name.begin(), name.end(), [](char c) { return c >= '0' && c <= '9'; });
    if (TakePrefix(name, "LDID")) return SetOfLanguage(std::atoi(name.substr(0, 3).c_str()));
    if (TakePrefix(name, "ISO8859") || TakePrefix(name, "8859")) return "ISO-8859-" + name;
    if (isNumbered || TakePrefix(name, "ANSI") || TakePrefix(name, "OEM") || TakePrefix(name, "WINDOWS") ||
        TakePrefix(name, "CP"))
        return "CP" + name;
    return "";
}

bool IsKnown(const std::string& set) {
    return !set.empty() && (set == Utf8 || Converter(set).IsOpen());
}

} // namespace

CodePage::CodePage(std::string_view cpg, int languageByte) {
    std::string set = SetOfName(PlainName(cpg));
    if (!IsKnown(set)) set = NameAsItStands(cpg);
    if (!IsKnown(set)) set = SetOfLanguage(languageByte);
    if (IsKnown(set) && set != Utf8) name_ = set;
}

std::string CodePage::Decode(std::string_view bytes) const {
    const bool isPlain =
        std::all_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    if (isPlain) return std::string(bytes);
    if (name_.empty()) return ToUtf8(bytes);
    if (name_ == "CP1252") return Windows1252ToUtf8(bytes);
    return ToUtf8(Converter(name_).Convert(bytes)); // it may pass what is beyond the last character
}

} // namespace vastrel
