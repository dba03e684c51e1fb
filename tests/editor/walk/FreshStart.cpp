// The editor right after its start: image and stores from the factory's assignments, written down
// here independently of the product's own tables.

#include <array>
#include <cstddef>
#include <cstdint>

#include "editor/walk/Expected.h"

namespace walk {

namespace {

using Layer = std::array<std::uint8_t, 80>;

// clang-format off
constexpr Layer numbersOfLayer0{
    0x18, 0x08, 0x10, 0x00, 0x19, 0x09, 0x11, 0x01,   // strip buttons, four a strip
    0x1A, 0x0A, 0x12, 0x02, 0x1B, 0x0B, 0x13, 0x03,
    0x1C, 0x0C, 0x14, 0x04, 0x1D, 0x0D, 0x15, 0x05,
    0x1E, 0x0E, 0x16, 0x06, 0x1F, 0x0F, 0x17, 0x07,
    0x30, 0x31, 0x2E, 0x2F,                           // layer keys
    0x5E, 0x5D, 0x5B, 0x5C,                           // transport keys
    0x20, 0x21, 0x22, 0x23, 0x24, 0x25, 0x26, 0x27,   // encoder push buttons
    0x10, 0x11, 0x12, 0x13, 0x14, 0x15, 0x16, 0x17,   // encoders
    0x38, 0x39, 0x3A, 0x3B, 0x3C, 0x3D, 0x3E, 0x3F, 0x40,  // faders
    0x56, 0x5B, 0x5F, 0x5E, 0x4A, 0x4E, 0x5C, 0x4B, 0x5D,  // pads
    0x4A, 0x4B, 0x4C, 0x4D, 0x4E, 0x4F};              // spare entries
constexpr std::array<std::array<std::uint8_t, 9>, 4> padNumbers{{
    {0x56, 0x5B, 0x5F, 0x5E, 0x4A, 0x4E, 0x5C, 0x4B, 0x5D},
    {0x2C, 0x26, 0x2D, 0x2A, 0x2B, 0x30, 0x24, 0x2F, 0x28},
    {0x25, 0x2C, 0x33, 0x26, 0x30, 0x2F, 0x2E, 0x37, 0x24},
    {0x25, 0x2C, 0x33, 0x26, 0x30, 0x2F, 0x2E, 0x37, 0x24}}};
// clang-format on

int channelOf(std::size_t layer, std::size_t control) {
    if (control >= 56 && control <= 64) {
        return static_cast<int>(control) - 56;
    }
    return layer > 0 && control >= 65 && control <= 73 ? 9 : 0;
}

int numberOf(std::size_t layer, std::size_t control) {
    return control >= 65 && control <= 73 ? padNumbers.at(layer).at(control - 65)
                                          : numbersOfLayer0.at(control);
}

int modeOf(std::size_t layer, std::size_t control) {
    if (control <= 47) {
        return layer >= 2 ? 0x49 : 0x09;
    }
    if (control <= 55) {
        return 0x0B;
    }
    if (control <= 64) {
        return 0x0E;
    }
    return layer > 0 && control <= 73 ? 0x19 : 0x09;
}

template <std::size_t size>
void writeBlock(std::array<std::uint8_t, size>& to, std::size_t start, std::size_t layer) {
    constexpr std::array<std::uint8_t, 6> header{0xF0, 0x1D, 0x03, 0x00, 0x69, 0x4E};
    for (std::size_t i = 0; i < header.size(); ++i) {
        to.at(start + i) = header.at(i);
    }
    to.at(start + 6) = static_cast<std::uint8_t>(layer + 1);
    for (std::size_t control = 0; control < 80; ++control) {
        to.at(start + 7 + control) = static_cast<std::uint8_t>(channelOf(layer, control));
        to.at(start + 87 + control) = static_cast<std::uint8_t>(numberOf(layer, control));
        to.at(start + 167 + control) = static_cast<std::uint8_t>(modeOf(layer, control));
    }
}

void writeImageAndStores(editor::EditorState& state) {
    auto& factory = state.stores.SysBuf_MCP;
    auto& user = state.stores.SysBuf_usrdef;
    for (std::size_t layer = 0; layer < 4; ++layer) {
        const std::size_t start = layer * 254;
        writeBlock(state.sysData, start, layer);
        writeBlock(factory, start, layer);
        writeBlock(user, layer * 247, layer);
        state.sysData.at(start + 247) = layer == 0 ? 0x7F : 1;  // constant velocity 127, curve 1
        state.sysData.at(start + 248) = 1;                      // Nuendo
        state.sysData.at(start + 249) = layer == 0 ? 100 : 64;  // ms
        state.sysData.at(start + 250) = 1;                      // locked
        state.sysData.at(start + 253) = 0xF7;
        factory.at(start + 248) = 1;
        factory.at(start + 249) = layer == 0 ? 100 : 64;
        factory.at(start + 253) = 0xF7;
        for (std::size_t fader = 56; fader <= 64; ++fader) {
            user.at(layer * 247 + 167 + fader) = 0x0B;  // control change instead of pitch bend
        }
    }
    user.at(994) = 0xF7;  // the end mark of the last block, behind everything that is read
}

}  // namespace

Expected::Expected() {
    writeImageAndStores(state);

    state.selection.selTag2 = 127;
    state.modes.machn_mod = 1;
    state.modes.sysExData_modeBackup = 1;
    state.isInit = 1;

    // Control 0 is edited, but nothing is lit or shown before the first click.
    mode.fill(List::Modes);
    mode.selected = 1;
    type.fill(List::Kinds);
    chan.fill(List::Channels);
    cc.fill(List::NuendoFunctions);
    trig.fill(List::Triggers);
    enablesProperties(false, false);
}

}  // namespace walk
