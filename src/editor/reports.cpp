#include "editor/reports.h"

#include <cstddef>
#include <string_view>

#include "config/transfer.h"
#include "editor/controlNames.h"
#include "sending/send.h"
#include "tables/data.h"

namespace editor {

namespace {

std::string numbered(std::string_view what, int index) {
    return std::string(what) + " " + std::to_string(index + 1);
}

/// "Nuendo", where the list has "Nuendo mode(MCP)".
std::string_view shortNameOfMode(int mode) {
    const tables::List names = tables::data::Machin_Mod();
    if (mode < 0 || mode >= static_cast<int>(names.size())) {
        return "unknown";
    }
    const std::string_view name = names[static_cast<std::size_t>(mode)];
    return name.substr(0, name.find_last_of(' '));
}

using sending::Receipt;
using sending::Trouble;

/// How much of a Send that was cut can have reached the controller.
std::string reachIn(const Receipt& receipt) {
    const std::uint64_t layers = sending::layersIn(receipt.left);
    if (receipt.left == 0) {
        return ": nothing was sent";
    }
    return layers == 0 ? ": not one whole layer reached it"
                       : ": at most " + std::to_string(layers) + " of 4 layers reached it";
}

std::string cutSend(const Receipt& receipt) {
    const std::string& name = receipt.output;
    const std::string user = receipt.program.empty() ? "another program" : receipt.program;
    switch (receipt.trouble) {
        case Trouble::WentAway:
            return name + " went away during the Send" + reachIn(receipt);
        case Trouble::TakesNothing:
            return name + (receipt.left == 0 ? " takes nothing" : " takes nothing any more") +
                   reachIn(receipt);
        case Trouble::InUse:
            return name + " is in use by " + user + reachIn(receipt);
        default:
            return "The system did not take everything for " + name + reachIn(receipt);
    }
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
    return what + ": " + numbered("channel", channel);
}

std::string reportMessage(const std::string& what, const Assignment& assignment) {
    const bool isNamed =
        assignment.kind != MessageKind::PitchBend && assignment.kind != MessageKind::Unknown;
    return what + ": " +
           (isNamed ? assignment.messageText() : "number " + std::to_string(assignment.number));
}

std::string reportTrigger(const std::string& what, bool toggles) {
    return what + (toggles ? ": toggle" : ": momentary");
}

std::string reportTriggerOfAll(int layer, bool toggle, int exception) {
    return numbered("Layer", layer) + ": all buttons " + (toggle ? "toggle" : "momentary") +
           ", except " + controlName(exception);
}

std::string reportMode(int mode, bool leavesUserDefined) {
    std::string text = "DAW mode: ";
    text += shortNameOfMode(mode);
    if (leavesUserDefined) {
        text += ". Your own assignments are kept.";
    }
    return text;
}

std::string reportLock(bool locked) {
    return locked ? "Lock: on" : "Lock: off";
}

std::string modeLayerName(int layer) {
    return numbered("Mode layer", layer);
}

std::string padLayerName(int layer) {
    return numbered("Pad layer", layer);
}

std::string reportPadLayers(const std::vector<int>& changed) {
    if (changed.empty()) {
        return "Pad layers 2 to 4 are as they were";
    }
    return (changed.size() == 1 ? "Pad layer " : "Pad layers ") + listed(changed) + " changed";
}

std::string reportSend(const Receipt& receipt) {
    if (receipt.trouble == Trouble::NoOutput) {
        return "Nothing was sent: no output is chosen";
    }
    if (receipt.trouble == Trouble::Offline) {
        return "Nothing was sent: the output is offline";
    }
    if (receipt.isCut()) {
        return cutSend(receipt);
    }
    const std::string& name = receipt.output;
    if (!receipt.isSettled) {
        return "Sending to " + name + ": waiting until it has taken everything";
    }
    if (receipt.trouble != Trouble::None) {
        return name + " went away right after the Send: some of it may not have reached it";
    }
    return receipt.hasLeft()
               ? "Sent 4 layers to " + name
               : "Handed 4 layers over for " + name + ": whether it took everything is not known";
}

std::string reportLoad(const std::string& fileName, const config::Image& sysData) {
    std::vector<int> odd;
    for (int layer = 0; layer < config::layerCount; ++layer) {
        if (!config::isOneMessage(sysData, layer)) {
            odd.push_back(layer);
        }
    }
    const std::string loaded = "Loaded " + fileName;
    if (odd.empty()) {
        return loaded;
    }
    return loaded +
           (odd.size() == 1 ? ". Layer " + listed(odd) + " holds"
                            : ". Layers " + listed(odd) + " hold") +
           " bytes the controller may not take.";
}

}  // namespace editor
