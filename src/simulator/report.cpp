#include "simulator/report.h"

#include <algorithm>
#include <cstddef>

#include "tables/data.h"
#include "texts/List.h"
#include "texts/hexadecimal.h"

namespace simulator {
namespace {

std::string dawMode(std::uint8_t mode) {
    const texts::List names = tables::data::Machin_Mod();
    return mode < names.size() ? std::string(names[mode]) : std::to_string(mode);
}

std::string padCurve(std::uint8_t curve) {
    constexpr std::uint8_t lastCurve = 4;
    return (curve > lastCurve ? "Const " : "Curve") + std::to_string(curve);
}

std::string contentOf(const LayerMessage& layer) {
    std::string text = std::to_string(layer.size()) + " bytes";
    text += ", DAW mode " + dawMode(layer[config::dawModeOffset]);
    text += layer[config::lockOffset] != 0 ? ", locked" : ", not locked";
    text += ", pads: " + padCurve(layer[config::curveOffset]);
    text += ", " + std::to_string(layer[config::intervalOffset]) + " ms\n";
    constexpr std::size_t bytesInALine = 32;
    for (std::size_t begin = 0; begin < layer.size(); begin += bytesInALine) {
        const std::size_t count = std::min(bytesInALine, layer.size() - begin);
        text += "    " + texts::hexadecimal(std::span(layer).subspan(begin, count)) + "\n";
    }
    return text;
}

}  // namespace

std::string lineOf(const LogEntry& entry) {
    return std::to_string(entry.number) + ": " + (entry.accepted ? "" : "refused: ") + entry.text +
           " (" + std::to_string(entry.bytes) + " bytes)\n";
}

std::string linesOf(const SimulatedController::Layers& layers) {
    std::string text;
    int number = 0;
    for (const std::optional<LayerMessage>& layer : layers) {
        text += "layer " + std::to_string(++number) + ": ";
        text += layer ? contentOf(*layer) : std::string("nothing yet\n");
    }
    return text;
}

}  // namespace simulator
