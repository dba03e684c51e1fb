// Devices come, go and change their names while a dialog is open: what a person sees as chosen is
// what OK stores.

#include "devices/DevicesTest.h"

namespace devices {
namespace {

using testing::ElementsAre;

template <typename Dialog>
class SetupChanges : public EitherDialog<Dialog> {};
TYPED_TEST_SUITE(SetupChanges, BothDialogs, );

TYPED_TEST(SetupChanges, ANewDeviceAppearsInItsPlaceAndTheSelectionStaysWithItsDevice) {
    this->addDevices({"Beta", "Delta"});
    this->open([this](TypeParam& dialog) {
        chooseByText(dialog.combo_in, "Delta");
        this->addDevices({"Alpha", "Charlie"});
        this->hearOfChanges();
        EXPECT_THAT(itemsOf(dialog.combo_in), ElementsAre("Alpha", "Beta", "Charlie", "Delta"));
        EXPECT_THAT(itemsOf(dialog.combo_out), ElementsAre("Alpha", "Beta", "Charlie", "Delta"));
        EXPECT_EQ(selectedIn(dialog.combo_in), "Delta");
        EXPECT_EQ(selectedIn(dialog.combo_out), "Beta");
        EXPECT_TRUE(dialog.okButton.isEnabled());
        dialog.okButton.click();
    });
    EXPECT_EQ(this->chosenInput(), "Delta");
    EXPECT_EQ(this->chosenOutput(), "Beta");
}

TYPED_TEST(SetupChanges, ANewDeviceCanBeChosenAtOnce) {
    this->addDevice("Beta");
    this->open([this](TypeParam& dialog) {
        this->addDevice("Alpha");
        this->hearOfChanges();
        chooseByText(dialog.combo_in, "Alpha");
        chooseByText(dialog.combo_out, "Alpha");
        dialog.okButton.click();
    });
    EXPECT_EQ(this->chosenInput(), "Alpha");
    EXPECT_EQ(this->chosenOutput(), "Alpha");
}

TYPED_TEST(SetupChanges, ADeviceThatGoesIsShownOfflineAndStaysSelected) {
    this->addDevice("Alpha");
    platform::software::Device& beta = this->addDevice("Beta");
    this->open([&](TypeParam& dialog) {
        chooseByText(dialog.combo_in, "Beta");
        chooseByText(dialog.combo_out, "Beta");
        beta.unplug();
        this->hearOfChanges();
        EXPECT_THAT(itemsOf(dialog.combo_out), ElementsAre("Alpha", "Beta (offline)"));
        EXPECT_EQ(selectedIn(dialog.combo_in), "Beta (offline)");
        EXPECT_EQ(selectedIn(dialog.combo_out), "Beta (offline)");
        beta.plug();
        this->hearOfChanges();
        EXPECT_THAT(itemsOf(dialog.combo_out), ElementsAre("Alpha", "Beta"));
        EXPECT_EQ(selectedIn(dialog.combo_out), "Beta");
        beta.unplug();
        this->hearOfChanges();
        dialog.okButton.click();
    });
    EXPECT_EQ(this->chosenInput(), "Beta (offline)");
    EXPECT_EQ(this->chosenOutput(), "Beta (offline)");
}

TYPED_TEST(SetupChanges, ARenamedDeviceMovesAndStaysSelected) {
    this->addDevices({"Beta", "Delta"});
    platform::software::Destination& port = this->service.addDestination("Alpha");
    this->open([&](TypeParam& dialog) {
        EXPECT_EQ(selectedIn(dialog.combo_out), "Alpha");
        port.setName("Zulu");
        this->hearOfChanges();
        EXPECT_THAT(itemsOf(dialog.combo_out), ElementsAre("Beta", "Delta", "Zulu"));
        EXPECT_EQ(selectedIn(dialog.combo_out), "Zulu");
        dialog.okButton.click();
    });
    EXPECT_EQ(this->chosenOutput(), "Zulu");
}

TYPED_TEST(SetupChanges, ADeviceThatIsRenamedInItsPlaceIsShownByItsNewName) {
    platform::software::Destination& port = this->service.addDestination("Alpha");
    this->open([&](TypeParam& dialog) {
        port.setName("Alpine");
        this->hearOfChanges();
        EXPECT_THAT(itemsOf(dialog.combo_out), ElementsAre("Alpine"));
        EXPECT_EQ(selectedIn(dialog.combo_out), "Alpine");
        dialog.okButton.click();
    });
    EXPECT_EQ(this->chosenOutput(), "Alpine");
}

TYPED_TEST(SetupChanges, AmongTwinsTheSelectionStaysWithItsDevice) {
    platform::software::Destination& first = this->service.addDestination("Twin");
    this->service.addDestination("Twin");
    const auto& destinations = this->manager().realDestinations();
    auto* const second = destinations.at(1).get();
    this->open([&](TypeParam& dialog) {
        dialog.combo_out.choose(1);
        first.setName("Zulu");
        this->hearOfChanges();
        EXPECT_EQ(dialog.combo_out.indexOfSelectedItem(), 0);
        first.setName("Alpha");
        this->hearOfChanges();
        EXPECT_EQ(dialog.combo_out.indexOfSelectedItem(), 1);
        first.setName("Twin");
        this->hearOfChanges();
        dialog.okButton.click();
    });
    EXPECT_EQ(this->choice().OutDevice(), second);
}

TYPED_TEST(SetupChanges, WhereTwoDevicesSwapTheirNamesTheSelectionFollowsItsDevice) {
    platform::software::Destination& alpha = this->service.addDestination("Alpha");
    platform::software::Destination& beta = this->service.addDestination("Beta");
    auto* const first = this->manager().realDestinations().at(0).get();
    this->open([&](TypeParam& dialog) {
        EXPECT_EQ(dialog.combo_out.indexOfSelectedItem(), 0);
        alpha.setName("Beta");
        beta.setName("Alpha");
        this->hearOfChanges();
        EXPECT_THAT(itemsOf(dialog.combo_out), ElementsAre("Alpha", "Beta"));
        EXPECT_EQ(dialog.combo_out.indexOfSelectedItem(), 1);
        dialog.okButton.click();
    });
    EXPECT_EQ(this->choice().OutDevice(), first);
    EXPECT_EQ(this->chosenOutput(), "Beta");
}

TYPED_TEST(SetupChanges, TheFirstDeviceThatComesIsOffered) {
    this->open([this](TypeParam& dialog) {
        this->addDevice("Tormelk");
        this->hearOfChanges();
        EXPECT_EQ(selectedIn(dialog.combo_in), "Tormelk");
        EXPECT_EQ(selectedIn(dialog.combo_out), "Tormelk");
        EXPECT_TRUE(dialog.okButton.isEnabled());
        dialog.okButton.click();
    });
    EXPECT_EQ(this->chosenInput(), "Tormelk");
    EXPECT_EQ(this->chosenOutput(), "Tormelk");
}

TYPED_TEST(SetupChanges, AListWithoutASelectionStaysWithoutOne) {
    this->addDevice("Beta");
    this->open([this](TypeParam& dialog) {
        dialog.combo_out.selectItemAtIndex(-1);
        this->addDevice("Alpha");
        this->hearOfChanges();
        EXPECT_EQ(dialog.combo_out.indexOfSelectedItem(), -1);
        EXPECT_FALSE(dialog.okButton.isEnabled());
        dialog.cancelButton.click();
    });
}

TYPED_TEST(SetupChanges, AChangeThatLeavesTheListsAsTheyAreDisturbsNoOpenList) {
    platform::software::Device& device = this->addDevice("Tormelk");
    this->addDevice("Alpha");
    this->open([&](TypeParam& dialog) {
        dialog.combo_in.onChange = [](auto) { FAIL() << "the inputs were shown anew"; };
        dialog.combo_out.onChange = [](auto) { FAIL() << "the outputs were shown anew"; };
        device.setStringProperty("manufacturer", "somebody");
        this->hearOfChanges();
        dialog.cancelButton.click();
    });
}

TYPED_TEST(SetupChanges, OnlyTheListThatChangedIsShownAnew) {
    this->addDevice("Tormelk");
    this->open([this](TypeParam& dialog) {
        dialog.combo_in.onChange = [](auto) { FAIL() << "the inputs were shown anew"; };
        this->service.addDestination("Alpha");
        this->hearOfChanges();
        EXPECT_EQ(selectedIn(dialog.combo_out), "Tormelk");
        dialog.cancelButton.click();
    });
}

TYPED_TEST(SetupChanges, AfterTheDialogIsGoneChangesReachNobody) {
    platform::software::Device& device = this->addDevice("Tormelk");
    this->chooseAndOk("Tormelk", "Tormelk");
    device.unplug();
    this->addDevice("Alpha");
    this->hearOfChanges();
    EXPECT_EQ(this->chosenOutput(), "Tormelk (offline)");
}

TYPED_TEST(SetupChanges, AChangeBetweenCloseAndTheEndOfTheDialogChangesNoChoice) {
    this->addDevices({"Beta", "Charlie"});
    TypeParam dialog(this->choice(), this->desktop);
    dialog.window().makeKeyAndOrderFront();
    chooseByText(dialog.combo_out, "Charlie");
    dialog.okButton.click();
    this->addDevice("Alpha");
    this->hearOfChanges();
    EXPECT_EQ(this->chosenOutput(), "Charlie");
    EXPECT_EQ(this->chosenInput(), "Beta");
}

TYPED_TEST(SetupChanges, WhatHappensBetweenTwoOpeningsIsShownAtTheNext) {
    this->addDevice("Beta");
    this->chooseAndOk("Beta", "Beta");
    this->addDevice("Alpha");
    this->hearOfChanges();
    this->open([](TypeParam& dialog) {
        EXPECT_THAT(itemsOf(dialog.combo_in), ElementsAre("Alpha", "Beta"));
        EXPECT_EQ(selectedIn(dialog.combo_in), "Beta");
        EXPECT_EQ(selectedIn(dialog.combo_out), "Beta");
        dialog.cancelButton.click();
    });
}

TYPED_TEST(SetupChanges, ADeviceThatVanishesUnheardIsStoredAllTheSame) {
    this->addDevice("Alpha");
    platform::software::Device& beta = this->addDevice("Beta");
    this->open([&](TypeParam& dialog) {
        chooseByText(dialog.combo_in, "Beta");
        chooseByText(dialog.combo_out, "Beta");
        beta.unplug();
        dialog.okButton.click();
    });
    this->hearOfChanges();
    EXPECT_EQ(this->chosenInput(), "Beta (offline)");
    EXPECT_EQ(this->chosenOutput(), "Beta (offline)");
    EXPECT_FALSE(this->choice().OutDevice()->isOnline());
}

TEST_F(DevicesTest, AChangeMovesThePositionThatTheConnectionCheckStores) {
    addDevices({"Beta", "Delta"});
    runDialog<seldev2>(check, [this](seldev2& dialog) {
        chooseByText(dialog.combo_out, "Delta");
        addDevices({"Alpha", "Charlie"});
        hearOfChanges();
        dialog.okButton.click();
    });
    EXPECT_EQ(check.sd2_out_indx, 3);
    EXPECT_EQ(nameOf(check.OutDevice()), "Delta");
}

}  // namespace
}  // namespace devices
