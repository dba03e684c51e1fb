#include "firmware/confirmation.h"

#include "firmware/readImage.h"
#include "sending/pace.h"

namespace firmware {
namespace {

using Verdict = ChosenFile::Verdict;

std::string bytesInWords(std::uint64_t bytes) {
    return sending::inWords(bytes) + (bytes == 1 ? " byte" : " bytes");
}

std::string quoted(const std::string& name) {
    return "\"" + name + "\"";
}

std::string refusal(const ChosenFile& file) {
    const std::string reason = file.verdict == Verdict::WrongName
                                   ? "the name of a firmware file begins with \"tormelk\""
                                   : "it has " + bytesInWords(file.size) +
                                         ", a firmware file has fewer than " +
                                         sending::inWords(imageFileLimit);
    return "The file you chose last, " + quoted(file.name) + ", was REFUSED: " + reason +
           ". Not one of its bytes will be written.";
}

/// What stands in the buffer in place of the file that was refused.
std::string leftovers(const FirmwareState& state) {
    const ChosenFile& held = state.heldFile;
    const bool nothingHeld = held.verdict == Verdict::None || held.size == 0;
    if (!nothingHeld && held.size == state.len) {
        return "What will be written instead is the file read before it, " + quoted(held.name) +
               ".";
    }
    return "What will be written instead is " + bytesInWords(state.len) +
           (nothingHeld ? " of no firmware at all."
                        : " that are no firmware: what is left of " + quoted(held.name) +
                              " and of files before it, and zeros.") +
           " The controller will not work with that. Press Cancel.";
}

std::vector<std::string> warningsOf(const FirmwareState& state, const UploadOutput& output) {
    std::vector<std::string> warnings;
    const ChosenFile& chosen = state.chosenFile;
    if (chosen.isRefused()) {
        warnings.push_back(refusal(chosen));
    } else if (state.len == 0) {
        warnings.push_back("The file you chose, " + quoted(chosen.name) +
                           ", is EMPTY. There is nothing to write.");
    }
    if (state.len == 0) {
        warnings.emplace_back(
            "The controller's firmware will be ERASED and nothing put in its place. Press "
            "Cancel.");
    } else if (chosen.isRefused()) {
        warnings.push_back(leftovers(state));
    }
    if (output.name.empty()) {
        warnings.emplace_back("NO OUTPUT is chosen. Not one byte will be written.");
    } else if (!output.online) {
        warnings.emplace_back(
            "The output is OFFLINE. Not one byte will be written unless it comes back "
            "before you press OK.");
    }
    return warnings;
}

std::string joined(const std::vector<std::string>& names) {
    std::string all;
    for (const std::string& name : names) {
        all += (all.empty() ? "" : ", ") + name;
    }
    return all;
}

/// The file whose bytes will be written, where they are a file's at all.
std::string fileToWrite(const FirmwareState& state) {
    if (!state.chosenFile.isRefused()) {
        return state.chosenFile.name;
    }
    const bool whole = state.heldFile.verdict == Verdict::Accepted &&
                       state.heldFile.size == state.len && state.len > 0;
    return whole ? state.heldFile.name : "none";
}

}  // namespace

Confirmation confirmationOf(const FirmwareState& state, const UploadOutput& output) {
    const std::uint64_t blocks = sending::blocksFor(state.len);
    Confirmation content;
    content.warnings = warningsOf(state, output);
    content.facts = {
        {"File", fileToWrite(state)},
        {"Size", bytesInWords(state.len)},
        {"Blocks", sending::inWords(blocks) + " of 512 bytes"},
        {"Output", output.name.empty() ? "none" : output.name},
        {"Time", "about " + sending::inWords(sending::timeOfUpload(blocks))},
    };
    if (!output.otherPrograms.empty()) {
        content.facts.push_back(
            {"Also connected", joined(output.otherPrograms) +
                                   ". What it sends could slip in between: close or "
                                   "disconnect it first."});
    }
    content.advice =
        "Until the upload has ended, leave the controller connected and switched on. The window "
        "shows how far it is, and takes no clicks meanwhile.\n\n"
        "Should it be cut off, the controller is not lost: it waits in its update mode. Start "
        "again "
        "at step 3.";
    return content;
}

}  // namespace firmware
