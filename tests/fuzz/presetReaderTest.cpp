#include <gtest/gtest.h>

#include <cctype>
#include <cstdio>
#include <memory>
#include <optional>

#include "config/presetText.h"
#include "fuzz/Corpus.h"
#include "fuzz/Mutator.h"

// The reader of preset files takes exactly what the C library's formatted reader takes, and
// nothing makes it read beyond its text: every sample of the corpus and a great many damaged ones
// are read by both.

namespace fuzz {
namespace {

using config::PresetBytes;

const std::string corpus = std::string(TORMELK_CORPUS) + "/preset";

/// What the C library makes of the text: 1016 numbers with the low eight bits of each, or nothing.
std::optional<PresetBytes> readFormatted(std::string text) {
    if (text.empty()) {
        return std::nullopt;
    }
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(
        fmemopen(text.data(), text.size(), "r"), &std::fclose);
    if (!file) {
        ADD_FAILURE() << "no file in memory";
        return std::nullopt;
    }
    PresetBytes bytes{};
    for (std::uint8_t& byte : bytes) {
        int number = 0;
        // NOLINTNEXTLINE(cert-err34-c): what it makes of large numbers is what is asked here
        if (std::fscanf(file.get(), "%d\n", &number) != 1) {
            return std::nullopt;
        }
        byte = static_cast<std::uint8_t>(number);
    }
    return bytes;
}

/// The reader's result. The text stands alone in memory, without a zero byte behind it, so that
/// the sanitizer sees every step too far.
std::optional<PresetBytes> readOurs(const std::string& text) {
    const std::vector<char> alone(text.begin(), text.end());
    return config::readPresetText({alone.data(), alone.size()});
}

std::string printable(const std::string& text) {
    std::string result;
    for (const char c : text) {
        std::array<char, 8> code{};
        std::snprintf(code.data(), code.size(), "\\x%02X", static_cast<unsigned char>(c));
        result += std::isprint(static_cast<unsigned char>(c)) != 0 ? std::string(1, c)
                                                                   : std::string(code.data());
    }
    return result;
}

TEST(PresetReader, TakesTheSoundPresetsOfTheCorpusAndRefusesTheOthers) {
    int sound = 0;
    int refused = 0;
    for (const Sample& sample : samplesBelow(corpus)) {
        const bool isSound = sample.path.starts_with("sound");
        EXPECT_EQ(readOurs(sample.bytes).has_value(), isSound) << sample.path;
        ++(isSound ? sound : refused);
    }
    EXPECT_GE(sound, 10);
    EXPECT_GE(refused, 30);
}

TEST(PresetReader, AgreesWithTheFormattedReaderOnTheWholeCorpus) {
    for (const Sample& sample : samplesBelow(corpus)) {
        EXPECT_EQ(readOurs(sample.bytes), readFormatted(sample.bytes)) << sample.path;
    }
}

/// Fed in parts, which can run beside each other.
class PresetReaderFuzz : public testing::TestWithParam<std::uint64_t> {};

TEST_P(PresetReaderFuzz, AgreesWithTheFormattedReaderOnDamagedPresets) {
    // Damage to a sound preset gets deeper into the reader: each of those stands there thrice.
    std::vector<std::string> samples;
    for (const Sample& sample : samplesBelow(corpus)) {
        samples.insert(samples.end(), sample.path.starts_with("sound") ? 3 : 1, sample.bytes);
    }
    const std::vector<std::string> words{"\n",
                                         "\r\n",
                                         " ",
                                         "\t",
                                         "\v\f",
                                         "0",
                                         "7",
                                         "00",
                                         "-",
                                         "+",
                                         "-1",
                                         "+255",
                                         "256",
                                         "-129",
                                         "2147483648",
                                         "-2147483649",
                                         "4294967296",
                                         "9223372036854775807",
                                         "9223372036854775808",
                                         "-9223372036854775809",
                                         "18446744073709551616",
                                         "99999999999999999999999999",
                                         "0x1F",
                                         "1e3",
                                         "1.5",
                                         ",",
                                         "nan",
                                         "\xC2\xA0",
                                         "\xEF\xBB\xBF",
                                         "\x80",
                                         "\xFF",
                                         std::string(1, '\0'),
                                         "240\n29\n3\n0\n105\n"};
    const Amount amount = fuzz::amount(200'000);
    Mutator mutator(samples, words, amount.seed * parts + GetParam());
    std::uint64_t taken = 0;
    for (std::uint64_t i = GetParam(); i < amount.inputs; i += parts) {
        const std::string text = mutator.next();
        const auto ours = readOurs(text);
        ASSERT_EQ(ours, readFormatted(text)) << "input " << i << ": " << printable(text);
        taken += ours.has_value() ? 1U : 0U;
    }
    const std::uint64_t inputs = amount.inputs / parts;
    std::printf("%llu inputs, %llu of them presets\n", static_cast<unsigned long long>(inputs),
                static_cast<unsigned long long>(taken));
    EXPECT_GT(taken, inputs / 20) << "too few inputs get through to the end";
    EXPECT_LT(taken, inputs / 2) << "too few inputs are refused";
}

INSTANTIATE_TEST_SUITE_P(Part, PresetReaderFuzz, testing::Range(std::uint64_t{0}, parts));

}  // namespace
}  // namespace fuzz
