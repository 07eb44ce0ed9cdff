#include "core/binding/CusumNames.h"

#include "core/platform/Platform.h"
#include "core/spatial/AttributeRows.h"
#include "core/workspace/Workspace.h"

namespace vastrel {

namespace {

std::string Trimmed(const std::string& text) {
    const size_t first = text.find_first_not_of(' ');
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

} // namespace

bool TakeCusumNames(const CusumNames& names) {
    if (!names.UsePrimary && !names.UseSecondary) {
        Warn("At least Primary ID should be specified!");
        return false;
    }
    if (names.UsePrimary) {
        ws.CusumPrimaryField = Trimmed(names.Primary);
        ws.CusumSecondaryField = names.UseSecondary ? Trimmed(names.Secondary) : "";
    }
    ReadTexts(ws.CusumPrimaryField, ws.CusumRegionIDs);
    return true;
}

} // namespace vastrel
