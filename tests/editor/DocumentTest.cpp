#include "editor/Document.h"

#include <gtest/gtest.h>

#include <random>

#include "editor/PresetFiles.h"

namespace editor {
namespace {

constexpr int strip3Solo = 9;

class UndoTest : public PresetTest {
protected:
    UndoTest() {
        editor.chooseMode(0);
        editor.click(5);
        before = everythingIn(editor);
    }
    /// Everything but `bChange`, which is judged anew.
    [[nodiscard]] std::string now() {
        const int bChange = std::exchange(state.bChange, 0);
        std::string everything = everythingIn(editor);
        state.bChange = bChange;
        return everything;
    }
    /// `act` is one step of this name, which can be undone and done again.
    template <typename Act>
    void expectStep(const std::string& name, Act act) {
        const std::string then = now();
        const std::size_t steps = document.numberOfSteps();
        act();
        const std::string after = now();
        EXPECT_EQ(document.numberOfSteps(), steps + 1) << name;
        EXPECT_EQ(document.undoName(), name);
        EXPECT_EQ(document.redoName(), "");
        controller.undo();
        EXPECT_EQ(now(), then) << name;
        EXPECT_EQ(document.redoName(), name);
        EXPECT_EQ(window.status.stringValue(), "Undone: " + name);
        controller.redo();
        EXPECT_EQ(now(), after) << name;
        EXPECT_EQ(window.status.stringValue(), "Done again: " + name);
    }

    Document& document = controller.document();
    std::string before;
};

TEST_F(UndoTest, IsThereForEveryKindOfChangeByItsName) {
    editor.click(strip3Solo);
    expectStep("Strip 3, Solo: control change 10 Pan", [&] { window.combo_type.choose(1); });
    expectStep("Strip 3, Solo: control change 64 Sustain", [&] { window.combo_cc.choose(64); });
    expectStep("Strip 3, Solo: channel 4", [&] { window.combo_chan.choose(3); });
    expectStep("Strip 3, Solo: toggle", [&] {
        window.combo_trig.choose(window.combo_trig.indexOfSelectedItem() == 1 ? 0 : 1);
        window.combo_trig.choose(1);
    });
    expectStep("Layer 1: all buttons momentary, except Encoder 8, push",
               [&] { window.combo_trig.choose(2); });
    expectStep("Lock: off", [&] { window.locker.click(); });
    expectStep("DAW mode: Logic", [&] { editor.chooseMode(4); });
    expectStep("DAW mode: User Defined", [&] { editor.chooseMode(0); });
    expectStep("Pad layer 3", [&] {
        editor.usePadEditor(2, [](pad& padEditor) {
            padEditor.m_pads[0].click();
            padEditor.combo_msg.choose(5);
            padEditor.combo_chan.choose(5);
        });
    });
    files::write(file, formattedPreset(randomPreset(3, 2)));
    expectStep("Load My preset.Tormelk", [&] { load(editor, file); });
}

TEST_F(UndoTest, BringsBackTheStartFromAllTheWayUp) {
    window.combo_chan.choose(7);
    window.combo_trig.choose(3);
    editor.chooseMode(3);
    editor.chooseMode(0);
    window.locker.click();
    while (controller.canUndo()) {
        controller.undo();
    }
    // The choice of the mode that the test began with was a step too.
    EXPECT_EQ(state.modes.machn_mod, nuendoMode);
    controller.redo();
    controller.undo();
    const TestEditor fresh;
    EXPECT_EQ(everythingIn(editor), everythingIn(fresh));
}

TEST_F(UndoTest, GoesToTheControlAndTheLayerOfTheChange) {
    editor.clickModeLayer(2);
    editor.click(20);
    window.combo_chan.choose(9);
    editor.clickModeLayer(0);
    editor.click(70);
    controller.undo();
    EXPECT_EQ(state.selection.keyEvnt, 20);
    EXPECT_EQ(state.layers.layrData, 2);
    EXPECT_EQ(editor.litControls(), std::set<int>{20});
    EXPECT_EQ(editor.litModeLayers(), std::set<int>{2});
    EXPECT_EQ(window.combo_chan.indexOfSelectedItem(), editor.channelOf(2, 20));
    editor.clickModeLayer(1);
    controller.redo();
    EXPECT_EQ(editor.litModeLayers(), std::set<int>{2});
    EXPECT_EQ(window.combo_chan.indexOfSelectedItem(), 9);
}

TEST_F(UndoTest, HasNoStepForWhatOnlySelects) {
    const std::size_t steps = document.numberOfSteps();
    editor.click(9);
    editor.clickModeLayer(3);
    editor.clickPadLayer(0);
    editor.usePadEditor(1, [](pad& padEditor) { padEditor.m_pads[3].click(); });
    EXPECT_EQ(document.numberOfSteps(), steps);
}

TEST_F(UndoTest, TakesGoingThroughAListForOneStep) {
    const std::size_t steps = document.numberOfSteps();
    const int channel = editor.channelOf(0, 5);
    for (int index = channel + 1; index < 16; ++index) {
        window.combo_chan.choose(index);
    }
    EXPECT_EQ(document.numberOfSteps(), steps + 1);
    controller.undo();
    EXPECT_EQ(now(), before);
    EXPECT_EQ(editor.channelOf(0, 5), channel);
}

TEST_F(UndoTest, DoesNothingWithoutAStep) {
    while (controller.canUndo()) {
        controller.undo();
    }
    const std::string status = window.status.stringValue();
    const std::string then = now();
    controller.undo();
    EXPECT_EQ(now(), then);
    EXPECT_EQ(window.status.stringValue(), status);
}

TEST_F(UndoTest, WaitsWhileThePadEditorIsOpen) {
    window.combo_chan.choose(7);
    editor.usePadEditor(1, [&](pad&) {
        EXPECT_FALSE(controller.canUndo());
        controller.undo();
        EXPECT_EQ(editor.channelOf(0, 5), 7);
    });
    EXPECT_TRUE(controller.canUndo());
}

TEST_F(UndoTest, ShowsTheBlankBehindAListWhereItWasThen) {
    window.combo_chan.choose(7);
    EXPECT_EQ(blanksIn(window.combo_chan), 0);
    editor.chooseMode(2);  // nothing is selected, and the boxes get their blank
    EXPECT_EQ(blanksIn(window.combo_chan), 1);
    controller.undo();
    EXPECT_EQ(blanksIn(window.combo_chan), 0);
    controller.redo();
    EXPECT_TRUE(showsBlank(window.combo_chan));
}

TEST_F(UndoTest, BringsBackTheTitleAndTheStoreBehindADawMode) {
    editor.chooseMode(1);
    state.stores.SysBuf_usrdef[246] = 0;
    window.locker.click();
    const std::string title = window.window.title();
    editor.chooseMode(0);
    EXPECT_EQ(window.window.title(), "Tormelk  - usrdefmoddatNull");
    controller.undo();
    EXPECT_EQ(window.window.title(), title);
    controller.redo();
    EXPECT_EQ(window.window.title(), "Tormelk  - usrdefmoddatNull");
}

TEST_F(UndoTest, BringsBackTheVelocityThatThePadEditorRemembers) {
    editor.usePadEditor(1, [](pad& padEditor) {
        padEditor.combo_curv.choose(padEditor.combo_curv.indexOfSelectedItem() == 5 ? 2 : 5);
        padEditor.combo_curv.choose(5);
        padEditor.combo_curConst.choose(80);
    });
    const auto kept = state.pads.SYSBuf_vel_bak;
    EXPECT_EQ(kept[1], 100);
    controller.undo();
    EXPECT_EQ(state.pads.SYSBuf_vel_bak[1], 0);
    controller.redo();
    EXPECT_EQ(state.pads.SYSBuf_vel_bak, kept);
}

TEST_F(UndoTest, NamesASessionByWhatItChanged) {
    editor.usePadEditor(1, [](pad& padEditor) {
        padEditor.combo_intervl.choose(3);
        padEditor.m_paLa3.click();
        padEditor.combo_intervl.choose(3);
    });
    EXPECT_EQ(document.undoName(), "Pad layers 2 and 4");
}

// What is on file

TEST_F(UndoTest, GoesBackPastASaveAndMarksTheTitleTruly) {
    editor.chooseMode(4);
    editor.chooseMode(0);
    window.combo_chan.choose(7);
    save(editor, file);
    EXPECT_FALSE(controller.isImageEdited());
    ASSERT_TRUE(controller.canUndo());
    controller.undo();
    EXPECT_TRUE(controller.isImageEdited());
    controller.redo();
    EXPECT_FALSE(controller.isImageEdited());
    window.combo_chan.choose(9);
    EXPECT_TRUE(controller.isImageEdited());
    controller.undo();
    EXPECT_FALSE(controller.isImageEdited());
}

TEST_F(UndoTest, LeavesTheLoadedFileOnFileWhenTheLoadIsUndone) {
    files::write(file, formattedPreset(state.sysData));
    window.combo_trig.choose(3);
    EXPECT_TRUE(controller.isImageEdited());
    load(editor, file);
    EXPECT_FALSE(controller.isImageEdited());
    controller.undo();
    EXPECT_TRUE(controller.isImageEdited());
    EXPECT_TRUE(state.layers.bTrigAll.isSet(0));
    controller.redo();
    EXPECT_FALSE(controller.isImageEdited());
}

TEST_F(UndoTest, AsksBeforeALoadForWhatASaveNoLongerHolds) {
    window.combo_chan.choose(7);
    save(editor, file);
    EXPECT_EQ(state.bChange, 0);
    controller.undo();
    EXPECT_EQ(state.bChange, 1) << "the channel is not the saved one";
    controller.redo();
    EXPECT_EQ(state.bChange, 0) << "it is the saved one";
}

TEST_F(UndoTest, AsksBeforeALoadForWhatIsParkedBehindADawMode) {
    window.combo_chan.choose(7);
    editor.chooseMode(4);
    save(editor, file);  // a preset of Logic mode: the channel is not in it
    EXPECT_EQ(state.bChange, 0);
    window.locker.click();
    controller.undo();
    EXPECT_EQ(state.bChange, 1);
    controller.undo();
    EXPECT_EQ(state.bChange, 1);
    controller.undo();
    EXPECT_EQ(state.bChange, 0) << "nothing is left to be lost";
    controller.redo();
    controller.redo();
    EXPECT_EQ(state.modes.machn_mod, logicMode);
    EXPECT_EQ(state.bChange, 1);
}

TEST_F(UndoTest, KeepsTheFlagThatAChangeAndItsOppositeHaveSet) {
    const int channel = editor.channelOf(0, 5);
    window.combo_chan.choose(channel + 4);
    window.combo_chan.choose(channel);
    EXPECT_EQ(state.bChange, 1);
    window.locker.click();
    controller.undo();
    EXPECT_EQ(state.bChange, 1) << "as it would be without the lock";
    save(editor, file);
    window.locker.click();
    controller.undo();
    EXPECT_EQ(state.bChange, 0);
}

TEST_F(UndoTest, AsksForPadsThatAreNotOnFile) {
    editor.usePadEditor(1, [](pad& padEditor) {
        padEditor.m_pads[0].click();
        padEditor.combo_msg.choose(padEditor.combo_msg.indexOfSelectedItem() == 5 ? 6 : 5);
    });
    EXPECT_EQ(state.bChange, 0) << "no edit of pads sets it";
    window.locker.click();
    controller.undo();
    EXPECT_EQ(state.bChange, 1);
}

// A whole configuration

TEST_F(UndoTest, TakesAWholeConfigurationOverAsOneStep) {
    config::Configuration other = document.configuration();
    config::setChannel(other.sysData, 0, 5, 11);
    config::setMode(other.sysData, 0, 5, 0x4C);
    config::setTrailerOfEveryLayer(other.sysData, config::lockOffset, 0);
    other.stores.SysBuf_usrdef[100] ^= 1;
    expectStep("Bring back unsaved work",
               [&] { controller.takeOver(other, "Bring back unsaved work"); });
    EXPECT_EQ(document.configuration(), other);
    EXPECT_EQ(window.combo_chan.indexOfSelectedItem(), 11);
    EXPECT_EQ(window.combo_type.indexOfSelectedItem(), 2);
    EXPECT_EQ(window.combo_trig.indexOfSelectedItem(), 1);
    EXPECT_EQ(window.locker.state(), 0);
    EXPECT_EQ(state.bChange, 1);
    EXPECT_EQ(window.status.stringValue().find("Done again: Bring back"), 0U);
}

TEST_F(UndoTest, TakesOverTheDawModeOfAConfiguration) {
    const config::Configuration userDefined = document.configuration();
    editor.chooseMode(5);
    const config::Configuration hui = document.configuration();
    expectStep("Back", [&] { controller.takeOver(userDefined, "Back"); });
    EXPECT_EQ(window.combo_mode.indexOfSelectedItem(), userDefinedMode);
    EXPECT_TRUE(window.combo_chan.isEnabled());
    expectStep("Forth", [&] { controller.takeOver(hui, "Forth"); });
    EXPECT_EQ(state.modes.machn_mod, huiMode);
    EXPECT_FALSE(window.combo_chan.isEnabled());
    EXPECT_EQ(window.combo_cc.numberOfItems(), 0);
}

TEST_F(UndoTest, HasNoStepForTakingOverWhatIsThere) {
    const std::size_t steps = document.numberOfSteps();
    controller.takeOver(config::Configuration(document.configuration()), "Nothing new");
    EXPECT_EQ(document.numberOfSteps(), steps);
}

// What is on file

TEST_F(UndoTest, KnowsOfWorkBehindADawModeThatIsOnNoFile) {
    EXPECT_TRUE(document.hasUnsavedWork()) << "the mode is another one than at the start";
    save(editor, file);
    EXPECT_FALSE(document.hasUnsavedWork());
    window.combo_chan.choose(9);
    editor.chooseMode(logicMode);
    save(editor, file);
    EXPECT_FALSE(document.differsFromFile());
    EXPECT_TRUE(document.hasUnsavedWork());
    controller.undo();
    controller.undo();
    editor.chooseMode(logicMode);
    EXPECT_FALSE(document.hasUnsavedWork());
}

// Who listens

TEST_F(UndoTest, TellsOfEveryChangeAndOfNothingElse) {
    int told = 0;
    document.onChange = [&] { ++told; };
    const auto toldBy = [&](auto act) {
        told = 0;
        act();
        return told;
    };
    EXPECT_EQ(toldBy([&] { editor.click(9); }), 0);
    EXPECT_EQ(toldBy([&] { editor.clickModeLayer(2); }), 0);
    EXPECT_EQ(toldBy([&] { window.combo_chan.choose(9); }), 1);
    EXPECT_EQ(toldBy([&] { window.combo_chan.choose(10); }), 1) << "the same step, another end";
    EXPECT_EQ(toldBy([&] { controller.undo(); }), 1);
    EXPECT_EQ(toldBy([&] { controller.redo(); }), 1);
    EXPECT_EQ(toldBy([&] { save(editor, file); }), 1) << "it is on file now";
    EXPECT_EQ(toldBy([&] { load(editor, file); }), 1);
}

// Room

TEST_F(UndoTest, KeepsTenThousandOfTheLargestSteps) {
    std::mt19937 random(1);
    const auto any = [&random] { return static_cast<std::uint8_t>(random() & 0x7F); };
    std::vector<config::Configuration> different(10, document.configuration());
    for (config::Configuration& other : different) {
        std::generate(other.sysData.begin() + 7, other.sysData.begin() + 1016, any);
        std::generate(other.stores.SysBuf_usrdef.begin(), other.stores.SysBuf_usrdef.end(), any);
    }
    const std::size_t steps = document.numberOfSteps();
    for (std::size_t step = 0; step < 10'000; ++step) {
        document.takeOver(different.at(step % different.size()),
                          "Strip 3, Solo: control change 64 Sustain");
    }
    EXPECT_LT(document.memory(), std::size_t{64} << 20);
    EXPECT_GT(document.memory(), std::size_t{10'000} * 2'000) << "nearly everything differs";
    EXPECT_EQ(document.numberOfSteps(), steps + 10'000);
    for (int step = 0; step < 10'000; ++step) {
        document.undo();
    }
    EXPECT_EQ(now(), before);
}

}  // namespace
}  // namespace editor
