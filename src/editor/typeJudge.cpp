// After a preset file was loaded: mode, message kind and value box are brought in line with the
// image.

#include "editor/mainController.h"
#include "editor/refill.h"
#include "tables/data.h"

namespace editor {

void mainController::typeJudge() {
    const int layer = state_.layers.layrData;
    const int control = state_.selection.keyEvnt;
    const int modeByte = config::mode(state_.sysData, layer, control);
    state_.modes.machn_mod = config::trailer(state_.sysData, 0, config::dawModeOffset);
    if (state_.modes.machn_mod != userDefinedMode) {
        // With nothing selected the write happens all the same, 127 places behind the first mode
        // byte; where that lies behind the image it is dropped.
        config::setMode(state_.sysData, layer, control,
                        config::withKind(modeByte, config::MessageKind::Note));
        window_.combo_type.selectItemAtIndex(kindNote);
    } else if (control != noControl) {
        triggerEnable();
        window_.combo_type.selectItemAtIndex(typePosition(config::kindAfterLoad(modeByte)));
    }
}

void mainController::selchange_Aft_TypeJudg() {
    const int layer = state_.layers.layrData;
    const int control = state_.selection.keyEvnt;
    if (control == noControl) {
        return;
    }
    const int mode = window_.combo_mode.indexOfSelectedItem();
    if (mode == userDefinedMode) {
        refillForKind(config::mode(state_.sysData, layer, control));
    }
    const bool beforeInit = state_.isInit == 0 && mode <= nuendoMode;
    if (mode < 0 || mode > huiMode || beforeInit) {
        return;
    }
    if (mode != huiMode) {
        window_.combo_cc.selectItemAtIndex(config::number(state_.sysData, layer, control));
    }
    window_.combo_chan.selectItemAtIndex(config::channel(state_.sysData, layer, control));
}

void mainController::refillForKind(int modeByte) {
    switch (typePosition(config::shownKind(modeByte))) {
        case kindNote:
            refill(window_.combo_cc, tables::data::Note());
            break;
        case kindControlChange:
            refill(window_.combo_cc, tables::data::CC());
            break;
        case kindProgramChange:
            refill(window_.combo_cc, tables::data::Prog());
            break;
        default:
            if (window_.combo_type.indexOfSelectedItem() != kindNote) {
                window_.combo_type.selectItemAtIndex(kindNote);
                refill(window_.combo_cc, tables::data::Note());
            }
    }
}

}  // namespace editor
