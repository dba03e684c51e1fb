#include "describe/reports.h"

#include <gtest/gtest.h>

#include "config/modes.h"

namespace describe {
namespace {

Assignment sending(config::MessageKind kind, int number) {
    Assignment assignment;
    assignment.kind = kind;
    assignment.number = number;
    return assignment;
}

TEST(Reports, NameTheChannelFromOneOn) {
    EXPECT_EQ(reportChannel("Strip 3, Solo", 0), "Strip 3, Solo: channel 1");
    EXPECT_EQ(reportChannel("Pad layer 3, all pads", 15), "Pad layer 3, all pads: channel 16");
}

TEST(Reports, NameTheMessageOrItsNumberAlone) {
    using enum config::MessageKind;
    EXPECT_EQ(reportMessage("Pad 5", sending(Note, 60)), "Pad 5: note 60 C4");
    EXPECT_EQ(reportMessage("Pad 5", sending(ControlChange, 64)),
              "Pad 5: control change 64 Sustain");
    EXPECT_EQ(reportMessage("Pad 5", sending(ProgramChange, 5)), "Pad 5: program change 5");
    EXPECT_EQ(reportMessage("Master fader", sending(PitchBend, 5)), "Master fader: number 5");
    EXPECT_EQ(reportMessage("Pad 5", sending(Unknown, 6)), "Pad 5: number 6");
}

TEST(Reports, NameTheTrigger) {
    EXPECT_EQ(reportTrigger("Encoder 2, push", true), "Encoder 2, push: toggle");
    EXPECT_EQ(reportTrigger("Encoder 2, push", false), "Encoder 2, push: momentary");
    EXPECT_EQ(reportTriggerOfAll(1, true, 47),
              "Layer 2: all buttons toggle, except Encoder 8, push");
    EXPECT_EQ(reportTriggerOfAll(0, false, 47),
              "Layer 1: all buttons momentary, except Encoder 8, push");
}

TEST(Reports, NameTheModeWithoutItsProtocol) {
    EXPECT_EQ(reportMode(config::userDefinedMode, false), "DAW mode: User Defined");
    EXPECT_EQ(reportMode(config::logicMode, false), "DAW mode: Logic");
    EXPECT_EQ(reportMode(config::huiMode, true), "DAW mode: HUI. Your own assignments are kept.");
}

TEST(Reports, CallAModeThatDoesNotExistUnknown) {
    EXPECT_EQ(reportMode(-1, false), "DAW mode: unknown");
    EXPECT_EQ(reportMode(config::huiMode + 1, true),
              "DAW mode: unknown. Your own assignments are kept.");
}

TEST(Reports, NameTheLockAndTheLayers) {
    EXPECT_EQ(reportLock(true), "Lock: on");
    EXPECT_EQ(reportLock(false), "Lock: off");
    EXPECT_EQ(modeLayerName(1), "Mode layer 2");
    EXPECT_EQ(padLayerName(0), "Pad layer 1");
}

TEST(Reports, NameThePadLayersThatChanged) {
    EXPECT_EQ(reportPadLayers({}), "Pad layers 2 to 4 are as they were");
    EXPECT_EQ(reportPadLayers({2}), "Pad layer 3 changed");
    EXPECT_EQ(reportPadLayers({1, 3}), "Pad layers 2 and 4 changed");
    EXPECT_EQ(reportPadLayers({1, 2, 3}), "Pad layers 2, 3 and 4 changed");
}

TEST(StepName, IsTheReportWithoutWhatIsSaidForTheMoment) {
    EXPECT_EQ(stepName("Strip 3, Solo: control change 64 Sustain"),
              "Strip 3, Solo: control change 64 Sustain");
    EXPECT_EQ(stepName(reportTriggerOfAll(1, true, 47)), reportTriggerOfAll(1, true, 47));
    EXPECT_EQ(stepName(reportMode(config::logicMode, true)), "DAW mode: Logic");
    EXPECT_EQ(stepName(reportMode(config::userDefinedMode, false)), "DAW mode: User Defined");
}

TEST(StepName, SaysWhichPadLayersASessionChanged) {
    EXPECT_EQ(stepName(reportPadLayers({1, 3})), "Pad layers 2 and 4");
    EXPECT_EQ(stepName(reportPadLayers({2})), "Pad layer 3");
    EXPECT_EQ(stepName(reportPadLayers({})), "Pad editor");
    EXPECT_EQ(stepName("Pad layer 2: interval 30 ms"), "Pad layer 2: interval 30 ms");
}

TEST(StepName, SaysWhichFileWasLoaded) {
    config::Image sound{};
    for (int layer = 0; layer < config::layerCount; ++layer) {
        sound[config::at(layer, 0)] = 0xF0;
        sound[config::at(layer, config::endOffset)] = 0xF7;
    }
    EXPECT_EQ(stepName(reportLoad("My. Layers changed.Tormelk", sound)),
              "Load My. Layers changed.Tormelk");
    config::Image odd = sound;
    odd[config::at(1, 20)] = 0x80;
    EXPECT_EQ(stepName(reportLoad("Stage. Layer.Tormelk", odd)), "Load Stage. Layer.Tormelk");
    odd[config::at(2, 20)] = 0x80;
    EXPECT_EQ(stepName(reportLoad("Stage.Tormelk", odd)), "Load Stage.Tormelk");
}

}  // namespace
}  // namespace describe
