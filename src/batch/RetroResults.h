#pragma once

#include "batch/RetroOptions.h"
#include "core/retrospective/RetroRules.h"

#include <nlohmann/json.hpp>

#include <functional>

namespace vastrel {

// What the two retrospective commands write alike, from the store.

/// Keys of the dataset and of the last single run or sweep.
nlohmann::ordered_json DatasetJson();
void AddSingleJson(nlohmann::ordered_json& json, RetroVariable variable);
void AddSweepJson(nlohmann::ordered_json& json);

/// The legend in force, and the classes of the mapped values by the ladder of the map.
void AddLegendJson(nlohmann::ordered_json& json, const Array1<double>& values,
                   const std::function<int(double)>& classOf, const std::vector<std::string>& legendTexts);

/// The elements 1..n, or 0..n-1, of an array.
nlohmann::ordered_json FromOne(const Array1<double>& values);
nlohmann::ordered_json FromZero(const Array1<double>& values, std::ptrdiff_t count);

/// One object of the keys of both, each on a line of its own.
std::string JsonText(const nlohmann::ordered_json& header, const nlohmann::ordered_json& results);

/// The rows of both lists with an empty line between them.
std::string ListsText(const std::vector<std::string>& first, const std::vector<std::string>& second);

} // namespace vastrel
