#include "simulator/report.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <sstream>

#include "config/buildImageAndStores.h"
#include "config/sysex.h"
#include "tables/data.h"

namespace simulator {
namespace {

using testing::HasSubstr;

TEST(Report, TellsWhatWasTakenIn) {
    EXPECT_EQ(lineOf({7, true, "layer 1", 254}), "7: layer 1 (254 bytes)\n");
}

TEST(Report, TellsWhatWasRefusedAndWhy) {
    EXPECT_EQ(lineOf({8, false, "no such layer", 12}), "8: refused: no such layer (12 bytes)\n");
}

TEST(Report, ALayerThatHasNotComeHoldsNothingYet) {
    EXPECT_EQ(linesOf(SimulatedController().layers()),
              "layer 1: nothing yet\nlayer 2: nothing yet\nlayer 3: nothing yet\n"
              "layer 4: nothing yet\n");
}

TEST(Report, ALayerIsToldInWordsAndInAllItsBytes) {
    config::Image sysData{};
    config::Stores stores;
    config::buildImageAndStores(sysData, stores);
    SimulatedController tormelk;
    tormelk.receive(config::layerBlock(sysData, 1));
    const std::string text = linesOf(tormelk.layers());
    EXPECT_THAT(text, HasSubstr("layer 1: nothing yet\n"));
    EXPECT_THAT(
        text,
        HasSubstr("layer 2: 254 bytes, DAW mode Nuendo mode(MCP), locked, pads: Curve1, 64 ms\n"));
    EXPECT_THAT(text, HasSubstr("    F0 1D 03 00 69 4E 02 "));
    std::istringstream lines(text);
    std::size_t pairs = 0;
    for (std::string line; std::getline(lines, line);) {
        if (line.rfind("    ", 0) == 0) {
            pairs += (line.size() - 4 + 1) / 3;
        }
    }
    EXPECT_EQ(pairs, 254U);
}

TEST(Report, NamesTheDawModesThatThereAreAndNumbersOthers) {
    const auto modeOf = [](std::uint8_t mode) {
        SimulatedController::Layers layers;
        layers[0].emplace()[config::dawModeOffset] = mode;
        const std::string text = linesOf(layers);
        const std::size_t begin = text.find("DAW mode ") + 9;
        return text.substr(begin, text.find(", not locked") - begin);
    };
    const std::size_t modes = tables::data::Machin_Mod().size();
    for (std::size_t mode = 0; mode < modes; ++mode) {
        EXPECT_EQ(modeOf(static_cast<std::uint8_t>(mode)), tables::data::Machin_Mod()[mode]);
    }
    EXPECT_EQ(modeOf(static_cast<std::uint8_t>(modes)), std::to_string(modes));
    EXPECT_EQ(modeOf(127), "127");
}

TEST(Report, TellsACurveFromAConstantVelocity) {
    SimulatedController::Layers layers;
    LayerMessage& layer = layers[0].emplace();
    layer[config::curveOffset] = 4;
    EXPECT_THAT(linesOf(layers), HasSubstr(", not locked, pads: Curve4, 0 ms\n"));
    layer[config::curveOffset] = 5;
    EXPECT_THAT(linesOf(layers), HasSubstr(", not locked, pads: Const 5, 0 ms\n"));
}

}  // namespace
}  // namespace simulator
