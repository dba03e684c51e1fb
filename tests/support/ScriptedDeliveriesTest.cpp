// How destinations take what is sent to them, as a test lays down, and what the sender is told.

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

class ScriptedDeliveries : public SoftwareMidiTest {
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

TEST_F(ScriptedDeliveries, OfADeviceThatTakesEverythingAreSettledAtOnce) {
    send();
    EXPECT_EQ(send(), noErr);
    EXPECT_EQ(account(), known(6, 6));
}

TEST_F(ScriptedDeliveries, BeginAnewWhenTheyAreTold) {
    send();
    service.at(out_).keepInUse("Recorder");
    send();
    service.at(out_).freeAgain();
    service.beginDelivery(handle_);
    EXPECT_EQ(account(), Account());
    EXPECT_EQ(send(), noErr);
    EXPECT_EQ(account(), known(3, 3));
}

TEST_F(ScriptedDeliveries, ShowWhatADeviceHoldsBackUntilItTakesIt) {
    service.at(out_).holdBack(7s);
    EXPECT_EQ(send(), noErr);
    EXPECT_EQ(send(), noErr);
    Account waiting = known(6, 0);
    waiting.standstill = 7s;
    waiting.isSettled = false;
    EXPECT_EQ(account(), waiting);
    EXPECT_THAT(service.at(out_).receivedBytes(), IsEmpty());
    service.at(out_).takeWaiting();
    EXPECT_EQ(account(), known(6, 6));
    EXPECT_THAT(service.at(out_).received(),
                ElementsAre(RecordedPacketList{{0, noteOn}}, RecordedPacketList{{0, noteOn}}));
}

TEST_F(ScriptedDeliveries, LoseWhatWaitsWhenTheDeviceTakesNothingForTooLong) {
    send();
    service.at(out_).holdBack();
    send();
    service.at(out_).giveUp();
    const Account lost = known(6, 3, Trouble::TakesNothing);
    EXPECT_EQ(account(), lost);
    service.at(out_).takeWaiting();
    EXPECT_EQ(service.at(out_).received().size(), 1U);
    EXPECT_EQ(send(), kMIDINoConnection) << "what was cut does not go on";
    EXPECT_EQ(service.at(out_).received().size(), 1U);
    EXPECT_EQ(account().left, 3U);
}

TEST_F(ScriptedDeliveries, LoseWhatWaitsWhenTheDeviceIsPulledOut) {
    send();
    service.at(out_).holdBack();
    send();
    device_.unplug();
    EXPECT_EQ(account(), known(6, 3, Trouble::WentAway));
    EXPECT_EQ(service.at(out_).received().size(), 1U);
}

TEST_F(ScriptedDeliveries, TellThatADeviceWentAwayWhenItIsSentMore) {
    send();
    device_.unplug();
    EXPECT_EQ(account().trouble, Trouble::None) << "what was sent had arrived";
    EXPECT_EQ(send(), kMIDIUnknownEndpoint);
    EXPECT_EQ(account(), known(6, 3, Trouble::WentAway));
}

TEST_F(ScriptedDeliveries, NameTheProgramThatKeepsTheDeviceToItself) {
    service.at(out_).keepInUse("Recorder");
    EXPECT_EQ(send(), kMIDINoConnection);
    EXPECT_EQ(account(), known(3, 0, Trouble::InUse, "Recorder"));
    EXPECT_THAT(service.at(out_).receivedBytes(), IsEmpty());
}

TEST_F(ScriptedDeliveries, CountWhatARefusedSendWasGiven) {
    service.fail("MIDISend", -1);
    EXPECT_EQ(send(), -1);
    EXPECT_EQ(account(), known(3, 0, Trouble::TakesNothing));
}

TEST_F(ScriptedDeliveries, LoseWhatIsAbandoned) {
    service.at(out_).holdBack();
    send();
    service.abandonDelivery(handle_);
    EXPECT_EQ(account().trouble, Trouble::TakesNothing);
    service.at(out_).takeWaiting();
    EXPECT_THAT(service.at(out_).receivedBytes(), IsEmpty());
}

TEST_F(ScriptedDeliveries, HaveNothingToAbandonWhereNothingWaits) {
    send();
    service.abandonDelivery(handle_);
    EXPECT_EQ(account(), known(3, 3));
}

TEST_F(ScriptedDeliveries, AreWatchedUntilTheyAreSettledAndToldOnceByTheDispatch) {
    service.at(out_).settleLater();
    send();
    EXPECT_FALSE(account().isSettled);
    EXPECT_EQ(account().left, 3U);
    watch();
    service.dispatch();
    EXPECT_THAT(told_, IsEmpty());
    service.at(out_).settle();
    EXPECT_THAT(told_, IsEmpty());
    service.dispatch();
    service.dispatch();
    EXPECT_THAT(told_, ElementsAre(known(3, 3)));
}

TEST_F(ScriptedDeliveries, AreToldByTheNextDispatchWhereTheyAreSettledAlready) {
    send();
    service.dispatch();
    watch();
    EXPECT_THAT(told_, IsEmpty());
    service.dispatch();
    EXPECT_EQ(told_.size(), 1U);
}

TEST_F(ScriptedDeliveries, AreNotToldToAWatchThatWasTakenBackOrReplaced) {
    service.at(out_).settleLater();
    send();
    watch();
    watch();
    service.at(out_).settle();
    service.dispatch();
    EXPECT_EQ(told_.size(), 1U);
    watch();
    service.watchDelivery(handle_, {});
    service.dispatch();
    EXPECT_EQ(told_.size(), 1U);
}

TEST_F(ScriptedDeliveries, TellTroubleToTheirWatch) {
    service.at(out_).settleLater();
    send();
    watch();
    device_.unplug();
    service.dispatch();
    EXPECT_THAT(told_, ElementsAre(known(3, 3, Trouble::WentAway)));
}

}  // namespace
}  // namespace platform::software
