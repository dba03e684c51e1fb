#pragma once

// Lists whose texts follow a rule, written out by the compiler. A list takes two constants of
// static storage, the characters and the views into them:
//
//   constexpr auto channelTexts = writeTexts<16>([](Text& text, int i) { text.append(i + 1); });
//   constexpr auto channelViews = viewsOf(channelTexts);
//
// For the sources of this room only.

#include <array>
#include <cstddef>
#include <string_view>

namespace tables {

/// A short text that is put together during compilation. One that does not fit stops the
/// compilation.
class Text {
public:
    constexpr void append(std::string_view characters) {
        for (const char character : characters) {
            append(character);
        }
    }

    constexpr void append(char character) { characters_.at(length_++) = character; }

    /// Appends the number in decimal, with a minus sign where it is negative.
    constexpr void append(int number) {
        if (number < 0) {
            append('-');
            number = -number;
        }
        if (number >= 10) {
            append(number / 10);
        }
        append(static_cast<char>('0' + number % 10));
    }

    constexpr void appendBlanks(int count) {
        for (int i = 0; i < count; ++i) {
            append(' ');
        }
    }

    [[nodiscard]] constexpr std::string_view view() const { return {characters_.data(), length_}; }

private:
    std::array<char, 48> characters_{};
    std::size_t length_ = 0;
};

/// Calls `write(text, i)` for every item of a list, i counting from 0.
template <std::size_t count, typename Write>
constexpr std::array<Text, count> writeTexts(Write write) {
    std::array<Text, count> texts{};
    int i = 0;
    for (Text& text : texts) {
        write(text, i++);
    }
    return texts;
}

template <std::size_t count>
constexpr std::array<std::string_view, count> viewsOf(const std::array<Text, count>& texts) {
    std::array<std::string_view, count> views{};
    for (std::size_t i = 0; i < count; ++i) {
        views.at(i) = texts.at(i).view();
    }
    return views;
}

}  // namespace tables
