#include "core/layer/ResultTable.h"

namespace vastrel {

void ResultTable::AddTexts(const std::string& name, ResultColumn::Texts values) {
    Columns.push_back({name, std::move(values)});
}

void ResultTable::AddNumbers(const std::string& name, ResultColumn::Numbers values) {
    Columns.push_back({name, std::move(values)});
}

void ResultTable::AddWholes(const std::string& name, ResultColumn::Wholes values) {
    Columns.push_back({name, std::move(values)});
}

} // namespace vastrel
