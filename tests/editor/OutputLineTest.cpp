#include <gtest/gtest.h>

#include "editor/TestEditor.h"

namespace editor {
namespace {

class OutputLine : public EditorTest {
protected:
    void choose(std::size_t index) {
        desktop.onModal<devices::seldev>([index](devices::seldev& dialog) {
            dialog.combo_out.choose(static_cast<int>(index));
            dialog.okButton.click();
        });
        controller.midiSelect();
    }
    void expect(const std::string& output, int lamp) {
        EXPECT_EQ(window.output.stringValue(), output);
        EXPECT_EQ(window.outputLamp.state(), lamp);
    }
};

TEST_F(OutputLine, SaysWhatToDoWhileThereIsNoOutput) {
    expect("No output found", 0);
    EXPECT_EQ(window.status.stringValue(),
              "No MIDI output found. Connect the controller, or start the simulator.");
}

TEST_F(OutputLine, FollowsWhatIsPluggedInAndChosen) {
    auto& device = editor.midiService.addDevice("Tormelk");
    device.addDestination("Port 1");
    editor.midiService.dispatch();
    expect("No output chosen", 0);
    EXPECT_EQ(window.status.stringValue(),
              "Choose the controller's MIDI output under MIDI Devices, then Send.");
    choose(0);
    expect("Tormelk Port 1", 1);
    EXPECT_EQ(window.status.stringValue(), "Output: Tormelk Port 1");
    device.unplug();
    editor.midiService.dispatch();
    expect("Tormelk Port 1 (offline)", 0);
    device.plug();
    editor.midiService.dispatch();
    expect("Tormelk Port 1", 1);
}

TEST_F(OutputLine, FollowsWhatIsPluggedInBeforeAnyDeviceDialogWithoutBeingAClientOfTheService) {
    auto& device = editor.midiService.addDevice("Tormelk");
    device.addDestination("Port 1");
    editor.midiService.dispatch();
    expect("No output chosen", 0);
    device.unplug();
    editor.midiService.dispatch();
    expect("No output found", 0);
    EXPECT_EQ(window.status.stringValue(),
              "No MIDI output found. Connect the controller, or start the simulator.");
    EXPECT_FALSE(editor.midiProcess.hasManager());
    EXPECT_EQ(editor.midiService.clients(), 0U);
}

TEST_F(OutputLine, AnOutputThatTakesNoDataIsNoneToBeFound) {
    editor.midiService.addDestination("Port 1").setIntegerProperty(platform::kMIDIPropertyOffline,
                                                                   1);
    editor.midiService.dispatch();
    expect("No output found", 0);
}

TEST_F(OutputLine, ADeviceThatWasUnpluggedBeforeTheFirstDeviceDialogIsNotOfferedThere) {
    auto& device = editor.midiService.addDevice("Tormelk");
    device.addDestination("Port 1");
    editor.midiService.dispatch();
    device.unplug();
    desktop.onModal<devices::seldev>([](devices::seldev& dialog) {
        EXPECT_EQ(dialog.combo_out.numberOfItems(), 0);
        dialog.okButton.click();
    });
    controller.midiSelect();
}

TEST_F(OutputLine, NamesTheCauseWhereThereIsNoServiceUntilThereIs) {
    using Obstacle = platform::ServiceState::Obstacle;
    editor.midiService.obstruct({Obstacle::NotAllowed, "let me", "people"});
    editor.midiService.dispatch();
    expect("No output found", 0);
    EXPECT_EQ(window.status.stringValue(),
              "This program is not allowed to use the computer's MIDI. MIDI Devices tells what to "
              "do.");
    editor.midiService.obstruct({Obstacle::NotLoaded, "load it"});
    editor.midiService.dispatch();
    EXPECT_EQ(window.status.stringValue(),
              "The computer's MIDI sequencer is not loaded. MIDI Devices tells what to do.");
    editor.midiService.obstruct({Obstacle::Other, {}, {}, "Out of cheese"});
    editor.midiService.dispatch();
    EXPECT_EQ(window.status.stringValue(),
              "The computer's MIDI sequencer cannot be opened: Out of cheese. MIDI Devices tries "
              "again.");
    editor.midiService.recover();
    editor.midiService.dispatch();
    EXPECT_EQ(window.status.stringValue(),
              "No MIDI output found. Connect the controller, or start the simulator.");
}

TEST_F(OutputLine, LeavesAWordAboutTheLastActionAlone) {
    window.status.setStringValue("Saved Stage.Tormelk");
    editor.midiService.addDevice("Tormelk").addDestination("Port 1");
    editor.midiService.dispatch();
    EXPECT_EQ(window.status.stringValue(), "Saved Stage.Tormelk");
}

}  // namespace
}  // namespace editor
