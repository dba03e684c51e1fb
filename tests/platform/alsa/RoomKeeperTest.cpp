#include "platform/alsa/RoomKeeper.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace platform::alsa {
namespace {

using namespace std::chrono_literals;

/// A destination that takes so many bytes a second out of its buffer, on a clock of its own.
class RoomKeeperTest : public testing::Test {
protected:
    Time time() {
        return {[this] { return now; }};
    }
    RoomKeeper::Level level() {
        return [this]() -> std::optional<FillLevel> {
            ++readings;
            return isShown ? std::optional(FillLevel{room, 4096}) : std::nullopt;
        };
    }
    void pass(Time::Duration duration) {
        now += duration;
        const double taken = rate * std::chrono::duration<double>(duration).count() + fraction;
        fraction = taken - static_cast<double>(static_cast<std::size_t>(taken));
        room += std::min(static_cast<std::size_t>(taken), 4096 - room);
    }
    /// Takes room as soon as there is some, as sending does.
    void send(RoomKeeper& keeper, std::size_t bytes) {
        while (!keeper.take(bytes)) {
            pass(1ms);
        }
        lost += bytes > room ? bytes - room : 0;
        room -= std::min(bytes, room);
    }

    Time::Point now{1h};
    std::size_t room = 4096;
    double rate = 0;
    double fraction = 0;
    bool isShown = true;
    int readings = 0;
    std::size_t lost = 0;
};

TEST_F(RoomKeeperTest, ReadsTheLevelOnceForManyShortMessages) {
    RoomKeeper keeper(level(), time());
    for (int message = 0; message < 1365; ++message) {
        ASSERT_TRUE(keeper.take(3));
    }
    EXPECT_EQ(readings, 1);
}

TEST_F(RoomKeeperTest, NothingIsLostOnASlowDevice) {
    rate = 3125;
    RoomKeeper keeper(level(), time());
    for (int message = 0; message < 200; ++message) {
        send(keeper, 254);
    }
    EXPECT_EQ(lost, 0U);
    // 50,800 bytes less the buffer, at its rate.
    EXPECT_GE(now - Time::Point(1h), 14900ms);
    EXPECT_LE(now - Time::Point(1h), 16s);
}

TEST_F(RoomKeeperTest, WhatFitsHasRoomAndWhatDoesNotHasNone) {
    RoomKeeper keeper(level(), time());
    room = 300;
    ASSERT_TRUE(keeper.take(254));
    room -= 254;
    EXPECT_FALSE(keeper.take(254));
    EXPECT_TRUE(keeper.take(46));
}

TEST_F(RoomKeeperTest, AMessageLargerThanTheBufferGoesOutOnceTheBufferIsEmpty) {
    RoomKeeper keeper(level(), time());
    room = 4000;
    EXPECT_FALSE(keeper.take(5000));
    room = 4096;
    EXPECT_TRUE(keeper.take(5000));
}

TEST_F(RoomKeeperTest, AfterOthersMayHaveSentTheLevelIsReadAgain) {
    RoomKeeper keeper(level(), time());
    ASSERT_TRUE(keeper.take(3));
    keeper.forgetLevel();
    ASSERT_TRUE(keeper.take(3));
    EXPECT_EQ(readings, 2);
}

TEST_F(RoomKeeperTest, WhereNoLevelIsShownAFewMessagesGoAtOnce) {
    isShown = false;
    RoomKeeper keeper(level(), time());
    for (int block = 0; block < 4; ++block) {
        ASSERT_TRUE(keeper.take(254));
    }
}

TEST_F(RoomKeeperTest, WhereNoLevelIsShownNoMoreGoesThanAWireCarries) {
    isShown = false;
    RoomKeeper keeper(level(), time());
    for (int message = 0; message < 10000; ++message) {
        while (!keeper.take(3)) {
            pass(1ms);
        }
    }
    // 30,000 bytes less those that may be on their way, at 3125 a second.
    EXPECT_GE(now - Time::Point(1h), 8900ms);
    EXPECT_LE(now - Time::Point(1h), 9600ms);
}

}  // namespace
}  // namespace platform::alsa
