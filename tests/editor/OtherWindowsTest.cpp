#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "devices/seldev.h"
#include "editor/TestEditor.h"
#include "editor/about.h"
#include "firmware/firm.h"

namespace editor {
namespace {

namespace journal = support::journal;
using testing::ElementsAre;
using testing::IsEmpty;

using OtherWindows = EditorTest;

TEST_F(OtherWindows, ExitEndsTheProcessWithStatusZero) {
    controller.exit();
    EXPECT_THAT(desktop.journal(), ElementsAre(journal::exit(0)));
}

TEST_F(OtherWindows, ClosingTheMainWindowEndsTheProcessWithoutAQuestion) {
    editor.chooseMode(0);
    window.combo_chan.choose(5);
    ASSERT_EQ(state.bChange, 1);
    window.window.close();
    EXPECT_THAT(desktop.journal(), ElementsAre(journal::exit(0)));
}

TEST_F(OtherWindows, HidingTheMainWindowEndsNothing) {
    window.window.makeKeyAndOrderFront();
    window.window.orderOut();
    EXPECT_THAT(desktop.journal(), IsEmpty());
}

TEST_F(OtherWindows, WhenTheLastWindowClosesTheMainWindowComesBack) {
    int fronts = 0;
    window.window.onChange = [&](toolkit::Window::Change change) {
        fronts += change == toolkit::Window::Change::Front ? 1 : 0;
    };
    EXPECT_FALSE(controller.applicationShouldTerminateAfterLastWindowClosed());
    EXPECT_TRUE(window.window.isVisible());
    EXPECT_EQ(fronts, 1);
    EXPECT_THAT(desktop.exits(), IsEmpty());
}

TEST_F(OtherWindows, TheProgramMayBeQuitAtOnceEvenWithUnsavedChanges) {
    state.bChange = 1;
    EXPECT_TRUE(mainController::applicationShouldTerminate());
    EXPECT_THAT(desktop.journal(), IsEmpty());
}

/// Notes which controllers are shown.
class WatchingDesktop : public EditorDesktop {
public:
    void showWindow(toolkit::WindowController& controller) override {
        shown.push_back(&controller);
        EditorDesktop::showWindow(controller);
    }
    std::vector<toolkit::WindowController*> shown;
};

TEST_F(OtherWindows, AboutIsMadeOnceAndShownAgain) {
    WatchingDesktop watching;
    EditorState otherState;
    MainWindow otherWindow;
    mainController other(otherState, otherWindow, watching, editor.devices, editor.firmware);
    other.about();
    ASSERT_EQ(watching.shown.size(), 1U);
    toolkit::Window& about = watching.shown[0]->window();
    EXPECT_TRUE(about.isVisible());
    about.close();
    EXPECT_FALSE(about.isVisible());
    other.about();
    ASSERT_EQ(watching.shown.size(), 2U);
    EXPECT_EQ(watching.shown[0], watching.shown[1]);
    EXPECT_TRUE(about.isVisible());
    EXPECT_THAT(watching.journal(), ElementsAre(journal::showWindow<editor::about>(),
                                                journal::showWindow<editor::about>()));
}

TEST_F(OtherWindows, TheDevicesAreChosenInAModalDialog) {
    editor.midiService.addDestination("Port A");
    editor.midiService.addDestination("Port B");
    editor.midiService.dispatch();
    desktop.onModal<devices::seldev>([](devices::seldev& dialog) {
        dialog.combo_out.choose(1);
        dialog.okButton.click();
    });
    controller.midiSelect();
    ASSERT_NE(editor.devices.OutDevice(), nullptr);
    EXPECT_EQ(editor.devices.OutDevice()->displayName(), "Port B");
    EXPECT_EQ(editor.devices.midi_device_open, 1);
    EXPECT_THAT(desktop.journal(),
                ElementsAre(journal::modalBegins<devices::seldev>(), journal::stopModal(),
                            journal::modalEnds<devices::seldev>()));
}

TEST_F(OtherWindows, TheFirmwareWindowIsModalAndKeepsItsStateBetweenItsOpenings) {
    editor.midiService.addDestination("Port A");
    editor.midiService.dispatch();
    desktop.onModal<firmware::firm>([this](firmware::firm& shown) {
        EXPECT_EQ(shown.window().title(), "Firmware Upgrade");
        desktop.onModal<devices::seldev>([](devices::seldev& dialog) { dialog.okButton.click(); });
        shown.selectButton.click();
        EXPECT_EQ(shown.nextStep(), 4);
        shown.closeButton.click();
    });
    controller.firmware();
    desktop.onModal<firmware::firm>([](firmware::firm& shown) {
        EXPECT_EQ(shown.nextStep(), 4);
        shown.window().close();
    });
    controller.firmware();
    EXPECT_EQ(editor.devices.midi_device_open, 1);
}

}  // namespace
}  // namespace editor
