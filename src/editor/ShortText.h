#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

namespace editor {

/// One of the program's own short texts (a title, a caption) as a plain value of bytes. What is
/// longer is cut.
class ShortText {
public:
    static constexpr std::size_t limit = 63;

    ShortText() = default;
    explicit ShortText(std::string_view text)
        : length_(static_cast<std::uint8_t>(std::min(text.size(), limit))) {
        std::copy_n(text.begin(), length_, letters_.begin());
    }

    [[nodiscard]] std::string_view view() const { return {letters_.data(), length_}; }

    bool operator==(const ShortText&) const = default;

private:
    std::array<char, limit> letters_{};
    std::uint8_t length_ = 0;
};

}  // namespace editor
