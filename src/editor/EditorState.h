#pragma once

// Everything the editor knows, apart from what its widgets show. The main window's actions and the
// pad editor share it; the composition root creates it. Control indexes are 0 to 79 or 127 (none),
// layers 0 to 3 or 255 (none lit).

#include <array>
#include <cstdint>

#include "config/Configuration.h"
#include "config/control.h"
#include "config/layout.h"
#include "config/modes.h"

namespace editor {

using config::huiMode;
using config::isLayer;
using config::liveMode;
using config::logicMode;
using config::noControl;
using config::nuendoMode;
using config::samplitudeMode;
using config::userDefinedMode;

inline constexpr int noLayer = 255;

/// Message kinds as `combo_type` lists them.
inline constexpr int kindNote = 0;
inline constexpr int kindControlChange = 1;
inline constexpr int kindProgramChange = 2;
inline constexpr int kindUnknown = 63;

/// The position of a kind in `combo_type`; pitch bend has none.
[[nodiscard]] constexpr int typePosition(config::MessageKind kind) {
    switch (kind) {
        case config::MessageKind::Note:
            return kindNote;
        case config::MessageKind::ControlChange:
            return kindControlChange;
        case config::MessageKind::ProgramChange:
            return kindProgramChange;
        case config::MessageKind::PitchBend:
        case config::MessageKind::Unknown:
            break;
    }
    return kindUnknown;
}

/// Positions of the blank entry: the lengths of the lists it is appended to.
inline constexpr std::array<int, 5> tcmtv = {
    3,    // combo_type
    16,   // combo_chan
    128,  // combo_cc
    4,    // combo_trig
    108,  // the pad editor's combo_curConst
};

/// Position of the byte that the `trigger` button mirrors.
inline constexpr std::size_t triggerPosition = 73;

/// One flag a layer; a layer outside 0 to 3 has none.
class LayerFlags {
public:
    [[nodiscard]] bool isSet(int layer) const {
        return isLayer(layer) && flags_[index(layer)] != 0;
    }
    void set(int layer, bool on) {
        if (isLayer(layer)) {
            flags_[index(layer)] = on ? 1 : 0;
        }
    }
    void clear() { flags_ = {}; }

    bool operator==(const LayerFlags&) const = default;

private:
    static std::size_t index(int layer) { return static_cast<std::size_t>(layer); }
    std::array<std::uint8_t, config::layerCount> flags_{};
};

/// Which control is edited.
struct Selection {
    int keyEvnt = 0;               ///< the control being edited
    int keyEvnt_bak = 0;           ///< the one before; its button is highlighted
    int keyEvnt_bak_pad = 0;       ///< parked while a factory mode is shown
    std::array<int, 4> key_sel{};  ///< last ordinary control of each mode layer
    int msg_Typ = kindNote;        ///< message kind shown in `combo_type`
    int select_type = kindNote;    ///< message kind a person chose last
    int selTag2 = noControl;

    bool operator==(const Selection&) const = default;
};

/// Which layer block is shown and edited, and which layer buttons stand for it.
struct Layers {
    int layrData = 0;  ///< block whose bytes are shown and edited
    int m_moLa = 0;    ///< current mode layer
    int m_moLa_bakup = 0;
    int m_paLa = 0;  ///< current pad layer
    int varPaLaDwn = 0;
    LayerFlags bTrigAll;  ///< an "All Momentary" or "All Toggle" choice is in force

    bool operator==(const Layers&) const = default;
};

/// DAW mode.
struct Modes {
    int machn_mod = 0;
    int machn_mod_bakup = 0;  ///< the mode before the current switch
    int sysExData_modeBackup = 0;

    bool operator==(const Modes&) const = default;
};

/// The pad editor's working copy and state.
struct PadEditing {
    config::Image sysbuf_domal{};  ///< laid out like `sysData`; blocks 1 to 3 are used
    int m_zPaLayer_CurSel = 0;     ///< pad layer shown in the pad editor
    int m_zPaLayer_FirSel = 0;     ///< pad layer at which it was opened
    int m_pad_CurSel = 0;          ///< control last selected in the pad editor
    int pad_modal = 0;             ///< 1 while the pad editor is open
    LayerFlags abChAll;            ///< a channel change applies to all nine pads
    std::array<std::int8_t, 4> SYSBuf_vel_bak{};  ///< last constant velocity of each layer
    int isInit2 = 0;

    bool operator==(const PadEditing&) const = default;
};

/// The configuration, and what is selected of it and shown.
struct EditorState : config::Configuration {
    Selection selection;
    Layers layers;
    Modes modes;
    PadEditing pads;
    int bChange = 0;  ///< 1: a channel or number was changed since the last save or load
    int isInit = 0;   ///< 1: the main window has finished waking
    /// Which copy of unsaved work this began as, counted from 1; 0 is none.
    int broughtBack = 0;

    bool operator==(const EditorState&) const = default;
};

/// Whether nothing differs that a person works on: the configuration, the DAW mode, the flags of
/// the layers and the remembered velocities. What is selected and shown may differ.
[[nodiscard]] inline bool haveSameWork(const EditorState& one, const EditorState& other) {
    const config::Configuration& configuration = one;
    return configuration == other && one.modes.machn_mod == other.modes.machn_mod &&
           one.layers.bTrigAll == other.layers.bTrigAll && one.pads.abChAll == other.pads.abChAll &&
           one.pads.SYSBuf_vel_bak == other.pads.SYSBuf_vel_bak;
}

}  // namespace editor
