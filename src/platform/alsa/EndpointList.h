#pragma once

// The endpoints of other programs and of devices, with the handles this process knows them by. It
// follows what the sequencer says from time to time; in between it stays as it is.

#include <cstddef>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/MidiService.h"
#include "platform/alsa/enumeration.h"

namespace platform::alsa {

/// Two arrows before the names of the bus between programs: on most computers it is always there
/// and no device, so it must not look like one. Lists by name have it after what begins with a
/// letter or a digit, and so a device comes first.
inline constexpr std::string_view busMark = "\u21C4 ";

struct ListedEndpoint {
    MIDIEndpointRef handle = 0;
    MIDIEntityRef entity = 0;  ///< 0 for a program's port
    std::int32_t uniqueID = 0;
    unsigned int occurrence = 0;  ///< which one of those with the same names, from 0
    PortDescription port;

    /// The port's name, with a mark where it is the bus; of the second and further ones with the
    /// same names with a number, "Tormelk MIDI 1 (2)". Two devices of one model can so be told
    /// apart, by a person and when one of them has gone.
    [[nodiscard]] std::string name() const;
};

/// A client of the kernel.
struct ListedDevice {
    MIDIDeviceRef handle = 0;
    MIDIEntityRef entity = 0;
    std::string name;
    bool isBus = false;
};

class EndpointList {
public:
    /// `nextHandle` is counted up for each handle that is given out; it must outlive this.
    explicit EndpointList(MIDIObjectRef& nextHandle) : nextHandle_(nextHandle) {}

    /// Follows the ports that are there now. What has gone (also if another stands at its address
    /// now: `exited`) loses its handle for good, what is new gets one. Returns whether anything has
    /// changed.
    bool follow(const std::vector<PortDescription>& present, const std::set<Address>& exited);

    /// In order of appearance, sources and destinations mixed.
    [[nodiscard]] const std::vector<ListedEndpoint>& endpoints() const { return endpoints_; }
    /// None for a handle that has none.
    [[nodiscard]] const ListedEndpoint* find(MIDIEndpointRef handle) const;
    [[nodiscard]] const ListedDevice* findDevice(MIDIObjectRef deviceOrEntity) const;

private:
    bool removeGone(const std::vector<PortDescription>& present, const std::set<Address>& exited);
    bool followNames(const std::vector<PortDescription>& present);
    bool addNew(const std::vector<PortDescription>& present);
    void giveUniqueID(ListedEndpoint& endpoint) const;
    [[nodiscard]] MIDIEntityRef entityOf(const PortDescription& port);
    [[nodiscard]] ListedEndpoint* find(const Address& address, Direction direction);

    MIDIObjectRef& nextHandle_;
    std::vector<ListedEndpoint> endpoints_;
    std::map<int, ListedDevice> devices_;  // by client number
};

}  // namespace platform::alsa
