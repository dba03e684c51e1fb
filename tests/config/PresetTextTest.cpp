#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "config/buildImageAndStores.h"
#include "config/presetText.h"

namespace config {
namespace {

using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

Image freshImage() {
    Image image{};
    Stores stores;
    buildImageAndStores(image, stores);
    return image;
}

Image randomImage(unsigned seed) {
    std::mt19937 random(seed);
    Image image{};
    for (std::uint8_t& byte : image) {
        byte = static_cast<std::uint8_t>(random());
    }
    return image;
}

PresetBytes used(const Image& image) {
    PresetBytes bytes{};
    std::copy_n(image.begin(), bytes.size(), bytes.begin());
    return bytes;
}

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::size_t start = 0;
    for (std::size_t end = text.find('\n'); end != std::string::npos;
         end = text.find('\n', start)) {
        lines.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    return lines;
}

/// The file as formatted output writes it.
std::string formatted(const Image& image) {
    const File file(std::tmpfile(), &std::fclose);
    for (std::size_t i = 0; i < 1016; ++i) {
        std::fprintf(file.get(), "%d\n", image.at(i));
    }
    std::string text(static_cast<std::size_t>(std::ftell(file.get())), '\0');
    std::rewind(file.get());
    EXPECT_EQ(std::fread(text.data(), 1, text.size(), file.get()), text.size());
    return text;
}

/// `number` of them, the value i on line i modulo 256.
std::string manyNumbers(int number) {
    std::string text;
    for (int i = 0; i < number; ++i) {
        text += std::to_string(i % 256) + '\n';
    }
    return text;
}

/// The byte that is read from `number`, standing on a line of its own between 507 and 508 others.
std::optional<int> byteRead(const std::string& number) {
    const auto bytes = readPresetText(manyNumbers(507) + number + '\n' + manyNumbers(508));
    if (!bytes) {
        return std::nullopt;
    }
    for (std::size_t i = 0; i < bytes->size(); ++i) {
        if (i != 507) {
            EXPECT_EQ(bytes->at(i), (i < 507 ? i : i - 508) % 256) << "beside " << number;
        }
    }
    return bytes->at(507);
}

TEST(PresetText, IsALineForEveryByte) {
    const std::string text = presetText(freshImage());
    EXPECT_EQ(text.back(), '\n');
    const std::vector<std::string> lines = linesOf(text);
    ASSERT_EQ(lines.size(), 1016U);
    const std::vector<std::string> beginning{"240", "29", "3", "0", "105", "78", "1"};
    EXPECT_TRUE(std::equal(beginning.begin(), beginning.end(), lines.begin()));
    EXPECT_EQ(lines[253], "247");
    EXPECT_EQ(lines[254], "240");
    EXPECT_EQ(lines[1015], "247");
}

TEST(PresetText, WritesEveryValueUnsignedAndWithoutLeadingZeros) {
    Image image{};
    for (std::size_t i = 0; i < 256; ++i) {
        image.at(i) = static_cast<std::uint8_t>(i);
    }
    const std::vector<std::string> lines = linesOf(presetText(image));
    for (std::size_t i = 0; i < 256; ++i) {
        EXPECT_EQ(lines.at(i), std::to_string(i));
    }
}

TEST(PresetText, LeavesOutTheSpareBytesBehindTheImage) {
    Image image{};
    const std::string text = presetText(image);
    std::fill(image.begin() + 1016, image.end(), std::uint8_t{99});
    EXPECT_EQ(presetText(image), text);
}

TEST(PresetText, IsWhatFormattedOutputWrites) {
    EXPECT_EQ(presetText(freshImage()), formatted(freshImage()));
    for (unsigned seed = 0; seed < 100; ++seed) {
        EXPECT_EQ(presetText(randomImage(seed)), formatted(randomImage(seed)));
    }
}

TEST(PresetText, OfAThousandImagesReadsBackIdentically) {
    for (unsigned seed = 0; seed < 1000; ++seed) {
        const Image image = randomImage(seed);
        ASSERT_EQ(readPresetText(presetText(image)), used(image)) << seed;
    }
}

TEST(PresetTextReader, TakesThePlainNumbers) {
    for (int value = 0; value < 256; ++value) {
        EXPECT_EQ(byteRead(std::to_string(value)), value);
    }
}

TEST(PresetTextReader, KeepsTheLowEightBits) {
    EXPECT_EQ(byteRead("256"), 0);
    EXPECT_EQ(byteRead("300"), 44);
    EXPECT_EQ(byteRead("65535"), 255);
    EXPECT_EQ(byteRead("-1"), 255);
    EXPECT_EQ(byteRead("-16"), 240);
    EXPECT_EQ(byteRead("-256"), 0);
    EXPECT_EQ(byteRead("2147483647"), 255);
    EXPECT_EQ(byteRead("-2147483648"), 0);
    EXPECT_EQ(byteRead("4294967301"), 5);
    EXPECT_EQ(byteRead("-4294967291"), 5);
}

TEST(PresetTextReader, TakesWhatIsTooLargeAsTheLargestNumberThereIs) {
    EXPECT_EQ(byteRead("9223372036854775807"), 255);
    EXPECT_EQ(byteRead("9223372036854775808"), 255);
    EXPECT_EQ(byteRead("18446744073709551616"), 255);
    EXPECT_EQ(byteRead("18446744073709551620"), 255);
    EXPECT_EQ(byteRead("-9223372036854775807"), 1);
    EXPECT_EQ(byteRead("-9223372036854775808"), 0);
    EXPECT_EQ(byteRead("-9223372036854775809"), 0);
    EXPECT_EQ(byteRead("-18446744073709551617"), 0);
    EXPECT_EQ(byteRead(std::string(5000, '9')), 255);
    EXPECT_EQ(byteRead('-' + std::string(5000, '9')), 0);
}

TEST(PresetTextReader, TakesSignsAndLeadingZeros) {
    EXPECT_EQ(byteRead("+5"), 5);
    EXPECT_EQ(byteRead("-5"), 251);
    EXPECT_EQ(byteRead("+0"), 0);
    EXPECT_EQ(byteRead("-0"), 0);
    EXPECT_EQ(byteRead("007"), 7);
    EXPECT_EQ(byteRead("010"), 10);
    EXPECT_EQ(byteRead("-010"), 246);
    EXPECT_EQ(byteRead(std::string(5000, '0') + "12"), 12);
}

TEST(PresetTextReader, PassesOverBlanksAndBlankLines) {
    for (const char blank : {' ', '\t', '\n', '\v', '\f', '\r'}) {
        EXPECT_EQ(byteRead(std::string(1, blank) + "12"), 12) << int{blank};
        EXPECT_EQ(byteRead("12" + std::string(1, blank)), 12) << int{blank};
        EXPECT_EQ(byteRead(std::string(5000, blank) + "12"), 12) << int{blank};
    }
    EXPECT_EQ(byteRead("\n\n \t 12 \r\n\r\n \n"), 12);
}

TEST(PresetTextReader, DoesNotMindWhichBlanksStandBetweenTheNumbers) {
    const std::string text = presetText(randomImage(1));
    for (const std::string between : {" ", "\r\n", "\r", "\t", "\n\n", " \v\f "}) {
        std::string other;
        for (const char c : text) {
            other += c == '\n' ? between : std::string(1, c);
        }
        EXPECT_EQ(readPresetText(other), used(randomImage(1)));
    }
}

TEST(PresetTextReader, NeedsNoBlankBeforeASign) {
    std::string text = manyNumbers(1014);
    EXPECT_EQ(readPresetText(text + "7-1")->at(1015), 255);
    EXPECT_EQ(readPresetText(text + "7+1")->at(1015), 1);
}

TEST(PresetTextReader, DoesWithoutTheLastLineFeed) {
    std::string text = presetText(randomImage(2));
    text.pop_back();
    EXPECT_EQ(readPresetText(text), used(randomImage(2)));
}

TEST(PresetTextReader, DoesNotLookAtWhatFollowsTheLastNumber) {
    const std::string text = presetText(randomImage(3));
    const std::vector<std::string> rests{"1\n", "text", std::string("\0", 1), text, "- "};
    for (const std::string& rest : rests) {
        EXPECT_EQ(readPresetText(text + rest), used(randomImage(3)));
    }
    EXPECT_EQ(readPresetText(text.substr(0, text.size() - 1) + "x"), used(randomImage(3)));
}

TEST(PresetTextReader, RefusesFewerNumbersThanTheImageHasBytes) {
    EXPECT_EQ(readPresetText(""), std::nullopt);
    EXPECT_EQ(readPresetText("\n\n \n"), std::nullopt);
    for (int number = 1; number < 1016; ++number) {
        EXPECT_EQ(readPresetText(manyNumbers(number)), std::nullopt) << number;
    }
    EXPECT_NE(readPresetText(manyNumbers(1016)), std::nullopt);
}

TEST(PresetTextReader, RefusesTextWhereANumberShouldBe) {
    const std::string byteOrderMark = "\xEF\xBB\xBF";
    const std::string noBreakSpace = "\xC2\xA0";
    for (const char* sign : {"-", "+", "--1", "+-1", "-+1", "- 1", "+ 1", "-\n1"}) {
        EXPECT_EQ(byteRead(sign), std::nullopt) << sign;
    }
    for (const char* point : {".", ",", "1.5", "1,", "1;", "0x10", "1e2", "12a"}) {
        EXPECT_EQ(byteRead(point), std::nullopt) << point;
    }
    for (const char* word : {"x", "#1", "'1'", "\"1\"", "nan", "inf", "\x1B[0m"}) {
        EXPECT_EQ(byteRead(word), std::nullopt) << word;
    }
    for (const std::string& text :
         {byteOrderMark + "1", noBreakSpace + "1", std::string("\xD9\xA1"), std::string("\x80"),
          std::string("\xFF")}) {
        EXPECT_EQ(byteRead(text), std::nullopt) << text;
    }
    EXPECT_EQ(byteRead(std::string("\0", 1)), std::nullopt);
    EXPECT_EQ(byteRead(std::string("1\0", 2)), std::nullopt);
    EXPECT_EQ(byteRead(std::string("\0001", 2)), std::nullopt);
}

TEST(PresetTextReader, RefusesTextWhereverItStands) {
    const std::vector<std::string> lines = linesOf(manyNumbers(1016));
    for (std::size_t wrong = 0; wrong < lines.size(); ++wrong) {
        std::string text;
        for (std::size_t i = 0; i < lines.size(); ++i) {
            text += (i == wrong ? "x" : lines[i]) + '\n';
        }
        EXPECT_EQ(readPresetText(text), std::nullopt) << wrong;
    }
}

TEST(PresetTextReader, TakesNoLastNumberThatMayGoOnBehindTheLimit) {
    // Of a larger file only its beginning is there: "25" may be that of 255.
    const std::string numbers = manyNumbers(1015);
    const std::string blanks(presetTextLimit - numbers.size() - 2, ' ');
    EXPECT_EQ(readPresetText(blanks + numbers + "25"), std::nullopt);
    EXPECT_EQ(readPresetText(blanks.substr(1) + numbers + "25 ")->at(1015), 25);
    EXPECT_EQ(readPresetText(blanks.substr(1) + numbers + "25")->at(1015), 25);
}

TEST(PresetTextReader, FindsSpaceForTheLongestPlainPresetBelowTheLimit) {
    Image image{};
    image.fill(255);
    EXPECT_EQ(presetText(image).size(), 4064U);
    EXPECT_GE(presetTextLimit, 100 * presetText(image).size());
}

TEST(PresetHeader, IsTheFirstFiveBytes) {
    const Image image = freshImage();
    for (std::size_t position = 0; position < imageSize; ++position) {
        for (const int change : {1, 0x80}) {
            PresetBytes preset = used(image);
            preset.at(position) = static_cast<std::uint8_t>(preset.at(position) ^ change);
            EXPECT_EQ(hasPresetHeader(preset, image), position >= 5) << position;
        }
    }
    EXPECT_TRUE(hasPresetHeader(used(image), image));
}

TEST(PresetHeader, IsThatOfTheImageInMemory) {
    Image image = freshImage();
    const PresetBytes preset = used(image);
    image[3] = 1;
    EXPECT_FALSE(hasPresetHeader(preset, image));
    EXPECT_TRUE(hasPresetHeader(used(image), image));
}

}  // namespace
}  // namespace config
