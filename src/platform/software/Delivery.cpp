// What goes through the service: lists from sources and to destinations, and setup changes.

#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <utility>

#include "platform/software/SoftwareMidiService.h"

namespace platform::software {

void SoftwareMidiService::deliverFrom(MIDIEndpointRef source, const MIDIPacketList& list) {
    Lock lock(mutex_);
    // Ports come and go during the callbacks: each is looked up anew, and one opened meanwhile
    // hears from the next list on.
    const MIDIPortRef newest = lastPort_;
    for (auto next = ports_.begin(); next != ports_.end() && next->first <= newest;) {
        const auto& [handle, port] = *next;
        const auto connection = port.connections.find(source);
        const MIDIPortRef done = handle;
        if (connection != port.connections.end()) {
            const MIDIReadProc read = port.read;
            void* const readProcRefCon = port.readProcRefCon;
            void* const srcConnRefCon = connection->second;
            runCallback(lock, handle, [=, &list] { read(&list, readProcRefCon, srcConnRefCon); });
        }
        next = ports_.upper_bound(done);
    }
}

void SoftwareMidiService::deliverTo(Lock& lock, MIDIEndpointRef destination,
                                    const MIDIPacketList& list) {
    const auto published = published_.find(destination);
    if (published != published_.end()) {
        const MIDIReadProc read = published->second.read;
        void* const refCon = published->second.readProcRefCon;
        runCallback(lock, destination, [=, &list] { read(&list, refCon, nullptr); });
        return;
    }
    const auto& device = static_cast<const Destination&>(*present_.at(destination));
    const std::shared_ptr<const Destination::Handler> handler = device.handler_;
    lock.unlock();
    if (handler) {
        (*handler)(list);
    }
    lock.lock();
}

void SoftwareMidiService::runCallback(Lock& lock, MIDIObjectRef object,
                                      const std::function<void()>& callback) {
    const auto running = callbacks_.insert(callbacks_.end(), {object, std::this_thread::get_id()});
    lock.unlock();
    callback();
    lock.lock();
    callbacks_.erase(running);
    callbackEnded_.notify_all();
}

void SoftwareMidiService::waitForCallbacks(Lock& lock, MIDIObjectRef object) {
    const auto isOfObject = [object](const RunningCallback& running) {
        return running.object == object;
    };
    const bool fromWithin =
        std::any_of(callbacks_.begin(), callbacks_.end(), [&](const RunningCallback& running) {
            return isOfObject(running) && running.thread == std::this_thread::get_id();
        });
    if (!fromWithin) {
        callbackEnded_.wait(
            lock, [&] { return std::none_of(callbacks_.begin(), callbacks_.end(), isOfObject); });
    }
}

void SoftwareMidiService::sendTo(MIDIEndpointRef publishedDestination, const MIDIPacketList& list) {
    Lock lock(mutex_);
    const auto published = published_.find(publishedDestination);
    if (published != published_.end() && published->second.read != nullptr) {
        deliverTo(lock, publishedDestination, list);
    }
}

OSStatus SoftwareMidiService::MIDISend(MIDIPortRef port, MIDIEndpointRef destination,
                                       const MIDIPacketList* list) {
    {
        const Lock lock(mutex_);
        if (list == nullptr) {
            return kMIDIObjectNotFound;
        }
        if (findPort(lock, port, false) == nullptr) {
            return kMIDIInvalidPort;
        }
        const Object* const object = find(lock, destination);
        if (object != nullptr && object->type_ != kMIDIObjectType_Destination) {
            return kMIDIWrongEndpointType;
        }
    }
    return accept(destination, *list);
}

OSStatus SoftwareMidiService::MIDIReceived(MIDIEndpointRef source, const MIDIPacketList* list) {
    {
        const Lock lock(mutex_);
        if (list == nullptr) {
            return kMIDIObjectNotFound;
        }
        const Object* const object = find(lock, source);
        if (object == nullptr) {
            return kMIDIUnknownEndpoint;
        }
        if (object->type_ != kMIDIObjectType_Source || published_.count(source) == 0) {
            return kMIDIWrongEndpointType;
        }
    }
    deliverFrom(source, *list);
    return noErr;
}

void SoftwareMidiService::reportChange() {
    const Lock lock(mutex_);
    reportChange(lock);
}

void SoftwareMidiService::reportChange(const Lock&) {
    for (auto& [handle, client] : clients_) {
        client.changeDue = true;
    }
    stateChangeDue_ = true;
    wakeUp();
}

void SoftwareMidiService::wakeUp() const {
    const std::uint64_t one = 1;
    // The counter cannot overflow in a program's life, so nothing can be refused here.
    [[maybe_unused]] const ssize_t written = write(eventFd_, &one, sizeof one);
}

void SoftwareMidiService::dispatch() {
    std::vector<Client> due;
    bool stateChangeDue = false;
    std::vector<std::function<void()>> settled;
    {
        const Lock lock(mutex_);
        std::uint64_t changes = 0;
        [[maybe_unused]] const ssize_t taken = read(eventFd_, &changes, sizeof changes);
        for (auto& [handle, client] : clients_) {
            if (client.changeDue) {
                client.changeDue = false;
                due.push_back(client);
            }
        }
        stateChangeDue = std::exchange(stateChangeDue_, false);
        settled = dueWatches(lock);
    }
    const MIDINotification message{kMIDIMsgSetupChanged, sizeof(MIDINotification)};
    for (const Client& client : due) {
        client.notify(&message, client.refCon);
    }
    if (stateChangeDue) {
        stateChanges().postNotification(MIDIServiceStateChanged, this);
    }
    for (const std::function<void()>& watch : settled) {
        watch();
    }
}

}  // namespace platform::software
