#include "devices/DeviceDialog.h"

#include "devices/DevicesTest.h"

namespace devices {
namespace {

namespace journal = support::journal;
using testing::ElementsAre;
using testing::IsEmpty;

const platform::ServiceState notLoaded{platform::ServiceState::Obstacle::NotLoaded, "load it"};

template <typename Dialog>
class DeviceDialogTest : public EitherDialog<Dialog> {};
TYPED_TEST_SUITE(DeviceDialogTest, BothDialogs, );

TYPED_TEST(DeviceDialogTest, NothingIsChosenAtFirst) {
    this->addDevice("Tormelk");
    EXPECT_EQ(this->choice().InDevice(), nullptr);
    EXPECT_EQ(this->choice().OutDevice(), nullptr);
}

TYPED_TEST(DeviceDialogTest, ListsInputsAndOutputsByDisplayNameInOrder) {
    this->addDevices({"Delta", "alpha", "Charlie"});
    this->service.addSource("only in");
    this->service.addDestination("Beyond");
    this->open([](TypeParam& dialog) {
        EXPECT_THAT(itemsOf(dialog.combo_in), ElementsAre("alpha", "Charlie", "Delta", "only in"));
        EXPECT_THAT(itemsOf(dialog.combo_out), ElementsAre("alpha", "Beyond", "Charlie", "Delta"));
        dialog.cancelButton.click();
    });
}

TYPED_TEST(DeviceDialogTest, FillsItsListsWhenItsWindowIsLoadedAndNotBefore) {
    this->addDevice("Tormelk");
    TypeParam dialog(this->choice(), this->desktop);
    EXPECT_EQ(dialog.combo_in.numberOfItems(), 0);
    EXPECT_EQ(dialog.combo_out.numberOfItems(), 0);
    dialog.window();
    EXPECT_THAT(itemsOf(dialog.combo_in), ElementsAre("Tormelk"));
    EXPECT_THAT(itemsOf(dialog.combo_out), ElementsAre("Tormelk"));
}

TYPED_TEST(DeviceDialogTest, OfTheDevicesNothingIsLeftOut) {
    this->addDevices({"Tormelk", "Synthesiser", "0"});
    platform::software::Device& bus = this->addDevice("Bus");
    bus.setStringProperty(platform::kMIDIPropertyDriverOwner, platform::interApplicationBusDriver);
    this->open([](TypeParam& dialog) {
        EXPECT_THAT(itemsOf(dialog.combo_in), ElementsAre("0", "Bus", "Synthesiser", "Tormelk"));
        EXPECT_THAT(itemsOf(dialog.combo_out), ElementsAre("0", "Bus", "Synthesiser", "Tormelk"));
        dialog.cancelButton.click();
    });
}

TYPED_TEST(DeviceDialogTest, OffersTheFirstEntriesWhereNothingWasChosenBefore) {
    this->addDevices({"Beta", "Alpha"});
    this->open([](TypeParam& dialog) {
        EXPECT_EQ(dialog.combo_in.indexOfSelectedItem(), 0);
        EXPECT_EQ(dialog.combo_out.indexOfSelectedItem(), 0);
        EXPECT_TRUE(dialog.okButton.isEnabled());
        dialog.okButton.click();
    });
    EXPECT_EQ(this->chosenInput(), "Alpha");
    EXPECT_EQ(this->chosenOutput(), "Alpha");
}

TYPED_TEST(DeviceDialogTest, OkStoresWhatWasChosenAndEndsTheRun) {
    this->addDevices({"Alpha", "Beta", "Gamma"});
    this->chooseAndOk("Beta", "Gamma");
    EXPECT_EQ(this->choice().InDevice(), this->manager().realSources().at(1).get());
    EXPECT_EQ(this->choice().OutDevice(), this->manager().realDestinations().at(2).get());
    EXPECT_THAT(this->desktop.journal(),
                ElementsAre(journal::modalBegins<TypeParam>(), journal::stopModal(),
                            journal::modalEnds<TypeParam>()));
}

TYPED_TEST(DeviceDialogTest, NothingIsStoredBeforeOk) {
    this->addDevices({"Alpha", "Beta"});
    this->open([this](TypeParam& dialog) {
        chooseByText(dialog.combo_in, "Beta");
        chooseByText(dialog.combo_out, "Beta");
        EXPECT_EQ(this->choice().InDevice(), nullptr);
        EXPECT_EQ(this->choice().OutDevice(), nullptr);
        dialog.okButton.click();
    });
    EXPECT_EQ(this->chosenOutput(), "Beta");
}

TYPED_TEST(DeviceDialogTest, CancelKeepsThePreviousChoiceAndEndsTheRun) {
    this->addDevices({"Alpha", "Beta", "Gamma"});
    this->chooseAndOk("Beta", "Gamma");
    this->desktop.clearJournal();
    this->open([](TypeParam& dialog) {
        chooseByText(dialog.combo_in, "Alpha");
        chooseByText(dialog.combo_out, "Alpha");
        dialog.cancelButton.click();
    });
    EXPECT_EQ(this->chosenInput(), "Beta");
    EXPECT_EQ(this->chosenOutput(), "Gamma");
    EXPECT_THAT(this->desktop.journal(),
                ElementsAre(journal::modalBegins<TypeParam>(), journal::stopModal(),
                            journal::modalEnds<TypeParam>()));
}

TYPED_TEST(DeviceDialogTest, ClosingTheWindowKeepsThePreviousChoiceAndEndsTheRun) {
    this->addDevices({"Alpha", "Beta"});
    this->chooseAndOk("Beta", "Beta");
    this->desktop.clearJournal();
    this->open([](TypeParam& dialog) {
        chooseByText(dialog.combo_out, "Alpha");
        dialog.window().close();
    });
    EXPECT_EQ(this->chosenInput(), "Beta");
    EXPECT_EQ(this->chosenOutput(), "Beta");
    EXPECT_THAT(this->desktop.journal(),
                ElementsAre(journal::modalBegins<TypeParam>(), journal::stopModal(),
                            journal::modalEnds<TypeParam>()));
}

TYPED_TEST(DeviceDialogTest, CancelBeforeAnyOkChoosesNothing) {
    this->addDevice("Tormelk");
    this->open([](TypeParam& dialog) { dialog.cancelButton.click(); });
    EXPECT_EQ(this->choice().InDevice(), nullptr);
    EXPECT_EQ(this->choice().OutDevice(), nullptr);
}

TYPED_TEST(DeviceDialogTest, OffersTheLastChoiceAgainWhileItIsOnline) {
    this->addDevices({"Alpha", "Beta", "Gamma"});
    this->chooseAndOk("Beta", "Gamma");
    this->open([](TypeParam& dialog) {
        EXPECT_EQ(selectedIn(dialog.combo_in), "Beta");
        EXPECT_EQ(selectedIn(dialog.combo_out), "Gamma");
        dialog.cancelButton.click();
    });
}

TYPED_TEST(DeviceDialogTest, OffersTheFirstEntryWhereTheLastChoiceWentOffline) {
    this->addDevices({"Alpha", "Beta"});
    platform::software::Device& gamma = this->addDevice("Gamma");
    this->chooseAndOk("Gamma", "Gamma");
    gamma.unplug();
    this->hearOfChanges();
    this->open([](TypeParam& dialog) {
        EXPECT_THAT(itemsOf(dialog.combo_out), ElementsAre("Alpha", "Beta", "Gamma (offline)"));
        EXPECT_EQ(selectedIn(dialog.combo_in), "Alpha");
        EXPECT_EQ(selectedIn(dialog.combo_out), "Alpha");
        dialog.cancelButton.click();
    });
    EXPECT_EQ(this->chosenOutput(), "Gamma (offline)") << "it stays chosen";

    gamma.plug();
    this->hearOfChanges();
    this->open([](TypeParam& dialog) {
        EXPECT_EQ(selectedIn(dialog.combo_in), "Gamma");
        EXPECT_EQ(selectedIn(dialog.combo_out), "Gamma");
        dialog.cancelButton.click();
    });
}

TYPED_TEST(DeviceDialogTest, JudgesInputAndOutputEachByItself) {
    this->addDevices({"Alpha", "Beta"});
    platform::software::Source& input = this->service.addSource("Only in");
    platform::software::Destination& output = this->service.addDestination("Only out");
    this->chooseAndOk("Only in", "Only out");
    input.unplug();
    this->hearOfChanges();
    this->open([](TypeParam& dialog) {
        EXPECT_EQ(selectedIn(dialog.combo_in), "Alpha");
        EXPECT_EQ(selectedIn(dialog.combo_out), "Only out");
        dialog.cancelButton.click();
    });
    input.plug();
    output.unplug();
    this->hearOfChanges();
    this->open([](TypeParam& dialog) {
        EXPECT_EQ(selectedIn(dialog.combo_in), "Only in");
        EXPECT_EQ(selectedIn(dialog.combo_out), "Alpha");
        dialog.cancelButton.click();
    });
}

TYPED_TEST(DeviceDialogTest, OffersTheFirstEntryWhereTheLastChoiceSaysItIsOffline) {
    this->addDevice("Alpha");
    platform::software::Destination& sleeper = this->service.addDestination("Sleeper");
    this->chooseAndOk("Alpha", "Sleeper");
    sleeper.setIntegerProperty(platform::kMIDIPropertyOffline, 1);
    this->hearOfChanges();
    this->open([](TypeParam& dialog) {
        EXPECT_THAT(itemsOf(dialog.combo_out), ElementsAre("Alpha", "Sleeper (offline)"));
        EXPECT_EQ(selectedIn(dialog.combo_out), "Alpha");
        dialog.cancelButton.click();
    });
}

TYPED_TEST(DeviceDialogTest, AnOfflineDeviceIsListedWithItsSuffixAndCanBeChosen) {
    this->addDevice("Alpha");
    platform::software::Device& beta = this->addDevice("Beta");
    this->manager();
    beta.unplug();
    this->hearOfChanges();
    this->chooseAndOk("Beta (offline)", "Beta (offline)");
    ASSERT_NE(this->choice().OutDevice(), nullptr);
    EXPECT_FALSE(this->choice().OutDevice()->isOnline());
    EXPECT_EQ(this->chosenInput(), "Beta (offline)");
    EXPECT_EQ(this->chosenOutput(), "Beta (offline)");
}

TYPED_TEST(DeviceDialogTest, WhereTheFirstEntryIsOfflineItIsOfferedAllTheSame) {
    platform::software::Device& alpha = this->addDevice("Alpha");
    this->addDevice("Beta");
    this->manager();
    alpha.unplug();
    this->hearOfChanges();
    this->open([](TypeParam& dialog) {
        EXPECT_EQ(selectedIn(dialog.combo_in), "Alpha (offline)");
        EXPECT_EQ(selectedIn(dialog.combo_out), "Alpha (offline)");
        dialog.cancelButton.click();
    });
}

TYPED_TEST(DeviceDialogTest, OfTwoDevicesWithTheSameNameTheChosenOneIsStoredAndOfferedAgain) {
    this->addDevices({"Twin", "Twin", "Twin"});
    const auto& sources = this->manager().realSources();
    const auto& destinations = this->manager().realDestinations();
    for (const std::size_t chosen : {2U, 1U, 0U}) {
        const auto index = static_cast<int>(chosen);
        this->open([&](TypeParam& dialog) {
            EXPECT_THAT(itemsOf(dialog.combo_in), ElementsAre("Twin", "Twin", "Twin"));
            dialog.combo_in.choose(index);
            dialog.combo_out.choose(2 - index);
            dialog.okButton.click();
        });
        EXPECT_EQ(this->choice().InDevice(), sources.at(chosen).get());
        EXPECT_EQ(this->choice().OutDevice(), destinations.at(2 - chosen).get());
        this->open([&](TypeParam& dialog) {
            EXPECT_EQ(dialog.combo_in.indexOfSelectedItem(), index);
            EXPECT_EQ(dialog.combo_out.indexOfSelectedItem(), 2 - index);
            dialog.cancelButton.click();
        });
    }
}

TYPED_TEST(DeviceDialogTest, WithoutOutputsOkStoresTheInputOnly) {
    this->service.addSource("Alpha");
    this->open([](TypeParam& dialog) {
        EXPECT_EQ(dialog.combo_out.numberOfItems(), 0);
        EXPECT_EQ(dialog.combo_out.indexOfSelectedItem(), -1);
        EXPECT_EQ(dialog.combo_in.indexOfSelectedItem(), 0);
        EXPECT_TRUE(dialog.okButton.isEnabled());
        dialog.okButton.click();
    });
    EXPECT_EQ(this->chosenInput(), "Alpha");
    EXPECT_EQ(this->choice().OutDevice(), nullptr);
}

TYPED_TEST(DeviceDialogTest, WithoutInputsOkStoresTheOutputOnly) {
    this->service.addDestination("Alpha");
    this->open([](TypeParam& dialog) {
        EXPECT_EQ(dialog.combo_in.numberOfItems(), 0);
        EXPECT_EQ(dialog.combo_out.indexOfSelectedItem(), 0);
        EXPECT_TRUE(dialog.okButton.isEnabled());
        dialog.okButton.click();
    });
    EXPECT_EQ(this->choice().InDevice(), nullptr);
    EXPECT_EQ(this->chosenOutput(), "Alpha");
}

TYPED_TEST(DeviceDialogTest, WithoutAnyDeviceOkStoresNothingAndEndsTheRun) {
    this->open([](TypeParam& dialog) {
        EXPECT_EQ(dialog.combo_in.numberOfItems(), 0);
        EXPECT_EQ(dialog.combo_out.numberOfItems(), 0);
        EXPECT_TRUE(dialog.okButton.isEnabled());
        dialog.okButton.click();
    });
    EXPECT_EQ(this->choice().InDevice(), nullptr);
    EXPECT_EQ(this->choice().OutDevice(), nullptr);
}

TYPED_TEST(DeviceDialogTest, WithoutAMidiServiceTheListsAreEmptyAndOkStoresNothing) {
    this->addDevice("Tormelk");
    this->service.obstruct(notLoaded);
    this->open([](TypeParam& dialog) {
        EXPECT_EQ(dialog.combo_in.numberOfItems(), 0);
        EXPECT_EQ(dialog.combo_out.numberOfItems(), 0);
        dialog.okButton.click();
    });
    EXPECT_EQ(this->choice().InDevice(), nullptr);
    EXPECT_EQ(this->choice().OutDevice(), nullptr);
    EXPECT_EQ(this->choice().GetInputDevices(), 0);
    EXPECT_TRUE(this->choice().GetQorvelDevices().empty());
}

TYPED_TEST(DeviceDialogTest, ADeviceThatWasUnpluggedBeforeTheFirstDialogIsNotListedAtAll) {
    platform::software::Device& gone = this->addDevice("Alpha");
    this->addDevice("Beta");
    this->hearOfChanges();
    gone.unplug();
    this->open([](TypeParam& dialog) {
        EXPECT_THAT(itemsOf(dialog.combo_in), ElementsAre("Beta"));
        EXPECT_THAT(itemsOf(dialog.combo_out), ElementsAre("Beta"));
        dialog.cancelButton.click();
    });
}

TYPED_TEST(DeviceDialogTest, LooksOnceMoreForAServiceThatNothingAnnounced) {
    this->addDevice("Tormelk");
    this->service.obstruct(notLoaded);
    const auto itsItems = [this] {
        std::vector<std::string> items;
        this->open([&items](TypeParam& dialog) {
            items = itemsOf(dialog.combo_out);
            dialog.cancelButton.click();
        });
        return items;
    };
    EXPECT_THAT(itsItems(), IsEmpty());
    this->service.recoverInSilence();
    EXPECT_THAT(itsItems(), ElementsAre("Tormelk"));
}

TYPED_TEST(DeviceDialogTest, SaysWhyNothingCanBeListedUntilItCan) {
    this->addDevice("Tormelk");
    this->service.obstruct(notLoaded);
    this->open([this](TypeParam& dialog) {
        EXPECT_EQ(dialog.hint.stringValue(),
                  "The computer's MIDI sequencer is not loaded. To load it, run this in a "
                  "terminal; it is noticed here by itself:\nload it");
        this->service.recover();
        this->hearOfChanges();
        EXPECT_EQ(dialog.hint.stringValue(), "");
        EXPECT_THAT(itemsOf(dialog.combo_out), ElementsAre("Tormelk"));
        dialog.cancelButton.click();
    });
}

TYPED_TEST(DeviceDialogTest, SaysWhatTheSystemSaysAndThatItTriesAgain) {
    this->service.obstruct({platform::ServiceState::Obstacle::Other, {}, {}, "Out of cheese"});
    this->open([](TypeParam& dialog) {
        EXPECT_EQ(dialog.hint.stringValue(),
                  "The computer's MIDI sequencer cannot be opened: Out of cheese. Opening this "
                  "window again tries again.");
        dialog.cancelButton.click();
    });
}

TYPED_TEST(DeviceDialogTest, SaysWhichListIsEmpty) {
    platform::software::Source& input = this->service.addSource("Only in");
    this->open([&](TypeParam& dialog) {
        EXPECT_EQ(dialog.hint.stringValue(),
                  "There is no MIDI output. Connect the controller and switch it on: it appears "
                  "here by itself.");
        this->service.addDestination("Only out");
        this->hearOfChanges();
        EXPECT_EQ(dialog.hint.stringValue(), "");
        dialog.cancelButton.click();
    });
    input.unplug();
    this->hearOfChanges();
    this->open([](TypeParam& dialog) {
        EXPECT_EQ(dialog.hint.stringValue(), "") << "what is offline is listed";
        dialog.cancelButton.click();
    });
}

TYPED_TEST(DeviceDialogTest, OkIsNotAllowedWhileAListWithEntriesHasNoSelection) {
    this->addDevices({"Alpha", "Beta"});
    for (const bool output : {false, true}) {
        this->chooseAndOk("Beta", "Beta");
        this->open([&](TypeParam& dialog) {
            toolkit::ComboBox& box = output ? dialog.combo_out : dialog.combo_in;
            box.selectItemAtIndex(-1);
            dialog.okButton.click();
            EXPECT_FALSE(dialog.okButton.isEnabled());
            EXPECT_TRUE(dialog.window().isVisible());
            dialog.ok();
            EXPECT_TRUE(dialog.window().isVisible());
            EXPECT_EQ(this->chosenInput(), "Beta");
            EXPECT_EQ(this->chosenOutput(), "Beta");

            box.choose(0);
            EXPECT_TRUE(dialog.okButton.isEnabled());
            dialog.okButton.click();
        });
        EXPECT_EQ(output ? this->chosenOutput() : this->chosenInput(), "Alpha");
        EXPECT_EQ(output ? this->chosenInput() : this->chosenOutput(), "Beta");
    }
}

TYPED_TEST(DeviceDialogTest, CancelIsAllowedWithoutASelection) {
    this->addDevice("Alpha");
    this->open([](TypeParam& dialog) {
        dialog.combo_in.selectItemAtIndex(-1);
        dialog.combo_out.selectItemAtIndex(-1);
        dialog.ok();
        EXPECT_TRUE(dialog.cancelButton.isEnabled());
        dialog.cancelButton.click();
    });
    EXPECT_EQ(this->choice().OutDevice(), nullptr);
}

TYPED_TEST(DeviceDialogTest, ItsChoiceIsInvisibleToTheOtherDialog) {
    this->addDevices({"Alpha", "Beta"});
    this->chooseAndOk("Beta", "Beta");
    EXPECT_EQ(this->chosenOutput(), "Beta");
    const bool isGeneral = std::is_same_v<TypeParam, seldev>;
    EXPECT_EQ(this->general.InDevice() == nullptr, !isGeneral);
    EXPECT_EQ(this->general.OutDevice() == nullptr, !isGeneral);
    EXPECT_EQ(this->check.InDevice() == nullptr, isGeneral);
    EXPECT_EQ(this->check.OutDevice() == nullptr, isGeneral);
}

TYPED_TEST(DeviceDialogTest, AChoiceOutlivesItsDialogAndItsDevice) {
    platform::software::Device& tormelk = this->addDevice("Tormelk");
    this->chooseAndOk("Tormelk", "Tormelk");
    const auto* const output = this->choice().OutDevice();
    ASSERT_NE(output, nullptr);
    EXPECT_TRUE(output->isOnline());
    tormelk.unplug();
    this->hearOfChanges();
    EXPECT_EQ(this->choice().OutDevice(), output);
    EXPECT_FALSE(output->isOnline());
    tormelk.plug();
    this->hearOfChanges();
    EXPECT_EQ(this->choice().OutDevice(), output);
    EXPECT_TRUE(output->isOnline());
}

TYPED_TEST(DeviceDialogTest, TwoEditorsInOneProcessChooseEachForThemselves) {
    this->addDevices({"Alpha", "Beta"});
    platform::NotificationCentre otherCentre;
    midi::ZQMIDIProcess otherProcess(this->service, otherCentre);
    typename TestFixture::Choice other(otherProcess);
    this->chooseAndOk("Beta", "Beta");
    EXPECT_EQ(other.OutDevice(), nullptr);
    this->template chooseDevices<TypeParam>(other, "Alpha", "Beta");
    EXPECT_EQ(nameOf(other.InDevice()), "Alpha");
    EXPECT_EQ(this->chosenInput(), "Beta");
}

TYPED_TEST(DeviceDialogTest, OpeningItOpensNoPort) {
    this->addDevice("Tormelk");
    this->chooseAndOk("Tormelk", "Tormelk");
    EXPECT_EQ(this->service.inputPortsCreated(), 0U);
    EXPECT_EQ(this->service.outputPortsCreated(), 0U);
    EXPECT_FALSE(this->choice().InDevice()->isInUse());
    EXPECT_FALSE(this->choice().OutDevice()->isInUse());
}

TYPED_TEST(DeviceDialogTest, CountsTheInputsAndGivesTheOutputListItself) {
    EXPECT_EQ(this->choice().GetInputDevices(), 0);
    this->addDevices({"Alpha", "Beta"});
    platform::software::Source& third = this->service.addSource("Only in");
    this->hearOfChanges();
    EXPECT_EQ(this->choice().GetInputDevices(), 3);
    EXPECT_EQ(&this->choice().GetQorvelDevices(), &this->manager().realDestinations());
    EXPECT_EQ(this->choice().GetQorvelDevices().size(), 2U);
    third.unplug();
    this->hearOfChanges();
    EXPECT_EQ(this->choice().GetInputDevices(), 3) << "what went offline is still counted";
}

}  // namespace
}  // namespace devices
