#include "core/numeric/NeighbourOrder.h"

#include "core/numeric/DenseProduct.h"
#include "core/numeric/RowWorkers.h"

#include <algorithm>
#include <cmath>
#include <compare>
#include <numeric>

namespace vastrel {

namespace {

using Order = VectorOrder;

constexpr double StripWidth = 4; // in Regions: a tile of the dense product then covers about a square

void SortBy(double RegionPoint::*coordinate, const Array1<RegionPoint>& at, Order::iterator first,
            Order::iterator last) {
    std::sort(first, last, [&](std::ptrdiff_t i, std::ptrdiff_t j) {
        return std::is_lt(std::strong_order(at(i).*coordinate, at(j).*coordinate));
    });
}

/// Where each of the vectors stands in an order.
Order PlacesIn(const Order& order) {
    Order places(order.size());
    for (size_t place = 0; place < order.size(); ++place)
        places[static_cast<size_t>(order[place])] = static_cast<std::ptrdiff_t>(place);
    return places;
}

} // namespace

VectorOrder NeighbourOrder(const Array1<RegionPoint>& at, std::ptrdiff_t n) {
    Order order(static_cast<size_t>(n));
    std::iota(order.begin(), order.end(), 1);
    SortBy(&RegionPoint::X, at, order.begin(), order.end());
    const auto strip = static_cast<std::ptrdiff_t>(StripWidth * std::ceil(std::sqrt(n)));
    for (std::ptrdiff_t first = 0; first < n; first += strip)
        SortBy(&RegionPoint::Y, at, order.begin() + first, order.begin() + std::min(n, first + strip));
    for (std::ptrdiff_t& region : order)
        --region;
    return order;
}

void PutBack(const Table<double>& ordered, const VectorOrder& order, Table<double>& table) {
    const auto n = static_cast<std::ptrdiff_t>(order.size());
    const Order places = PlacesIn(order);
    RunRowWorkers(WorkersFor(n * n), n, [&](RowRange rows) {
        for (std::ptrdiff_t i = rows.First; i < rows.Last; ++i) {
            const double* from = ordered.row(places[static_cast<size_t>(i)]);
            std::transform(places.begin(), places.end(), table.row(i),
                           [from](std::ptrdiff_t place) { return from[place]; });
        }
    });
}

} // namespace vastrel
