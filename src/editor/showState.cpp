#include "editor/showState.h"

#include <algorithm>

#include "describe/controlNames.h"
#include "tables/data.h"

namespace editor {

using config::isLayerKey;
using config::isPad;

namespace {

/// One state, and what is shown of it.
class Showing {
public:
    Showing(const EditorState& state, const Shown& before)
        : state_(state),
          shown_(before),
          control_(state.selection.keyEvnt),
          layer_(state.layers.layrData),
          mode_(state.modes.machn_mod) {}

    Shown shown() {
        light();
        mirrorBytes();
        enable();
        fillBoxes();
        return shown_;
    }

private:
    /// The selected control alone is lit, and the mode layer while one of its controls is shown.
    /// A layer key that is selected as a control lights the mode layer of its number, which stays
    /// lit until it has been the current one; in a DAW mode it does not put the current one out.
    void light() {
        for (ShownButton& button : shown_.keysOrderedByTag) {
            button.state = 0;
        }
        if (control_ >= 0 && control_ < config::buttonCount) {
            const auto tag = static_cast<std::size_t>(describe::tagOfControl(control_));
            shown_.keysOrderedByTag[tag].state = 1;
        }
        if (isUserDefined() || !isLayerKey(control_)) {
            lightModeLayer(state_.layers.m_moLa, isUserDefined() && control_ < config::firstPad);
        }
        if (isLayerKey(control_)) {
            lightModeLayer(control_ - config::firstLayerKey, true);
        }
    }

    void lightModeLayer(int layer, bool lit) {
        if (isLayer(layer)) {
            shown_.moLaCtrls[static_cast<std::size_t>(layer)].state = lit ? 1 : 0;
        }
    }

    void mirrorBytes() {
        const bool locked =
            config::trailer(state_.sysData, state_.layers.m_moLa, config::lockOffset) != 0;
        shown_.locker.state = locked ? 1 : 0;
        shown_.trigger.state = state_.sysData[triggerPosition] != 0 ? 1 : 0;
    }

    /// A DAW mode's assignments are fixed. Encoders, faders and pads have no trigger behaviour.
    void enable() {
        shown_.combo_type.isEnabled = isUserDefined();
        shown_.combo_chan.isEnabled = isUserDefined();
        shown_.combo_cc.isEnabled = isUserDefined();
        const bool withoutTrigger = control_ >= config::firstEncoder && control_ <= config::lastPad;
        shown_.combo_trig.isEnabled = isUserDefined() && !withoutTrigger;
    }

    void fillBoxes() {
        select(shown_.combo_mode, mode_);
        const int modeByte = config::mode(state_.sysData, layer_, control_);
        const int kind =
            mode_ == huiMode ? kindControlChange : typePosition(config::shownKind(modeByte));
        shown_.combo_cc = {valuesOf(kind), 0, -1, shown_.combo_cc.isEnabled};
        if (control_ == noControl) {
            selectBlank(shown_.combo_type);
            selectBlank(shown_.combo_chan);
            selectBlank(shown_.combo_trig);
            return;
        }
        select(shown_.combo_type, kind);
        select(shown_.combo_chan, config::channel(state_.sysData, layer_, control_));
        select(shown_.combo_cc, config::number(state_.sysData, layer_, control_));
        select(shown_.combo_trig, triggerIndex(state_, layer_, control_, modeByte));
    }

    [[nodiscard]] texts::List valuesOf(int kind) const {
        switch (kind) {
            case kindControlChange:
                return mode_ == huiMode ? texts::List{} : tables::data::CC();
            case kindProgramChange:
                return tables::data::Prog();
            case kindNote:
                return tables::data::Note();
            default:
                return isPad(control_) ? tables::data::Note() : tables::data::Prog();
        }
    }

    static int itemsOf(const ShownBox& box) {
        return static_cast<int>(box.list.size()) + box.blanks;
    }

    static void select(ShownBox& box, int index) {
        box.selected = index >= 0 && index < itemsOf(box) ? index : -1;
    }

    static void selectBlank(ShownBox& box) {
        box.blanks = std::max(box.blanks, 1);
        box.selected = itemsOf(box) - 1;
    }

    [[nodiscard]] bool isUserDefined() const { return mode_ == userDefinedMode; }

    const EditorState& state_;
    Shown shown_;
    int control_;
    int layer_;
    int mode_;
};

}  // namespace

Shown shownOf(const EditorState& state, const Shown& before) {
    return Showing(state, before).shown();
}

void showState(const EditorState& state, MainWindow& window) {
    show(shownOf(state, shownBy(window)), window);
}

int triggerIndex(const EditorState& state, int layerOfFlag, int control, int modeByte) {
    const int choice = config::toggles(modeByte) ? 1 : 0;
    const bool all = control < config::firstEncoder && state.layers.bTrigAll.isSet(layerOfFlag) &&
                     state.modes.machn_mod == userDefinedMode;
    return all ? choice + 2 : choice;
}

}  // namespace editor
