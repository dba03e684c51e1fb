#include "describe/controlNames.h"

#include <array>
#include <string_view>

#include "config/factoryTables.h"
#include "config/layout.h"

namespace describe {

namespace {

constexpr int buttonsOfAStrip = 4;
constexpr std::array<std::string_view, 4> stripButtons = {"Select", "Solo", "Mute", "Rec"};

struct Key {
    std::string_view caption;
    std::string_view name;
};
constexpr std::array<Key, 4> layerKeys = {{
    {"Ch Left", "channel left"},
    {"Ch Right", "channel right"},
    {"Bank Left", "bank left"},
    {"Bank Right", "bank right"},
}};
constexpr std::array<Key, 4> transportKeys = {{
    {"Play", "play"},
    {"Stop", "stop"},
    {"Rewind", "rewind"},
    {"Fast Fwd", "fast forward"},
}};

struct Names {
    std::string caption;
    std::string name;
};

std::string numbered(std::string_view what, int index) {
    return std::string(what) + " " + std::to_string(index + 1);
}

Names namesOfKey(const std::array<Key, 4>& keys, std::string_view group, int index) {
    const Key& key = keys[static_cast<std::size_t>(index)];
    return {std::string(key.caption), numbered(group, index) + ": " + std::string(key.name)};
}

Names namesOf(int control) {
    using namespace config;
    if (control < 0 || control >= buttonCount) {
        return {};
    }
    if (control < firstLayerKey) {
        const std::string button(stripButtons[static_cast<std::size_t>(control % buttonsOfAStrip)]);
        return {button, numbered("Strip", control / buttonsOfAStrip) + ", " + button};
    }
    if (control < firstTransportKey) {
        return namesOfKey(layerKeys, "Layer key", control - firstLayerKey);
    }
    if (control < firstEncoderPush) {
        return namesOfKey(transportKeys, "Transport key", control - firstTransportKey);
    }
    if (control < firstEncoder) {
        return {"Push", numbered("Encoder", control - firstEncoderPush) + ", push"};
    }
    if (control < firstFader) {
        return {"Encoder", numbered("Encoder", control - firstEncoder)};
    }
    if (control <= lastFader) {
        const bool isMaster = control == lastFader;
        return {"Fader", isMaster ? "Master fader" : numbered("Fader", control - firstFader)};
    }
    const std::string pad = numbered("Pad", tagOfControl(control) - firstPad);
    return {pad, pad};
}

}  // namespace

std::string controlName(int control) {
    return namesOf(control).name;
}

std::string controlCaption(int control) {
    return namesOf(control).caption;
}

int controlOfTag(int tag) {
    return config::isPad(tag) ? config::aPadMap[static_cast<std::size_t>(tag - config::firstPad)]
                              : tag;
}

int tagOfControl(int control) {
    return config::isPad(control)
               ? config::aMapPad[static_cast<std::size_t>(control - config::firstPad)]
               : control;
}

}  // namespace describe
