// What a read callback may do, and what holds after a port is gone.

#include <atomic>
#include <chrono>
#include <thread>

#include "platform/software/SoftwareMidiTest.h"

namespace platform::software {
namespace {

using ::testing::IsEmpty;

using Callbacks = SoftwareMidiTest;

/// A read callback that runs a function.
struct Action {
    std::function<void()> act;
    int calls = 0;

    static void read(const MIDIPacketList*, void* readProcRefCon, void*) {
        auto* const action = static_cast<Action*>(readProcRefCon);
        ++action->calls;
        action->act();
    }
};

TEST_F(Callbacks, MayDisposeOfTheirOwnPort) {
    Source& in = service.addSource("in");
    MIDIPortRef port = 0;
    Action action{[&] {
        EXPECT_EQ(service.MIDIPortDisconnectSource(port, in.handle()), noErr);
        EXPECT_EQ(service.MIDIPortDispose(port), noErr);
    }};
    port = inputPort(Action::read, &action);
    service.MIDIPortConnectSource(port, in.handle(), nullptr);
    in.emit(noteOn);
    in.emit(noteOn);
    EXPECT_EQ(action.calls, 1);
}

TEST_F(Callbacks, MayDisposeOfAPortThatIsStillToBeCalled) {
    Source& in = service.addSource("in");
    Reader never;
    MIDIPortRef second = 0;
    Action action{[&] { service.MIDIPortDispose(second); }};
    const MIDIPortRef first = inputPort(Action::read, &action);
    second = inputPort(Reader::read, &never);
    service.MIDIPortConnectSource(first, in.handle(), nullptr);
    service.MIDIPortConnectSource(second, in.handle(), nullptr);
    in.emit(noteOn);
    EXPECT_EQ(action.calls, 1);
    EXPECT_THAT(never.lists, IsEmpty());
    service.MIDIPortDispose(first);
}

TEST_F(Callbacks, MayOpenAPortWhichHearsFromTheNextListOn) {
    Source& in = service.addSource("in");
    Reader late;
    MIDIPortRef second = 0;
    Action action{[&] {
        if (second == 0) {
            second = inputPort(Reader::read, &late);
            service.MIDIPortConnectSource(second, in.handle(), nullptr);
        }
    }};
    const MIDIPortRef first = inputPort(Action::read, &action);
    service.MIDIPortConnectSource(first, in.handle(), nullptr);
    in.emit(noteOn);
    EXPECT_THAT(late.lists, IsEmpty());
    in.emit(noteOn);
    EXPECT_EQ(late.lists.size(), 1U);
    service.MIDIPortDispose(first);
    service.MIDIPortDispose(second);
}

TEST_F(Callbacks, MaySendAndUnplugTheDevice) {
    Device& device = service.addDevice("Tormelk");
    Source& in = device.addSource("in");
    Destination& out = device.addDestination("out");
    const MIDIPortRef output = outputPort();
    Action action{[&] {
        service.MIDISend(output, out.handle(), makeOnePacketList(noteOn).get());
        device.unplug();
    }};
    const MIDIPortRef input = inputPort(Action::read, &action);
    service.MIDIPortConnectSource(input, in.handle(), nullptr);
    in.emit(noteOn);
    EXPECT_EQ(service.at(out).received().size(), 1U);
    service.MIDIPortDispose(input);
    service.MIDIPortDispose(output);
}

/// A callback that stays inside until it is let go.
struct Slow {
    std::atomic<bool> entered = false;
    std::atomic<bool> released = false;
    std::atomic<bool> left = false;

    static void read(const MIDIPacketList*, void* readProcRefCon, void*) {
        auto* const slow = static_cast<Slow*>(readProcRefCon);
        slow->entered = true;
        while (!slow->released) {
            std::this_thread::yield();
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        slow->left = true;
    }
};

TEST_F(Callbacks, HaveEndedWhenTheDisposalOfTheirPortReturns) {
    Source& in = service.addSource("in");
    Slow slow;
    const MIDIPortRef port = inputPort(Slow::read, &slow);
    service.MIDIPortConnectSource(port, in.handle(), nullptr);
    std::thread input([&] { in.emit(noteOn); });
    while (!slow.entered) {
        std::this_thread::yield();
    }
    slow.released = true;
    service.MIDIPortDispose(port);
    EXPECT_TRUE(slow.left);
    input.join();
}

TEST_F(Callbacks, HaveEndedWhenTheDisposalOfTheirPublishedDestinationReturns) {
    Slow slow;
    MIDIEndpointRef destination = 0;
    service.MIDIDestinationCreate(client, "mine", Slow::read, &slow, &destination);
    std::thread input([&] { service.sendTo(destination, *makeOnePacketList(noteOn)); });
    while (!slow.entered) {
        std::this_thread::yield();
    }
    slow.released = true;
    service.MIDIEndpointDispose(destination);
    EXPECT_TRUE(slow.left);
    input.join();
}

/// A callback that counts, and knows when it runs though its port is gone.
struct Guarded {
    std::atomic<bool> gone = false;
    std::atomic<int> calls = 0;
    std::atomic<int> callsTooLate = 0;

    static void read(const MIDIPacketList*, void* readProcRefCon, void*) {
        auto* const guarded = static_cast<Guarded*>(readProcRefCon);
        ++guarded->calls;
        std::this_thread::yield();
        if (guarded->gone) {
            ++guarded->callsTooLate;
        }
    }
};

TEST_F(Callbacks, NeverTouchAPortThatIsGoneWhilePortsComeAndGo) {
    Source& in = service.addSource("in");
    std::atomic<bool> stop = false;
    std::vector<std::thread> inputs;
    inputs.reserve(2);
    for (int i = 0; i < 2; ++i) {
        inputs.emplace_back([&] {
            while (!stop) {
                in.emit(noteOn);
            }
        });
    }
    std::vector<std::unique_ptr<Guarded>> ports;  // kept to the end, to see late callbacks
    for (int i = 0; i < 300; ++i) {
        Guarded& guarded = *ports.emplace_back(std::make_unique<Guarded>());
        const MIDIPortRef port = inputPort(Guarded::read, &guarded);
        service.MIDIPortConnectSource(port, in.handle(), nullptr);
        while (i % 10 == 0 && guarded.calls == 0) {
            std::this_thread::yield();
        }
        if (i % 3 == 0) {
            service.MIDIPortDisconnectSource(port, in.handle());
        }
        service.MIDIPortDispose(port);
        guarded.gone = true;
    }
    stop = true;
    for (std::thread& input : inputs) {
        input.join();
    }
    for (const auto& port : ports) {
        EXPECT_EQ(port->callsTooLate, 0);
    }
    EXPECT_EQ(service.openInputPorts(), 0U);
}

}  // namespace
}  // namespace platform::software
