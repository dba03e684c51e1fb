#include "midi/keyedArchive.h"

#include <limits>
#include <random>

#include "midi/MidiTest.h"
#include "midi/ZQMIDIVirtualDestination.h"
#include "midi/ZQMIDIVirtualSource.h"
#include "midi/archivedClasses.h"

namespace midi {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Bytes = std::vector<std::uint8_t>;

class KeyedArchive : public MidiTest {
protected:
    static Bytes archived(const Archivable& object) {
        return KeyedArchiver().archivedData(&object);
    }
    std::optional<std::shared_ptr<Archivable>> unarchived(const Bytes& bytes) {
        return KeyedUnarchiver(archivedClasses(manager())).unarchiveObject(bytes);
    }
    template <typename Kind>
    std::shared_ptr<Kind> unarchivedAs(const Bytes& bytes) {
        const auto object = unarchived(bytes);
        EXPECT_TRUE(object.has_value());
        return object ? std::dynamic_pointer_cast<Kind>(*object) : nullptr;
    }
};

/// Writes down what is encoded, in order.
class KeyRecorder final : public KeyedEncoder {
public:
    std::vector<std::string> entries;
    void encodeObject(std::string_view key, const std::optional<std::string>& text) override {
        entries.push_back(std::string(key) + "=" + text.value_or("none"));
    }
    void encodeInt32(std::string_view key, std::int32_t number) override {
        entries.push_back(std::string(key) + "=" + std::to_string(number));
    }
};

TEST_F(KeyedArchive, HoldsAnEndpointsKeysInOrder) {
    const Source& in = service.addDevice("Tormelk").addSource("Port 1");
    KeyRecorder coder;
    real(in).encodeWithCoder(coder);
    EXPECT_THAT(coder.entries,
                ElementsAre("name=Tormelk Port 1", "uniqueID=" + std::to_string(in.uniqueID()),
                            "displayName=Tormelk Port 1"));
}

TEST_F(KeyedArchive, HoldsTheStoredDisplayNameWithoutSuffix) {
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

TEST_F(KeyedArchive, HoldsADescriptorsKeysInOrder) {
    KeyRecorder coder;
    ZQMIDIEndpointDescriptor("Tormelk", 7).encodeWithCoder(coder);
    EXPECT_THAT(coder.entries, ElementsAre("name=Tormelk", "uniqueID=7"));
}

TEST_F(KeyedArchive, HasItsKeysInOrderInTheBytesToo) {
    const Bytes bytes = archived(ZQMIDIEndpoint(manager(), "x", 7));
    const std::string text(bytes.begin(), bytes.end());
    EXPECT_LT(text.find("$class"), text.find("name"));
    EXPECT_LT(text.find("name"), text.find("uniqueID"));
    EXPECT_LT(text.find("uniqueID"), text.find("displayName"));
    EXPECT_NE(text.find("displayName"), std::string::npos);
}

TEST_F(KeyedArchive, GivesADescriptorBack) {
    for (const std::int32_t id : {0, 1, -1, std::numeric_limits<std::int32_t>::max(),
                                  std::numeric_limits<std::int32_t>::min()}) {
        const auto back = unarchivedAs<ZQMIDIEndpointDescriptor>(
            archived(ZQMIDIEndpointDescriptor("Tormelk", id)));
        ASSERT_NE(back, nullptr);
        EXPECT_EQ(back->name(), "Tormelk");
        EXPECT_EQ(back->uniqueID(), id);
    }
}

TEST_F(KeyedArchive, GivesAnyNameBackByteForByte) {
    const std::vector<std::optional<std::string>> names = {
        std::nullopt,           "", "Gerät Ω", std::string("a\0b", 3), "\xFF\xFE broken",
        std::string(70000, 'x')};
    for (const auto& name : names) {
        const auto back =
            unarchivedAs<ZQMIDIEndpointDescriptor>(archived(ZQMIDIEndpointDescriptor(name, 1)));
        ASSERT_NE(back, nullptr);
        EXPECT_EQ(back->name(), name);
    }
}

TEST_F(KeyedArchive, GivesTheManagersOwnSourceBackEveryTime) {
    const Source& in = service.addSource("in");
    const Bytes bytes = archived(real(in));
    EXPECT_EQ(unarchivedAs<ZQMIDIRealSource>(bytes).get(), &real(in));
    EXPECT_EQ(unarchivedAs<ZQMIDIRealSource>(bytes).get(), &real(in));
    EXPECT_EQ(manager().realSources().size(), 1U);
}

TEST_F(KeyedArchive, GivesTheManagersOwnDestinationBackEveryTime) {
    const Destination& out = service.addDestination("out");
    const Bytes bytes = archived(real(out));
    EXPECT_EQ(unarchivedAs<ZQMIDIRealDestination>(bytes).get(), &real(out));
    EXPECT_EQ(unarchivedAs<ZQMIDIRealDestination>(bytes).get(), &real(out));
    EXPECT_EQ(manager().realDestinations().size(), 1U);
}

TEST_F(KeyedArchive, KeepsTheClassApartFromTheName) {
    const Source& in = service.addSource("same");
    const Destination& out = service.addDestination("same");
    EXPECT_EQ(unarchivedAs<ZQMIDIRealSource>(archived(real(in))).get(), &real(in));
    EXPECT_EQ(unarchivedAs<ZQMIDIRealSource>(archived(real(out))), nullptr);
}

TEST_F(KeyedArchive, GivesAnAbsentEndpointBackAsOneThatTheManagerAdopts) {
    Bytes bytes;
    {
        platform::software::SoftwareMidiService elsewhere;
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

TEST_F(KeyedArchive, GivesAPublishedSourceBackAsAFreshOne) {
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

TEST_F(KeyedArchive, GivesAPublishedDestinationBackWithItsOldUniqueID) {
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

TEST_F(KeyedArchive, LeavesAUniqueIDThatIsTakenWithItsOwner) {
    const ZQMIDIVirtualDestination owner(manager(), "Editor");
    const auto back = unarchivedAs<ZQMIDIVirtualDestination>(archived(owner));
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(service.MIDIGetNumberOfDestinations(), 2U);
    EXPECT_EQ(back->name(), "Editor");
    EXPECT_EQ(owner.uniqueID(), 1'700'000'000);
    EXPECT_EQ(back->uniqueID(), 1'700'000'001);
}

TEST_F(KeyedArchive, GivesTheBaseBackEmpty) {
    const auto back = unarchivedAs<ZQMIDIEndpoint>(archived(ZQMIDIEndpoint(manager(), "x", 7)));
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(back->name(), std::nullopt);
    EXPECT_EQ(back->uniqueID(), 0);
}

TEST_F(KeyedArchive, GivesListsBackInOrderWithTheirIdentities) {
    const Source& in = service.addSource("in");
    const ZQMIDIEndpointDescriptor descriptor("d", 1);
    const Bytes bytes =
        KeyedArchiver().archivedData({&descriptor, &real(in), nullptr, &descriptor});
    const auto back = KeyedUnarchiver(archivedClasses(manager())).unarchiveList(bytes);
    ASSERT_TRUE(back);
    ASSERT_EQ(back->size(), 4U);
    EXPECT_NE(dynamic_cast<ZQMIDIEndpointDescriptor*>((*back)[0].get()), nullptr);
    EXPECT_EQ((*back)[1].get(), &real(in));
    EXPECT_EQ((*back)[2], nullptr);
    EXPECT_EQ((*back)[3], (*back)[0]);
}

TEST_F(KeyedArchive, HoldsNothingAndEmptyLists) {
    const auto none = unarchived(KeyedArchiver().archivedData(nullptr));
    ASSERT_TRUE(none);
    EXPECT_EQ(*none, nullptr);
    const auto empty =
        KeyedUnarchiver(archivedClasses(manager()))
            .unarchiveList(KeyedArchiver().archivedData(std::vector<const Archivable*>()));
    ASSERT_TRUE(empty);
    EXPECT_THAT(*empty, IsEmpty());
}

TEST_F(KeyedArchive, TellsAListFromAnObject) {
    const ZQMIDIEndpointDescriptor descriptor("d", 1);
    KeyedUnarchiver unarchiver(archivedClasses(manager()));
    EXPECT_FALSE(unarchiver.unarchiveList(archived(descriptor)));
    EXPECT_FALSE(unarchiver.unarchiveObject(
        KeyedArchiver().archivedData(std::vector<const Archivable*>{&descriptor})));
}

TEST_F(KeyedArchive, AsksTheDelegatesOncePerObject) {
    struct Counter final : KeyedArchiverDelegate, KeyedUnarchiverDelegate {
        int archivedObjects = 0;
        int unarchivedObjects = 0;
        std::shared_ptr<const Archivable> archiver(
            KeyedArchiver&, std::shared_ptr<const Archivable> object) override {
            ++archivedObjects;
            return object;
        }
        std::shared_ptr<Archivable> unarchiver(KeyedUnarchiver&,
                                               std::shared_ptr<Archivable> object) override {
            ++unarchivedObjects;
            return object;
        }
    } counter;
    const ZQMIDIEndpointDescriptor descriptor("d", 1);
    KeyedArchiver archiver;
    archiver.setDelegate(&counter);
    const Bytes bytes = archiver.archivedData({&descriptor, nullptr, &descriptor});
    KeyedUnarchiver unarchiver(archivedClasses(manager()));
    unarchiver.setDelegate(&counter);
    EXPECT_TRUE(unarchiver.unarchiveList(bytes));
    EXPECT_EQ(counter.archivedObjects, 1);
    EXPECT_EQ(counter.unarchivedObjects, 1);
}

TEST_F(KeyedArchive, OfAnUnknownClassIsRefusedBeforeAnythingIsMade) {
    const ZQMIDIVirtualSource source(manager(), "Editor");
    const ZQMIDIEndpointDescriptor descriptor("d", 1);
    const Bytes bytes = KeyedArchiver().archivedData({&source, &descriptor});
    ArchivedClasses classes = archivedClasses(manager());
    classes.erase("ZQMIDIEndpointDescriptor");
    EXPECT_FALSE(KeyedUnarchiver(classes).unarchiveList(bytes));
    EXPECT_EQ(service.publishedEndpoints(), 1U);
}

// --- Bytes that are no archive. The hand-written ones are CBOR: A2 is a map of
// two, 81 a list of one, 60+n a text of n bytes.

Bytes cbor(std::initializer_list<std::string_view> parts) {
    Bytes bytes;
    for (const std::string_view part : parts) {
        bytes.insert(bytes.end(), part.begin(), part.end());
    }
    return bytes;
}

/// An archive of one descriptor with these bytes as its members behind the
/// class, `count` in all.
Bytes descriptorWith(char count, std::string_view members, std::string_view root = {"\x00", 1}) {
    const char mapHead[] = {static_cast<char>('\xA0' + count + 1), 0};
    return cbor({"\xA2\x67objects\x81", mapHead, "\x66$class\x78\x18ZQMIDIEndpointDescriptor",
                 members, "\x64root", root});
}

TEST_F(KeyedArchive, ReadsPlainCborWrittenByHand) {
    const auto back = unarchivedAs<ZQMIDIEndpointDescriptor>(
        descriptorWith(2, std::string_view("\x64name\x63"
                                           "abc\x68uniqueID\x07")));
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(back->name(), "abc");
    EXPECT_EQ(back->uniqueID(), 7);
}

TEST_F(KeyedArchive, TakesMissingOrMistypedMembersAsNone) {
    using namespace std::string_view_literals;
    const std::vector<std::pair<char, std::string_view>> members = {
        {0, ""sv},
        {2,
         "\x64name\x07\x68uniqueID\x61"
         "7"sv},                                                    // swapped types
        {2, "\x64name\xF5\x68uniqueID\xFA\x40\xE0\x00\x00"sv},      // true, a float
        {1, "\x68uniqueID\x1A\x80\x00\x00\x00"sv},                  // 2^31
        {1, "\x68uniqueID\x3A\x80\x00\x00\x00"sv},                  // -2^31 - 1
        {1, "\x68uniqueID\x1B\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF"sv},  // 2^64 - 1
        {1, "\x68uniqueID\x3B\x7F\xFF\xFF\xFF\xFF\xFF\xFF\xFF"sv},  // -2^63
    };
    for (const auto& [count, text] : members) {
        const auto back = unarchivedAs<ZQMIDIEndpointDescriptor>(descriptorWith(count, text));
        ASSERT_NE(back, nullptr);
        EXPECT_EQ(back->name(), std::nullopt);
        EXPECT_EQ(back->uniqueID(), 0);
    }
}

TEST_F(KeyedArchive, RefusesBytesThatAreNoArchive) {
    using namespace std::string_view_literals;
    const std::vector<Bytes> broken = {
        {},
        cbor({"hello"}),
        cbor({"\xA0"}),
        cbor({"\x80"}),
        cbor({"\xF6"}),
        cbor({"\xA1\x64root\xF6"}),                       // no objects
        cbor({"\xA1\x67objects\x80"}),                    // no root
        cbor({"\xA2\x67objects\x80\x64root", "\x00"sv}),  // root beyond the objects
        cbor({"\xA2\x67objects\xA0\x64root\xF6"}),        // objects no list
        cbor({"\xA2\x67objects\x81\x01\x64root\xF6"}),    // an object no map
        cbor({"\xA2\x67objects\x81\xA0\x64root\xF6"}),    // an object without a class
        cbor({"\xA2\x67objects\x81\xA1\x66$class\x01\x64root\xF6"}),
        cbor({"\xA2\x67objects\x81\xA1\x66$class\x63NSX\x64root\xF6"}),
        descriptorWith(1, "\x64name\x80"),  // deeper than an archive is
        descriptorWith(0, "", "\x20"),      // root -1
        descriptorWith(0, "", "\x01"),      // root 1 of 1
        descriptorWith(0, "",
                       "\x61"
                       "0"),                // root a text
        descriptorWith(0, "", "\xA0"),      // root a map
        descriptorWith(0, "", "\x81\xF6"),  // root a list
        descriptorWith(0, "", "\x1B\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF"),
        descriptorWith(0, "", "\xFB\x7F\xF8\x00\x00\x00\x00\x00\x00"sv),  // root not a number
    };
    for (std::size_t i = 0; i < broken.size(); ++i) {
        EXPECT_FALSE(unarchived(broken[i])) << i;
    }
    KeyedUnarchiver unarchiver(archivedClasses(manager()));
    EXPECT_FALSE(unarchiver.unarchiveList(descriptorWith(0, "", "\x82\xF6\x01")));
    EXPECT_FALSE(unarchiver.unarchiveList(descriptorWith(0, "", "\x81\x80")));
}

TEST_F(KeyedArchive, RefusesTrailingBytes) {
    Bytes bytes = archived(ZQMIDIEndpointDescriptor("d", 1));
    bytes.push_back(0);
    EXPECT_FALSE(unarchived(bytes));
}

TEST_F(KeyedArchive, RefusesEveryTruncation) {
    const Source& in = service.addSource("in");
    const Bytes whole = archived(real(in));
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_FALSE(
            unarchived(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length))))
            << length;
    }
}

TEST_F(KeyedArchive, RefusesHostileDepthAndLength) {
    for (const int nesting : {0x81, 0x9F, 0xA1, 0xBF, 0x5F, 0x7F, 0xC0, 0xD9}) {
        EXPECT_FALSE(unarchived(Bytes(2'000'000, static_cast<std::uint8_t>(nesting))));
    }
    for (const int head : {0x9B, 0xBB, 0x5B, 0x7B}) {
        for (const int fill : {0xFF, 0x7F, 0x0F}) {
            Bytes bytes(9, static_cast<std::uint8_t>(fill));
            bytes[0] = static_cast<std::uint8_t>(head);
            EXPECT_FALSE(unarchived(bytes));
            const std::string length(bytes.begin(), bytes.end());
            EXPECT_FALSE(unarchived(descriptorWith(1, "\x64name" + length)));
        }
    }
}

TEST_F(KeyedArchive, SurvivesGarbledBytes) {
    service.addSource("in");
    service.addDestination("out");
    const ZQMIDIEndpointDescriptor descriptor("d", 1);
    const Bytes whole =
        KeyedArchiver().archivedData({manager().realSources().at(0).get(), &descriptor, nullptr,
                                      manager().realDestinations().at(0).get()});
    KeyedUnarchiver unarchiver(archivedClasses(manager()));
    std::mt19937 random(20240229);  // the same bytes in every run
    const auto below = [&](std::size_t end) {
        return std::uniform_int_distribution<std::size_t>(0, end - 1)(random);
    };
    int accepted = 0;
    for (int round = 0; round < 20'000; ++round) {
        Bytes bytes = whole;
        for (std::size_t changes = 1 + below(4); changes > 0; --changes) {
            switch (below(3)) {
                case 0:
                    bytes[below(bytes.size())] = static_cast<std::uint8_t>(below(256));
                    break;
                case 1:
                    bytes.erase(bytes.begin() + static_cast<std::ptrdiff_t>(below(bytes.size())));
                    break;
                default:
                    bytes.insert(bytes.begin() + static_cast<std::ptrdiff_t>(below(bytes.size())),
                                 static_cast<std::uint8_t>(below(256)));
            }
        }
        const auto objects = unarchiver.unarchiveList(bytes);
        if (objects) {
            ++accepted;
            EXPECT_LE(objects->size(), bytes.size());
        }
    }
    // Some changes only touch a name or a number, so both answers must have been
    // given.
    EXPECT_GT(accepted, 0);
    EXPECT_LT(accepted, 20'000);
}

TEST_F(KeyedArchive, SurvivesRandomBytes) {
    std::mt19937 random(4);
    std::uniform_int_distribution<int> byte(0, 255);
    std::uniform_int_distribution<std::size_t> size(0, 64);
    for (int round = 0; round < 20'000; ++round) {
        Bytes bytes(size(random));
        for (std::uint8_t& entry : bytes) {
            entry = static_cast<std::uint8_t>(byte(random));
        }
        EXPECT_FALSE(unarchived(bytes));
    }
}

}  // namespace
}  // namespace midi
