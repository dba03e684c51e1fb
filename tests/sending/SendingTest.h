#pragma once

// What the tests of this room share: a computer with one output, and no window.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "midi/ZQMIDIProcess.h"
#include "platform/NotificationCentre.h"
#include "sending/Consignment.h"
#include "sending/Way.h"
#include "support/ScriptedMidiService.h"

namespace sending {

class SendingTest : public testing::Test {
protected:
    void TearDown() override {
        EXPECT_EQ(service.openOutputPorts(), 0U);
        EXPECT_THAT(service.misuses(), testing::IsEmpty());
    }

    /// The output as the endpoint layer knows it.
    [[nodiscard]] midi::ZQMIDIRealDestination* output() {
        return process.sharedInstance().realDestinations().front().get();
    }
    [[nodiscard]] Way way() {
        return {service, [this] { return chosen; },
                [this](Seconds pause) {
                    pauses.push_back(pause.count());
                    if (onPause) {
                        onPause();
                    }
                }};
    }
    void pullOut() {
        device.unplug();
        service.dispatch();
    }
    void pullOutAndPlugIn() {
        pullOut();
        device.plug();
        service.dispatch();
    }

    support::ScriptedMidiService service;
    platform::software::Device& device = service.addDevice("Tormelk");
    platform::software::Destination& port = device.addDestination("Tormelk");
    platform::NotificationCentre centre;
    midi::ZQMIDIProcess process{service, centre};
    midi::ZQMIDIRealDestination* chosen = output();
    std::vector<double> pauses;
    std::function<void()> onPause;
};

}  // namespace sending
