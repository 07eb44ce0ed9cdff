#include "core/numeric/NeighbourOrder.h"

#include "core/numeric/DenseProduct.h"
#include "core/numeric/RowWorkers.h"

#include <algorithm>
#include <cmath>
#include <compare>
#include <numeric>

namespace vastrel {

namespace {

using Order = std::vector<std::ptrdiff_t>;

constexpr double StripWidth = 4; // in Regions: a tile of the dense product then covers about a square

void SortBy(double RegionPoint::*coordinate, const Array1<RegionPoint>& at, Order::iterator first,
            Order::iterator last) {
    std::sort(first, last, [&](std::ptrdiff_t i, std::ptrdiff_t j) {
        return std::is_lt(std::strong_order(at(i).*coordinate, at(j).*coordinate));
    });
}

/// Element (i, j) of `to` is element (row(i), order[j]) of `from`; all of them count from 0.
template <typename Row>
void TakeInOrder(const double* from, std::ptrdiff_t fromStride, const Order& order, Row row, double* to,
                 std::ptrdiff_t toStride) {
    const auto n = static_cast<std::ptrdiff_t>(order.size());
    RunRowWorkers(WorkersFor(n * n), EvenShares(n), [&](RowRange rows) {
        for (std::ptrdiff_t i = rows.First; i < rows.Last; ++i) {
            const double* source = from + row(i) * fromStride;
            std::transform(order.begin(), order.end(), to + i * toStride,
                           [source](std::ptrdiff_t j) { return source[j]; });
        }
    });
}

/// Where each Region stands in an order; both count from 0.
Order PlacesIn(const Order& order) {
    Order places(order.size());
    for (size_t place = 0; place < order.size(); ++place)
        places[static_cast<size_t>(order[place])] = static_cast<std::ptrdiff_t>(place);
    return places;
}

} // namespace

std::vector<std::ptrdiff_t> NeighbourOrder(const Array1<RegionPoint>& at, std::ptrdiff_t n) {
    Order order(static_cast<size_t>(n));
    std::iota(order.begin(), order.end(), 1);
    SortBy(&RegionPoint::X, at, order.begin(), order.end());
    const auto strip = static_cast<std::ptrdiff_t>(StripWidth * std::ceil(std::sqrt(n)));
    for (std::ptrdiff_t first = 0; first < n; first += strip)
        SortBy(&RegionPoint::Y, at, order.begin() + first, order.begin() + std::min(n, first + strip));
    return order;
}

void GramOfNeighbours(const Table<double>& w, const std::vector<std::ptrdiff_t>& order,
                      Table<double>& columns, Table<double>& ordered, Table<double>& gram) {
    const auto n = static_cast<std::ptrdiff_t>(order.size());
    if (n == 0) return;
    Order fromZero = order;
    for (std::ptrdiff_t& region : fromZero)
        --region;
    TakeInOrder(
        w.row(1) + 1, w.stride(), fromZero, [](std::ptrdiff_t k) { return k; }, columns.row(1) + 1,
        columns.stride());
    DenseGram({columns.row(1) + 1, n, n, columns.stride()}, ordered.row(0), ordered.stride());
    const Order places = PlacesIn(fromZero);
    TakeInOrder(
        ordered.row(0), ordered.stride(), places,
        [&](std::ptrdiff_t i) { return places[static_cast<size_t>(i)]; }, gram.row(0), gram.stride());
}

} // namespace vastrel
