#pragma once

#include <functional>
#include <string>

#include "editor/EditorState.h"
#include "editor/MainWindow.h"
#include "editor/mainController.h"
#include "editor/pad.h"

namespace walk {

/// The boxes of the main window and of the pad editor, by their names there.
enum class MainBox { combo_mode, combo_type, combo_chan, combo_cc, combo_trig };
enum class PadBox {
    combo_chan,
    combo_chanMod,
    combo_msg,
    combo_intervl,
    combo_curv,
    combo_curConst
};

/// The hands of the walk: what a person does to the editor. One driver works the widget models,
/// another one real windows with mouse and keyboard.
class Driver {
public:
    Driver() = default;
    Driver(const Driver&) = delete;
    Driver& operator=(const Driver&) = delete;
    virtual ~Driver() = default;

    // The main window

    /// The button `encoder<tag>`.
    virtual void clickControl(int tag) = 0;
    /// The button `moLa<index + 1>`.
    virtual void clickModeLayer(int index) = 0;
    /// The button `paLa1`.
    virtual void clickFirstPadLayer() = 0;
    /// The button `paLa<index + 1>`, index 1 to 3. `inside` runs while the pad editor is open, and
    /// must end with `finish` or `closePadEditor`.
    virtual void clickPadLayer(int index, const std::function<void()>& inside) = 0;
    virtual void clickLocker() = 0;
    virtual void choose(MainBox box, int index) = 0;

    // The pad editor

    /// The button `p<index + 1>`.
    virtual void clickPad(int index) = 0;
    /// The button `m_paLa<padLayer>`, 1 to 3.
    virtual void clickEditorLayer(int padLayer) = 0;
    virtual void chooseInPadEditor(PadBox box, int index) = 0;
    virtual void finish() = 0;
    /// Closes the window by its close box.
    virtual void closePadEditor() = 0;

    // What lies behind the widgets, to compare with, and for the steps no person can take

    [[nodiscard]] virtual editor::EditorState& state() = 0;
    [[nodiscard]] virtual editor::MainWindow& window() = 0;
    [[nodiscard]] virtual editor::mainController& controller() = 0;
    /// None while the pad editor is not open.
    [[nodiscard]] virtual editor::pad* padEditor() = 0;
    /// Where a window shows anything but what its models hold, in words; empty where it does not.
    [[nodiscard]] virtual std::string shownOtherwise() { return {}; }
};

}  // namespace walk
