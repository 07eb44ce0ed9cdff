#include "validation/Study.h"

#include "validation/Prospective.h"
#include "validation/Retrospective.h"

namespace vastrel::validation {

namespace {

using Map = std::shared_ptr<const StudyMap>;

Map Kept(StudyMap map) {
    return std::make_shared<const StudyMap>(std::move(map));
}

constexpr double Averages[] = {1, 5, 20, 100};
constexpr ExportOption Transforms[] = {ExportOption::Poisson, ExportOption::Standard, ExportOption::Rossi};

void AddFalseAlarms(std::vector<Cell>& cells, const std::vector<Map>& maps, CountModel model) {
    for (const auto& map : maps)
        for (const double average : Averages)
            cells.push_back(FalseAlarms(map, model, average, {}));
}

void AddRunLengths(std::vector<Cell>& cells, const Map& map, double arl0, long most) {
    for (const double sigma : {0.0, 0.5, 1.0, 2.0})
        cells.push_back(MapRunLength(map, sigma, arl0, most));
}

void AddDelays(std::vector<Cell>& cells, const Map& map, double sigma) {
    for (const double share : {0.0, 0.05})
        for (const double shift : {0.5, 1.0, 2.0})
            cells.push_back(Delays(map, sigma, shift, share, 10'000));
}

void AddCounts(std::vector<Cell>& cells, const Map& map, double sigma, const std::vector<double>& expected,
               long most) {
    for (const auto transform : Transforms)
        for (const double e : expected)
            cells.push_back(CountRunLength(map, sigma, transform, e, most));
}

} // namespace

std::vector<Cell> WholeStudy(const std::string& samples) {
    const Map country = Kept(CountryMap(samples)), points = Kept(CountryPointsMap(samples));
    const Map grid25 = Kept(GridMap(5)), grid100 = Kept(GridMap(10)), grid400 = Kept(GridMap(20));
    const Map grid1600 = Kept(GridMap(40)), unequal = Kept(UnequalMap(20)), one = OneRegionMap();
    StudyMap thousand = GridMap(32); // 1,024 regions are as near to 1,000 as squares come
    const Map grid1024 = Kept(std::move(thousand));

    std::vector<Cell> cells{OneRegion()};
    AddFalseAlarms(cells, {country, grid100}, CountModel::Multinomial);
    AddCounts(cells, one, 0, {1, 2, 5, 10, 20, 50, 100}, 10'000);
    AddRunLengths(cells, country, 100, 10'000);
    AddFalseAlarms(cells, {grid400, unequal, points}, CountModel::Multinomial);
    for (const double average : Averages)
        cells.push_back(Clusters(country, average, {}));
    for (const auto& map : {grid25, grid100})
        AddRunLengths(cells, map, 100, 10'000);
    for (const double sigma : {0.0, 1.0})
        AddDelays(cells, country, sigma);
    AddFalseAlarms(cells, {country, grid100, grid400, unequal, points}, CountModel::Poisson);
    for (const double sigma : {0.0, 1.0})
        AddCounts(cells, country, sigma, {1, 5, 20, 100}, 1'000);
    AddRunLengths(cells, country, 500, 10'000);
    for (const double average : Averages)
        cells.push_back(Clusters(grid400, average, {}));
    AddRunLengths(cells, grid1024, 100, 1'000);
    AddFalseAlarms(cells, {grid1600}, CountModel::Multinomial);
    for (const auto& map : {grid25, grid100})
        AddRunLengths(cells, map, 500, 10'000);
    AddFalseAlarms(cells, {grid1600}, CountModel::Poisson);
    AddRunLengths(cells, grid1024, 500, 1'000);
    return cells;
}

std::vector<Cell> QuickStudy(const std::string& samples) {
    const Map country = Kept(CountryMap(samples)), grid100 = Kept(GridMap(10)), one = OneRegionMap();
    const Bandwidths few{{0, 1, 2}, 0.2, 2};
    return {OneRegion(),
            FalseAlarms(country, CountModel::Multinomial, 5, few),
            FalseAlarms(grid100, CountModel::Poisson, 20, few),
            Clusters(country, 20, few),
            MapRunLength(country, 1, 100, 1'000),
            Delays(country, 0, 2, 0.05, 1'000),
            CountRunLength(one, 0, ExportOption::Poisson, 5, 1'000)};
}

} // namespace vastrel::validation
