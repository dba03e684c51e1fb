#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <atomic>
#include <filesystem>
#include <set>
#include <string>
#include <thread>

#include "kernel/UsbMidiGadget.h"
#include "kernel/sequencerClients.h"
#include "kernel/service/EndpointLayer.h"
#include "kernel/sysEx.h"
#include "kernel/systemFiles.h"
#include "kernel/waitUntil.h"
#include "midi/ZQMIDIVirtualDestination.h"
#include "midi/ZQMIDIVirtualSource.h"

// What comes in, on the service's own thread.

namespace kernel {
namespace {

using namespace std::chrono_literals;
using testing::Each;
using testing::Le;

/// Keeps what it gets.
class Recorder final : public midi::ZQMIDIReceiver {
public:
    void processMIDIPacketList(const platform::MIDIPacketList& list, const void* sender) override {
        platform::forEachPacket(list,
                                [&](std::uint64_t timeStamp, std::span<const std::uint8_t> packet) {
                                    const std::lock_guard lock(mutex_);
                                    lengths_.push_back(packet.size());
                                    timeStamps_.push_back(timeStamp);
                                    senders_.push_back(sender);
                                    thread_ = std::this_thread::get_id();
                                    task_ = gettid();
                                    bytes.add(packet);
                                });
    }
    std::vector<std::size_t> lengths() {
        const std::lock_guard lock(mutex_);
        return lengths_;
    }
    std::vector<std::uint64_t> timeStamps() {
        const std::lock_guard lock(mutex_);
        return timeStamps_;
    }
    std::vector<const void*> senders() {
        const std::lock_guard lock(mutex_);
        return senders_;
    }
    std::thread::id thread() {
        const std::lock_guard lock(mutex_);
        return thread_;
    }
    /// The kernel's number of the thread, which no other gets soon.
    pid_t task() {
        const std::lock_guard lock(mutex_);
        return task_;
    }

    ReceivedBytes bytes;

private:
    std::mutex mutex_;
    std::vector<std::size_t> lengths_;
    std::vector<std::uint64_t> timeStamps_;
    std::vector<const void*> senders_;
    std::thread::id thread_;
    pid_t task_ = 0;
};

std::size_t threads() {
    const std::filesystem::directory_iterator entries("/proc/self/task");
    return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
}

/// How often a thread of this process has gone to sleep, in the kernel's own line.
std::string timesAsleep(pid_t task) {
    const std::string status = textOf("/proc/self/task/" + std::to_string(task) + "/status");
    const std::size_t line = status.find("\nvoluntary_ctxt_switches:");
    EXPECT_NE(line, std::string::npos);
    return status.substr(line + 1, status.find('\n', line + 1) - line - 1);
}

class Input : public testing::Test {
protected:
    void SetUp() override {
        device.plug();
        ASSERT_TRUE(layer.runUntil([&] { return layer.source("Tormelk MIDI 1") != nullptr; }));
        source = layer.source("Tormelk MIDI 1");
    }

    UsbMidiGadget device{{}};
    EndpointLayer layer;
    midi::ZQMIDIRealSource* source = nullptr;
};

TEST_F(Input, ArrivesByteForByteAtEveryReceiverWithTheSourceAsSender) {
    Recorder first;
    Recorder second;
    source->addReceiver(&first);
    source->addReceiver(&second);
    Bytes sent{0x9F, 60, 100, 0x9F, 60, 0, 0xB0, 7, 127, 0xC0, 5, 0xE0, 0, 64};
    device.send(sent);
    device.send(sysEx(254));
    const Bytes message = sysEx(254);
    sent.insert(sent.end(), message.begin(), message.end());
    EXPECT_EQ(first.bytes.atLeast(sent.size(), 5s), sent);
    EXPECT_EQ(second.bytes.atLeast(sent.size(), 5s), sent);
    EXPECT_THAT(first.senders(), Each(source));
    EXPECT_NE(first.thread(), std::this_thread::get_id());
    source->removeReceiver(&first);
    source->removeReceiver(&second);
}

TEST_F(Input, ALongSysExComesInPiecesInOrder) {
    Recorder recorder;
    source->addReceiver(&recorder);
    device.send(sysEx(600));
    EXPECT_EQ(recorder.bytes.atLeast(600, 5s), sysEx(600));
    EXPECT_THAT(recorder.lengths(), Each(Le(256U)));
    source->removeReceiver(&recorder);
}

TEST_F(Input, TimeStampsGrowAndAreOfTheSteadyClock) {
    Recorder recorder;
    source->addReceiver(&recorder);
    const auto now = [] {
        return static_cast<std::uint64_t>(
            std::chrono::nanoseconds(std::chrono::steady_clock::now().time_since_epoch()).count());
    };
    const std::uint64_t before = now();
    device.send({0x90, 1, 2});
    ASSERT_EQ(recorder.bytes.atLeast(3, 5s).size(), 3U);
    const std::uint64_t between = now();
    device.send({0x90, 3, 4});
    ASSERT_EQ(recorder.bytes.atLeast(6, 5s).size(), 6U);
    const std::vector<std::uint64_t> stamps = recorder.timeStamps();
    ASSERT_EQ(stamps.size(), 2U);
    EXPECT_LT(before, stamps[0]);
    EXPECT_LT(stamps[0], between);
    EXPECT_LT(between, stamps[1]);
    source->removeReceiver(&recorder);
}

TEST_F(Input, HasNoThreadBeforeSomebodyListensAndTheSameOneFromThenOn) {
    const std::size_t before = threads();
    std::set<pid_t> tasks;
    for (int round = 0; round < 3; ++round) {
        Recorder recorder;
        source->addReceiver(&recorder);
        EXPECT_EQ(threads(), before + 1);
        device.send({0x90, 1, 2});
        EXPECT_EQ(recorder.bytes.atLeast(3, 5s), (Bytes{0x90, 1, 2}));
        tasks.insert(recorder.task());
        source->removeReceiver(&recorder);
        EXPECT_EQ(threads(), before + 1);
    }
    EXPECT_EQ(tasks.size(), 1U);
}

TEST_F(Input, ItsThreadSleepsWhileNothingComesInWhetherSomebodyListensOrNot) {
    Recorder recorder;
    source->addReceiver(&recorder);
    device.send({0x90, 1, 2});
    ASSERT_EQ(recorder.bytes.atLeast(3, 5s).size(), 3U);
    std::this_thread::sleep_for(100ms);
    const std::string listening = timesAsleep(recorder.task());
    std::this_thread::sleep_for(1s);
    EXPECT_EQ(timesAsleep(recorder.task()), listening);
    source->removeReceiver(&recorder);
    std::this_thread::sleep_for(100ms);
    const std::string alone = timesAsleep(recorder.task());
    std::this_thread::sleep_for(1s);
    EXPECT_EQ(timesAsleep(recorder.task()), alone);
}

TEST_F(Input, EndsWithTheOneRemovalOfAReceiverThatWasAddedTwice) {
    const auto listeners = [&] {
        return sequencerClientsNamed("Tormelk").at(0).ports.at(0).sendsTo.size();
    };
    Recorder recorder;
    source->addReceiver(&recorder);
    source->addReceiver(&recorder);
    source->startIO();
    EXPECT_EQ(listeners(), 1U);
    source->removeReceiver(&recorder);
    EXPECT_FALSE(source->isInUse());
    EXPECT_FALSE(source->ioIsRunning());
    EXPECT_EQ(listeners(), 0U);
}

TEST_F(Input, GoesOnWhenTheDeviceIsBack) {
    Recorder recorder;
    source->addReceiver(&recorder);
    device.unplug();
    ASSERT_TRUE(layer.runUntil([&] { return source->isOffline(); }));
    device.plug();
    ASSERT_TRUE(layer.runUntil([&] { return source->isOnline(); }));
    device.send({0x90, 1, 2});
    EXPECT_EQ(recorder.bytes.atLeast(3, 5s), (Bytes{0x90, 1, 2}));
    source->removeReceiver(&recorder);
}

/// Does something in the middle of a read callback, once.
class Acting final : public midi::ZQMIDIReceiver {
public:
    explicit Acting(std::function<void()> act) : act_(std::move(act)) {}
    void processMIDIPacketList(const platform::MIDIPacketList&, const void*) override {
        if (!done.exchange(true)) {
            act_();
            ended = true;
        }
    }
    std::atomic<bool> done = false;
    std::atomic<bool> ended = false;

private:
    std::function<void()> act_;
};

TEST_F(Input, CanBeAnsweredFromWithinTheCallback) {
    midi::ZQMIDIRealDestination& back = *layer.destination("Tormelk MIDI 1");
    Acting answer([&] { send(back, {0xB0, 1, 2}); });
    source->addReceiver(&answer);
    device.send({0x90, 1, 2});
    EXPECT_EQ(device.received().atLeast(3, 5s), (Bytes{0xB0, 1, 2}));
    source->removeReceiver(&answer);
}

platform::MIDIPortRef listen(EndpointLayer& layer, platform::MIDIEndpointRef source,
                             platform::MIDIReadProc read, void* refCon) {
    platform::MIDIPortRef port = 0;
    EXPECT_EQ(layer.service.MIDIInputPortCreate(layer.manager().midiClientRef(), "in", read, refCon,
                                                &port),
              platform::noErr);
    EXPECT_EQ(layer.service.MIDIPortConnectSource(port, source, nullptr), platform::noErr);
    return port;
}

TEST_F(Input, APortCanCloseItselfFromWithinItsCallbackAndAnotherBeOpenedThere) {
    struct State {
        EndpointLayer* layer = nullptr;
        platform::MIDIEndpointRef source = 0;
        std::atomic<platform::MIDIPortRef> port = 0;
        std::atomic<int> first = 0;
        std::atomic<int> second = 0;
    } state;
    state.layer = &layer;
    state.source = source->midiEndpointRef();
    state.port = listen(
        layer, state.source,
        [](const platform::MIDIPacketList*, void* refCon, void*) {
            auto& its = *static_cast<State*>(refCon);
            ++its.first;
            its.layer->service.MIDIPortDispose(its.port);
            its.port = listen(
                *its.layer, its.source,
                [](const platform::MIDIPacketList*, void* other, void*) {
                    ++static_cast<State*>(other)->second;
                },
                refCon);
        },
        &state);
    device.send({0x90, 1, 2});
    ASSERT_TRUE(waitUntil([&] { return state.first == 1; }, 5s));
    EXPECT_TRUE(waitUntil(
        [&] {
            device.send({0x90, 1, 2});
            return state.second > 0;
        },
        5s));
    EXPECT_EQ(state.first, 1);
    EXPECT_EQ(layer.service.MIDIPortDispose(state.port), platform::noErr);
}

TEST_F(Input, ClosingAPortWaitsForItsCallback) {
    struct State {
        std::atomic<bool> running = false;
        std::atomic<bool> closed = false;
        std::atomic<bool> late = false;
    } state;
    const platform::MIDIPortRef port = listen(
        layer, source->midiEndpointRef(),
        [](const platform::MIDIPacketList*, void* refCon, void*) {
            auto& its = *static_cast<State*>(refCon);
            its.running = true;
            std::this_thread::sleep_for(200ms);
            its.late = its.late || its.closed;
        },
        &state);
    device.send({0x90, 1, 2});
    ASSERT_TRUE(waitUntil([&] { return state.running.load(); }, 5s));
    EXPECT_EQ(layer.service.MIDIPortDispose(port), platform::noErr);
    state.closed = true;
    std::this_thread::sleep_for(300ms);
    EXPECT_FALSE(state.late);
}

/// Counts, and knows when something comes after it has gone.
class Guarded final : public midi::ZQMIDIReceiver {
public:
    void processMIDIPacketList(const platform::MIDIPacketList&, const void*) override {
        ++calls;
        callsTooLate += gone ? 1 : 0;
    }
    std::atomic<bool> gone = false;
    std::atomic<int> calls = 0;
    std::atomic<int> callsTooLate = 0;
};

TEST(Flood, ReceiversComeAndGoWhileInputFloodsIn) {
    EndpointLayer layer;
    EndpointLayer other("Flooding");
    midi::ZQMIDIVirtualDestination published(layer.manager(), "flooded");
    // Another instance stands for another program: the layer takes one of the same process for its
    // own, so it sends through the service.
    platform::MIDIEndpointRef there = 0;
    other.service.rescan();
    for (std::uint32_t i = 0; i < other.service.MIDIGetNumberOfDestinations(); ++i) {
        std::string name;
        other.service.MIDIObjectGetStringProperty(other.service.MIDIGetDestination(i), "name",
                                                  &name);
        there = name == "flooded" ? other.service.MIDIGetDestination(i) : there;
    }
    ASSERT_NE(there, 0U);
    platform::MIDIPortRef out = 0;
    other.service.MIDIOutputPortCreate(other.manager().midiClientRef(), "out", &out);
    std::atomic<bool> stop = false;
    std::thread flood([&] {
        const platform::MIDIPacketListPtr list = platform::makeOnePacketList(Bytes{0x90, 1, 2});
        while (!stop) {
            other.service.MIDISend(out, there, list.get());
        }
    });
    int heard = 0;
    int tooLate = 0;
    const auto end = std::chrono::steady_clock::now() + 3s;
    while (std::chrono::steady_clock::now() < end) {
        Guarded first;
        Guarded second;
        published.addReceiver(&first);
        published.addReceiver(&second);
        std::this_thread::sleep_for(1ms);
        published.removeReceiver(&first);
        first.gone = true;
        published.removeReceiver(&second);
        second.gone = true;
        std::this_thread::sleep_for(1ms);
        heard += first.calls + second.calls;
        tooLate += first.callsTooLate + second.callsTooLate;
    }
    stop = true;
    flood.join();
    EXPECT_GT(heard, 100);
    EXPECT_EQ(tooLate, 0);
}

TEST(Flood, InputPortsComeAndGoWhileInputFloodsIn) {
    EndpointLayer layer;
    midi::ZQMIDIVirtualSource published(layer.manager(), "flooding");
    const int user = 0;
    published.addSender(&user);
    std::atomic<bool> stop = false;
    std::thread flood([&] {
        const platform::MIDIPacketListPtr list = platform::makeOnePacketList(Bytes{0x90, 1, 2});
        while (!stop) {
            layer.service.MIDIReceived(published.midiEndpointRef(), list.get());
            std::this_thread::yield();
        }
    });
    std::atomic<int> heard = 0;
    const auto end = std::chrono::steady_clock::now() + 3s;
    while (std::chrono::steady_clock::now() < end) {
        const platform::MIDIPortRef port = listen(
            layer, published.midiEndpointRef(),
            [](const platform::MIDIPacketList*, void* count, void*) {
                ++*static_cast<std::atomic<int>*>(count);
            },
            &heard);
        const int before = heard;
        (void)waitUntil([&] { return heard > before; }, 50ms);
        layer.service.MIDIPortDispose(port);
    }
    stop = true;
    flood.join();
    published.removeSender(&user);
    EXPECT_GT(heard, 20);
}

}  // namespace
}  // namespace kernel
