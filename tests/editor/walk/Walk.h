#pragma once

#include <functional>
#include <string_view>

#include "editor/walk/Driver.h"
#include "editor/walk/Expected.h"

namespace walk {

/// Goes step by step: does something to the editor, writes down what that changes, and compares
/// everything the editor holds and shows. What a step does not mention must have stayed.
class Walk {
public:
    explicit Walk(Driver& driver);

    /// Something a person does.
    void step(std::string_view what, const std::function<void()>& act,
              const std::function<void()>& expect = nullptr);
    /// Something no person can do: an operation is called, or state written, directly.
    void directly(std::string_view what, const std::function<void()>& act,
                  const std::function<void()>& expect = nullptr);
    /// The pad editor has come up: the first thing to be called inside it.
    void padEditorOpened(const std::function<void()>& expect);

    [[nodiscard]] int steps() const { return steps_; }

    Driver& driver;
    Expected expected;

private:
    void compare(std::string_view what);

    int steps_ = 0;
};

// The walk, in its order.
void walkFactoryModes(Walk& walk);
void walkPadEditorInFactoryMode(Walk& walk);
void walkAssignments(Walk& walk);
void walkTriggers(Walk& walk);
void walkAllTriggers(Walk& walk);
void walkModeLayers(Walk& walk);
void walkPadsAndLayers(Walk& walk);
void walkPadEditor(Walk& walk);
void walkPadEditorLayers(Walk& walk);
void walkPadEditorAgain(Walk& walk);
void walkModeSwitches(Walk& walk);
void walkStoreWithoutData(Walk& walk);
void walkOddBytes(Walk& walk);
void walkOperations(Walk& walk);
void walkPadOperations(Walk& walk);
void walkJudging(Walk& walk);
void walkBesidePadEditor(Walk& walk);

/// All of it.
void walkAll(Walk& walk);

}  // namespace walk
