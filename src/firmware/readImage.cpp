#include "firmware/readImage.h"

#include <algorithm>
#include <string_view>

#include "files/readFile.h"
#include "texts/asciiCase.h"

namespace firmware {
namespace {

constexpr std::string_view prefix = "tormelk";

bool isOpen(files::ReadResult::Status status) {
    return status == files::ReadResult::Status::Read || status == files::ReadResult::Status::Failed;
}

void choose(FirmwareState& state, std::string name, std::uint64_t size,
            ChosenFile::Verdict verdict) {
    state.chosenFile = {std::move(name), size, verdict};
    state.m_bin_file = 1;
}

}  // namespace

ReadOutcome readImage(const std::filesystem::path& path, FirmwareState& state) {
    const files::ReadResult file = files::readFile(path, imageFileLimit, files::Access::Read);
    if (!isOpen(file.status)) {
        return ReadOutcome::CannotRead;
    }
    const std::string name = path.filename().string();
    if (!texts::beginsWithIgnoringCase(name, prefix)) {
        choose(state, name, file.size, ChosenFile::Verdict::WrongName);
        return ReadOutcome::WrongName;
    }
    if (file.size >= imageFileLimit) {
        state.len = static_cast<std::uint32_t>(file.size);
        choose(state, name, file.size, ChosenFile::Verdict::TooLarge);
        return ReadOutcome::TooLarge;
    }
    const auto size = static_cast<std::size_t>(file.size);
    if (file.status == files::ReadResult::Status::Failed || file.bytes.size() < size) {
        return ReadOutcome::CannotRead;
    }
    state.len = static_cast<std::uint32_t>(size);
    state.midi_program_hex_len = state.len;
    std::copy_n(file.bytes.begin(), size, state.midi_program_hex.begin());
    choose(state, name, size, ChosenFile::Verdict::Accepted);
    state.heldFile = state.chosenFile;
    return ReadOutcome::Accepted;
}

}  // namespace firmware
