#include "config/presetText.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace config {
namespace {

constexpr bool isBlank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}
constexpr bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Takes numbers off the front of a text.
class NumberReader {
public:
    explicit NumberReader(std::string_view text) : at_(text.data()), end_(at_ + text.size()) {}

    /// The low eight bits of the next number; none where there is no number.
    std::optional<std::uint8_t> next() {
        while (at_ != end_ && isBlank(*at_)) {
            ++at_;
        }
        const bool negative = at_ != end_ && *at_ == '-';
        if (at_ != end_ && (*at_ == '-' || *at_ == '+')) {
            ++at_;
        }
        if (at_ == end_ || !isDigit(*at_)) {
            return std::nullopt;
        }
        return lowByte(magnitude(negative), negative);
    }

    [[nodiscard]] bool isAtEnd() const { return at_ == end_; }

private:
    /// The digits as a number, no larger than the largest 64-bit number of that sign.
    std::uint64_t magnitude(bool negative) {
        constexpr auto largest =
            static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
        const std::uint64_t limit = negative ? largest + 1 : largest;
        std::uint64_t value = 0;
        const auto [stop, error] = std::from_chars(at_, end_, value);
        at_ = stop;
        return error == std::errc() ? std::min(value, limit) : limit;
    }

    static std::uint8_t lowByte(std::uint64_t magnitude, bool negative) {
        return static_cast<std::uint8_t>(negative ? 0 - magnitude : magnitude);
    }

    const char* at_;
    const char* end_;
};

}  // namespace

PresetBytes presetBytes(const Image& sysData) {
    PresetBytes bytes{};
    std::copy_n(sysData.begin(), bytes.size(), bytes.begin());
    return bytes;
}

std::string presetText(const Image& sysData) {
    std::string text;
    text.reserve(imageSize * 4);
    std::array<char, 4> number{};
    for (std::size_t position = 0; position < imageSize; ++position) {
        const auto [end, error] =
            std::to_chars(number.data(), number.data() + number.size(), sysData[position]);
        text.append(number.data(), end);
        text.push_back('\n');
    }
    return text;
}

std::optional<PresetBytes> readPresetText(std::string_view text) {
    PresetBytes bytes{};
    NumberReader reader(text);
    for (std::uint8_t& byte : bytes) {
        const std::optional<std::uint8_t> number = reader.next();
        if (!number) {
            return std::nullopt;
        }
        byte = *number;
    }
    if (text.size() >= presetTextLimit && reader.isAtEnd()) {
        return std::nullopt;  // the last number may go on behind what was read of the file
    }
    return bytes;
}

bool hasPresetHeader(const PresetBytes& bytes, const Image& sysData) {
    constexpr std::size_t compared = 5;
    return std::equal(bytes.begin(), bytes.begin() + compared, sysData.begin());
}

}  // namespace config
