// What the product can do and nothing in it asks for: operations that no click, menu or event
// reaches. They are for whoever calls them; those that do nothing at all stand in the header.

#include <algorithm>

#include "config/sysex.h"
#include "editor/mainController.h"
#include "editor/pad.h"
#include "editor/padWriters.h"
#include "editor/refill.h"
#include "tables/data.h"
#include "tables/shortLists.h"

namespace editor {

namespace {

/// What the value box offers in HUI mode.
constexpr std::array<std::string_view, 1> nothingOffered = {" "};

}  // namespace

// Two bytes of the first block, which are the channels of pads there too (controls 66 and 68): what
// changes them changes these channels, and the channel box has to show it.

void mainController::toggle() {
    state_.sysData[triggerPosition] ^= 5;
    showTrigger();
    showChannelAfresh();
}

void mainController::gradual() {
    constexpr std::size_t position = 75;
    state_.sysData[position] = state_.sysData[position] == 0 ? 1 : 0;
    showChannelAfresh();
}

/// The byte may be the shown control's channel.
void mainController::showChannelAfresh() {
    if (state_.selection.keyEvnt != noControl) {
        window_.combo_chan.selectItemAtIndex(
            config::channel(state_.sysData, state_.layers.layrData, state_.selection.keyEvnt));
    }
}

// What the value box offers for one control under the current DAW mode: the host's functions.

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
        window_.combo_cc.addItemsWithObjectValues(shortList);
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
            window_.combo_cc.addItemsWithObjectValues(nothingOffered);
            window_.combo_cc.selectItemAtIndex(0);
            break;
        default:  // Nuendo, and Logic: its own list is not offered here
            window_.combo_cc.addItemsWithObjectValues(tables::data::ND());
    }
}

// A second form of message.

platform::MIDIPacketListPtr mainController::getMidiPacketList() {
    return platform::makeOnePacketList(config::secondMessageForm);
}

// Single bytes of the image, as the pad editor writes them.

void mainController::setPaCc_domal(int layer, int control, int value) {
    padWriters::setPaCc_domal(state_.sysData, layer, control, value);
}
void mainController::setPaChan_domal(int layer, int control, int value) {
    padWriters::setPaChan_domal(state_.sysData, layer, control, value);
}
void mainController::setPaIntrvl_domal(int layer, int value) {
    padWriters::setPaIntrvl_domal(state_.sysData, layer, value);
}
void mainController::setPaCurv_domal(int layer, int value) {
    padWriters::setPaCurv_domal(state_.sysData, layer, value);
}

// Byte copies.

void mainController::mamcpy(std::span<const std::uint8_t> source, std::size_t count,
                            std::span<std::uint8_t> destination) {
    mamcpy2(source, 0, count, destination, 0);
}

void mainController::mamcpy2(std::span<const std::uint8_t> source, std::size_t sourceIndex,
                             std::size_t count, std::span<std::uint8_t> destination,
                             std::size_t destinationIndex) {
    const std::size_t readable = source.size() - std::min(sourceIndex, source.size());
    const std::size_t writable =
        destination.size() - std::min(destinationIndex, destination.size());
    const std::size_t copied = std::min({count, readable, writable});
    for (std::size_t i = 0; i < copied; ++i) {
        destination[destinationIndex + i] = source[sourceIndex + i];
    }
}

void mainController::mamcpy2_2des(std::span<const std::uint8_t> source, std::size_t sourceIndex,
                                  std::size_t count, std::span<std::uint8_t> destination,
                                  std::size_t destinationIndex,
                                  std::span<std::uint8_t> secondDestination,
                                  std::size_t secondDestinationIndex) {
    mamcpy2(source, sourceIndex, count, destination, destinationIndex);
    mamcpy2(source, sourceIndex, count, secondDestination, secondDestinationIndex);
}

// The pad editor's lights by tag, and the end of the program.

void pad::cleanPadSel() {
    const auto tag = static_cast<std::size_t>(currentPad());
    if (tag < m_pads.size()) {
        m_pads[tag].setState(0);
    }
}

void pad::keepPadSel(int tag) {
    const auto at = static_cast<std::size_t>(tag);
    if (at < m_pads.size()) {
        m_pads[at].setState(1);
    }
}

bool mainController::applicationShouldTerminate() {
    return true;
}

}  // namespace editor
