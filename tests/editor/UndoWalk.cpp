#include "editor/UndoWalk.h"

#include <algorithm>

namespace editor {

namespace {

/// Whether a mode change exchanges the byte.
bool isParked(int layer, int offset) {
    const int endOfChannels = layer == 0 ? 80 : 71;
    const int endOfNumbers = layer == 0 ? 160 : 151;
    return (offset >= 7 && offset < endOfChannels) || (offset >= 81 && offset < endOfNumbers) ||
           (offset >= 161 && offset < 246);
}

/// Channels and numbers of User Defined mode, shown or parked.
config::Image userDefinedIn(const EditorState& state) {
    config::Image image = state.sysData;
    const auto& parked = state.stores.SysBuf_usrdef;
    if (image.at(248) == 0 || parked.at(246) == 0) {
        return image;
    }
    for (int layer = 0; layer < 4; ++layer) {
        for (int offset = 0; offset < 247; ++offset) {
            if (isParked(layer, offset)) {
                image.at(position(layer, offset)) = parked.at(
                    static_cast<std::size_t>(layer) * 247 + static_cast<std::size_t>(offset));
            }
        }
    }
    return image;
}

}  // namespace

BoxSeen seenIn(const toolkit::ComboBox& box) {
    BoxSeen seen;
    seen.items = box.numberOfItems();
    seen.firstItem = box.itemObjectValueAtIndex(0).value_or(std::string_view()).data();
    for (int i = seen.items - 1; i >= 0; --i) {
        if (!toolkit::isBlankEntry(*box.itemObjectValueAtIndex(i))) {
            break;
        }
        ++seen.blanks;
    }
    seen.selected = box.indexOfSelectedItem();
    seen.isEnabled = box.isEnabled();
    return seen;
}

Seen seenIn(const TestEditor& editor) {
    const MainWindow& window = editor.window;
    Seen seen;
    seen.state = editor.state;
    seen.bChange = std::exchange(seen.state.bChange, 0);
    seen.boxes = {seenIn(window.combo_mode), seenIn(window.combo_type), seenIn(window.combo_chan),
                  seenIn(window.combo_cc), seenIn(window.combo_trig)};
    const auto look = [&seen](const toolkit::Button& button) {
        seen.buttons.emplace_back(button.state(), button.isEnabled());
    };
    std::for_each(window.keysOrderedByTag.begin(), window.keysOrderedByTag.end(), look);
    std::for_each(window.moLaCtrls.begin(), window.moLaCtrls.end(), look);
    std::for_each(window.paLaCtrls.begin(), window.paLaCtrls.end(), look);
    look(window.locker);
    look(window.trigger);
    seen.texts = window.window.title() + '|' + window.mode_info.stringValue();
    return seen;
}

bool isSameWork(const Seen& one, const Seen& other) {
    const EditorState& a = one.state;
    const EditorState& b = other.state;
    return a.sysData == b.sysData && a.stores.SysBuf_usrdef == b.stores.SysBuf_usrdef &&
           a.stores.SysBuf_MCP == b.stores.SysBuf_MCP && a.modes.machn_mod == b.modes.machn_mod &&
           a.layers.bTrigAll == b.layers.bTrigAll && a.pads.abChAll == b.pads.abChAll &&
           a.pads.SYSBuf_vel_bak == b.pads.SYSBuf_vel_bak;
}

UndoWalk::UndoWalk(std::uint64_t seed) : random_(seed), start_(seenIn(editor_)) {
    for (unsigned mode = 0; mode < presets_.size(); ++mode) {
        presets_.at(mode) = randomPreset(static_cast<unsigned>(seed) + mode,
                                         static_cast<int>(mode % 3 == 0 ? 0 : mode));
        files::write(folder_ / std::to_string(mode), formattedPreset(presets_.at(mode)));
    }
    onFile_ = config::presetBytes(editor_.state.sysData);
    userDefinedOnFile_ = userDefinedIn(editor_.state);
}

void UndoWalk::require(bool holds, const std::string& promise) {
    if (!holds && problem_.empty()) {
        problem_ = promise;
    }
}

Deed UndoWalk::randomDeed() {
    using enum Deed::Kind;
    constexpr std::array<Deed::Kind, 29> kinds = {
        Control,     Control,     Control, Control, ModeLayer, ModeLayer, PadLayer, PadLayer,
        DawMode,     DawMode,     DawMode, Channel, Channel,   Channel,   Channel,  Number,
        Number,      Number,      Number,  Number,  Trigger,   Trigger,   Trigger,  MessageKind,
        MessageKind, MessageKind, Lock,    Load,    Save};
    Deed deed;
    deed.kind = kinds.at(below(kinds.size()));
    deed.which = below(1'000'000);
    deed.goesOn = below(3) == 0;
    deed.refusal = below(8) == 0 ? 1 + below(2) : 0;
    if (deed.kind == PadLayer) {
        for (unsigned count = below(12); count > 0; --count) {
            deed.inPad.push_back(below(1'000'000));
        }
    }
    if ((deed.kind == Load || deed.kind == Save) && below(3) != 0) {
        deed.kind = Control;
    }
    return deed;
}

namespace {

using Chosen = UndoModel<Deed, Seen>::Choice;

/// None where the box does not take it.
std::optional<Chosen> chooseIn(toolkit::ComboBox& box, const Deed& deed) {
    if (box.numberOfItems() == 0) {
        return std::nullopt;
    }
    const int index =
        deed.goesOn ? box.indexOfSelectedItem() + (deed.which % 2 == 0 ? 1 : -1)
                    : static_cast<int>(deed.which % static_cast<unsigned>(box.numberOfItems()));
    const bool taken = box.isEnabled() && index >= 0 && index < box.numberOfItems() &&
                       index != box.indexOfSelectedItem();
    box.choose(index);
    return taken ? std::optional(Chosen{&box, index}) : std::nullopt;
}

void doInPad(pad& padEditor, unsigned what) {
    const std::array<toolkit::ComboBox*, 6> boxes = {
        &padEditor.combo_chan,    &padEditor.combo_chanMod, &padEditor.combo_msg,
        &padEditor.combo_intervl, &padEditor.combo_curv,    &padEditor.combo_curConst};
    const std::array<toolkit::Button*, 3> layers = {&padEditor.m_paLa1, &padEditor.m_paLa2,
                                                    &padEditor.m_paLa3};
    const unsigned detail = what / 16;
    switch (what % 16) {
        case 0:
        case 1:
        case 2:
            padEditor.m_pads.at(detail % 9).click();
            break;
        case 3:
            layers.at(detail % 3)->click();
            break;
        case 4:
        case 5:
            padEditor.undo();
            break;
        case 6:
            padEditor.redo();
            break;
        default: {
            toolkit::ComboBox& box = *boxes.at(detail % 6);
            box.choose(static_cast<int>(detail / 6 % static_cast<unsigned>(box.numberOfItems())));
        }
    }
}

}  // namespace

std::optional<UndoWalk::Model::Choice> UndoWalk::perform(TestEditor& editor, const Deed& deed) {
    using enum Deed::Kind;
    editor.desktop.clearJournal();
    switch (deed.kind) {
        case Control:
            editor.click(static_cast<int>(deed.which % 74));
            break;
        case ModeLayer:
            editor.clickModeLayer(static_cast<int>(deed.which % 4));
            break;
        case PadLayer: {
            const auto layer = static_cast<int>(deed.which % 4);
            const auto script = [&deed](pad& padEditor) {
                for (const unsigned what : deed.inPad) {
                    doInPad(padEditor, what);
                }
            };
            if (layer == 0) {
                editor.clickPadLayer(0);
            } else if (deed.refusal == 1) {
                editor.desktop.refuseModal<pad>();
                editor.clickPadLayer(layer);
            } else if (deed.refusal == 2) {
                editor.desktop.failModal([&script](toolkit::WindowController& controller) {
                    script(static_cast<pad&>(controller));
                });
                editor.clickPadLayer(layer);
            } else {
                editor.usePadEditor(layer, script);
            }
            break;
        }
        case DawMode: {
            Deed choice = deed;
            choice.goesOn = deed.goesOn && deed.which % 3 == 0;
            choice.which = deed.which % 12 < 6 ? 0 : deed.which;
            return chooseIn(editor.window.combo_mode, choice);
        }
        case Channel:
            return chooseIn(editor.window.combo_chan, deed);
        case Number:
            return chooseIn(editor.window.combo_cc, deed);
        case MessageKind:
            return chooseIn(editor.window.combo_type, deed);
        case Trigger:
            return chooseIn(editor.window.combo_trig, deed);
        case Lock:
            editor.window.locker.click();
            break;
        case Load: {
            const auto number = deed.which % presets_.size();
            if (editor.state.bChange == 1 && presets_.at(number).at(248) == 0) {
                editor.desktop.answerAlert();
            }
            load(editor, folder_ / std::to_string(number));
            break;
        }
        case Save:
            save(editor, folder_ / "saved");
            break;
    }
    return Chosen{};
}

void UndoWalk::noteFile(const Deed& deed) {
    const EditorState& state = editor_.state;
    if (deed.kind == Deed::Kind::Save) {
        onFile_ = config::presetBytes(state.sysData);
    } else if (deed.kind == Deed::Kind::Load) {
        onFile_ = config::presetBytes(presets_.at(deed.which % presets_.size()));
    } else {
        return;
    }
    if (state.sysData.at(248) == 0) {
        userDefinedOnFile_ = state.sysData;
    }
}

void UndoWalk::step() {
    ++actions_;
    const unsigned dice = below(100);
    if (dice < 8) {
        for (unsigned count = manySteps(); count > 0; --count) {
            undo();
        }
    } else if (dice < 17) {
        for (unsigned count = manySteps(); count > 0; --count) {
            redo();
        }
    } else {
        const Deed deed = randomDeed();
        Seen before = seenIn(editor_);
        const auto choice = perform(editor_, deed);
        noteFile(deed);
        if (choice) {
            model_.act({deed, std::move(before), seenIn(editor_)}, *choice);
        }
    }
    checkAlways();
}

void UndoWalk::undo() {
    require(editor_.controller.canUndo() == model_.canUndo(), "there is something to undo");
    if (model_.canUndo() && problem_.empty()) {
        ++undone_;
        const std::string name(editor_.controller.document().undoName());
        editor_.controller.undo();
        checkArrival(model_.undo());
        require(editor_.controller.document().redoName() == name, "what was undone can be redone");
        require(editor_.window.status.stringValue() == "Undone: " + name, "the undo is told");
    }
}

void UndoWalk::redo() {
    require(editor_.controller.canRedo() == model_.canRedo(), "there is something to do again");
    if (model_.canRedo() && problem_.empty()) {
        ++redone_;
        editor_.controller.redo();
        checkArrival(model_.redo());
    }
}

void UndoWalk::checkArrival(const Seen& expected) {
    const Seen now = seenIn(editor_);
    require(now.state == expected.state, "the state is as it was");
    require(now.boxes == expected.boxes, "the boxes show what they showed");
    require(now.buttons == expected.buttons, "the buttons are lit and enabled as they were");
    require(now.texts == expected.texts, "title and caption are as they were");
    require(now.bChange == 1 || !losesWork(), "work that would be lost is asked for");
    checkMark();
}

void UndoWalk::checkMark() {
    const bool differs = !std::equal(onFile_.begin(), onFile_.end(), editor_.state.sysData.begin());
    require(editor_.controller.isImageEdited() == differs, "the mark tells the truth");
}

void UndoWalk::checkAlways() {
    require(editor_.controller.document().numberOfSteps() == model_.numberOfSteps(),
            "each thing done is one step");
    require(editor_.controller.canUndo() == model_.canUndo(), "what is done can be undone");
    require(editor_.controller.canRedo() == model_.canRedo(), "what is undone can be redone");
    checkMark();
}

bool UndoWalk::losesWork() const {
    const config::Image now = userDefinedIn(editor_.state);
    for (int layer = 0; layer < 4; ++layer) {
        for (int offset = 7; offset < 167; ++offset) {
            if (now.at(position(layer, offset)) != userDefinedOnFile_.at(position(layer, offset))) {
                return true;
            }
        }
    }
    return false;
}

void UndoWalk::downAndUp() {
    // What follows the last step is no step: undo and redo do not bring it back.
    if (!model_.canUndo() && !model_.canRedo()) {
        return;
    }
    while (model_.canRedo() && problem_.empty()) {
        redo();
    }
    if (model_.canUndo()) {
        undo();
        redo();
    }
    const Seen end = seenIn(editor_);
    while (model_.canUndo() && problem_.empty()) {
        undo();
    }
    require(isSameWork(seenIn(editor_), start_), "the configuration is the start's");
    while (model_.canRedo() && problem_.empty()) {
        redo();
    }
    require(seenIn(editor_).equals(end), "everything is as at the end");
}

void UndoWalk::replay() {
    TestEditor fresh;
    for (const Model::Entry& entry : model_.inEffect()) {
        fresh.state.bChange = entry.before.bChange;  // saves, which may be undone past, cleared it
        perform(fresh, entry.action);
        ++replayed_;
    }
    const Seen expected = seenIn(fresh);
    const Seen now = seenIn(editor_);
    require(now.state == expected.state, "the state is that of the remaining actions");
    require(now.equals(expected), "the window is that of the remaining actions");
    for (const auto& [box, other] :
         {std::pair(&editor_.window.combo_cc, &fresh.window.combo_cc),
          std::pair(&editor_.window.combo_trig, &fresh.window.combo_trig),
          std::pair(&editor_.window.combo_type, &fresh.window.combo_type),
          std::pair(&editor_.window.combo_chan, &fresh.window.combo_chan)}) {
        require(itemsOf(*box) == itemsOf(*other), "the lists are those of the remaining actions");
    }
}

}  // namespace editor
