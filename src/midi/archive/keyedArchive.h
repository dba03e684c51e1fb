#pragma once

// Keyed archives: objects written as bytes under the names of their classes, each with named
// texts and numbers, and read back.
//
//     KeyedArchiver archiver;
//     const std::vector<std::uint8_t> bytes = archiver.archivedData(&endpoint);
//
//     KeyedUnarchiver unarchiver(classes);   // how the objects of each class are made
//     const auto object = unarchiver.unarchiveObject(bytes);   // none: the bytes are no archive
//
// An object that stands several times in a list is written once and read back as one object.

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace midi::archive {

/// What an object writes itself into.
class KeyedEncoder {
public:
    KeyedEncoder() = default;
    KeyedEncoder(const KeyedEncoder&) = delete;
    KeyedEncoder& operator=(const KeyedEncoder&) = delete;
    virtual ~KeyedEncoder() = default;

    /// A text, which may be none. The bytes are kept as they are.
    virtual void encodeObject(std::string_view key, const std::optional<std::string>& text) = 0;
    virtual void encodeInt32(std::string_view key, std::int32_t number) = 0;
};

/// What an object is made from again.
class KeyedDecoder {
public:
    KeyedDecoder() = default;
    KeyedDecoder(const KeyedDecoder&) = delete;
    KeyedDecoder& operator=(const KeyedDecoder&) = delete;
    virtual ~KeyedDecoder() = default;

    /// None where the key is absent or holds something else.
    [[nodiscard]] virtual std::optional<std::string> decodeObject(std::string_view key) const = 0;
    /// 0 where the key is absent or holds something else.
    [[nodiscard]] virtual std::int32_t decodeInt32(std::string_view key) const = 0;
};

class Archivable {
public:
    Archivable() = default;
    virtual ~Archivable() = default;

    /// The name under which the object's class stands in an archive.
    [[nodiscard]] virtual std::string_view archivedClassName() const = 0;
    virtual void encodeWithCoder(KeyedEncoder& coder) const = 0;

protected:
    Archivable(const Archivable&) = default;
    Archivable& operator=(const Archivable&) = default;
};

/// A reference that does not own, where one that may own is asked for.
template <typename Object>
[[nodiscard]] std::shared_ptr<Object> borrowed(Object& object) {
    return std::shared_ptr<Object>(std::shared_ptr<void>(), &object);
}

class KeyedArchiver;
class KeyedUnarchiver;

class KeyedArchiverDelegate {
public:
    KeyedArchiverDelegate() = default;
    virtual ~KeyedArchiverDelegate() = default;

    /// What is written in place of `object`; none is written as none.
    [[nodiscard]] virtual std::shared_ptr<const Archivable> archiver(
        KeyedArchiver& archiver, std::shared_ptr<const Archivable> object) = 0;

protected:
    KeyedArchiverDelegate(const KeyedArchiverDelegate&) = default;
    KeyedArchiverDelegate& operator=(const KeyedArchiverDelegate&) = default;
};

class KeyedUnarchiverDelegate {
public:
    KeyedUnarchiverDelegate() = default;
    virtual ~KeyedUnarchiverDelegate() = default;

    /// What is handed on in place of a decoded `object`; may be none.
    [[nodiscard]] virtual std::shared_ptr<Archivable> unarchiver(
        KeyedUnarchiver& unarchiver, std::shared_ptr<Archivable> object) = 0;

protected:
    KeyedUnarchiverDelegate(const KeyedUnarchiverDelegate&) = default;
    KeyedUnarchiverDelegate& operator=(const KeyedUnarchiverDelegate&) = default;
};

class KeyedArchiver {
public:
    /// The delegate must outlive its use here.
    void setDelegate(KeyedArchiverDelegate* delegate) { delegate_ = delegate; }

    /// `object` may be none.
    [[nodiscard]] std::vector<std::uint8_t> archivedData(const Archivable* object);
    [[nodiscard]] std::vector<std::uint8_t> archivedData(
        const std::vector<const Archivable*>& objects);

private:
    class Writer;
    KeyedArchiverDelegate* delegate_ = nullptr;
};

/// How the objects of each class are made from an archive, by the name of the class. A maker may
/// hand out an object that exists already.
using ArchivedClasses =
    std::map<std::string, std::function<std::shared_ptr<Archivable>(const KeyedDecoder&)>,
             std::less<>>;

/// Reads any bytes: what is not a whole archive of known classes, in the shape that is asked for,
/// gives none, and no object has been made then.
class KeyedUnarchiver {
public:
    explicit KeyedUnarchiver(ArchivedClasses classes) : classes_(std::move(classes)) {}

    /// The delegate must outlive its use here.
    void setDelegate(KeyedUnarchiverDelegate* delegate) { delegate_ = delegate; }

    /// The object may itself be none: it was archived so, or the delegate made it so.
    [[nodiscard]] std::optional<std::shared_ptr<Archivable>> unarchiveObject(
        std::span<const std::uint8_t> bytes);
    [[nodiscard]] std::optional<std::vector<std::shared_ptr<Archivable>>> unarchiveList(
        std::span<const std::uint8_t> bytes);

private:
    class Reader;
    ArchivedClasses classes_;
    KeyedUnarchiverDelegate* delegate_ = nullptr;
};

}  // namespace midi::archive
