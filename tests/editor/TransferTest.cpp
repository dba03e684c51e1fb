#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "editor/TestEditor.h"

namespace editor {
namespace {

namespace journal = support::journal;
using support::Call;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

class Transfer : public EditorTest {
protected:
    Transfer() : port_(editor.midiService.addDevice("Tormelk").addDestination("Port 1")) {
        port_.onReceive([this](const platform::MIDIPacketList& list) {
            platform::forEachPacket(list,
                                    [this](std::uint64_t, std::span<const std::uint8_t> data) {
                                        desktop.note(journal::bytes(data));
                                    });
        });
        editor.midiService.onCall([this](const Call& call) {
            if (call.operation == "MIDIOutputPortCreate") {
                desktop.note("port opened");
            } else if (call.operation == "MIDIPortDispose") {
                desktop.note("port closed");
            } else if (call.operation == "MIDISend") {
                ++sends_;
            }
            return platform::noErr;
        });
    }
    void TearDown() override { EXPECT_THAT(editor.midiService.misuses(), IsEmpty()); }

    void chooseOutput() {
        editor.midiService.dispatch();  // the device was plugged in after the start
        editor.devices.chosen.g_outDevice =
            editor.midiProcess.sharedInstance().realDestinations().at(0).get();
    }

    std::string block(int layer) {
        return journal::bytes(std::span(state.sysData).subspan(position(layer, 0), 254));
    }

    /// What arrives at the port during one Send.
    std::vector<std::vector<std::uint8_t>> send() {
        editor.midiService.at(port_).forgetReceived();
        desktop.answerAlert();
        controller.sendData();
        std::vector<std::vector<std::uint8_t>> messages;
        for (const auto& list : editor.midiService.at(port_).received()) {
            for (const auto& packet : list) {
                messages.push_back(packet.bytes);
            }
        }
        return messages;
    }

    /// The alert where more is to be said than its fixed text.
    static std::string doneBut(const std::string& truth) {
        return journal::alert(toolkit::Alert{"Tormelk Wyro", "Send Done\n\n" + truth, "OK", ""});
    }

    const std::string pause_ = journal::sleep(0.002);
    const std::string done_ = "alert \"Tormelk Wyro\" \"Send Done\" [OK]";
    const std::string noDevice_ = "alert \"Tormelk Wyro\" \"Please select MIDI device first\" [OK]";

    platform::software::Destination& port_;
    int sends_ = 0;
};

TEST_F(Transfer, FourBlocksLeaveInOrderWithAPauseAfterEach) {
    chooseOutput();
    desktop.answerAlert();
    controller.sendData();
    EXPECT_THAT(desktop.journal(),
                ElementsAre("port opened", block(0), pause_, block(1), pause_, block(2), pause_,
                            block(3), pause_, "port closed", done_));
    EXPECT_EQ(sends_, 4);
    EXPECT_EQ(editor.midiService.openOutputPorts(), 0U);
}

TEST_F(Transfer, EachMessageIsOnePacketOf254BytesForNow) {
    chooseOutput();
    send();
    const auto lists = editor.midiService.at(port_).received();
    ASSERT_EQ(lists.size(), 4U);
    for (std::size_t i = 0; i < 4; ++i) {
        ASSERT_EQ(lists.at(i).size(), 1U);
        const auto& packet = lists.at(i).front();
        EXPECT_EQ(packet.timeStamp, 0U);
        ASSERT_EQ(packet.bytes.size(), 254U);
        EXPECT_THAT(std::span(packet.bytes).first(7),
                    ElementsAre(0xF0, 0x1D, 0x03, 0x00, 0x69, 0x4E, i + 1));
        EXPECT_EQ(packet.bytes.back(), 0xF7);
    }
}

TEST_F(Transfer, TheFourPausesAreTwoMillisecondsEach) {
    chooseOutput();
    send();
    const std::chrono::duration<double> pause(0.002);
    EXPECT_THAT(desktop.sleeps(), ElementsAre(pause, pause, pause, pause));
}

TEST_F(Transfer, WithoutAnOutputOnlyTheAlertComes) {
    desktop.answerAlert();
    controller.sendData();
    EXPECT_THAT(desktop.journal(), ElementsAre(noDevice_));
    EXPECT_EQ(sends_, 0);
}

TEST_F(Transfer, WithAnOutputThatIsOfflineOnlyTheAlertComes) {
    chooseOutput();
    port_.unplug();
    editor.midiService.dispatch();
    desktop.answerAlert();
    controller.sendData();
    EXPECT_THAT(desktop.journal(), ElementsAre(noDevice_));
    EXPECT_EQ(sends_, 0);
    EXPECT_FALSE(editor.devices.OutDevice()->isInUse());
}

TEST_F(Transfer, BothAlertsHaveTheirExactTextAndOneButton) {
    desktop.answerAlert();
    controller.sendData();
    chooseOutput();
    desktop.answerAlert();
    controller.sendData();
    EXPECT_THAT(
        desktop.alerts(),
        ElementsAre(toolkit::Alert{"Tormelk Wyro", "Please select MIDI device first", "OK", ""},
                    toolkit::Alert{"Tormelk Wyro", "Send Done", "OK", ""}));
}

TEST_F(Transfer, AnOutputThatVanishesBetweenTwoBlocksGetsNoMoreAndTheSendEndsAsUsual) {
    chooseOutput();
    desktop.onSleep = [&, pauses = 0](std::chrono::duration<double>) mutable {
        if (++pauses == 2) {
            port_.unplug();
            editor.midiService.dispatch();
        }
    };
    const std::string first = block(0);
    const std::string second = block(1);
    const std::string truth =
        "Tormelk Port 1 went away during the Send: 2 of 4 layers are known to have left this "
        "computer";
    desktop.answerAlert();
    controller.sendData();
    std::vector<std::string> lines = desktop.journal();
    std::erase(lines, "port closed");  // it closes as soon as the port is known to be gone
    EXPECT_THAT(lines, ElementsAre("port opened", first, pause_, second, pause_, pause_, pause_,
                                   doneBut(truth)));
    EXPECT_EQ(editor.midiService.openOutputPorts(), 0U);
    EXPECT_FALSE(editor.devices.OutDevice()->isInUse());
    EXPECT_EQ(window.status.stringValue(), truth);
}

TEST_F(Transfer, AnOutputThatVanishesUnnoticedEndsTheSendAsUsual) {
    chooseOutput();
    desktop.onSleep = [&](std::chrono::duration<double>) { port_.unplug(); };
    desktop.answerAlert();
    controller.sendData();
    EXPECT_EQ(editor.midiService.at(port_).received().size(), 1U);
    EXPECT_EQ(desktop.journal().back(), doneBut("Tormelk Port 1 went away during the Send: 1 of 4 "
                                                "layers is known to have left this computer"));
    EXPECT_EQ(desktop.sleeps().size(), 4U);
    editor.midiService.dispatch();
}

TEST_F(Transfer, TheOutputIsAskedForAgainBeforeEachBlock) {
    platform::software::Destination& other = editor.midiService.addDestination("Another");
    chooseOutput();
    const auto& outputs = editor.midiProcess.sharedInstance().realDestinations();
    ASSERT_EQ(outputs.size(), 2U);
    midi::ZQMIDIRealDestination* const first =
        outputs[0]->midiEndpointRef() == port_.handle() ? outputs[0].get() : outputs[1].get();
    midi::ZQMIDIRealDestination* const second =
        first == outputs[0].get() ? outputs[1].get() : outputs[0].get();
    editor.devices.chosen.g_outDevice = first;
    const int self = 0;
    second->addSender(&self);
    desktop.onSleep = [&, pauses = 0](std::chrono::duration<double>) mutable {
        ++pauses;
        editor.devices.chosen.g_outDevice = pauses == 1 ? second : pauses == 2 ? nullptr : first;
    };
    desktop.answerAlert();
    controller.sendData();
    EXPECT_EQ(editor.midiService.at(port_).received().size(), 2U);  // blocks 0 and 3
    EXPECT_EQ(editor.midiService.at(other).received().size(),
              1U);  // block 1; for block 2 there was none
    EXPECT_FALSE(first->isInUse());
    second->removeSender(&self);
}

TEST_F(Transfer, APortThatAnotherSenderUsesStaysOpen) {
    chooseOutput();
    midi::ZQMIDIRealDestination& output = *editor.devices.OutDevice();
    const int other = 0;
    output.addSender(&other);
    desktop.clearJournal();
    desktop.answerAlert();
    controller.sendData();
    EXPECT_THAT(desktop.journal(), ElementsAre(block(0), pause_, block(1), pause_, block(2), pause_,
                                               block(3), pause_, done_));
    EXPECT_TRUE(output.isInUse());
    output.removeSender(&other);
}

TEST_F(Transfer, SendingTwiceSendsTheSame) {
    chooseOutput();
    const auto first = send();
    EXPECT_EQ(first.size(), 4U);
    EXPECT_EQ(send(), first);
}

TEST_F(Transfer, NothingIsCheckedOrChanged) {
    chooseOutput();
    state.sysData.fill(0xAA);
    const config::Image before = state.sysData;
    for (const auto& message : send()) {
        EXPECT_THAT(message, ElementsAreArray(std::vector<std::uint8_t>(254, 0xAA)));
    }
    EXPECT_EQ(state.sysData, before);
}

/// Offsets at which two messages differ.
std::set<int> differences(const std::vector<std::uint8_t>& a, const std::vector<std::uint8_t>& b) {
    std::set<int> offsets;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (a.at(i) != b.at(i)) {
            offsets.insert(static_cast<int>(i));
        }
    }
    return offsets;
}

TEST_F(Transfer, AnotherHostsModeDiffersInByte248Alone) {
    chooseOutput();
    const auto nuendo = send();
    editor.chooseMode(4);
    const auto logic = send();
    for (std::size_t layer = 0; layer < 4; ++layer) {
        EXPECT_THAT(differences(nuendo.at(layer), logic.at(layer)), ElementsAre(248));
    }
}

TEST_F(Transfer, UserDefinedModeDiffersInTheSwappedBytesAndByte248) {
    chooseOutput();
    const auto nuendo = send();
    editor.chooseMode(0);
    const auto fresh = send();
    for (std::size_t layer = 0; layer < 4; ++layer) {
        // The faders' mode bytes: control change instead of pitch bend.
        EXPECT_THAT(differences(nuendo.at(layer), fresh.at(layer)),
                    ElementsAre(223, 224, 225, 226, 227, 228, 229, 230, 231, 248));
    }
    window.combo_chan.choose(9);
    const auto edited = send();
    EXPECT_THAT(differences(fresh.at(0), edited.at(0)), ElementsAre(7));
    editor.chooseMode(1);
    EXPECT_EQ(send(), nuendo);
}

TEST_F(Transfer, NothingButSendSends) {
    chooseOutput();
    editor.chooseMode(0);
    editor.click(20);
    window.combo_chan.choose(9);
    window.locker.click();
    controller.update_Aft_LoadFile();
    EXPECT_THAT(desktop.journal(), IsEmpty());
    EXPECT_EQ(sends_, 0);
}

}  // namespace
}  // namespace editor
