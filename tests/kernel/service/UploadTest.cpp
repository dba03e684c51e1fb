#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <span>

#include "kernel/Program.h"
#include "kernel/UsbMidiGadget.h"
#include "kernel/sequencerClients.h"
#include "kernel/service/editorDoing.h"
#include "kernel/service/expectedUpload.h"
#include "kernel/waitUntil.h"
#include "simulator/SimulatedController.h"

// New firmware, sent by the editor program itself with all its pauses, and what comes out at the
// device's end of the cable.

namespace kernel {
namespace {

using namespace std::chrono_literals;
using testing::HasSubstr;
using testing::IsEmpty;

/// What a controller has in its flash once it has heard all that: the image, and zeros to the end
/// of its last block.
Bytes flashedBy(const Bytes& wire) {
    simulator::SimulatedController tormelk;
    tormelk.receive(wire);
    EXPECT_EQ(tormelk.firmware().blocksRefused(), 0U);
    EXPECT_FALSE(tormelk.isInUpdateMode()) << "the last frame is the reset";
    const std::span<const std::uint8_t> written = tormelk.firmware().written();
    return {written.begin(), written.end()};
}

class Upload : public testing::Test {
protected:
    Upload() {
        std::ofstream(file, std::ios::binary)
            .write(reinterpret_cast<const char*>(image.data()),
                   static_cast<std::streamsize>(image.size()));
        tormelk.plug();
        clientsBefore = sequencerClients().size();
    }

    /// The program has let go of everything.
    [[nodiscard]] bool leftNothingBehind(std::size_t clients) const {
        return waitUntil([&] { return sequencerClients().size() == clients; }, 5s);
    }

    const Bytes image = randomImage(40000);
    const std::string file = std::filesystem::temp_directory_path() / "tormelk_random.bin";
    UsbMidiGadget tormelk{{}};
    std::size_t clientsBefore = 0;
};

TEST_F(Upload, OfFortyThousandRandomBytesArrivesIdentical) {
    const ProgramResult result = run(editorDoing("upload-and-close", "Tormelk MIDI 1", file), 900s);
    EXPECT_EQ(result.status, 0) << result.output;
    EXPECT_THAT(result.output, HasSubstr("saw Upload: Upload completed."));
    const Bytes expected = allStepsOf(image);
    const Bytes arrived = tormelk.received().atLeast(expected.size(), 5s);
    const auto difference =
        std::mismatch(expected.begin(), expected.end(), arrived.begin(), arrived.end());
    EXPECT_TRUE(arrived == expected)
        << arrived.size() << " of " << expected.size() << " bytes arrived; they differ from byte "
        << difference.first - expected.begin() << " on";
    Bytes blocks = image;
    blocks.resize((image.size() + bytesInABlock - 1) / bytesInABlock * bytesInABlock);
    EXPECT_TRUE(flashedBy(arrived) == blocks) << "the simulated controller holds something else";
    EXPECT_TRUE(leftNothingBehind(clientsBefore));
    EXPECT_THAT(sequencerClientsNamed("Tormelk").at(0).ports.at(0).takesFrom, IsEmpty());
}

TEST_F(Upload, ToAControllerThatIsPulledOutSkipsTheRestInSilenceButForThePausesBetweenBlocks) {
    const Bytes expected = allStepsOf(image);
    Program program(editorDoing("upload-and-close", "Tormelk MIDI 1", file));
    // Into the second block.
    const std::size_t enough = 8 + 2 * bytesInAFrame * bytesInAMessage + bytesOnTheWireInABlock +
                               bytesOnTheWireInABlock / 2;
    ASSERT_GE(tormelk.received().atLeast(enough, 200s).size(), enough) << program.output();
    const auto began = std::chrono::steady_clock::now();
    tormelk.unplug();
    ASSERT_TRUE(program.waitForOutput("saw Upload: Upload completed.", 75s)) << program.output();
    // 77 blocks more, with 0.1 s after each; each of their bytes would have taken 2 ms, and all of
    // them 82 s.
    EXPECT_GT(std::chrono::steady_clock::now() - began, 7700ms);
    const ProgramResult result = program.finish(30s);
    EXPECT_EQ(result.status, 0) << result.output;
    // The device is one client.
    EXPECT_TRUE(leftNothingBehind(clientsBefore - 1));
    // What was on its way in the last moment may be lost; what has arrived is right.
    const Bytes arrived = tormelk.received().all();
    ASSERT_LT(arrived.size(), expected.size());
    EXPECT_TRUE(std::equal(arrived.begin(), arrived.end(), expected.begin()));
}

TEST_F(Upload, ThatASignalCutsEndsBetweenTwoMessagesAndAtOnce) {
    const Bytes expected = allStepsOf(image);
    Program program(editorDoing("upload-and-close", "Tormelk MIDI 1", file));
    const std::size_t enough = 8 + 2 * bytesInAFrame * bytesInAMessage + 100;
    ASSERT_GE(tormelk.received().atLeast(enough, 200s).size(), enough) << program.output();
    const auto began = std::chrono::steady_clock::now();
    const ProgramResult result = program.stop(SIGTERM);
    EXPECT_LT(std::chrono::steady_clock::now() - began, 4s) << "on an emulated machine";
    EXPECT_EQ(result.status, 128 + SIGTERM) << result.output;
    EXPECT_TRUE(leftNothingBehind(clientsBefore));
    const Bytes arrived = tormelk.received().all();
    ASSERT_LT(arrived.size(), expected.size());
    EXPECT_EQ((arrived.size() - 8) % bytesInAMessage, 0U);
    EXPECT_TRUE(std::equal(arrived.begin(), arrived.end(), expected.begin()));
}

}  // namespace
}  // namespace kernel
