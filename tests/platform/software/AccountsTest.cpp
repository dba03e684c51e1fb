// What a sender is told became of what it sent.

#include "platform/software/SoftwareMidiTest.h"

namespace platform::software {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Account = platform::Delivery;
using Trouble = Account::Trouble;

/// A settled account.
Account known(std::uint64_t handedOver, std::uint64_t left, Trouble trouble = Trouble::None,
              std::string program = {}) {
    Account account;
    account.handedOver = handedOver;
    account.left = left;
    account.trouble = trouble;
    account.program = std::move(program);
    return account;
}

class Accounts : public SoftwareMidiTest {
protected:
    void SetUp() override {
        SoftwareMidiTest::SetUp();
        port_ = outputPort();
        service.beginDelivery(handle_);
    }
    void TearDown() override {
        service.MIDIPortDispose(port_);
        SoftwareMidiTest::TearDown();
    }
    OSStatus send() { return service.MIDISend(port_, handle_, makeOnePacketList(noteOn).get()); }
    [[nodiscard]] Account account() { return service.delivery(handle_); }
    void watch() {
        service.watchDelivery(handle_, [this](const Account& told) { told_.push_back(told); });
    }

    Device& device_ = service.addDevice("Tormelk");
    Destination& out_ = device_.addDestination("Port 1");
    const MIDIEndpointRef handle_ = out_.handle();
    MIDIPortRef port_ = 0;
    std::vector<Account> told_;
};

TEST_F(Accounts, AreSettledWhileNothingWasSent) {
    EXPECT_EQ(account(), Account());
}

TEST_F(Accounts, OfADeviceThatTakesEverythingAreSettledAtOnce) {
    send();
    EXPECT_EQ(send(), noErr);
    EXPECT_EQ(account(), known(6, 6));
}

TEST_F(Accounts, BeginAnewWhenTheyAreTold) {
    send();
    out_.keepInUse("Recorder");
    send();
    out_.freeAgain();
    service.beginDelivery(handle_);
    EXPECT_EQ(account(), Account());
    EXPECT_EQ(send(), noErr);
    EXPECT_EQ(account(), known(3, 3));
}

TEST_F(Accounts, ShowWhatADeviceHoldsBackUntilItTakesIt) {
    out_.holdBack(7s);
    EXPECT_EQ(send(), noErr);
    EXPECT_EQ(send(), noErr);
    Account waiting = known(6, 0);
    waiting.standstill = 7s;
    waiting.isSettled = false;
    EXPECT_EQ(account(), waiting);
    EXPECT_THAT(out_.receivedBytes(), IsEmpty());
    out_.takeWaiting();
    EXPECT_EQ(account(), known(6, 6));
    EXPECT_THAT(out_.received(),
                ElementsAre(RecordedPacketList{{0, noteOn}}, RecordedPacketList{{0, noteOn}}));
}

TEST_F(Accounts, LoseWhatWaitsWhenTheDeviceTakesNothingForTooLong) {
    send();
    out_.holdBack();
    send();
    out_.giveUp();
    const Account lost = known(6, 3, Trouble::TakesNothing);
    EXPECT_EQ(account(), lost);
    out_.takeWaiting();
    EXPECT_EQ(out_.received().size(), 1U);
    EXPECT_EQ(send(), kMIDINoConnection) << "what was cut does not go on";
    EXPECT_EQ(out_.received().size(), 1U);
    EXPECT_EQ(account().left, 3U);
}

TEST_F(Accounts, LoseWhatWaitsWhenTheDeviceIsPulledOut) {
    send();
    out_.holdBack();
    send();
    device_.unplug();
    EXPECT_EQ(account(), known(6, 3, Trouble::WentAway));
    EXPECT_EQ(out_.received().size(), 1U);
}

TEST_F(Accounts, TellThatADeviceWentAwayWhenItIsSentMore) {
    send();
    device_.unplug();
    EXPECT_EQ(account().trouble, Trouble::None) << "what was sent had arrived";
    EXPECT_EQ(send(), kMIDIUnknownEndpoint);
    EXPECT_EQ(account(), known(6, 3, Trouble::WentAway));
}

TEST_F(Accounts, HaveTroubleFromTheStartWhereTheDeviceIsGone) {
    device_.unplug();
    service.beginDelivery(handle_);
    EXPECT_EQ(account().trouble, Trouble::WentAway);
    EXPECT_EQ(account().handedOver, 0U);
}

TEST_F(Accounts, NameTheProgramThatKeepsTheDeviceToItself) {
    out_.keepInUse("Recorder");
    EXPECT_EQ(send(), kMIDINoConnection);
    EXPECT_EQ(account(), known(3, 0, Trouble::InUse, "Recorder"));
    EXPECT_THAT(out_.receivedBytes(), IsEmpty());
}

TEST_F(Accounts, CountWhatARefusedSendWasGiven) {
    service.fail("MIDISend", -1);
    EXPECT_EQ(send(), -1);
    EXPECT_EQ(account(), known(3, 0, Trouble::TakesNothing));
}

TEST_F(Accounts, LoseWhatIsAbandoned) {
    out_.holdBack();
    send();
    service.abandonDelivery(handle_);
    EXPECT_EQ(account().trouble, Trouble::TakesNothing);
    out_.takeWaiting();
    EXPECT_THAT(out_.receivedBytes(), IsEmpty());
}

TEST_F(Accounts, HaveNothingToAbandonWhereNothingWaits) {
    send();
    service.abandonDelivery(handle_);
    EXPECT_EQ(account(), known(3, 3));
}

TEST_F(Accounts, AreWatchedUntilTheyAreSettledAndToldOnceByTheDispatch) {
    out_.settleLater();
    send();
    EXPECT_FALSE(account().isSettled);
    EXPECT_EQ(account().left, 3U);
    watch();
    service.dispatch();
    EXPECT_THAT(told_, IsEmpty());
    out_.settle();
    EXPECT_THAT(told_, IsEmpty());
    service.dispatch();
    service.dispatch();
    EXPECT_THAT(told_, ElementsAre(known(3, 3)));
}

TEST_F(Accounts, AreToldByTheNextDispatchWhereTheyAreSettledAlready) {
    send();
    service.dispatch();
    watch();
    EXPECT_THAT(told_, IsEmpty());
    service.dispatch();
    EXPECT_EQ(told_.size(), 1U);
}

TEST_F(Accounts, AreNotToldToAWatchThatWasTakenBackOrReplaced) {
    out_.settleLater();
    send();
    watch();
    watch();
    out_.settle();
    service.dispatch();
    EXPECT_EQ(told_.size(), 1U);
    watch();
    service.watchDelivery(handle_, {});
    service.dispatch();
    EXPECT_EQ(told_.size(), 1U);
}

TEST_F(Accounts, TellTroubleToTheirWatch) {
    out_.settleLater();
    send();
    watch();
    device_.unplug();
    service.dispatch();
    EXPECT_THAT(told_, ElementsAre(known(3, 3, Trouble::WentAway)));
}

}  // namespace
}  // namespace platform::software
