// Which of the five steps the window recommends.

#include "devices/seldev2.h"
#include "firmware/FirmwareTest.h"

namespace firmware {
namespace {

class NextStep : public FirmwareTest {
protected:
    void pressUpdate() {
        desktop.answerAlert();
        dialog().updateButton.click();
    }
    void check() {
        desktop.onModal<devices::seldev2>([](devices::seldev2& shown) { shown.okButton.click(); });
        dialog().checkButton.click();
    }
};

TEST_F(NextStep, GoesFromOneToFive) {
    plugController();
    desktop.onModal<devices::seldev>([](devices::seldev& shown) { shown.okButton.click(); });
    dialog().outputButton.click();
    EXPECT_EQ(dialog().nextStep(), 1);
    pressUpdate();
    EXPECT_EQ(dialog().nextStep(), 2);
    check();
    EXPECT_EQ(dialog().nextStep(), 3);
    chooseDevice();
    EXPECT_EQ(dialog().nextStep(), 4);
    openImage(someImage(100));
    EXPECT_EQ(dialog().nextStep(), 5);
    upload();
    EXPECT_EQ(dialog().nextStep(), 0);
    pressUpdate();
    EXPECT_EQ(dialog().nextStep(), 2) << "once more from the beginning";
}

TEST_F(NextStep, IsStillTheFirstWhenTheUpdateModeCouldNotBeSent) {
    pressUpdate();
    EXPECT_EQ(dialog().nextStep(), 1);
}

TEST_F(NextStep, FollowsThreeWhereTheProgramWasStartedAnew) {
    plugController();
    chooseDevice();
    EXPECT_EQ(dialog().nextStep(), 4);
}

TEST_F(NextStep, IsTheSecondAgainWhenTheDeviceIsNotBack) {
    plugController();
    chooseDevice();
    pressUpdate();
    device->unplug();
    service.dispatch();
    desktop.answerAlert(toolkit::AlertAnswer::Alternate);
    check();
    EXPECT_EQ(dialog().nextStep(), 2);
}

TEST_F(NextStep, IsTheThirdWhileNoDeviceIsChosen) {
    plugController();
    chooseDevice();
    openImage(someImage(100));
    devices.midi_device_open = 0;
    EXPECT_EQ(dialog().nextStep(), 3);
}

TEST_F(NextStep, IsTheFourthAfterAFileThatWasRefused) {
    plugController();
    chooseDevice();
    desktop.answerAlert();
    openImage(someImage(100), "other.bin");
    EXPECT_EQ(dialog().nextStep(), 4);
    openImage(someImage(100));
    EXPECT_EQ(dialog().nextStep(), 5);
    desktop.answerAlert();
    openImage(someImage(60000), "tormelk-large.bin");
    EXPECT_EQ(dialog().nextStep(), 4);
}

TEST_F(NextStep, StaysWhenTheDeviceDialogIsCancelledOrTheUploadIs) {
    plugController();
    desktop.onModal<devices::seldev>([](devices::seldev& shown) { shown.cancelButton.click(); });
    dialog().selectButton.click();
    EXPECT_EQ(dialog().nextStep(), 1);
    chooseDevice();
    openImage(someImage(100));
    answerConfirmation(false);
    dialog().uploadButton.click();
    EXPECT_EQ(dialog().nextStep(), 5);
}

TEST_F(NextStep, IsRememberedWhenTheWindowIsOpenedAgain) {
    plugController();
    chooseDevice();
    reopenDialog();
    EXPECT_EQ(dialog().nextStep(), 4);
}

TEST_F(NextStep, IsToldWhenItChanges) {
    plugController();
    int told = 0;
    dialog().onNextStep = [&told] { ++told; };
    chooseDevice();
    EXPECT_EQ(told, 1);
    openImage(someImage(100));
    EXPECT_EQ(told, 2);
}

TEST_F(NextStep, TheLinesOfTheStepsTellWhatTheyStandAt) {
    EXPECT_EQ(dialog().step1.stringValue(), "No output chosen.");
    EXPECT_EQ(dialog().step2.stringValue(), "");
    EXPECT_EQ(dialog().step3.stringValue(), "No output chosen.");
    plugController();
    (void)process.sharedInstance();
    service.dispatch();
    chooseDevice();
    EXPECT_EQ(dialog().step1.stringValue(), "Output: Tormelk");
    EXPECT_EQ(dialog().step3.stringValue(), "Output: Tormelk");
    pressUpdate();
    EXPECT_EQ(dialog().step3.stringValue(), "To be chosen again.");
    check();
    EXPECT_EQ(dialog().step3.stringValue(), "To be chosen again.");
    device->unplug();
    service.dispatch();
    EXPECT_EQ(dialog().step1.stringValue(), "Output: Tormelk (offline)") << "told at once";
}

}  // namespace
}  // namespace firmware
