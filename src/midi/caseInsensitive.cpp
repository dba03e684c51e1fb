#include "midi/caseInsensitive.h"

#include <cstddef>
#include <cstdint>
#include <locale>
#include <optional>
#include <stdexcept>

namespace midi {

namespace {

/// Upper to lower case for all of Unicode, or for ASCII alone where the system has no such tables.
const std::ctype<wchar_t>& characterTables() {
    static const std::locale locale = [] {
        try {
            return std::locale("C.UTF-8");
        } catch (const std::runtime_error&) {
            return std::locale::classic();
        }
    }();
    return std::use_facet<std::ctype<wchar_t>>(locale);
}

constexpr std::uint32_t notUnicode = 0x110000;  // above every character

/// Walks through a text by folded characters.
class Characters {
public:
    explicit Characters(std::string_view text) : rest_(text) {}

    std::optional<std::uint32_t> next() {
        if (rest_.empty()) {
            return std::nullopt;
        }
        const std::uint8_t lead = byteAt(0);
        const std::size_t length = sequenceLength(lead);
        std::uint32_t character = length == 1 ? lead : lead & (0x7FU >> length);
        bool valid = length != 0 && length <= rest_.size();
        for (std::size_t i = 1; valid && i < length; ++i) {
            valid = (byteAt(i) & 0xC0U) == 0x80U;
            character = character << 6U | (byteAt(i) & 0x3FU);
        }
        if (!valid || character >= notUnicode) {
            rest_.remove_prefix(1);
            return notUnicode + lead;
        }
        rest_.remove_prefix(length);
        return static_cast<std::uint32_t>(tables_.tolower(static_cast<wchar_t>(character)));
    }

private:
    [[nodiscard]] std::uint8_t byteAt(std::size_t index) const {
        return static_cast<std::uint8_t>(rest_[index]);
    }
    /// 0 if no character begins so.
    static std::size_t sequenceLength(std::uint8_t lead) {
        if (lead < 0x80) {
            return 1;
        }
        if (lead >= 0xC2 && lead < 0xE0) {
            return 2;
        }
        if (lead >= 0xE0 && lead < 0xF0) {
            return 3;
        }
        return lead >= 0xF0 && lead < 0xF5 ? 4 : 0;
    }

    std::string_view rest_;
    const std::ctype<wchar_t>& tables_ = characterTables();
};

}  // namespace

std::weak_ordering compareIgnoringCase(std::string_view a, std::string_view b) {
    Characters inA(a);
    Characters inB(b);
    while (true) {
        const auto characterA = inA.next();
        const auto characterB = inB.next();
        if (characterA != characterB || !characterA) {
            return characterA <=> characterB;  // the end comes before every character
        }
    }
}

bool startsWithIgnoringCase(std::string_view text, std::string_view prefix) {
    Characters inText(text);
    Characters inPrefix(prefix);
    while (const auto wanted = inPrefix.next()) {
        if (inText.next() != wanted) {
            return false;
        }
    }
    return true;
}

}  // namespace midi
