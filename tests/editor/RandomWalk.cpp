#include "editor/RandomWalk.h"

#include <algorithm>
#include <utility>

namespace editor {

namespace {

/// Whether a mode change may exchange the byte.
bool mayBeSwapped(int layer, int offset) {
    const int endOfChannels = layer == 0 ? 80 : 71;
    const int endOfNumbers = layer == 0 ? 160 : 151;
    return (offset >= 7 && offset < endOfChannels) || (offset >= 81 && offset < endOfNumbers) ||
           (offset >= 161 && offset < 246);
}

}  // namespace

RandomWalk::RandomWalk(std::uint64_t seed, PadEditorRuns runs) : random_(seed), runs_(runs) {
    MainWindow& window = editor_.window;
    for (toolkit::ComboBox* box : {&window.combo_mode, &window.combo_type, &window.combo_chan,
                                   &window.combo_cc, &window.combo_trig}) {
        watch(*box);
    }
}

int RandomWalk::below(int count) {
    return static_cast<int>(random_() % static_cast<std::uint64_t>(count));
}

void RandomWalk::did(std::string what) {
    history_.push_back(std::move(what));
    if (history_.size() > 40) {
        history_.pop_front();
    }
}

std::string RandomWalk::history() const {
    std::string lines;
    for (const std::string& line : history_) {
        lines += line + '\n';
    }
    return lines;
}

void RandomWalk::require(bool holds, const char* promise) {
    if (!holds && problem_.empty()) {
        problem_ = promise;
    }
}

// Steps in the main window. Each says what it may write, and checks that.

void RandomWalk::step() {
    before_ = editor_.state.sysData;
    triggerBoxRefreshed_ = true;
    editor_.desktop.clearJournal();
    const int kind = below(100);
    if (kind < 30) {
        clickControl();
    } else if (kind < 38) {
        clickModeLayer();
    } else if (kind < 46) {
        clickPadLayer();
    } else if (kind < 54) {
        chooseMode();
    } else if (kind < 64) {
        chooseByte(editor_.window.combo_chan, "channel", 7);
    } else if (kind < 74) {
        chooseByte(editor_.window.combo_cc, "number", 87);
    } else if (kind < 84) {
        chooseKind();
    } else if (kind < 94) {
        chooseTrigger();
    } else if (kind < 97) {
        clickLock();
    } else {
        flipAbsoluteByte();
    }
    checkFrame();
    checkSharedBytes();
    checkMainBoxes();
    checkTrigger();
    if (runs_ == PadEditorRuns::AlwaysSucceed) {
        checkControlLights();
        checkLayerLights();
    }
}

void RandomWalk::clickControl() {
    const int control = below(74);
    did("control " + std::to_string(control));
    editor_.click(control);
    require(editor_.state.selection.keyEvnt == control, "a click selects its control");
    checkNothingChanged();
}

void RandomWalk::clickModeLayer() {
    const int layer = below(4);
    did("mode layer " + std::to_string(layer));
    editor_.clickModeLayer(layer);
    require(editor_.state.layers.m_moLa == layer, "a click selects its mode layer");
    checkNothingChanged();
}

void RandomWalk::clickPadLayer() {
    const int layer = below(4);
    did("pad layer " + std::to_string(layer));
    const bool fails = layer > 0 && runs_ == PadEditorRuns::SometimesFail && oneIn(3);
    if (fails && oneIn(2)) {
        did("  cannot be shown");
        editor_.desktop.refuseModal<pad>();
    } else if (fails) {
        did("  is given up");
        editor_.desktop.failModal([](toolkit::WindowController&) {});
    } else if (layer > 0) {
        editor_.desktop.onModal<pad>([this](pad& padEditor) { usePadEditor(padEditor); });
    }
    editor_.clickPadLayer(layer);
    const bool used = layer > 0 && !fails;
    checkOnlyChanged([used](int changedLayer, int offset) {
        return used && changedLayer > 0 && offset >= 7 && offset <= 249;
    });
    if (used) {
        for (int taken = 1; taken < 4; ++taken) {
            for (int offset = 7; offset <= 249; ++offset) {
                require(editor_.byte(taken, offset) == editor_.copied(taken, offset),
                        "what was edited in the pad editor is taken over");
            }
        }
    }
    require(editor_.window.paLaCtrls[0].isEnabled(), "pad layer 1 can be clicked again");
}

void RandomWalk::chooseMode() {
    const int mode = oneIn(2) ? 0 : below(6);
    const bool isChoice = editor_.window.combo_mode.indexOfSelectedItem() != mode;
    did("mode " + std::to_string(mode));
    editor_.chooseMode(mode);
    triggerBoxRefreshed_ = isChoice;
    require(editor_.state.modes.machn_mod == mode, "the chosen mode is in force");
    require(editor_.byte(0, 248) == mode, "the chosen mode stands in the image");
    checkOnlyChanged(
        [](int layer, int offset) { return offset == 248 || mayBeSwapped(layer, offset); });
}

RandomWalk::Pick RandomWalk::choose(toolkit::ComboBox& box, const char* name) {
    if (box.numberOfItems() == 0) {
        return {};
    }
    Pick pick;
    pick.index = below(box.numberOfItems());
    if (oneIn(8)) {
        pick.index = box.numberOfItems() - 1;  // often a blank
    } else if (oneIn(8)) {
        pick.index = std::min(4, box.numberOfItems() - 1);  // where boxes refer to each other
    }
    pick.isChoice = box.isEnabled() && pick.index != box.indexOfSelectedItem();
    pick.blank = toolkit::isBlankEntry(*box.itemObjectValueAtIndex(pick.index));
    did(std::string(name) + ' ' + std::to_string(pick.index) +
        (pick.isChoice ? "" : " (not taken)"));
    box.choose(pick.index);
    return pick;
}

void RandomWalk::chooseByte(toolkit::ComboBox& box, const char* name, int offset) {
    const Pick pick = choose(box, name);
    triggerBoxRefreshed_ = false;
    if (!pick.isChoice || pick.blank || nothingSelected()) {
        checkNothingChanged();
        return;
    }
    require(editedByte(offset) == pick.index, "what was chosen is written");
    checkOnlyChanged(
        [&](int layer, int changed) { return position(layer, changed) == edited(offset); });
}

void RandomWalk::chooseKind() {
    const Pick pick = choose(editor_.window.combo_type, "kind");
    triggerBoxRefreshed_ = pick.isChoice && !nothingSelected();
    if (!triggerBoxRefreshed_ || pick.blank) {
        checkNothingChanged();
        return;
    }
    constexpr std::array<int, 3> bits = {9, 11, 12};
    require(editedByte(167) ==
                (before_.at(edited(167)) & 0xE0) + bits.at(static_cast<std::size_t>(pick.index)),
            "the chosen kind is written");
    checkOnlyChanged(
        [&](int layer, int changed) { return position(layer, changed) == edited(167); });
}

void RandomWalk::chooseTrigger() {
    const Pick pick = choose(editor_.window.combo_trig, "trigger");
    triggerBoxRefreshed_ = false;
    if (!pick.isChoice) {
        checkNothingChanged();
        return;
    }
    shownTrigger_ = pick.index;
    if (pick.blank || nothingSelected()) {
        checkNothingChanged();
        if (!nothingSelected() && editor_.window.combo_cc.indexOfSelectedItem() == 4) {
            shownTrigger_ = storedTrigger(editor_.state.layers.m_paLa);
        }
        return;
    }
    const int control = editor_.state.selection.keyEvnt;
    const int edits = editor_.state.layers.layrData;
    const bool all = pick.index >= 2;
    if (!all || control <= 46) {
        require((editedByte(167) >> 6) == pick.index % 2, "the chosen trigger is written");
    }
    checkOnlyChanged([&](int layer, int offset) {
        const bool inReach = all ? offset >= 167 && offset <= 213 : offset == 167 + control;
        const int changed = editor_.byte(layer, offset) ^ before_.at(position(layer, offset));
        return layer == edits && inReach && changed == 0x40;
    });
}

void RandomWalk::clickLock() {
    did("lock");
    editor_.window.locker.click();
    triggerBoxRefreshed_ = false;
    require(editor_.byte(0, 250) != before_.at(250), "a click flips the lock");
    checkOnlyChanged([](int, int offset) { return offset == 250; });
}

void RandomWalk::flipAbsoluteByte() {
    const bool toggles = oneIn(2);
    did(toggles ? "toggle" : "gradual");
    if (toggles) {
        editor_.controller.toggle();
    } else {
        editor_.controller.gradual();
    }
    triggerBoxRefreshed_ = false;
    checkOnlyChanged(
        [toggles](int layer, int offset) { return layer == 0 && offset == (toggles ? 73 : 75); });
}

// Steps in the pad editor.

void RandomWalk::usePadEditor(pad& padEditor) {
    for (toolkit::ComboBox* box :
         {&padEditor.combo_chan, &padEditor.combo_chanMod, &padEditor.combo_msg,
          &padEditor.combo_intervl, &padEditor.combo_curv, &padEditor.combo_curConst}) {
        watch(*box);
    }
    const config::Image atStart = editor_.state.sysData;
    for (int steps = below(13); steps > 0; --steps) {
        stepInPadEditor(padEditor);
        checkPadEditor(padEditor);
    }
    checkFrame();
    checkSharedBytes();
    require(std::equal(atStart.begin(), atStart.begin() + 254, editor_.state.sysData.begin()),
            "the pad editor leaves block 0 alone");
    if (oneIn(2)) {
        did("  finish");
        padEditor.finish.click();
    } else {
        did("  close");
        padEditor.window().close();
    }
}

void RandomWalk::stepInPadEditor(pad& padEditor) {
    const std::array<toolkit::Button*, 3> layers = {&padEditor.m_paLa1, &padEditor.m_paLa2,
                                                    &padEditor.m_paLa3};
    const int kind = below(10);
    switch (kind) {
        case 0:
        case 1: {
            const int button = below(9);
            did("  pad " + std::to_string(button));
            padEditor.m_pads.at(static_cast<std::size_t>(button)).click();
            break;
        }
        case 2: {
            const int button = below(3);
            did("  layer " + std::to_string(button + 1));
            layers.at(static_cast<std::size_t>(button))->click();
            break;
        }
        case 3:
            choose(padEditor.combo_chan, "  channel");
            break;
        case 4:
            choose(padEditor.combo_chanMod, "  channel mode");
            break;
        case 5:
            choose(padEditor.combo_msg, "  note");
            break;
        case 6:
            choose(padEditor.combo_intervl, "  interval");
            break;
        case 7:
        case 8:
            choose(padEditor.combo_curv, "  curve");
            break;
        default:
            choose(padEditor.combo_curConst, "  velocity");
    }
}

}  // namespace editor
