#include "midi/ZQMIDIEndpointSet.h"

#include <typeinfo>

#include "midi/MidiTest.h"
#include "midi/archivedClasses.h"

namespace midi {
namespace {

class EndpointSet : public MidiTest {
protected:
    void TearDown() override {
        endpoints.clear();
        MidiTest::TearDown();
    }
    ZQMIDIEndpoint& add(std::optional<std::string> name, std::int32_t uniqueID) {
        endpoints.push_back(std::make_unique<ZQMIDIEndpoint>(manager(), std::move(name), uniqueID));
        return *endpoints.back();
    }
    std::vector<std::unique_ptr<ZQMIDIEndpoint>> endpoints;
    ZQMIDIEndpointSet set = ZQMIDIEndpointSet::endpointSetWithArray(endpoints);
};

TEST_F(EndpointSet, FindsByUniqueIDBeforeName) {
    add("Tormelk", 1);
    ZQMIDIEndpoint& byID = add("Other", 2);
    EXPECT_EQ(set.endpointWithDescriptor({"Tormelk", 2}), &byID);
}

TEST_F(EndpointSet, FindsByExactNameWhenNoUniqueIDMatches) {
    add("tormelk", 1);
    ZQMIDIEndpoint& byName = add("Tormelk", 2);
    add("Tormelk", 3);
    EXPECT_EQ(set.endpointWithDescriptor({"Tormelk", 9}), &byName);
}

TEST_F(EndpointSet, FindsTheFirstOfSeveral) {
    ZQMIDIEndpoint& first = add("a", 1);
    add("b", 1);
    EXPECT_EQ(set.endpointWithDescriptor({"b", 1}), &first);
}

TEST_F(EndpointSet, FindsNothingForAnUnknownDescriptor) {
    EXPECT_EQ(set.endpointWithDescriptor({"Tormelk", 9}), nullptr);
    add("Tormelk", 1);
    add(std::nullopt, 2);
    EXPECT_EQ(set.endpointWithDescriptor({"TORMELK", 9}), nullptr);
    EXPECT_EQ(set.endpointWithDescriptor({std::nullopt, 9}), nullptr);
}

TEST_F(EndpointSet, StandsOverTheListItself) {
    EXPECT_EQ(set.endpointWithDescriptor({"late", 4}), nullptr);
    ZQMIDIEndpoint& late = add("late", 4);
    EXPECT_EQ(set.endpointWithDescriptor({"late", 4}), &late);
}

TEST_F(EndpointSet, WritesDescriptorsInPlaceOfItsEndpointsOnly) {
    ZQMIDIEndpoint& member = add("member", 4);
    ZQMIDIEndpoint stranger(manager(), "member", 4);
    archive::KeyedArchiver archiver;
    const auto replaced =
        set.archiver(archiver, archive::borrowed<const archive::Archivable>(member));
    const auto* const descriptor = dynamic_cast<const ZQMIDIEndpointDescriptor*>(replaced.get());
    ASSERT_NE(descriptor, nullptr);
    EXPECT_EQ(descriptor->name(), "member");
    EXPECT_EQ(descriptor->uniqueID(), 4);
    EXPECT_EQ(set.archiver(archiver, archive::borrowed<const archive::Archivable>(stranger)).get(),
              &stranger);
}

TEST_F(EndpointSet, PutsEndpointsInPlaceOfDescriptors) {
    ZQMIDIEndpoint& member = add("member", 4);
    archive::KeyedUnarchiver unarchiver(archivedClasses(manager()));
    const auto decoded = [&](archive::Archivable& object) {
        return set.unarchiver(unarchiver, archive::borrowed(object));
    };
    ZQMIDIEndpointDescriptor known("x", 4);
    ZQMIDIEndpointDescriptor unknown("x", 5);
    EXPECT_EQ(decoded(known).get(), &member);
    EXPECT_EQ(decoded(unknown), nullptr);
    EXPECT_EQ(decoded(member).get(), &member);
    EXPECT_EQ(set.unarchiver(unarchiver, nullptr), nullptr);
}

TEST_F(EndpointSet, LeavesSubclassesOfDescriptorsAlone) {
    class SpecialDescriptor final : public ZQMIDIEndpointDescriptor {
        using ZQMIDIEndpointDescriptor::ZQMIDIEndpointDescriptor;
    };
    add("member", 4);
    archive::KeyedUnarchiver unarchiver(archivedClasses(manager()));
    SpecialDescriptor special("member", 4);
    EXPECT_EQ(set.unarchiver(unarchiver, archive::borrowed<archive::Archivable>(special)).get(),
              &special);
}

TEST_F(EndpointSet, SwapsEndpointsThroughAWholeArchive) {
    ZQMIDIEndpoint& one = add("one", 1);
    ZQMIDIEndpoint& two = add("two", 2);
    archive::KeyedArchiver archiver;
    archiver.setDelegate(&set);
    const auto bytes = archiver.archivedData({&two, nullptr, &one, &two});
    archive::KeyedUnarchiver unarchiver(archivedClasses(manager()));
    unarchiver.setDelegate(&set);
    auto objects = unarchiver.unarchiveList(bytes);
    ASSERT_TRUE(objects);
    ASSERT_EQ(objects->size(), 4U);
    EXPECT_EQ((*objects)[0].get(), &two);
    EXPECT_EQ((*objects)[1], nullptr);
    EXPECT_EQ((*objects)[2].get(), &one);
    EXPECT_EQ((*objects)[3].get(), &two);
    endpoints.pop_back();  // nobody matches "two" any more
    objects = unarchiver.unarchiveList(bytes);
    ASSERT_TRUE(objects);
    EXPECT_EQ((*objects)[0], nullptr);
    EXPECT_EQ((*objects)[2].get(), &one);
}

TEST(Descriptor, KeepsItsNameAndUniqueID) {
    const ZQMIDIEndpointDescriptor descriptor("Tormelk", -3);
    EXPECT_EQ(descriptor.name(), "Tormelk");
    EXPECT_EQ(descriptor.uniqueID(), -3);
    EXPECT_EQ(ZQMIDIEndpointDescriptor(std::nullopt, 0).name(), std::nullopt);
}

}  // namespace
}  // namespace midi
