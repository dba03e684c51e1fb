#pragma once

// What this program sends. A subscription to the destination is made at its first message, because
// hardware takes nothing without, and kept for as long as the program goes on sending there; giving
// it back can take 16 ms to 10 s and happens on a thread of its own.

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "platform/MidiService.h"
#include "platform/alsa/MessageSplitter.h"
#include "platform/alsa/RoomKeeper.h"
#include "platform/alsa/Sender.h"
#include "platform/alsa/enumeration.h"
#include "platform/alsa/events.h"

namespace platform::alsa {

class Output {
public:
    /// A destination: its handle, which no other ever has, and where it is.
    struct Destination {
        MIDIEndpointRef handle = 0;
        PortDescription port;
    };
    /// Told, on any thread, when a destination has stopped taking data, and when it takes some
    /// again.
    using OnTaking = std::function<void(MIDIEndpointRef destination, bool takesData)>;

    /// A subscription is given back when nothing was sent for so long.
    static constexpr std::chrono::seconds idleTime{3};
    /// How long a destination that another program holds, or one that is just being given back, is
    /// waited for.
    static constexpr std::chrono::seconds longestHold{2};
    /// How long the end waits until all data has gone out.
    static constexpr std::chrono::seconds longestFarewell{2};

    Output(std::string clientName, OnTaking onTaking);
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;
    ~Output();

    /// Makes what the first message needs, so that sending it opens no client.
    void prepare();

    /// Sends all messages of the list. Each of them is handed to the kernel whole, once there is
    /// room for it. When the destination takes no more, or has gone, the rest is lost.
    OSStatus send(const Destination& to, const MIDIPacketList& list);

    /// The destination has gone.
    void forget(MIDIEndpointRef destination);

    /// Lets go of everything, for good: nothing can be sent any more. Waits until the devices have
    /// taken what they were sent, but not for one that takes nothing.
    void end();

private:
    using Lock = std::unique_lock<std::mutex>;

    /// A subscription.
    struct Lease {
        Destination to;
        std::unique_ptr<Sender> sender;
        bool isExclusive = false;
        RoomKeeper room;
        MessageSplitter splitter;
        Time::Point lastUsed;
        std::size_t roomWhenStalled = 0;
        bool isStalled = false;
        bool isBusy = false;  ///< a message is under way
        bool hasGone = false;
    };
    enum class Outcome { Sent, Gone, NotTaken };

    // Sending; with sendMutex_ held.
    [[nodiscard]] Lease* leaseFor(const Destination& to);
    [[nodiscard]] bool takeFromQueue(const Lock&, const Destination& to);
    [[nodiscard]] std::unique_ptr<Lease> subscribe(const Destination& to, Outcome& outcome);
    [[nodiscard]] Outcome sendThrough(Lease& lease, const MIDIPacketList& list);
    [[nodiscard]] Outcome sendMessage(Lease& lease, std::span<const std::uint8_t> message);
    void finish(Outcome outcome);
    void reportNotTaken(const Destination& to);

    // Giving back; OutputWorker.cpp.
    void startWorker(const Lock&);
    void work();
    void queueCurrent(const Lock&);
    void giveBackNext(Lock& lock);
    void lookAtStalled(Lock& lock);
    [[nodiscard]] bool isFreeAgain(Lock& lock, const Destination& held);
    [[nodiscard]] std::unique_ptr<Sender> takeSpare(const Lock&);
    [[nodiscard]] std::unique_ptr<Sender> spareOrNew();

    const std::string clientName_;
    const OnTaking onTaking_;

    std::mutex sendMutex_;  // one message list after another
    const Codec codec_ = makeCodec();

    std::mutex mutex_;  // guards what follows; never held while the kernel may keep us waiting
    std::condition_variable changed_;
    std::vector<std::unique_ptr<Sender>> spares_;
    std::unique_ptr<Lease> current_;
    std::deque<std::unique_ptr<Lease>> queue_;     // to be given back
    std::vector<std::unique_ptr<Lease>> stalled_;  // kept, to see whether data is taken again
    std::vector<Destination> held_;                // by other programs
    std::set<MIDIEndpointRef> notTaking_;          // the destinations of both
    MIDIEndpointRef beingGivenBack_ = 0;
    bool ending_ = false;
    bool workerEnded_ = false;
    std::thread worker_;
};

}  // namespace platform::alsa
