#pragma once

#include "editor/walk/Driver.h"
#include "support/ScriptedEditor.h"

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

    [[nodiscard]] editor::EditorState& state() override { return editor_.state; }
    [[nodiscard]] editor::MainWindow& window() override { return editor_.window; }
    [[nodiscard]] editor::mainController& controller() override { return editor_.controller; }
    [[nodiscard]] editor::pad* padEditor() override { return pad_; }

private:
    support::ScriptedEditor editor_;
    editor::pad* pad_ = nullptr;
};

}  // namespace walk
