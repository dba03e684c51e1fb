// Selecting a control and showing its assignment in the property boxes.

#include "describe/controlNames.h"
#include "editor/mainController.h"
#include "editor/showState.h"
#include "tables/data.h"

namespace editor {

using config::isLayerKey;
using config::isPad;

namespace {

bool hasButton(int control) {
    return control >= 0 && control < config::buttonCount;
}

bool hasBlankAt(const toolkit::ComboBox& box, int index) {
    const auto item = box.itemObjectValueAtIndex(index);
    return item && toolkit::isBlankEntry(*item);
}

void selectLast(toolkit::ComboBox& box) {
    box.selectItemAtIndex(box.numberOfItems() - 1);
}

}  // namespace

void mainController::typeSelect1(toolkit::Button& sender) {
    const int tag = sender.tag();
    if (isPad(tag)) {
        dataChgCore_pad(describe::controlOfTag(tag));
    } else {
        dataChg(tag);
    }
}

void mainController::dataChg(int control) {
    if (state_.modes.machn_mod == userDefinedMode && control < config::firstPad) {
        on_MoLa(state_.layers.m_moLa);
    }
    dataChgCore(control);
}

void mainController::dataChgCore(int control) {
    const bool ordinary = control < config::firstLayerKey ||
                          (control > config::lastLayerKey && control <= config::lastPad);
    if (state_.modes.machn_mod != userDefinedMode && ordinary) {
        off_MoLa();
    }
    cleanBnSel();
    keepBnSel(control);
    state_.selection.keyEvnt_bak = control;
    state_.selection.keyEvnt = control;
    if (isLayerKey(control)) {
        on_MoLa(control - config::firstLayerKey);
    }
    if (state_.pads.pad_modal != 0) {
        showBlanksBesidePadEditor();
        return;
    }
    showControl(tables::data::Prog());
    if (control != noControl) {
        getKeySel(state_.layers.m_moLa);
    }
}

/// What the boxes show is what a choice in them would change. Called where an action has left
/// them with the bytes of another layer.
void mainController::showSelectionAfresh() {
    if (state_.selection.keyEvnt == noControl) {
        return;
    }
    showControl(isPad(state_.selection.keyEvnt) ? tables::data::Note() : tables::data::Prog());
}

/// Shows the assignment of the edited control in the edited layer. It changes nothing but the
/// boxes and `msg_Typ`.
void mainController::showControl(texts::List listForUnknownKind) {
    const int control = state_.selection.keyEvnt;
    const int layer = state_.layers.layrData;
    greyTrigger(control);
    judgeKind(config::mode(state_.sysData, layer, control));
    refillValues(listForUnknownKind);
    if (control == noControl) {
        rmTypSel();
        rmChanSel();
        rmTrigSel();
        return;
    }
    showAssignment(layer, control);
}

/// Encoders, faders and pads have no trigger behaviour; the others' can be edited in User Defined
/// mode alone.
void mainController::greyTrigger(int control) {
    const bool withoutTrigger = control >= config::firstEncoder && control <= config::lastPad;
    window_.combo_trig.setEnabled(!withoutTrigger &&
                                  window_.combo_mode.indexOfSelectedItem() == userDefinedMode);
}

void mainController::judgeKind(int modeByte) {
    const bool hui = window_.combo_mode.indexOfSelectedItem() == huiMode;
    state_.selection.msg_Typ = hui ? kindControlChange : typePosition(config::shownKind(modeByte));
}

/// Fills the value box for the kind in `msg_Typ`. HUI mode offers no values. For an unknown kind an
/// ordinary control offers programs and a pad notes, as whoever calls says.
void mainController::refillValues(texts::List listForUnknownKind) {
    const bool hui = window_.combo_mode.indexOfSelectedItem() == huiMode;
    window_.combo_cc.removeAllItems();
    switch (state_.selection.msg_Typ) {
        case kindControlChange:
            if (!hui) {
                window_.combo_cc.addItemsWithObjectValues(tables::data::CC());
            }
            break;
        case kindProgramChange:
            window_.combo_cc.addItemsWithObjectValues(tables::data::Prog());
            break;
        case kindNote:
            if (!hui) {
                window_.combo_cc.addItemsWithObjectValues(tables::data::Note());
            }
            break;
        default:
            window_.combo_cc.addItemsWithObjectValues(listForUnknownKind);
    }
}

void mainController::showAssignment(int layer, int control) {
    const config::Image& image = state_.sysData;
    window_.combo_chan.selectItemAtIndex(config::channel(image, layer, control));
    window_.combo_trig.selectItemAtIndex(
        triggerIndex(state_, layer, control, config::mode(image, layer, control)));
    window_.combo_type.selectItemAtIndex(state_.selection.msg_Typ);
    if (state_.modes.machn_mod != huiMode) {
        window_.combo_cc.selectItemAtIndex(config::number(image, layer, control));
    }
}

/// While the pad editor is open the boxes show no value. Whether type and channel box hold their
/// blank already is looked up at the last position of the trigger box, not at their own. So they
/// can get a second blank, and whoever reads them must take that for a blank, too. Behind the end
/// of a list there is no blank.
void mainController::showBlanksBesidePadEditor() {
    window_.combo_cc.removeAllItems();
    for (toolkit::ComboBox* box : {&window_.combo_type, &window_.combo_chan, &window_.combo_trig}) {
        const int borrowed = window_.combo_trig.numberOfItems() - 1;
        if (!hasBlankAt(*box, borrowed)) {
            box->addItemWithObjectValue(toolkit::blankEntry);
        }
        selectLast(*box);
    }
}

toolkit::Button& mainController::buttonOf(int control) {
    return window_.keysOrderedByTag[static_cast<std::size_t>(describe::tagOfControl(control))];
}

void mainController::cleanBnSel() {
    if (hasButton(state_.selection.keyEvnt_bak)) {
        buttonOf(state_.selection.keyEvnt_bak).setState(0);
    }
}

void mainController::keepBnSel(int control) {
    if (hasButton(control)) {
        buttonOf(control).setState(1);
    }
}

void mainController::getKeySel(int modeLayer) {
    const int control = state_.selection.keyEvnt;
    if (state_.modes.machn_mod != userDefinedMode || isLayerKey(control) ||
        control > config::lastFader || !isLayer(modeLayer)) {
        return;
    }
    state_.selection.key_sel[static_cast<std::size_t>(modeLayer)] = control;
}

void mainController::setKeySel() {
    if (state_.modes.machn_mod != userDefinedMode || !isLayer(state_.layers.m_moLa)) {
        return;
    }
    int& remembered = state_.selection.key_sel[static_cast<std::size_t>(state_.layers.m_moLa)];
    if (remembered == noControl) {
        remembered = 0;
    }
    state_.selection.keyEvnt = remembered;
}

void mainController::showBlank(toolkit::ComboBox& box) {
    if (!hasBlankAt(box, box.numberOfItems() - 1)) {
        box.addItemWithObjectValue(toolkit::blankEntry);
    }
    selectLast(box);
}

void mainController::rmTypSel() {
    showBlank(window_.combo_type);
}
void mainController::rmChanSel() {
    showBlank(window_.combo_chan);
}
void mainController::rmTrigSel() {
    showBlank(window_.combo_trig);
}
void mainController::rmMsgSel() {
    showBlank(window_.combo_cc);
}

}  // namespace editor
