#include "sending/send.h"

#include "config/buildImageAndStores.h"
#include "sending/SendingTest.h"

namespace sending {
namespace {

using testing::ElementsAre;

class SendTest : public SendingTest {
protected:
    SendTest() { config::buildImageAndStores(image, stores); }

    config::Image image{};
    config::Stores stores;
};

TEST_F(SendTest, SendsAMessageForEachLayerWithAPauseAfterEach) {
    const Consignment sent = send(image, way());
    const auto lists = service.at(port).received();
    ASSERT_EQ(lists.size(), 4U);
    for (std::size_t layer = 0; layer < 4; ++layer) {
        ASSERT_EQ(lists[layer].size(), 1U);
        EXPECT_EQ(lists[layer][0].bytes,
                  std::vector<std::uint8_t>(image.begin() + static_cast<long>(254 * layer),
                                            image.begin() + static_cast<long>(254 * layer + 254)));
    }
    EXPECT_THAT(pauses, ElementsAre(0.002, 0.002, 0.002, 0.002));
    EXPECT_TRUE(sent.receipt().hasLeft());
    EXPECT_TRUE(sent.receipt().isSettled);
    EXPECT_EQ(sent.receipt().bytes, 1016U);
}

TEST_F(SendTest, SendsNothingWithoutAnOutputOrToOneThatIsOffline) {
    pullOut();
    EXPECT_EQ(send(image, way()).receipt().trouble, Trouble::Offline);
    chosen = nullptr;
    EXPECT_EQ(send(image, way()).receipt().trouble, Trouble::NoOutput);
    EXPECT_TRUE(pauses.empty());
    EXPECT_EQ(service.outputPortsCreated(), 0U);
}

TEST_F(SendTest, CountsTheLayersThatLeftBeforeTheOutputWasPulledOut) {
    for (std::size_t after = 1; after <= 3; ++after) {
        SCOPED_TRACE(after);
        pauses.clear();
        onPause = [&] {
            if (pauses.size() == after) {
                pullOut();
            }
        };
        const Consignment sent = send(image, way());
        EXPECT_EQ(sent.receipt().trouble, Trouble::WentAway);
        EXPECT_TRUE(sent.receipt().isSettled);
        EXPECT_EQ(layersIn(sent.receipt().left), after);
        EXPECT_EQ(pauses.size(), 4U) << "the loop goes on";
        device.plug();
        service.dispatch();
    }
}

TEST_F(SendTest, IsNotWholeWhenEverySendFailed) {
    service.fail("MIDISend", -1);
    const Consignment sent = send(image, way());
    EXPECT_TRUE(sent.receipt().isCut());
    EXPECT_EQ(sent.receipt().left, 0U);
    EXPECT_EQ(pauses.size(), 4U);
}

TEST_F(SendTest, OfOneMessageKeepsTheOutputOpenDuringThePause) {
    const std::vector<std::uint8_t> message = {0xF0, 0x01, 0xF7};
    onPause = [this] { EXPECT_EQ(service.openOutputPorts(), 1U); };
    const Consignment sent = sendMessage(message, Seconds(1.75), way());
    EXPECT_THAT(pauses, ElementsAre(1.75));
    EXPECT_EQ(service.at(port).receivedBytes(), message);
    EXPECT_TRUE(sent.receipt().hasLeft());
    chosen = nullptr;
    EXPECT_EQ(sendMessage(message, Seconds(1.75), way()).receipt().trouble, Trouble::NoOutput);
    EXPECT_EQ(pauses.size(), 1U);
}

}  // namespace
}  // namespace sending
