#include "platform/alsa/Coalescer.h"

#include <gtest/gtest.h>

namespace platform::alsa {
namespace {

using namespace std::chrono_literals;

const Coalescer::Point start{1h};

TEST(Coalescer, WithoutAChangeNothingIsDue) {
    EXPECT_EQ(Coalescer().dueIn(start), std::nullopt);
}

TEST(Coalescer, AChangeIsDueOnceItHasBeenQuietForAMoment) {
    Coalescer coalescer;
    coalescer.note(start);
    EXPECT_EQ(coalescer.dueIn(start), Coalescer::quiet);
    EXPECT_EQ(coalescer.dueIn(start + 5ms), Coalescer::quiet - 5ms);
    EXPECT_EQ(coalescer.dueIn(start + Coalescer::quiet), 0ms);
    EXPECT_EQ(coalescer.dueIn(start + 1h), 0ms);
}

TEST(Coalescer, EachFurtherChangePutsItOff) {
    Coalescer coalescer;
    coalescer.note(start);
    coalescer.note(start + 15ms);
    EXPECT_EQ(coalescer.dueIn(start + 20ms), Coalescer::quiet - 5ms);
}

TEST(Coalescer, ChangesWithoutEndPutItOffNoLongerThanTheLongestDelay) {
    Coalescer coalescer;
    for (auto passed = 0ms; passed < 300ms; passed += 10ms) {
        coalescer.note(start + passed);
    }
    EXPECT_EQ(coalescer.dueIn(start + Coalescer::longestDelay), 0ms);
}

TEST(Coalescer, WhatHasBeenHandledIsNoLongerDue) {
    Coalescer coalescer;
    coalescer.note(start);
    coalescer.clear();
    EXPECT_EQ(coalescer.dueIn(start + 1h), std::nullopt);
    coalescer.note(start + 1h);
    EXPECT_EQ(coalescer.dueIn(start + 1h), Coalescer::quiet);
}

}  // namespace
}  // namespace platform::alsa
