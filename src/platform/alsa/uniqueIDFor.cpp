#include "platform/alsa/uniqueIDFor.h"

#include <bit>

namespace platform::alsa {
namespace {

/// The hash of Fowler, Noll and Vo in 32 bits (FNV-1a). It must never change: IDs are archived.
class Hash {
public:
    void add(std::uint8_t byte) { value_ = (value_ ^ byte) * 16777619U; }
    /// A text and its end, so that "ab","c" differs from "a","bc".
    void add(std::string_view text) {
        for (const char letter : text) {
            add(static_cast<std::uint8_t>(letter));
        }
        add(std::uint8_t{0});
    }
    [[nodiscard]] std::uint32_t value() const { return value_; }

private:
    std::uint32_t value_ = 2166136261U;
};

}  // namespace

std::int32_t uniqueIDFor(std::string_view clientName, std::string_view portName,
                         Direction direction, unsigned int occurrence,
                         const std::function<bool(std::int32_t)>& isTaken) {
    Hash hash;
    hash.add(clientName);
    hash.add(portName);
    hash.add(std::uint8_t{direction == Direction::Source ? std::uint8_t{1} : std::uint8_t{2}});
    for (unsigned int rest = occurrence; rest != 0; rest >>= 8U) {
        hash.add(static_cast<std::uint8_t>(rest & 0xFFU));
    }
    std::uint32_t id = hash.value();
    while (id == 0 || isTaken(std::bit_cast<std::int32_t>(id))) {
        ++id;
    }
    return std::bit_cast<std::int32_t>(id);
}

}  // namespace platform::alsa
