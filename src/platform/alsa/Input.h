#pragma once

// What comes in, and what this program publishes. One client of the sequencer has a port for each
// of them; one thread, there while something can come in, reads what arrives and runs the read
// callbacks.

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <map>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "platform/MidiService.h"
#include "platform/alsa/Sequencer.h"
#include "platform/alsa/enumeration.h"
#include "platform/alsa/events.h"

namespace platform::alsa {

class Input {
public:
    /// The client gets the name under which others see what is published.
    explicit Input(std::string clientName);
    Input(const Input&) = delete;
    Input& operator=(const Input&) = delete;
    /// Not from within a read callback.
    ~Input();

    /// The number of the client; -1 while there is none.
    [[nodiscard]] int client() const;

    // Ports are known by their numbers; a negative one stands for a port that could not be made,
    // with which nothing happens. Any thread may call, also from within a read callback.

    /// A port that takes from sources it is connected to.
    [[nodiscard]] int openInput(std::string_view name, MIDIReadProc read, void* readProcRefCon);
    /// 0, or the kernel's number, negated. A source that is connected already gets the new
    /// constant.
    int connect(int port, const Address& source, void* srcConnRefCon);
    int disconnect(int port, const Address& source);

    /// A port that others see and may read from.
    [[nodiscard]] int publishSource(std::string_view name);
    /// A port that others see and may write to.
    [[nodiscard]] int publishDestination(std::string_view name, MIDIReadProc read,
                                         void* readProcRefCon);
    bool rename(int port, std::string_view name);
    /// Hides a published port from others, or shows it again.
    bool hide(int port, Direction direction, bool isHidden);

    /// Hands the list to all who listen to a published source.
    void give(int port, const MIDIPacketList& list);

    /// When it returns, no read callback of the port runs any more, unless this is called from
    /// within one.
    void close(int port);

private:
    using Lock = std::unique_lock<std::mutex>;

    struct Port {
        MIDIReadProc read = nullptr;  // none for a source
        void* readProcRefCon = nullptr;
        bool takesFromAll = false;
        std::map<Address, void*> connections;
    };

    [[nodiscard]] int open(const Lock&, std::string_view name, unsigned int capabilities,
                           Port port);
    [[nodiscard]] bool openClient(const Lock&);
    [[nodiscard]] int createPort(std::string_view name, unsigned int capabilities);
    void startThread(const Lock&);
    void endThread();
    void run(snd_seq_t& sequencer);
    /// False when nothing can be read any more.
    [[nodiscard]] bool readAll(snd_seq_t& sequencer);
    void deliver(const snd_seq_event_t& event);

    const std::string clientName_;
    const int wakeUp_;  // an eventfd, written once: when the thread is to end
    std::atomic<bool> isEnding_ = false;
    const Codec decoder_ = makeCodec();  // the thread's own

    mutable std::mutex mutex_;
    std::condition_variable callbackEnded_;
    Sequencer sequencer_;
    std::map<int, Port> ports_;
    int nextPort_ = 0;
    int runningCallback_ = -1;       // its port
    std::thread::id runningThread_;  // none while no callback runs
    std::thread thread_;

    std::mutex giveMutex_;
    const Codec encoder_ = makeCodec();
};

}  // namespace platform::alsa
