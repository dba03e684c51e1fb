#include "midi/archivedClasses.h"

#include <limits>

#include "midi/MidiTest.h"
#include "midi/ZQMIDIVirtualDestination.h"
#include "midi/ZQMIDIVirtualSource.h"
#include "midi/archive/garbled.h"

namespace midi {
namespace {

using ::testing::ElementsAre;

using Bytes = std::vector<std::uint8_t>;

class ArchivedEndpoints : public MidiTest {
protected:
    static Bytes archived(const archive::Archivable& object) {
        return archive::KeyedArchiver().archivedData(&object);
    }
    std::optional<std::shared_ptr<archive::Archivable>> unarchived(const Bytes& bytes) {
        return archive::KeyedUnarchiver(archivedClasses(manager())).unarchiveObject(bytes);
    }
    template <typename Kind>
    std::shared_ptr<Kind> unarchivedAs(const Bytes& bytes) {
        const auto object = unarchived(bytes);
        EXPECT_TRUE(object.has_value());
        return object ? std::dynamic_pointer_cast<Kind>(*object) : nullptr;
    }
};

/// Writes down what is encoded, in order.
class KeyRecorder final : public archive::KeyedEncoder {
public:
    std::vector<std::string> entries;
    void encodeObject(std::string_view key, const std::optional<std::string>& text) override {
        entries.push_back(std::string(key) + "=" + text.value_or("none"));
    }
    void encodeInt32(std::string_view key, std::int32_t number) override {
        entries.push_back(std::string(key) + "=" + std::to_string(number));
    }
};

TEST_F(ArchivedEndpoints, HoldsAnEndpointsKeysInOrder) {
    const Source& in = service.addDevice("Tormelk").addSource("Port 1");
    KeyRecorder coder;
    real(in).encodeWithCoder(coder);
    EXPECT_THAT(coder.entries,
                ElementsAre("name=Tormelk Port 1", "uniqueID=" + std::to_string(in.uniqueID()),
                            "displayName=Tormelk Port 1"));
}

TEST_F(ArchivedEndpoints, HoldsTheStoredDisplayNameWithoutSuffix) {
    Source& in = service.addSource("Port 1");
    const ZQMIDIRealSource& source = real(in);
    in.unplug();
    service.dispatch();
    KeyRecorder coder;
    source.encodeWithCoder(coder);
    EXPECT_EQ(coder.entries.back(), "displayName=Port 1");
    KeyRecorder unbound;
    ZQMIDIEndpoint(manager(), "x", 1).encodeWithCoder(unbound);
    EXPECT_THAT(unbound.entries, ElementsAre("name=x", "uniqueID=1", "displayName=none"));
}

TEST_F(ArchivedEndpoints, HoldsADescriptorsKeysInOrder) {
    KeyRecorder coder;
    ZQMIDIEndpointDescriptor("Tormelk", 7).encodeWithCoder(coder);
    EXPECT_THAT(coder.entries, ElementsAre("name=Tormelk", "uniqueID=7"));
}

TEST_F(ArchivedEndpoints, GivesADescriptorBack) {
    for (const std::int32_t id : {0, 1, -1, std::numeric_limits<std::int32_t>::max(),
                                  std::numeric_limits<std::int32_t>::min()}) {
        const auto back = unarchivedAs<ZQMIDIEndpointDescriptor>(
            archived(ZQMIDIEndpointDescriptor("Tormelk", id)));
        ASSERT_NE(back, nullptr);
        EXPECT_EQ(back->name(), "Tormelk");
        EXPECT_EQ(back->uniqueID(), id);
    }
}

TEST_F(ArchivedEndpoints, GivesTheManagersOwnSourceBackEveryTime) {
    const Source& in = service.addSource("in");
    const Bytes bytes = archived(real(in));
    EXPECT_EQ(unarchivedAs<ZQMIDIRealSource>(bytes).get(), &real(in));
    EXPECT_EQ(unarchivedAs<ZQMIDIRealSource>(bytes).get(), &real(in));
    EXPECT_EQ(manager().realSources().size(), 1U);
}

TEST_F(ArchivedEndpoints, GivesTheManagersOwnDestinationBackEveryTime) {
    const Destination& out = service.addDestination("out");
    const Bytes bytes = archived(real(out));
    EXPECT_EQ(unarchivedAs<ZQMIDIRealDestination>(bytes).get(), &real(out));
    EXPECT_EQ(unarchivedAs<ZQMIDIRealDestination>(bytes).get(), &real(out));
    EXPECT_EQ(manager().realDestinations().size(), 1U);
}

TEST_F(ArchivedEndpoints, KeepsTheClassApartFromTheName) {
    const Source& in = service.addSource("same");
    const Destination& out = service.addDestination("same");
    EXPECT_EQ(unarchivedAs<ZQMIDIRealSource>(archived(real(in))).get(), &real(in));
    EXPECT_EQ(unarchivedAs<ZQMIDIRealSource>(archived(real(out))), nullptr);
}

TEST_F(ArchivedEndpoints, GivesAnAbsentEndpointBackAsOneThatTheManagerAdopts) {
    Bytes bytes;
    {
        support::ScriptedMidiService elsewhere;
        ZQMIDIProcess other(elsewhere, centre);
        elsewhere.addSource("far").setUniqueID(12);
        bytes = archived(*other.sharedInstance().realSources().at(0));
    }
    const auto source = unarchivedAs<ZQMIDIRealSource>(bytes);
    ASSERT_NE(source, nullptr);
    EXPECT_TRUE(source->isOffline());
    EXPECT_EQ(source->name(), "far");
    EXPECT_EQ(source->uniqueID(), 12);
    EXPECT_EQ(manager().realSources().at(0).get(), source.get());
    // Its display name is not read back.
    EXPECT_EQ(source->displayName(), "far (offline)");
    EXPECT_EQ(unarchivedAs<ZQMIDIRealSource>(bytes).get(), source.get());
}

TEST_F(ArchivedEndpoints, GivesAPublishedSourceBackAsAFreshOne) {
    Bytes bytes;
    {
        const ZQMIDIVirtualSource source(manager(), "Editor");
        bytes = archived(source);
    }
    EXPECT_EQ(service.publishedEndpoints(), 0U);
    now += 1000;
    auto back = unarchivedAs<ZQMIDIVirtualSource>(bytes);
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(service.publishedEndpoints(), 1U);
    EXPECT_EQ(service.MIDIGetNumberOfSources(), 1U);
    EXPECT_EQ(back->name(), "Editor");
    EXPECT_EQ(back->uniqueID(), 1'700'000'000);
    back.reset();
    EXPECT_EQ(service.publishedEndpoints(), 0U);
}

TEST_F(ArchivedEndpoints, GivesAPublishedDestinationBackWithItsOldUniqueID) {
    Bytes bytes;
    {
        const ZQMIDIVirtualDestination destination(manager(), "Editor");
        bytes = archived(destination);
    }
    now += 1000;
    const auto back = unarchivedAs<ZQMIDIVirtualDestination>(bytes);
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(service.MIDIGetNumberOfDestinations(), 1U);
    EXPECT_EQ(back->name(), "Editor");
    EXPECT_EQ(back->uniqueID(), 1'700'000'000);
    std::int32_t known = 0;
    service.MIDIObjectGetIntegerProperty(back->midiEndpointRef(), "uniqueID", &known);
    EXPECT_EQ(known, 1'700'000'000) << "to the service";
}

TEST_F(ArchivedEndpoints, LeavesAUniqueIDThatIsTakenWithItsOwner) {
    const ZQMIDIVirtualDestination owner(manager(), "Editor");
    const auto back = unarchivedAs<ZQMIDIVirtualDestination>(archived(owner));
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(service.MIDIGetNumberOfDestinations(), 2U);
    EXPECT_EQ(back->name(), "Editor");
    EXPECT_EQ(owner.uniqueID(), 1'700'000'000);
    EXPECT_EQ(back->uniqueID(), 1'700'000'001);
}

TEST_F(ArchivedEndpoints, GivesTheBaseBackEmpty) {
    const auto back = unarchivedAs<ZQMIDIEndpoint>(archived(ZQMIDIEndpoint(manager(), "x", 7)));
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(back->name(), std::nullopt);
    EXPECT_EQ(back->uniqueID(), 0);
}

TEST_F(ArchivedEndpoints, GivesListsBackInOrderWithTheirIdentities) {
    const Source& in = service.addSource("in");
    const ZQMIDIEndpointDescriptor descriptor("d", 1);
    const Bytes bytes =
        archive::KeyedArchiver().archivedData({&descriptor, &real(in), nullptr, &descriptor});
    const auto back = archive::KeyedUnarchiver(archivedClasses(manager())).unarchiveList(bytes);
    ASSERT_TRUE(back);
    ASSERT_EQ(back->size(), 4U);
    EXPECT_NE(dynamic_cast<ZQMIDIEndpointDescriptor*>((*back)[0].get()), nullptr);
    EXPECT_EQ((*back)[1].get(), &real(in));
    EXPECT_EQ((*back)[2], nullptr);
    EXPECT_EQ((*back)[3], (*back)[0]);
}

TEST_F(ArchivedEndpoints, RefusesEveryTruncation) {
    const Source& in = service.addSource("in");
    const Bytes whole = archived(real(in));
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_FALSE(
            unarchived(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length))))
            << length;
    }
}

TEST_F(ArchivedEndpoints, SurvivesGarbledBytes) {
    service.addSource("in");
    service.addDestination("out");
    const ZQMIDIEndpointDescriptor descriptor("d", 1);
    const Bytes whole =
        archive::KeyedArchiver().archivedData({manager().realSources().at(0).get(), &descriptor,
                                               nullptr, manager().realDestinations().at(0).get()});
    archive::readGarbledCopies(whole, archive::KeyedUnarchiver(archivedClasses(manager())));
}

}  // namespace
}  // namespace midi
