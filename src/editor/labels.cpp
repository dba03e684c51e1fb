// Host function labels: what the value box offers for one control under the current DAW mode.

#include "editor/mainController.h"
#include "tables/data.h"
#include "tables/shortLists.h"

namespace editor {

namespace {

void refill(toolkit::ComboBox& box, texts::List list) {
    box.removeAllItems();
    box.addItemsWithObjectValues(list);
}

}  // namespace

void mainController::lie_note(int control) {
    refill(window_.combo_type, tables::data::msgTyp());
    const int mode = state_.modes.machn_mod & 0xFF;
    if (mode > huiMode) {
        return;
    }
    if (mode == userDefinedMode) {
        labelUserDefined(control);
    } else {
        labelFactoryMode(mode, control);
    }
}

void mainController::labelUserDefined(int control) {
    window_.combo_cc.setEnabled(true);
    window_.combo_chan.setEnabled(true);
    const bool forced = tables::isShortListControl(control);
    window_.combo_type.setEnabled(!forced);
    const int kind = forced ? kindControlChange : state_.selection.select_type;
    if (kind == kindNote) {
        window_.combo_type.selectItemAtIndex(kindNote);
        refill(window_.combo_cc, tables::data::Note());
        window_.mode_info.setStringValue("Note Value");
    } else if (kind == kindControlChange) {
        window_.combo_type.selectItemAtIndex(kindControlChange);
        refill(window_.combo_cc, tables::data::CC());
        window_.mode_info.setStringValue("CC Number");
    } else {
        window_.combo_type.selectItemAtIndex(kindProgramChange);
        refill(window_.combo_cc, tables::data::Prog());
        window_.mode_info.setStringValue("Program Number");
    }
}

void mainController::labelFactoryMode(int mode, int control) {
    const texts::List shortList = tables::shortListForMode(mode);
    const bool isShort = tables::isShortListControl(control) && !shortList.empty();
    window_.combo_cc.setEnabled(isShort);
    window_.combo_chan.setEnabled(isShort);
    window_.combo_cc.removeAllItems();
    if (isShort) {
        for (const std::string_view item : shortList) {
            window_.combo_cc.addItemWithObjectValue(item);
        }
        return;
    }
    switch (mode) {
        case samplitudeMode:
            window_.combo_cc.addItemsWithObjectValues(tables::data::SP());
            break;
        case liveMode:
            window_.combo_cc.addItemsWithObjectValues(tables::data::LV());
            break;
        case huiMode:
            window_.combo_cc.addItemWithObjectValue(" ");
            window_.combo_cc.selectItemAtIndex(0);
            break;
        default:  // Nuendo; Logic shows the Nuendo list too, which is meant
            window_.combo_cc.addItemsWithObjectValues(tables::data::ND());
    }
}

}  // namespace editor
