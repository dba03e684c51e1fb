#pragma once

// What the editor must hold and show after a step of the walk: a copy of its whole state and of all
// its widgets that only the steps' own words change. It shares no logic with the editor; the image
// at start-up, too, is written down here a second time.

#include <initializer_list>
#include <set>
#include <string>

#include "editor/EditorState.h"

namespace walk {

/// The lists a box can hold, and none.
enum class List {
    Nothing,
    Notes,
    Controllers,
    Programs,
    NuendoFunctions,
    Channels,
    Kinds,
    Triggers,
    Modes,
    ChannelModes,
    Intervals,
    Curves,
    Velocities
};

/// How many items a list has, and its first and last.
struct ListFacts {
    int count;
    const char* first;
    const char* last;
};
[[nodiscard]] ListFacts factsOf(List list);

struct Box {
    List list = List::Nothing;
    int blanks = 0;  ///< blank entries behind the list
    int selected = -1;
    bool enabled = true;

    [[nodiscard]] int count() const { return factsOf(list).count + blanks; }
    void fill(List newList) {
        list = newList;
        blanks = 0;
        selected = -1;
    }
    /// The blank entry is shown; it is appended where it is missing.
    void showBlank() {
        blanks = blanks == 0 ? 1 : blanks;
        selected = count() - 1;
    }
};

/// The pad editor's window.
struct PadScreen {
    bool open = false;
    std::set<int> litPads;    ///< 0 to 8 for p1 to p9
    std::set<int> litLayers;  ///< 1 to 3
    Box chan, chanMod, msg, intervl, curv, curConst;
    std::string velocity;  ///< "Const" or "None"

    /// A layer with a velocity curve, or with a constant velocity, is shown.
    void showsCurve(int curve);
    void showsVelocity(int velocity);
};

/// A byte of the image at an absolute position.
struct Byte {
    std::size_t position;
    int value;
};
using Bytes = std::initializer_list<Byte>;

/// One control's assignment as the property boxes show it.
struct Shown {
    int kind;  ///< `msg_Typ`; 63 selects nothing in `combo_type`
    List numbers;
    int channel;
    int number;
    int trigger;
};

struct Expected {
    /// The editor as it stands after its start.
    Expected();

    editor::EditorState state;

    std::set<int> litControls;  ///< tags of the lit buttons among `encoder0` to `encoder73`
    std::set<int> litModeLayers;
    std::set<int> litPadLayers;
    bool firstPadLayerEnabled = true;
    int locker = 1;
    bool visible = true;
    std::string title;
    Box mode, type, chan, cc, trig;
    PadScreen pad;

    /// `control` is edited and highlighted; `button` is its button's tag.
    void selects(int control, int button);
    void shows(const Shown& shown);
    /// Nothing is selected; the boxes for kind, channel and trigger show their blank entry.
    void selectsNothing();
    void enablesProperties(bool typeChannelNumber, bool trigger);

    void bytes(Bytes changes);
    /// Positions `first` to `last`, both included.
    void fill(std::size_t first, std::size_t last, int value);
    /// Bytes of the pad editor's working copy.
    void working(Bytes changes);
    /// The same in the working copy and in the image.
    void both(Bytes changes);
    void fillBoth(std::size_t first, std::size_t last, int value);
    /// No change: states what the image holds at these positions, to be read beside the step.
    void holds(Bytes facts) const;

    /// The image's blocks 1 to 3 go into the working copy; their bytes 7 to 249 come back.
    void takesWorkingCopy();
    void takesBackWorkingCopy();
    /// The pad editor has opened at a pad layer.
    void opensPadEditor(int padLayer);
    /// It has closed again: pad layer 1 is lit, the block of the mode layer is shown.
    void closesPadEditor();

    /// What a mode change exchanges, layer by layer.
    void keepsUserDefined();
    void loadsFactory();
    void restoresUserDefined();
    /// The mode byte of all four blocks, and the mode box.
    void mode_is(int mode, int before);
};

}  // namespace walk
