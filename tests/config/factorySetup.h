#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

// What the controller leaves the factory with, by rule: the tables and the stores are compared
// with it. It uses nothing of the room it tests.

namespace config::factory {

/// Numbers of the nine pads, controls 65 to 73.
inline constexpr std::array<std::array<int, 9>, 4> padNumbers = {{
    {0x56, 0x5B, 0x5F, 0x5E, 0x4A, 0x4E, 0x5C, 0x4B, 0x5D},
    {0x2C, 0x26, 0x2D, 0x2A, 0x2B, 0x30, 0x24, 0x2F, 0x28},
    {0x25, 0x2C, 0x33, 0x26, 0x30, 0x2F, 0x2E, 0x37, 0x24},
    {0x25, 0x2C, 0x33, 0x26, 0x30, 0x2F, 0x2E, 0x37, 0x24},
}};

inline int channel(int layer, int control) {
    if (control >= 56 && control <= 64) {
        return control - 56;  // a fader has its own
    }
    const bool pad = control >= 65 && control <= 73;
    return pad && layer > 0 ? 9 : 0;
}

inline int number(int layer, int control) {
    constexpr std::array stripNotes = {0x18, 0x08, 0x10, 0x00};
    constexpr std::array layerKeyNotes = {0x30, 0x31, 0x2E, 0x2F};
    constexpr std::array transportNotes = {0x5E, 0x5D, 0x5B, 0x5C};
    if (control <= 31) {
        return stripNotes.at(static_cast<std::size_t>(control % 4)) + control / 4;
    }
    if (control <= 35) {
        return layerKeyNotes.at(static_cast<std::size_t>(control - 32));
    }
    if (control <= 39) {
        return transportNotes.at(static_cast<std::size_t>(control - 36));
    }
    if (control <= 47) {
        return 0x20 + (control - 40);  // encoder pushes
    }
    if (control <= 55) {
        return 0x10 + (control - 48);  // encoders
    }
    if (control <= 64) {
        return 0x38 + (control - 56);  // faders
    }
    if (control <= 73) {
        return padNumbers.at(static_cast<std::size_t>(layer))
            .at(static_cast<std::size_t>(control - 65));
    }
    return 0x4A + (control - 74);  // spare
}

/// Message kind, with bit 4 for the pads that play on channel 10.
inline int kind(int layer, int control) {
    if (control >= 48 && control <= 55) {
        return 0x0B;
    }
    if (control >= 56 && control <= 64) {
        return 0x0E;
    }
    const bool pad = control >= 65 && control <= 73;
    return pad && layer > 0 ? 0x19 : 0x09;
}

inline int toggle(int layer, int control) {
    return layer >= 2 && control <= 47 ? 0x40 : 0;
}

/// Faders in the user-defined store send control change.
inline int userKind(int layer, int control) {
    return control >= 56 && control <= 64 ? 0x0B : kind(layer, control);
}

}  // namespace config::factory
