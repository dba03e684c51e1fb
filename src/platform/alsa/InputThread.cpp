// The thread that reads what comes in, from the first port that takes something to the end.

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <span>

#include "platform/alsa/Input.h"

namespace platform::alsa {
namespace {

constexpr std::size_t longestPacket = 0xFFFF;

/// Nanoseconds of the clock that all time stamps are of.
std::uint64_t timeStampNow() {
    return static_cast<std::uint64_t>(std::chrono::duration_cast<std::chrono::nanoseconds>(
                                          std::chrono::steady_clock::now().time_since_epoch())
                                          .count());
}

/// A packet list of one packet of any length, in the platform's layout.
std::vector<std::uint8_t> packetListOf(std::span<const std::uint8_t> bytes) {
    const std::uint32_t count = 1;
    const std::uint64_t timeStamp = timeStampNow();
    const auto length = static_cast<std::uint16_t>(bytes.size());
    std::vector<std::uint8_t> list(
        std::max(sizeof(MIDIPacketList), packetCountSize + packetHeaderSize + bytes.size()));
    std::uint8_t* at = list.data();
    std::memcpy(at, &count, sizeof count);
    std::memcpy(at + packetCountSize, &timeStamp, sizeof timeStamp);
    std::memcpy(at + packetCountSize + sizeof timeStamp, &length, sizeof length);
    std::copy(bytes.begin(), bytes.end(), at + packetCountSize + packetHeaderSize);
    return list;
}

}  // namespace

void Input::startThread(const Lock&) {
    if (!thread_.joinable()) {
        thread_ = std::thread([this, &sequencer = *sequencer_] { run(sequencer); });
    }
}

void Input::endThread() {
    isEnding_ = true;
    const std::uint64_t one = 1;
    [[maybe_unused]] const ssize_t written = write(wakeUp_, &one, sizeof one);
    if (thread_.joinable()) {
        thread_.join();
    }
}

void Input::run(snd_seq_t& sequencer) {
    std::array<pollfd, 2> descriptors{};
    descriptors[0] = {wakeUp_, POLLIN, 0};
    descriptors[1] = {descriptorOf(sequencer, POLLIN), POLLIN, 0};
    while (!isEnding_) {
        if (poll(descriptors.data(), descriptors.size(), -1) < 0) {
            if (errno != EINTR) {
                return;
            }
            continue;
        }
        if ((descriptors[1].revents & (POLLERR | POLLNVAL | POLLHUP)) != 0) {
            return;
        }
        if (!readAll(sequencer)) {
            return;
        }
    }
}

bool Input::readAll(snd_seq_t& sequencer) {
    while (!isEnding_) {
        snd_seq_event_t* event = nullptr;
        const int result = snd_seq_event_input(&sequencer, &event);
        if (result == -EAGAIN) {
            return true;
        }
        // -ENOSPC: more came in than could be kept, and all of that is lost; what comes now is not.
        if (result < 0 && result != -ENOSPC && result != -EINTR) {
            return false;
        }
        if (result >= 0 && event != nullptr) {
            deliver(*event);
        }
    }
    return true;
}

void Input::deliver(const snd_seq_event_t& event) {
    const std::vector<std::uint8_t> bytes = bytesOf(*decoder_, event);
    if (bytes.empty()) {
        return;
    }
    Lock lock(mutex_);
    const int number = event.dest.port;
    const Address source{event.source.client, event.source.port};
    for (std::size_t begin = 0; begin < bytes.size(); begin += longestPacket) {
        // Looked up anew: a callback may have closed the port.
        const auto port = ports_.find(number);
        if (port == ports_.end() || port->second.read == nullptr) {
            return;
        }
        const auto connection = port->second.connections.find(source);
        const bool isConnected = connection != port->second.connections.end();
        if (!isConnected && !port->second.takesFromAll) {
            return;
        }
        const std::size_t count = std::min(longestPacket, bytes.size() - begin);
        const std::vector<std::uint8_t> list = packetListOf(std::span(bytes).subspan(begin, count));
        const MIDIReadProc read = port->second.read;
        void* const readProcRefCon = port->second.readProcRefCon;
        void* const srcConnRefCon = isConnected ? connection->second : nullptr;
        runningCallback_ = number;
        runningThread_ = std::this_thread::get_id();
        lock.unlock();
        read(reinterpret_cast<const MIDIPacketList*>(list.data()), readProcRefCon, srcConnRefCon);
        lock.lock();
        runningCallback_ = -1;
        runningThread_ = {};
        callbackEnded_.notify_all();
    }
}

}  // namespace platform::alsa
