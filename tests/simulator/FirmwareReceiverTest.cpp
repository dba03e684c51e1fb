#include "simulator/FirmwareReceiver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "simulator/firmwareFrames.h"

namespace simulator {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

class FirmwareReceiverTest : public testing::Test {
protected:
    /// The reports that the bytes bring about, refusals marked with "-".
    std::vector<std::string> give(const Bytes& bytes) {
        std::vector<std::string> texts;
        for (const std::uint8_t byte : bytes) {
            if (const auto report = receiver.take(byte)) {
                texts.push_back((report->accepted ? "" : "- ") + report->text);
                restarts += report->restarts ? 1 : 0;
            }
        }
        return texts;
    }
    void giveUpToErase() { give(connectFrame() + eraseFrame()); }

    FirmwareReceiver receiver;
    int restarts = 0;
};

TEST_F(FirmwareReceiverTest, HoldsErasedFlashOf112BlocksAtFirst) {
    EXPECT_THAT(receiver.written(), IsEmpty());
    EXPECT_EQ(receiver.flash().size(), 57344U);
    EXPECT_THAT(receiver.flash(), Each(0xFF));
    EXPECT_FALSE(receiver.isErased());
}

TEST_F(FirmwareReceiverTest, ConnectsErasesWritesAndResets) {
    EXPECT_THAT(give(connectFrame()), ElementsAre("Connected"));
    EXPECT_THAT(give(eraseFrame()), ElementsAre("Flash erased"));
    EXPECT_TRUE(receiver.isErased());
    EXPECT_THAT(give(blockFrame(0) + blockFrame(1)),
                ElementsAre("Block 0 written", "Block 1 written"));
    EXPECT_EQ(restarts, 0);
    EXPECT_THAT(give(resetFrame()), ElementsAre("Restarted with 2 blocks of firmware"));
    EXPECT_EQ(restarts, 1);
    EXPECT_THAT(receiver.written(), ElementsAreArray(contentOf(0) + contentOf(1)));
    EXPECT_THAT(receiver.flash().subspan(1024), Each(0xFF));
}

TEST_F(FirmwareReceiverTest, ReportsEachFrameWithItsLastByte) {
    giveUpToErase();
    Bytes block = blockFrame(0);
    const std::uint8_t last = block.back();
    block.pop_back();
    EXPECT_THAT(give(block), IsEmpty());
    const auto report = receiver.take(last);
    ASSERT_TRUE(report.has_value());
    EXPECT_EQ(report->bytes, 530U);
}

TEST_F(FirmwareReceiverTest, RefusesACommandWithAWrongChecksum) {
    Bytes frame = connectFrame();
    EXPECT_EQ(frame.back(), 0x3A);
    frame.back() = 0x3B;
    EXPECT_THAT(give(frame), ElementsAre("- Command refused: the checksum is 0x3B, the bytes "
                                         "before it sum up to 0x3A"));
    EXPECT_THAT(give(eraseFrame()), ElementsAre("- Erase refused: nobody has connected"));
}

TEST_F(FirmwareReceiverTest, RefusesABlockWithAWrongByteAnywhereInItsContent) {
    for (std::size_t place = 17; place < 530; ++place) {
        giveUpToErase();
        Bytes frame = blockFrame(0);
        frame[place] ^= 0x20;
        const auto texts = give(frame);
        ASSERT_EQ(texts.size(), 1U);
        EXPECT_THAT(texts[0], testing::StartsWith("- Block 0 refused: the checksum is "));
        EXPECT_THAT(receiver.written(), IsEmpty());
    }
    EXPECT_EQ(receiver.blocksRefused(), 1U) << "counted anew after each erasing";
}

TEST_F(FirmwareReceiverTest, RefusesABlockThatHasAChecksumWhereACommandHasIt) {
    giveUpToErase();
    const Bytes frame = withChecksum(head(0x01, 0x00) + Bytes{0xBC} + contentOf(0));
    EXPECT_THAT(give(frame),
                ElementsAre("- Block 0 refused: byte 16 is 0xBC, in a block it is 0x00"));
}

TEST_F(FirmwareReceiverTest, RefusesBlocksOutOfTheirOrder) {
    giveUpToErase();
    EXPECT_THAT(give(blockFrame(1)), ElementsAre("- Block 1 refused: block 0 was to come"));
    EXPECT_THAT(give(blockFrame(0) + blockFrame(0)),
                ElementsAre("Block 0 written", "- Block 0 refused: block 1 was to come"));
    EXPECT_THAT(give(blockFrame(2)), ElementsAre("- Block 2 refused: block 1 was to come"));
    EXPECT_EQ(receiver.blocks(), 1U);
    EXPECT_EQ(receiver.blocksRefused(), 3U);
    EXPECT_THAT(give(resetFrame()), ElementsAre("Restarted with 1 block of firmware, 3 refused"));
}

TEST_F(FirmwareReceiverTest, RefusesBlocksBeforeTheFlashIsErased) {
    EXPECT_THAT(give(blockFrame(0)), ElementsAre("- Block 0 refused: the flash was not erased"));
    give(connectFrame());
    EXPECT_THAT(give(blockFrame(0)), ElementsAre("- Block 0 refused: the flash was not erased"));
}

TEST_F(FirmwareReceiverTest, RefusesEraseAndResetBeforeSomebodyHasConnected) {
    EXPECT_THAT(give(eraseFrame()), ElementsAre("- Erase refused: nobody has connected"));
    EXPECT_THAT(give(resetFrame()), ElementsAre("- Reset refused: nobody has connected"));
    EXPECT_EQ(restarts, 0);
    EXPECT_FALSE(receiver.isErased());
}

TEST_F(FirmwareReceiverTest, HasSpaceFor112Blocks) {
    giveUpToErase();
    for (std::size_t block = 0; block < 112; ++block) {
        give(blockFrame(block));
    }
    EXPECT_EQ(receiver.blocks(), 112U);
    EXPECT_THAT(give(blockFrame(112)),
                ElementsAre("- Block 112 refused: the flash has space for 112 blocks"));
    EXPECT_EQ(receiver.written().size(), 57344U);
}

TEST_F(FirmwareReceiverTest, KnowsNoOtherCommands) {
    EXPECT_THAT(give(commandFrame(0x7F, 0x01)), ElementsAre("- There is no command 7F 01"));
    EXPECT_THAT(give(commandFrame(0x00, 0x00)), ElementsAre("- There is no command 00 00"));
    EXPECT_THAT(give(commandFrame(0x02, 0x70)), ElementsAre("- There is no command 02 70"));
}

TEST_F(FirmwareReceiverTest, ResetWithoutErasingKeepsTheFirmware) {
    giveUpToErase();
    give(blockFrame(0) + resetFrame());
    EXPECT_THAT(give(connectFrame() + resetFrame()),
                ElementsAre("Connected", "Restarted with the firmware it had"));
    EXPECT_EQ(receiver.blocks(), 1U);
}

TEST_F(FirmwareReceiverTest, ErasingForgetsWhatWasWritten) {
    giveUpToErase();
    give(blockFrame(0));
    giveUpToErase();
    EXPECT_THAT(receiver.flash(), Each(0xFF));
    EXPECT_THAT(give(blockFrame(0)), ElementsAre("Block 0 written"));
}

TEST_F(FirmwareReceiverTest, BeginningAnewForgetsHalfAFrameAndTheConnection) {
    give(connectFrame());
    Bytes half = eraseFrame();
    half.resize(9);
    give(half);
    receiver.begin();
    EXPECT_THAT(give(eraseFrame()), ElementsAre("- Erase refused: nobody has connected"));
}

TEST_F(FirmwareReceiverTest, PassesOverWhatIsNoFrameAndSaysSoOnce) {
    const auto texts = give(Bytes{0x12, 0x55, 0x34, 0x55, 0x55, 0x1D, 0x00} + connectFrame());
    EXPECT_THAT(texts, ElementsAre("- Bytes 12 begin no frame: one begins with ten times 55 and 1D "
                                   "03 00 49",
                                   "Connected"));
}

TEST_F(FirmwareReceiverTest, SaysSoOnceMoreAfterABeginning) {
    EXPECT_EQ(give({0x12, 0x34}).size(), 1U);
    receiver.begin();
    EXPECT_EQ(give({0x12, 0x34}).size(), 1U);
}

TEST_F(FirmwareReceiverTest, FindsAFrameBehindAnEleventh55) {
    EXPECT_THAT(give(Bytes{0x55} + connectFrame()),
                ElementsAre("- Bytes 55 55 55 55 begin no frame: one begins with ten times 55 and "
                            "1D 03 00 49",
                            "Connected"));
}

TEST_F(FirmwareReceiverTest, FindsTheNextFrameAfterOneThatLostAByte) {
    giveUpToErase();
    Bytes cut = blockFrame(0);
    cut.erase(cut.begin() + 100);
    const auto texts = give(cut + blockFrame(1) + blockFrame(2) + resetFrame());
    EXPECT_EQ(receiver.blocks(), 0U);
    EXPECT_EQ(texts.back(), "Restarted with 0 blocks of firmware, 2 refused");
}

TEST_F(FirmwareReceiverTest, StandsWhateverComes) {
    std::mt19937 random(11);
    giveUpToErase();
    for (int i = 0; i < 200000; ++i) {
        // Half of it 55, so that frames begin now and then.
        const auto byte = static_cast<std::uint8_t>(random());
        give({random() % 2 == 0 ? std::uint8_t{0x55} : byte});
    }
    EXPECT_EQ(receiver.flash().size(), 57344U);
    EXPECT_THAT(receiver.written(), IsEmpty());
}

}  // namespace
}  // namespace simulator
