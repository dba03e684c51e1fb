#include "midi/archive/keyedArchive.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <utility>

#include "midi/archive/garbled.h"

namespace midi::archive {
namespace {

using ::testing::IsEmpty;

using Bytes = std::vector<std::uint8_t>;

/// A text and a number.
class Pair : public Archivable {
public:
    Pair(std::optional<std::string> itsName, std::int32_t itsNumber)
        : name(std::move(itsName)), number(itsNumber) {}
    explicit Pair(const KeyedDecoder& coder)
        : name(coder.decodeObject("name")), number(coder.decodeInt32("number")) {}

    [[nodiscard]] std::string_view archivedClassName() const override { return "Pair"; }
    void encodeWithCoder(KeyedEncoder& coder) const override {
        coder.encodeObject("name", name);
        coder.encodeInt32("number", number);
    }

    std::optional<std::string> name;
    std::int32_t number;
};

/// Holds nothing, for there is only one.
class Only final : public Archivable {
public:
    [[nodiscard]] std::string_view archivedClassName() const override { return "Only"; }
    void encodeWithCoder(KeyedEncoder&) const override {}
};

class KeyedArchive : public testing::Test {
protected:
    static Bytes archived(const Archivable& object) {
        return KeyedArchiver().archivedData(&object);
    }
    std::optional<std::shared_ptr<Archivable>> unarchived(const Bytes& bytes) {
        return KeyedUnarchiver(classes).unarchiveObject(bytes);
    }
    std::shared_ptr<Pair> unarchivedPair(const Bytes& bytes) {
        const auto object = unarchived(bytes);
        EXPECT_TRUE(object.has_value());
        return object ? std::dynamic_pointer_cast<Pair>(*object) : nullptr;
    }

    int made = 0;
    Only only;
    ArchivedClasses classes{{"Pair",
                             [this](const KeyedDecoder& coder) {
                                 ++made;
                                 return std::make_shared<Pair>(coder);
                             }},
                            {"Only", [this](const KeyedDecoder&) {
                                 ++made;
                                 return borrowed<Archivable>(only);
                             }}};
};

TEST_F(KeyedArchive, HasTheKeysInOrderInTheBytes) {
    const Bytes bytes = archived(Pair("x", 7));
    const std::string text(bytes.begin(), bytes.end());
    EXPECT_LT(text.find("$class"), text.find("name"));
    EXPECT_LT(text.find("name"), text.find("number"));
    EXPECT_NE(text.find("number"), std::string::npos);
}

TEST_F(KeyedArchive, GivesAnyNumberBack) {
    for (const std::int32_t id : {0, 1, -1, std::numeric_limits<std::int32_t>::max(),
                                  std::numeric_limits<std::int32_t>::min()}) {
        const auto back = unarchivedPair(archived(Pair("Tormelk", id)));
        ASSERT_NE(back, nullptr);
        EXPECT_EQ(back->name, "Tormelk");
        EXPECT_EQ(back->number, id);
    }
}

TEST_F(KeyedArchive, GivesAnyNameBackByteForByte) {
    const std::vector<std::optional<std::string>> names = {
        std::nullopt,           "", "Gerät Ω", std::string("a\0b", 3), "\xFF\xFE broken",
        std::string(70000, 'x')};
    for (const auto& name : names) {
        const auto back = unarchivedPair(archived(Pair(name, 1)));
        ASSERT_NE(back, nullptr);
        EXPECT_EQ(back->name, name);
    }
}

TEST_F(KeyedArchive, HoldsNothingAndEmptyLists) {
    const auto none = unarchived(KeyedArchiver().archivedData(nullptr));
    ASSERT_TRUE(none);
    EXPECT_EQ(*none, nullptr);
    const auto empty = KeyedUnarchiver(classes).unarchiveList(
        KeyedArchiver().archivedData(std::vector<const Archivable*>()));
    ASSERT_TRUE(empty);
    EXPECT_THAT(*empty, IsEmpty());
}

TEST_F(KeyedArchive, GivesListsBackInOrderWithTheirIdentities) {
    const Pair pair("d", 1);
    const Bytes bytes = KeyedArchiver().archivedData({&pair, &only, nullptr, &pair});
    const auto back = KeyedUnarchiver(classes).unarchiveList(bytes);
    ASSERT_TRUE(back);
    ASSERT_EQ(back->size(), 4U);
    EXPECT_NE(dynamic_cast<Pair*>((*back)[0].get()), nullptr);
    EXPECT_EQ((*back)[1].get(), &only);
    EXPECT_EQ((*back)[2], nullptr);
    EXPECT_EQ((*back)[3], (*back)[0]);
}

TEST_F(KeyedArchive, TellsAListFromAnObject) {
    const Pair pair("d", 1);
    KeyedUnarchiver unarchiver(classes);
    EXPECT_FALSE(unarchiver.unarchiveList(archived(pair)));
    EXPECT_FALSE(unarchiver.unarchiveObject(
        KeyedArchiver().archivedData(std::vector<const Archivable*>{&pair})));
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
    const Pair pair("d", 1);
    KeyedArchiver archiver;
    archiver.setDelegate(&counter);
    const Bytes bytes = archiver.archivedData({&pair, nullptr, &pair});
    KeyedUnarchiver unarchiver(classes);
    unarchiver.setDelegate(&counter);
    EXPECT_TRUE(unarchiver.unarchiveList(bytes));
    EXPECT_EQ(counter.archivedObjects, 1);
    EXPECT_EQ(counter.unarchivedObjects, 1);
}

TEST_F(KeyedArchive, OfAnUnknownClassIsRefusedBeforeAnythingIsMade) {
    const Pair pair("d", 1);
    const Bytes bytes = KeyedArchiver().archivedData({&only, &pair});
    classes.erase("Pair");
    EXPECT_FALSE(KeyedUnarchiver(classes).unarchiveList(bytes));
    EXPECT_EQ(made, 0);
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

/// An archive of one pair with these bytes as its members behind the
/// class, `count` in all.
Bytes pairWith(char count, std::string_view members, std::string_view root = {"\x00", 1}) {
    const char mapHead[] = {static_cast<char>('\xA0' + count + 1), 0};
    return cbor({"\xA2\x67objects\x81", mapHead, "\x66$class\x64Pair", members, "\x64root", root});
}

TEST_F(KeyedArchive, ReadsPlainCborWrittenByHand) {
    const auto back = unarchivedPair(pairWith(2, std::string_view("\x64name\x63"
                                                                  "abc\x66number\x07")));
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(back->name, "abc");
    EXPECT_EQ(back->number, 7);
}

TEST_F(KeyedArchive, TakesMissingOrMistypedMembersAsNone) {
    using namespace std::string_view_literals;
    const std::vector<std::pair<char, std::string_view>> members = {
        {0, ""sv},
        {2,
         "\x64name\x07\x66number\x61"
         "7"sv},                                                  // swapped types
        {2, "\x64name\xF5\x66number\xFA\x40\xE0\x00\x00"sv},      // true, a float
        {1, "\x66number\x1A\x80\x00\x00\x00"sv},                  // 2^31
        {1, "\x66number\x3A\x80\x00\x00\x00"sv},                  // -2^31 - 1
        {1, "\x66number\x1B\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF"sv},  // 2^64 - 1
        {1, "\x66number\x3B\x7F\xFF\xFF\xFF\xFF\xFF\xFF\xFF"sv},  // -2^63
    };
    for (const auto& [count, text] : members) {
        const auto back = unarchivedPair(pairWith(count, text));
        ASSERT_NE(back, nullptr);
        EXPECT_EQ(back->name, std::nullopt);
        EXPECT_EQ(back->number, 0);
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
        pairWith(1, "\x64name\x80"),  // deeper than an archive is
        pairWith(0, "", "\x20"),      // root -1
        pairWith(0, "", "\x01"),      // root 1 of 1
        pairWith(0, "",
                 "\x61"
                 "0"),                // root a text
        pairWith(0, "", "\xA0"),      // root a map
        pairWith(0, "", "\x81\xF6"),  // root a list
        pairWith(0, "", "\x1B\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF"),
        pairWith(0, "", "\xFB\x7F\xF8\x00\x00\x00\x00\x00\x00"sv),  // root not a number
    };
    for (std::size_t i = 0; i < broken.size(); ++i) {
        EXPECT_FALSE(unarchived(broken[i])) << i;
    }
    KeyedUnarchiver unarchiver(classes);
    EXPECT_FALSE(unarchiver.unarchiveList(pairWith(0, "", "\x82\xF6\x01")));
    EXPECT_FALSE(unarchiver.unarchiveList(pairWith(0, "", "\x81\x80")));
}

TEST_F(KeyedArchive, RefusesTrailingBytes) {
    Bytes bytes = archived(Pair("d", 1));
    bytes.push_back(0);
    EXPECT_FALSE(unarchived(bytes));
}

TEST_F(KeyedArchive, RefusesEveryTruncation) {
    const Bytes whole = archived(Pair("in", 5));
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
            EXPECT_FALSE(unarchived(pairWith(1, "\x64name" + length)));
        }
    }
}

TEST_F(KeyedArchive, SurvivesGarbledBytes) {
    const Pair other("out", -5);
    const Pair pair("d", 1);
    const Bytes whole = KeyedArchiver().archivedData({&only, &pair, nullptr, &other});
    readGarbledCopies(whole, KeyedUnarchiver(classes));
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
}  // namespace midi::archive
