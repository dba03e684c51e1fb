#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "kernel/UsbMidiGadget.h"
#include "kernel/publicTools.h"
#include "kernel/service/EndpointLayer.h"
#include "kernel/sysEx.h"
#include "midi/ZQMIDIVirtualDestination.h"
#include "midi/ZQMIDIVirtualSource.h"
#include "midi/archive/keyedArchive.h"
#include "midi/archivedClasses.h"

// Endpoints that were written down in one run of the program and are read in the next.

namespace kernel {
namespace {

using namespace std::chrono_literals;
using midi::ZQMIDIVirtualDestination;
using midi::ZQMIDIVirtualSource;
using testing::HasSubstr;
using testing::Not;

Bytes archived(const midi::archive::Archivable& object) {
    return midi::archive::KeyedArchiver().archivedData(&object);
}

/// The object of an archive, read by this run of the program; throws if it is none of
/// that kind.
template <typename Kind>
std::shared_ptr<Kind> unarchived(EndpointLayer& layer, const Bytes& bytes) {
    const auto object = midi::archive::KeyedUnarchiver(midi::archivedClasses(layer.manager()))
                            .unarchiveObject(bytes);
    auto made = object ? std::dynamic_pointer_cast<Kind>(*object) : nullptr;
    if (made == nullptr) {
        throw std::runtime_error("the archive holds no such endpoint");
    }
    return made;
}

/// The last endpoint that a run of the program had published, as it wrote it down.
template <typename Kind>
Bytes publishedBefore(const std::string& name, std::int32_t uniqueID) {
    EndpointLayer layer("Tormelk Publisher");
    Kind endpoint(layer.manager(), name);
    EXPECT_TRUE(endpoint.setUniqueID(uniqueID));
    return archived(endpoint);
}

TEST(Archive, OfAPublishedSourceBringsBackItsNameAndIdAfterARestart) {
    const Bytes bytes = publishedBefore<ZQMIDIVirtualSource>("kept source", 4711);
    EXPECT_THAT(run({"aconnect", "-i"}).output, Not(HasSubstr("kept source")));
    EndpointLayer next("Tormelk Publisher");
    const auto source = unarchived<ZQMIDIVirtualSource>(next, bytes);
    EXPECT_EQ(source->name(), "kept source");
    EXPECT_EQ(source->displayName(), "kept source");
    EXPECT_EQ(source->uniqueID(), 4711);
    EXPECT_THAT(run({"aconnect", "-i"}).output, HasSubstr("kept source"));
    next.run(300ms);
    EXPECT_EQ(next.setupChanges, 0);
}

TEST(Archive, OfAPublishedDestinationBringsItBackWorking) {
    const Bytes bytes = publishedBefore<ZQMIDIVirtualDestination>("kept destination", 4712);
    EndpointLayer next("Tormelk Publisher");
    const auto destination = unarchived<ZQMIDIVirtualDestination>(next, bytes);
    EXPECT_EQ(destination->uniqueID(), 4712);
    class Recorder final : public midi::ZQMIDIReceiver {
    public:
        void processMIDIPacketList(const platform::MIDIPacketList& list, const void*) override {
            platform::forEachPacket(list, [&](std::uint64_t, std::span<const std::uint8_t> packet) {
                received.add(packet);
            });
        }
        ReceivedBytes received;
    } recorder;
    destination->addReceiver(&recorder);
    sendThroughSequencer("Tormelk Publisher:0", sysEx(100));
    EXPECT_EQ(recorder.received.atLeast(100, 5s), sysEx(100));
    destination->removeReceiver(&recorder);
}

TEST(Archive, OfAPublishedEndpointWhoseIdIsTakenMakesOneOfTheSameNameWithAnother) {
    EndpointLayer layer("Tormelk Publisher");
    ZQMIDIVirtualSource owner(layer.manager(), "kept");
    const std::int32_t id = owner.uniqueID();
    const auto second = unarchived<ZQMIDIVirtualSource>(layer, archived(owner));
    EXPECT_EQ(second->name(), "kept");
    EXPECT_NE(second->uniqueID(), id);
    EXPECT_NE(second->uniqueID(), 0);
    EXPECT_EQ(owner.uniqueID(), id);
    // Nor can one that a device has be taken.
    const midi::ZQMIDIRealSource* const through = layer.source("\u21C4 Midi Through Port-0");
    ASSERT_NE(through, nullptr);
    EXPECT_FALSE(owner.setUniqueID(through->uniqueID()));
}

TEST(Archive, OfADeviceIsTheVeryObjectThatTheNextRunHasForItInWhicheverSocketItIs) {
    UsbMidiGadget device({});
    UsbMidiGadget before({.product = "Zwolk"});
    device.plug();
    Bytes source;
    Bytes destination;
    {
        EndpointLayer first;
        source = archived(*first.source("Tormelk MIDI 1"));
        destination = archived(*first.destination("Tormelk MIDI 1"));
    }
    device.unplug();
    before.plug();
    device.plug();
    EndpointLayer next;
    for (int time = 0; time < 2; ++time) {
        EXPECT_EQ(unarchived<midi::ZQMIDIRealSource>(next, source).get(),
                  next.source("Tormelk MIDI 1"));
        EXPECT_EQ(unarchived<midi::ZQMIDIRealDestination>(next, destination).get(),
                  next.destination("Tormelk MIDI 1"));
    }
    send(*unarchived<midi::ZQMIDIRealDestination>(next, destination), sysEx(60));
    EXPECT_EQ(device.received().atLeast(60, 5s), sysEx(60));
}

TEST(Archive, OfADeviceThatIsNotThereIsOfflineAndWorksOnceItIsPluggedIn) {
    UsbMidiGadget device({});
    device.plug();
    Bytes bytes;
    {
        EndpointLayer first;
        bytes = archived(*first.destination("Tormelk MIDI 1"));
    }
    device.unplug();
    EndpointLayer next;
    const auto port = unarchived<midi::ZQMIDIRealDestination>(next, bytes);
    EXPECT_TRUE(port->isOffline());
    EXPECT_EQ(port->displayName(), "Tormelk MIDI 1 (offline)");
    EXPECT_FALSE(port->setName("another"));
    EXPECT_EQ(port->name(), "Tormelk MIDI 1");
    const int sender = 0;
    port->addSender(&sender);
    EXPECT_FALSE(port->ioIsRunning());
    device.plug();
    ASSERT_TRUE(next.runUntil([&] { return port->isOnline(); }));
    EXPECT_TRUE(port->ioIsRunning());
    EXPECT_EQ(next.destination("Tormelk MIDI 1"), port.get());
    port->processMIDIPacketList(*platform::makeOnePacketList(sysEx(100)), &sender);
    EXPECT_EQ(device.received().atLeast(100, 5s), sysEx(100));
    port->removeSender(&sender);
}

}  // namespace
}  // namespace kernel
