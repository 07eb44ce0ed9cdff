#pragma once

#include "desktop/toolkit/ListBox.h"

#include <string>

namespace vastrel {

/// Both lists of a watch as the batch program writes them: the period list, then for each period with a
/// signal an empty line and its rows.
inline std::string ShownLists(ListBox& periods, ListBox& regions) {
    std::string text;
    for (int row = 0; row < periods.ListCount(); ++row)
        text += periods.List(row) + "\n";
    for (int row = 2; row < periods.ListCount() - 1; ++row) {
        periods.SetListIndex(row);
        if (regions.ListCount() > 0) text += "\n";
        for (int signal = 0; signal < regions.ListCount(); ++signal)
            text += regions.List(signal) + "\n";
    }
    return text;
}

} // namespace vastrel
