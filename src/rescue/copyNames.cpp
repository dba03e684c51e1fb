#include "rescue/copyNames.h"

#include <array>
#include <cstdio>
#include <random>
#include <regex>

namespace rescue {

std::string newStem() {
    std::array<char, 9> digits{};
    std::snprintf(digits.data(), digits.size(), "%08x", std::random_device()());
    return std::string("unsaved-") + digits.data();
}

std::string fileName(const CopyName& name) {
    const std::string numbered = name.stem + "-" + std::to_string(name.number);
    switch (name.part) {
        case Part::Lock:
            return name.stem + ".lock";
        case Part::UserDefined:
            return numbered + "-user-defined.Tormelk";
        case Part::Shown:
            break;
    }
    return numbered + ".Tormelk";
}

std::optional<CopyName> parsedName(const std::string& fileName) {
    static const std::regex lock("(unsaved-[0-9a-f]{8})\\.lock");
    static const std::regex preset(
        "(unsaved-[0-9a-f]{8})-([1-9][0-9]{0,17})(-user-defined)?\\.Tormelk");
    std::smatch parts;
    if (std::regex_match(fileName, parts, lock)) {
        return CopyName{parts[1], Part::Lock, 0};
    }
    if (std::regex_match(fileName, parts, preset)) {
        return CopyName{parts[1], parts[3].matched ? Part::UserDefined : Part::Shown,
                        std::stoull(parts[2])};
    }
    return std::nullopt;
}

}  // namespace rescue
