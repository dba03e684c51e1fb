#include "rescue/words.h"

#include <cstdlib>
#include <ctime>

#include "rescue/works.h"

namespace rescue {
namespace {

using std::chrono::system_clock;

class Words : public testing::Test {
protected:
    Words() {
        ::setenv("TZ", "XYZ-2", 1);  // two hours before the meridian's time
        ::tzset();
    }
    /// By the clock on the meridian.
    static system_clock::time_point time(int year, int month, int day, int hour, int minute) {
        std::tm parts{};
        parts.tm_year = year - 1900;
        parts.tm_mon = month - 1;
        parts.tm_mday = day;
        parts.tm_hour = hour;
        parts.tm_min = minute;
        return system_clock::from_time_t(::timegm(&parts));
    }

    Configuration configuration;
    const system_clock::time_point now = time(2026, 11, 22, 9, 0);
};

TEST_F(Words, TheTimeIsThatOfTheClockOnTheWall) {
    EXPECT_EQ(whenWords(time(2026, 11, 20, 19, 14), now), "20 November, 21:14");
    EXPECT_EQ(whenWords(time(2026, 1, 31, 22, 5), now), "1 February, 00:05");
    EXPECT_EQ(whenWords(time(2026, 12, 2, 0, 0), now), "2 December, 02:00");
}

TEST_F(Words, TheYearIsNamedWhereItIsAnother) {
    EXPECT_EQ(whenWords(time(2025, 12, 31, 21, 59), now), "31 December 2025, 23:59");
    EXPECT_EQ(whenWords(time(2025, 12, 31, 22, 0), now), "1 January, 00:00");
}

TEST_F(Words, NothingDiffersFromTheFactoryAtTheStart) {
    EXPECT_EQ(differenceWords(configuration.work()), "as the factory has it");
}

TEST_F(Words, TheModeIsNamedWhereItIsAnother) {
    config::restoreUserDefined(configuration.image, configuration.stores);
    config::setTrailerOfEveryLayer(configuration.image, config::dawModeOffset, 0);
    EXPECT_EQ(differenceWords(configuration.work()), "DAW mode: User Defined");
    config::setTrailerOfEveryLayer(configuration.image, config::dawModeOffset, 99);
    EXPECT_EQ(differenceWords(configuration.work()).substr(0, 17), "DAW mode: unknown");
}

TEST_F(Words, AssignmentsAreCountedOnceShownOrBehindADawMode) {
    config::restoreUserDefined(configuration.image, configuration.stores);
    config::setTrailerOfEveryLayer(configuration.image, config::dawModeOffset, 0);
    config::setNumber(configuration.image, 0, 9, 77);
    EXPECT_EQ(differenceWords(configuration.work()), "DAW mode: User Defined, 1 assignment");
    config::setNumber(configuration.image, 1, 9, 77);
    config::setChannel(configuration.image, 1, 9, 15);
    config::setMode(configuration.image, 3, 73, 0x41);
    EXPECT_EQ(differenceWords(configuration.work()), "DAW mode: User Defined, 3 assignments");
    // The pads of layers 1 to 3 are the same in every mode.
    config::keepUserDefined(configuration.image, configuration.stores);
    config::loadFactory(configuration.image, configuration.stores);
    config::setTrailerOfEveryLayer(configuration.image, config::dawModeOffset, 1);
    EXPECT_EQ(differenceWords(configuration.work()), "3 assignments");
}

TEST_F(Words, AChannelThatHasNoButtonIsNoAssignment) {
    config::setNumber(configuration.image, 0, 79, 77);
    EXPECT_EQ(differenceWords(configuration.work()), "as the factory has it");
}

TEST_F(Words, PadsAndLockAreNamed) {
    config::setTrailer(configuration.image, 2, config::curveOffset, 5);
    EXPECT_EQ(differenceWords(configuration.work()), "pad settings");
    config::setTrailerOfEveryLayer(configuration.image, config::lockOffset, 0);
    EXPECT_EQ(differenceWords(configuration.work()), "pad settings, Lock: off");
}

TEST_F(Words, TheMenuHasTimeAndDifference) {
    config::setNumber(configuration.image, 0, 9, 77);
    EXPECT_EQ(menuWords({"unsaved-0", time(2026, 11, 20, 19, 14), configuration.work()}, now),
              "20 November, 21:14: 1 assignment");
}

TEST_F(Words, TheOfferIsForTheNewestAndNoneWhereThereIsNothing) {
    Findings findings;
    EXPECT_EQ(offerWords(findings, now), "");
    findings.leftovers.push_back({"a", time(2026, 11, 20, 19, 14), configuration.work()});
    findings.leftovers.push_back({"b", time(2026, 11, 19, 19, 14), configuration.work()});
    EXPECT_EQ(offerWords(findings, now),
              "Unsaved work from 20 November, 21:14 can be brought back: "
              "File > Bring Back Unsaved Work");
}

TEST_F(Words, WhatIsLeftAloneIsNamedInOneLine) {
    Findings findings;
    EXPECT_EQ(leftAloneWords(findings, "/state"), "");
    findings.leftAlone = {{"a", Obstacle::Damaged},      {"b", Obstacle::TooLong},
                          {"c", Obstacle::Folder},       {"d", Obstacle::Link},
                          {"e", Obstacle::NoFile},       {"f", Obstacle::Unreadable},
                          {"g", Obstacle::BeingWritten}, {"h", Obstacle::Incomplete}};
    EXPECT_EQ(leftAloneWords(findings, "/state"),
              "Left alone in /state: a (damaged), b (too long), c (a folder), d (a link), "
              "e (no file), f (cannot be read), g (being written), h (one half is missing)");
}

}  // namespace
}  // namespace rescue
