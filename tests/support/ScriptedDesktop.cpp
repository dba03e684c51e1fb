#include "support/ScriptedDesktop.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

namespace support {
namespace {

template <typename Value>
std::optional<Value> takeFirst(std::deque<Value>& values) {
    if (values.empty()) {
        return std::nullopt;
    }
    std::optional<Value> first(std::move(values.front()));
    values.pop_front();
    return first;
}

}  // namespace

ScriptedDesktop::~ScriptedDesktop() {
    EXPECT_EQ(alertScripts_.size(), 0U) << "alerts that never came";
    EXPECT_EQ(savePaths_.size(), 0U) << "save panels that never came";
    EXPECT_EQ(openPaths_.size(), 0U) << "open panels that never came";
    for (const ModalEntry& entry : modalScripts_) {
        ADD_FAILURE() << "a modal run of " << journal::className(*entry.controller)
                      << " that never came";
    }
}

void ScriptedDesktop::answerAlert(toolkit::AlertAnswer answer) {
    onAlert([answer](const toolkit::Alert&) { return answer; });
}

toolkit::AlertAnswer ScriptedDesktop::runAlertPanel(const toolkit::Alert& alert) {
    alerts_.push_back(alert);
    note(journal::alert(alert));
    const std::optional<AlertScript> script = takeFirst(alertScripts_);
    if (!script) {
        ADD_FAILURE() << "unexpected: " << journal::alert(alert);
        return toolkit::AlertAnswer::Alternate;
    }
    return (*script)(alert);
}

ScriptedDesktop::Path ScriptedDesktop::runSavePanel(const toolkit::SavePanel& panel) {
    note(journal::savePanel(panel));
    const std::optional<Path> answer = takeFirst(savePaths_);
    EXPECT_TRUE(answer.has_value()) << "unexpected: " << journal::savePanel(panel);
    return answer.value_or(std::nullopt);
}

ScriptedDesktop::Path ScriptedDesktop::runOpenPanel(const toolkit::OpenPanel& panel) {
    note(journal::openPanel(panel));
    const std::optional<Path> answer = takeFirst(openPaths_);
    EXPECT_TRUE(answer.has_value()) << "unexpected: " << journal::openPanel(panel);
    return answer.value_or(std::nullopt);
}

int ScriptedDesktop::runModalForWindow(toolkit::WindowController& controller) {
    const std::type_info& type = typeid(controller);
    const std::optional<ModalScript> script = takeModalScript(type);
    if (!script) {
        ADD_FAILURE() << "unexpected: a modal run of " << journal::className(type);
    }
    if (!script || !*script) {
        note(journal::modalNotShown(type));
        return 0;
    }
    note(journal::modalBegins(type));
    runs_.push_back({});
    controller.window().makeKeyAndOrderFront();
    (*script)(controller);
    const bool stopped = runs_.back().stopped;
    runs_.pop_back();
    note(journal::modalEnds(type));
    EXPECT_TRUE(stopped) << "the script for " << journal::className(type)
                         << " left its modal run going on";
    return stopped ? modalStopped : 0;
}

void ScriptedDesktop::stopModal() {
    note(journal::stopModal());
    if (!runs_.empty()) {
        runs_.back().stopped = true;
    }
}

void ScriptedDesktop::showWindow(toolkit::WindowController& controller) {
    note(journal::showWindow(typeid(controller)));
    controller.window().makeKeyAndOrderFront();
}

void ScriptedDesktop::sleepForTimeInterval(std::chrono::duration<double> seconds) {
    sleeps_.push_back(seconds);
    note(journal::sleep(seconds));
    if (onSleep) {
        onSleep(seconds);
    }
}

void ScriptedDesktop::exit(int status) {
    exits_.push_back(status);
    note(journal::exit(status));
}

void ScriptedDesktop::addModalScript(const std::type_info& controller, ModalScript script) {
    modalScripts_.push_back({&controller, std::move(script)});
}

std::optional<ScriptedDesktop::ModalScript> ScriptedDesktop::takeModalScript(
    const std::type_info& controller) {
    const auto found =
        std::find_if(modalScripts_.begin(), modalScripts_.end(),
                     [&](const ModalEntry& entry) { return *entry.controller == controller; });
    if (found == modalScripts_.end()) {
        return std::nullopt;
    }
    std::optional<ModalScript> script(std::move(found->script));
    modalScripts_.erase(found);
    return script;
}

}  // namespace support
