#include "editor/pad.h"

#include "config/factoryTables.h"
#include "describe/controlNames.h"
#include "describe/reports.h"
#include "editor/padWriters.h"
#include "tables/data.h"

namespace editor {

using config::firstPad;
using config::isPad;

namespace {

constexpr int firstInterval = 25;  // ms, item 0 of the interval list
constexpr int firstVelocity = 20;  // item 0 of the constant-velocity list
constexpr int lastCurve = 4;       // a curve byte above it is a constant velocity
constexpr int constantCurve = 5;   // the item "Const"
constexpr int defaultVelocity = 84;
constexpr int blankVelocity = tcmtv[4];

std::size_t position(int index, int first) {
    return static_cast<std::size_t>(index - first);
}

/// A byte read as signed, as this window reads them: 0x80 and above lie in no list.
int asSigned(int byte) {
    return static_cast<std::int8_t>(byte);
}

}  // namespace

pad::pad(EditorState& state, MainWindow& mainWindow, toolkit::Desktop& desktop, Document* document)
    : m_paLa0(toolkit::Button::Click::Lights, config::firstTransportKey),
      m_paLa1(toolkit::Button::Click::Lights, config::firstTransportKey + 1),
      m_paLa2(toolkit::Button::Click::Lights, config::firstTransportKey + 2),
      m_paLa3(toolkit::Button::Click::Lights, config::firstTransportKey + 3),
      state_(state),
      mainWindow_(mainWindow),
      desktop_(desktop),
      document_(document),
      m_paLas_{&m_paLa1, &m_paLa1, &m_paLa2, &m_paLa3} {}

void pad::awakeFromNib() {
    PadEditing& pads = state_.pads;
    pads.pad_modal = 1;
    mainWindow_.window.orderOut();
    pads.m_pad_CurSel = state_.selection.keyEvnt;
    connectActions();
    fillBoxes();
    showLayerSettings(currentLayer());
    const int curve =
        asSigned(config::trailer(pads.sysbuf_domal, currentLayer(), config::curveOffset));
    combo_curv.selectItemAtIndex(curve < 8 ? curve : constantCurve);
    if (isPad(state_.selection.keyEvnt)) {
        pad_core(pads.m_pad_CurSel);
    }
    PaLa(currentLayer());
    pads.isInit2 = 1;
    history_.emplace(moment());
    tellActionEnded();
}

void pad::connectActions() {
    const auto clicked = [this](void (pad::*act)(toolkit::Button&)) {
        return [this, act](toolkit::Button& sender) {
            (this->*act)(sender);
            actionHasEnded();
        };
    };
    for (toolkit::Button& button : m_pads) {
        button.action = clicked(&pad::onSele);
    }
    for (toolkit::Button* button : {&m_paLa1, &m_paLa2, &m_paLa3}) {
        button->action = clicked(&pad::OnzPaLa);
    }
    for (toolkit::ComboBox* box : boxes()) {
        box->onChoice = [this, box] {
            const Choice choice{box, box->indexOfSelectedItem()};
            comboBoxSelectionIsChanging(*box);
            actionHasEnded(choice);
        };
    }
    finish.action = [this](toolkit::Button&) { OnFinish(); };
}

std::array<toolkit::ComboBox*, 6> pad::boxes() {
    return {&combo_chan, &combo_chanMod, &combo_msg, &combo_intervl, &combo_curv, &combo_curConst};
}

void pad::tellActionEnded() {
    if (actionEnded) {
        actionEnded();
    }
}

void pad::report(std::string_view text) {
    status.setStringValue(text);
}

void pad::reportOfLayer(std::string_view text) {
    report(describe::padLayerName(currentLayer()) + ": " + std::string(text));
}

describe::Assignment pad::assignmentOfPad(int control) const {
    return describe::assignmentOf(state_.pads.sysbuf_domal, currentLayer(), state_.modes.machn_mod,
                                  control);
}

void pad::fillBoxes() {
    combo_chan.addItemsWithObjectValues(tables::data::Chan());
    combo_chanMod.addItemsWithObjectValues(tables::data::ChanMod());
    combo_msg.addItemsWithObjectValues(tables::data::Note());
    combo_intervl.addItemsWithObjectValues(tables::data::ms());
    combo_curv.addItemsWithObjectValues(tables::data::curv());
    combo_curConst.addItemsWithObjectValues(tables::data::curv5_vel());
}

void pad::windowWillClose() {
    desktop_.stopModal();
}

void pad::OnFinish() {
    desktop_.stopModal();
    state_.pads.isInit2 = 0;
}

void pad::onSele(toolkit::Button& sender) {
    if (!isPad(sender.tag())) {
        return;
    }
    selectPad(config::aPadMap[position(sender.tag(), firstPad)]);
}

void pad::selectPad(int control) {
    if (control == currentPad() && isPad(control)) {
        ownButtonOf(control).setState(1);
    } else {
        pad_core(control);
    }
}

void pad::pad_core(int control) {
    if (!isPad(control)) {
        return;
    }
    const int old = currentPad();
    if (isPad(old)) {
        ownButtonOf(old).setState(0);
    }
    if (config::isLayerKey(old) && isLayer(state_.layers.m_moLa)) {
        mainWindow_.moLaCtrls[position(state_.layers.m_moLa, 0)].setState(0);
    }
    ownButtonOf(control).setState(1);
    data_change_pad(control);
}

void pad::data_change_pad(int control) {
    if (isPad(control)) {
        const config::Image& copy = state_.pads.sysbuf_domal;
        combo_chan.selectItemAtIndex(asSigned(config::channel(copy, currentLayer(), control)));
        combo_msg.selectItemAtIndex(asSigned(config::number(copy, currentLayer(), control)));
        if (isPad(currentPad())) {
            mainButtonOf(currentPad()).setState(0);
        }
        mainButtonOf(control).setState(1);
    }
    state_.pads.m_pad_CurSel = control;
    enableBoxes();
}

/// A choice made for no pad would fall on another control's bytes, and a note is taken only while
/// the main window has a control selected: such boxes take no choice.
void pad::enableBoxes() {
    const bool padSelected = isPad(currentPad());
    combo_chan.setEnabled(padSelected || state_.pads.abChAll.isSet(currentLayer()));
    combo_msg.setEnabled(padSelected && state_.selection.keyEvnt != noControl);
}

void pad::OnzPaLa(toolkit::Button& sender) {
    zPaLa(sender.tag() - config::firstTransportKey);
    report(describe::padLayerName(currentLayer()));
}

void pad::zPaLa(int padLayer) {
    const int old = currentLayer();
    if (old == 0 || !isLayer(padLayer)) {
        return;
    }
    if (padLayer == old) {
        layerButton(padLayer).setState(1);
        return;
    }
    layerButton(old).setState(0);
    mainWindow_.paLaCtrls[position(old, 0)].setState(0);
    PaLa(padLayer);
}

void pad::PaLa(int padLayer) {
    if (!isLayer(padLayer)) {
        return;
    }
    state_.pads.m_zPaLayer_CurSel = padLayer;
    layerButton(padLayer).setState(1);
    mainWindow_.paLaCtrls[position(padLayer, 0)].setState(1);
    showLayerSettings(padLayer);
    showVelocity(padLayer);
    data_change_pad(currentPad());
}

/// Interval and channel mode of a layer.
void pad::showLayerSettings(int padLayer) {
    combo_intervl.selectItemAtIndex(
        config::trailer(state_.pads.sysbuf_domal, padLayer, config::intervalOffset) -
        firstInterval);
    combo_chanMod.selectItemAtIndex(state_.pads.abChAll.isSet(padLayer) ? 1 : 0);
}

void pad::showVelocity(int padLayer) {
    const int curve =
        asSigned(config::trailer(state_.pads.sysbuf_domal, padLayer, config::curveOffset));
    if (curve > lastCurve) {
        combo_curConst.setEnabled(true);
        combo_curv.selectItemAtIndex(constantCurve);
        combo_curConst.selectItemAtIndex(curve - firstVelocity);
        tx_Non.setStringValue("Const");
    } else {
        rmVelSel();
        combo_curConst.setEnabled(false);
        combo_curv.selectItemAtIndex(curve);
        tx_Non.setStringValue("None");
    }
}

void pad::rmVelSel() {
    const int last = combo_curConst.numberOfItems() - 1;
    const auto item = combo_curConst.itemObjectValueAtIndex(last);
    if (!item || !toolkit::isBlankEntry(*item)) {
        combo_curConst.addItemWithObjectValue(toolkit::blankEntry);
    }
    combo_curConst.selectItemAtIndex(combo_curConst.numberOfItems() - 1);
}

void pad::comboBoxSelectionIsChanging(toolkit::ComboBox& box) {
    const int index = box.indexOfSelectedItem();
    if (index < 0) {
        return;
    }
    if (&box == &combo_chan) {
        chooseChannel(index);
    } else if (&box == &combo_intervl) {
        chooseInterval(index);
    } else if (&box == &combo_curv) {
        chooseCurve(index);
    } else if (&box == &combo_curConst) {
        chooseConstantVelocity(index);
    } else if (&box == &combo_chanMod) {
        chooseChannelMode(index);
    } else if (&box == &combo_msg) {
        chooseNote(index);
    }
}

void pad::chooseChannel(int index) {
    const int layer = currentLayer();
    const bool all = state_.pads.abChAll.isSet(layer);
    const int first = all ? firstPad : currentPad();
    const int last = all ? config::lastPad : currentPad();
    for (int control = first; control <= last; ++control) {
        config::setChannel(state_.pads.sysbuf_domal, layer, control, index);
        setPaChan_domal(layer, control, index);
    }
    data_change_pad(currentPad());
    report(describe::reportChannel(
        all ? describe::padLayerName(layer) + ", all pads" : describe::controlName(currentPad()),
        index));
}

/// The live image gets the position in the list, the working copy the milliseconds. The position is
/// never sent: when the pad editor closes, the working copy takes its place.
void pad::chooseInterval(int index) {
    config::setTrailer(state_.pads.sysbuf_domal, currentLayer(), config::intervalOffset,
                       index + firstInterval);
    setPaIntrvl_domal(currentLayer(), index);
    reportOfLayer("interval " + std::to_string(index + firstInterval) + " ms");
}

void pad::chooseCurve(int index) {
    const int layer = currentLayer();
    config::Image& copy = state_.pads.sysbuf_domal;
    std::int8_t& kept = keptVelocity(layer);
    if (index > lastCurve) {
        combo_curConst.setEnabled(true);
        if (kept <= lastCurve) {
            kept = defaultVelocity;
        }
        config::setTrailer(copy, layer, config::curveOffset, kept);
        combo_curConst.selectItemAtIndex(kept - firstVelocity);
        tx_Non.setStringValue("Const");
        reportConstantVelocity(kept);
    } else {
        combo_curConst.setEnabled(false);
        rmVelSel();
        kept = static_cast<std::int8_t>(config::trailer(copy, layer, config::curveOffset));
        config::setTrailer(copy, layer, config::curveOffset, index);
        tx_Non.setStringValue("None");
        reportOfLayer("velocity Curve" + std::to_string(index));
    }
    setPaCurv_domal(layer, index);
}

/// The live image is not touched.
void pad::chooseConstantVelocity(int index) {
    const int layer = currentLayer();
    config::Image& copy = state_.pads.sysbuf_domal;
    if (index == blankVelocity) {
        combo_curConst.selectItemAtIndex(
            asSigned(config::trailer(copy, layer, config::curveOffset)) - firstVelocity);
        return;
    }
    config::setTrailer(copy, layer, config::curveOffset, index + firstVelocity);
    keptVelocity(layer) = static_cast<std::int8_t>(index + firstVelocity);
    reportConstantVelocity(index + firstVelocity);
}

void pad::reportConstantVelocity(int velocity) {
    reportOfLayer("constant velocity " + std::to_string(velocity));
}

void pad::chooseChannelMode(int index) {
    state_.pads.abChAll.set(currentLayer(), index != 0);
    enableBoxes();
    reportOfLayer(index != 0 ? "a channel counts for all nine pads"
                             : "a channel counts for the selected pad");
}

void pad::chooseNote(int index) {
    if (state_.selection.keyEvnt == noControl) {
        return;
    }
    config::setNumber(state_.pads.sysbuf_domal, currentLayer(), currentPad(), index);
    setPaCc_domal(currentLayer(), currentPad(), index);
    data_change_pad(currentPad());
    report(describe::reportMessage(describe::controlName(currentPad()),
                                   assignmentOfPad(currentPad())));
}

void pad::setPaCc_domal(int layer, int control, int value) {
    padWriters::setPaCc_domal(state_.sysData, layer, control, value);
}
void pad::setPaChan_domal(int layer, int control, int value) {
    padWriters::setPaChan_domal(state_.sysData, layer, control, value);
}
void pad::setPaIntrvl_domal(int layer, int value) {
    padWriters::setPaIntrvl_domal(state_.sysData, layer, value);
}
void pad::setPaCurv_domal(int layer, int value) {
    padWriters::setPaCurv_domal(state_.sysData, layer, value);
}

toolkit::Button& pad::ownButtonOf(int control) {
    return m_pads[position(config::aMapPad[position(control, firstPad)], firstPad)];
}

toolkit::Button& pad::mainButtonOf(int control) {
    const int tag = config::aMapPad[position(control, firstPad)];
    return mainWindow_.keysOrderedByTag[position(tag, 0)];
}

toolkit::Button& pad::layerButton(int padLayer) {
    return *m_paLas_[position(padLayer, 0)];
}

std::int8_t& pad::keptVelocity(int padLayer) {
    return state_.pads.SYSBuf_vel_bak[position(padLayer, 0)];
}

}  // namespace editor
