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

TEST_F(OutputLine, LeavesAWordAboutTheLastActionAlone) {
    window.status.setStringValue("Saved Stage.Tormelk");
    editor.midiService.addDevice("Tormelk").addDestination("Port 1");
    editor.midiService.dispatch();
    EXPECT_EQ(window.status.stringValue(), "Saved Stage.Tormelk");
}

}  // namespace
}  // namespace editor
