#include "devices/seldev.h"

#include "devices/DevicesTest.h"

namespace devices {
namespace {

class SeldevTest : public DevicesTest {};

TEST_F(SeldevTest, TheOnlyDeviceIsChosenByOkAlone) {
    addDevice("Tormelk");
    EXPECT_EQ(general.midi_device_open, 0);
    runDialog<seldev>(general, [](seldev& dialog) {
        EXPECT_EQ(dialog.combo_in.indexOfSelectedItem(), 0);
        EXPECT_EQ(dialog.combo_out.indexOfSelectedItem(), 0);
        dialog.okButton.click();
    });
    EXPECT_EQ(nameOf(general.InDevice()), "Tormelk");
    EXPECT_EQ(nameOf(general.OutDevice()), "Tormelk");
    EXPECT_EQ(general.midi_device_open, 1);
}

TEST_F(SeldevTest, OkWithoutOutputsLeavesTheOpenFlagAsItWas) {
    service.addSource("Only in");
    for (const std::uint8_t flag : {std::uint8_t{0}, std::uint8_t{1}}) {
        general.midi_device_open = flag;
        runDialog<seldev>(general, [](seldev& dialog) { dialog.okButton.click(); });
        EXPECT_EQ(general.midi_device_open, flag);
        EXPECT_EQ(general.OutDevice(), nullptr);
    }
}

TEST_F(SeldevTest, AnOutputAloneSetsTheOpenFlag) {
    service.addDestination("Only out");
    runDialog<seldev>(general, [](seldev& dialog) { dialog.okButton.click(); });
    EXPECT_EQ(general.midi_device_open, 1);
}

TEST_F(SeldevTest, AnOfflineOutputSetsTheOpenFlagToo) {
    Device& tormelk = addDevice("Tormelk");
    static_cast<void>(manager());
    tormelk.unplug();
    hearOfChanges();
    runDialog<seldev>(general, [](seldev& dialog) { dialog.okButton.click(); });
    EXPECT_EQ(nameOf(general.OutDevice()), "Tormelk (offline)");
    EXPECT_EQ(general.midi_device_open, 1);
}

TEST_F(SeldevTest, OkSetsTheOpenFlagAgainAfterItWasCleared) {
    addDevice("Tormelk");
    chooseDevices<seldev>(general, "Tormelk", "Tormelk");
    general.midi_device_open = 0;
    runDialog<seldev>(general, [](seldev& dialog) { dialog.okButton.click(); });
    EXPECT_EQ(general.midi_device_open, 1);
}

TEST_F(SeldevTest, CancelAndClosingSetNoOpenFlag) {
    addDevice("Tormelk");
    runDialog<seldev>(general, [](seldev& dialog) { dialog.cancelButton.click(); });
    runDialog<seldev>(general, [](seldev& dialog) { dialog.window().close(); });
    EXPECT_EQ(general.midi_device_open, 0);
}

TEST_F(SeldevTest, ARefusedOkSetsNoOpenFlag) {
    addDevice("Tormelk");
    runDialog<seldev>(general, [](seldev& dialog) {
        dialog.combo_in.selectItemAtIndex(-1);
        dialog.ok();
        dialog.cancelButton.click();
    });
    EXPECT_EQ(general.midi_device_open, 0);
}

TEST_F(SeldevTest, EveryFamilyOfControllersGetsTheSameUnfilteredList) {
    addDevices({"Tormelk", "Dravik", "Qorvel", "Something else"});
    const auto& destinations = manager().realDestinations();
    EXPECT_EQ(destinations.size(), 4U);
    EXPECT_EQ(&general.GetDravikDevices(), &destinations);
    EXPECT_EQ(&general.GetTormelkDevices(), &destinations);
    EXPECT_EQ(&general.GetQorvelDevices(), &destinations);
}

TEST_F(SeldevTest, ItLeavesThePositionOfTheConnectionCheckAlone) {
    addDevices({"Alpha", "Beta"});
    chooseDevices<seldev>(general, "Beta", "Beta");
    EXPECT_EQ(check.sd2_out_indx, 0);
}

TEST_F(SeldevTest, AConnectionCheckBetweenTwoOpeningsChangesNothingForIt) {
    addDevices({"Alpha", "Beta", "Gamma"});
    chooseDevices<seldev>(general, "Beta", "Beta");
    chooseDevices<seldev2>(check, "Gamma", "Gamma");
    runDialog<seldev>(general, [](seldev& dialog) {
        EXPECT_EQ(selectedIn(dialog.combo_out), "Beta");
        dialog.cancelButton.click();
    });
    EXPECT_EQ(nameOf(general.OutDevice()), "Beta");
    EXPECT_EQ(nameOf(check.OutDevice()), "Gamma");
}

}  // namespace
}  // namespace devices
