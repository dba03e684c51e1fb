#pragma once

#include "devices/seldev.h"
#include "editor/walk/Driver.h"
#include "firmware/FirmwareState.h"
#include "midi/ZQMIDIProcess.h"
#include "platform/AbsentMidiService.h"
#include "platform/NotificationCentre.h"
#include "support/ScriptedDesktop.h"

namespace walk {

/// An editor without a screen, worked by clicks and choices on its widget models.
class ModelDriver final : public Driver {
public:
    ModelDriver();

    void clickControl(int tag) override;
    void clickModeLayer(int index) override;
    void clickFirstPadLayer() override;
    void clickPadLayer(int index, const std::function<void()>& inside) override;
    void clickLocker() override;
    void choose(MainBox box, int index) override;

    void clickPad(int index) override;
    void clickEditorLayer(int padLayer) override;
    void chooseInPadEditor(PadBox box, int index) override;
    void finish() override;
    void closePadEditor() override;

    [[nodiscard]] editor::EditorState& state() override { return state_; }
    [[nodiscard]] editor::MainWindow& window() override { return window_; }
    [[nodiscard]] editor::mainController& controller() override { return controller_; }
    [[nodiscard]] editor::pad* padEditor() override { return pad_; }

private:
    platform::AbsentMidiService service_;
    platform::NotificationCentre notificationCentre_;
    midi::ZQMIDIProcess process_{service_, notificationCentre_};
    devices::seldevChoice devices_{process_};
    firmware::FirmwareState firmware_{process_};
    support::ScriptedDesktop desktop_;
    editor::EditorState state_;
    editor::MainWindow window_;
    editor::mainController controller_{state_, window_, desktop_, devices_, firmware_};
    editor::pad* pad_ = nullptr;
};

}  // namespace walk
