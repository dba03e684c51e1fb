#include "editor/UnsavedWork.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <chrono>

#include "editor/PresetFiles.h"
#include "files/CallScript.h"
#include "firmware/firm.h"
#include "rescue/copyNames.h"
#include "rescue/words.h"

namespace editor {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using rescue::Leftover;
using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

constexpr int sixthControl = 5;

rescue::Work workIn(const EditorState& state) {
    return rescue::workOf(state.sysData, state.stores);
}

std::string timeOf(const Leftover& offer) {
    return rescue::whenWords(offer.written, std::chrono::system_clock::now());
}

class UnsavedWorkTest : public PresetTest {
protected:
    UnsavedWorkTest() {
        unsavedWork.onWait = [this] { ++news; };
    }

    /// The time passes, and the clock of the owner wakes it where it was told to.
    void pass(std::chrono::milliseconds time) {
        now += time;
        if (const auto wait = unsavedWork.wait(); wait && *wait == 0ms) {
            unsavedWork.timePassed();
        }
    }
    void change(int channel) {
        if (state.modes.machn_mod != userDefinedMode) {
            editor.chooseMode(userDefinedMode);
        }
        editor.click(sixthControl);
        window.combo_chan.choose(channel);
    }
    /// What an editor that is started now would offer.
    [[nodiscard]] std::vector<Leftover> onDisk() const {
        const rescue::Findings findings = rescue::lookInto(place);
        return findings.leftovers;
    }
    [[nodiscard]] bool isHeld() const { return fs::exists(place); }
    [[nodiscard]] std::string status() const { return window.status.stringValue(); }

    /// Another editor that works with this channel, and comes to its end. Returns its work.
    rescue::Work leaveBehind(int channel, int mode = userDefinedMode) const {
        TestEditor other;
        UnsavedWork its(other.controller, other.window, place);
        other.chooseMode(userDefinedMode);
        other.click(sixthControl);
        other.window.combo_chan.choose(channel);
        other.chooseMode(mode);
        its.end();
        return workIn(other.state);
    }
    /// What is offered now; there must be something.
    Leftover offer(std::size_t index = 0) {
        unsavedWork.look();
        return unsavedWork.offers().at(index);
    }

    const fs::path place = folder / "state" / "tormelk-wyro";
    UnsavedWork::Time now{1h};
    int news = 0;
    UnsavedWork unsavedWork{controller, window, place, [this] { return now; }};
};

// Keeping

TEST_F(UnsavedWorkTest, LeavesNoFileWhereNothingWasChanged) {
    unsavedWork.lookAround();
    editor.click(9);
    editor.clickModeLayer(2);
    EXPECT_FALSE(unsavedWork.wait());
    unsavedWork.end();
    EXPECT_THAT(folder.names(), IsEmpty());
}

TEST_F(UnsavedWorkTest, LiesOnDiskTwoSecondsAfterAChangeAndNothingIsToBeDoneThen) {
    change(7);
    EXPECT_GT(news, 0) << "the owner hears of it";
    ASSERT_TRUE(unsavedWork.wait());
    EXPECT_LE(*unsavedWork.wait(), 2s);
    EXPECT_FALSE(isHeld());
    pass(2s);
    EXPECT_FALSE(unsavedWork.wait());
    EXPECT_TRUE(isHeld());
    pass(1h);
    change(8);
    EXPECT_TRUE(unsavedWork.wait());
}

TEST_F(UnsavedWorkTest, IsKeptWhileAPersonGoesOnAndOn) {
    for (int step = 0; step < 20; ++step) {
        change(step % 16);
        pass(200ms);
    }
    EXPECT_TRUE(isHeld());
}

TEST_F(UnsavedWorkTest, GoesFromDiskWhenItIsSaved) {
    change(7);
    pass(2s);
    save(editor, file);
    pass(0s);
    EXPECT_FALSE(isHeld());
    EXPECT_FALSE(unsavedWork.wait());
}

TEST_F(UnsavedWorkTest, GoesFromDiskWhenItIsUndoneToTheStart) {
    change(7);
    pass(2s);
    while (controller.canUndo()) {
        controller.undo();
    }
    pass(0s);
    EXPECT_FALSE(isHeld());
    controller.redo();
    pass(2s);
    EXPECT_TRUE(isHeld());
}

TEST_F(UnsavedWorkTest, GoesFromDiskWhenAPresetIsLoadedInstead) {
    save(editor, file);
    state.sysData.at(position(0, 90)) = 99;
    editor.window.locker.click();
    pass(2s);
    EXPECT_TRUE(isHeld());
    load(editor, file);
    pass(0s);
    EXPECT_FALSE(isHeld());
}

TEST_F(UnsavedWorkTest, IsKeptAtTheEndOfTheProgramAtOnce) {
    change(7);
    unsavedWork.end();
    EXPECT_TRUE(isHeld());
}

TEST_F(UnsavedWorkTest, AreTheAssignmentsBehindADawModeToo) {
    change(7);
    editor.chooseMode(logicMode);
    save(editor, file);
    EXPECT_FALSE(controller.isImageEdited());
    pass(2s);
    EXPECT_TRUE(isHeld()) << "a preset of Logic does not hold them";
    editor.chooseMode(userDefinedMode);
    save(editor, folder / "all.Tormelk");
    pass(0s);
    EXPECT_FALSE(isHeld());
    editor.chooseMode(logicMode);
    window.locker.click();
    save(editor, file);
    pass(2s);
    EXPECT_FALSE(isHeld()) << "the assignments are on file, and so is the lock";
}

TEST_F(UnsavedWorkTest, IsWhatThePadEditorHasChanged) {
    editor.chooseMode(userDefinedMode);
    save(editor, file);
    editor.usePadEditor(1, [](pad& padEditor) { padEditor.combo_intervl.choose(20); });
    pass(2s);
    EXPECT_TRUE(isHeld());
}

// Transfers

class UnsavedWorkInATransfer : public UnsavedWorkTest {
protected:
    UnsavedWorkInATransfer() {
        editor.midiService.addDevice("Tormelk").addDestination("Port 1");
        editor.midiService.dispatch();
        editor.devices.chosen.g_outDevice =
            editor.midiProcess.sharedInstance().realDestinations().at(0).get();
    }
    /// The files now, and that nothing is going to be done to them.
    void expectAtRest() {
        const std::vector<std::string> files = files::namesIn(place);
        EXPECT_FALSE(unsavedWork.wait());
        now += 1h;
        unsavedWork.timePassed();
        EXPECT_EQ(files::namesIn(place), files);
        ++looks;
    }
    int looks = 0;
};

TEST_F(UnsavedWorkInATransfer, IsOnDiskBeforeASendAndNothingIsWrittenDuringIt) {
    change(7);
    desktop.onSleep = [this](std::chrono::duration<double>) { expectAtRest(); };
    desktop.answerAlert();
    controller.sendData();
    EXPECT_EQ(looks, 4);
}

TEST_F(UnsavedWorkInATransfer, IsOnDiskBeforeTheFirmwareWindowOpens) {
    change(7);
    desktop.onModal<firmware::firm>([this](firmware::firm& shown) {
        expectAtRest();
        shown.closeButton.click();
    });
    controller.firmware();
    EXPECT_EQ(looks, 1);
    change(8);
    EXPECT_TRUE(unsavedWork.wait());
}

TEST_F(UnsavedWorkInATransfer, IsToldAfterASendThatItCannotBeKept) {
    change(7);
    files::CallScript script;
    script.fail("mkostemp", ENOSPC, 100);
    desktop.answerAlert();
    controller.sendData();
    EXPECT_THAT(status(), StartsWith("Sent 4 layers"));
    pass(0s);
    EXPECT_EQ(status(), "Unsaved work cannot be kept: No space left on device");
    EXPECT_FALSE(unsavedWork.wait());
}

// What stands in the way

TEST_F(UnsavedWorkTest, IsSaidOnceToBeLostWhereThereIsNoSpaceAndTheEditorGoesOn) {
    files::CallScript script;
    script.fail("mkostemp", ENOSPC, 100);
    change(7);
    pass(2s);
    EXPECT_EQ(status(), "Unsaved work cannot be kept: No space left on device");
    EXPECT_FALSE(unsavedWork.wait());
    change(8);
    pass(2s);
    EXPECT_THAT(status(), HasSubstr("channel 9"));
    EXPECT_THAT(desktop.journal(), IsEmpty());
}

TEST_F(UnsavedWorkTest, IsSaidToBeLostWhereItsFolderCannotBeMade) {
    files::write(folder / "state", "in the way");
    change(7);
    pass(2s);
    EXPECT_THAT(status(), StartsWith("Unsaved work cannot be kept: "));
}

TEST_F(EditorTest, WithoutAHomeSaysThatUnsavedWorkIsLost) {
    UnsavedWork::Time now{};
    UnsavedWork unsavedWork(controller, window, std::nullopt, [&now] { return now; });
    const std::string before = window.status.stringValue();
    unsavedWork.lookAround();
    EXPECT_EQ(window.status.stringValue(), before);
    EXPECT_THAT(unsavedWork.offers(), IsEmpty());
    window.locker.click();
    now += 2s;
    unsavedWork.timePassed();
    EXPECT_EQ(window.status.stringValue(), "Unsaved work cannot be kept: There is no home folder");
    unsavedWork.end();
}

// The start

TEST_F(UnsavedWorkTest, IsOfferedAtTheStartAndNothingElseHappens) {
    leaveBehind(7);
    const std::vector<std::string> files = files::namesIn(place);
    unsavedWork.lookAround();
    EXPECT_EQ(status(), "Unsaved work from " + timeOf(offer()) +
                            " can be brought back: File > Bring Back Unsaved Work");
    TestEditor fresh;
    fresh.window.status.setStringValue(status());
    EXPECT_EQ(everythingIn(editor), everythingIn(fresh));
    EXPECT_FALSE(controller.canUndo());
    EXPECT_FALSE(unsavedWork.wait());
    EXPECT_EQ(files::namesIn(place), files);
    EXPECT_THAT(desktop.journal(), IsEmpty());
}

TEST_F(UnsavedWorkTest, IsNotSpokenOfWhereThereIsNone) {
    const std::string before = status();
    unsavedWork.lookAround();
    EXPECT_EQ(status(), before);
}

TEST_F(UnsavedWorkTest, IsOfferedOnlyByWholeCopiesAndTheOthersAreNamedInOneLine) {
    leaveBehind(7);
    const auto named = [&](const char* stem) {
        return place / rescue::fileName({stem, rescue::Part::Shown, 1});
    };
    files::write(named("unsaved-00000001"), "damaged");
    files::write(named("unsaved-00000002"), std::string(config::presetTextLimit + 1, '1'));
    fs::create_directory(named("unsaved-00000003"));
    fs::create_symlink(folder / "elsewhere", named("unsaved-00000004"));
    TestEditor living;
    UnsavedWork its(living.controller, living.window, place);
    living.window.locker.click();
    its.end();
    const std::vector<std::string> files = files::namesIn(place);
    unsavedWork.lookAround();
    EXPECT_THAT(unsavedWork.offers(), SizeIs(1));
    EXPECT_THAT(status(), AllOf(StartsWith("Unsaved work from "),
                                HasSubstr(". Left alone in " + place.string() + ": "),
                                HasSubstr("unsaved-00000001-1.Tormelk (damaged)"),
                                HasSubstr("unsaved-00000002-1.Tormelk (too long)"),
                                HasSubstr("unsaved-00000003-1.Tormelk (a folder)"),
                                HasSubstr("unsaved-00000004-1.Tormelk (a link)"),
                                HasSubstr(" (being written)"), testing::Not(HasSubstr("\n"))));
    EXPECT_EQ(files::namesIn(place), files);
    change(9);
    pass(2s);
    EXPECT_FALSE(unsavedWork.wait()) << "and the editor's own is kept";
}

// Bringing back

TEST_F(UnsavedWorkTest, ComesBackAsOneStepThatCanBeUndone) {
    const rescue::Work left = leaveBehind(7);
    const std::string before = everythingIn(editor);
    const std::string from = "unsaved work from " + timeOf(offer());
    unsavedWork.bringBack(offer());
    EXPECT_EQ(workIn(state), left);
    EXPECT_EQ(status(), "Brought back " + from);
    EXPECT_EQ(controller.undoName(), "Bring back " + from);
    EXPECT_TRUE(controller.isImageEdited());
    EXPECT_EQ(state.bChange, 1) << "it is asked for before a load";
    controller.undo();
    EXPECT_EQ(everythingIn(editor), before);
    controller.redo();
    EXPECT_EQ(workIn(state), left);
}

TEST_F(UnsavedWorkTest, ComesBackWithTheAssignmentsBehindADawMode) {
    const rescue::Work left = leaveBehind(11, logicMode);
    unsavedWork.bringBack(offer());
    EXPECT_EQ(state.modes.machn_mod, logicMode);
    EXPECT_EQ(workIn(state), left);
    editor.chooseMode(userDefinedMode);
    EXPECT_EQ(editor.channelOf(0, sixthControl), 11);
}

TEST_F(UnsavedWorkTest, ComesBackWhateverBytesTheFileHolds) {
    leaveBehind(7);
    const std::string name = rescue::fileName({offer().stem, rescue::Part::Shown, 1});
    for (const int mode : {3, 6, 77, 128, 255}) {
        files::write(place / name, formattedPreset(randomPreset(1, mode)));
        unsavedWork.bringBack(offer());
        EXPECT_THAT(status(), StartsWith("Brought back"));
        controller.undo();
        EXPECT_FALSE(controller.canUndo());
    }
}

TEST_F(UnsavedWorkTest, StaysOnDiskWhenItWasBroughtBackUntilItIsSaved) {
    leaveBehind(7);
    unsavedWork.bringBack(offer());
    pass(2s);
    unsavedWork.end();
    EXPECT_THAT(files::namesIn(place), SizeIs(3)) << "two presets and the lock";
    save(editor, file);
    pass(0s);
    EXPECT_FALSE(isHeld());
    EXPECT_THAT(unsavedWork.offers(), IsEmpty());
    controller.undo();
    pass(2s);
    EXPECT_TRUE(isHeld()) << "it is not what is on file";
}

TEST_F(UnsavedWorkTest, StaysOnDiskWhileASaveHoldsNotAllOfIt) {
    leaveBehind(7, logicMode);
    unsavedWork.bringBack(offer());
    save(editor, file);
    pass(2s);
    EXPECT_TRUE(isHeld());
    editor.chooseMode(userDefinedMode);
    save(editor, file);
    pass(0s);
    EXPECT_FALSE(isHeld());
}

TEST_F(UnsavedWorkTest, StaysOnDiskWhenSomethingElseIsSaved) {
    leaveBehind(7);
    save(editor, file);
    unsavedWork.bringBack(offer());
    controller.undo();
    window.locker.click();
    save(editor, file);
    pass(2s);
    EXPECT_THAT(unsavedWork.offers(), SizeIs(1)) << "it was undone";
    unsavedWork.bringBack(offer());
    load(editor, file);
    window.locker.click();
    save(editor, file);
    EXPECT_THAT(unsavedWork.offers(), SizeIs(1)) << "a preset has taken its place";
}

TEST_F(UnsavedWorkTest, CanBeBroughtBackAgain) {
    const rescue::Work left = leaveBehind(7);
    unsavedWork.bringBack(offer());
    controller.undo();
    change(3);
    unsavedWork.bringBack(offer());
    EXPECT_EQ(workIn(state), left);
    save(editor, file);
    pass(0s);
    EXPECT_FALSE(isHeld());
}

TEST_F(UnsavedWorkTest, OfSeveralEditorsIsOfferedFromTheNewestOnAndEachComesBack) {
    const rescue::Work older = leaveBehind(7);
    const Leftover first = offer();
    fs::last_write_time(place / rescue::fileName({first.stem, rescue::Part::Shown, 1}),
                        fs::file_time_type::clock::now() - 1h);
    const rescue::Work newer = leaveBehind(8);
    unsavedWork.look();
    ASSERT_THAT(unsavedWork.offers(), SizeIs(2));
    unsavedWork.bringBack(offer(1));
    EXPECT_EQ(workIn(state), older);
    EXPECT_THAT(unsavedWork.offers(), SizeIs(2)) << "the order stays";
    EXPECT_EQ(offer(1).stem, first.stem);
    unsavedWork.bringBack(offer(0));
    EXPECT_EQ(workIn(state), newer);
    save(editor, file);
    ASSERT_THAT(unsavedWork.offers(), SizeIs(1)) << "only the one that was saved has gone";
    EXPECT_EQ(offer().stem, first.stem);
}

TEST_F(UnsavedWorkTest, IsNotTakenFromAnotherEditorThatHasIt) {
    leaveBehind(7);
    const Leftover both = offer();
    TestEditor other;
    UnsavedWork its(other.controller, other.window, place);
    its.bringBack(both);
    const std::string gone = ": it is gone, or another editor has it";
    const std::string before = everythingIn(editor);
    unsavedWork.bringBack(both);
    EXPECT_EQ(status(), "Unsaved work from " + timeOf(both) + " cannot be brought back" + gone);
    unsavedWork.discard(both);
    EXPECT_EQ(status(), "Unsaved work from " + timeOf(both) + " cannot be discarded" + gone);
    EXPECT_EQ(everythingIn(editor), before);
    EXPECT_THAT(unsavedWork.offers(), IsEmpty());
    EXPECT_THAT(files::namesIn(place), SizeIs(3));
}

// Discarding

TEST_F(UnsavedWorkTest, IsGoneWhenItIsDiscarded) {
    leaveBehind(7);
    const Leftover copy = offer();
    unsavedWork.discard(copy);
    EXPECT_EQ(status(), "Discarded unsaved work from " + timeOf(copy));
    EXPECT_FALSE(isHeld());
    EXPECT_THAT(unsavedWork.offers(), IsEmpty());
    EXPECT_FALSE(controller.canUndo());
}

TEST_F(UnsavedWorkTest, IsKeptAnewWhenItsCopyIsDiscardedAfterItWasBroughtBack) {
    const rescue::Work left = leaveBehind(7);
    unsavedWork.bringBack(offer());
    unsavedWork.discard(offer());
    EXPECT_EQ(workIn(state), left);
    pass(0s);
    EXPECT_TRUE(isHeld()) << "it is still on no file";
    EXPECT_THAT(unsavedWork.offers(), IsEmpty());
    controller.undo();
    pass(0s);
    EXPECT_FALSE(isHeld());
    controller.redo();
    save(editor, file);
    pass(0s);
    EXPECT_FALSE(isHeld());
}

}  // namespace
}  // namespace editor
