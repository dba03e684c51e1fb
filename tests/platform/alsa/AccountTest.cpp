#include "platform/alsa/Account.h"

#include <gtest/gtest.h>

#include <vector>

namespace platform::alsa {
namespace {

using namespace std::chrono_literals;
using Bytes = std::vector<std::uint8_t>;
using Trouble = Delivery::Trouble;

/// An account on a clock of its own, and a device that is looked at every 25 ms.
class AccountTest : public testing::Test {
protected:
    void hand(const Bytes& message) { account.handOver(message.size(), now); }
    void handAndAccept(const Bytes& message) {
        hand(message);
        account.accept(message, now);
        account.acceptAll();
    }
    void see(std::size_t waiting) {
        account.see(waiting, now);
        account.pass(now);
    }
    /// So long it stays as it is.
    void stay(Time::Duration duration, std::size_t waiting) {
        for (const Time::Point end = now + duration; now < end;) {
            now += 25ms;
            see(waiting);
        }
    }
    [[nodiscard]] Delivery delivery() const { return account.at(now); }

    const Bytes block = [] {
        Bytes bytes(254, 1);
        bytes.front() = 0xF0;
        bytes.back() = 0xF7;
        return bytes;
    }();
    const Bytes note{0x9F, 5, 5};
    Time::Point now{1h};
    Account account{now};
};

TEST_F(AccountTest, OfNothingIsSettled) {
    EXPECT_EQ(delivery(), Delivery{});
    stay(20s, 0);
    EXPECT_EQ(delivery(), Delivery{});
}

TEST_F(AccountTest, WhatWaitsHereOrInTheKernelHasNotLeft) {
    handAndAccept(block);
    hand(block);
    see(100);
    EXPECT_EQ(delivery().handedOver, 508U);
    EXPECT_EQ(delivery().left, 154U);
    EXPECT_FALSE(delivery().isSettled);
}

TEST_F(AccountTest, IsSettledOnceAllHasLeftAndTheDestinationHasStayedForAWhile) {
    handAndAccept(block);
    see(0);
    EXPECT_EQ(delivery().left, 254U);
    EXPECT_FALSE(delivery().isSettled);
    stay(Account::settleTime - 25ms, 0);
    EXPECT_FALSE(delivery().isSettled);
    stay(25ms, 0);
    EXPECT_TRUE(delivery().isSettled);
    EXPECT_EQ(delivery().trouble, Trouble::None);
}

TEST_F(AccountTest, AMessageMoreBeginsTheWhileAnew) {
    handAndAccept(block);
    see(0);
    stay(Account::settleTime, 0);
    handAndAccept(note);
    see(0);
    EXPECT_FALSE(delivery().isSettled);
    stay(Account::settleTime, 0);
    EXPECT_TRUE(delivery().isSettled);
}

TEST_F(AccountTest, ADestinationThatGoesInTheWhileTookItWithIt) {
    handAndAccept(block);
    stay(200ms, 0);
    account.end(Trouble::WentAway, now);
    EXPECT_EQ(delivery().trouble, Trouble::WentAway);
    EXPECT_TRUE(delivery().isSettled);
}

TEST_F(AccountTest, ADestinationThatGoesLaterChangesNothing) {
    handAndAccept(block);
    see(0);
    stay(Account::settleTime, 0);
    account.end(Trouble::WentAway, now);
    EXPECT_EQ(delivery().trouble, Trouble::None);
}

TEST_F(AccountTest, WithTroubleNothingGrowsButWhatIsHandedOver) {
    handAndAccept(block);
    see(200);
    account.end(Trouble::InUse, now, "Player");
    account.end(Trouble::WentAway, now);
    see(0);
    handAndAccept(block);
    see(0);
    EXPECT_EQ(delivery().left, 54U);
    EXPECT_EQ(delivery().handedOver, 508U);
    EXPECT_EQ(delivery().trouble, Trouble::InUse);
    EXPECT_EQ(delivery().program, "Player");
}

TEST_F(AccountTest, OfNotesTheKernelKeepsTwoBytesEach) {
    for (int message = 0; message < 100; ++message) {
        handAndAccept(note);
    }
    see(201);
    EXPECT_EQ(delivery().left, 0U);
    see(200);
    EXPECT_EQ(delivery().left, 0U) << "of the first message a byte has gone";
    see(198);
    EXPECT_EQ(delivery().left, 3U);
    see(1);
    EXPECT_EQ(delivery().left, 297U) << "half of the last message waits";
    see(0);
    EXPECT_EQ(delivery().left, 300U);
}

TEST_F(AccountTest, AfterASysExTheKernelKeepsTheStatusAgain) {
    handAndAccept(note);
    handAndAccept(block);
    handAndAccept(note);
    see(3 + 254);
    EXPECT_EQ(delivery().left, 3U);
    see(3);
    EXPECT_EQ(delivery().left, 257U);
}

TEST_F(AccountTest, WhatWaitedBeforeIsNotCounted) {
    account = Account(now, 254);
    hand(note);
    account.accept(block, now);
    account.accept(note, now);
    see(257);
    EXPECT_EQ(delivery().left, 0U);
    see(3);
    EXPECT_EQ(delivery().left, 0U);
    see(0);
    EXPECT_EQ(delivery().left, 3U);
}

TEST_F(AccountTest, WhatAnotherProgramSendsAfterwardsDelaysNothing) {
    handAndAccept(block);
    see(254);
    // Of 200 bytes each time the device takes 150, and 150 new ones of the other's come.
    for (const std::size_t waiting : {104U, 254U, 104U, 254U, 104U}) {
        see(waiting);
    }
    EXPECT_EQ(delivery().left, 254U);
}

TEST_F(AccountTest, ADestinationThatHasTakenNothingForTooLongTakesNothingAnyMore) {
    handAndAccept(block);
    see(254);
    stay(1s, 254);
    EXPECT_EQ(delivery().standstill, 1s);
    see(200);
    EXPECT_EQ(delivery().standstill, 0s);
    stay(Account::longestStandstill - 25ms, 200);
    EXPECT_EQ(delivery().trouble, Trouble::None);
    stay(25ms, 200);
    EXPECT_EQ(delivery().trouble, Trouble::TakesNothing);
    EXPECT_EQ(delivery().standstill, Account::longestStandstill);
    EXPECT_EQ(delivery().left, 54U);
}

TEST_F(AccountTest, TheStandstillIsSeenAlsoWhileMoreIsHandedOver) {
    for (std::size_t message = 0; message < 1000; ++message) {
        handAndAccept(note);
        now += 2ms;
        see(2 * message + 3);
    }
    EXPECT_EQ(delivery().left, 0U);
    EXPECT_EQ(delivery().standstill, 2s);
}

TEST_F(AccountTest, ADestinationThatHasHadNothingToTakeStandsNotStill) {
    handAndAccept(note);
    stay(1min, 0);
    handAndAccept(note);
    see(3);
    EXPECT_EQ(delivery().standstill, 0s);
    EXPECT_EQ(delivery().trouble, Trouble::None);
}

TEST_F(AccountTest, AMessageForWhichThereIsNoSpaceForTooLongEndsIt) {
    handAndAccept(block);
    hand(block);
    std::size_t waiting = 254;
    // It still takes a byte now and then.
    for (Time::Duration passed{}; passed < Account::longestStandstill; passed += 25ms) {
        EXPECT_EQ(delivery().trouble, Trouble::None);
        now += 25ms;
        see(--waiting);
    }
    EXPECT_EQ(delivery().trouble, Trouble::TakesNothing);
}

TEST_F(AccountTest, WhatHasNotLeftInAllThatTimeNeverWill) {
    for (int message = 0; message < 10; ++message) {
        handAndAccept(block);
    }
    std::size_t waiting = 2540;
    for (Time::Duration passed{}; passed < Account::longestSettling; passed += 25ms) {
        EXPECT_FALSE(delivery().isSettled);
        now += 25ms;
        see(--waiting);
    }
    EXPECT_TRUE(delivery().isSettled);
    EXPECT_EQ(delivery().trouble, Trouble::TakesNothing);
}

}  // namespace
}  // namespace platform::alsa
