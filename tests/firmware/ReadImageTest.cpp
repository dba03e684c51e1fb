#include "firmware/readImage.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <random>

#include "files/ChildProcess.h"
#include "firmware/FirmwareTest.h"

// What stands in for the system's read while a test makes it fail. One test runs at a time.
namespace {
enum class Reading { Works, Fails, EndsEarly };
Reading reading = Reading::Works;
}  // namespace

// The linker decides the names.
#ifdef __clang__
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wreserved-identifier"
#endif
extern "C" {
ssize_t __real_read(int file, void* bytes, std::size_t size);
ssize_t __wrap_read(int file, void* bytes, std::size_t size);
ssize_t __wrap_read(int file, void* bytes, std::size_t size) {
    if (reading == Reading::Fails) {
        errno = EIO;
        return -1;
    }
    return reading == Reading::EndsEarly ? 0 : __real_read(file, bytes, size);
}
}
#ifdef __clang__
#pragma clang diagnostic pop
#endif

namespace firmware {
namespace {

namespace fs = std::filesystem;
using testing::Each;

class ReadImage : public FirmwareTest {
public:
    ReadImage() = default;
    ReadImage(const ReadImage&) = delete;
    ReadImage& operator=(const ReadImage&) = delete;
    ~ReadImage() override { reading = Reading::Works; }

protected:
    ReadOutcome read(const std::string& name, const std::string& bytes) {
        files::write(folder / name, bytes);
        return readImage(folder / name, state);
    }
    [[nodiscard]] std::string buffer(std::size_t size) const {
        return {state.midi_program_hex.begin(),
                state.midi_program_hex.begin() + static_cast<std::ptrdiff_t>(size)};
    }
    void expectNothingHasChanged() {
        EXPECT_EQ(state.m_bin_file, 0);
        EXPECT_EQ(state.len, 0U);
        EXPECT_EQ(state.midi_program_hex_len, 0U);
        EXPECT_THAT(state.midi_program_hex, Each(0));
        EXPECT_EQ(state.chosenFile.verdict, ChosenFile::Verdict::None);
    }
};

TEST_F(ReadImage, HoldsNothingAtFirst) {
    expectNothingHasChanged();
    EXPECT_EQ(state.midi_program_hex.size(), 65536U);
}

TEST_F(ReadImage, TakesA40000ByteFileWhosePrefixIsInCapitals) {
    const std::string image = someImage(40000);
    EXPECT_EQ(read("TORMELK_V2.BIN", image), ReadOutcome::Accepted);
    EXPECT_EQ(buffer(40000), image);
    EXPECT_THAT(std::span(state.midi_program_hex).subspan(40000), Each(0));
    EXPECT_EQ(state.midi_program_hex_len, 40000U);
    EXPECT_EQ(state.len, 40000U);
    EXPECT_EQ(state.m_bin_file, 1);
}

TEST_F(ReadImage, TakesThePrefixInAnyMixtureOfCasesAndAloneWithoutAnEnding) {
    for (const char* name : {"tormelk", "Tormelk.bin", "tOrMeLk-2.dat", "tormelkish", "TORMELK"}) {
        EXPECT_EQ(read(name, "x"), ReadOutcome::Accepted) << name;
    }
}

TEST_F(ReadImage, TakesNoFileWithoutThePrefix) {
    for (const char* name : {"firmware.bin", "tormel", "tormel.bin", "xtormelk.bin", " tormelk",
                             "tormelc.bin", "to", "[ormelk.bin", "tormel\xC3\xAB"}) {
        state.m_bin_file = 0;
        EXPECT_EQ(read(name, "x"), ReadOutcome::WrongName) << name;
        EXPECT_EQ(state.m_bin_file, 1) << "it counts as chosen";
        EXPECT_EQ(state.chosenFile.verdict, ChosenFile::Verdict::WrongName);
        EXPECT_EQ(state.chosenFile.name, name);
    }
    EXPECT_EQ(state.len, 0U);
    EXPECT_EQ(state.midi_program_hex_len, 0U);
}

TEST_F(ReadImage, LooksAtTheLastComponentOfThePathOnly) {
    fs::create_directory(folder / "tormelk");
    EXPECT_EQ(read("tormelk/other.bin", "x"), ReadOutcome::WrongName);
    fs::create_directory(folder / "other");
    EXPECT_EQ(read("other/tormelk.bin", "x"), ReadOutcome::Accepted);
}

TEST_F(ReadImage, TakesAFileOneByteShorterThan57344AndNoLongerOne) {
    const std::string largest = someImage(57343);
    EXPECT_EQ(read("tormelk", largest), ReadOutcome::Accepted);
    EXPECT_EQ(state.len, 57343U);
    EXPECT_EQ(read("tormelk", someImage(57344, 7)), ReadOutcome::TooLarge);
    EXPECT_EQ(state.len, 57344U) << "it was measured";
    EXPECT_EQ(state.midi_program_hex_len, 57343U) << "not read";
    EXPECT_EQ(buffer(57343), largest);
    EXPECT_EQ(state.m_bin_file, 1);
    EXPECT_EQ(state.chosenFile.verdict, ChosenFile::Verdict::TooLarge);
    EXPECT_EQ(state.heldFile.size, 57343U);
}

TEST_F(ReadImage, ARefusalForSizeCountsAsChosenToo) {
    EXPECT_EQ(read("tormelk", someImage(57344)), ReadOutcome::TooLarge);
    EXPECT_EQ(state.m_bin_file, 1);
    EXPECT_EQ(state.midi_program_hex_len, 0U);
}

TEST_F(ReadImage, ComparesAHugeFilesSizeBeforeNarrowingIt) {
    files::write(folder / "tormelk", "beginning");
    fs::resize_file(folder / "tormelk", (std::uintmax_t{1} << 32) + 100);
    EXPECT_EQ(readImage(folder / "tormelk", state), ReadOutcome::TooLarge);
    EXPECT_EQ(state.len, 100U);
    EXPECT_EQ(state.chosenFile.size, (std::uintmax_t{1} << 32) + 100);
    EXPECT_EQ(state.midi_program_hex_len, 0U);
}

TEST_F(ReadImage, TakesAnEmptyFile) {
    EXPECT_EQ(read("tormelk", someImage(100)), ReadOutcome::Accepted);
    EXPECT_EQ(read("tormelk", ""), ReadOutcome::Accepted);
    EXPECT_EQ(state.len, 0U);
    EXPECT_EQ(state.midi_program_hex_len, 0U);
    EXPECT_EQ(state.m_bin_file, 1);
    EXPECT_EQ(buffer(100), someImage(100)) << "what the earlier file left stays";
}

TEST_F(ReadImage, KeepsBeyondASmallerFileWhatALargerOneLeft) {
    const std::string larger = someImage(3000, 1);
    const std::string smaller = someImage(1000, 2);
    EXPECT_EQ(read("tormelk", larger), ReadOutcome::Accepted);
    EXPECT_EQ(read("tormelk", smaller), ReadOutcome::Accepted);
    EXPECT_EQ(buffer(3000), smaller + larger.substr(1000));
    EXPECT_EQ(state.len, 1000U);
}

TEST_F(ReadImage, LooksAtNoContents) {
    for (const std::string& bytes : {std::string(500, '\0'), std::string(500, '\xFF'),
                                     std::string("MZ"), std::string("\n\r\n\x1A\x04")}) {
        EXPECT_EQ(read("tormelk", bytes), ReadOutcome::Accepted);
        EXPECT_EQ(buffer(bytes.size()), bytes);
    }
}

TEST_F(ReadImage, CannotReadWhatIsNotThere) {
    EXPECT_EQ(readImage(folder / "tormelk", state), ReadOutcome::CannotRead);
    EXPECT_EQ(readImage("", state), ReadOutcome::CannotRead);
    expectNothingHasChanged();
}

TEST_F(ReadImage, CannotReadAFolder) {
    fs::create_directory(folder / "tormelk");
    EXPECT_EQ(readImage(folder / "tormelk", state), ReadOutcome::CannotRead);
    expectNothingHasChanged();
}

TEST_F(ReadImage, CannotReadAPipeAndDoesNotWaitForIt) {
    ASSERT_EQ(::mkfifo((folder / "tormelk").c_str(), 0666), 0);
    EXPECT_EQ(readImage(folder / "tormelk", state), ReadOutcome::CannotRead);
    expectNothingHasChanged();
}

TEST_F(ReadImage, ReadsAFileThatMayOnlyBeReadAndNoneThatMayNot) {
    const files::TemporaryFolder shared;
    files::write(shared / "tormelk-read", "image");
    files::write(shared / "tormelk-closed", "image");
    fs::permissions(shared / "tormelk-read", fs::perms(0444));
    fs::permissions(shared / "tormelk-closed", fs::perms(0222));
    files::asOrdinaryUser([&] {
        EXPECT_EQ(readImage(shared / "tormelk-closed", state), ReadOutcome::CannotRead);
        expectNothingHasChanged();
        EXPECT_EQ(readImage(shared / "tormelk-read", state), ReadOutcome::Accepted);
    });
}

TEST_F(ReadImage, AFileThatCannotBeReadToItsEndChangesNothing) {
    EXPECT_EQ(read("tormelk", someImage(600)), ReadOutcome::Accepted);
    state.m_bin_file = 0;
    files::write(folder / "tormelk", someImage(1000, 3));
    for (const Reading failure : {Reading::Fails, Reading::EndsEarly}) {
        reading = failure;
        EXPECT_EQ(readImage(folder / "tormelk", state), ReadOutcome::CannotRead);
        reading = Reading::Works;
        EXPECT_EQ(state.m_bin_file, 0);
        EXPECT_EQ(state.len, 600U);
        EXPECT_EQ(state.midi_program_hex_len, 600U);
        EXPECT_EQ(buffer(600), someImage(600));
    }
}

TEST_F(ReadImage, WhateverIsChosenTheBufferHoldsWholeFilesOnly) {
    std::mt19937 random(8);
    std::string held(65536, '\0');
    std::uint32_t heldSize = 0;
    for (unsigned round = 0; round < 400; ++round) {
        const std::size_t size = random() % 3 == 0 ? 57300 + random() % 100 : random() % 9000;
        const std::string bytes = someImage(size, round);
        const bool named = random() % 4 != 0;
        const ReadOutcome outcome = read(named ? "tormelk" : "other", bytes);
        if (!named) {
            EXPECT_EQ(outcome, ReadOutcome::WrongName);
        } else if (size >= 57344) {
            EXPECT_EQ(outcome, ReadOutcome::TooLarge);
            EXPECT_EQ(state.len, size);
        } else {
            EXPECT_EQ(outcome, ReadOutcome::Accepted);
            EXPECT_EQ(state.len, size);
            heldSize = static_cast<std::uint32_t>(size);
            std::copy(bytes.begin(), bytes.end(), held.begin());
        }
        ASSERT_EQ(buffer(65536), held);
        ASSERT_EQ(state.midi_program_hex_len, heldSize);
        ASSERT_EQ(state.m_bin_file, 1);
    }
}

}  // namespace
}  // namespace firmware
