#include "sending/Consignment.h"

#include "sending/SendingTest.h"

namespace sending {
namespace {

using namespace std::chrono_literals;

class ConsignmentTest : public SendingTest {
protected:
    /// So many lists of three bytes, through an open port.
    void handOver(Consignment& consignment, int lists, midi::ZQMIDIRealDestination* to) {
        for (int i = 0; i < lists; ++i) {
            to->addSender(this);
            consignment.handOver(to, *platform::makeOnePacketList(bytes_), this);
            to->removeSender(this);
        }
    }
    void handOver(Consignment& consignment, int lists) { handOver(consignment, lists, output()); }

    const std::vector<std::uint8_t> bytes_ = {0x9F, 1, 2};
    int settled_ = 0;
};

TEST_F(ConsignmentTest, IsSettledWhenAllOfItIsKnownToHaveArrived) {
    Consignment six(service, 6, output());
    handOver(six, 1);
    EXPECT_FALSE(six.look().isSettled) << "more is to come";
    EXPECT_EQ(six.receipt().left, 3U);
    handOver(six, 1);
    const Receipt& receipt = six.look();
    EXPECT_TRUE(receipt.isSettled);
    EXPECT_TRUE(receipt.hasLeft());
    EXPECT_FALSE(receipt.isCut());
    EXPECT_EQ(receipt.output, "Tormelk");
    EXPECT_EQ(receipt.handedOver, 6U);
}

TEST_F(ConsignmentTest, HasTroubleFromTheStartWithoutAnOutputOrWithOneThatIsOffline) {
    EXPECT_EQ(Consignment(service, 6, nullptr).receipt().trouble, Trouble::NoOutput);
    pullOut();
    const Consignment offline(service, 6, output());
    EXPECT_EQ(offline.receipt().trouble, Trouble::Offline);
    EXPECT_TRUE(offline.receipt().isSettled);
    EXPECT_TRUE(offline.receipt().isCut());
}

TEST_F(ConsignmentTest, ForgetsWhatTheOutputWasGivenBefore) {
    Consignment first(service, 3, output());
    handOver(first, 1);
    Consignment second(service, 3, output());
    EXPECT_EQ(second.look().handedOver, 0U);
    EXPECT_EQ(second.look().left, 0U);
}

TEST_F(ConsignmentTest, TellsEachTroubleOfTheService) {
    service.at(port).keepInUse("Recorder");
    Consignment inUse(service, 3, output());
    handOver(inUse, 1);
    EXPECT_EQ(inUse.look().trouble, Trouble::InUse);
    EXPECT_EQ(inUse.receipt().program, "Recorder");
    service.at(port).freeAgain();
    service.at(port).holdBack(4s);
    Consignment stalled(service, 3, output());
    handOver(stalled, 1);
    EXPECT_EQ(stalled.look().standstill, 4s);
    EXPECT_EQ(stalled.look().trouble, Trouble::None);
    service.at(port).giveUp();
    EXPECT_EQ(stalled.look().trouble, Trouble::TakesNothing);
    Consignment gone(service, 6, output());
    handOver(gone, 1);
    device.unplug();
    handOver(gone, 1);
    EXPECT_EQ(gone.look().trouble, Trouble::WentAway);
    EXPECT_EQ(gone.receipt().left, 3U);
    service.dispatch();
}

TEST_F(ConsignmentTest, MissesWhatTheSystemDoesNotTake) {
    service.fail("MIDIOutputPortCreate", platform::kMIDIInvalidClient);
    Consignment refused(service, 3, output());
    handOver(refused, 1);
    EXPECT_EQ(refused.look().trouble, Trouble::Refused);
    EXPECT_EQ(refused.receipt().handedOver, 0U);
}

TEST_F(ConsignmentTest, StaysCutWhenTheOutputComesBack) {
    Consignment cut(service, 9, output());
    handOver(cut, 1);
    pullOut();
    handOver(cut, 1);
    device.plug();
    service.dispatch();
    EXPECT_FALSE(cut.goesTo(output())) << "it is another one now";
    handOver(cut, 1);
    EXPECT_EQ(cut.look().trouble, Trouble::WentAway);
    EXPECT_EQ(cut.receipt().left, 3U);
}

TEST_F(ConsignmentTest, GoesToItsOwnOutputAlone) {
    service.addDestination("Another");
    service.dispatch();
    const Consignment consignment(service, 3, output());
    EXPECT_TRUE(consignment.goesTo(output()));
    EXPECT_FALSE(consignment.goesTo(nullptr));
    EXPECT_FALSE(consignment.goesTo(process.sharedInstance().realDestinations().back().get()));
}

TEST_F(ConsignmentTest, ThatIsCutLeavesNothingWaiting) {
    service.at(port).holdBack();
    Consignment cut(service, 9, output());
    handOver(cut, 2);
    cut.cut(Trouble::WentAway);
    EXPECT_EQ(cut.receipt().trouble, Trouble::WentAway);
    service.at(port).takeWaiting();
    EXPECT_TRUE(service.at(port).receivedBytes().empty());
    EXPECT_EQ(cut.receipt().left, 0U);
}

TEST_F(ConsignmentTest, TellsOnceWhenItIsSettled) {
    service.at(port).settleLater();
    Consignment watched(service, 3, output());
    handOver(watched, 1);
    EXPECT_FALSE(watched.look().isSettled);
    watched.whenSettled([this] { ++settled_; });
    service.dispatch();
    EXPECT_EQ(settled_, 0);
    service.at(port).settle();
    service.dispatch();
    service.dispatch();
    EXPECT_EQ(settled_, 1);
    EXPECT_TRUE(watched.receipt().isSettled);
    EXPECT_EQ(watched.receipt().trouble, Trouble::None);
}

TEST_F(ConsignmentTest, TellsOfTroubleThatComesAfterItsLastByte) {
    service.at(port).settleLater();
    Consignment watched(service, 3, output());
    handOver(watched, 1);
    watched.whenSettled([this] { ++settled_; });
    device.unplug();
    service.dispatch();
    EXPECT_EQ(settled_, 1);
    EXPECT_EQ(watched.receipt().trouble, Trouble::WentAway);
    EXPECT_TRUE(watched.receipt().hasLeft());
    EXPECT_FALSE(watched.receipt().isCut()) << "all of it had left by then";
}

TEST_F(ConsignmentTest, TellsNobodyAnyMoreWhenItIsGoneOrSomethingElseIsSent) {
    service.at(port).settleLater();
    {
        Consignment gone(service, 3, output());
        handOver(gone, 1);
        gone.whenSettled([this] { ++settled_; });
    }
    service.at(port).settle();
    service.dispatch();
    Consignment before(service, 3, output());
    handOver(before, 1);
    before.whenSettled([this] { ++settled_; });
    Consignment after(service, 9, output());
    handOver(after, 2);
    service.at(port).settle();
    service.dispatch();
    EXPECT_EQ(settled_, 0);
    EXPECT_TRUE(before.look().isSettled) << "nothing will be known of it any more";
    EXPECT_FALSE(before.receipt().hasLeft());
    EXPECT_FALSE(before.receipt().isCut());
}

TEST_F(ConsignmentTest, TellsTheOneWhoAskedLast) {
    service.at(port).settleLater();
    Consignment watched(service, 3, output());
    handOver(watched, 1);
    watched.whenSettled([] { FAIL(); });
    watched.whenSettled(nullptr);
    watched.whenSettled([this] { ++settled_; });
    service.at(port).settle();
    service.dispatch();
    EXPECT_EQ(settled_, 1);
}

}  // namespace
}  // namespace sending
