#include "midi/archive/keyedArchive.h"

#include <cstddef>
#include <exception>
#include <limits>
#include <nlohmann/json.hpp>
#include <unordered_map>
#include <utility>

// The bytes are CBOR:
//
//   {"objects": [{"$class": "ZQMIDIRealSource", "name": "Tormelk", ...}, ...],
//    "root": 0}            an object by its place in "objects"; null is none
//    "root": [0, null, 1]  a list of them

namespace midi::archive {

using Json = nlohmann::ordered_json;

namespace {

/// Walks over the bytes before anything is read from them: the reader recurses without a limit, and
/// hostile bytes can nest as deep as they are long. An archive nests three deep, and every length
/// in it is told in advance.
class ShapeCheck {
public:
    explicit ShapeCheck(std::span<const std::uint8_t> bytes) : rest_(bytes) {}

    /// Whether the bytes are one value of that shape and nothing else.
    bool isArchive() { return skipValue(0) && rest_.empty(); }

private:
    enum Major : std::uint8_t { Unsigned, Negative, Binary, Text, List, Map, Tag, Simple };
    static constexpr int deepest = 3;

    // NOLINTNEXTLINE(misc-no-recursion): it ends at the depth of an archive.
    bool skipValue(int depth) {
        if (rest_.empty()) {
            return false;
        }
        const auto major = static_cast<Major>(rest_[0] >> 5U);
        const std::optional<std::uint64_t> argument = takeHead();
        if (!argument) {
            return false;
        }
        switch (major) {
            case Unsigned:
            case Negative:
            case Simple:
                return true;
            case Text:
                return skipBytes(*argument);
            case List:
                return depth < deepest && skipValues(*argument, depth + 1);
            case Map:
                return depth < deepest && skipValues(*argument, depth + 1) &&
                       skipValues(*argument, depth + 1);
            case Binary:
            case Tag:
                break;
        }
        return false;
    }

    // NOLINTNEXTLINE(misc-no-recursion)
    bool skipValues(std::uint64_t count, int depth) {
        for (; count > 0; --count) {
            if (!skipValue(depth)) {
                return false;
            }
        }
        return true;
    }

    bool skipBytes(std::uint64_t count) {
        if (count > rest_.size()) {
            return false;
        }
        rest_ = rest_.subspan(static_cast<std::size_t>(count));
        return true;
    }

    /// The number in or behind the first byte; none for a length that is not told in advance.
    std::optional<std::uint64_t> takeHead() {
        const unsigned information = rest_[0] & 0x1FU;
        rest_ = rest_.subspan(1);
        if (information < 24) {
            return information;
        }
        const std::size_t size = std::size_t{1} << (information - 24);
        if (information > 27 || size > rest_.size()) {
            return std::nullopt;
        }
        std::uint64_t number = 0;
        for (std::size_t i = 0; i < size; ++i) {
            number = number << 8U | rest_[i];
        }
        rest_ = rest_.subspan(size);
        return number;
    }

    std::span<const std::uint8_t> rest_;
};

const Json* member(const Json& object, std::string_view key) {
    const auto found = object.find(std::string(key));
    return found == object.end() ? nullptr : &*found;
}

}  // namespace

class KeyedArchiver::Writer final : public KeyedEncoder {
public:
    explicit Writer(KeyedArchiver& archiver) : archiver_(archiver) {}

    void encodeObject(std::string_view key, const std::optional<std::string>& text) override {
        (*current_)[std::string(key)] = text ? Json(*text) : Json(nullptr);
    }
    void encodeInt32(std::string_view key, std::int32_t number) override {
        (*current_)[std::string(key)] = number;
    }

    /// The object's place in the archive.
    Json placeOf(const Archivable* object) {
        if (object == nullptr) {
            return nullptr;
        }
        const auto known = places_.find(object);
        return known != places_.end() ? known->second : places_[object] = write(*object);
    }

    [[nodiscard]] std::vector<std::uint8_t> bytes(Json root) {
        return Json::to_cbor(Json{{"objects", std::move(objects_)}, {"root", std::move(root)}});
    }

private:
    Json write(const Archivable& object) {
        std::shared_ptr<const Archivable> written = borrowed(object);
        if (archiver_.delegate_ != nullptr) {
            written = archiver_.delegate_->archiver(archiver_, std::move(written));
        }
        if (written == nullptr) {
            return nullptr;
        }
        Json entry = {{"$class", written->archivedClassName()}};
        current_ = &entry;
        written->encodeWithCoder(*this);
        objects_.push_back(std::move(entry));
        return objects_.size() - 1;
    }

    KeyedArchiver& archiver_;
    Json objects_ = Json::array();
    Json* current_ = nullptr;
    std::unordered_map<const Archivable*, Json> places_;
};

std::vector<std::uint8_t> KeyedArchiver::archivedData(const Archivable* object) {
    Writer writer(*this);
    Json root = writer.placeOf(object);
    return writer.bytes(std::move(root));
}

std::vector<std::uint8_t> KeyedArchiver::archivedData(
    const std::vector<const Archivable*>& objects) {
    Writer writer(*this);
    Json root = Json::array();
    for (const Archivable* object : objects) {
        root.push_back(writer.placeOf(object));
    }
    return writer.bytes(std::move(root));
}

namespace {

class ObjectDecoder final : public KeyedDecoder {
public:
    explicit ObjectDecoder(const Json& object) : object_(object) {}

    [[nodiscard]] std::optional<std::string> decodeObject(std::string_view key) const override {
        const Json* const value = member(object_, key);
        if (value == nullptr || !value->is_string()) {
            return std::nullopt;
        }
        return value->get<std::string>();
    }
    [[nodiscard]] std::int32_t decodeInt32(std::string_view key) const override {
        const Json* const value = member(object_, key);
        if (value == nullptr || !value->is_number_integer()) {
            return 0;
        }
        // A number beyond 64 bits signed is beyond 32 bits too.
        if (value->is_number_unsigned() &&
            value->get<std::uint64_t>() > std::uint64_t{std::numeric_limits<std::int32_t>::max()}) {
            return 0;
        }
        const auto number = value->get<std::int64_t>();
        return number < std::numeric_limits<std::int32_t>::min() ||
                       number > std::numeric_limits<std::int32_t>::max()
                   ? 0
                   : static_cast<std::int32_t>(number);
    }

private:
    const Json& object_;
};

}  // namespace

class KeyedUnarchiver::Reader {
public:
    explicit Reader(KeyedUnarchiver& unarchiver) : unarchiver_(unarchiver) {}

    /// The root if the bytes are an archive of known classes. Nothing is made yet.
    const Json* open(std::span<const std::uint8_t> bytes) {
        if (!parse(bytes) || !archive_.is_object()) {
            return nullptr;
        }
        objects_ = member(archive_, "objects");
        if (objects_ == nullptr || !objects_->is_array()) {
            return nullptr;
        }
        for (const Json& object : *objects_) {
            makers_.push_back(makerOf(object));
            if (makers_.back() == nullptr) {
                return nullptr;
            }
        }
        return member(archive_, "root");
    }

    [[nodiscard]] bool isPlace(const Json& place) const {
        return place.is_null() ||
               (place.is_number_unsigned() && place.get<std::uint64_t>() < objects_->size());
    }

    std::shared_ptr<Archivable> objectAt(const Json& place) {
        if (place.is_null()) {
            return nullptr;
        }
        const auto index = place.get<std::size_t>();
        const auto known = made_.find(index);
        return known != made_.end() ? known->second : made_[index] = make(index);
    }

private:
    bool parse(std::span<const std::uint8_t> bytes) {
        if (!ShapeCheck(bytes).isArchive()) {
            return false;
        }
        try {
            archive_ = Json::from_cbor(bytes.begin(), bytes.end(), true, false);
        } catch (const std::exception&) {
            return false;  // what it does not report it throws, also when told not to
        }
        return !archive_.is_discarded();
    }

    [[nodiscard]] const ArchivedClasses::mapped_type* makerOf(const Json& object) const {
        const Json* const name = object.is_object() ? member(object, "$class") : nullptr;
        if (name == nullptr || !name->is_string()) {
            return nullptr;
        }
        const auto maker = unarchiver_.classes_.find(name->get_ref<const std::string&>());
        return maker == unarchiver_.classes_.end() ? nullptr : &maker->second;
    }

    std::shared_ptr<Archivable> make(std::size_t index) {
        std::shared_ptr<Archivable> made = (*makers_[index])(ObjectDecoder((*objects_)[index]));
        if (unarchiver_.delegate_ != nullptr) {
            made = unarchiver_.delegate_->unarchiver(unarchiver_, std::move(made));
        }
        return made;
    }

    KeyedUnarchiver& unarchiver_;
    Json archive_;
    const Json* objects_ = nullptr;
    std::vector<const ArchivedClasses::mapped_type*> makers_;  // of each object
    std::unordered_map<std::size_t, std::shared_ptr<Archivable>> made_;
};

std::optional<std::shared_ptr<Archivable>> KeyedUnarchiver::unarchiveObject(
    std::span<const std::uint8_t> bytes) {
    Reader reader(*this);
    const Json* const root = reader.open(bytes);
    if (root == nullptr || !reader.isPlace(*root)) {
        return std::nullopt;
    }
    return reader.objectAt(*root);
}

std::optional<std::vector<std::shared_ptr<Archivable>>> KeyedUnarchiver::unarchiveList(
    std::span<const std::uint8_t> bytes) {
    Reader reader(*this);
    const Json* const root = reader.open(bytes);
    if (root == nullptr || !root->is_array()) {
        return std::nullopt;
    }
    for (const Json& place : *root) {
        if (!reader.isPlace(place)) {
            return std::nullopt;
        }
    }
    std::vector<std::shared_ptr<Archivable>> objects;
    for (const Json& place : *root) {
        objects.push_back(reader.objectAt(place));
    }
    return objects;
}

}  // namespace midi::archive
