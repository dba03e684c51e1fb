#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <iostream>
#include <thread>

#include "kernel/UsbMidiGadget.h"
#include "kernel/UserSpaceMidiDevice.h"
#include "kernel/publicTools.h"
#include "kernel/rawMidi.h"
#include "kernel/service/OperatedEditor.h"
#include "kernel/service/OtherProgram.h"
#include "kernel/service/startUpImage.h"
#include "kernel/waitUntil.h"

// What the editor's window says of a Send, beside what came out at the device's end of the cable;
// and that the next Send in the same program arrives whole, whatever happened to the one before.

namespace kernel {
namespace {

using namespace std::chrono_literals;
using testing::AnyOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::Not;
using testing::StartsWith;

constexpr std::size_t bytesInALayer = 254;
constexpr std::size_t bytesInAll = 4 * bytesInALayer;

const std::string gadgetPort = "Tormelk MIDI 1";
const std::string sentAll = "status: Sent 4 layers to ";

class SendWords : public testing::Test {
protected:
    void TearDown() override {
        if (HasFailure()) {
            std::cout << editor.toldSince(0);
        }
    }
    /// The same road is open again: the next Send arrives whole, and only then the window says so.
    template <typename Device>
    void expectTheNextSendArrivesWhole(Device& device, const std::string& port) {
        device.received().forget();
        editor.skip();
        EXPECT_EQ(editor.sendOnceItIsThere(), "Send Done");
        EXPECT_EQ(editor.next(sentAll), port);
        EXPECT_EQ(device.received().all(), startUpImage());
        EXPECT_EQ(editor.now("status"), "Sent 4 layers to " + port);
    }
    /// What was told of a Send that began there, up to the end that its status line has found.
    std::string toldUntilSettled(std::size_t begin) {
        std::string status;
        const auto isSettled = [&] {
            status = editor.now("status");
            return status.find("waiting") == std::string::npos;
        };
        EXPECT_TRUE(waitUntil(isSettled, 20s)) << status;
        return editor.toldSince(begin);
    }

    OperatedEditor editor;
};

TEST_F(SendWords, ThatAllWasSentStandThereOnlyOnceAllHasArrived) {
    UserSpaceMidiDevice device({.bytesPerSecond = 1000});
    device.plug();
    editor.chooseOutput("Tormelk Port");
    const std::size_t begin = editor.read();
    EXPECT_EQ(editor.send(), "Send Done");
    EXPECT_EQ(editor.next("status: "),
              "Sending to Tormelk Port: waiting until it has taken everything");
    EXPECT_LT(device.received().all().size(), bytesInAll);
    EXPECT_THAT(editor.toldSince(begin), Not(HasSubstr(sentAll)));
    EXPECT_EQ(editor.next(sentAll), "Tormelk Port");
    EXPECT_EQ(device.received().all(), startUpImage());
    expectTheNextSendArrivesWhole(device, "Tormelk Port");
    EXPECT_EQ(editor.close(), 0);
}

TEST_F(SendWords, OfADeviceThatIsPulledOutWhileItTakesTheLayersTellHowManyAreKnownToHaveLeft) {
    UserSpaceMidiDevice device({.bytesPerSecond = 1000});
    device.plug();
    editor.chooseOutput("Tormelk Port");
    const std::size_t begin = editor.read();
    EXPECT_EQ(editor.send(), "Send Done");
    ASSERT_GE(device.received().atLeast(bytesInALayer, 20s).size(), bytesInALayer);
    device.unplug();
    const std::string told = toldUntilSettled(begin);
    EXPECT_LT(device.received().all().size(), bytesInAll);
    EXPECT_THAT(told, Not(HasSubstr(sentAll)));
    // Some transfers are on their way to a device that is slow.
    EXPECT_THAT(editor.now("status"),
                MatchesRegex("Tormelk Port went away during the Send: (1 of 4 layers is|[23] of 4 "
                             "layers are) known to have left this computer"));
    device.plug();
    expectTheNextSendArrivesWhole(device, "Tormelk Port");
    EXPECT_EQ(editor.close(), 0);
}

TEST_F(SendWords, OfADeviceThatIsPulledOutAfterAnyBlockNeverSayThatAllWasSent) {
    UsbMidiGadget device({});
    for (const std::size_t blocks : {1U, 2U, 3U, 4U}) {
        device.plug();
        device.received().forget();
        editor.chooseOutput(gadgetPort);
        const std::size_t begin = editor.read();
        editor.order("press send");
        (void)device.received().atLeast(blocks * bytesInALayer, 10s);
        // Two milliseconds later the next block would follow.
        editor.freeze();
        device.unplug();
        editor.thaw();
        EXPECT_THAT(editor.next("alert Tormelk Wyro: "), StartsWith("Send Done"));
        editor.order("leave");
        const std::string told = toldUntilSettled(begin);
        const std::size_t arrived = device.received().all().size();
        if (arrived < bytesInAll) {
            EXPECT_THAT(told, Not(HasSubstr(sentAll))) << arrived << " bytes arrived";
        }
        EXPECT_THAT(editor.now("status"),
                    AnyOf(StartsWith(gadgetPort + " went away during the Send: "),
                          StartsWith(gadgetPort + " went away right after the Send: ")))
            << arrived << " bytes arrived";
    }
    device.plug();
    expectTheNextSendArrivesWhole(device, gadgetPort);
    EXPECT_EQ(editor.close(), 0);
}

TEST_F(SendWords, OfADeviceThatTakesNothingSaySoAndNothingArrivesLater) {
    UserSpaceMidiDevice device({});
    device.plug();
    editor.chooseOutput("Tormelk Port");
    device.stopTaking();
    const std::size_t begin = editor.read();
    EXPECT_EQ(editor.send(), "Send Done");
    EXPECT_THAT(editor.next("status: Tormelk Port takes nothing"), HasSubstr(" layer"));
    EXPECT_THAT(editor.toldSince(begin), Not(HasSubstr(sentAll)));
    // The kernel needs a moment to let go.
    std::this_thread::sleep_for(500ms);
    device.goOnTaking();
    EXPECT_LT(device.received().atLeast(bytesInAll, 1s).size(), bytesInAll);
    expectTheNextSendArrivesWhole(device, "Tormelk Port");
    EXPECT_EQ(editor.close(), 0);
}

TEST_F(SendWords, OfADeviceThatIsInUseNameTheProgramAtOnce) {
    UsbMidiGadget device({});
    device.plug();
    editor.chooseOutput(gadgetPort);
    const auto expectInUseBy = [&](const std::string& program) {
        const auto began = std::chrono::steady_clock::now();
        const std::string words = gadgetPort + " is in use by " + program + ": nothing was sent";
        EXPECT_EQ(editor.send(), "Send Done\\n\\n" + words);
        EXPECT_LT(std::chrono::steady_clock::now() - began, 4s) << "on an emulated machine";
        EXPECT_EQ(editor.now("status"), words);
        EXPECT_THAT(device.received().all(), IsEmpty());
    };
    {
        const std::string raw = "hw:" + std::to_string(*device.host().card()) + ",0";
        const RawMidi held = openRawMidiOutput(raw);
        expectInUseBy("kernel-programs");  // as the kernel cuts the test's name
    }
    expectTheNextSendArrivesWhole(device, gadgetPort);
    std::this_thread::sleep_for(3s);  // until the editor has given the device back
    device.received().forget();
    {
        const OtherProgram player("Player", {"out=read"});
        const std::string port = address(*device.host().client());
        ASSERT_EQ(run({"aconnect", "-e", "Player:0", port}).status, 0);
        expectInUseBy("Player");
    }
    expectTheNextSendArrivesWhole(device, gadgetPort);
    EXPECT_EQ(editor.close(), 0);
}

// The sequencer itself

constexpr const char* sequencer = "/dev/snd/seq";

void allow(const std::string& node, mode_t mode) {
    ASSERT_EQ(chmod(node.c_str(), mode), 0);
}

/// The words of the device dialog, in which nothing can be chosen yet.
std::string hintIn(OperatedEditor& editor) {
    editor.order("trigger actionMidiDevices");
    editor.next("in front: MIDI Devices");
    return editor.now("hint");
}

/// It has come while the dialog stood open: a Send arrives whole.
void expectASendFromTheOpenDialog(OperatedEditor& editor, UsbMidiGadget& device) {
    EXPECT_TRUE(waitUntil([&] { return editor.now("hint").empty(); }, 10s)) << editor.now("hint");
    editor.order("choose " + gadgetPort);
    editor.next("chose " + gadgetPort);
    EXPECT_EQ(editor.send(), "Send Done");
    EXPECT_EQ(editor.next(sentAll), gadgetPort);
    EXPECT_EQ(device.received().all(), startUpImage());
    EXPECT_EQ(editor.close(), 0);
}

TEST(SequencerWords, TellSomebodyWhoIsNotAllowedToWhatToDoAndItWorksOnceTheyAre) {
    UsbMidiGadget device({});
    device.plug();
    allow(sequencer, 0660);
    OperatedEditor editor({"setpriv", "--reuid=65534", "--regid=65534", "--clear-groups"});
    EXPECT_EQ(editor.now("status"),
              "This program is not allowed to use the computer's MIDI. MIDI Devices tells what to "
              "do.");
    EXPECT_EQ(hintIn(editor),
              "This program is not allowed to use the computer's MIDI. Members of the group "
              "\"audio\" are allowed to. To become one, run this in a terminal, then log out and "
              "log in again:\\nsudo usermod -aG audio $USER");
    allow(sequencer, 0666);
    expectASendFromTheOpenDialog(editor, device);
    allow(sequencer, 0660);
}

TEST(SequencerWords, TellThatItIsNotLoadedAndItWorksOnceItIs) {
    const std::string aside = std::string(sequencer) + ".aside";
    UsbMidiGadget device({});
    device.plug();
    std::filesystem::rename(sequencer, aside);
    OperatedEditor editor;
    EXPECT_EQ(editor.now("status"),
              "The computer's MIDI sequencer is not loaded. MIDI Devices tells what to do.");
    EXPECT_EQ(hintIn(editor),
              "The computer's MIDI sequencer is not loaded. To load it, run this in a terminal; it "
              "is noticed here by itself:\\nsudo modprobe snd-seq");
    std::filesystem::rename(aside, sequencer);
    expectASendFromTheOpenDialog(editor, device);
}

}  // namespace
}  // namespace kernel
