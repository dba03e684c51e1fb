// A person's choice in a property box is written into the image, for the edited control in the
// edited layer.

#include <algorithm>

#include "describe/controlNames.h"
#include "describe/reports.h"
#include "editor/mainController.h"
#include "editor/showState.h"

namespace editor {

namespace {

// A box that has been blank for long may hold a second blank behind its first.
constexpr int blankKind = tcmtv[0];
constexpr int blankChannel = tcmtv[1];
constexpr int blankNumber = tcmtv[2];
constexpr int blankTrigger = tcmtv[3];

/// The message kinds in the order of `combo_type`.
constexpr std::array<config::MessageKind, 3> kinds = {config::MessageKind::Note,
                                                      config::MessageKind::ControlChange,
                                                      config::MessageKind::ProgramChange};

}  // namespace

void mainController::comboBoxSelectionIsChanging(toolkit::ComboBox& box) {
    const int index = box.indexOfSelectedItem();
    if (index < 0) {
        return;  // nothing is selected, so nothing was chosen
    }
    if (&box == &window_.combo_mode) {
        switchMode(index);
        return;
    }
    if (state_.selection.keyEvnt == noControl) {
        showBlankIfOwn(box);
        return;
    }
    if (&box == &window_.combo_chan) {
        chooseChannel(index);
    } else if (&box == &window_.combo_type) {
        chooseKind(index);
    } else if (&box == &window_.combo_cc) {
        chooseNumber(index);
    } else if (&box == &window_.combo_trig) {
        chooseTrigger(index);
    }
}

/// A choice made for no control is for nothing, and the box says so.
void mainController::showBlankIfOwn(toolkit::ComboBox& box) {
    const auto boxes = propertyBoxes();
    if (std::find(boxes.begin(), boxes.end(), &box) != boxes.end()) {
        showBlank(box);
    }
}

void mainController::chooseChannel(int index) {
    const int layer = state_.layers.layrData;
    const int control = state_.selection.keyEvnt;
    const int stored = config::channel(state_.sysData, layer, control);
    if (index >= blankChannel) {
        window_.combo_chan.selectItemAtIndex(stored);
    } else if (index != stored) {
        config::setChannel(state_.sysData, layer, control, index);
        state_.bChange = 1;
        showTrigger();
        report(describe::reportChannel(describe::controlName(control), index));
    }
}

void mainController::chooseNumber(int index) {
    const int layer = state_.layers.layrData;
    const int control = state_.selection.keyEvnt;
    const int stored = config::number(state_.sysData, layer, control);
    if (index >= blankNumber) {
        window_.combo_cc.selectItemAtIndex(stored);
    } else if (index != stored) {
        config::setNumber(state_.sysData, layer, control, index);
        state_.bChange = 1;
        reportMessageOf(layer, control);
    }
}

void mainController::reportMessageOf(int layer, int control) {
    report(describe::reportMessage(
        describe::controlName(control),
        describe::assignmentOf(state_.sysData, layer, state_.modes.machn_mod, control)));
}

void mainController::chooseKind(int index) {
    const int layer = state_.layers.layrData;
    const int control = state_.selection.keyEvnt;
    const int modeByte = config::mode(state_.sysData, layer, control);
    state_.selection.msg_Typ = index;
    if (index >= blankKind) {
        window_.combo_type.selectItemAtIndex(TypOxOX_2Index(modeByte));
    } else {
        state_.selection.select_type = index;
        config::setMode(state_.sysData, layer, control,
                        config::withKind(modeByte, kinds[static_cast<std::size_t>(index)]));
        reportMessageOf(layer, control);
    }
    dataChgCore(control);
}

int mainController::TypOxOX_2Index(int modeByte) {
    return typePosition(config::kindBehindBlank(modeByte));
}

void mainController::chooseTrigger(int index) {
    const int layer = state_.layers.layrData;
    const int control = state_.selection.keyEvnt;
    const int modeByte = config::mode(state_.sysData, layer, control);
    if (index == 0 || index == 1) {
        state_.layers.bTrigAll.set(layer, false);
        config::setMode(state_.sysData, layer, control, config::withTrigger(modeByte, index == 1));
        report(describe::reportTrigger(describe::controlName(control), index == 1));
    } else if (index == 2 || index == 3) {
        state_.layers.bTrigAll.set(layer, true);
        makeWholeLayerTrigger(layer, index == 3);
    } else if (window_.combo_cc.indexOfSelectedItem() == blankTrigger) {
        // The blank changes nothing in the image. It is the value box that decides whether the
        // stored choice is shown again, and the pad layer's block that is asked for it, so that the
        // box may stay blank, or show another layer's choice, until the next selection.
        const int padLayer = state_.layers.m_paLa;
        window_.combo_trig.selectItemAtIndex(triggerIndex(
            state_, padLayer, control, config::mode(state_.sysData, padLayer, control)));
    }
}

/// Controls 0 to 46. The last encoder push, 47, has a trigger behaviour too, but keeps its own: it
/// is changed by selecting it. The report counts the controls accordingly.
void mainController::makeWholeLayerTrigger(int layer, bool toggles) {
    constexpr int lastControl = 46;
    report(describe::reportTriggerOfAll(layer, toggles, lastControl + 1));
    for (int control = 0; control <= lastControl; ++control) {
        const int modeByte = config::mode(state_.sysData, layer, control);
        config::setMode(state_.sysData, layer, control,
                        config::withTriggerOfLayer(modeByte, toggles));
    }
}

void mainController::toggleGray() {
    window_.combo_trig.setEnabled(false);
}

void mainController::triggerEnable() {
    window_.trigger.setEnabled(true);
    showTrigger();
}

/// The `trigger` button mirrors a byte of layer 0 that is a pad's channel too: called wherever
/// that byte may have changed.
void mainController::showTrigger() {
    window_.trigger.setState(state_.sysData[triggerPosition] != 0 ? 1 : 0);
}

}  // namespace editor
