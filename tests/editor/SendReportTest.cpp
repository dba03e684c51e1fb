// What is said of a Send: no more than is known.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editor/TestEditor.h"
#include "firmware/firm.h"
#include "sending/sendReport.h"

namespace editor {
namespace {

using namespace std::chrono_literals;

class SendReport : public EditorTest {
protected:
    SendReport()
        : device_(editor.midiService.addDevice("Tormelk")), port_(device_.addDestination("X")) {
        device_.setName("");
        editor.midiService.dispatch();
        editor.devices.chosen.g_outDevice =
            editor.midiProcess.sharedInstance().realDestinations().at(0).get();
    }

    void send() {
        desktop.answerAlert();
        controller.sendData();
    }
    [[nodiscard]] const std::string& said() const { return window.status.stringValue(); }
    [[nodiscard]] const std::string& alerted() const { return desktop.alerts().back().message; }
    /// Runs within the Send when so many layers have been sent.
    void after(std::size_t layers, std::function<void()> act) {
        desktop.onSleep = [layers, act = std::move(act),
                           slept = 0U](std::chrono::duration<double>) mutable {
            if (++slept == layers) {
                act();
            }
        };
    }
    void expectCut(const std::string& truth) {
        EXPECT_EQ(said(), truth);
        EXPECT_EQ(alerted(), "Send Done\n\n" + truth);
        EXPECT_EQ(editor.midiService.openOutputPorts(), 0U);
    }

    platform::software::Device& device_;
    platform::software::Destination& port_;
};

TEST_F(SendReport, NamesTheOutputThatTookTheLayers) {
    send();
    EXPECT_EQ(said(), "Sent 4 layers to X");
    EXPECT_EQ(alerted(), "Send Done");
}

TEST_F(SendReport, SaysHowManyLayersAreKnownToHaveLeftForAnOutputThatWasPulledOut) {
    const std::string known[] = {"1 of 4 layers is known to have left this computer",
                                 "2 of 4 layers are known to have left this computer",
                                 "3 of 4 layers are known to have left this computer"};
    for (std::size_t layers = 1; layers <= 3; ++layers) {
        after(layers, [this] {
            device_.unplug();
            editor.midiService.dispatch();
        });
        send();
        expectCut("X went away during the Send: " + known[layers - 1]);
        EXPECT_EQ(editor.midiService.at(port_).received().size(), layers);
        device_.plug();
        editor.midiService.dispatch();
        editor.midiService.at(port_).forgetReceived();
        EXPECT_EQ(said(), "X went away during the Send: " + known[layers - 1])
            << "coming back mends nothing";
    }
}

TEST_F(SendReport, DoesNotCountALayerThatHasNotLeftWhole) {
    after(1, [this] { editor.midiService.at(port_).holdBack(); });
    editor.midiService.at(port_).settleLater();
    send();
    EXPECT_EQ(said(), "Sending to X: waiting until it has taken everything");
    device_.unplug();
    editor.midiService.dispatch();
    EXPECT_EQ(said(),
              "X went away during the Send: 1 of 4 layers is known to have left this computer");
}

TEST_F(SendReport, SaysThatItWaitsUntilEverythingIsTaken) {
    editor.midiService.at(port_).settleLater();
    send();
    EXPECT_EQ(said(), "Sending to X: waiting until it has taken everything");
    EXPECT_EQ(alerted(), "Send Done");
    editor.midiService.dispatch();
    EXPECT_EQ(said(), "Sending to X: waiting until it has taken everything");
    editor.midiService.at(port_).settle();
    editor.midiService.dispatch();
    EXPECT_EQ(said(), "Sent 4 layers to X");
}

TEST_F(SendReport, IsSettledAlsoWhileTheAlertIsOpen) {
    editor.midiService.at(port_).settleLater();
    desktop.onAlert([this](const toolkit::Alert&) {
        editor.midiService.at(port_).settle();
        editor.midiService.dispatch();
        EXPECT_EQ(said(), "Sent 4 layers to X");
        return toolkit::AlertAnswer::Default;
    });
    controller.sendData();
    EXPECT_EQ(said(), "Sent 4 layers to X");
}

TEST_F(SendReport, SaysSoWhenTheOutputGoesAwayBeforeEverythingIsKnownToHaveArrived) {
    editor.midiService.at(port_).settleLater();
    send();
    device_.unplug();
    editor.midiService.dispatch();
    EXPECT_EQ(said(), "X went away right after the Send: some of it may not have reached it");
}

TEST_F(SendReport, SaysThatTheOutputTakesNothing) {
    editor.midiService.at(port_).holdBack();
    send();
    EXPECT_EQ(said(), "Sending to X: waiting until it has taken everything");
    editor.midiService.at(port_).giveUp();
    editor.midiService.dispatch();
    EXPECT_EQ(said(), "X takes nothing: nothing was sent");
    after(2, [this] { editor.midiService.at(port_).holdBack(); });
    send();
    editor.midiService.at(port_).giveUp();
    editor.midiService.dispatch();
    EXPECT_EQ(said(), "X takes nothing any more: at most 2 of 4 layers reached it");
}

TEST_F(SendReport, SaysWhichProgramKeepsTheOutputToItself) {
    editor.midiService.at(port_).keepInUse("aseqdump");
    send();
    expectCut("X is in use by aseqdump: nothing was sent");
    editor.midiService.at(port_).keepInUse("");
    send();
    expectCut("X is in use by another program: nothing was sent");
    editor.midiService.at(port_).freeAgain();
    send();
    EXPECT_EQ(said(), "Sent 4 layers to X");
}

TEST_F(SendReport, CountsTheSendsThatFailed) {
    editor.midiService.fail("MIDISend", -1);
    send();
    expectCut("X takes nothing: nothing was sent");
    EXPECT_EQ(desktop.sleeps().size(), 4U);
}

TEST_F(SendReport, SaysSoWhenTheSystemOpensNoPort) {
    editor.midiService.fail("MIDIOutputPortCreate", -1);
    send();
    expectCut("The system did not take the layers for X: nothing was sent");
}

TEST_F(SendReport, DoesNotLeaveAnEarlierSuccessStandingWhenNothingWasSent) {
    send();
    device_.unplug();
    editor.midiService.dispatch();
    send();
    EXPECT_EQ(alerted(), "Please select MIDI device first");
    EXPECT_EQ(said(), "Nothing was sent: the output is offline");
    device_.plug();
    editor.midiService.dispatch();
    send();
    EXPECT_EQ(said(), "Sent 4 layers to X");
    editor.devices.chosen.g_outDevice = nullptr;
    send();
    EXPECT_EQ(alerted(), "Please select MIDI device first");
    EXPECT_EQ(said(), "Nothing was sent: no output is chosen");
}

TEST_F(SendReport, OfAnEarlierSendIsNotGivenAnyMoreAfterTheNext) {
    editor.midiService.at(port_).settleLater();
    send();
    editor.devices.chosen.g_outDevice = nullptr;
    send();
    editor.midiService.at(port_).settle();
    editor.midiService.dispatch();
    EXPECT_EQ(said(), "Nothing was sent: no output is chosen");
}

TEST_F(SendReport, DoesNotWaitForEverWhereTheFirmwareWindowSentSomethingElse) {
    editor.midiService.at(port_).settleLater();
    send();
    desktop.onModal<firmware::firm>([this](firmware::firm& shown) {
        desktop.answerAlert();
        shown.updateButton.click();
        shown.closeButton.click();
    });
    controller.firmware();
    EXPECT_EQ(said(), "Handed 4 layers over for X: whether it took everything is not known");
}

TEST_F(SendReport, SaysThatItIsNotKnownWhereThatCouldNotBeFoundOut) {
    sending::Receipt receipt;
    receipt.output = "X";
    receipt.bytes = 1016;
    receipt.left = 508;
    receipt.isSettled = true;
    EXPECT_EQ(sending::reportSend(receipt),
              "Handed 4 layers over for X: whether it took everything is not known");
    receipt.trouble = sending::Trouble::WentAway;
    receipt.left = 100;
    EXPECT_EQ(sending::reportSend(receipt),
              "X went away during the Send: no whole layer is known to have left this computer");
}

}  // namespace
}  // namespace editor
