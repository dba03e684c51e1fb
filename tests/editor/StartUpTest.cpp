#include <gtest/gtest.h>

#include "config/buildImageAndStores.h"
#include "editor/TestEditor.h"
#include "tables/data.h"

namespace editor {
namespace {

using tables::data;

TEST(StartUp, ConstructionSelectsControlZeroAndForgetsEverythingElse) {
    TestEditor other;  // for its parts
    EditorState state;
    state.selection.keyEvnt = 12;
    state.selection.keyEvnt_bak = 13;
    state.selection.msg_Typ = 2;
    state.selection.selTag2 = 1;
    state.layers.layrData = 3;
    state.layers.m_moLa = 2;
    state.layers.m_moLa_bakup = 2;
    state.layers.m_paLa = 1;
    state.layers.varPaLaDwn = 1;
    state.pads.pad_modal = 1;
    MainWindow window;
    const mainController controller(state, window, other.desktop, other.devices, other.firmware);

    EXPECT_EQ(state.selection.selTag2, 127);
    EXPECT_EQ(state.selection.keyEvnt, 0);
    EXPECT_EQ(state.selection.keyEvnt_bak, 0);
    EXPECT_EQ(state.selection.msg_Typ, 0);
    EXPECT_EQ(state.layers.layrData, 0);
    EXPECT_EQ(state.layers.m_moLa, 0);
    EXPECT_EQ(state.layers.m_moLa_bakup, 0);
    EXPECT_EQ(state.layers.m_paLa, 0);
    EXPECT_EQ(state.layers.varPaLaDwn, 0);
    EXPECT_EQ(state.pads.pad_modal, 0);
    EXPECT_EQ(state.isInit, 0);
    EXPECT_EQ(state.bChange, 0);
}

TEST(StartUp, ConstructionShowsTheLockOfTheImageItBuilds) {
    TestEditor other;
    EditorState state;
    MainWindow window;
    ASSERT_EQ(window.locker.state(), 0);
    const mainController controller(state, window, other.desktop, other.devices, other.firmware);
    EXPECT_EQ(state.sysData.at(250), 1);
    EXPECT_EQ(window.locker.state(), 1);
}

TEST(StartUp, ConstructionBuildsTheImageAndBothStores) {
    TestEditor other;
    EditorState state;
    MainWindow window;
    const mainController controller(state, window, other.desktop, other.devices, other.firmware);

    constexpr std::array<std::uint8_t, 6> header = {0xF0, 0x1D, 0x03, 0x00, 0x69, 0x4E};
    const auto image = [&](int layer, int offset) {
        return int{state.sysData.at(position(layer, offset))};
    };
    for (int layer = 0; layer < 4; ++layer) {
        for (std::size_t i = 0; i < header.size(); ++i) {
            EXPECT_EQ(image(layer, static_cast<int>(i)), header.at(i));
        }
        EXPECT_EQ(image(layer, 6), layer + 1);
        EXPECT_EQ(image(layer, 247), layer == 0 ? 0x7F : 1);
        EXPECT_EQ(image(layer, 248), 1);
        EXPECT_EQ(image(layer, 249), layer == 0 ? 100 : 64);
        EXPECT_EQ(image(layer, 250), 1);
        EXPECT_EQ(image(layer, 251), 0);
        EXPECT_EQ(image(layer, 252), 0);
        EXPECT_EQ(image(layer, 253), 0xF7);
    }
    // The third fader of layer 2: pitch bend for the hosts, control change for the user.
    EXPECT_EQ(image(2, 7 + 59), 3);
    EXPECT_EQ(image(2, 87 + 59), 0x3B);
    EXPECT_EQ(image(2, 167 + 59), 0x0E);
    EXPECT_EQ(state.stores.SysBuf_MCP.at(position(2, 167 + 59)), 0x0E);
    EXPECT_EQ(state.stores.SysBuf_usrdef.at(2 * 247 + 167 + 59), 0x0B);
    // The four buttons of strip 5.
    EXPECT_EQ(image(0, 87 + 20), 0x1D);
    EXPECT_EQ(image(0, 87 + 21), 0x0D);
    EXPECT_EQ(image(0, 87 + 22), 0x15);
    EXPECT_EQ(image(0, 87 + 23), 0x05);
}

TEST(StartUp, TheLockButtonShowsTheFreshImagesLock) {
    const TestEditor editor;
    EXPECT_EQ(editor.window.locker.state(), 1);
}

TEST(StartUp, TheProgramHasItsName) {
    const TestEditor editor;
    EXPECT_EQ(editor.controller.prog_name(), "Tormelk Wyro");
    EXPECT_EQ(editor.window.window.title(), "Tormelk Wyro");
}

TEST(StartUp, EveryButtonCarriesItsTag) {
    const TestEditor editor;
    ASSERT_EQ(editor.window.keysOrderedByTag.size(), 74U);
    for (std::size_t i = 0; i < 74; ++i) {
        EXPECT_EQ(editor.window.keysOrderedByTag.at(i).tag(), static_cast<int>(i));
    }
    ASSERT_EQ(editor.window.moLaCtrls.size(), 4U);
    ASSERT_EQ(editor.window.paLaCtrls.size(), 4U);
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(editor.window.moLaCtrls.at(i).tag(), 32 + static_cast<int>(i));
        EXPECT_EQ(editor.window.paLaCtrls.at(i).tag(), 36 + static_cast<int>(i));
    }
}

TEST(StartUp, TheBoxesAreFilled) {
    const TestEditor editor;
    EXPECT_EQ(itemsOf(editor.window.combo_chan), itemsOf(data::Chan()));
    EXPECT_EQ(itemsOf(editor.window.combo_trig), itemsOf(data::TrigMod()));
    EXPECT_EQ(itemsOf(editor.window.combo_type), itemsOf(data::msgTyp()));
    EXPECT_EQ(itemsOf(editor.window.combo_mode), itemsOf(data::Machin_Mod()));
    EXPECT_EQ(itemsOf(editor.window.combo_cc), itemsOf(data::ND()));
}

TEST(StartUp, TheEditorStartsInNuendoModeWithItsPropertyBoxesDisabled) {
    const TestEditor editor;
    EXPECT_EQ(editor.state.modes.machn_mod, 1);
    EXPECT_EQ(editor.window.combo_mode.indexOfSelectedItem(), 1);
    EXPECT_EQ(editor.state.modes.sysExData_modeBackup, 1);
    EXPECT_TRUE(editor.window.combo_mode.isEnabled());
    EXPECT_FALSE(editor.window.combo_chan.isEnabled());
    EXPECT_FALSE(editor.window.combo_type.isEnabled());
    EXPECT_FALSE(editor.window.combo_cc.isEnabled());
    EXPECT_FALSE(editor.window.combo_trig.isEnabled());
    EXPECT_EQ(editor.state.isInit, 1);
}

TEST(StartUp, WakingWritesTheModeOfTheFirstBlockOnly) {
    TestEditor editor;
    for (int layer = 0; layer < 4; ++layer) {
        editor.byte(layer, 248) = 0;
    }
    editor.window.combo_cc.removeAllItems();
    editor.controller.awakeFromNib();
    EXPECT_EQ(editor.byte(0, 248), 1);
    EXPECT_EQ(editor.byte(1, 248), 0);
    EXPECT_EQ(editor.byte(2, 248), 0);
    EXPECT_EQ(editor.byte(3, 248), 0);
}

TEST(StartUp, WakingShowsNoAssignmentYet) {
    const TestEditor editor;
    EXPECT_EQ(editor.window.combo_chan.indexOfSelectedItem(), -1);
    EXPECT_EQ(editor.window.combo_type.indexOfSelectedItem(), -1);
    EXPECT_EQ(editor.window.combo_cc.indexOfSelectedItem(), -1);
    EXPECT_EQ(editor.window.combo_trig.indexOfSelectedItem(), -1);
}

TEST(StartUp, WakingChangesNoByteOfTheFreshImage) {
    EditorState fresh;
    config::buildImageAndStores(fresh.sysData, fresh.stores);
    const TestEditor editor;
    EXPECT_EQ(editor.state.sysData, fresh.sysData);
}

using StartUpAfterLoad = EditorTest;

void putMode(TestEditor& editor, int mode) {
    for (int layer = 0; layer < 4; ++layer) {
        editor.byte(layer, 248) = static_cast<std::uint8_t>(mode);
    }
}

TEST_F(StartUpAfterLoad, TheAllChoicesOfEveryLayerAreForgotten) {
    for (int layer = 0; layer < 4; ++layer) {
        state.layers.bTrigAll.set(layer, true);
        state.pads.abChAll.set(layer, true);
    }
    controller.update_Aft_LoadFile();
    for (int layer = 0; layer < 4; ++layer) {
        EXPECT_FALSE(state.layers.bTrigAll.isSet(layer));
        EXPECT_FALSE(state.pads.abChAll.isSet(layer));
    }
}

TEST_F(StartUpAfterLoad, AHostsModeDisablesThreeBoxesAndLeavesTheTriggerBoxAlone) {
    for (toolkit::ComboBox* box :
         {&window.combo_type, &window.combo_chan, &window.combo_cc, &window.combo_trig}) {
        box->setEnabled(true);
    }
    putMode(editor, 3);
    controller.update_Aft_LoadFile();
    EXPECT_FALSE(window.combo_type.isEnabled());
    EXPECT_FALSE(window.combo_chan.isEnabled());
    EXPECT_FALSE(window.combo_cc.isEnabled());
    EXPECT_TRUE(window.combo_trig.isEnabled());
}

TEST_F(StartUpAfterLoad, EveryHostOfTheFourShowsTheNuendoFunctions) {
    for (int mode = 1; mode <= 4; ++mode) {
        putMode(editor, mode);
        controller.update_Aft_LoadFile();
        EXPECT_EQ(itemsOf(window.combo_cc), itemsOf(data::ND())) << "mode " << mode;
    }
}

TEST_F(StartUpAfterLoad, HuiModeOffersNoValues) {
    putMode(editor, 5);
    controller.update_Aft_LoadFile();
    EXPECT_EQ(window.combo_cc.numberOfItems(), 0);
    EXPECT_FALSE(window.combo_cc.isEnabled());
}

TEST_F(StartUpAfterLoad, UserDefinedModeEnablesThreeBoxes) {
    window.combo_trig.setEnabled(false);
    putMode(editor, 0);
    controller.update_Aft_LoadFile();
    EXPECT_TRUE(window.combo_type.isEnabled());
    EXPECT_TRUE(window.combo_chan.isEnabled());
    EXPECT_TRUE(window.combo_cc.isEnabled());
    EXPECT_FALSE(window.combo_trig.isEnabled());
}

TEST_F(StartUpAfterLoad, TheModeBoxShowsTheModeOfTheFirstBlock) {
    for (int mode = 0; mode <= 5; ++mode) {
        putMode(editor, 5 - mode);
        editor.byte(0, 248) = static_cast<std::uint8_t>(mode);
        controller.update_Aft_LoadFile();
        EXPECT_EQ(window.combo_mode.indexOfSelectedItem(), mode);
        EXPECT_EQ(state.modes.sysExData_modeBackup, mode);
        EXPECT_EQ(state.modes.machn_mod, mode);
    }
}

TEST_F(StartUpAfterLoad, AnUnknownModeIsKeptAndShownAsNone) {
    putMode(editor, 9);
    controller.update_Aft_LoadFile();
    EXPECT_EQ(window.combo_mode.indexOfSelectedItem(), -1);
    EXPECT_EQ(state.modes.sysExData_modeBackup, 9);
    EXPECT_EQ(state.modes.machn_mod, 9);
    EXPECT_EQ(window.combo_cc.numberOfItems(), 0);
    EXPECT_FALSE(window.combo_type.isEnabled());
}

TEST_F(StartUpAfterLoad, TheKindIsJudgedOnlyOnceTheWindowIsAwake) {
    putMode(editor, 4);
    editor.statusOf(0, 0) = 0x4C;
    state.isInit = 0;
    controller.update_Aft_LoadFile();
    EXPECT_EQ(state.modes.machn_mod, 1);
    EXPECT_EQ(editor.statusOf(0, 0), 0x4C);

    state.isInit = 1;
    controller.update_Aft_LoadFile();
    EXPECT_EQ(state.modes.machn_mod, 4);
    EXPECT_EQ(editor.statusOf(0, 0), 0x49);
}

TEST_F(StartUpAfterLoad, TheSelectedControlsValueAndChannelAreShown) {
    putMode(editor, 0);
    state.selection.keyEvnt = 20;
    state.layers.layrData = 2;
    editor.statusOf(2, 20) = 0x0B;
    editor.numberOf(2, 20) = 74;
    editor.channelOf(2, 20) = 11;
    controller.update_Aft_LoadFile();
    EXPECT_EQ(itemsOf(window.combo_cc), itemsOf(data::CC()));
    EXPECT_EQ(window.combo_cc.indexOfSelectedItem(), 74);
    EXPECT_EQ(window.combo_chan.indexOfSelectedItem(), 11);
    EXPECT_EQ(window.combo_type.indexOfSelectedItem(), 1);
}

TEST_F(StartUpAfterLoad, TheLockButtonShowsTheLoadedLock) {
    for (int layer = 0; layer < 4; ++layer) {
        editor.byte(layer, 250) = 0;
    }
    controller.update_Aft_LoadFile();
    EXPECT_EQ(window.locker.state(), 0);
}

TEST_F(StartUpAfterLoad, JudgeEnablesTypeChannelAndValueBox) {
    window.combo_trig.setEnabled(false);
    controller.judge();
    EXPECT_TRUE(window.combo_type.isEnabled());
    EXPECT_TRUE(window.combo_chan.isEnabled());
    EXPECT_TRUE(window.combo_cc.isEnabled());
    EXPECT_FALSE(window.combo_trig.isEnabled());
}

}  // namespace
}  // namespace editor
