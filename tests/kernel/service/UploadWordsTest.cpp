#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <thread>

#include "kernel/UsbMidiGadget.h"
#include "kernel/UserSpaceMidiDevice.h"
#include "kernel/rawMidi.h"
#include "kernel/service/OperatedEditor.h"
#include "kernel/service/expectedUpload.h"
#include "kernel/waitUntil.h"

// What the firmware window says of an upload, beside what came out at the device's end of the
// cable; and that the next upload in the same program arrives whole, whatever happened to the one
// before.

namespace kernel {
namespace {

using namespace std::chrono_literals;
using testing::IsEmpty;
using testing::MatchesRegex;

const std::string gadgetPort = "Tormelk MIDI 1";
const std::string completed = "Upload completed.";
const std::string stepThree = "Step 3, the next one to be done";

/// The two frames before the first block.
constexpr std::size_t bytesBeforeBlocks = 2 * bytesInAFrame * bytesInAMessage;

/// What can be on its way at full speed: seven transfers, of which three bytes in four are MIDI.
constexpr std::size_t onItsWay = std::size_t{7} * 48;

class UploadWords : public testing::Test {
protected:
    UploadWords() {
        std::ofstream(file, std::ios::binary)
            .write(reinterpret_cast<const char*>(image.data()),
                   static_cast<std::streamsize>(image.size()));
        editor.openFirmwareWindow();
    }
    void TearDown() override {
        if (HasFailure()) {
            std::cout << editor.toldSince(0);
        }
    }

    template <typename Device>
    void waitForBlocks(Device& device, double blocks) {
        const auto enough =
            bytesBeforeBlocks + static_cast<std::size_t>(blocks * double{bytesOnTheWireInABlock});
        ASSERT_GE(device.received().atLeast(enough, 60s).size(), enough) << editor.toldSince(0);
    }
    /// What the alert said, and the window after it: the bar stands where it stopped.
    void expectCutWords(const std::string& alert, const std::string& words, double blocks,
                        double all = 3) {
        EXPECT_EQ(alert, completed + "\\n\\n" + words);
        EXPECT_EQ(editor.now("step5"), words);
        EXPECT_EQ(editor.now("next"), stepThree);
        EXPECT_NEAR(std::stod(editor.now("bar")), 100 * blocks / (all + 1), 0.1);
    }
    template <typename Device>
    void expectTheNextUploadArrivesWhole(Device& device, const std::string& port) {
        device.received().forget();
        const Bytes expected = uploadOf(image);
        editor.beginUpload(port, file);
        (void)device.received().atLeast(expected.size(), 90s);
        EXPECT_EQ(editor.endUpload(30s), completed);
        EXPECT_TRUE(device.received().all() == expected)
            << device.received().all().size() << " of " << expected.size() << " bytes arrived";
        // The device has to stay a while until it is known that it has taken everything.
        EXPECT_TRUE(waitUntil([&] { return editor.now("next") == "none"; }, 20s))
            << editor.now("next");
        EXPECT_EQ(editor.now("step5"), "Nothing is being sent.");
        EXPECT_EQ(editor.now("bar"), "0 %");
    }
    int leave() {
        editor.leaveWindow();
        return editor.close();
    }

    const Bytes image = randomImage(3 * bytesInABlock);
    const std::string file = std::filesystem::temp_directory_path() / "tormelk_words.bin";
    OperatedEditor editor;
};

const std::string onlyOneBlock =
    "Only 1 of 3 blocks left this computer: the controller went away. Its firmware is incomplete. "
    "Connect it and begin again at step 3.";

TEST_F(UploadWords, OfAControllerThatIsPulledOutTellHowMuchLeftAndWhereToGoOn) {
    UsbMidiGadget device({});
    device.plug();
    editor.beginUpload(gadgetPort, file);
    waitForBlocks(device, 1.5);
    device.unplug();
    expectCutWords(editor.endUpload(30s), onlyOneBlock, 1);
    const Bytes arrived = device.received().all();
    const Bytes expected = uploadOf(image);
    ASSERT_LT(arrived.size(), expected.size());
    EXPECT_TRUE(std::equal(arrived.begin(), arrived.end(), expected.begin()));

    device.plug();
    expectTheNextUploadArrivesWhole(device, gadgetPort);
    EXPECT_EQ(leave(), 0);
}

TEST_F(UploadWords, OfAControllerThatIsPulledOutAndPluggedInAgainAreTheSameAndNothingFollows) {
    UsbMidiGadget device({});
    device.plug();
    editor.beginUpload(gadgetPort, file);
    waitForBlocks(device, 1.5);
    device.unplug();
    device.received().forget();
    device.plug();
    expectCutWords(editor.endUpload(30s), onlyOneBlock, 1);
    EXPECT_THAT(device.received().atLeast(1, 2s), IsEmpty());

    expectTheNextUploadArrivesWhole(device, gadgetPort);
    EXPECT_EQ(leave(), 0);
}

TEST_F(UploadWords, OfAControllerThatStopsTakingDataCountTheSecondsAndNothingArrivesLater) {
    UserSpaceMidiDevice device({});
    device.plug();
    // So long that it is under way until the controller is given up.
    std::filesystem::resize_file(file, 12 * bytesInABlock);
    editor.beginUpload("Tormelk Port", file);
    waitForBlocks(device, 1.2);
    device.stopTaking();
    const std::string standstill = editor.next("step5: The controller takes nothing since ");
    EXPECT_THAT(standstill, MatchesRegex("[2-4] s, block [1-4] of 12"));
    expectCutWords(editor.endUpload(60s),
                   "Only 1 of 12 blocks left this computer: the controller takes nothing. Its "
                   "firmware is incomplete. Disconnect it, connect it again and begin again at "
                   "step 3.",
                   1, 12);
    // The kernel needs a moment to let go; what was in its hands already may still come.
    std::this_thread::sleep_for(1s);
    const std::size_t before = device.received().all().size();
    device.goOnTaking();
    EXPECT_LE(device.received().atLeast(before + 1000, 2s).size(), before + onItsWay);

    std::filesystem::resize_file(file, image.size());
    expectTheNextUploadArrivesWhole(device, "Tormelk Port");
    EXPECT_EQ(leave(), 0);
}

TEST_F(UploadWords, OfAControllerThatAnotherProgramHoldsNameItAndNobodyWaits) {
    UsbMidiGadget device({});
    device.plug();
    {
        const std::string raw = "hw:" + std::to_string(*device.host().card()) + ",0";
        const RawMidi held = openRawMidiOutput(raw);
        editor.beginUpload(gadgetPort, file);
        const auto began = std::chrono::steady_clock::now();
        // As the kernel cuts the test's name.
        expectCutWords(editor.endUpload(30s),
                       "Nothing left this computer: the output is in use by kernel-upload-t. Close "
                       "that program and begin again at step 3.",
                       0);
        // Only the pauses between frames and blocks are kept.
        EXPECT_LT(std::chrono::steady_clock::now() - began, 4s) << "on an emulated machine";
    }
    EXPECT_THAT(device.received().all(), IsEmpty());

    expectTheNextUploadArrivesWhole(device, gadgetPort);
    EXPECT_EQ(leave(), 0);
}

}  // namespace
}  // namespace kernel
