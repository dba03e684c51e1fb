// Save and Load: the whole image to a preset file and back.

#include <algorithm>

#include "describe/reports.h"
#include "editor/mainController.h"
#include "files/readFile.h"
#include "files/replaceFile.h"

namespace editor {

namespace {

/// What a person is told of a save that wrote into the file itself; the save has succeeded.
constexpr const char* notInOneStep =
    " by writing into the file itself; a power cut meanwhile could have damaged it";

}  // namespace

void mainController::saveFile() {
    const std::string type(config::presetFileType);
    const auto path = desktop_.runSavePanel({"Specify the Tormelk file name", type, type});
    if (!path) {
        return;
    }
    const config::PresetBytes saved = config::presetBytes(state_.sysData);
    const files::ReplaceResult result =
        files::replaceFile(*path, config::presetText(state_.sysData));
    if (!result.replaced) {
        desktop_.runAlertPanel({programName_, "Fail to save Tormelk file\n\n" + result.reason});
        return;
    }
    state_.bChange = 0;
    document_.filed(saved);
    window_.status.setStringValue("Saved " + path->filename().string() +
                                  (result.inOneStep ? "" : notInOneStep));
    actionEnded();
    if (onSaved) {
        onSaved();
    }
}

void mainController::loadFile() {
    const std::string type(config::presetFileType);
    const auto path = desktop_.runOpenPanel({type, {type}});
    if (!path) {
        return;
    }
    const std::optional<config::PresetBytes> preset = readPreset(*path);
    if (!preset) {
        return;
    }
    const int mode = (*preset)[config::at(0, config::dawModeOffset)];
    if (state_.bChange == 1 && mode == userDefinedMode) {
        if (!confirmLosingChanges()) {
            return;
        }
    } else if (state_.modes.machn_mod == userDefinedMode) {
        config::keepWholeUserDefined(state_.sysData, state_.stores);
    }
    takePreset(*preset, mode);
    window_.status.setStringValue(describe::reportLoad(path->filename().string(), state_.sysData));
    actionEnded();
}

/// A file that cannot be opened, or is no preset, is refused with an alert; nothing has changed.
std::optional<config::PresetBytes> mainController::readPreset(const std::filesystem::path& path) {
    const files::ReadResult file = files::readFile(path, config::presetTextLimit);
    using Status = files::ReadResult::Status;
    if (file.status == Status::CannotOpen || file.status == Status::Failed) {
        desktop_.runAlertPanel({programName_, "Fail to load Tormelk file "});
        return std::nullopt;
    }
    const std::optional<config::PresetBytes> preset = config::readPresetText(file.bytes);
    if (file.status == Status::NotRegular || !preset ||
        !config::hasPresetHeader(*preset, state_.sysData)) {
        desktop_.runAlertPanel({programName_, "Not Tormelk file"});
        return std::nullopt;
    }
    return preset;
}

bool mainController::confirmLosingChanges() {
    const toolkit::AlertAnswer answer = desktop_.runAlertPanel(
        {"Confirm", "Your changes on User-Defined Mode hasn't been saved.\n\nLoad file continue?",
         "OK", "Cancel"});
    if (answer == toolkit::AlertAnswer::Default) {
        return true;
    }
    desktop_.runAlertPanel({"LoadFile", "LoadFile Cancel!"});
    return false;
}

void mainController::takePreset(const config::PresetBytes& preset, int mode) {
    std::copy(preset.begin(), preset.end(), state_.sysData.begin());
    config::setTrailerOfEveryLayer(state_.sysData, config::dawModeOffset, mode);
    update_Aft_LoadFile();
    if (state_.selection.keyEvnt != noControl) {
        dataChgCore(state_.selection.keyEvnt);
    } else if (mode != userDefinedMode) {
        toggleGray();  // nothing can be edited in a host's mode
    }
    state_.bChange = 0;
    state_.broughtBack = 0;
    document_.filed(preset);
}

}  // namespace editor
