#pragma once

// A whole editor without a screen: the objects that the product consists of, a scripted person and
// desktop, and a MIDI service in software. What its tests share stands here too.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "editor/EditorState.h"
#include "editor/MainWindow.h"
#include "editor/mainController.h"
#include "editor/pad.h"
#include "support/ScriptedDesktop.h"
#include "support/ScriptedEditor.h"
#include "texts/List.h"

namespace editor {

/// A desktop whose modal run of the pad editor can fail after the window was loaded.
class EditorDesktop : public support::ScriptedDesktop {
public:
    /// The next modal run loads the window, runs the script and then returns 0.
    void failModal(std::function<void(toolkit::WindowController&)> script) {
        failing_ = std::move(script);
    }

    int runModalForWindow(toolkit::WindowController& controller) override {
        if (!failing_) {
            return ScriptedDesktop::runModalForWindow(controller);
        }
        const auto script = std::exchange(failing_, nullptr);
        controller.window().makeKeyAndOrderFront();
        script(controller);
        return 0;
    }

private:
    std::function<void(toolkit::WindowController&)> failing_;
};

/// Where byte `offset` of a layer's block stands in the image.
constexpr std::size_t position(int layer, int offset) {
    return static_cast<std::size_t>(layer) * 254 + static_cast<std::size_t>(offset);
}

/// The control behind a pad button, by tag - 65.
inline constexpr std::array<int, 9> controlOfPadTag = {70, 69, 72, 65, 66, 71, 73, 68, 67};

/// The tag of a control's button.
constexpr int tagOf(int control) {
    for (std::size_t i = 0; i < controlOfPadTag.size(); ++i) {
        if (controlOfPadTag.at(i) == control) {
            return 65 + static_cast<int>(i);
        }
    }
    return control;
}

/// A button is lit or not; there is no third state.
inline bool isLit(const toolkit::Button& button) {
    EXPECT_TRUE(button.state() == 0 || button.state() == 1) << button.state();
    return button.state() != 0;
}

/// Positions of the lit buttons.
template <typename Buttons>
std::set<int> litOf(const Buttons& buttons) {
    std::set<int> lit;
    int index = 0;
    for (const toolkit::Button& button : buttons) {
        if (isLit(button)) {
            lit.insert(index);
        }
        ++index;
    }
    return lit;
}

/// The items of a box. A blank entry reads "<blank>".
inline std::vector<std::string> itemsOf(const toolkit::ComboBox& box) {
    std::vector<std::string> items;
    for (int i = 0; i < box.numberOfItems(); ++i) {
        const std::string_view item = box.itemObjectValueAtIndex(i).value_or("<none>");
        items.emplace_back(toolkit::isBlankEntry(item) ? std::string_view("<blank>") : item);
    }
    return items;
}

inline std::vector<std::string> itemsOf(texts::List list) {
    return {list.begin(), list.end()};
}

inline std::vector<std::string> withBlank(std::vector<std::string> items) {
    items.emplace_back("<blank>");
    return items;
}

inline int blanksIn(const toolkit::ComboBox& box) {
    const std::vector<std::string> items = itemsOf(box);
    return static_cast<int>(std::count(items.begin(), items.end(), "<blank>"));
}

inline bool showsBlank(const toolkit::ComboBox& box) {
    const auto item = box.itemObjectValueAtIndex(box.indexOfSelectedItem());
    return item && toolkit::isBlankEntry(*item);
}

struct TestEditor : support::EditorParts {
    EditorDesktop desktop;
    mainController controller{state, window, desktop, devices, firmware};

    TestEditor() { controller.awakeFromNib(); }

    std::uint8_t& byte(int layer, int offset) { return state.sysData.at(position(layer, offset)); }
    std::uint8_t& channelOf(int layer, int control) { return byte(layer, 7 + control); }
    std::uint8_t& numberOf(int layer, int control) { return byte(layer, 87 + control); }
    std::uint8_t& statusOf(int layer, int control) { return byte(layer, 167 + control); }
    std::uint8_t& copied(int layer, int offset) {
        return state.pads.sysbuf_domal.at(position(layer, offset));
    }

    /// A person clicks the button of a control.
    void click(int control) {
        window.keysOrderedByTag.at(static_cast<std::size_t>(tagOf(control))).click();
    }
    void clickModeLayer(int layer) { window.moLaCtrls.at(static_cast<std::size_t>(layer)).click(); }
    void clickPadLayer(int layer) { window.paLaCtrls.at(static_cast<std::size_t>(layer)).click(); }
    void chooseMode(int mode) { window.combo_mode.choose(mode); }

    /// Opens the pad editor by its layer's button, does something in it and presses Finish.
    void usePadEditor(int layer, const std::function<void(pad&)>& script) {
        desktop.onModal<pad>([script](pad& padEditor) {
            script(padEditor);
            padEditor.finish.click();
        });
        clickPadLayer(layer);
    }

    [[nodiscard]] std::set<int> litControls() const {
        std::set<int> lit;
        for (const int tag : litOf(window.keysOrderedByTag)) {
            const bool isPad = tag >= 65;
            lit.insert(isPad ? controlOfPadTag.at(static_cast<std::size_t>(tag - 65)) : tag);
        }
        return lit;
    }
    [[nodiscard]] std::set<int> litModeLayers() const { return litOf(window.moLaCtrls); }
    [[nodiscard]] std::set<int> litPadLayers() const { return litOf(window.paLaCtrls); }
};

/// The editor as it starts: Nuendo mode, control 0.
class EditorTest : public testing::Test {
protected:
    TestEditor editor;
    EditorState& state = editor.state;
    MainWindow& window = editor.window;
    mainController& controller = editor.controller;
    EditorDesktop& desktop = editor.desktop;
};

/// The editor in User Defined mode with control 0 of mode layer 0 selected.
class UserDefinedTest : public EditorTest {
protected:
    UserDefinedTest() {
        editor.chooseMode(0);
        state.bChange = 0;
    }
};

}  // namespace editor
