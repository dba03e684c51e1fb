#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "support/ScriptedMidiService.h"

namespace platform::software {

using support::RecordedPacketList;
using support::recordOf;

/// A service with one client. A test that means to misuse it empties the list of misuses.
class SoftwareMidiTest : public ::testing::Test {
protected:
    void SetUp() override {
        service.MIDIClientCreate(
            "client",
            [](const MIDINotification* message, void* refCon) {
                static_cast<SoftwareMidiTest*>(refCon)->messages.push_back(message->messageID);
            },
            this, &client);
    }
    void TearDown() override {
        const std::shared_ptr<support::Misuses> misuses = service.misuseList();
        owner.reset();
        EXPECT_THAT(misuses->reports(), ::testing::IsEmpty());
    }

    [[nodiscard]] MIDIPortRef outputPort(std::string_view name = "out") {
        MIDIPortRef port = 0;
        EXPECT_EQ(service.MIDIOutputPortCreate(client, name, &port), noErr);
        return port;
    }
    [[nodiscard]] MIDIPortRef inputPort(MIDIReadProc read, void* refCon) {
        MIDIPortRef port = 0;
        EXPECT_EQ(service.MIDIInputPortCreate(client, "in", read, refCon, &port), noErr);
        return port;
    }
    /// The misuses so far; the list is empty then.
    std::vector<std::string> takeMisuses() {
        auto reports = service.misuses();
        service.misuseList()->clear();
        return reports;
    }
    std::vector<MIDIEndpointRef> sources() {
        std::vector<MIDIEndpointRef> all;
        for (std::uint32_t i = 0; i < service.MIDIGetNumberOfSources(); ++i) {
            all.push_back(service.MIDIGetSource(i));
        }
        return all;
    }
    std::vector<MIDIEndpointRef> destinations() {
        std::vector<MIDIEndpointRef> all;
        for (std::uint32_t i = 0; i < service.MIDIGetNumberOfDestinations(); ++i) {
            all.push_back(service.MIDIGetDestination(i));
        }
        return all;
    }

    std::unique_ptr<support::ScriptedMidiService> owner =
        std::make_unique<support::ScriptedMidiService>();
    support::ScriptedMidiService& service = *owner;
    MIDIClientRef client = 0;
    std::vector<std::int32_t> messages;
};

/// Counts and keeps what a read callback is called with; pass it as the port's constant.
struct Reader {
    std::vector<RecordedPacketList> lists;
    std::vector<void*> connectionConstants;

    static void read(const MIDIPacketList* list, void* readProcRefCon, void* srcConnRefCon) {
        auto* const reader = static_cast<Reader*>(readProcRefCon);
        reader->lists.push_back(recordOf(*list));
        reader->connectionConstants.push_back(srcConnRefCon);
    }
};

inline const std::vector<std::uint8_t> noteOn = {0x90, 0x3C, 0x64};

}  // namespace platform::software
