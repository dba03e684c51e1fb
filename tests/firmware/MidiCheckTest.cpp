#include "devices/seldev2.h"
#include "firmware/FirmwareTest.h"

namespace firmware {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using toolkit::AlertAnswer;

const toolkit::Alert notice = {
    "Notice",
    "Tormelk firmware has erased. Please close this Wyro software and re-launch it to make a new "
    "connection with Tormelk. After Wyro has re-launched, just perform step 3 to step 5 (i.e. no "
    "need to perform step 1 & step 2 again)\n\nExit the Wyro now or Later?",
    "Exit now", "Exit later"};

class MidiCheck : public FirmwareTest {
protected:
    /// A person presses Check and chooses the output at a position; -1 is Cancel.
    void check(int index) {
        desktop.onModal<devices::seldev2>([index](devices::seldev2& shown) {
            if (index >= 0) {
                shown.combo_out.choose(index);
                shown.okButton.click();
            } else {
                shown.cancelButton.click();
            }
        });
        dialog().checkButton.click();
    }
    void unplug(platform::software::Device& gone) {
        gone.unplug();
        service.dispatch();
    }
};

TEST_F(MidiCheck, DoesNothingMoreWhenTheDeviceIsThere) {
    plugController();
    check(0);
    EXPECT_THAT(desktop.journal(),
                ElementsAre(journal::modalBegins<devices::seldev2>(), journal::stopModal(),
                            journal::modalEnds<devices::seldev2>()));
    EXPECT_EQ(dialog().step2.stringValue(), "Tormelk is connected.");
}

TEST_F(MidiCheck, DoesNothingMoreWithoutAnyDevice) {
    check(-1);
    EXPECT_THAT(alerts(), IsEmpty());
    EXPECT_EQ(dialog().step2.stringValue(), "There is no such input.");
}

TEST_F(MidiCheck, LooksAtTheInputAtThePositionOfTheOutput) {
    plugController("A");
    plugController("B");
    platform::software::Device& third = service.addDevice("C");
    third.addSource("C");
    third.addDestination("C");
    check(0);
    unplug(third);
    check(1);
    EXPECT_THAT(alerts(), IsEmpty());
    desktop.answerAlert(AlertAnswer::Alternate);
    check(2);
    EXPECT_EQ(state.connectionCheck.sd2_out_indx, 2);
    EXPECT_THAT(desktop.alerts(), ElementsAre(notice));
    EXPECT_EQ(dialog().step2.stringValue(), "Not connected: C (offline)");
}

TEST_F(MidiCheck, LooksWhereItLookedLastWhenTheDialogIsCancelled) {
    plugController("A");
    platform::software::Device& second = service.addDevice("B");
    second.addSource("B");
    second.addDestination("B");
    check(1);
    unplug(second);
    desktop.answerAlert(AlertAnswer::Alternate);
    check(-1);
    EXPECT_THAT(desktop.alerts(), ElementsAre(notice));
}

TEST_F(MidiCheck, DoesNothingMoreWhereNoInputStandsAtThePosition) {
    plugController("A");
    service.addDestination("B");
    check(1);
    EXPECT_EQ(state.connectionCheck.sd2_out_indx, 1);
    EXPECT_THAT(alerts(), IsEmpty());
}

TEST_F(MidiCheck, ExitNowEndsTheProcessWithStatus1) {
    plugController();
    service.dispatch();
    (void)process.sharedInstance();
    unplug(*device);
    desktop.answerAlert(AlertAnswer::Default);
    check(-1);
    EXPECT_THAT(desktop.alerts(), ElementsAre(notice));
    EXPECT_THAT(desktop.exits(), ElementsAre(1));
}

TEST_F(MidiCheck, ExitLaterGoesOn) {
    plugController();
    (void)process.sharedInstance();
    unplug(*device);
    desktop.answerAlert(AlertAnswer::Alternate);
    check(-1);
    EXPECT_THAT(desktop.exits(), IsEmpty());
    EXPECT_TRUE(dialog().window().isVisible());
}

TEST_F(MidiCheck, LeavesTheChoiceForSendingAlone) {
    plugController("A");
    service.addDestination("B");
    chooseDevice();
    check(1);
    EXPECT_EQ(devices.OutDevice()->displayName(), "A");
    EXPECT_EQ(devices.midi_device_open, 1);
}

}  // namespace
}  // namespace firmware
