#include "firmware/FirmwareTest.h"

namespace firmware {
namespace {

using testing::ElementsAre;

class UpDate : public FirmwareTest {
protected:
    /// What a refusal looks like: the alert, and the device to be chosen again.
    void expectRefusal() {
        devices.midi_device_open = 1;
        desktop.clearJournal();
        desktop.answerAlert();
        dialog().updateButton.click();
        EXPECT_THAT(desktop.journal(),
                    ElementsAre(alertLine("Tormelk Wyro", "Please select MIDI device first")));
        EXPECT_EQ(devices.midi_device_open, 0);
        EXPECT_EQ(service.outputPortsCreated(), 0U);
    }
};

TEST_F(UpDate, SendsTheUpdateModeMessageAndWaits) {
    plugController();
    chooseDevice();
    output->onReceive([this](const platform::MIDIPacketList& list) {
        platform::forEachPacket(list, [&](std::uint64_t, std::span<const std::uint8_t> bytes) {
            desktop.note(journal::bytes(bytes));
        });
    });
    desktop.clearJournal();
    desktop.onSleep = [this](Seconds) { EXPECT_EQ(service.openOutputPorts(), 1U); };
    desktop.onAlert([this](const toolkit::Alert&) {
        EXPECT_EQ(devices.midi_device_open, 1) << "until the alert is answered";
        EXPECT_EQ(service.openOutputPorts(), 0U);
        return toolkit::AlertAnswer::Default;
    });
    dialog().updateButton.click();
    const Bytes message = {0xF0, 0x1D, 0x03, 0x00, 0x69, 0x55, 0x7F, 0xF7};
    EXPECT_THAT(desktop.journal(), ElementsAre(journal::bytes(message), journal::sleep(1.75),
                                               alertLine("Tormelk Wyro", "Send Done")));
    ASSERT_EQ(service.at(*output).received().size(), 1U);
    EXPECT_EQ(service.at(*output).received()[0].size(), 1U);
    EXPECT_EQ(service.at(*output).received()[0][0].timeStamp, 0U);
    EXPECT_EQ(devices.midi_device_open, 0);
}

TEST_F(UpDate, IsRefusedWithoutADevice) {
    expectRefusal();
}

TEST_F(UpDate, IsRefusedWhileTheDeviceIsOffline) {
    plugController();
    chooseDevice();
    device->unplug();
    service.dispatch();
    expectRefusal();
    EXPECT_THAT(service.at(*output).received(), testing::IsEmpty());
}

TEST_F(UpDate, IsNotDoneWhenTheMessageDidNotLeave) {
    plugController();
    chooseDevice();
    const int before = dialog().nextStep();
    const auto expectNotDone = [&](const std::string& reason) {
        desktop.answerAlert();
        dialog().updateButton.click();
        EXPECT_EQ(
            alerts().back(),
            alertLine(
                "Tormelk Wyro",
                ("Send Done\n\nThe message has not left this computer: " + reason + ".").c_str()));
        EXPECT_EQ(dialog().nextStep(), before - 1) << "the device is to be chosen again";
        EXPECT_EQ(devices.midi_device_open, 0);
        EXPECT_EQ(desktop.sleeps().back(), Seconds(1.75));
    };
    service.at(*output).keepInUse("aseqdump");
    expectNotDone("the output is in use by aseqdump");
    service.at(*output).freeAgain();
    service.at(*output).holdBack();
    expectNotDone("the controller has not taken it yet");
    service.at(*output).takeWaiting();
    service.fail("MIDISend", -1);
    expectNotDone("the controller takes nothing");
}

TEST_F(UpDate, IsDoneAlsoWhenTheControllerLeavesItsNormalModeAtOnce) {
    plugController();
    chooseDevice();
    service.at(*output).settleLater();
    desktop.onSleep = [this](Seconds) { device->unplug(); };
    desktop.answerAlert();
    dialog().updateButton.click();
    EXPECT_EQ(alerts().back(), alertLine("Tormelk Wyro", "Send Done"));
    EXPECT_EQ(dialog().nextStep(), 2);
    service.dispatch();
}

TEST_F(UpDate, WorksWithoutTheDeviceHavingBeenChosenAnewAfterIt) {
    plugController();
    chooseDevice();
    for (int round = 0; round < 2; ++round) {
        desktop.answerAlert();
        dialog().updateButton.click();
        EXPECT_EQ(devices.midi_device_open, 0);
    }
    EXPECT_EQ(service.at(*output).received().size(), 2U) << "the output is still known";
}

}  // namespace
}  // namespace firmware
