#include "firmware/FirmwareTest.h"

namespace firmware {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

class UpLoad : public FirmwareTest {
protected:
    void makeReady(std::size_t size = 1000) {
        plugController();
        chooseDevice();
        openImage(someImage(size));
        desktop.clearJournal();
        record();
    }
    void expectRefusal(const char* message) {
        desktop.clearJournal();
        desktop.answerAlert();
        dialog().uploadButton.click();
        EXPECT_THAT(desktop.journal(), ElementsAre(alertLine("Warning", message)));
    }
    void setFlags(std::uint8_t value) {
        state.connet_bit = value;
        state.eraser_bit = value;
        state.program_bit = value;
        state.rest_bit = value;
    }
    [[nodiscard]] std::vector<int> flags() const {
        return {state.connet_bit, state.eraser_bit, state.program_bit, state.rest_bit};
    }
};

TEST_F(UpLoad, AsksForDeviceAndFileWhereBothAreMissing) {
    expectRefusal("Please  select the MIDI Device and  open file.");
}

TEST_F(UpLoad, AsksForTheDeviceAloneWhereAFileWasChosen) {
    state.m_bin_file = 1;
    expectRefusal("Please select the MIDI Device.");
}

TEST_F(UpLoad, AsksForTheFileWhereADeviceWasChosen) {
    plugController();
    chooseDevice();
    expectRefusal("Please open file .");
}

TEST_F(UpLoad, CancellingTheConfirmationSendsNothingAndKeepsTheFlags) {
    makeReady();
    setFlags(1);
    state.file_len_count = 77;
    answerConfirmation(false);
    dialog().uploadButton.click();
    EXPECT_THAT(desktop.journal(),
                ElementsAre(journal::modalBegins<message>(), journal::stopModal(),
                            journal::modalEnds<message>()));
    EXPECT_THAT(events, IsEmpty());
    EXPECT_EQ(devices.midi_device_open, 1);
    EXPECT_EQ(state.m_bin_file, 1);
    EXPECT_THAT(flags(), Each(1));
    EXPECT_EQ(state.file_len_count, 77U);
}

TEST_F(UpLoad, AConfirmationThatIsClosedKeepsTheAnswerBefore) {
    makeReady();
    for (const std::uint8_t before : {std::uint8_t{0}, std::uint8_t{1}}) {
        state.a = before;
        desktop.onModal<message>([](message& shown) { shown.window().close(); });
        if (before == 1) {
            desktop.answerAlert();
        }
        dialog().uploadButton.click();
        EXPECT_EQ(events.empty(), before == 0);
    }
}

TEST_F(UpLoad, TakesTheDeviceAndTheFileForUsedUpAfterwards) {
    makeReady();
    upload();
    EXPECT_EQ(alerts().back(), alertLine("Upload", "Upload completed."));
    EXPECT_EQ(devices.midi_device_open, 0);
    EXPECT_EQ(state.m_bin_file, 0);
    expectRefusal("Please  select the MIDI Device and  open file.");
}

TEST_F(UpLoad, ClearsItsFlags) {
    makeReady();
    setFlags(1);
    desktop.onSleep = [this](Seconds) { EXPECT_THAT(flags(), Each(0)); };
    upload();
    EXPECT_THAT(flags(), Each(0));
    EXPECT_EQ(state.file_len_count, 1024U);
}

TEST_F(UpLoad, ClearsEachFlagAgainAfterItsOwnStep) {
    makeReady(600);
    int tenths = 0;
    std::vector<std::vector<int>> seen;
    desktop.onSleep = [&](Seconds pause) {
        if (pause.count() > 0.05) {
            seen.push_back(flags());
            setFlags(1);
            ++tenths;
        }
    };
    upload();
    // After connect, erase, two blocks, the reset frame and the reset itself.
    EXPECT_THAT(seen, ElementsAre(ElementsAre(0, 0, 0, 0), ElementsAre(0, 1, 1, 1),
                                  ElementsAre(1, 0, 1, 1), ElementsAre(1, 1, 0, 1),
                                  ElementsAre(1, 1, 0, 1), ElementsAre(1, 1, 1, 1)));
    EXPECT_EQ(tenths, 6);
    EXPECT_THAT(flags(), ElementsAre(1, 1, 1, 0));
}

TEST_F(UpLoad, LeavesTheFramesAsTheyWere) {
    makeReady();
    upload();
    EXPECT_EQ(state.midi_connet, sending::connectFrame);
    EXPECT_EQ(state.midi_eraser, sending::eraseFrame);
    EXPECT_EQ(state.midi_rest, sending::resetFrame);
    EXPECT_EQ(state.midi_write[16], 0);
    EXPECT_EQ(state.midi_write[15], 2) << "the counter of the block that would come next";
    EXPECT_EQ(state.midi_program_hex_layer[529], 0);
    EXPECT_THAT(state.midi_temp, ElementsAre(0x9F, 0x0B, 0x0D)) << "the last byte: 0xBD";
}

TEST_F(UpLoad, HasNoChecksumInTheFramesButWhileTheyAreSent) {
    makeReady(10);
    desktop.onSleep = [this](Seconds pause) {
        if (pause.count() > 0.05) {
            EXPECT_EQ(state.midi_connet[16] + state.midi_eraser[16] + state.midi_rest[16] +
                          state.midi_program_hex_layer[529],
                      0);
        }
    };
    upload();
}

TEST_F(UpLoad, AdvancesTheProgressByOneForEachBlock) {
    makeReady(40000);
    std::vector<double> shown;
    std::vector<std::size_t> messages;
    dialog().progress.onDisplay = [&] {
        shown.push_back(dialog().progress.doubleValue());
        EXPECT_EQ(dialog().progress.minValue(), 0);
        EXPECT_EQ(dialog().progress.maxValue(), 79);
        EXPECT_FALSE(dialog().progress.isHidden());
        messages.push_back(service.at(*output).received().size());
    };
    upload();
    ASSERT_EQ(shown.size(), 80U);
    for (std::size_t block = 0; block < shown.size(); ++block) {
        EXPECT_EQ(shown[block], static_cast<double>(block));
        EXPECT_EQ(messages[block], 34 + 530 * block) << "at once after the block";
    }
    EXPECT_EQ(dialog().progress.doubleValue(), 0);
}

TEST_F(UpLoad, TheProgressOfWholeBlocksReachesOneLessThanItsEnd) {
    makeReady(1024);
    double last = 0;
    dialog().progress.onDisplay = [&] { last = dialog().progress.doubleValue(); };
    upload();
    EXPECT_EQ(last, 2);
    EXPECT_EQ(dialog().progress.maxValue(), 3);
}

TEST_F(UpLoad, TellsPerCentBlocksAndTimeLeft) {
    makeReady(1000);
    std::vector<std::string> texts;
    dialog().progress.onDisplay = [&] { texts.push_back(dialog().step5.stringValue()); };
    upload();
    EXPECT_THAT(texts, ElementsAre("0 %, block 0 of 2, 3 s left", "50 %, block 1 of 2, 2 s left",
                                   "100 %, block 2 of 2, 0 s left"));
    EXPECT_EQ(dialog().step5.stringValue(), "");
}

TEST_F(UpLoad, KeepsTheProgressUntilItsEndWasRead) {
    makeReady(1000);
    answerConfirmation(true);
    desktop.onAlert([this](const toolkit::Alert&) {
        EXPECT_EQ(dialog().progress.doubleValue(), 2);
        EXPECT_EQ(devices.midi_device_open, 0);
        EXPECT_EQ(state.m_bin_file, 0);
        return toolkit::AlertAnswer::Default;
    });
    dialog().uploadButton.click();
    EXPECT_EQ(dialog().progress.doubleValue(), 0);
}

TEST_F(UpLoad, OfNothingTellsSo) {
    makeReady(0);
    std::vector<std::string> texts;
    dialog().progress.onDisplay = [&] { texts.push_back(dialog().step5.stringValue()); };
    upload();
    EXPECT_THAT(texts, ElementsAre("100 %, block 0 of 0, 0 s left"));
    const std::string truth =
        "The file was empty: the controller was told to erase its firmware, and nothing was put in "
        "its place. Begin again at step 3.";
    EXPECT_EQ(alerts().back(), alertLine("Upload", ("Upload completed.\n\n" + truth).c_str()));
    EXPECT_EQ(dialog().step5.stringValue(), truth);
    EXPECT_EQ(dialog().nextStep(), 3);
}

/// The person agrees, and meanwhile something has taken the device or the file back.
class FlagGone : public UpLoad {
protected:
    void uploadLosing(std::uint8_t& flag) {
        makeReady();
        desktop.onModal<message>([&flag](message& shown) {
            flag = 0;
            shown.okButton.click();
        });
        desktop.answerAlert();
        dialog().uploadButton.click();
        EXPECT_THAT(events, IsEmpty());
        const std::string truth =
            "Nothing was sent: the device or the file was not chosen any more.";
        EXPECT_EQ(alerts().back(), alertLine("Upload", ("Upload completed.\n\n" + truth).c_str()));
        EXPECT_EQ(dialog().step5.stringValue(), truth);
        EXPECT_EQ(dialog().progress.doubleValue(), 0);
        EXPECT_EQ(dialog().nextStep(), 3);
        EXPECT_EQ(devices.midi_device_open, 0);
        EXPECT_EQ(state.m_bin_file, 0);
    }
};

TEST_F(FlagGone, OfTheDeviceSendsNothing) {
    uploadLosing(devices.midi_device_open);
}

TEST_F(FlagGone, OfTheFileSendsNothing) {
    uploadLosing(state.m_bin_file);
}

TEST_F(UpLoad, CountsFromNothingAtItsStartAndAgainAfterTheErase) {
    makeReady(600);
    state.file_len_count = 4096;
    std::vector<std::uint64_t> counts;
    desktop.onSleep = [&](Seconds pause) {
        if (pause.count() > 0.05 && counts.size() < 2) {
            counts.push_back(state.file_len_count);
            state.file_len_count = 4096;  // what a frame leaves is not counted
        } else if (counts.empty()) {
            EXPECT_EQ(state.file_len_count, 0U);
        }
    };
    upload();
    EXPECT_THAT(counts, ElementsAre(0U, 4096U));
    EXPECT_EQ(service.at(*output).received().size(), 3U * 17 + 2 * 530)
        << "both blocks, from the first byte on";
    EXPECT_EQ(state.file_len_count, 1024U);
}

TEST_F(UpLoad, StartsAlsoWithAFileThatWasRefused) {
    plugController();
    chooseDevice();
    desktop.answerAlert();
    openImage(someImage(1000), "firmware.bin");
    record();
    upload();
    EXPECT_EQ(service.at(*output).received().size(), 3U * 17) << "connect, erase, reset";
}

TEST_F(UpLoad, TheWindowOpensWithTheTitleAndTheBytesSentLast) {
    makeReady();
    EXPECT_EQ(dialog().window().title(), "Firmware Upgrade");
    EXPECT_EQ(dialog().progress.doubleValue(), 0);
    EXPECT_FALSE(dialog().progress.isHidden());
    upload();
    reopenDialog();
    EXPECT_EQ(dialog().progress.doubleValue(), 1024);
}

TEST_F(UpLoad, CloseEndsTheModalRun) {
    desktop.onModal<firm>([](firm& shown) { shown.closeButton.click(); });
    firm another(state, devices, desktop);
    EXPECT_EQ(desktop.runModalForWindow(another), toolkit::Desktop::modalStopped);
    EXPECT_FALSE(another.window().isVisible());
}

TEST_F(UpLoad, TheVersionIsWhatItWasSetTo) {
    EXPECT_EQ(dialog().FmVer(), 0);
    dialog().setFmVer(-3);
    dialog().steps = 4;
    dialog().DRVversion = 5;
    makeReady();
    upload();
    EXPECT_EQ(dialog().FmVer(), -3);
    EXPECT_EQ(dialog().steps, 4);
    EXPECT_EQ(dialog().DRVversion, 5);
}

}  // namespace
}  // namespace firmware
