#pragma once

#include <string>

namespace vastrel {

/// The choice of the dialog of the prospective test: which ids are ticked, and the columns selected for them.
struct CusumNames {
    bool UsePrimary = false;
    std::string Primary;
    bool UseSecondary = false;
    std::string Secondary;
};

/// Takes the id columns of the prospective test into CusumPrimaryField and CusumSecondaryField, trimmed, and
/// the values of the first into CusumRegionIDs. False after the message where neither is ticked. A secondary
/// column alone changes neither name and goes on with those of before; it is meant so.
/// Run-time errors: those of ReadTexts.
bool TakeCusumNames(const CusumNames& names);

} // namespace vastrel
