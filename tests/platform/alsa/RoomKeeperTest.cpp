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
        return {[this] { return now; },
                [this](Time::Duration duration) {
                    now += duration;
                    const double taken =
                        rate * std::chrono::duration<double>(duration).count() + fraction;
                    const auto whole = std::min(static_cast<std::size_t>(taken), 4096 - room);
                    fraction = taken - static_cast<double>(static_cast<std::size_t>(taken));
                    room += whole;
                }};
    }
    RoomKeeper::Level level() {
        return [this]() -> std::optional<FillLevel> {
            ++readings;
            return isShown ? std::optional(FillLevel{room, 4096}) : std::nullopt;
        };
    }
    /// Waits for room and takes it, as sending does.
    bool send(RoomKeeper& keeper, std::size_t bytes) {
        if (!keeper.waitFor(bytes)) {
            return false;
        }
        lost += bytes > room ? bytes - room : 0;
        room -= std::min(bytes, room);
        return true;
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
        ASSERT_TRUE(send(keeper, 3));
    }
    EXPECT_EQ(readings, 1);
    EXPECT_EQ(now, Time::Point(1h));
}

TEST_F(RoomKeeperTest, NothingIsLostOnASlowDevice) {
    rate = 3125;
    RoomKeeper keeper(level(), time());
    for (int message = 0; message < 200; ++message) {
        ASSERT_TRUE(send(keeper, 254));
    }
    EXPECT_EQ(lost, 0U);
    // 50,800 bytes less the buffer, at its rate.
    EXPECT_GE(now - Time::Point(1h), 14900ms);
    EXPECT_LE(now - Time::Point(1h), 16s);
}

TEST_F(RoomKeeperTest, ADeviceThatTakesNothingIsGivenUpAfterTheStandstill) {
    RoomKeeper keeper(level(), time());
    room = 100;
    EXPECT_FALSE(keeper.waitFor(254));
    EXPECT_GE(now - Time::Point(1h), RoomKeeper::longestStandstill);
    EXPECT_LE(now - Time::Point(1h), RoomKeeper::longestStandstill + 100ms);
}

TEST_F(RoomKeeperTest, WhatFitsIsSentToADeviceThatTakesNothing) {
    RoomKeeper keeper(level(), time());
    room = 300;
    EXPECT_TRUE(send(keeper, 254));
    EXPECT_FALSE(send(keeper, 254));
    EXPECT_EQ(lost, 0U);
}

TEST_F(RoomKeeperTest, ADeviceThatTakesHardlyAnythingIsGivenUpAfterTheLongestWait) {
    rate = 5;
    RoomKeeper keeper(level(), time());
    room = 0;
    EXPECT_FALSE(keeper.waitFor(254));
    EXPECT_GE(now - Time::Point(1h), RoomKeeper::longestWait);
    EXPECT_LE(now - Time::Point(1h), RoomKeeper::longestWait + 100ms);
}

TEST_F(RoomKeeperTest, AMessageLargerThanTheBufferGoesOutOnceTheBufferIsEmpty) {
    rate = 31250;
    RoomKeeper keeper(level(), time());
    room = 4000;
    EXPECT_TRUE(keeper.waitFor(5000));
    EXPECT_EQ(room, 4096U);
}

TEST_F(RoomKeeperTest, AfterOthersMayHaveSentTheLevelIsReadAgain) {
    RoomKeeper keeper(level(), time());
    ASSERT_TRUE(keeper.waitFor(3));
    keeper.forgetLevel();
    ASSERT_TRUE(keeper.waitFor(3));
    EXPECT_EQ(readings, 2);
}

TEST_F(RoomKeeperTest, WhereNoLevelIsShownAFewMessagesGoAtOnce) {
    isShown = false;
    RoomKeeper keeper(level(), time());
    for (int block = 0; block < 4; ++block) {
        ASSERT_TRUE(keeper.waitFor(254));
    }
    EXPECT_EQ(now, Time::Point(1h));
}

TEST_F(RoomKeeperTest, WhereNoLevelIsShownNoMoreGoesThanAWireCarries) {
    isShown = false;
    RoomKeeper keeper(level(), time());
    for (int message = 0; message < 10000; ++message) {
        ASSERT_TRUE(keeper.waitFor(3));
    }
    // 30,000 bytes less those that may be on their way, at 3125 a second.
    EXPECT_GE(now - Time::Point(1h), 8900ms);
    EXPECT_LE(now - Time::Point(1h), 9600ms);
}

TEST_F(RoomKeeperTest, ALevelThatIsNoLongerShownLeavesTheWire) {
    room = 0;
    RoomKeeper keeper(
        [this, shown = 3]() mutable -> std::optional<FillLevel> {
            return --shown > 0 ? std::optional(FillLevel{room, 4096}) : std::nullopt;
        },
        time());
    EXPECT_TRUE(keeper.waitFor(254));
}

}  // namespace
}  // namespace platform::alsa
