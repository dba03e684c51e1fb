#pragma once

// What this program sends. A subscription to the destination is made at its first message, because
// hardware takes nothing without, and kept for as long as the program goes on sending there. What
// finds no space waits here; a thread of its own hands it on, looks what becomes of it, and gives
// subscriptions back.

#include <chrono>
#include <condition_variable>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "platform/MidiService.h"
#include "platform/alsa/Connection.h"
#include "platform/alsa/Sender.h"
#include "platform/alsa/events.h"

namespace platform::alsa {

class Output {
public:
    /// A subscription is given back when nothing was sent for so long.
    static constexpr std::chrono::seconds idleTime{3};
    /// The longest that a call of `send` waits for space. What has found none by then is sent
    /// later.
    static constexpr std::chrono::milliseconds longestCall{100};
    /// Of a caller who goes on nevertheless, so many bytes wait here: then he waits himself.
    static constexpr std::size_t mostWaiting = 8192;
    /// How long another program that is in the way is waited for: it may be just leaving.
    static constexpr std::chrono::milliseconds longestHold{30};
    /// How long the end, or the giving back of a subscription, waits until all data has gone out.
    static constexpr std::chrono::seconds longestDrain{2};

    /// `onNews` is called, on any thread, when the main thread should call `takeNews`; it must
    /// not call back.
    Output(std::string clientName, std::function<void()> onNews);
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;
    ~Output();

    /// Makes what the first message needs, so that sending it opens no client.
    void prepare();

    /// Sends all messages of the list, each whole, in order, once there is space for it. When the
    /// destination takes no more, or has gone, all that waits is lost, and nothing more is taken
    /// until the main thread has opened the connection again.
    OSStatus send(const Destination& to, const MIDIPacketList& list);
    /// The same, of a destination that is known to have gone.
    void sendInVain(MIDIEndpointRef destination, const MIDIPacketList& list);

    /// The destination has gone.
    void forget(MIDIEndpointRef destination);
    [[nodiscard]] bool isOffline(MIDIEndpointRef destination) const;

    // See MidiService.
    void beginDelivery(const Destination& to, bool hasGone);
    [[nodiscard]] Delivery delivery(MIDIEndpointRef destination) const;
    void abandonDelivery(MIDIEndpointRef destination);

    /// The main thread has taken in what has changed, and no action of its is under way:
    /// connections that were cut open again, but to programs that still read nothing. Returns
    /// whether a destination has become offline, or has come back, since the last call.
    [[nodiscard]] bool takeNews(bool mayOpen);

    /// Lets go of everything, for good: nothing can be sent any more. Waits until the devices have
    /// taken what they were sent, but not for one that takes nothing.
    void end();

private:
    using Lock = std::unique_lock<std::mutex>;
    using ConnectionPtr = std::shared_ptr<Connection>;

    // Sending.
    [[nodiscard]] ConnectionPtr connectionTo(const Lock&, const Destination& to);
    void put(Connection& connection, const MIDIPacketList& list);
    void advance(Lock& lock, Connection& connection);
    void open(Lock& lock, Connection& connection);
    void pump(Connection& connection);
    void look(Connection& connection);
    void cut(Connection& connection, Delivery::Trouble trouble, std::string program = {});
    void reopen(Connection& connection);

    // The thread; OutputWorker.cpp.
    void startWorker(const Lock&);
    void work();
    void tend(Lock& lock, Connection& connection);
    [[nodiscard]] bool isToBeClosed(const Connection& connection) const;
    void close(Lock& lock, Connection& connection);
    /// Nothing when it can wait for news.
    [[nodiscard]] std::optional<Time::Point> nextLookAt(const Connection& connection) const;
    void removeGone(const Lock&);
    [[nodiscard]] std::unique_ptr<Sender> spareOrNew(Lock& lock);

    const std::string clientName_;
    const std::function<void()> onNews_;
    const Codec codec_ = makeCodec();  // with the mutex locked

    mutable std::mutex
        mutex_;  // guards what follows; never held while the kernel may keep us waiting
    std::condition_variable changed_;
    std::map<MIDIEndpointRef, ConnectionPtr> connections_;
    std::vector<std::unique_ptr<Sender>> spares_;
    bool someWentOrCame_ = false;  // offline, or back
    bool workerRests_ = false;     // until it is told otherwise
    std::optional<Time::Point> end_;
    std::thread worker_;
};

}  // namespace platform::alsa
