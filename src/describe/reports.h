#pragma once

// What an edit did, in the words of the status line. Layers are counted from 0 here, as the image
// counts them, and from 1 in the words.

#include <string>
#include <vector>

#include "config/layout.h"
#include "describe/assignment.h"

namespace describe {

/// "Strip 3, Solo: channel 4". `channel` is 0 to 15.
[[nodiscard]] std::string reportChannel(const std::string& what, int channel);

/// What is sent now: "Strip 3, Solo: control change 64 Sustain". Where the number is no part of the
/// message's name: "Master fader: number 5".
[[nodiscard]] std::string reportMessage(const std::string& what, const Assignment& assignment);

/// "Strip 3, Solo: toggle".
[[nodiscard]] std::string reportTrigger(const std::string& what, bool toggles);

/// "Layer 2: all buttons toggle, except Encoder 8, push".
[[nodiscard]] std::string reportTriggerOfAll(int layer, bool toggle, int exception);

/// "DAW mode: Nuendo. Your own assignments are kept."
[[nodiscard]] std::string reportMode(int mode, bool leavesUserDefined);

/// "Lock: on".
[[nodiscard]] std::string reportLock(bool locked);

/// "Mode layer 2", "Pad layer 1".
[[nodiscard]] std::string modeLayerName(int layer);
[[nodiscard]] std::string padLayerName(int layer);

/// "Pad layers 2 and 4 changed"; "Pad layers 2 to 4 are as they were" where `changed` is empty.
[[nodiscard]] std::string reportPadLayers(const std::vector<int>& changed);

/// "Loaded Stage.Tormelk", and what a controller may not take of it.
[[nodiscard]] std::string reportLoad(const std::string& fileName, const config::Image& sysData);

/// What a step that was reported so is called in "Undo ..." and "Redo ...": the same, without what
/// the report adds for the moment. "DAW mode: Nuendo", "Load Stage.Tormelk", "Pad layers 2 and 4".
[[nodiscard]] std::string stepName(const std::string& report);

}  // namespace describe
