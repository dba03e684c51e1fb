// A firmware update as the simulated controller sees it.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "files/TemporaryFolder.h"
#include "simulator/SimulatedController.h"
#include "simulator/firmwareFrames.h"

namespace simulator {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

class SimulatedUpdate : public testing::Test {
protected:
    void give(const Bytes& frame) { tormelk.receive(asMessages(frame)); }
    /// The last entry of the log, refusals marked with "-".
    [[nodiscard]] std::string last() const {
        if (tormelk.log().empty()) {
            return "nothing";
        }
        return (tormelk.log().back().accepted ? "" : "- ") + tormelk.log().back().text;
    }
    void uploadBlocks(std::size_t count) {
        tormelk.receive(updateModeMessage);
        give(connectFrame() + eraseFrame());
        for (std::size_t block = 0; block < count; ++block) {
            give(blockFrame(block));
        }
    }

    SimulatedController tormelk;
};

TEST_F(SimulatedUpdate, TheMessageSendsItIntoTheUpdateMode) {
    EXPECT_FALSE(tormelk.isInUpdateMode());
    tormelk.receive(updateModeMessage);
    EXPECT_TRUE(tormelk.isInUpdateMode());
    EXPECT_THAT(tormelk.log(),
                ElementsAre(LogEntry{1, true, "Update mode: waits for firmware", 8}));
}

TEST_F(SimulatedUpdate, NoSimilarMessageDoes) {
    for (std::size_t place = 1; place < 7; ++place) {
        Bytes other = updateModeMessage;
        other[place] ^= 0x01;
        tormelk.receive(other);
        EXPECT_FALSE(tormelk.isInUpdateMode());
    }
    Bytes longer = updateModeMessage;
    longer.insert(longer.begin() + 6, 0x55);
    tormelk.receive(longer);
    EXPECT_FALSE(tormelk.isInUpdateMode());
}

TEST_F(SimulatedUpdate, AWholeUploadLeavesTheImageInItsFlash) {
    uploadBlocks(3);
    EXPECT_EQ(last(), "Block 2 written");
    EXPECT_EQ(tormelk.log().back().bytes, 530U);
    EXPECT_TRUE(tormelk.isInUpdateMode());
    give(resetFrame());
    EXPECT_EQ(last(), "Restarted with 3 blocks of firmware");
    EXPECT_FALSE(tormelk.isInUpdateMode());
    EXPECT_THAT(tormelk.firmware().written(),
                ElementsAreArray(contentOf(0) + contentOf(1) + contentOf(2)));
    EXPECT_EQ(tormelk.log().size(), 1U + 2 + 3 + 1);
}

TEST_F(SimulatedUpdate, RefusesFirmwareOutsideTheUpdateModeAndSaysSoOnce) {
    give(connectFrame() + eraseFrame() + blockFrame(0));
    EXPECT_THAT(tormelk.log(),
                ElementsAre(LogEntry{1, false,
                                     "Note on (9F 05 05) and what follows: firmware is taken in "
                                     "the update mode only",
                                     3}));
    tormelk.receive(configurationMessage(1));
    give(connectFrame());
    EXPECT_EQ(tormelk.log().size(), 3U) << "and once more after something else";
    EXPECT_THAT(tormelk.firmware().written(), IsEmpty());
}

TEST_F(SimulatedUpdate, RefusesConfigurationsInTheUpdateMode) {
    tormelk.receive(updateModeMessage);
    tormelk.receive(configurationMessage(1));
    EXPECT_EQ(last(),
              "- Message begins F0 1D 03 00 69 4E: in the update mode only firmware is taken");
    EXPECT_FALSE(tormelk.layers()[0].has_value());
    give(connectFrame() + resetFrame());
    tormelk.receive(configurationMessage(1));
    EXPECT_TRUE(tormelk.layers()[0].has_value());
}

TEST_F(SimulatedUpdate, RefusesOtherMessagesInTheUpdateMode) {
    tormelk.receive(updateModeMessage);
    tormelk.receive(Bytes{0x9F, 0x10, 0x05});
    EXPECT_EQ(last(), "- Note on (9F 10 05) is no firmware");
    tormelk.receive(Bytes{0x9F, 0x05, 0x10});
    EXPECT_EQ(last(), "- Note on (9F 05 10) is no firmware");
    tormelk.receive(Bytes{0x90, 0x05, 0x05});
    EXPECT_EQ(last(), "- Note on (90 05 05) is no firmware");
}

TEST_F(SimulatedUpdate, AnotherProgramsMessageInBetweenHarmsNoFrame) {
    tormelk.receive(updateModeMessage);
    const Bytes frame = asMessages(connectFrame());
    const auto middle = frame.begin() + 24;
    tormelk.receive(Bytes(frame.begin(), middle));
    tormelk.receive(Bytes{0x90, 0x3C, 0x40});
    tormelk.receive(Bytes(middle, frame.end()));
    EXPECT_EQ(last(), "Connected");
}

TEST_F(SimulatedUpdate, TheMessageAgainBeginsAnew) {
    uploadBlocks(1);
    Bytes half = blockFrame(1);
    half.resize(300);
    give(half);
    tormelk.receive(updateModeMessage);
    EXPECT_EQ(last(), "Update mode: waits for firmware");
    give(blockFrame(1));
    EXPECT_EQ(last(), "- Block 1 refused: the flash was not erased");
}

TEST_F(SimulatedUpdate, SavesWhatItReceivedAsAFile) {
    const files::TemporaryFolder folder;
    EXPECT_TRUE(tormelk.saveFirmware(folder / "empty").replaced);
    EXPECT_EQ(files::contents(folder / "empty"), "");
    uploadBlocks(2);
    EXPECT_TRUE(tormelk.saveFirmware(folder / "image").replaced);
    const Bytes expected = contentOf(0) + contentOf(1);
    EXPECT_EQ(files::contents(folder / "image"), std::string(expected.begin(), expected.end()));
    EXPECT_FALSE(tormelk.saveFirmware(folder / "no" / "folder").replaced);
}

TEST_F(SimulatedUpdate, GoesOfflineAtTheMomentItWasToldTo) {
    int told = 0;
    tormelk.onOffline = [&] {
        ++told;
        EXPECT_TRUE(tormelk.isOffline());
    };
    tormelk.goOfflineAfter(1 + 34 + 530 + 100);
    uploadBlocks(3);
    EXPECT_EQ(told, 1);
    EXPECT_TRUE(tormelk.isOffline());
    EXPECT_EQ(tormelk.firmware().blocks(), 1U);
    EXPECT_EQ(last(), "- Offline, as it was told");
    tormelk.receive(configurationMessage(1));
    EXPECT_EQ(last(), "- Offline, as it was told") << "it hears nothing";
}

TEST_F(SimulatedUpdate, ComesBackInTheModeItWasIn) {
    uploadBlocks(1);
    tormelk.goOfflineAfter(0);
    EXPECT_TRUE(tormelk.isOffline());
    give(blockFrame(1));
    tormelk.goOnline();
    EXPECT_TRUE(tormelk.isInUpdateMode()) << "it waits";
    give(connectFrame() + eraseFrame() + blockFrame(0));
    EXPECT_EQ(last(), "Block 0 written");
    EXPECT_EQ(tormelk.firmware().blocks(), 1U);
}

TEST_F(SimulatedUpdate, ThatIsPutOnlineGoesOfflineNoMoreAsItWasToldBefore) {
    tormelk.goOfflineAfter(2);
    tormelk.receive(configurationMessage(1));
    tormelk.goOnline();
    tormelk.receive(configurationMessage(2));
    EXPECT_FALSE(tormelk.isOffline());
    tormelk.receive(configurationMessage(3));
    EXPECT_EQ(last(), "Layer 3 taken in");
}

TEST_F(SimulatedUpdate, GoingOfflineCountsRefusedMessagesToo) {
    tormelk.goOfflineAfter(3);
    tormelk.receive(Bytes{0x12});
    tormelk.receive(sysExOf(10));
    EXPECT_FALSE(tormelk.isOffline());
    tormelk.receive(Bytes{0x90, 0x3C, 0x40});
    EXPECT_TRUE(tormelk.isOffline());
}

TEST_F(SimulatedUpdate, TellsOnlyWhenAFrameIsComplete) {
    tormelk.receive(updateModeMessage);
    int told = 0;
    tormelk.onChange = [&told] { ++told; };
    for (const std::uint8_t byte : connectFrame()) {
        EXPECT_EQ(told, 0);
        give({byte});
    }
    EXPECT_EQ(told, 1);
}

}  // namespace
}  // namespace simulator
