#include "platform/alsa/SpaceGauge.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace platform::alsa {
namespace {

using namespace std::chrono_literals;

/// A destination that takes so many bytes a second out of its buffer, on a clock of its own.
class SpaceGaugeTest : public testing::Test {
protected:
    Time time() {
        return {[this] { return now; }};
    }
    SpaceGauge::Level level() {
        return [this]() -> std::optional<FillLevel> {
            ++readings;
            return isShown ? std::optional(FillLevel{free, 4096}) : std::nullopt;
        };
    }
    void pass(Time::Duration duration) {
        now += duration;
        const double taken = rate * std::chrono::duration<double>(duration).count() + fraction;
        fraction = taken - static_cast<double>(static_cast<std::size_t>(taken));
        free += std::min(static_cast<std::size_t>(taken), 4096 - free);
    }
    /// Takes space as soon as there is some, as sending does.
    void send(SpaceGauge& gauge, std::size_t bytes) {
        while (!gauge.take(bytes)) {
            pass(1ms);
        }
        lost += bytes > free ? bytes - free : 0;
        free -= std::min(bytes, free);
    }

    Time::Point now{1h};
    std::size_t free = 4096;
    double rate = 0;
    double fraction = 0;
    bool isShown = true;
    int readings = 0;
    std::size_t lost = 0;
};

TEST_F(SpaceGaugeTest, ReadsTheLevelOnceForManyShortMessages) {
    SpaceGauge gauge(level(), time());
    for (int message = 0; message < 1365; ++message) {
        ASSERT_TRUE(gauge.take(3));
    }
    EXPECT_EQ(readings, 1);
}

TEST_F(SpaceGaugeTest, NothingIsLostOnASlowDevice) {
    rate = 3125;
    SpaceGauge gauge(level(), time());
    for (int message = 0; message < 200; ++message) {
        send(gauge, 254);
    }
    EXPECT_EQ(lost, 0U);
    // 50,800 bytes less the buffer, at its rate.
    EXPECT_GE(now - Time::Point(1h), 14900ms);
    EXPECT_LE(now - Time::Point(1h), 16s);
}

TEST_F(SpaceGaugeTest, WhatFitsHasSpaceAndWhatDoesNotHasNone) {
    SpaceGauge gauge(level(), time());
    free = 300;
    ASSERT_TRUE(gauge.take(254));
    free -= 254;
    EXPECT_FALSE(gauge.take(254));
    EXPECT_TRUE(gauge.take(46));
}

TEST_F(SpaceGaugeTest, AMessageLargerThanTheBufferGoesOutOnceTheBufferIsEmpty) {
    SpaceGauge gauge(level(), time());
    free = 4000;
    EXPECT_FALSE(gauge.take(5000));
    free = 4096;
    EXPECT_TRUE(gauge.take(5000));
}

TEST_F(SpaceGaugeTest, AfterOthersMayHaveSentTheLevelIsReadAgain) {
    SpaceGauge gauge(level(), time());
    ASSERT_TRUE(gauge.take(3));
    gauge.forgetLevel();
    ASSERT_TRUE(gauge.take(3));
    EXPECT_EQ(readings, 2);
}

TEST_F(SpaceGaugeTest, WhereNoLevelIsShownAFewMessagesGoAtOnce) {
    isShown = false;
    SpaceGauge gauge(level(), time());
    for (int block = 0; block < 4; ++block) {
        ASSERT_TRUE(gauge.take(254));
    }
}

TEST_F(SpaceGaugeTest, WhereNoLevelIsShownNoMoreGoesThanAWireCarries) {
    isShown = false;
    SpaceGauge gauge(level(), time());
    for (int message = 0; message < 10000; ++message) {
        while (!gauge.take(3)) {
            pass(1ms);
        }
    }
    // 30,000 bytes less those that may be on their way, at 3125 a second.
    EXPECT_GE(now - Time::Point(1h), 8900ms);
    EXPECT_LE(now - Time::Point(1h), 9600ms);
}

}  // namespace
}  // namespace platform::alsa
