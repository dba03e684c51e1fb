#include "firmware/FirmwareTest.h"

namespace firmware {
namespace {

using testing::ElementsAre;

class DeviceOffline : public FirmwareTest {
protected:
    DeviceOffline() {
        plugController();
        chooseDevice();
        openImage(someImage(2000));  // four blocks
        record();
    }

    void afterMessages(std::size_t count, const std::function<void()>& act) {
        output->onReceive([this, count, act](const platform::MIDIPacketList&) {
            events.push_back({{0x9F}, 0});
            if (++received == count) {
                act();
            }
        });
    }
    [[nodiscard]] std::size_t pauses(double seconds) const {
        std::size_t count = 0;
        for (const Event& event : events) {
            count += event.bytes.empty() && event.pause == seconds ? 1U : 0U;
        }
        return count;
    }
    /// The fixed words, and below them the truth.
    void expectCompleted(const std::string& truth) {
        EXPECT_THAT(alerts(),
                    ElementsAre(alertLine("Upload", ("Upload completed.\n\n" + truth).c_str())));
        EXPECT_EQ(dialog().step5.stringValue(), truth) << "and it stays in the window";
        EXPECT_EQ(dialog().nextStep(), 3);
        EXPECT_EQ(pauses(0.1), 2U + 4 + 2) << "the pauses after frames and blocks go on";
        EXPECT_EQ(service.openOutputPorts(), 0U);
    }

    std::size_t received = 0;
};

const std::string onlyOne =
    "Only 1 of 4 blocks left this computer: the controller went away. Its firmware is incomplete. "
    "Connect it and begin again at step 3.";

TEST_F(DeviceOffline, SkipsTheRestWithItsPausesFromTheMomentTheDeviceIsOffline) {
    afterMessages(34 + 530 + 100,
                  [this] { output->setIntegerProperty(platform::kMIDIPropertyOffline, 1); });
    upload();
    EXPECT_EQ(received, 664U);
    EXPECT_EQ(pauses(0.002), 17U + 630) << "the last byte's own pause is kept";
    EXPECT_EQ(pauses(0.001), 17U);
    expectCompleted(onlyOne);
}

TEST_F(DeviceOffline, SaysWhatHasLeftWhenTheDeviceIsPulledOut) {
    afterMessages(700, [this] {
        device->unplug();
        service.dispatch();
    });
    upload();
    EXPECT_EQ(received, 700U);
    expectCompleted(onlyOne);
}

TEST_F(DeviceOffline, SendsNothingToADeviceThatWasOfflineFromTheStart) {
    device->unplug();
    service.dispatch();
    upload();
    EXPECT_EQ(received, 0U);
    EXPECT_EQ(events.size(), 8U);
    expectCompleted(
        "Nothing left this computer: the output was offline. Connect the controller and begin "
        "again at step 3.");
}

TEST_F(DeviceOffline, SendsNothingMoreToADeviceThatComesBack) {
    afterMessages(200, [this] { output->setIntegerProperty(platform::kMIDIPropertyOffline, 1); });
    std::size_t tenths = 0;
    desktop.onSleep = [&](Seconds pause) {
        if (pause.count() == 0.1 && ++tenths == 4) {  // the second block was skipped
            output->setIntegerProperty(platform::kMIDIPropertyOffline, 0);
        }
        events.push_back({{}, pause.count()});
    };
    upload();
    EXPECT_EQ(received, 200U);
    expectCompleted(
        "Not one block left this computer: the controller went away. Its firmware may be erased. "
        "Connect it and begin again at step 3.");
}

TEST_F(DeviceOffline, SendsNothingMoreToADeviceThatIsPluggedInAgain) {
    afterMessages(700, [this] {
        device->unplug();
        service.dispatch();
        device->plug();
        service.dispatch();
    });
    upload();
    EXPECT_EQ(received, 700U);
    expectCompleted(onlyOne);
}

TEST_F(DeviceOffline, StopsTheBarWhereItStoppedThoughTheLoopGoesOn) {
    std::vector<double> shown;
    std::vector<std::string> texts;
    dialog().progress.onDisplay = [&] {
        shown.push_back(dialog().progress.doubleValue());
        texts.push_back(dialog().step5.stringValue());
    };
    afterMessages(700, [this] { device->unplug(); });
    upload();
    EXPECT_THAT(shown, ElementsAre(0, 1, 1));
    EXPECT_EQ(texts.back(), onlyOne) << "said at once";
    EXPECT_EQ(dialog().progress.doubleValue(), 1) << "also when the alert was read";
    EXPECT_EQ(dialog().progress.maxValue(), 4);
    EXPECT_EQ(state.file_len_count, 2048U);
    service.dispatch();
}

TEST_F(DeviceOffline, IsRememberedWhenTheWindowIsOpenedAgain) {
    afterMessages(700, [this] { device->unplug(); });
    upload();
    reopenDialog();
    EXPECT_EQ(dialog().step5.stringValue(), onlyOne);
    EXPECT_EQ(dialog().progress.doubleValue(), 1);
    EXPECT_EQ(dialog().progress.maxValue(), 4);
    EXPECT_EQ(dialog().nextStep(), 3);
    service.dispatch();
}

TEST_F(DeviceOffline, IsMendedByAnotherUploadWithAFreshBar) {
    afterMessages(700, [this] {
        device->unplug();
        service.dispatch();
        device->plug();
        service.dispatch();
    });
    upload();
    chooseDevice();
    openImage(someImage(1000));  // two blocks
    EXPECT_EQ(dialog().step5.stringValue(), onlyOne) << "until the next upload begins";
    record();
    std::vector<double> shown;
    std::vector<double> maxima;
    bool cleared = false;
    desktop.onSleep = [&](Seconds) {
        cleared = cleared || shown.empty();
        if (shown.empty()) {
            EXPECT_EQ(dialog().progress.doubleValue(), 0);
            EXPECT_EQ(dialog().step5.stringValue(), "Connecting and erasing");
        }
    };
    dialog().progress.setHidden(true);
    dialog().progress.onDisplay = [&] {
        EXPECT_FALSE(dialog().progress.isHidden());
        shown.push_back(dialog().progress.doubleValue());
        maxima.push_back(dialog().progress.maxValue());
    };
    upload();
    EXPECT_TRUE(cleared);
    EXPECT_THAT(shown, ElementsAre(0, 1, 2));
    EXPECT_THAT(maxima, testing::Each(2));
    EXPECT_EQ(alerts().back(), alertLine("Upload", "Upload completed."));
    EXPECT_EQ(dialog().step5.stringValue(), "");
    EXPECT_EQ(dialog().progress.doubleValue(), 0);
    EXPECT_EQ(dialog().nextStep(), 0);
}

TEST_F(DeviceOffline, SaysSoWhenTheServiceRefusesToSend) {
    service.fail("MIDISend", platform::kMIDIUnknownEndpoint);
    upload();
    EXPECT_EQ(received, 0U);
    expectCompleted(
        "Nothing left this computer: the controller went away. Connect it and begin again at step "
        "3.");
}

TEST_F(DeviceOffline, SaysSoWhenNoPortCanBeOpened) {
    service.fail("MIDIOutputPortCreate", platform::kMIDIInvalidClient);
    upload();
    EXPECT_EQ(received, 0U);
    expectCompleted(
        "Nothing left this computer: the system did not take it. Begin again at step 3.");
}

TEST_F(DeviceOffline, SaysSoWhenNoOutputIsChosenAnyMore) {
    devices.chosen.g_outDevice = nullptr;
    upload();
    expectCompleted("Nothing left this computer: no output is chosen. Begin again at step 3.");
}

TEST_F(DeviceOffline, NamesTheProgramThatKeepsTheOutputToItself) {
    service.at(*output).keepInUse("aseqdump");
    upload();
    expectCompleted(
        "Nothing left this computer: the output is in use by aseqdump. Close that program and "
        "begin again at step 3.");
}

TEST_F(DeviceOffline, SaysWhileItHappensThatADeviceTakesNothing) {
    std::vector<std::string> texts;
    dialog().progress.onDisplay = [&] { texts.push_back(dialog().step5.stringValue()); };
    afterMessages(34 + 530 + 100, [this] { service.at(*output).holdBack(); });
    std::size_t waiting = 0;
    desktop.onSleep = [&](Seconds pause) {
        events.push_back({{}, pause.count()});
        if (received == 664) {
            ++waiting;
            if (waiting == 10) {
                service.at(*output).holdBack(std::chrono::milliseconds(5300));
            } else if (waiting == 20) {
                service.at(*output).giveUp();
            }
        }
    };
    upload();
    const std::string truth =
        "Only 1 of 4 blocks left this computer: the controller takes nothing. Its firmware is "
        "incomplete. Disconnect it, connect it again and begin again at step 3.";
    EXPECT_THAT(texts, ElementsAre("0 %, block 0 of 4, 5 s left", "25 %, block 1 of 4, 4 s left",
                                   "The controller takes nothing since 5 s, block 1 of 4", truth));
    EXPECT_EQ(received, 664U);
    expectCompleted(truth);
}

/// The last bytes of an upload are known to have arrived only after its end.
class SettledLater : public DeviceOffline {
protected:
    SettledLater() { service.at(*output).settleLater(); }

    const std::string waiting_ =
        "All 4 blocks were handed over. Waiting until the controller has taken everything.";
};

TEST_F(SettledLater, ClaimsNoMoreThanIsKnownAndSaysItWhenItIs) {
    upload();
    EXPECT_THAT(alerts(), ElementsAre(alertLine("Upload", "Upload completed.")));
    EXPECT_EQ(dialog().step5.stringValue(), waiting_);
    EXPECT_EQ(dialog().nextStep(), 5) << "it still goes on";
    EXPECT_EQ(dialog().progress.doubleValue(), 0);
    service.at(*output).settle();
    service.dispatch();
    EXPECT_EQ(dialog().step5.stringValue(), "");
    EXPECT_EQ(dialog().nextStep(), 0);
}

TEST_F(SettledLater, IsShownBehindTheAlertAlready) {
    answerConfirmation(true);
    desktop.onAlert([this](const toolkit::Alert&) {
        int told = 0;
        dialog().onNextStep = [&told] { ++told; };
        service.at(*output).settle();
        service.dispatch();
        EXPECT_EQ(told, 1);
        EXPECT_EQ(dialog().step5.stringValue(), "");
        dialog().onNextStep = nullptr;
        return toolkit::AlertAnswer::Default;
    });
    dialog().uploadButton.click();
    EXPECT_EQ(dialog().nextStep(), 0);
}

TEST_F(SettledLater, TakesAControllerThatGoesAwayAtTheEndForOneThatStartsAnew) {
    upload();
    device->unplug();
    service.dispatch();
    EXPECT_EQ(dialog().step5.stringValue(),
              "All 4 blocks left this computer, then the controller went away. It does so when it "
              "starts anew. If it does not come back, begin again at step 3.");
    EXPECT_EQ(dialog().nextStep(), 0);
}

TEST_F(SettledLater, IsCutByTroubleAfterItsLastByte) {
    afterMessages(34 + 3 * 530, [this] { service.at(*output).holdBack(); });
    upload();
    EXPECT_EQ(dialog().step5.stringValue(), waiting_);
    service.at(*output).giveUp();
    service.dispatch();
    const std::string truth =
        "Only 3 of 4 blocks left this computer: the controller takes nothing. Its firmware is "
        "incomplete. Disconnect it, connect it again and begin again at step 3.";
    EXPECT_EQ(dialog().step5.stringValue(), truth);
    EXPECT_EQ(dialog().progress.doubleValue(), 3);
    EXPECT_EQ(dialog().nextStep(), 3);
}

TEST_F(SettledLater, IsKnownToAWindowThatWasClosedMeanwhile) {
    upload();
    reopenDialog();
    EXPECT_EQ(dialog().step5.stringValue(), waiting_);
    reopenDialog();
    service.at(*output).settle();
    service.dispatch();
    EXPECT_EQ(dialog().step5.stringValue(), "");
    EXPECT_EQ(dialog().nextStep(), 0);
}

TEST_F(SettledLater, LeavesAPersonWhoHasBegunAnewWhereTheyAre) {
    upload();
    chooseDevice();
    service.at(*output).settle();
    service.dispatch();
    EXPECT_EQ(dialog().nextStep(), 4);
}

TEST_F(SettledLater, OfAResetThatWasNotSeenToLeaveSaysThatItIsNotKnown) {
    afterMessages(34 + 4 * 530, [this] { service.at(*output).holdBack(); });
    upload();
    device->unplug();
    service.dispatch();
    EXPECT_EQ(dialog().step5.stringValue(),
              "All 4 blocks left this computer. Whether the reset at the end did is not known: the "
              "controller went away. Its firmware may be incomplete. Connect it and begin again at "
              "step 3.");
}

TEST_F(SettledLater, OfAnEmptyFileSpeaksOfTheEraseAlone) {
    openImage("");
    record();
    upload();
    EXPECT_EQ(dialog().step5.stringValue(),
              "The command to erase was handed over. Waiting until the controller has taken "
              "everything.");
}

TEST_F(SettledLater, DoesNotWaitForEverWhenTheUpdateMessageGoesTheSameWay) {
    upload();
    desktop.answerAlert();
    dialog().updateButton.click();
    EXPECT_EQ(dialog().step5.stringValue(),
              "All 4 blocks were handed over. Whether the controller took everything is not "
              "known.");
}

}  // namespace
}  // namespace firmware
