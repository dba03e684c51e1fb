// Receivers that come and go while input arrives. Run with the thread
// sanitizer, these tests also prove that nothing is touched by two threads at
// once.

#include <atomic>
#include <chrono>
#include <functional>
#include <thread>

#include "midi/MidiTest.h"
#include "midi/ReceiverSet.h"
#include "midi/ZQMIDIVirtualDestination.h"

namespace midi {
namespace {

/// Counts calls, and knows when one comes that should not.
class Guarded final : public ZQMIDIReceiver {
public:
    void processMIDIPacketList(const platform::MIDIPacketList&, const void*) override {
        ++calls;
        if (gone) {
            ++callsTooLate;
        }
        std::this_thread::yield();
        if (gone) {
            ++callsTooLate;
        }
    }
    std::atomic<bool> gone = false;
    std::atomic<int> calls = 0;
    std::atomic<int> callsTooLate = 0;
};

/// Threads that run a function over and over until the end.
class Flood {
public:
    Flood(int threads, const std::function<void()>& step) {
        for (int i = 0; i < threads; ++i) {
            threads_.emplace_back([this, step] {
                while (!stop_) {
                    step();
                }
            });
        }
    }
    ~Flood() {
        stop_ = true;
        for (std::thread& thread : threads_) {
            thread.join();
        }
    }
    Flood(const Flood&) = delete;
    Flood& operator=(const Flood&) = delete;

private:
    std::atomic<bool> stop_ = false;
    std::vector<std::thread> threads_;
};

using ReceiverThreads = MidiTest;

TEST_F(ReceiverThreads, ARemovedReceiverIsNotCalledAnyMoreHoweverMuchArrives) {
    Source& in = service.addSource("in");
    ZQMIDIRealSource& source = real(in);
    Guarded steady;
    source.addReceiver(&steady);  // keeps the port open
    int heard = 0;
    {
        const Flood flood(2, [&] { in.emit(noteOn); });
        for (int i = 0; i < 300; ++i) {
            auto receiver = std::make_unique<Guarded>();
            source.addReceiver(receiver.get());
            if (i % 10 == 0) {
                while (receiver->calls == 0) {
                    std::this_thread::yield();
                }
                ++heard;
            }
            source.removeReceiver(receiver.get());
            receiver->gone = true;
            std::this_thread::yield();
            EXPECT_EQ(receiver->callsTooLate, 0);
            // and now it is destroyed, which the sanitizers watch
        }
    }
    EXPECT_EQ(heard, 30);
    EXPECT_GT(steady.calls, 0);
    source.removeReceiver(&steady);
}

TEST_F(ReceiverThreads, ThePortCanOpenAndCloseWhileInputArrives) {
    Source& in = service.addSource("in");
    ZQMIDIRealSource& source = real(in);
    {
        const Flood flood(1, [&] { in.emit(noteOn); });
        for (int i = 0; i < 300; ++i) {
            auto receiver = std::make_unique<Guarded>();
            source.addReceiver(receiver.get());
            source.removeReceiver(receiver.get());
        }
    }
    EXPECT_EQ(service.inputPortsCreated(), 300U);
    EXPECT_EQ(service.openInputPorts(), 0U);
}

TEST_F(ReceiverThreads, ADeviceCanComeAndGoWhileInputArrives) {
    Device& device = service.addDevice("Tormelk");
    Source& in = device.addSource("Port 1");
    ZQMIDIRealSource& source = real(in);
    Guarded receiver;
    source.addReceiver(&receiver);
    {
        const Flood flood(1, [&] { in.emit(noteOn); });
        for (int i = 0; i < 100; ++i) {
            device.unplug();
            service.dispatch();
            device.plug();
            service.dispatch();
        }
        const int before = receiver.calls;
        while (receiver.calls == before) {
            std::this_thread::yield();
        }
    }
    EXPECT_TRUE(source.ioIsRunning());
    source.removeReceiver(&receiver);
}

/// Leaves as soon as it hears something, on the input thread.
class Leaver final : public ZQMIDIReceiver {
public:
    explicit Leaver(ZQMIDIEndpoint& endpoint) : endpoint_(endpoint) {}
    void processMIDIPacketList(const platform::MIDIPacketList&, const void*) override {
        endpoint_.removeReceiver(this);
        left = true;
    }
    std::atomic<bool> left = false;

private:
    ZQMIDIEndpoint& endpoint_;
};

TEST_F(ReceiverThreads, ReceiversMayLeaveOnTheInputThreadWhileOthersComeOnTheMainThread) {
    Source& in = service.addSource("in");
    ZQMIDIRealSource& source = real(in);
    {
        const Flood flood(1, [&] { in.emit(noteOn); });
        for (int i = 0; i < 50; ++i) {
            Leaver leaver(source);
            Guarded guest;
            source.addReceiver(&leaver);
            source.addReceiver(&guest);
            source.removeReceiver(&guest);
            while (!leaver.left) {
                std::this_thread::yield();
            }
            source.removeReceiver(&leaver);  // waits for the end of its call
            EXPECT_FALSE(source.isInUse());
        }
    }
    EXPECT_FALSE(source.ioIsRunning());
    EXPECT_EQ(service.openInputPorts(), 0U);
}

TEST_F(ReceiverThreads, TheLastToChangeTheUsersDecidesWhetherThePortIsOpen) {
    Source& in = service.addSource("in");
    ZQMIDIRealSource& source = real(in);
    for (int round = 0; round < 100; ++round) {
        Guarded one;
        Guarded two;
        std::thread other([&] {
            for (int i = 0; i < 10; ++i) {
                source.addReceiver(&one);
                source.removeReceiver(&one);
            }
        });
        for (int i = 0; i < 10; ++i) {
            source.addReceiver(&two);
            source.removeReceiver(&two);
        }
        source.addReceiver(&two);
        other.join();
        EXPECT_TRUE(source.ioIsRunning());
        EXPECT_EQ(service.openInputPorts(), 1U);
        source.removeReceiver(&two);
        EXPECT_EQ(service.openInputPorts(), 0U);
    }
}

TEST_F(ReceiverThreads, APublishedDestinationCanComeAndGoWhileOthersSendToIt) {
    std::atomic<MIDIEndpointRef> target = 0;
    manager();
    const auto list = platform::makeOnePacketList(noteOn);
    int heard = 0;
    {
        const Flood flood(2, [&] { service.sendTo(target, *list); });
        for (int i = 0; i < 100; ++i) {
            Guarded receiver;
            auto destination = std::make_unique<ZQMIDIVirtualDestination>(manager(), "Editor");
            target = destination->midiEndpointRef();
            destination->addReceiver(&receiver);
            if (i % 10 == 0) {
                while (receiver.calls == 0) {
                    std::this_thread::yield();
                }
                ++heard;
            }
            if (i % 2 == 0) {
                destination->removeReceiver(&receiver);
            } else {
                destination.reset();  // with its receiver
            }
            receiver.gone = true;
            std::this_thread::yield();
            EXPECT_EQ(receiver.callsTooLate, 0);
            destination.reset();
            EXPECT_EQ(service.publishedEndpoints(), 0U);
        }
    }
    EXPECT_EQ(heard, 10);
}

TEST_F(ReceiverThreads, TheProcessCanEndWhileInputArrives) {
    Source& in = service.addSource("in");
    Guarded receiver;
    real(in).addReceiver(&receiver);
    const Flood flood(1, [&] { in.emit(noteOn); });
    while (receiver.calls == 0) {
        std::this_thread::yield();
    }
    process.reset();
    receiver.gone = true;
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
    EXPECT_EQ(receiver.callsTooLate, 0);
}

TEST(ReceiverSetOnTwoThreads, RemovalWaitsForTheCallThatRuns) {
    struct Slow final : ZQMIDIReceiver {
        std::atomic<bool> entered = false;
        std::atomic<bool> released = false;
        std::atomic<bool> left = false;
        void processMIDIPacketList(const platform::MIDIPacketList&, const void*) override {
            entered = true;
            while (!released) {
                std::this_thread::yield();
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
            left = true;
        }
    } slow;
    ReceiverSet set;
    set.add(&slow);
    const auto list = platform::makeOnePacketList(noteOn);
    std::thread input([&] { set.deliver(*list, nullptr); });
    while (!slow.entered) {
        std::this_thread::yield();
    }
    slow.released = true;
    set.remove(&slow);
    EXPECT_TRUE(slow.left);
    EXPECT_TRUE(set.empty());
    input.join();
}

TEST(ReceiverSetOnTwoThreads, RemovalDoesNotWaitForOtherReceivers) {
    struct Held final : ZQMIDIReceiver {
        std::atomic<bool> entered = false;
        std::atomic<bool> released = false;
        void processMIDIPacketList(const platform::MIDIPacketList&, const void*) override {
            entered = true;
            while (!released) {
                std::this_thread::yield();
            }
        }
    } held;
    Guarded other;
    ReceiverSet set;
    set.add(&held);
    set.add(&other);
    const auto list = platform::makeOnePacketList(noteOn);
    std::thread input([&] { set.deliver(*list, nullptr); });
    while (!held.entered) {
        std::this_thread::yield();
    }
    set.remove(&other);  // returns though the delivery is stuck
    held.released = true;
    input.join();
    EXPECT_EQ(other.calls, 0);
}

TEST(ReceiverSetOnTwoThreads, TwoDeliveriesMayRemoveTheSameReceiver) {
    struct Both final : ZQMIDIReceiver {
        ReceiverSet* set = nullptr;
        std::atomic<int> inside = 0;
        void processMIDIPacketList(const platform::MIDIPacketList&, const void*) override {
            ++inside;
            while (inside < 2) {
                std::this_thread::yield();
            }
            set->remove(this);
        }
    } both;
    ReceiverSet set;
    both.set = &set;
    set.add(&both);
    const auto list = platform::makeOnePacketList(noteOn);
    std::thread one([&] { set.deliver(*list, nullptr); });
    std::thread two([&] { set.deliver(*list, nullptr); });
    one.join();
    two.join();
    EXPECT_TRUE(set.empty());
}

}  // namespace
}  // namespace midi
