#pragma once

// A person who clicks and chooses at random, and what must hold after each step. The checks are
// made of what the product promises, not of how it is built.

#include <array>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <random>
#include <set>
#include <string>

#include "editor/TestEditor.h"

namespace editor {

class RandomWalk {
public:
    enum class PadEditorRuns {
        AlwaysSucceed,
        SometimesFail  ///< not shown, or given up after it was loaded: lights are not checked then
    };

    RandomWalk(std::uint64_t seed, PadEditorRuns runs);

    /// One click or choice in the main window, with a whole session in the pad editor where that
    /// is what the click opens.
    void step();

    /// The first promise that was broken; empty if none was.
    [[nodiscard]] const std::string& problem() const { return problem_; }
    /// The last steps in words.
    [[nodiscard]] std::string history() const;

private:
    /// A person's pick in a box.
    struct Pick {
        bool isChoice = false;  ///< the box took it
        int index = -1;
        bool blank = false;
    };

    int below(int count);
    bool oneIn(int count) { return below(count) == 0; }
    void did(std::string what);
    void require(bool holds, const char* promise);

    // Steps in the main window
    void clickControl();
    void clickModeLayer();
    void clickPadLayer();
    void chooseMode();
    void chooseKind();
    void chooseTrigger();
    void clickLock();
    void flipAbsoluteByte();
    Pick choose(toolkit::ComboBox& box, const char* name);
    /// Channel or number: a byte that takes the position of what was picked.
    void chooseByte(toolkit::ComboBox& box, const char* name, int offset);

    // Steps in the pad editor
    void usePadEditor(pad& padEditor);
    void stepInPadEditor(pad& padEditor);

    // Promises about the image. What stayed as it was when it was checked last is not read again.
    void checkFrame();
    void checkPadCopy();
    void checkSharedBytes();
    /// Only bytes for which `mayChange` is true differ from the image before the step.
    void checkOnlyChanged(const std::function<bool(int layer, int offset)>& mayChange);
    void checkNothingChanged() { checkOnlyChanged(nullptr); }

    // Promises about boxes and lights
    void checkBox(const toolkit::ComboBox& box);
    /// Counts the blanks of the box now, and later whenever its items have changed.
    void watch(toolkit::ComboBox& box);
    int blanksOf(const toolkit::ComboBox& box);
    void checkMainBoxes();
    void checkShownAssignment();
    void checkTrigger();
    void checkControlLights();
    void checkLayerLights();
    void checkPadEditor(pad& padEditor);
    [[nodiscard]] bool nothingSelected() const;
    [[nodiscard]] int storedTrigger(int layer) const;
    /// Byte of the edited control in the edited layer.
    [[nodiscard]] std::size_t edited(int offset) const;
    [[nodiscard]] int editedByte(int offset) const;

    TestEditor editor_;
    std::mt19937_64 random_;
    PadEditorRuns runs_;
    config::Image before_{};
    std::optional<config::Image> checkedImage_;
    std::optional<config::Image> checkedPadCopy_;
    std::map<const toolkit::ComboBox*, int> blanks_;  ///< of the boxes whose items did not change
    std::set<int> strayModeLayers_;
    bool triggerBoxRefreshed_ = false;  ///< the step showed the stored trigger afresh
    int shownTrigger_ = -1;
    std::deque<std::string> history_;
    std::string problem_;
};

}  // namespace editor
