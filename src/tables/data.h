#pragma once

// The texts the editor offers in its combo boxes. The position of an item is the value the box
// edits, unless the list says otherwise. Which box shows which list, and what becomes of a choice,
// is the editor's business.
//
// Several texts are spelt or spaced oddly ("7 Volme", "98  LSB", "112---"). They are never tidied
// up: they are what the owners of the device know and search for, and each of them has a test.

#include <array>
#include <cstdint>

#include "texts/List.h"

namespace tables {

class data {
public:
    data() = delete;

    static texts::List msgTyp();      ///< message types: 0 note, 1 control change, 2 program change
    static texts::List kong();        ///< a single blank, the list that offers nothing
    static texts::List drvVer();      ///< the models
    static texts::List Chan();        ///< "1" to "16"; item 0 is MIDI channel 1
    static texts::List ChanMod();     ///< whether a pad's channel is its own or that of all pads
    static texts::List Machin_Mod();  ///< factory modes, in the order of the image's mode byte
    static texts::List TrigMod();     ///< trigger modes of a button
    static texts::List Mackie();      ///< transport and function keys
    static texts::List Pedal();       ///< volumes a pedal can move

    static texts::List CC();     ///< controllers 0 to 127 by number and, where it has one, name
    static texts::List Prog();   ///< programs 0 to 127
    static texts::List Trans();  ///< transpositions, -12 to +12 semitones; item 12 is 0

    static texts::List Note();   ///< notes 0 to 127 by octave and pitch
    static texts::List P_CC();   ///< as `Note`, with one item more, 128
    static texts::List fader();  ///< notes 0 to 127 by pitch, then octave without its sign

    static texts::List curv();       ///< velocity curves of a pad; the last is a constant velocity
    static texts::List curv5_vel();  ///< constant velocities: item i is 20 + i, up to 127
    static texts::List ms();         ///< intervals: item i is 25 + i milliseconds, up to 100

    // What note 0 to 127 does in the host of a factory mode: note name and function.
    static texts::List ND();  ///< Nuendo
    static texts::List LG();  ///< Logic
    static texts::List SP();  ///< Samplitude
    static texts::List LV();  ///< Live

    /// The notes of a factory mode, `mode` being a position in `Machin_Mod`; `kong` for any other
    /// number.
    static texts::List Midi_Msg1(int mode);

    /// The controller at a position of `CC`, and the position of a controller. They coincide, so
    /// any integer comes back unchanged.
    static int Get_CC_Key(int index) { return index; }
    static int Get_CC_Value(int controller) { return controller; }

    /// The controllers of a list that shows named ones only. It departs from the names in `CC` (11
    /// and 12 for 10 and 11, 36 for 66, 68 for 69), and is kept so.
    static constexpr std::array<std::int32_t, 40> ccArray{
        0,  1,  2,  4,  5,  6,  7,  8,  11, 12, 38,  64,  65,  36,  67,  68,  71,  72,  73,  74,
        84, 91, 92, 93, 94, 95, 96, 97, 98, 99, 100, 101, 120, 121, 122, 123, 124, 125, 126, 127};
};

}  // namespace tables
