#include "core/text/RowLayout.h"

#include "core/text/Numbers.h"

namespace vastrel {

std::string RowText(const std::vector<RowField>& fields, const RowValues& values) {
    std::string row;
    for (const RowField& field : fields) {
        if (field.Number != nullptr)
            row += Pad(Num(values.*field.Number, field.Pattern), field.Width);
        else
            row += Pad(field.Text != nullptr ? values.*field.Text : field.Pattern, field.Width);
    }
    return row;
}

std::string HeadingText(const RowLayout& layout) {
    return RowText(layout.Heading, {});
}

std::string Dashes(int n) {
    return std::string(static_cast<size_t>(n), '-');
}

} // namespace vastrel
