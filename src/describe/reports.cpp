#include "describe/reports.h"

#include <cstddef>
#include <string_view>

#include "config/sysex.h"
#include "describe/controlNames.h"
#include "tables/data.h"

namespace describe {

namespace {

constexpr std::string_view ownAreKept = ". Your own assignments are kept.";
constexpr std::string_view loaded = "Loaded ";
constexpr std::string_view oddLayer = ". Layer";  // or "Layers"
constexpr std::string_view oddBytes = " bytes the controller may not take.";
constexpr std::string_view padLayersChanged = " changed";
constexpr std::string_view padLayersUnchanged = "Pad layers 2 to 4 are as they were";

std::string withNumber(std::string_view what, int index) {
    return std::string(what) + " " + std::to_string(index + 1);
}

/// "Nuendo", where the list has "Nuendo mode(MCP)".
std::string_view shortNameOfMode(int mode) {
    const texts::List names = tables::data::Machin_Mod();
    if (mode < 0 || mode >= static_cast<int>(names.size())) {
        return "unknown";
    }
    const std::string_view name = names[static_cast<std::size_t>(mode)];
    return name.substr(0, name.find_last_of(' '));
}

/// "2", "2 and 4", "1, 2 and 4".
std::string listed(const std::vector<int>& layers) {
    std::string text;
    std::size_t index = 0;
    for (const int layer : layers) {
        if (index > 0) {
            text += index + 1 == layers.size() ? " and " : ", ";
        }
        text += std::to_string(layer + 1);
        ++index;
    }
    return text;
}

}  // namespace

std::string reportChannel(const std::string& what, int channel) {
    return what + ": " + withNumber("channel", channel);
}

std::string reportMessage(const std::string& what, const Assignment& assignment) {
    const bool isNamed = assignment.kind != config::MessageKind::PitchBend &&
                         assignment.kind != config::MessageKind::Unknown;
    return what + ": " +
           (isNamed ? assignment.messageText() : "number " + std::to_string(assignment.number));
}

std::string reportTrigger(const std::string& what, bool toggles) {
    return what + (toggles ? ": toggle" : ": momentary");
}

std::string reportTriggerOfAll(int layer, bool toggle, int exception) {
    return withNumber("Layer", layer) + ": all buttons " + (toggle ? "toggle" : "momentary") +
           ", except " + controlName(exception);
}

std::string reportMode(int mode, bool leavesUserDefined) {
    std::string text = "DAW mode: ";
    text += shortNameOfMode(mode);
    if (leavesUserDefined) {
        text += ownAreKept;
    }
    return text;
}

std::string reportLock(bool locked) {
    return locked ? "Lock: on" : "Lock: off";
}

std::string modeLayerName(int layer) {
    return withNumber("Mode layer", layer);
}

std::string padLayerName(int layer) {
    return withNumber("Pad layer", layer);
}

std::string reportPadLayers(const std::vector<int>& changed) {
    if (changed.empty()) {
        return std::string(padLayersUnchanged);
    }
    return (changed.size() == 1 ? "Pad layer " : "Pad layers ") + listed(changed) +
           std::string(padLayersChanged);
}

std::string reportLoad(const std::string& fileName, const config::Image& sysData) {
    std::vector<int> odd;
    for (int layer = 0; layer < config::layerCount; ++layer) {
        if (!config::isOneMessage(sysData, layer)) {
            odd.push_back(layer);
        }
    }
    std::string text = std::string(loaded) + fileName;
    if (odd.empty()) {
        return text;
    }
    text += oddLayer;
    text += (odd.size() == 1 ? " " : "s ") + listed(odd) + (odd.size() == 1 ? " holds" : " hold");
    text += oddBytes;
    return text;
}

std::string stepName(const std::string& report) {
    if (report == padLayersUnchanged) {
        return "Pad editor";  // a remembered velocity may be all that changed
    }
    std::string_view name = report;
    const auto cutEnd = [&name](std::string_view end) {
        if (name.ends_with(end)) {
            name.remove_suffix(end.size());
        }
    };
    cutEnd(ownAreKept);
    if (name.starts_with("Pad layer")) {
        cutEnd(padLayersChanged);
    }
    if (!name.starts_with(loaded)) {
        return std::string(name);
    }
    if (name.ends_with(oddBytes)) {
        name = name.substr(0, name.rfind(oddLayer));
    }
    name.remove_prefix(loaded.size());
    return "Load " + std::string(name);
}

}  // namespace describe
