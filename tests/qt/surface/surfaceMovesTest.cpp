#include "qt/surface/surfaceMoves.h"

#include <gtest/gtest.h>

#include <array>
#include <set>
#include <vector>

namespace qt::surface {
namespace {

constexpr std::array moves = {Move::Left, Move::Right, Move::Up, Move::Down, Move::Home, Move::End};

struct Step {
    int from;
    Move move;
    int to;
};

void expect(const std::vector<Step>& steps) {
    for (const Step& step : steps) {
        EXPECT_EQ(placeAfter(step.from, step.move), step.to)
            << step.from << " by move " << static_cast<int>(step.move);
    }
}

TEST(SurfaceMoves, GoAcrossTheStrips) {
    expect({
        {48, Move::Right, 49},
        {49, Move::Left, 48},
        {0, Move::Right, 4},
        {21, Move::Left, 17},
        {47, Move::Left, 46},
        {63, Move::Right, 64},
        {64, Move::Left, 63},
        {48, Move::Left, 48},
        {3, Move::Left, 3},
        {56, Move::Left, 56},
    });
}

TEST(SurfaceMoves, GoDownAStripAndUpAgain) {
    const std::array strip = {50, 42, 8, 9, 10, 11, 58};
    for (std::size_t i = 1; i < strip.size(); ++i) {
        EXPECT_EQ(placeAfter(strip.at(i - 1), Move::Down), strip.at(i));
        EXPECT_EQ(placeAfter(strip.at(i), Move::Up), strip.at(i - 1));
    }
    expect({
        {50, Move::Up, 50},
        {58, Move::Down, 58},
        {64, Move::Up, 64},
        {64, Move::Down, 64},
    });
}

TEST(SurfaceMoves, GoOverIntoKeysAndPadsAtTheSameHeight) {
    expect({
        {55, Move::Right, 32},
        {47, Move::Right, 36},
        {28, Move::Right, 74},
        {29, Move::Right, 78},
        {30, Move::Right, 65},
        {31, Move::Right, 65},
        {64, Move::Right, 68},
    });
}

TEST(SurfaceMoves, GoBackIntoTheStripsAtTheSameHeight) {
    expect({
        {32, Move::Left, 55},
        {36, Move::Left, 47},
        {74, Move::Left, 28},
        {78, Move::Left, 29},
        {65, Move::Left, 31},
        {68, Move::Left, 64},
        {71, Move::Left, 64},
    });
}

TEST(SurfaceMoves, GoThroughKeysLayerButtonsAndPads) {
    expect({
        {32, Move::Right, 33}, {35, Move::Right, 35}, {33, Move::Down, 37}, {37, Move::Down, 75},
        {75, Move::Down, 79},  {78, Move::Down, 65},  {79, Move::Down, 66}, {80, Move::Down, 66},
        {81, Move::Down, 67},  {65, Move::Up, 78},    {66, Move::Up, 79},   {67, Move::Up, 81},
        {65, Move::Right, 66}, {67, Move::Right, 67}, {66, Move::Down, 69}, {69, Move::Down, 72},
        {72, Move::Down, 72},  {71, Move::Up, 68},    {35, Move::Up, 35},
    });
}

TEST(SurfaceMoves, GoToTheEndsOfARow) {
    expect({
        {50, Move::Home, 48},
        {50, Move::End, 55},
        {9, Move::Home, 1},
        {9, Move::End, 29},
        {58, Move::End, 64},
        {64, Move::Home, 56},
        {34, Move::Home, 32},
        {37, Move::End, 39},
        {69, Move::Home, 68},
        {68, Move::End, 70},
    });
}

TEST(SurfaceMoves, ReachEveryPlaceFromTheFirstEncoder) {
    std::set<int> reached = {48};
    std::vector<int> open = {48};
    while (!open.empty()) {
        const int place = open.back();
        open.pop_back();
        for (const Move move : {Move::Left, Move::Right, Move::Up, Move::Down}) {
            const int next = placeAfter(place, move);
            if (reached.insert(next).second) {
                open.push_back(next);
            }
        }
    }
    EXPECT_EQ(reached.size(), 82U);
    EXPECT_EQ(*reached.begin(), 0);
    EXPECT_EQ(*reached.rbegin(), 81);
}

TEST(SurfaceMoves, StayWhereThereIsNoSuchPlace) {
    for (const int place : {-1, 82, 127}) {
        for (const Move move : moves) {
            EXPECT_EQ(placeAfter(place, move), place);
        }
    }
}

}  // namespace
}  // namespace qt::surface
