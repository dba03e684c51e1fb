#include "qt/surface/surfaceMoves.h"

#include <algorithm>
#include <optional>
#include <span>

namespace qt::surface {

namespace {

using Row = std::span<const int>;

/// The rows of the strips as they are seen, the master fader at the end of the last.
// clang-format off
constexpr int encoders[] = {48, 49, 50, 51, 52, 53, 54, 55};
constexpr int pushes[]   = {40, 41, 42, 43, 44, 45, 46, 47};
constexpr int selects[]  = { 0,  4,  8, 12, 16, 20, 24, 28};
constexpr int solos[]    = { 1,  5,  9, 13, 17, 21, 25, 29};
constexpr int mutes[]    = { 2,  6, 10, 14, 18, 22, 26, 30};
constexpr int recs[]     = { 3,  7, 11, 15, 19, 23, 27, 31};
constexpr int faders[]   = {56, 57, 58, 59, 60, 61, 62, 63, 64};
constexpr Row stripRows[] = {encoders, pushes, selects, solos, mutes, recs, faders};

constexpr int layerKeys[]     = {32, 33, 34, 35};
constexpr int transportKeys[] = {36, 37, 38, 39};
constexpr int modeLayers[]    = {74, 75, 76, 77};
constexpr int padLayers[]     = {78, 79, 80, 81};
constexpr int topPads[]       = {65, 66, 67};
constexpr int middlePads[]    = {68, 69, 70};
constexpr int lowerPads[]     = {71, 72, 73};
constexpr Row keyRows[] = {layerKeys, transportKeys, modeLayers, padLayers, topPads, middlePads,
                           lowerPads};

// Which row lies beside which: of the keys for each row of the strips, and back.
constexpr int keysBeside[]   = {0, 1, 2, 3, 4, 4, 5};
constexpr int stripsBeside[] = {0, 1, 2, 3, 5, 6, 6};

// Which column of the pads lies under a column of the keys, and back.
constexpr int padColumnOfKey[] = {0, 1, 1, 2};
constexpr int keyColumnOfPad[] = {0, 1, 3};
// clang-format on

struct Spot {
    bool isStrips;
    int row;
    int column;
};

std::span<const Row> rowsOf(bool strips) {
    return strips ? std::span<const Row>(stripRows) : std::span<const Row>(keyRows);
}

Row rowAt(bool strips, int row) {
    return rowsOf(strips)[static_cast<std::size_t>(row)];
}

int at(std::span<const int> numbers, int index) {
    return numbers[static_cast<std::size_t>(index)];
}

int lastOf(Row row) {
    return static_cast<int>(row.size()) - 1;
}

std::optional<Spot> spotOf(int place) {
    for (const bool strips : {true, false}) {
        int row = 0;
        for (const Row places : rowsOf(strips)) {
            const auto found = std::ranges::find(places, place);
            if (found != places.end()) {
                return Spot{strips, row, static_cast<int>(found - places.begin())};
            }
            ++row;
        }
    }
    return std::nullopt;
}

int across(const Spot& spot, int step, int place) {
    const Row row = rowAt(spot.isStrips, spot.row);
    const int column = spot.column + step;
    if (column >= 0 && column <= lastOf(row)) {
        return at(row, column);
    }
    if (spot.isStrips && step > 0) {
        return rowAt(false, at(keysBeside, spot.row)).front();
    }
    if (!spot.isStrips && step < 0) {
        return rowAt(true, at(stripsBeside, spot.row)).back();
    }
    return place;
}

int along(const Spot& spot, int step, int place) {
    const int target = spot.row + step;
    if (target < 0 || target >= static_cast<int>(rowsOf(spot.isStrips).size())) {
        return place;
    }
    const Row from = rowAt(spot.isStrips, spot.row);
    const Row to = rowAt(spot.isStrips, target);
    int column = spot.column;
    if (!spot.isStrips && from.size() != to.size()) {
        column = step > 0 ? at(padColumnOfKey, column) : at(keyColumnOfPad, column);
    }
    return column <= lastOf(to) ? at(to, column) : place;  // nothing is above the master fader
}

}  // namespace

int placeAfter(int place, Move move) {
    const std::optional<Spot> spot = spotOf(place);
    if (!spot) {
        return place;
    }
    switch (move) {
        case Move::Left:
            return across(*spot, -1, place);
        case Move::Right:
            return across(*spot, 1, place);
        case Move::Up:
            return along(*spot, -1, place);
        case Move::Down:
            return along(*spot, 1, place);
        case Move::Home:
            return rowAt(spot->isStrips, spot->row).front();
        case Move::End:
            return rowAt(spot->isStrips, spot->row).back();
    }
    return place;
}

}  // namespace qt::surface
