// The layer buttons: which layer block the main window shows and edits, and the lock flag.

#include <algorithm>

#include "config/factoryTables.h"
#include "config/sysex.h"
#include "describe/reports.h"
#include "editor/mainController.h"
#include "editor/pad.h"
#include "editor/showState.h"
#include "tables/data.h"

namespace editor {

using config::isPad;

namespace {

/// Before a layer button takes over: the lit one goes out, unless it is the one that was clicked;
/// a second click must not put that out. The clicked button was lit by the click.
template <typename Buttons>
void handOverLight(Buttons& buttons, int lit, int clicked) {
    if (isLayer(lit)) {
        buttons[static_cast<std::size_t>(lit)].setState(lit == clicked ? 1 : 0);
    }
}

template <typename Buttons>
void setLight(Buttons& buttons, int layer, int state) {
    if (isLayer(layer)) {
        buttons[static_cast<std::size_t>(layer)].setState(state);
    }
}

}  // namespace

void mainController::onMoLa(toolkit::Button& sender) {
    moLa(sender.tag() - config::firstLayerKey);
    report(describe::modeLayerName(state_.layers.m_moLa));
}

void mainController::moLa(int modeLayer) {
    if (!isLayer(modeLayer)) {
        return;
    }
    Layers& layers = state_.layers;
    Selection& selection = state_.selection;
    handOverLight(window_.moLaCtrls, layers.m_moLa, modeLayer);
    layers.m_moLa = modeLayer;
    if (state_.modes.machn_mod != userDefinedMode) {
        // The layer key itself becomes the control that is shown.
        cleanBnSel();
        selection.keyEvnt = modeLayer + config::firstLayerKey;
        set_MoLa(modeLayer);
        dataChgCore(selection.keyEvnt);
        return;
    }
    layers.layrData = modeLayer;
    if (isPad(selection.keyEvnt)) {
        selection.keyEvnt_bak = selection.keyEvnt;
        cleanBnSel();
    }
    lockCheck();
    set_MoLa(modeLayer);
    dataChgCore(selection.key_sel[static_cast<std::size_t>(modeLayer)]);
}

void mainController::off_MoLa() {
    setLight(window_.moLaCtrls, state_.layers.m_moLa, 0);
}

void mainController::on_MoLa(int modeLayer) {
    setLight(window_.moLaCtrls, modeLayer, 1);
}

void mainController::set_MoLa(int modeLayer) {
    state_.layers.m_moLa = modeLayer;
}

void mainController::set_PaLa(int padLayer) {
    state_.layers.m_paLa = padLayer;
}

void mainController::onPaLa(toolkit::Button& sender) {
    const int padLayer = sender.tag() - config::firstTransportKey;
    if (padLayer == 0) {
        paLa(0);
        report(describe::padLayerName(0));
        return;
    }
    window_.paLaCtrls[0].setEnabled(false);
    paLa234(padLayer);
    window_.paLaCtrls[0].setEnabled(true);
}

void mainController::paLa(int padLayer) {
    state_.layers.layrData = padLayer;
    set_PaLa(padLayer);
    if (state_.selection.keyEvnt == noControl) {
        state_.selection.keyEvnt = state_.selection.keyEvnt_bak;
    }
    dataChgCore(state_.selection.keyEvnt);
}

void mainController::paLa234(int padLayer) {
    if (!isLayer(padLayer) || padLayer == 0) {
        return;
    }
    Selection& selection = state_.selection;
    handOverLight(window_.paLaCtrls, state_.layers.m_paLa, padLayer);
    state_.layers.layrData = padLayer;
    set_PaLa(padLayer);
    if (selection.keyEvnt == noControl && selection.keyEvnt_bak != noControl) {
        selection.keyEvnt = selection.keyEvnt_bak;
    }
    const config::Image before = state_.sysData;
    pad padEditor(state_, window_, desktop_, &document_);
    state_.layers.m_paLa = padLayer;
    state_.pads.m_zPaLayer_CurSel = padLayer;
    copyToWorkingCopy();
    if (desktop_.runModalForWindow(padEditor) != 0) {
        takeBackPadEdits();
        report(describe::reportPadLayers(padLayersThatDifferFrom(before)));
    }
    showSelectionAfresh();
    window_.window.makeKeyAndOrderFront();  // the pad editor had hidden it
}

void mainController::takeBackPadEdits() {
    cleanBnSel();
    keepBnSel(state_.selection.keyEvnt);
    state_.pads.pad_modal = 0;
    state_.layers.m_paLa = state_.pads.m_zPaLayer_CurSel;
    paLa_Pre();
    state_.layers.m_paLa = 0;
    state_.selection.keyEvnt = state_.pads.m_pad_CurSel;
    paLa_Post(0);
    state_.layers.layrData = state_.layers.m_moLa;

    // The frame and the trailer behind the interval are never taken from the copy.
    for (int layer = 1; layer < config::layerCount; ++layer) {
        for (std::size_t offset = config::channelOffset; offset <= config::intervalOffset;
             ++offset) {
            const std::size_t position = config::at(layer, offset);
            state_.sysData[position] = state_.pads.sysbuf_domal[position];
        }
    }
    if (isPad(state_.selection.keyEvnt)) {
        dataChgCore_pad(state_.selection.keyEvnt);
    }
    showLock(state_.layers.m_paLa);
}

std::vector<int> mainController::padLayersThatDifferFrom(const config::Image& before) const {
    std::vector<int> layers;
    for (int layer = 1; layer < config::layerCount; ++layer) {
        const auto now = config::layerBlock(state_.sysData, layer);
        const auto then = config::layerBlock(before, layer);
        if (!std::equal(now.begin(), now.end(), then.begin(), then.end())) {
            layers.push_back(layer);
        }
    }
    return layers;
}

void mainController::copyToWorkingCopy() {
    for (std::size_t position = config::at(1, 0); position < config::imageSize; ++position) {
        state_.pads.sysbuf_domal[position] = state_.sysData[position];
    }
}

void mainController::pad234() {
    state_.pads.m_zPaLayer_CurSel = state_.layers.m_paLa;
    state_.pads.m_zPaLayer_FirSel = state_.pads.m_zPaLayer_CurSel;
    copyToWorkingCopy();
    state_.pads.pad_modal = 0;
}

void mainController::paLa_Pre() {
    setLight(window_.paLaCtrls, state_.layers.m_paLa, 0);
}

void mainController::paLa_Post(int padLayer) {
    setLight(window_.paLaCtrls, padLayer, 1);
}

void mainController::dataChgCore_pad(int control) {
    Selection& selection = state_.selection;
    const int padLayer = state_.layers.m_paLa;
    off_MoLa();
    if (padLayer >= 1 && padLayer < config::layerCount) {
        selection.keyEvnt = control;
        cleanBnSel();
        keepBnSel(control);
        rmTypSel();
        rmChanSel();
        rmTrigSel();
        window_.combo_cc.removeAllItems();
        if (state_.pads.pad_modal != 1) {
            pad234();
        }
    } else {
        dataChg(control);
    }
    if (selection.keyEvnt != noControl) {
        cleanBnSel();
        keepBnSel(control);
    }
    if (selection.keyEvnt == noControl || selection.keyEvnt != control) {
        selection.keyEvnt_bak = control;
    }
    selection.keyEvnt = control;
    greyTrigger(control);
    if (isPad(control)) {
        state_.layers.layrData = padLayer;
    }
    // The pad layer's block is shown, whatever block the main window edits.
    judgeKind(config::mode(state_.sysData, padLayer, control));
    refillValues(tables::data::Note());
    if (control == noControl) {
        rmMsgSel();
        rmChanSel();
        rmTypSel();
        rmTrigSel();
        return;
    }
    window_.combo_cc.selectItemAtIndex(config::number(state_.sysData, padLayer, control));
    window_.combo_chan.selectItemAtIndex(config::channel(state_.sysData, padLayer, control));
    window_.combo_trig.selectItemAtIndex(
        triggerIndex(state_, padLayer, control, config::mode(state_.sysData, padLayer, control)));
    window_.combo_type.selectItemAtIndex(state_.selection.msg_Typ);
}

void mainController::onLok() {
    const int locked = config::trailer(state_.sysData, 0, config::lockOffset) == 0 ? 1 : 0;
    config::setTrailerOfEveryLayer(state_.sysData, config::lockOffset, locked);
    showLock(0);
    report(describe::reportLock(locked != 0));
}

void mainController::lockCheck() {
    showLock(state_.layers.m_moLa);
}

void mainController::showLock(int layer) {
    const bool locked = config::trailer(state_.sysData, layer, config::lockOffset) != 0;
    window_.locker.setState(locked ? 1 : 0);
}

}  // namespace editor
