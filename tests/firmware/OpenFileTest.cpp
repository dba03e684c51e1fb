#include "firmware/FirmwareTest.h"

namespace firmware {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class OpenFile : public FirmwareTest {
protected:
    OpenFile() {
        plugController();
        chooseDevice();
        desktop.clearJournal();
    }
};

const std::string panel = journal::openPanel({"BIN", {"BIN"}});

TEST_F(OpenFile, AsksForADeviceFirst) {
    devices.midi_device_open = 0;
    desktop.answerAlert();
    dialog().openButton.click();
    EXPECT_THAT(desktop.journal(),
                ElementsAre(alertLine(" Tormelk Wyro", "Please select MIDI device first")));
    EXPECT_EQ(state.m_bin_file, 0);
}

TEST_F(OpenFile, OffersFilesOfTheTypeBin) {
    openImage(someImage(40000), "TORMELK.BIN");
    EXPECT_THAT(desktop.journal(), ElementsAre(panel));
    EXPECT_EQ(state.midi_program_hex_len, 40000U);
    EXPECT_EQ(state.m_bin_file, 1);
}

TEST_F(OpenFile, CancelChangesNothing) {
    desktop.answerOpenPanel(std::nullopt);
    dialog().openButton.click();
    EXPECT_THAT(desktop.journal(), ElementsAre(panel));
    EXPECT_EQ(state.m_bin_file, 0);
    EXPECT_EQ(dialog().step4.stringValue(), "No file chosen.");
}

TEST_F(OpenFile, SaysThatAFileCannotBeLoaded) {
    desktop.answerAlert();
    open(folder / "tormelk");
    EXPECT_THAT(desktop.journal(),
                ElementsAre(panel, alertLine("Tormelk Wyro", "Fail to load Tormelk file ")));
    EXPECT_EQ(state.m_bin_file, 0);
}

TEST_F(OpenFile, SaysTheSameOfAFolder) {
    desktop.answerAlert();
    open(folder.path());
    EXPECT_THAT(alerts(), ElementsAre(alertLine("Tormelk Wyro", "Fail to load Tormelk file ")));
    EXPECT_EQ(state.m_bin_file, 0);
}

TEST_F(OpenFile, AFileThatCannotBeLoadedLeavesTheOneBeforeChosen) {
    openImage(someImage(900));
    desktop.answerAlert();
    open(folder / "tormelk-gone");
    EXPECT_EQ(state.m_bin_file, 1);
    EXPECT_EQ(state.len, 900U);
    EXPECT_EQ(dialog().step4.stringValue(), "tormelk.bin, 900 bytes");
}

TEST_F(OpenFile, SaysThatANameIsWrongAndTakesTheFileForChosen) {
    desktop.answerAlert();
    openImage(someImage(900), "firmware.bin");
    EXPECT_THAT(desktop.journal(),
                ElementsAre(panel, alertLine(" Tormelk Wyro", "Wrong file name !")));
    EXPECT_EQ(state.m_bin_file, 1);
    EXPECT_EQ(state.midi_program_hex_len, 0U);
    EXPECT_EQ(dialog().step4.stringValue(), "Refused: firmware.bin");
}

TEST_F(OpenFile, SaysThatALargeFileIsNoneOfTheControllers) {
    desktop.answerAlert();
    openImage(someImage(57344));
    EXPECT_THAT(desktop.journal(),
                ElementsAre(panel, alertLine(" Tormelk Wyro", "Not Tormelk file")));
    EXPECT_EQ(state.m_bin_file, 1);
    EXPECT_EQ(state.len, 57344U);
    EXPECT_EQ(state.midi_program_hex_len, 0U);
}

TEST_F(OpenFile, JudgesTheNameBeforeTheSize) {
    desktop.answerAlert();
    openImage(someImage(57344), "firmware.bin");
    EXPECT_THAT(alerts(), ElementsAre(alertLine(" Tormelk Wyro", "Wrong file name !")));
    EXPECT_EQ(state.len, 0U);
}

TEST_F(OpenFile, ShowsTheFileThatWasChosen) {
    EXPECT_EQ(dialog().step4.stringValue(), "No file chosen.");
    openImage(someImage(40000), "tormelk_2.bin");
    EXPECT_EQ(dialog().step4.stringValue(), "tormelk_2.bin, 40,000 bytes");
    openImage("x", "tormelk_1.bin");
    EXPECT_EQ(dialog().step4.stringValue(), "tormelk_1.bin, 1 byte");
    EXPECT_THAT(alerts(), IsEmpty());
}

}  // namespace
}  // namespace firmware
