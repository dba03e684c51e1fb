#include "editor/Document.h"

#include <algorithm>
#include <utility>

#include "describe/reports.h"
#include "editor/showState.h"

namespace editor {

Document::Document(EditorState& state, MainWindow& window)
    : state_(state), window_(window), history_(Moment{}) {}

void Document::begin() {
    onFile_ = config::presetBytes(state_.sysData);
    userDefinedOnFile_ = config::userDefinedImage(state_);
    history_ = History(moment());
}

void Document::actionEnded(const Choice& choice) {
    const std::string& said = window_.status.stringValue();
    isNews_ |= history_.actionEnded(
        moment(), [&said] { return describe::stepName(said); }, choice);
    if (isNews_) {
        tell();
    }
}

void Document::undo() {
    if (canUndo()) {
        goTo(history_.undo());
    }
}

void Document::redo() {
    if (canRedo()) {
        goTo(history_.redo());
    }
}

void Document::goTo(const Moment& moment) {
    state_ = moment.state;
    if (moment.filings != filings_) {
        state_.bChange = 0;  // it meant another file
    }
    judgeChange();
    show(moment.shown, window_);
    history_.goOnFrom(this->moment());
    tell();
}

void Document::takeOver(const config::Configuration& configuration, std::string name,
                        int broughtBack) {
    static_cast<config::Configuration&>(state_) = configuration;
    state_.broughtBack = broughtBack;
    const int mode = config::trailer(state_.sysData, 0, config::dawModeOffset);
    state_.modes.machn_mod_bakup = std::exchange(state_.modes.machn_mod, mode);
    state_.modes.sysExData_modeBackup = mode;
    state_.layers.bTrigAll.clear();
    state_.pads.abChAll.clear();
    state_.bChange = 0;
    judgeChange();
    showState(state_, window_);
    history_.actionEnded(moment(), [&name] { return std::move(name); });
    tell();
}

void Document::filed(const config::PresetBytes& bytes) {
    onFile_ = bytes;
    ++filings_;
    isNews_ = true;
    if (config::trailer(state_.sysData, 0, config::dawModeOffset) == userDefinedMode) {
        userDefinedOnFile_ = state_.sysData;
    }
}

bool Document::differsFromFile() const {
    return !std::equal(onFile_.begin(), onFile_.end(), state_.sysData.begin());
}

/// What a DAW mode does not exchange is in force in every mode, and any preset holds it.
bool Document::parkedDiffersFromFile() const {
    if (config::trailer(state_.sysData, 0, config::dawModeOffset) == userDefinedMode ||
        !state_.stores.userDefinedHoldsData()) {
        return false;
    }
    config::Image parked = userDefinedOnFile_;
    config::restoreUserDefined(parked, state_.stores);
    return parked != userDefinedOnFile_;
}

void Document::judgeChange() {
    if (!config::sameChannelsAndNumbers(config::userDefinedImage(state_), userDefinedOnFile_)) {
        state_.bChange = 1;
    }
}

void Document::tell() {
    isNews_ = false;
    if (onChange) {
        onChange();
    }
}

}  // namespace editor
