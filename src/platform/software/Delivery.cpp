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
    auto& device = static_cast<Destination&>(*present_.at(destination));
    if (device.keepsReceived_) {
        device.received_.push_back(recordOf(list));
    }
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

std::vector<RecordedPacketList> SoftwareMidiService::publishedBy(MIDIEndpointRef source) const {
    const std::lock_guard lock(mutex_);
    const auto lists = publishedLists_.find(source);
    return lists == publishedLists_.end() ? std::vector<RecordedPacketList>() : lists->second;
}

OSStatus SoftwareMidiService::MIDISend(MIDIPortRef port, MIDIEndpointRef destination,
                                       const MIDIPacketList* list) {
    const OSStatus failed = begin({"MIDISend", destination});
    Lock lock(mutex_);
    if (failed != noErr) {
        if (list != nullptr) {
            lose(lock, destination, *list, failed);
        }
        return failed;
    }
    if (list == nullptr) {
        misuse("MIDISend", "no packet list for", destination);
        return kMIDIObjectNotFound;
    }
    if (findPort(lock, "MIDISend", port, false) == nullptr) {
        return kMIDIInvalidPort;
    }
    const Object* const object = find(lock, "MIDISend", destination);
    if (object == nullptr) {
        lose(lock, destination, *list, kMIDIUnknownEndpoint);
        return kMIDIUnknownEndpoint;
    }
    if (object->type_ != kMIDIObjectType_Destination) {
        misuse("MIDISend", "not a destination:", destination);
        return kMIDIWrongEndpointType;
    }
    return accept(lock, static_cast<const Destination&>(*object), *list);
}

std::vector<std::string> SoftwareMidiService::connectedPrograms(MIDIEndpointRef endpoint) {
    const Lock lock(mutex_);
    const auto found = present_.find(endpoint);
    const bool isDestination =
        found != present_.end() && found->second->type_ == kMIDIObjectType_Destination;
    if (!isDestination || published_.contains(endpoint)) {
        return {};
    }
    return static_cast<const Destination&>(*found->second).connectedPrograms_;
}

OSStatus SoftwareMidiService::MIDIReceived(MIDIEndpointRef source, const MIDIPacketList* list) {
    if (const OSStatus failed = begin({"MIDIReceived", source}); failed != noErr) {
        return failed;
    }
    {
        const Lock lock(mutex_);
        if (list == nullptr) {
            misuse("MIDIReceived", "no packet list from", source);
            return kMIDIObjectNotFound;
        }
        const Object* const object = find(lock, "MIDIReceived", source);
        if (object == nullptr) {
            return kMIDIUnknownEndpoint;
        }
        if (object->type_ != kMIDIObjectType_Source || published_.count(source) == 0) {
            misuse("MIDIReceived", "not a source that was published here:", source);
            return kMIDIWrongEndpointType;
        }
        publishedLists_[source].push_back(recordOf(*list));
    }
    deliverFrom(source, *list);
    return noErr;
}

void SoftwareMidiService::reportChange(const Lock&) {
    for (auto& [handle, client] : clients_) {
        client.changeDue = true;
    }
    stateChangeDue_ = true;
    wakeUp();
}

void SoftwareMidiService::wakeUp() {
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
        if (std::this_thread::get_id() != mainThread_) {
            misuse("dispatch", "called on another thread than the main thread", 0);
        }
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

void SoftwareMidiService::deliverNotification(std::int32_t messageID) {
    std::vector<Client> all;
    {
        const Lock lock(mutex_);
        for (const auto& [handle, client] : clients_) {
            all.push_back(client);
        }
    }
    const MIDINotification message{messageID, sizeof(MIDINotification)};
    for (const Client& client : all) {
        client.notify(&message, client.refCon);
    }
}

}  // namespace platform::software
