#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "midi/ZQMIDIProcess.h"
#include "platform/NotificationCentre.h"
#include "support/ScriptedMidiService.h"

namespace midi {

using platform::MIDIEndpointRef;
using platform::noErr;
using platform::software::Destination;
using platform::software::Device;
using platform::software::Source;
using support::Call;
using support::RecordedPacketList;

inline const std::vector<std::uint8_t> noteOn = {0x90, 0x3C, 0x64};
inline const RecordedPacketList noteOnRecord = {{0, noteOn}};

/// A receiver that keeps what it gets.
struct Recorder final : ZQMIDIReceiver {
    std::vector<RecordedPacketList> lists;
    std::vector<const void*> senders;

    void processMIDIPacketList(const platform::MIDIPacketList& list, const void* sender) override {
        lists.push_back(support::recordOf(list));
        senders.push_back(sender);
    }
};

/// An endpoint layer over the software service. Every test ends with an orderly end of the process:
/// all ports closed, no client left, the service never misused.
class MidiTest : public ::testing::Test {
protected:
    void TearDown() override {
        service.onCall(nullptr);
        process.reset();
        EXPECT_EQ(service.clients(), 0U);
        EXPECT_EQ(service.openInputPorts(), 0U);
        EXPECT_EQ(service.openOutputPorts(), 0U);
        const auto misuses = service.misuseList();
        serviceOwner.reset();
        EXPECT_THAT(misuses->reports(), ::testing::IsEmpty());
    }

    ZQMIDIManager& manager() { return process->sharedInstance(); }

    /// The manager's object for a port, which must be plugged in.
    ZQMIDIRealSource& real(const Source& source) {
        ZQMIDIRealSource* const found = manager().realSourceWithMIDIEndpointRef(source.handle());
        EXPECT_NE(found, nullptr);
        return *found;
    }
    ZQMIDIRealDestination& real(const Destination& destination) {
        ZQMIDIRealDestination* const found =
            manager().realDestinationWithMIDIEndpointRef(destination.handle());
        EXPECT_NE(found, nullptr);
        return *found;
    }
    std::vector<std::string> sourceNames() {
        std::vector<std::string> names;
        for (const auto& source : manager().realSources()) {
            names.push_back(source->displayName());
        }
        return names;
    }
    std::vector<std::string> destinationNames() {
        std::vector<std::string> names;
        for (const auto& destination : manager().realDestinations()) {
            names.push_back(destination->displayName());
        }
        return names;
    }
    /// From now on, `calls` takes the name of every operation that is not a mere look.
    void recordCalls() {
        service.onCall([this](const Call& call) {
            if (call.operation.find("Get") == std::string_view::npos &&
                call.operation.find("Find") == std::string_view::npos) {
                calls.push_back(std::string(call.operation) + " " + std::to_string(call.object));
            }
            return noErr;
        });
    }

    std::unique_ptr<support::ScriptedMidiService> serviceOwner =
        std::make_unique<support::ScriptedMidiService>();
    support::ScriptedMidiService& service = *serviceOwner;
    platform::NotificationCentre centre;
    std::time_t now = 1'700'000'000;
    std::unique_ptr<ZQMIDIProcess> process =
        std::make_unique<ZQMIDIProcess>(service, centre, [this] { return now; });
    std::vector<std::string> calls;
};

}  // namespace midi
