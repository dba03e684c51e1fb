#include "editor/walk/Expected.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>

namespace walk {

namespace {

constexpr std::size_t block = 254;

std::uint8_t low8(int value) {
    return static_cast<std::uint8_t>(value & 0xFF);
}

// The ranges of a block that a mode change exchanges, the second figure not included.
struct Range {
    std::size_t from, to;
};
constexpr std::array<Range, 3> rangesOfLayer0{{{7, 80}, {81, 160}, {161, 246}}};
constexpr std::array<Range, 3> rangesOfOtherLayers{{{7, 71}, {81, 151}, {161, 246}}};

/// Calls `exchange(position in the image, position in the user-defined store)`.
template <typename Exchange>
void forExchangedBytes(Exchange exchange) {
    for (std::size_t layer = 0; layer < 4; ++layer) {
        for (const Range& range : layer == 0 ? rangesOfLayer0 : rangesOfOtherLayers) {
            for (std::size_t i = range.from; i < range.to; ++i) {
                exchange(layer * 254 + i, layer * 247 + i);
            }
        }
    }
}

}  // namespace

ListFacts factsOf(List list) {
    switch (list) {
        case List::Nothing:
            return {0, "", ""};
        case List::Notes:
            return {128, "-1(C)", "9(G)"};
        case List::Controllers:
            return {128, "0 Bank MSB", "127 Poly On"};
        case List::Programs:
            return {128, "0)---", "127)---"};
        case List::NuendoFunctions:
            return {128, "-1(C)   REC CH.1", "9(G)   - - -"};
        case List::Channels:
            return {16, "1", "16"};
        case List::Kinds:
            return {3, "Note", "Program"};
        case List::Triggers:
            return {4, "Momentary", "All Toggle"};
        case List::Modes:
            return {6, "User Defined Mode", "HUI mode(MCP)"};
        case List::ChannelModes:
            return {2, "Single", "All Pads"};
        case List::Intervals:
            return {76, "25 ms", "100 ms"};
        case List::Curves:
            return {6, "Curve0", "Const"};
        case List::Velocities:
            return {108, "20", "127"};
    }
    return {0, "", ""};
}

void PadScreen::showsCurve(int curve) {
    curv.selected = curve;
    curConst.showBlank();
    curConst.enabled = false;
    velocity = "None";
}

void PadScreen::showsVelocity(int constant) {
    curv.selected = 5;
    curConst.selected = constant - 20;
    curConst.enabled = true;
    velocity = "Const";
}

void Expected::selects(int control, int button) {
    state.selection.keyEvnt = control;
    state.selection.keyEvnt_bak = control;
    litControls = {button};
}

void Expected::shows(const Shown& shown) {
    state.selection.msg_Typ = shown.kind;
    type.selected = shown.kind == 63 ? -1 : shown.kind;
    chan.selected = shown.channel;
    trig.selected = shown.trigger;
    cc.fill(shown.numbers);
    cc.selected = shown.numbers == List::Nothing ? -1 : shown.number;
}

void Expected::selectsNothing() {
    state.selection.keyEvnt = 127;
    state.selection.keyEvnt_bak = 127;
    litControls = {};
    litModeLayers = {};
    type.showBlank();
    chan.showBlank();
    trig.showBlank();
}

void Expected::enablesProperties(bool typeChannelNumber, bool triggerBox) {
    type.enabled = typeChannelNumber;
    chan.enabled = typeChannelNumber;
    cc.enabled = typeChannelNumber;
    trig.enabled = triggerBox;
}

void Expected::bytes(Bytes changes) {
    for (const Byte& change : changes) {
        state.sysData.at(change.position) = low8(change.value);
    }
}

void Expected::fill(std::size_t first, std::size_t last, int value) {
    for (std::size_t position = first; position <= last; ++position) {
        state.sysData.at(position) = low8(value);
    }
}

void Expected::working(Bytes changes) {
    for (const Byte& change : changes) {
        state.pads.sysbuf_domal.at(change.position) = low8(change.value);
    }
}

void Expected::both(Bytes changes) {
    bytes(changes);
    working(changes);
}

void Expected::fillBoth(std::size_t first, std::size_t last, int value) {
    fill(first, last, value);
    for (std::size_t position = first; position <= last; ++position) {
        state.pads.sysbuf_domal.at(position) = low8(value);
    }
}

void Expected::holds(Bytes facts) const {
    for (const Byte& fact : facts) {
        EXPECT_EQ(int{state.sysData.at(fact.position)}, fact.value)
            << "the walk itself, byte " << fact.position;
    }
}

void Expected::takesWorkingCopy() {
    for (std::size_t position = 254; position <= 1015; ++position) {
        state.pads.sysbuf_domal.at(position) = state.sysData.at(position);
    }
}

void Expected::takesBackWorkingCopy() {
    for (std::size_t layer = 1; layer <= 3; ++layer) {
        for (std::size_t i = 7; i <= 249; ++i) {
            state.sysData.at(layer * block + i) = state.pads.sysbuf_domal.at(layer * block + i);
        }
    }
}

void Expected::opensPadEditor(int padLayer) {
    visible = false;
    firstPadLayerEnabled = false;
    litPadLayers = {padLayer};
    takesWorkingCopy();
    state.layers.layrData = padLayer;
    state.layers.m_paLa = padLayer;
    state.pads.m_zPaLayer_CurSel = padLayer;
    state.pads.m_pad_CurSel = state.selection.keyEvnt;
    state.pads.pad_modal = 1;
    state.pads.isInit2 = 1;

    pad = PadScreen{};
    pad.open = true;
    pad.litLayers = {padLayer};
    pad.chan.fill(List::Channels);
    pad.chanMod.fill(List::ChannelModes);
    pad.msg.fill(List::Notes);
    pad.intervl.fill(List::Intervals);
    pad.curv.fill(List::Curves);
    pad.curConst.fill(List::Velocities);
}

void Expected::closesPadEditor() {
    visible = true;
    firstPadLayerEnabled = true;
    litPadLayers = {0};
    takesBackWorkingCopy();
    state.layers.layrData = state.layers.m_moLa;
    state.layers.m_paLa = 0;
    state.pads.pad_modal = 0;
    state.selection.keyEvnt = state.pads.m_pad_CurSel;
    pad = PadScreen{};
}

void Expected::keepsUserDefined() {
    forExchangedBytes([this](std::size_t image, std::size_t store) {
        state.stores.SysBuf_usrdef.at(store) = state.sysData.at(image);
    });
}

void Expected::loadsFactory() {
    forExchangedBytes([this](std::size_t image, std::size_t) {
        state.sysData.at(image) = state.stores.SysBuf_MCP.at(image);
    });
}

void Expected::restoresUserDefined() {
    forExchangedBytes([this](std::size_t image, std::size_t store) {
        state.sysData.at(image) = state.stores.SysBuf_usrdef.at(store);
    });
}

void Expected::mode_is(int newMode, int before) {
    mode.selected = newMode;
    state.modes.machn_mod = newMode;
    state.modes.machn_mod_bakup = before;
    bytes({{248, newMode}, {502, newMode}, {756, newMode}, {1010, newMode}});
}

}  // namespace walk
