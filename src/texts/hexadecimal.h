#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace texts {

/// The two digits of a byte: "0F".
[[nodiscard]] inline std::string digits(std::uint8_t byte) {
    constexpr char digit[] = "0123456789ABCDEF";
    return {digit[byte >> 4], digit[byte & 0x0F]};
}

/// A byte as a text: "0x0F".
[[nodiscard]] inline std::string hexadecimal(std::uint8_t byte) {
    return "0x" + digits(byte);
}

/// Bytes in a row: "F0 1D 03".
[[nodiscard]] inline std::string hexadecimal(std::span<const std::uint8_t> bytes) {
    std::string text;
    for (const std::uint8_t byte : bytes) {
        text += (text.empty() ? "" : " ") + digits(byte);
    }
    return text;
}

}  // namespace texts
