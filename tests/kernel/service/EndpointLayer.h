#pragma once

#include <poll.h>

#include <chrono>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "kernel/Bytes.h"
#include "midi/ZQMIDIManager.h"
#include "midi/ZQMIDIProcess.h"
#include "midi/ZQMIDIReceiver.h"
#include "platform/NotificationCentre.h"
#include "platform/PacketList.h"
#include "platform/alsa/AlsaMidiService.h"

namespace kernel {

/// The product's endpoint layer over the real sequencer, with an event loop that runs when told.
class EndpointLayer {
public:
    explicit EndpointLayer(const std::string& programName = "Tormelk Wyro")
        : service(programName), process(service, centre) {
        changes_ =
            centre.addObserver(midi::ZQMIDISetupChanged, [this](const void*) { ++setupChanges; });
        (void)process.sharedInstance();
    }

    midi::ZQMIDIManager& manager() { return process.sharedInstance(); }

    /// Runs the event loop until the condition holds. False when it does not after the limit.
    template <typename Condition>
    bool runUntil(Condition condition, std::chrono::milliseconds limit = std::chrono::seconds(10)) {
        const auto end = std::chrono::steady_clock::now() + limit;
        while (!condition()) {
            if (std::chrono::steady_clock::now() >= end) {
                return false;
            }
            pollfd descriptor{service.fileDescriptor(), POLLIN, 0};
            if (poll(&descriptor, 1, 10) > 0) {
                service.dispatch();
            }
        }
        return true;
    }
    /// Runs the event loop for so long.
    void run(std::chrono::milliseconds duration) {
        (void)runUntil([] { return false; }, duration);
    }

    [[nodiscard]] std::vector<std::string> sourceNames() {
        return namesOf(manager().realSources());
    }
    [[nodiscard]] std::vector<std::string> destinationNames() {
        return namesOf(manager().realDestinations());
    }
    /// The object of that display name; null if there is none.
    [[nodiscard]] midi::ZQMIDIRealSource* source(const std::string& name) {
        return named(manager().realSources(), name);
    }
    [[nodiscard]] midi::ZQMIDIRealDestination* destination(const std::string& name) {
        return named(manager().realDestinations(), name);
    }

    platform::alsa::AlsaMidiService service;
    platform::NotificationCentre centre;
    midi::ZQMIDIProcess process;
    int setupChanges = 0;

private:
    template <typename List>
    static std::vector<std::string> namesOf(const List& list) {
        std::vector<std::string> names;
        names.reserve(list.size());
        for (const auto& endpoint : list) {
            names.push_back(endpoint->displayName());
        }
        return names;
    }
    template <typename List>
    static auto named(const List& list, const std::string& name) -> decltype(list.front().get()) {
        for (const auto& endpoint : list) {
            if (endpoint->displayName() == name) {
                return endpoint.get();
            }
        }
        return nullptr;
    }

    platform::NotificationCentre::Registration changes_;
};

/// Sends as the product's senders do: registers, sends one list of one packet, signs off.
inline void send(midi::ZQMIDIRealDestination& to, const Bytes& bytes) {
    const int sender = 0;
    const platform::MIDIPacketListPtr list = platform::makeOnePacketList(bytes);
    to.addSender(&sender);
    to.processMIDIPacketList(*list, &sender);
    to.removeSender(&sender);
}

}  // namespace kernel
