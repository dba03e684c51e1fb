#pragma once

#include "platform/MidiService.h"

namespace support {

/// The MIDI service of a computer that has none: there is nothing to list, nothing can be opened.
class AbsentMidiService : public platform::MidiService {
public:
    platform::ServiceState state() override { return {}; }
    platform::OSStatus MIDIClientCreate(std::string_view, platform::MIDINotifyProc, void*,
                                        platform::MIDIClientRef* client) override {
        *client = 0;
        return platform::kMIDIServerStartErr;
    }
    platform::OSStatus MIDIClientDispose(platform::MIDIClientRef) override {
        return platform::kMIDIInvalidClient;
    }
    std::uint32_t MIDIGetNumberOfSources() override { return 0; }
    platform::MIDIEndpointRef MIDIGetSource(std::uint32_t) override { return 0; }
    std::uint32_t MIDIGetNumberOfDestinations() override { return 0; }
    platform::MIDIEndpointRef MIDIGetDestination(std::uint32_t) override { return 0; }
    platform::OSStatus MIDIObjectGetStringProperty(platform::MIDIObjectRef, std::string_view,
                                                   std::string*) override {
        return platform::kMIDIServerStartErr;
    }
    platform::OSStatus MIDIObjectGetIntegerProperty(platform::MIDIObjectRef, std::string_view,
                                                    std::int32_t*) override {
        return platform::kMIDIServerStartErr;
    }
    platform::OSStatus MIDIObjectGetDataProperty(platform::MIDIObjectRef, std::string_view,
                                                 std::vector<std::uint8_t>*) override {
        return platform::kMIDIServerStartErr;
    }
    platform::OSStatus MIDIObjectSetStringProperty(platform::MIDIObjectRef, std::string_view,
                                                   std::string_view) override {
        return platform::kMIDIServerStartErr;
    }
    platform::OSStatus MIDIObjectSetIntegerProperty(platform::MIDIObjectRef, std::string_view,
                                                    std::int32_t) override {
        return platform::kMIDIServerStartErr;
    }
    platform::OSStatus MIDIObjectFindByUniqueID(std::int32_t, platform::MIDIObjectRef*,
                                                platform::MIDIObjectType*) override {
        return platform::kMIDIServerStartErr;
    }
    platform::OSStatus MIDIEndpointGetEntity(platform::MIDIEndpointRef,
                                             platform::MIDIEntityRef*) override {
        return platform::kMIDIServerStartErr;
    }
    platform::OSStatus MIDIEntityGetDevice(platform::MIDIEntityRef,
                                           platform::MIDIDeviceRef*) override {
        return platform::kMIDIServerStartErr;
    }
    platform::OSStatus MIDIInputPortCreate(platform::MIDIClientRef, std::string_view,
                                           platform::MIDIReadProc, void*,
                                           platform::MIDIPortRef*) override {
        return platform::kMIDIServerStartErr;
    }
    platform::OSStatus MIDIOutputPortCreate(platform::MIDIClientRef, std::string_view,
                                            platform::MIDIPortRef*) override {
        return platform::kMIDIServerStartErr;
    }
    platform::OSStatus MIDIPortConnectSource(platform::MIDIPortRef, platform::MIDIEndpointRef,
                                             void*) override {
        return platform::kMIDIServerStartErr;
    }
    platform::OSStatus MIDIPortDisconnectSource(platform::MIDIPortRef,
                                                platform::MIDIEndpointRef) override {
        return platform::kMIDIServerStartErr;
    }
    platform::OSStatus MIDIPortDispose(platform::MIDIPortRef) override {
        return platform::kMIDIServerStartErr;
    }
    platform::OSStatus MIDISend(platform::MIDIPortRef, platform::MIDIEndpointRef,
                                const platform::MIDIPacketList*) override {
        return platform::kMIDIServerStartErr;
    }
    platform::OSStatus MIDISourceCreate(platform::MIDIClientRef, std::string_view,
                                        platform::MIDIEndpointRef*) override {
        return platform::kMIDIServerStartErr;
    }
    platform::OSStatus MIDIDestinationCreate(platform::MIDIClientRef, std::string_view,
                                             platform::MIDIReadProc, void*,
                                             platform::MIDIEndpointRef*) override {
        return platform::kMIDIServerStartErr;
    }
    platform::OSStatus MIDIEndpointDispose(platform::MIDIEndpointRef) override {
        return platform::kMIDIServerStartErr;
    }
    platform::OSStatus MIDIReceived(platform::MIDIEndpointRef,
                                    const platform::MIDIPacketList*) override {
        return platform::kMIDIServerStartErr;
    }
    [[nodiscard]] int fileDescriptor() const override { return -1; }
    void dispatch() override {}
};

}  // namespace support
