#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string>

#include "config/buildImageAndStores.h"
#include "config/control.h"
#include "files/TemporaryFolder.h"
#include "rescue/Work.h"
#include "rescue/leftovers.h"

// Work that the tests tell apart by a number. Both halves hold it, so that halves of two works
// never pass for one.

namespace rescue {

struct Configuration {
    config::Image image{};
    config::Stores stores;

    Configuration() { config::buildImageAndStores(image, stores); }
    [[nodiscard]] Work work() const { return workOf(image, stores); }
};

/// `number` is less than 2^21.
inline Work workWith(int number) {
    Configuration configuration;
    for (int digit = 0; digit < 3; ++digit) {
        const int bits = (number >> (7 * digit)) & 0x7F;
        config::setNumber(configuration.image, 0, digit, bits);
        configuration.stores.SysBuf_usrdef[config::numberOffset + static_cast<std::size_t>(digit)] =
            static_cast<std::uint8_t>(bits);
    }
    return configuration.work();
}

/// The number of a work, the whole of which is as it was made; -1 for any other.
inline int numberOf(const Work& work) {
    int number = 0;
    for (int digit = 2; digit >= 0; --digit) {
        number = number << 7 | work.shown[config::numberOffset + static_cast<std::size_t>(digit)];
    }
    return work == workWith(number) ? number : -1;
}

/// The text of a preset file.
inline std::string presetTextOf(const config::PresetBytes& bytes) {
    config::Image image{};
    std::copy(bytes.begin(), bytes.end(), image.begin());
    return config::presetText(image);
}

inline void PrintTo(const LeftAlone& file, std::ostream* stream) {
    *stream << file.name << ", obstacle " << static_cast<int>(file.why);
}

inline std::vector<int> numbersIn(const Findings& findings) {
    std::vector<int> numbers;
    for (const Leftover& leftover : findings.leftovers) {
        numbers.push_back(numberOf(leftover.work));
    }
    return numbers;
}

/// A folder of copies that is not there yet.
class RescueTest : public testing::Test {
protected:
    std::vector<std::string> names() const {
        return std::filesystem::exists(folder) ? files::namesIn(folder)
                                               : std::vector<std::string>();
    }
    /// The one file with this ending.
    std::filesystem::path fileEndingWith(const std::string& end) const {
        std::filesystem::path found;
        for (const std::string& name : names()) {
            if (name.ends_with(end)) {
                EXPECT_TRUE(found.empty()) << name;
                found = folder / name;
            }
        }
        EXPECT_FALSE(found.empty()) << end;
        return found;
    }

    files::TemporaryFolder temporary{files::parentInMemory()};
    std::filesystem::path folder = temporary / "state" / "tormelk-wyro";
};

}  // namespace rescue
