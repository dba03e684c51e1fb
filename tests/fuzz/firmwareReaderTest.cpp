#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>

#include "files/TemporaryFolder.h"
#include "firmware/readImage.h"
#include "fuzz/Mutator.h"
#include "midi/ZQMIDIProcess.h"
#include "platform/NotificationCentre.h"
#include "support/ScriptedMidiService.h"

// The reader of firmware files does with a file what its name and size ask for, whatever is in it:
// files of every size around the limits, under every kind of name, one after another into the same
// buffer, beside a plain model of that buffer.

namespace fuzz {
namespace {

namespace fs = std::filesystem;
using firmware::ReadOutcome;

constexpr std::size_t limit = 0xE000;

/// What the window must hold after the files read so far.
struct Model {
    std::array<std::uint8_t, 65536> buffer{};
    std::uint32_t inBuffer = 0;
    std::uint32_t measured = 0;
    std::uint8_t isChosen = 0;

    ReadOutcome read(const std::string& name, const std::string& bytes) {
        static constexpr std::string_view beginning = "tormelk";
        isChosen = 1;
        std::string start = name.substr(0, beginning.size());
        for (char& letter : start) {
            letter = letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + 32) : letter;
        }
        if (start != beginning) {
            return ReadOutcome::WrongName;
        }
        measured = static_cast<std::uint32_t>(bytes.size());
        if (bytes.size() >= limit) {
            return ReadOutcome::TooLarge;
        }
        inBuffer = measured;
        std::copy(bytes.begin(), bytes.end(), buffer.begin());
        return ReadOutcome::Accepted;
    }
};

/// A name that a file can have: not empty, not too long, without a slash or a zero byte.
std::string asFileName(std::string text) {
    constexpr std::size_t longest = 200;
    text.resize(std::min(text.size(), longest));
    std::replace(text.begin(), text.end(), '/', '_');
    std::replace(text.begin(), text.end(), '\0', '_');
    return text.empty() || text == "." || text == ".." ? "tormelk" : text;
}

class FirmwareReaderFuzz : public testing::TestWithParam<std::uint64_t> {
protected:
    std::size_t below(std::size_t end) { return static_cast<std::size_t>(random_() % end); }

    /// Mostly short; every fifth is near a size at which something changes.
    std::string someBytes() {
        constexpr std::array<std::size_t, 7> edges = {0,     512,   1024, limit - 512,
                                                      limit, 65536, 70000};
        const std::size_t size =
            below(5) == 0 ? edges.at(below(edges.size())) + below(5) : below(1500);
        std::string bytes(size, static_cast<char>(below(256)));
        for (std::size_t i = 0; i < bytes.size(); i += 1 + below(64)) {
            bytes[i] = static_cast<char>(below(256));
        }
        return bytes;
    }

    void seed(std::uint64_t seed) { random_.seed(seed); }

    const files::TemporaryFolder folder_{files::parentInMemory()};
    support::ScriptedMidiService service_;
    platform::NotificationCentre notificationCentre_;
    midi::ZQMIDIProcess process_{service_, notificationCentre_};
    firmware::FirmwareState state_{process_};
    Model model_;

private:
    std::mt19937_64 random_;
};

TEST_P(FirmwareReaderFuzz, DoesWhatNameAndSizeAskForWhateverIsInTheFile) {
    const Amount amount = fuzz::amount(40'000);
    seed(amount.seed * parts + GetParam());
    Mutator names({"tormelk.bin", "TORMELK 2.BIN", "Tormelk", "tormelk_v1.03.bin", "other.bin"},
                  {"tormelk", "TORMELK", "tor", "melk", ".", ".bin", " ", "\xC3\xA4", "\xFF", "0"},
                  amount.seed * parts + GetParam());
    std::uint64_t accepted = 0;
    for (std::uint64_t i = GetParam(); i < amount.inputs; i += parts) {
        const std::string name = asFileName(names.next());
        const std::string bytes = someBytes();
        const fs::path path = folder_ / name;
        files::write(path, bytes);
        const ReadOutcome outcome = firmware::readImage(path, state_);
        fs::remove(path);
        ASSERT_EQ(outcome, model_.read(name, bytes)) << "input " << i;
        ASSERT_EQ(state_.midi_program_hex_len, model_.inBuffer) << "input " << i;
        ASSERT_EQ(state_.m_bin_file, model_.isChosen) << "input " << i;
        ASSERT_TRUE(state_.midi_program_hex == model_.buffer) << "input " << i;
        if (outcome != ReadOutcome::WrongName) {
            ASSERT_EQ(state_.len, model_.measured) << "input " << i;
        }
        accepted += outcome == ReadOutcome::Accepted ? 1U : 0U;
    }
    const std::uint64_t inputs = amount.inputs / parts;
    std::printf("%llu inputs, %llu of them accepted\n", static_cast<unsigned long long>(inputs),
                static_cast<unsigned long long>(accepted));
    EXPECT_GT(accepted, inputs / 10) << "too few inputs get through to the end";
    EXPECT_LT(accepted, inputs * 9 / 10) << "too few inputs are refused";
}

INSTANTIATE_TEST_SUITE_P(Part, FirmwareReaderFuzz, testing::Range(std::uint64_t{0}, parts));

}  // namespace
}  // namespace fuzz
