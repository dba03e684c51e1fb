// The DAW mode switch: the user's assignments are parked while a factory mode is shown.

#include "describe/reports.h"
#include "editor/mainController.h"

namespace editor {

void mainController::switchMode(int newMode) {
    Modes& modes = state_.modes;
    const int oldMode = modes.machn_mod;
    const bool wasUserDefined = oldMode == userDefinedMode;
    const bool isUserDefined = newMode == userDefinedMode;
    if (wasUserDefined) {
        config::keepUserDefined(state_.sysData, state_.stores);
    }
    modes.machn_mod_bakup = oldMode;
    if (wasUserDefined == isUserDefined) {
        // All factory modes share one table: the image stays as it is.
        if (newMode != oldMode && !isUserDefined) {
            clearSelection();
        }
    } else if (wasUserDefined) {
        leaveForFactoryMode();
    } else {
        returnToUserDefined();
    }
    modes.machn_mod = newMode;
    if (isUserDefined) {
        settleInUserDefined(!wasUserDefined);
    } else {
        for (toolkit::ComboBox* box : propertyBoxes()) {
            box->setEnabled(false);
        }
    }
    config::setTrailerOfEveryLayer(state_.sysData, config::dawModeOffset, newMode);
    // The selection kept on leaving User Defined does not survive this step.
    dataChgCore(state_.selection.keyEvnt);
    showTrigger();
    report(describe::reportMode(newMode, wasUserDefined && !isUserDefined));
}

void mainController::clearSelection() {
    cleanBnSel();
    state_.selection.keyEvnt = noControl;
    off_MoLa();
    rmTypSel();
    rmChanSel();
    rmMsgSel();
    rmTrigSel();
}

void mainController::leaveForFactoryMode() {
    if (state_.selection.keyEvnt != noControl) {
        state_.selection.keyEvnt_bak = state_.selection.keyEvnt;
    }
    clearSelection();
    config::keepUserDefined(state_.sysData, state_.stores);
    config::loadFactory(state_.sysData, state_.stores);
}

void mainController::returnToUserDefined() {
    state_.selection.keyEvnt_bak_pad = state_.selection.keyEvnt;
    state_.selection.keyEvnt = state_.selection.keyEvnt_bak;
    if (state_.stores.userDefinedHoldsData()) {
        config::restoreUserDefined(state_.sysData, state_.stores);
    } else {
        window_.window.setTitle("Tormelk  - usrdefmoddatNull");
    }
}

void mainController::settleInUserDefined(bool modeChanged) {
    Selection& selection = state_.selection;
    if (config::isLayerKey(selection.keyEvnt)) {
        selection.keyEvnt_bak_pad = selection.keyEvnt;
        selection.keyEvnt = noControl;
    }
    if (modeChanged) {
        if (selection.keyEvnt == noControl) {
            selection.keyEvnt = selection.keyEvnt_bak;
        }
        off_MoLa();
        set_MoLa(state_.layers.m_moLa);
        if (selection.keyEvnt <= config::lastFader || selection.keyEvnt_bak == noControl) {
            on_MoLa(state_.layers.m_moLa);
            setKeySel();
        }
    }
    judge();
    const bool hasTrigger =
        selection.keyEvnt < config::firstEncoder || selection.keyEvnt > config::lastPad;
    if (hasTrigger) {
        window_.combo_trig.setEnabled(true);
    }
}

}  // namespace editor
