#pragma once

#include "platform/MidiService.h"

namespace support {

/// The MIDI service of a computer that has none: there is nothing to list, nothing can be opened.
class AbsentMidiService : public MidiService {
public:
    OSStatus MIDIClientCreate(std::string_view, MIDINotifyProc, void*,
                              MIDIClientRef* client) override {
        *client = 0;
        return kMIDIServerStartErr;
    }
    OSStatus MIDIClientDispose(MIDIClientRef) override { return kMIDIInvalidClient; }
    std::uint32_t MIDIGetNumberOfSources() override { return 0; }
    MIDIEndpointRef MIDIGetSource(std::uint32_t) override { return 0; }
    std::uint32_t MIDIGetNumberOfDestinations() override { return 0; }
    MIDIEndpointRef MIDIGetDestination(std::uint32_t) override { return 0; }
    OSStatus MIDIObjectGetStringProperty(MIDIObjectRef, std::string_view, std::string*) override {
        return kMIDIServerStartErr;
    }
    OSStatus MIDIObjectGetIntegerProperty(MIDIObjectRef, std::string_view, std::int32_t*) override {
        return kMIDIServerStartErr;
    }
    OSStatus MIDIObjectGetDataProperty(MIDIObjectRef, std::string_view,
                                       std::vector<std::uint8_t>*) override {
        return kMIDIServerStartErr;
    }
    OSStatus MIDIObjectSetStringProperty(MIDIObjectRef, std::string_view,
                                         std::string_view) override {
        return kMIDIServerStartErr;
    }
    OSStatus MIDIObjectSetIntegerProperty(MIDIObjectRef, std::string_view, std::int32_t) override {
        return kMIDIServerStartErr;
    }
    OSStatus MIDIObjectFindByUniqueID(std::int32_t, MIDIObjectRef*, MIDIObjectType*) override {
        return kMIDIServerStartErr;
    }
    OSStatus MIDIEndpointGetEntity(MIDIEndpointRef, MIDIEntityRef*) override {
        return kMIDIServerStartErr;
    }
    OSStatus MIDIEntityGetDevice(MIDIEntityRef, MIDIDeviceRef*) override {
        return kMIDIServerStartErr;
    }
    OSStatus MIDIInputPortCreate(MIDIClientRef, std::string_view, MIDIReadProc, void*,
                                 MIDIPortRef*) override {
        return kMIDIServerStartErr;
    }
    OSStatus MIDIOutputPortCreate(MIDIClientRef, std::string_view, MIDIPortRef*) override {
        return kMIDIServerStartErr;
    }
    OSStatus MIDIPortConnectSource(MIDIPortRef, MIDIEndpointRef, void*) override {
        return kMIDIServerStartErr;
    }
    OSStatus MIDIPortDisconnectSource(MIDIPortRef, MIDIEndpointRef) override {
        return kMIDIServerStartErr;
    }
    OSStatus MIDIPortDispose(MIDIPortRef) override { return kMIDIServerStartErr; }
    OSStatus MIDISend(MIDIPortRef, MIDIEndpointRef, const MIDIPacketList*) override {
        return kMIDIServerStartErr;
    }
    OSStatus MIDISourceCreate(MIDIClientRef, std::string_view, MIDIEndpointRef*) override {
        return kMIDIServerStartErr;
    }
    OSStatus MIDIDestinationCreate(MIDIClientRef, std::string_view, MIDIReadProc, void*,
                                   MIDIEndpointRef*) override {
        return kMIDIServerStartErr;
    }
    OSStatus MIDIEndpointDispose(MIDIEndpointRef) override { return kMIDIServerStartErr; }
    OSStatus MIDIReceived(MIDIEndpointRef, const MIDIPacketList*) override {
        return kMIDIServerStartErr;
    }
    [[nodiscard]] int fileDescriptor() const override { return -1; }
    void dispatch() override {}
};

}  // namespace support
