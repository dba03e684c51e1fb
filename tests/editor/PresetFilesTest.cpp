#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>

#include "editor/PresetFiles.h"
#include "files/ChildProcess.h"
#include "tables/data.h"

// Load: a preset file becomes the image. What is refused is in PresetRefusalTest.cpp, Save in
// PresetSavingTest.cpp.

namespace editor {
namespace {

namespace journal = support::journal;
using files::write;
using testing::ElementsAre;
using toolkit::Alert;
using toolkit::AlertAnswer;

const std::string openPanelShown = journal::openPanel({"Tormelk", {"Tormelk"}});
const Alert confirm{"Confirm",
                    "Your changes on User-Defined Mode hasn't been saved.\n\nLoad file continue?",
                    "OK", "Cancel"};
const Alert cancelled{"LoadFile", "LoadFile Cancel!", "OK", ""};

class Loading : public PresetTest {
protected:
    /// Writes the preset and loads it.
    void loadPreset(const config::Image& preset) {
        write(file, formattedPreset(preset));
        load(editor, file);
    }

    /// Expects the image to be `preset` in every byte but those at the given places.
    void expectImage(config::Image preset, const std::vector<std::size_t>& except) {
        for (const std::size_t place : except) {
            preset.at(place) = state.sysData.at(place);
        }
        EXPECT_EQ(formattedPreset(state.sysData), formattedPreset(preset));
    }

    /// The bytes that say the mode; a load writes them itself.
    const std::vector<std::size_t> modeBytes{248, 502, 756, 1010};

    void expectMode(int mode) {
        for (const std::size_t place : modeBytes) {
            EXPECT_EQ(state.sysData.at(place), mode) << place;
        }
        EXPECT_EQ(state.modes.machn_mod, mode);
        EXPECT_EQ(state.modes.sysExData_modeBackup, mode);
        EXPECT_EQ(window.combo_mode.indexOfSelectedItem(), mode);
    }

    void expectStoreHolds(const config::Image& image) {
        for (std::size_t layer = 0; layer < 4; ++layer) {
            for (std::size_t i = 0; i < 247; ++i) {
                EXPECT_EQ(state.stores.SysBuf_usrdef.at(247 * layer + i), image.at(254 * layer + i))
                    << "layer " << layer << " byte " << i;
            }
        }
    }
};

class LoadingInUserDefined : public Loading {
protected:
    LoadingInUserDefined() {
        editor.chooseMode(0);
        state.bChange = 0;
    }
};

TEST_F(Loading, AsksForAFileAndLoadsWithoutAWord) {
    loadPreset(state.sysData);
    EXPECT_THAT(desktop.journal(), ElementsAre(openPanelShown));
}

TEST_F(Loading, DoesNothingWhenThePanelIsCancelled) {
    state.bChange = 1;
    const std::string before = everythingIn(editor);
    desktop.answerOpenPanel(std::nullopt);
    controller.loadFile();
    EXPECT_THAT(desktop.journal(), ElementsAre(openPanelShown));
    EXPECT_EQ(everythingIn(editor), before);
}

TEST_F(Loading, ASavedFreshImageComesBackIdentically) {
    const config::Image fresh = state.sysData;
    state.bChange = 1;
    save(editor, file);
    std::fill(state.sysData.begin() + 5, state.sysData.end(), std::uint8_t{1});
    load(editor, file);
    expectImage(fresh, {});
    EXPECT_EQ(state.bChange, 0);
}

TEST_F(LoadingInUserDefined, AThousandRandomImagesComeBackIdentically) {
    const files::TemporaryFolder quick(files::parentInMemory());
    for (unsigned seed = 0; seed < 1000; ++seed) {
        const config::Image preset = randomPreset(seed, 0);
        state.sysData = preset;
        save(editor, quick / "file");
        state.sysData = randomPreset(seed + 1, 0);
        load(editor, quick / "file");
        expectImage(preset, modeBytes);
        expectMode(0);
    }
}

TEST_F(Loading, AnImageThatIsTheFilesInEveryByteIsNotMarkedAsChanged) {
    EXPECT_FALSE(controller.isImageEdited()) << "as it starts";
    editor.chooseMode(0);
    EXPECT_TRUE(controller.isImageEdited());
    save(editor, file);
    EXPECT_FALSE(controller.isImageEdited());
    window.combo_chan.choose(3);
    EXPECT_TRUE(controller.isImageEdited());
    desktop.answerAlert();
    load(editor, file);
    EXPECT_FALSE(controller.isImageEdited());
}

TEST_F(Loading, AnImageOfWhichALoadRewritesAByteIsMarkedAsChanged) {
    // With nothing selected, and with the control selected whose kind the load writes.
    for (const auto& [selected, rewritten] : {std::pair(noControl, 294U), std::pair(57, 224U)}) {
        state.selection.keyEvnt = selected;
        config::Image preset = state.sysData;
        for (const std::size_t place : modeBytes) {
            preset.at(place) = 4;
        }
        preset.at(rewritten) = 0x4B;
        state.sysData = preset;
        save(editor, file);
        EXPECT_FALSE(controller.isImageEdited());
        load(editor, file);
        ASSERT_NE(state.sysData.at(rewritten), preset.at(rewritten));
        expectImage(preset, {rewritten});
        EXPECT_TRUE(controller.isImageEdited());
        save(editor, file);
        EXPECT_FALSE(controller.isImageEdited());
    }
}

TEST_F(Loading, ALogicPresetIsMarkedAsChangedOnceItIsLoaded) {
    editor.chooseMode(4);
    save(editor, file);
    EXPECT_FALSE(controller.isImageEdited());
    load(editor, file);
    EXPECT_NE(files::contents(file), formattedPreset(state.sysData));
    EXPECT_TRUE(controller.isImageEdited());
}

TEST_F(Loading, ARefusedFileLeavesTheMarkAsItWas) {
    write(file, "no preset");
    for (const bool edited : {false, true}) {
        if (edited) {
            editor.chooseMode(0);
        }
        desktop.answerAlert();
        load(editor, file);
        EXPECT_EQ(controller.isImageEdited(), edited);
    }
}

TEST_F(Loading, LeavesTheFileAsItWas) {
    const std::string text = formattedPreset(state.sysData);
    write(file, text);
    load(editor, file);
    EXPECT_EQ(files::contents(file), text);
    EXPECT_THAT(folder.names(), ElementsAre("My preset.Tormelk"));
}

TEST_F(Loading, KeepsTheLowEightBitsOfEveryValue) {
    const config::Image preset = randomPreset(7, 0);
    std::string text;
    for (int i = 0; i < 1016; ++i) {
        const int step = (i % 2001 - 1000) * 256;
        text += std::to_string(preset.at(static_cast<std::size_t>(i)) + step) + '\n';
    }
    write(file, text);
    load(editor, file);
    expectImage(preset, modeBytes);
}

TEST_F(Loading, ComparesNothingBehindTheFirstFiveBytes) {
    config::Image preset = randomPreset(11, 0);
    for (const std::size_t place : {5U, 6U, 253U, 254U, 260U, 507U, 1015U}) {
        preset.at(place) = 0xAA;
    }
    loadPreset(preset);
    expectImage(preset, modeBytes);
    EXPECT_THAT(desktop.alerts(), testing::IsEmpty());
}

TEST_F(LoadingInUserDefined, ALogicPresetKeepsTheUsersConfigurationFirstAndThenShowsLogic) {
    window.combo_chan.choose(5);
    window.combo_cc.choose(77);
    state.bChange = 0;
    const config::Image users = state.sysData;
    state.stores.SysBuf_usrdef.fill(0xEE);
    const config::Image preset = randomPreset(3, 4);
    loadPreset(preset);
    expectStoreHolds(users);
    expectMode(4);
    EXPECT_EQ(window.combo_mode.itemObjectValueAtIndex(4), "Logic mode(MCP)");
    // The file's own assignments, not the factory's; a host's mode makes the selected control
    // send notes.
    std::vector<std::size_t> except = modeBytes;
    except.push_back(167);
    expectImage(preset, except);
    EXPECT_EQ(state.sysData.at(167), (preset.at(167) & 0xE0) | 9);
    EXPECT_EQ(state.bChange, 0);
}

TEST_F(LoadingInUserDefined, AUserDefinedPresetKeepsTheUsersConfigurationFirst) {
    const config::Image users = randomPreset(21, 0);
    state.sysData = users;
    state.stores.SysBuf_usrdef.fill(0xEE);
    loadPreset(randomPreset(22, 0));
    expectStoreHolds(users);
    expectMode(0);
}

TEST_F(Loading, FromAHostsModeTheUsersStoreIsLeftAlone) {
    state.stores.SysBuf_usrdef.fill(0xEE);
    const auto before = state.stores.SysBuf_usrdef;
    for (const int mode : {0, 1, 5}) {
        state.modes.machn_mod = 2;
        loadPreset(randomPreset(5, mode));
        EXPECT_EQ(state.stores.SysBuf_usrdef, before);
        expectMode(mode);
    }
}

TEST_F(LoadingInUserDefined, AnEmptyMarkThatWasLoadedEmptiesTheStoreAtTheNextLoad) {
    config::Image preset = randomPreset(9, 0);
    preset.at(246) = 0;
    loadPreset(preset);
    loadPreset(randomPreset(10, 1));
    EXPECT_FALSE(state.stores.userDefinedHoldsData());
    editor.chooseMode(0);
    EXPECT_EQ(window.window.title(), "Tormelk  - usrdefmoddatNull");
}

TEST_F(LoadingInUserDefined, WithUnsavedChangesAHostsPresetIsLoadedWithoutAsking) {
    window.combo_chan.choose(3);
    ASSERT_EQ(state.bChange, 1);
    const config::Image users = state.sysData;
    loadPreset(randomPreset(4, 1));
    EXPECT_THAT(desktop.alerts(), testing::IsEmpty());
    expectMode(1);
    expectStoreHolds(users);
    EXPECT_EQ(state.bChange, 0);
}

TEST_F(LoadingInUserDefined, WithUnsavedChangesAUserDefinedPresetIsAskedForFirst) {
    window.combo_cc.choose(3);
    ASSERT_EQ(state.bChange, 1);
    config::Image preset = randomPreset(4, 0);
    state.stores.SysBuf_usrdef.fill(0xEE);
    const auto store = state.stores.SysBuf_usrdef;
    const std::string before = everythingIn(editor);
    desktop.onAlert([&](const Alert&) {
        EXPECT_EQ(everythingIn(editor), before) << "nothing changes before the answer";
        return AlertAnswer::Default;
    });
    desktop.clearJournal();
    loadPreset(preset);
    EXPECT_THAT(desktop.journal(), ElementsAre(openPanelShown, journal::alert(confirm)));
    expectImage(preset, modeBytes);
    expectMode(0);
    EXPECT_EQ(state.stores.SysBuf_usrdef, store) << "the store is not touched";
    EXPECT_EQ(state.bChange, 0);
}

TEST_F(LoadingInUserDefined, WhoCancelsKeepsTheUnsavedChanges) {
    window.combo_cc.choose(3);
    const std::string before = everythingIn(editor);
    desktop.answerAlert(AlertAnswer::Alternate);
    desktop.answerAlert();
    desktop.clearJournal();
    loadPreset(randomPreset(4, 0));
    EXPECT_THAT(desktop.journal(),
                ElementsAre(openPanelShown, journal::alert(confirm), journal::alert(cancelled)));
    EXPECT_EQ(everythingIn(editor), before);
    EXPECT_EQ(state.bChange, 1);
}

TEST_F(Loading, AsksAboutUnsavedChangesInAHostsModeToo) {
    state.bChange = 1;
    const auto store = state.stores.SysBuf_usrdef;
    desktop.answerAlert();
    loadPreset(randomPreset(4, 0));
    EXPECT_THAT(desktop.alerts(), ElementsAre(confirm));
    expectMode(0);
    EXPECT_EQ(state.stores.SysBuf_usrdef, store);
}

TEST_F(LoadingInUserDefined, DoesNotAskAboutKindsTriggersAndPads) {
    window.combo_type.choose(1);
    window.combo_trig.choose(1);
    editor.usePadEditor(1, [](pad& padEditor) {
        padEditor.combo_curv.choose(padEditor.combo_curv.indexOfSelectedItem() == 0 ? 1 : 0);
    });
    window.locker.click();
    ASSERT_EQ(state.bChange, 0);
    loadPreset(randomPreset(4, 0));
    EXPECT_THAT(desktop.alerts(), testing::IsEmpty());
    expectMode(0);
}

TEST_F(LoadingInUserDefined, TheSelectedControlIsShownAfresh) {
    editor.click(20);
    config::Image preset = state.sysData;
    preset.at(7 + 20) = 9;
    preset.at(87 + 20) = 101;
    preset.at(167 + 20) = 0x4B;
    loadPreset(preset);
    EXPECT_EQ(state.selection.keyEvnt, 20);
    EXPECT_EQ(window.combo_type.indexOfSelectedItem(), 1);
    EXPECT_EQ(window.combo_chan.indexOfSelectedItem(), 9);
    EXPECT_EQ(window.combo_cc.indexOfSelectedItem(), 101);
    EXPECT_EQ(window.combo_trig.indexOfSelectedItem(), 1);
    EXPECT_EQ(state.selection.msg_Typ, kindControlChange);
    EXPECT_EQ(editor.litControls(), std::set{20});
}

TEST_F(Loading, WithNothingSelectedNothingIsShownAfresh) {
    state.selection.keyEvnt = noControl;
    state.selection.keyEvnt_bak = 33;
    window.keysOrderedByTag.at(12).setState(1);
    const config::Image preset = randomPreset(4, 2);
    loadPreset(preset);
    EXPECT_EQ(state.selection.keyEvnt, noControl);
    EXPECT_EQ(state.selection.keyEvnt_bak, 33);
    EXPECT_EQ(window.keysOrderedByTag.at(12).state(), 1);
    // A host's mode writes a note kind for "no control" too, 127 places behind the first.
    std::vector<std::size_t> except = modeBytes;
    except.push_back(294);
    expectImage(preset, except);
    EXPECT_EQ(state.sysData.at(294), (preset.at(294) & 0xE0) | 9);
}

TEST_F(LoadingInUserDefined, TheTriggerLampFollowsThePresetEvenWithNothingSelected) {
    state.selection.keyEvnt = noControl;
    config::Image preset = randomPreset(7, 0);
    for (const int byte : {0, 9, 0}) {
        preset.at(73) = static_cast<std::uint8_t>(byte);
        loadPreset(preset);
        EXPECT_EQ(window.trigger.state(), byte != 0 ? 1 : 0);
    }
}

TEST_F(LoadingInUserDefined, AHostsPresetLeavesTheBoxesWithTheHostsFunctionsAndDisabled) {
    state.selection.keyEvnt = noControl;
    for (const int mode : {1, 2, 3, 4}) {
        loadPreset(randomPreset(6, mode));
        EXPECT_EQ(itemsOf(window.combo_cc), itemsOf(tables::data::ND())) << mode;
        EXPECT_FALSE(window.combo_type.isEnabled());
        EXPECT_FALSE(window.combo_chan.isEnabled());
        EXPECT_FALSE(window.combo_cc.isEnabled());
        EXPECT_FALSE(window.combo_trig.isEnabled());
        window.combo_trig.setEnabled(true);
    }
    loadPreset(randomPreset(6, 5));
    EXPECT_EQ(window.combo_cc.numberOfItems(), 0);
    loadPreset(randomPreset(6, 0));
    EXPECT_TRUE(window.combo_type.isEnabled());
    EXPECT_TRUE(window.combo_chan.isEnabled());
    EXPECT_TRUE(window.combo_cc.isEnabled());
}

TEST_F(LoadingInUserDefined, TheAllChoicesAreForgotten) {
    for (int layer = 0; layer < 4; ++layer) {
        state.layers.bTrigAll.set(layer, true);
        state.pads.abChAll.set(layer, true);
    }
    loadPreset(randomPreset(6, 0));
    for (int layer = 0; layer < 4; ++layer) {
        EXPECT_FALSE(state.layers.bTrigAll.isSet(layer));
        EXPECT_FALSE(state.pads.abChAll.isSet(layer));
    }
}

TEST_F(Loading, IntoOneEditorLeavesTheOtherAlone) {
    const TestEditor other;
    const std::string before = everythingIn(other);
    loadPreset(randomPreset(6, 0));
    EXPECT_EQ(everythingIn(other), before);
}

/// Presets may hold any bytes; whatever a person then does must end well.
TEST_F(Loading, APresetOfAnyBytesCanBeEditedSavedAndReplaced) {
    for (unsigned seed = 0; seed < 60; ++seed) {
        state.bChange = 0;
        config::Image preset = randomPreset(seed, 0);
        preset.at(248) = static_cast<std::uint8_t>(seed < 8 ? seed : seed * 37);
        loadPreset(preset);
        for (int control = 0; control < 74; ++control) {
            editor.click(control);
            for (toolkit::ComboBox* box :
                 {&window.combo_type, &window.combo_chan, &window.combo_cc, &window.combo_trig}) {
                box->choose((control * 7) % std::max(1, box->numberOfItems()));
            }
        }
        for (int layer = 0; layer < 4; ++layer) {
            editor.clickModeLayer(layer);
        }
        editor.chooseMode(static_cast<int>(seed % 6));
        window.locker.click();
        save(editor, file);
        EXPECT_EQ(files::contents(file), formattedPreset(state.sysData));
    }
}

}  // namespace
}  // namespace editor
