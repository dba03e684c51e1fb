#include "firmware/confirmation.h"

#include "firmware/FirmwareTest.h"

namespace firmware {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class ConfirmationTest : public FirmwareTest {
protected:
    ConfirmationTest() {
        plugController("Tormelk MIDI 1");
        chooseDevice();
    }

    void refuse(const std::string& bytes, const std::string& name) {
        desktop.answerAlert();
        openImage(bytes, name);
    }
    /// What the confirmation says when a person presses Upload.
    Confirmation shown() {
        Confirmation content;
        desktop.onModal<message>([&content](message& confirmation) {
            content = confirmation.content();
            confirmation.cancelButton.click();
        });
        dialog().uploadButton.click();
        return content;
    }
    static std::string fact(const Confirmation& content, const std::string& name) {
        for (const Confirmation::Fact& fact : content.facts) {
            if (fact.name == name) {
                return fact.value;
            }
        }
        return "not said";
    }
};

TEST_F(ConfirmationTest, TellsFileSizeBlocksOutputAndTime) {
    openImage(someImage(40000), "tormelk_2.bin");
    const Confirmation content = shown();
    using Fact = Confirmation::Fact;
    EXPECT_THAT(content.facts,
                ElementsAre(Fact{"File", "tormelk_2.bin"}, Fact{"Size", "40,000 bytes"},
                            Fact{"Blocks", "79 of 512 bytes"}, Fact{"Output", "Tormelk MIDI 1"},
                            Fact{"Time", "about 1 min 33 s"}));
    EXPECT_THAT(content.warnings, IsEmpty());
}

TEST_F(ConfirmationTest, TellsWhatToDoShouldItBeCutOff) {
    openImage(someImage(40000));
    EXPECT_THAT(shown().advice,
                AllOf(HasSubstr("waits in its update mode"), HasSubstr("Start again at step 3")));
}

TEST_F(ConfirmationTest, NamesTheOtherProgramsOnTheSameOutput) {
    openImage(someImage(400));
    service.at(*output).setConnectedPrograms({"Recorder", "Patch Bay"});
    EXPECT_THAT(fact(shown(), "Also connected"),
                AllOf(HasSubstr("Recorder, Patch Bay"), HasSubstr("could slip in between")));
    service.at(*output).setConnectedPrograms({});
    EXPECT_EQ(fact(shown(), "Also connected"), "not said");
}

TEST_F(ConfirmationTest, WarnsOfAFileRefusedForItsNameWithNothingReadBefore) {
    refuse(someImage(400), "other.bin");
    const Confirmation content = shown();
    EXPECT_THAT(content.warnings,
                ElementsAre("The file you chose last, \"other.bin\", was REFUSED: the name of a "
                            "firmware file begins with \"tormelk\". Not one of its bytes will be "
                            "written.",
                            "The controller's firmware will be ERASED and nothing put in its "
                            "place. Press Cancel."));
    EXPECT_EQ(fact(content, "File"), "none");
    EXPECT_EQ(fact(content, "Blocks"), "0 of 512 bytes");
}

TEST_F(ConfirmationTest, TellsWhichFileIsWrittenInPlaceOfARefusedOne) {
    openImage(someImage(800), "tormelk_1.bin");
    refuse(someImage(400), "other.bin");
    const Confirmation content = shown();
    EXPECT_THAT(content.warnings,
                ElementsAre(HasSubstr("\"other.bin\", was REFUSED"),
                            "What will be written instead is the file read before it, "
                            "\"tormelk_1.bin\"."));
    EXPECT_EQ(fact(content, "File"), "tormelk_1.bin");
    EXPECT_EQ(fact(content, "Size"), "800 bytes");
}

TEST_F(ConfirmationTest, NamesTheFileReadBeforeHoweverShortUnlessItIsEmpty) {
    openImage(someImage(1), "tormelk_1.bin");
    refuse(someImage(400), "other.bin");
    EXPECT_EQ(fact(shown(), "File"), "tormelk_1.bin");
    openImage("", "tormelk_empty.bin");
    refuse(someImage(400), "other.bin");
    EXPECT_EQ(fact(shown(), "File"), "none");
}

TEST_F(ConfirmationTest, WarnsOfAFileRefusedForItsSize) {
    refuse(someImage(60000), "tormelk_large.bin");
    const Confirmation content = shown();
    EXPECT_THAT(
        content.warnings,
        ElementsAre("The file you chose last, \"tormelk_large.bin\", was REFUSED: it has 60,000 "
                    "bytes, a firmware file has fewer than 57,344. Not one of its bytes will be "
                    "written.",
                    "What will be written instead is 60,000 bytes of no firmware at all. The "
                    "controller will not work with that. Press Cancel."));
    EXPECT_EQ(fact(content, "File"), "none");
    EXPECT_EQ(fact(content, "Size"), "60,000 bytes");
    EXPECT_EQ(fact(content, "Blocks"), "118 of 512 bytes");
}

TEST_F(ConfirmationTest, WarnsOfTheMixtureThatATooLargeFileMakesOfAnEarlierOne) {
    openImage(someImage(800), "tormelk_1.bin");
    refuse(someImage(60000), "tormelk_large.bin");
    EXPECT_THAT(shown().warnings,
                ElementsAre(HasSubstr("\"tormelk_large.bin\", was REFUSED"),
                            AllOf(HasSubstr("60,000 bytes that are no firmware"),
                                  HasSubstr("\"tormelk_1.bin\""), HasSubstr("Press Cancel"))));
    // The size measured last stays when the name of a further file is refused.
    refuse(someImage(10), "other.bin");
    EXPECT_THAT(shown().warnings, ElementsAre(HasSubstr("\"other.bin\", was REFUSED"),
                                              HasSubstr("60,000 bytes that are no firmware")));
}

TEST_F(ConfirmationTest, WarnsOfAnEmptyFile) {
    openImage("", "tormelk_empty.bin");
    EXPECT_THAT(shown().warnings,
                ElementsAre("The file you chose, \"tormelk_empty.bin\", is EMPTY. There is "
                            "nothing to write.",
                            HasSubstr("ERASED and nothing put in its place")));
}

TEST_F(ConfirmationTest, WarnsOfAnOutputThatIsOffline) {
    openImage(someImage(800));
    device->unplug();
    service.dispatch();
    const Confirmation content = shown();
    EXPECT_THAT(content.warnings, ElementsAre(HasSubstr("OFFLINE")));
    EXPECT_EQ(fact(content, "Output"), "Tormelk MIDI 1 (offline)");
}

TEST_F(ConfirmationTest, WarnsWhereNoOutputIsChosen) {
    openImage(someImage(800));
    devices.chosen.g_outDevice = nullptr;
    const Confirmation content = shown();
    EXPECT_THAT(content.warnings, ElementsAre(HasSubstr("NO OUTPUT")));
    EXPECT_EQ(fact(content, "Output"), "none");
}

TEST_F(ConfirmationTest, WarnsNoMoreOnceAGoodFileIsOpened) {
    refuse(someImage(60000), "tormelk_large.bin");
    openImage(someImage(800), "tormelk_1.bin");
    EXPECT_THAT(shown().warnings, IsEmpty());
}

TEST_F(ConfirmationTest, WarnsOfEverythingAtOnce) {
    refuse(someImage(10), "other.bin");
    devices.chosen.g_outDevice = nullptr;
    EXPECT_THAT(shown().warnings, SizeIs(3));
}

}  // namespace
}  // namespace firmware
