// What must hold after each step of a random walk.

#include <algorithm>
#include <string_view>

#include "editor/RandomWalk.h"

namespace editor {

void RandomWalk::checkFrame() {
    const config::Image& image = editor_.state.sysData;
    if (image == checkedImage_) {
        return;
    }
    checkedImage_ = image;
    constexpr std::array<int, 6> header = {0xF0, 0x1D, 0x03, 0x00, 0x69, 0x4E};
    for (int layer = 0; layer < 4; ++layer) {
        for (int offset = 0; offset < 6; ++offset) {
            require(
                image.at(position(layer, offset)) == header.at(static_cast<std::size_t>(offset)),
                "every block keeps its header");
        }
        require(image.at(position(layer, 6)) == layer + 1, "every block keeps its number");
        require(image.at(position(layer, 253)) == 0xF7, "every block keeps its end");
        const auto* block = image.data() + position(layer, 0);
        require(std::all_of(block + 1, block + 253, [](std::uint8_t byte) { return byte < 0x80; }),
                "between F0 and F7 a byte has seven bits");
    }
}

void RandomWalk::checkPadCopy() {
    const config::Image& copy = editor_.state.pads.sysbuf_domal;
    if (copy == checkedPadCopy_) {
        return;
    }
    checkedPadCopy_ = copy;
    for (std::size_t i = 254; i < 1016; ++i) {
        const bool frame = i % 254 == 0 || i % 254 == 253;
        require(frame || copy.at(i) < 0x80, "the copy's bytes have seven bits");
    }
}

void RandomWalk::checkSharedBytes() {
    for (const int offset : {248, 250}) {
        for (int layer = 1; layer < 4; ++layer) {
            require(editor_.byte(layer, offset) == editor_.byte(0, offset),
                    "mode and lock are the same in the four blocks");
        }
    }
    require(editor_.byte(0, 248) == editor_.state.modes.machn_mod, "the mode stands in the image");
}

void RandomWalk::checkOnlyChanged(const std::function<bool(int, int)>& mayChange) {
    const config::Image& image = editor_.state.sysData;
    if (std::equal(image.begin(), image.end(), before_.begin())) {
        return;
    }
    for (std::size_t i = 0; i < image.size(); ++i) {
        if (image.at(i) == before_.at(i)) {
            continue;
        }
        const auto layer = static_cast<int>(i / 254);
        const auto offset = static_cast<int>(i % 254);
        require(mayChange && layer < 4 && mayChange(layer, offset),
                "a step writes only what it is meant to write");
    }
}

void RandomWalk::watch(toolkit::ComboBox& box) {
    blanks_.erase(&box);
    box.onChange = [this, &box](toolkit::ComboBox::Change change) {
        if (change == toolkit::ComboBox::Change::Items) {
            blanks_.erase(&box);
        }
    };
}

int RandomWalk::blanksOf(const toolkit::ComboBox& box) {
    const auto [known, isNew] = blanks_.try_emplace(&box);
    if (isNew) {
        for (int i = 0; i < box.numberOfItems(); ++i) {
            known->second += toolkit::isBlankEntry(*box.itemObjectValueAtIndex(i)) ? 1 : 0;
        }
    }
    return known->second;
}

void RandomWalk::checkBox(const toolkit::ComboBox& box) {
    require(box.indexOfSelectedItem() >= -1 && box.indexOfSelectedItem() < box.numberOfItems(),
            "a box selects only what it has");
    // A pad editor that was given up leaves the boxes blank, and each control clicked from then on
    // may add another blank: that borrowed position.
    require(blanksOf(box) <= 1 || runs_ == PadEditorRuns::SometimesFail,
            "a box holds one blank at most");
}

void RandomWalk::checkMainBoxes() {
    MainWindow& window = editor_.window;
    const bool userDefined = editor_.state.modes.machn_mod == 0;
    for (toolkit::ComboBox* box : {&window.combo_chan, &window.combo_cc, &window.combo_type}) {
        checkBox(*box);
        require(box->isEnabled() == userDefined,
                "type, channel and value can be chosen in User Defined mode alone");
    }
    checkBox(window.combo_trig);
    checkBox(window.combo_mode);
    require(window.combo_mode.indexOfSelectedItem() == editor_.state.modes.machn_mod,
            "the mode box shows the mode");
    require(window.locker.state() == editor_.byte(0, 250), "the lock button shows the lock");
    require(editor_.state.pads.pad_modal == 0 || runs_ == PadEditorRuns::SometimesFail,
            "the pad editor is closed");
    if (userDefined && !nothingSelected() && editor_.state.pads.pad_modal == 0) {
        checkShownAssignment();
    }
}

void RandomWalk::checkShownAssignment() {
    MainWindow& window = editor_.window;
    require(
        showsBlank(window.combo_chan) || window.combo_chan.indexOfSelectedItem() == editedByte(7),
        "the channel box shows the byte that it changes");
    require(showsBlank(window.combo_cc) || window.combo_cc.indexOfSelectedItem() == editedByte(87),
            "the value box shows the byte that it changes");
    struct Kind {
        int index;
        std::string_view firstValue;
    };
    const int nibble = editedByte(167) & 0x0F;
    const Kind kind = nibble == 9    ? Kind{0, "-1(C)"}
                      : nibble == 12 ? Kind{2, "0)---"}
                                     : Kind{1, "0 Bank MSB"};
    require(nibble == 9 || nibble == 11 || nibble == 12 || nibble == 14,
            "only known kinds are stored");
    require(showsBlank(window.combo_type) || window.combo_type.indexOfSelectedItem() == kind.index,
            "the type box shows the bits that it changes");
    require(window.combo_cc.itemObjectValueAtIndex(0) == kind.firstValue,
            "the value box offers the values of the kind");
}

void RandomWalk::checkTrigger() {
    require(editor_.window.trigger.state() == (editor_.byte(0, 73) != 0 ? 1 : 0),
            "the trigger lamp mirrors its byte");
    const toolkit::ComboBox& box = editor_.window.combo_trig;
    const int control = editor_.state.selection.keyEvnt;
    const bool open = editor_.state.pads.pad_modal != 0;
    const bool userDefined = editor_.state.modes.machn_mod == 0;
    if (!open) {
        require(box.isEnabled() == (userDefined && (control < 48 || control > 73)),
                "the trigger can be chosen where there is one");
    }
    if (!userDefined || open) {
        shownTrigger_ = box.indexOfSelectedItem();
        return;
    }
    if (triggerBoxRefreshed_) {
        shownTrigger_ = nothingSelected() ? 4 : storedTrigger(editor_.state.layers.layrData);
    }
    require(box.indexOfSelectedItem() == shownTrigger_,
            "the trigger box shows what is stored or was chosen");
}

int RandomWalk::storedTrigger(int layer) const {
    const int control = editor_.state.selection.keyEvnt;
    const int bit = editor_.state.sysData.at(position(layer, 167 + control)) >> 6;
    const bool all = control < 48 && editor_.state.layers.bTrigAll.isSet(layer) &&
                     editor_.state.modes.machn_mod == 0;
    return all ? bit + 2 : bit;
}

void RandomWalk::checkControlLights() {
    const int control = editor_.state.selection.keyEvnt;
    const std::set<int> lit = editor_.litControls();
    if (lit.empty()) {  // from the start until the first control is shown
        require(nothingSelected() || control == 0, "the selected control is lit");
        return;
    }
    require(lit == std::set<int>{control}, "the selected control is lit alone");
}

void RandomWalk::checkLayerLights() {
    const int control = editor_.state.selection.keyEvnt;
    const int current = editor_.state.layers.m_moLa;
    const bool userDefined = editor_.state.modes.machn_mod == 0;
    std::set<int> lit = editor_.litModeLayers();
    const bool currentIsLit = lit.erase(current) != 0;
    // A layer key that is selected as a control lights the mode layer of its number, which goes out
    // only after it has been the current one.
    if (control >= 32 && control <= 35) {
        strayModeLayers_.insert(control - 32);
    }
    require(std::includes(strayModeLayers_.begin(), strayModeLayers_.end(), lit.begin(), lit.end()),
            "no mode layer is lit beside the current one but for a layer key");
    if (currentIsLit) {
        lit.insert(current);
    }
    std::erase_if(strayModeLayers_, [&](int layer) { return lit.count(layer) == 0; });

    const bool ordinary = control <= 64;
    const bool layerKey = control >= 32 && control <= 35;
    if (userDefined) {
        require(currentIsLit == ordinary, "the mode layer is lit unless a pad is shown");
    } else if (!layerKey && !editor_.litControls().empty()) {
        require(!currentIsLit, "in a host's mode only a layer key lights its mode layer");
    }

    const std::set<int> pads = editor_.litPadLayers();
    require(pads.empty() || pads == std::set<int>{editor_.state.layers.m_paLa},
            "the current pad layer is lit alone");
}

void RandomWalk::checkPadEditor(pad& padEditor) {
    const EditorState& state = editor_.state;
    const int layer = state.pads.m_zPaLayer_CurSel;
    const int control = state.pads.m_pad_CurSel;
    const bool padSelected = control >= 65 && control <= 73;
    const bool allPads = state.pads.abChAll.isSet(layer);
    const int curve = editor_.copied(layer, 247);
    for (toolkit::ComboBox* box :
         {&padEditor.combo_chan, &padEditor.combo_chanMod, &padEditor.combo_msg,
          &padEditor.combo_intervl, &padEditor.combo_curv, &padEditor.combo_curConst}) {
        checkBox(*box);
    }
    checkPadCopy();
    require(padEditor.combo_intervl.indexOfSelectedItem() == editor_.copied(layer, 249) - 25,
            "the interval box shows the layer's interval");
    require(padEditor.combo_chanMod.indexOfSelectedItem() == (allPads ? 1 : 0),
            "the channel mode box shows the layer's mode");
    require(padEditor.combo_curv.indexOfSelectedItem() == std::min(curve, 5),
            "the curve box shows the layer's curve");
    require(padEditor.combo_curConst.isEnabled() == (curve > 4),
            "a velocity can be chosen where one is in force");
    require(curve > 4 ? padEditor.combo_curConst.indexOfSelectedItem() == curve - 20
                      : showsBlank(padEditor.combo_curConst),
            "the velocity box shows the layer's velocity");
    require(padEditor.tx_Non.stringValue() == (curve > 4 ? "Const" : "None"),
            "the text says whether the velocity is constant");
    if (padSelected) {
        require(padEditor.combo_chan.indexOfSelectedItem() == editor_.copied(layer, 7 + control),
                "the channel box shows the pad's channel");
        require(padEditor.combo_msg.indexOfSelectedItem() == editor_.copied(layer, 87 + control),
                "the note box shows the pad's note");
    }
    require(padEditor.combo_chan.isEnabled() == (padSelected || allPads),
            "a channel can be chosen for a pad or for all");
    require(padEditor.combo_msg.isEnabled() == (padSelected && !nothingSelected()),
            "a note can be chosen for a pad");
    const std::set<int> pads = litOf(padEditor.m_pads);
    require(padSelected ? pads == std::set<int>{tagOf(control) - 65} : pads.empty(),
            "the pad is lit alone");
    const std::array<int, 4> lit = {0, padEditor.m_paLa1.state(), padEditor.m_paLa2.state(),
                                    padEditor.m_paLa3.state()};
    for (int i = 1; i < 4; ++i) {
        require(lit.at(static_cast<std::size_t>(i)) == (i == layer ? 1 : 0),
                "the layer is lit alone");
    }
    require(!editor_.window.window.isVisible(), "the main window is hidden meanwhile");
}

bool RandomWalk::nothingSelected() const {
    return editor_.state.selection.keyEvnt == noControl;
}

std::size_t RandomWalk::edited(int offset) const {
    return position(editor_.state.layers.layrData, offset + editor_.state.selection.keyEvnt);
}

int RandomWalk::editedByte(int offset) const {
    return editor_.state.sysData.at(edited(offset));
}

}  // namespace editor
