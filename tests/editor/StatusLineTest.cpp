// What the status line says that the last edit did.

#include <gtest/gtest.h>

#include "editor/PresetFiles.h"

namespace editor {
namespace {

class StatusLine : public UserDefinedTest {
protected:
    [[nodiscard]] const std::string& said() const { return window.status.stringValue(); }
    /// The words that stay where an action has nothing to say.
    void forget() { window.status.setStringValue("before"); }
};

TEST_F(StatusLine, NamesTheControlAndItsNewChannel) {
    editor.click(9);
    window.combo_chan.choose(3);
    EXPECT_EQ(said(), "Strip 3, Solo: channel 4");
    editor.click(65);
    window.combo_chan.choose(9);
    EXPECT_EQ(said(), "Pad 4: channel 10");
}

TEST_F(StatusLine, NamesTheMessageAfterAChoiceOfTypeOrNumber) {
    editor.click(9);
    window.combo_type.choose(kindControlChange);
    window.combo_cc.choose(64);
    EXPECT_EQ(said(), "Strip 3, Solo: control change 64 Sustain");
    window.combo_type.choose(kindNote);
    EXPECT_EQ(said(), "Strip 3, Solo: note 64 E4");
    window.combo_type.choose(kindProgramChange);
    EXPECT_EQ(said(), "Strip 3, Solo: program change 64");
    window.combo_cc.choose(5);
    EXPECT_EQ(said(), "Strip 3, Solo: program change 5");
}

TEST_F(StatusLine, NamesTheNumberAloneWhereItIsNoPartOfTheMessage) {
    editor.statusOf(0, 64) = 0x0E;
    editor.click(64);
    window.combo_cc.choose(5);
    EXPECT_EQ(said(), "Master fader: number 5");
    editor.statusOf(0, 9) = 0x08;
    editor.click(9);
    window.combo_cc.choose(6);
    EXPECT_EQ(said(), "Strip 3, Solo: number 6");
}

TEST_F(StatusLine, NamesTheTriggerOfOneControlOrOfTheWholeLayer) {
    editor.clickModeLayer(1);
    editor.click(9);
    window.combo_trig.choose(1);
    EXPECT_EQ(said(), "Strip 3, Solo: toggle");
    window.combo_trig.choose(0);
    EXPECT_EQ(said(), "Strip 3, Solo: momentary");
    window.combo_trig.choose(3);
    EXPECT_EQ(said(), "Layer 2: all buttons toggle, except Encoder 8, push");
    window.combo_trig.choose(2);
    EXPECT_EQ(said(), "Layer 2: all buttons momentary, except Encoder 8, push");
}

TEST_F(StatusLine, NamesTheLayerThatWasSwitchedTo) {
    editor.clickModeLayer(1);
    EXPECT_EQ(said(), "Mode layer 2");
    editor.clickModeLayer(3);
    EXPECT_EQ(said(), "Mode layer 4");
    editor.clickPadLayer(0);
    EXPECT_EQ(said(), "Pad layer 1");
}

TEST_F(StatusLine, NamesTheModeAndWhatBecameOfOnesOwnAssignments) {
    editor.chooseMode(nuendoMode);
    EXPECT_EQ(said(), "DAW mode: Nuendo. Your own assignments are kept.");
    const std::array<std::pair<int, const char*>, 5> modes = {{{samplitudeMode, "Samplitude"},
                                                               {liveMode, "Live"},
                                                               {logicMode, "Logic"},
                                                               {huiMode, "HUI"},
                                                               {userDefinedMode, "User Defined"}}};
    for (const auto& [mode, name] : modes) {
        editor.chooseMode(mode);
        EXPECT_EQ(said(), std::string("DAW mode: ") + name);
    }
}

TEST_F(StatusLine, SaysWhetherTheLockIsOn) {
    window.locker.click();
    EXPECT_EQ(said(), "Lock: off");
    window.locker.click();
    EXPECT_EQ(said(), "Lock: on");
}

TEST_F(StatusLine, KeepsItsWordsWhereNothingWasEdited) {
    editor.click(9);
    window.combo_cc.addItemWithObjectValue(toolkit::blankEntry);
    forget();
    window.combo_cc.choose(128);  // the blank: picking it writes nothing
    EXPECT_EQ(said(), "before");
    editor.click(12);
    EXPECT_EQ(said(), "before") << "what is selected is told beside the controller";
}

TEST_F(StatusLine, SaysWhichPadLayersThePadEditorChanged) {
    editor.usePadEditor(2, [](pad&) {});
    EXPECT_EQ(said(), "Pad layers 2 to 4 are as they were");
    editor.usePadEditor(2, [](pad& padEditor) { padEditor.combo_intervl.choose(15); });
    EXPECT_EQ(said(), "Pad layer 3 changed");
    editor.usePadEditor(1, [](pad& padEditor) {
        padEditor.combo_intervl.choose(15);
        padEditor.m_paLa3.click();
        padEditor.combo_intervl.choose(16);
    });
    EXPECT_EQ(said(), "Pad layers 2 and 4 changed");
}

TEST_F(StatusLine, NamesTheOutputThatWasChosenButNoOtherEndOfTheDialog) {
    editor.midiService.addDevice("Tormelk").addDestination("Port 1");
    editor.midiService.dispatch();
    forget();
    desktop.onModal<devices::seldev>([](devices::seldev& dialog) { dialog.cancelButton.click(); });
    controller.midiSelect();
    EXPECT_EQ(said(), "before");
    desktop.onModal<devices::seldev>([](devices::seldev& dialog) {
        dialog.combo_out.choose(0);
        dialog.okButton.click();
    });
    controller.midiSelect();
    EXPECT_EQ(said(), "Output: Tormelk Port 1");
    forget();
    desktop.onModal<devices::seldev>([](devices::seldev& dialog) { dialog.okButton.click(); });
    controller.midiSelect();
    EXPECT_EQ(said(), "before") << "the output is the one it was";
}

// The pad editor has a line of its own.

TEST_F(StatusLine, OfThePadEditorNamesThePadItsNoteAndItsChannel) {
    editor.usePadEditor(2, [](pad& padEditor) {
        EXPECT_EQ(padEditor.status.stringValue(), "");
        padEditor.m_pads[4].click();
        EXPECT_EQ(padEditor.status.stringValue(), "");
        padEditor.combo_msg.choose(60);
        EXPECT_EQ(padEditor.status.stringValue(), "Pad 5: note 60 C4");
        padEditor.combo_chan.choose(3);
        EXPECT_EQ(padEditor.status.stringValue(), "Pad 5: channel 4");
        padEditor.combo_chanMod.choose(1);
        EXPECT_EQ(padEditor.status.stringValue(),
                  "Pad layer 3: a channel counts for all nine pads");
        padEditor.combo_chan.choose(4);
        EXPECT_EQ(padEditor.status.stringValue(), "Pad layer 3, all pads: channel 5");
        padEditor.combo_chanMod.choose(0);
        EXPECT_EQ(padEditor.status.stringValue(),
                  "Pad layer 3: a channel counts for the selected pad");
    });
}

TEST_F(StatusLine, OfThePadEditorNamesWhatBelongsToTheLayer) {
    editor.usePadEditor(1, [](pad& padEditor) {
        padEditor.m_paLa2.click();
        EXPECT_EQ(padEditor.status.stringValue(), "Pad layer 3");
        padEditor.combo_intervl.choose(15);
        EXPECT_EQ(padEditor.status.stringValue(), "Pad layer 3: interval 40 ms");
        padEditor.combo_curv.choose(2);
        EXPECT_EQ(padEditor.status.stringValue(), "Pad layer 3: velocity Curve2");
        padEditor.combo_curv.choose(5);
        EXPECT_EQ(padEditor.status.stringValue(), "Pad layer 3: constant velocity 84");
        padEditor.combo_curConst.choose(80);
        EXPECT_EQ(padEditor.status.stringValue(), "Pad layer 3: constant velocity 100");
    });
}

}  // namespace
}  // namespace editor
