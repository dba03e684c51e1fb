#include <gtest/gtest.h>

#include <memory>

#include "kernel/service/EndpointLayer.h"
#include "kernel/service/OtherProgram.h"

// How the endpoint layer takes what the sequencer announces.

namespace kernel {
namespace {

using namespace std::chrono_literals;

TEST(SetupChanges, ThatArriveWhileOneIsBeingToldAreTakenInOnceThatHasEnded) {
    EndpointLayer layer;
    std::unique_ptr<OtherProgram> late;
    int told = 0;
    bool wasNested = false;
    const auto observer = layer.centre.addObserver(midi::ZQMIDISetupChanged, [&](const void*) {
        if (++told > 1) {
            return;
        }
        late = std::make_unique<OtherProgram>("Late", std::vector<std::string>{"late=write"});
        // As a dialog that is opened by an observer does.
        layer.run(1s);
        wasNested = told > 1 || layer.destination("late") != nullptr;
    });
    const OtherProgram early("Early", {"early=write"});
    ASSERT_TRUE(layer.runUntil([&] { return layer.destination("early") != nullptr; }));
    EXPECT_FALSE(wasNested);
    EXPECT_EQ(told, 2);
    EXPECT_NE(layer.destination("late"), nullptr);
}

TEST(SetupChanges, WhileNotificationsAreOffAreLostUntilTheNextOne) {
    EndpointLayer layer;
    layer.manager().disableNotifications();
    const OtherProgram lost("Lost", {"lost=write"});
    layer.run(1s);
    layer.manager().enableNotifications();
    layer.run(500ms);
    EXPECT_EQ(layer.setupChanges, 0);
    EXPECT_EQ(layer.destination("lost"), nullptr);
    const OtherProgram next("Next", {"next=write"});
    ASSERT_TRUE(layer.runUntil([&] { return layer.destination("next") != nullptr; }));
    EXPECT_NE(layer.destination("lost"), nullptr);
}

}  // namespace
}  // namespace kernel
