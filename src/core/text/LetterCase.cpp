#include "core/text/LetterCase.h"

#include <clocale>
#include <cwchar>
#include <cwctype>
#include <string>

namespace vastrel {

namespace {

/// The letters of all scripts for the time that it lives, in this thread alone; where the system has no such
/// locale, those of the outer one.
class AllLetters {
public:
    AllLetters() {
        static const locale_t unicode = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
        outer_ = uselocale(unicode);
    }
    ~AllLetters() { uselocale(outer_); }
    AllLetters(const AllLetters&) = delete;
    AllLetters& operator=(const AllLetters&) = delete;

private:
    locale_t outer_;
};

std::wstring Capitals(std::string_view text) {
    const AllLetters letters;
    std::wstring capitals;
    while (!text.empty()) {
        wchar_t letter = 0;
        std::mbstate_t state{};
        size_t length = std::mbrtowc(&letter, text.data(), text.size(), &state);
        if (length == 0 || length > text.size()) { // a zero byte, or no character
            letter = static_cast<unsigned char>(text.front());
            length = 1;
        }
        capitals += static_cast<wchar_t>(std::towupper(static_cast<std::wint_t>(letter)));
        text.remove_prefix(length);
    }
    return capitals;
}

} // namespace

bool EqualWithoutCase(std::string_view a, std::string_view b) {
    return Capitals(a) == Capitals(b);
}

} // namespace vastrel
