// An upload without any window. What it sends byte by byte is told by the firmware window's tests.

#include "sending/Uploader.h"

#include <algorithm>

#include "sending/SendingTest.h"

namespace sending {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using Event = Uploader::Event;

constexpr std::size_t beforeBlocks = 34;  // messages of connect and erase
constexpr std::size_t inABlock = 530;

class UploaderTest : public SendingTest {
protected:
    UploaderTest() {
        data.len = 2000;  // four blocks
        port.onReceive([this](const platform::MIDIPacketList&) {
            if (++received == actAfter) {
                act();
            }
        });
    }

    Receipt upload() {
        received = 0;
        events.clear();
        Uploader uploader(data, way(), [this](Event event, const Receipt& receipt) {
            events.push_back(event);
            told.push_back(receipt);
        });
        return uploader.upload().receipt();
    }
    /// When so many messages have arrived.
    void after(std::size_t messages, std::function<void()> then) {
        actAfter = messages;
        act = std::move(then);
    }
    [[nodiscard]] std::size_t tenths() const {
        return static_cast<std::size_t>(std::count(pauses.begin(), pauses.end(), 0.1));
    }

    UploadData data;
    std::size_t received = 0;
    std::size_t actAfter = 0;
    std::function<void()> act;
    std::vector<Event> events;
    std::vector<Receipt> told;
};

TEST_F(UploaderTest, ThatIsWholeSaysSo) {
    const Receipt receipt = upload();
    EXPECT_TRUE(receipt.hasLeft());
    EXPECT_TRUE(receipt.isSettled);
    EXPECT_EQ(receipt.bytes, bytesOfUpload(4));
    EXPECT_EQ(receipt.left, 3U * (34 + 4 * 530 + 17));
    EXPECT_THAT(events, ElementsAre(Event::BlocksBegin, Event::BlockDone, Event::BlockDone,
                                    Event::BlockDone, Event::BlockDone));
    const UploadBlocks blocks = blocksOf(receipt);
    EXPECT_EQ(blocks.all, 4U);
    EXPECT_EQ(blocks.handedOver, 4U);
    EXPECT_EQ(blocks.left, 4U);
}

TEST_F(UploaderTest, CountsBlocksThatAreWhole) {
    Receipt receipt;
    receipt.bytes = bytesOfUpload(3);
    receipt.left = 3 * beforeBlocks - 1;
    EXPECT_FALSE(blocksOf(receipt).eraseLeft);
    receipt.left = 3 * (beforeBlocks + inABlock) - 1;
    EXPECT_TRUE(blocksOf(receipt).eraseLeft);
    EXPECT_EQ(blocksOf(receipt).left, 0U);
    ++receipt.left;
    EXPECT_EQ(blocksOf(receipt).left, 1U);
    receipt.left = receipt.bytes;
    EXPECT_EQ(blocksOf(receipt).left, 3U);
    EXPECT_EQ(blocksOf(receipt).handedOver, 0U);
}

TEST_F(UploaderTest, IsCutByAnOutputThatGoesAwayAndItsPausesGoOn) {
    after(beforeBlocks + 2 * inABlock + 77, [this] { pullOut(); });
    const Receipt receipt = upload();
    EXPECT_EQ(receipt.trouble, Trouble::WentAway);
    EXPECT_EQ(blocksOf(receipt).left, 2U);
    EXPECT_EQ(received, beforeBlocks + 2 * inABlock + 77);
    EXPECT_EQ(tenths(), 2U + 4 + 2);
    EXPECT_THAT(events,
                ElementsAre(Event::BlocksBegin, Event::BlockDone, Event::BlockDone, Event::Cut));
    EXPECT_EQ(data.file_len_count, 2048U) << "the loop came to its end";
}

TEST_F(UploaderTest, SendsNothingMoreToAnOutputThatComesBack) {
    after(200, [this] { pullOutAndPlugIn(); });
    const Receipt receipt = upload();
    EXPECT_EQ(received, 200U);
    EXPECT_EQ(receipt.trouble, Trouble::WentAway);
    EXPECT_EQ(receipt.left, 600U);
}

TEST_F(UploaderTest, SendsNothingMoreToAnOutputThatWasOfflineForAMoment) {
    after(200, [this] { port.setIntegerProperty(platform::kMIDIPropertyOffline, 1); });
    onPause = [this] {
        if (tenths() == 4) {  // the second block was skipped
            port.setIntegerProperty(platform::kMIDIPropertyOffline, 0);
        }
    };
    EXPECT_EQ(upload().trouble, Trouble::WentAway);
    EXPECT_EQ(received, 200U);
}

TEST_F(UploaderTest, SendsNothingMoreAfterAByteThatIsKnownToBeLost) {
    after(1000, [this] { service.at(port).holdBack(); });
    std::size_t pausesOfWaiting = 0;
    onPause = [&] {
        if (received == 1000 && ++pausesOfWaiting == 10) {
            service.at(port).giveUp();  // and takes what comes after
        }
    };
    const Receipt receipt = upload();
    EXPECT_EQ(received, 1000U);
    EXPECT_EQ(receipt.trouble, Trouble::TakesNothing);
    EXPECT_EQ(receipt.left, 3000U);
    EXPECT_EQ(receipt.handedOver, 3027U) << "nine more were handed over and lost, and then no more";
}

TEST_F(UploaderTest, ThrowsAwayWhatStillWaitsWhenItIsCut) {
    after(100, [this] { service.at(port).holdBack(); });
    onPause = [this] {
        if (received == 100 && pauses.size() > 200) {
            chosen = nullptr;
        }
    };
    EXPECT_EQ(upload().trouble, Trouble::WentAway);
    service.at(port).takeWaiting();
    EXPECT_EQ(received, 100U);
}

TEST_F(UploaderTest, TellsEachSecondOfAStandstillAndItsEnd) {
    after(100, [this] { service.at(port).holdBack(1500ms); });
    onPause = [this] {
        if (received == 100) {
            switch (pauses.size()) {
                case 150:
                    service.at(port).holdBack(2s);
                    break;
                case 160:
                    service.at(port).holdBack(2900ms);
                    break;
                case 170:
                    service.at(port).holdBack(3s);
                    break;
                case 200:
                    service.at(port).takeWaiting();
                    break;
                default:
                    break;
            }
        }
    };
    const Receipt receipt = upload();
    EXPECT_TRUE(receipt.hasLeft());
    ASSERT_EQ(std::count(events.begin(), events.end(), Event::Standstill), 3);
    EXPECT_EQ(told.at(1).standstill, 2s);
    EXPECT_EQ(told.at(2).standstill, 3s);
    EXPECT_EQ(told.at(3).standstill, 0s);
}

TEST_F(UploaderTest, HasTroubleFromTheStartWithoutAnOutputThatIsThere) {
    chosen = nullptr;
    EXPECT_EQ(upload().trouble, Trouble::NoOutput);
    EXPECT_THAT(events, ElementsAre(Event::Cut, Event::BlocksBegin));
    EXPECT_EQ(pauses.size(), 8U);
    chosen = output();
    pullOut();
    EXPECT_EQ(upload().trouble, Trouble::Offline);
    EXPECT_EQ(received, 0U);
}

TEST_F(UploaderTest, SendsNothingToAnOutputThatAnotherProgramKeepsToItself) {
    service.at(port).keepInUse("Recorder");
    const Receipt receipt = upload();
    EXPECT_EQ(receipt.trouble, Trouble::InUse);
    EXPECT_EQ(receipt.program, "Recorder");
    EXPECT_EQ(receipt.handedOver, 3U) << "nothing was tried after the first byte";
    EXPECT_EQ(received, 0U);
}

TEST_F(UploaderTest, IsCutWhereTheSystemRefuses) {
    service.fail("MIDIOutputPortCreate", platform::kMIDIInvalidClient);
    EXPECT_EQ(upload().trouble, Trouble::Refused);
    service.fail("MIDIOutputPortCreate", platform::noErr);
    service.fail("MIDISend", platform::kMIDIUnknownEndpoint);
    EXPECT_EQ(upload().trouble, Trouble::WentAway);
    EXPECT_EQ(received, 0U);
}

TEST_F(UploaderTest, OfAnEmptyFileIsWholeWithoutABlock) {
    data.len = 0;
    const Receipt receipt = upload();
    EXPECT_TRUE(receipt.hasLeft());
    EXPECT_EQ(blocksOf(receipt).all, 0U);
    EXPECT_EQ(received, 51U);
}

TEST_F(UploaderTest, NeedsNobodyWhoListens) {
    Uploader uploader(data, way());
    EXPECT_TRUE(uploader.upload().receipt().hasLeft());
}

TEST_F(UploaderTest, AfterOneThatWasCutIsWholeAgain) {
    after(300, [this] { pullOutAndPlugIn(); });
    EXPECT_TRUE(upload().isCut());
    after(0, nullptr);
    const Receipt second = upload();
    EXPECT_TRUE(second.hasLeft());
    EXPECT_EQ(second.trouble, Trouble::None);
    EXPECT_EQ(received, beforeBlocks + 4 * inABlock + 17);
}

TEST_F(UploaderTest, MayBeSettledLater) {
    service.at(port).settleLater();
    const Receipt receipt = upload();
    EXPECT_TRUE(receipt.hasLeft());
    EXPECT_FALSE(receipt.isSettled);
}

}  // namespace
}  // namespace sending
