// The main window's start: the image is built, the window wakes, and the window follows an image
// that was put in place as a whole.

#include "config/buildImageAndStores.h"

#include "editor/mainController.h"
#include "tables/data.h"

namespace editor {

using config::dawModeOffset;
using config::trailer;

mainController::mainController(EditorState& state, MainWindow& window, toolkit::Desktop& desktop,
                               devices::seldevChoice& devices, firmware::FirmwareState& firmware)
    : state_(state),
      window_(window),
      desktop_(desktop),
      devices_(devices),
      firmware_(firmware),
      document_(state, window) {
    state_.selection.selTag2 = noControl;
    config::buildImageAndStores(state_.sysData, state_.stores);
    showLock(0);
    state_.selection.msg_Typ = kindNote;
    state_.selection.keyEvnt = 0;
    state_.selection.keyEvnt_bak = 0;
    state_.layers = {};
    state_.pads.pad_modal = 0;
}

void mainController::awakeFromNib() {
    programName_ = "Tormelk Wyro";
    window_.window.setTitle(programName_);
    connectActions();
    fillBoxes();

    state_.modes.machn_mod = nuendoMode;
    config::setTrailer(state_.sysData, 0, dawModeOffset, nuendoMode);
    window_.combo_mode.selectItemAtIndex(nuendoMode);
    state_.modes.sysExData_modeBackup = nuendoMode;
    for (toolkit::ComboBox* box : propertyBoxes()) {
        box->setEnabled(false);
    }
    update_Aft_LoadFile();
    state_.isInit = 1;
    document_.begin();
    followOutput();
    actionEnded();
}

void mainController::connectActions() {
    const auto clicked = [this](void (mainController::*act)(toolkit::Button&)) {
        return [this, act](toolkit::Button& sender) { perform([&] { (this->*act)(sender); }); };
    };
    for (toolkit::Button& button : window_.keysOrderedByTag) {
        button.action = clicked(&mainController::typeSelect1);
    }
    for (toolkit::Button& button : window_.moLaCtrls) {
        button.action = clicked(&mainController::onMoLa);
    }
    for (toolkit::Button& button : window_.paLaCtrls) {
        button.action = clicked(&mainController::onPaLa);
    }
    window_.locker.action = [this](toolkit::Button&) { perform([this] { onLok(); }); };
    const auto chosen = [this](toolkit::ComboBox& box) {
        return [this, &box] {
            perform([&] { comboBoxSelectionIsChanging(box); }, {&box, box.indexOfSelectedItem()});
        };
    };
    window_.combo_mode.onChoice = chosen(window_.combo_mode);
    for (toolkit::ComboBox* box : propertyBoxes()) {
        box->onChoice = chosen(*box);
    }
    window_.window.windowWillClose = [this] { windowWillClose(); };
}

void mainController::perform(const std::function<void()>& act, const Choice& choice) {
    ++actionsRunning_;
    act();
    --actionsRunning_;
    actionEnded(choice);
}

void mainController::actionEnded(const Choice& choice) {
    document_.actionEnded(choice);
    tellView();
}

void mainController::tellView() {
    if (window_.actionEnded) {
        window_.actionEnded();
    }
}

std::array<toolkit::ComboBox*, 4> mainController::propertyBoxes() {
    return {&window_.combo_chan, &window_.combo_type, &window_.combo_cc, &window_.combo_trig};
}

void mainController::fillBoxes() {
    window_.combo_chan.addItemsWithObjectValues(tables::data::Chan());
    window_.combo_trig.addItemsWithObjectValues(tables::data::TrigMod());
    window_.combo_type.addItemsWithObjectValues(tables::data::msgTyp());
    window_.combo_mode.addItemsWithObjectValues(tables::data::Machin_Mod());
    window_.combo_cc.addItemsWithObjectValues(tables::data::ND());
}

void mainController::update_Aft_LoadFile() {
    state_.layers.bTrigAll.clear();
    state_.pads.abChAll.clear();
    const int mode = trailer(state_.sysData, 0, dawModeOffset);
    if (mode != userDefinedMode) {
        window_.combo_type.setEnabled(false);
        window_.combo_chan.setEnabled(false);
        window_.combo_cc.setEnabled(false);
        window_.combo_cc.removeAllItems();
    } else {
        judge();
    }
    // Every host's mode shows the Nuendo functions here; HUI has none.
    if (mode >= nuendoMode && mode <= logicMode) {
        window_.combo_cc.addItemsWithObjectValues(tables::data::ND());
    }
    window_.combo_mode.selectItemAtIndex(mode);
    state_.modes.sysExData_modeBackup = mode;
    if (state_.isInit != 0) {
        typeJudge();
    }
    selchange_Aft_TypeJudg();
    lockCheck();  // the image may have brought another lock flag
    showTrigger();
}

void mainController::judge() {
    window_.combo_type.setEnabled(true);
    window_.combo_chan.setEnabled(true);
    window_.combo_cc.setEnabled(true);
}

}  // namespace editor
