#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <thread>

#include "kernel/ReceivedBytes.h"
#include "kernel/sequencerClients.h"
#include "kernel/service/EndpointLayer.h"
#include "kernel/sysEx.h"
#include "kernel/waitUntil.h"
#include "midi/ZQMIDIVirtualDestination.h"
#include "platform/alsa/Sender.h"
#include "platform/alsa/events.h"

// More comes in than the kernel keeps for a program that is slow to read.

namespace kernel {
namespace {

using namespace std::chrono_literals;
using platform::alsa::Address;
using platform::alsa::Sender;

/// Takes its time over the first packet, until it is told to go on.
class Slow final : public midi::ZQMIDIReceiver {
public:
    void processMIDIPacketList(const platform::MIDIPacketList& list, const void*) override {
        entered = true;
        while (isHeld) {
            std::this_thread::sleep_for(1ms);
        }
        platform::forEachPacket(
            list, [&](std::uint64_t, std::span<const std::uint8_t> packet) { bytes.add(packet); });
    }
    std::atomic<bool> isHeld = true;
    std::atomic<bool> entered = false;
    ReceivedBytes bytes;
};

/// Another program's way to a port, which does not look whether there is space.
class Careless {
public:
    explicit Careless(const Address& to) {
        EXPECT_NE(sender_, nullptr);
        EXPECT_EQ(sender_->subscribe(to, false), 0);
    }
    /// One message; 0, or the kernel's number, negated.
    int send(const Bytes& message) {
        snd_seq_event_t event{};
        EXPECT_TRUE(platform::alsa::toEvent(*codec_, message, event));
        return sender_->send(event);
    }

private:
    std::unique_ptr<Sender> sender_ = Sender::open("Careless");
    platform::alsa::Codec codec_ = platform::alsa::makeCodec();
};

Bytes note(std::uint8_t number) {
    return {0x90, number, 100};
}

bool endsWith(const Bytes& bytes, const Bytes& end) {
    return bytes.size() >= end.size() && std::equal(end.rbegin(), end.rend(), bytes.rbegin());
}

TEST(Overflow, OfWhatComesInLosesWhatTheKernelKeptAndNothingAfterwards) {
    EndpointLayer layer("Tormelk Slow");
    midi::ZQMIDIVirtualDestination published(layer.manager(), "slow");
    Slow slow;
    published.addReceiver(&slow);
    Careless other({sequencerClientsNamed("Tormelk Slow").at(0).number, 0});
    ASSERT_EQ(other.send(note(1)), 0);
    ASSERT_TRUE(waitUntil([&] { return slow.entered.load(); }, 5s));
    std::size_t sent = 1;
    int result = 0;
    while (result == 0 && sent < 100000) {
        result = other.send(note(1));
        ++sent;
    }
    EXPECT_EQ(result, -EAGAIN) << "nothing overflowed";
    slow.isHeld = false;
    // What comes before the backlog has been thrown away goes with it.
    ASSERT_TRUE(waitUntil(
        [&] {
            other.send(note(2));
            return endsWith(slow.bytes.all(), note(2));
        },
        10s));
    EXPECT_LT(slow.bytes.all().size(), sent * 3);
    std::this_thread::sleep_for(100ms);
    const std::size_t before = slow.bytes.all().size();
    ASSERT_EQ(other.send(sysEx(254)), 0);
    ASSERT_EQ(other.send(note(3)), 0);
    Bytes expected = sysEx(254);
    const Bytes last = note(3);
    expected.insert(expected.end(), last.begin(), last.end());
    EXPECT_TRUE(endsWith(slow.bytes.atLeast(before + expected.size(), 5s), expected));
    published.removeReceiver(&slow);
}

}  // namespace
}  // namespace kernel
